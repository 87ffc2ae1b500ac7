// |x|^y one element at a time: log2 of extra precision in three table steps, 2^t with one rounding down to the
// denormals.
#pragma once

#include <cmath>
#include <cstdint>

#include "lanes/head_tail.h"
#include "lanes/scalar.h"
#include "orvik/zym_types.h"
#include "zym/kernels/explog/tables.h"
#include "zym/kernels/power/coefficients.h"
#include "zym/kernels/power/tables.h"

namespace orvik::zym {

template <class E>
struct PowerFormat;
template <>
struct PowerFormat<float> {
  static constexpr int second_bits = 6, third_bits = 10;  // steps of the second and third grid: 2^-6, 2^-10
  static constexpr const auto& first = kElementFirst32;
  static constexpr const auto& second = kElementSecond32;
  static constexpr const auto& third = kElementThird32;
  static constexpr const auto& log2 = kElementLog2Single;
  static constexpr float lead = kElementLead32, lead_tail = kElementLeadTail32;
  static constexpr const auto& exp2 = kElementExp2Single;
  static constexpr const auto& exp2_rows = kExp2Narrow128;
  static constexpr float split = 4097.0f;  // 2^12 + 1: heads of half the bits (Dekker 1971)
  static constexpr int split_down_to = -136, lowest = -159;
};
template <>
struct PowerFormat<double> {
  static constexpr int second_bits = 8, third_bits = 12;
  static constexpr const auto& first = kElementFirst64;
  static constexpr const auto& second = kElementSecond64;
  static constexpr const auto& third = kElementThird64;
  static constexpr const auto& log2 = kElementLog2Double;
  static constexpr double lead = kElementLead64, lead_tail = kElementLeadTail64;
  static constexpr const auto& exp2 = kElementExp2Double;
  static constexpr const auto& exp2_rows = kExp2Pairs128;
  static constexpr double split = 134217729.0;  // 2^27 + 1
  static constexpr int split_down_to = -1046, lowest = -1084;
};

// The nearest multiple of 2^-bits to a number near 1, modulo `rows`.
template <int bits, class E, size_t rows, size_t columns>
const E (&row_near(E x, const E (&table)[rows][columns]))[columns] {
  const E sum = x + E(1.5) * power_of_two<E>(FloatFormat<E>::mantissa_bits - bits);
  return table[bits_of(sum) & (rows - 1)];
}

// log2(x), x positive and finite, within 2^-40 ("s") or 2^-68 of itself: x = 2^k m, and three reciprocals take m near
// 1.44140625, so that what is left of the logarithm is nearly the distance from there.
template <class E>
HeadTail<E> log2_head_tail(E x) {
  using F = PowerFormat<E>;
  using Format = FloatFormat<E>;
  int k = 0;
  if (x < float_of<E>(Format::min_normal)) {
    x *= E(18446744073709551616.0);
    k = -64;
  }
  k += exponent_of(x);
  constexpr auto mantissa = (typename Format::Bits{1} << Format::mantissa_bits) - 1;
  const auto field = bits_of(x) & mantissa;
  const E m = float_of<E>(field | bits_of(E(1)));

  constexpr int drop = Format::mantissa_bits - 4;
  const E(&first)[3] = F::first[(field + (typename Format::Bits{1} << (drop - 1))) >> drop];
  HeadTail<E> p = two_prod(m, first[0]);
  const E(&second)[3] = row_near<F::second_bits>(p.head, F::second);
  p = multiply(p, second[0]);
  const E(&third)[3] = row_near<F::third_bits>(p.head, F::third);
  p = multiply(p, third[0]);
  const HeadTail<E> z = fast_two_sum(p.head - E(1.44140625), p.tail);

  const HeadTail<E> lead = two_prod(z.head, F::lead);
  const E rest = std::fma(z.head * z.head, horner(z.head, F::log2), std::fma(z.head, F::lead_tail, z.tail * F::lead));
  HeadTail<E> sum = add(HeadTail<E>{first[1], first[2]}, E(k));
  sum = add(sum, HeadTail<E>{second[1], second[2]});
  sum = add(sum, HeadTail<E>{third[1], third[2]});
  sum = add(sum, z);
  return add(sum, HeadTail<E>{lead.head, lead.tail + rest});
}

// What leaves the format; an overflow is reported, an underflow is not.
template <class E>
int32_t overflow_result(E sign, E* r) {
  const E huge = opaque(power_of_two<E>(FloatFormat<E>::bias));
  *r = sign * huge * huge;
  return zymErrorOverflow;
}
template <class E>
int32_t underflow_result(E sign, E* r) {
  const E tiny = opaque(float_of<E>(FloatFormat<E>::min_normal));
  *r = sign * tiny * tiny;
  return 0;
}

// sign * 2^t, |t| below 2^12, and the report's code.
template <class E>
int32_t exp2_result(HeadTail<E> t, E sign, E* r) {
  using F = PowerFormat<E>;
  using Format = FloatFormat<E>;
  constexpr int bits = Format::mantissa_bits;
  const E shifter = E(1.5) * power_of_two<E>(bits - 7);  // 98304 in 32 bits
  const E sum = t.head + shifter;
  const E f = (t.head - (sum - shifter)) + t.tail;
  const auto n = static_cast<int>(static_cast<int64_t>(bits_of(sum)) - static_cast<int64_t>(bits_of(shifter)));
  const E(&row)[2] = F::exp2_rows[n & 127];
  const int k = n >> 7;
  const E rest = std::fma(f, horner(f, F::exp2), row[1]);
  const E y = std::fma(row[0], rest, row[0]);  // next to 1 also below it

  const int e = k + exponent_of(y);
  if (e > Format::bias) return overflow_result(sign, r);
  if (e >= 1 - Format::bias) {
    const auto scale = static_cast<typename Format::Bits>(k) << bits;
    *r = sign * float_of<E>(bits_of(y) + scale);
    return 0;
  }
  if (e < F::lowest) return underflow_result(sign, r);
  // Computed 2^64 too high. The step back rounds once: of a sum of a head with so few bits that it loses none, and a
  // tail. Where not even those fit there are so few bits left that a second rounding is seen by none of them.
  constexpr E down = E(1) / E(18446744073709551616.0);
  const E scale = power_of_two<E>(k + 64);
  const E head = row[0] * scale;
  const HeadTail<E> s = fast_two_sum(head, head * rest);
  if (e >= F::split_down_to) {
    const E up = s.head * F::split;
    const E h = up - (up - s.head);
    *r = sign * std::fma(down, (s.head - h) + s.tail, down * h);
  } else {
    *r = sign * (s.head * down);
  }
  return 0;
}

}  // namespace orvik::zym
