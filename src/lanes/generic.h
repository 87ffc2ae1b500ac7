// What is built from the operations of any lane type: patterns, signs, tests of a block, rounding by addition,
// polynomials.
#pragma once

#include "lanes/scalar.h"
#include "lanes/twice.h"
#include "lanes/vectors.h"

namespace orvik {

template <class V>
inline V pattern(Bits<V> bits) {  // all lanes with these bits
  return as_float(Integer<V>(bits));
}
template <class V>
inline V sign_mask() {
  return pattern<V>(Format<V>::sign_bit);
}
template <class V>
inline V magnitude(V a) {
  return andnot(sign_mask<V>(), a);
}
template <class V>
inline V sign_of(V a) {
  return a & sign_mask<V>();
}
// a with the sign bit of `sign` set in it, or changed by it.
template <class V>
inline V join_sign(V a, V sign) {
  return a | sign_of(sign);
}
template <class V>
inline V flip_sign(V a, V sign) {
  return a ^ sign_of(sign);
}
template <class V>
inline V copy_sign(V a, V sign) {
  return join_sign(magnitude(a), sign);
}
// a / 2 of normal numbers with a normal half, by the exponent: keeps the multiplier free.
template <class V>
inline V half_of(V a) {
  return as_float(as_bits(a) - Integer<V>(Bits<V>{1} << Format<V>::mantissa_bits));
}

template <class V>
inline Mask<V> mask_of_bits(uint32_t bits) {
  return mask_of_bits(V(Element<V>(0)), bits);
}

// --- tests of a block -----------------------------------------------------------------------------------------------

// Lanes above a bound as signed 32-bit words (in 64-bit lanes the high word decides), not compared yet: tests against
// the same bound are joined by the larger word, so that one comparison serves a whole block.
template <class V, int32_t bound>
struct Above {
  Integer<V> words;
  operator Mask<V>() const { return words_above(words, bound); }
};
template <class V, int32_t bound>
Above<V, bound> operator|(Above<V, bound> a, Above<V, bound> b) {
  return {larger_words(a.words, b.words)};
}
template <class V, int32_t bound>
Mask<V> operator|(Mask<V> a, Above<V, bound> b) {
  return a | Mask<V>(b);
}
template <class V, int32_t bound, int32_t other>
Mask<V> operator|(Above<V, bound> a, Above<V, other> b) {
  return Mask<V>(a) | Mask<V>(b);
}
template <class V, int32_t bound>
bool none(Above<V, bound> a) {
  return none(Mask<V>(a));
}
template <class V, int32_t bound>
uint32_t lane_bits(Above<V, bound> a) {
  return lane_bits(Mask<V>(a));
}

// Lanes whose magnitude, as an integer, is above the bound; in 64 bits the bound's low word counts as all ones.
template <uint32_t bound, class V>
Above<V, static_cast<int32_t>(bound)> magnitude_above(V a) {
  return {as_bits(magnitude(a))};
}

// Lanes whose words are outside [first, last], all of them positive: one addition moves the range to the lowest signed
// integers.
template <uint32_t first, uint32_t last, class V>
auto outside(V a) {
  constexpr uint32_t shift = 0x80000000u - first;
  return Above<V, static_cast<int32_t>(last + shift)>{add_to_words(as_bits(a), shift)};
}
// The same of magnitudes: the sign leaves by a shift.
template <uint32_t first, uint32_t last, class V>
auto outside_magnitude(V a) {
  const Integer<V> moved = add_to_words(shift_left<1>(as_bits(a)), 0x80000000u - 2 * first);
  return Above<V, static_cast<int32_t>(2 * (last - first) + 0x80000001u)>{moved};
}

// Infinities and NaNs. Zeros, negatives, denormals, infinities and NaNs.
template <class V>
auto not_finite(V a) {
  return magnitude_above < Single<V> ? 0x7F7FFFFFu : 0x7FEFFFFFu > (a);
}
template <class V>
auto not_positive_normal(V a) {
  return outside < Single<V> ? 0x00800000u : 0x00100000u, Single<V> ? 0x7F7FFFFFu : 0x7FEFFFFFu > (a);
}

// --- rounding by addition -------------------------------------------------------------------------------------------

// Adding one of these rounds a small number to an integer, which is then in the low bits of the sum.
inline constexpr float kShifter32 = 12582912.0f;          // 1.5 * 2^23
inline constexpr double kShifter64 = 6755399441055744.0;  // 1.5 * 2^52
template <class V>
inline constexpr Element<V> kShifter = Single<V> ? Element<V>(kShifter32) : Element<V>(kShifter64);

// n, the integer (or the multiple of the shifter's last place) nearest to x scale, and the sum that holds it in its
// bits.
template <class V>
struct Shifted {
  V sum, n;
};
template <class V>
inline Shifted<V> shift_round(V x, V scale, V shifter = V(kShifter<V>)) {
  const V sum = fma(x, scale, shifter);
  return {sum, sum - shifter};
}
template <class V>
inline Shifted<V> shift_round(V x) {  // of x itself
  const V sum = x + V(kShifter<V>);
  return {sum, sum - V(kShifter<V>)};
}

// --- polynomials ----------------------------------------------------------------------------------------------------

// Horner's rule with fused steps, coefficients from the highest power down.
template <class V>
inline V horner(V, V c) {
  return c;
}
template <class V, class... Rest>
inline V horner(V x, V highest, V next, Rest... rest) {
  return horner(x, fma(highest, x, next), rest...);
}
template <class V, size_t N>
inline V horner(V x, const Element<V> (&c)[N]) {
  V sum = V(c[0]);
  for (size_t i = 1; i < N; ++i) sum = fma(sum, x, V(c[i]));
  return sum;
}

// The same polynomial by halves (Estrin 1960): a shorter chain of dependent steps, one more rounding here and there.
template <class V, size_t N, size_t First, size_t Count>
inline V estrin_part(const V* powers, const Element<V> (&c)[N]) {  // c[First] is the highest of Count coefficients
  if constexpr (Count == 1) {
    return V(c[First]);
  } else {
    constexpr int level = std::bit_width(Count - 1) - 1;
    constexpr size_t low = size_t{1} << level;  // coefficients of the lower half
    const V upper = estrin_part<V, N, First, Count - low>(powers, c);
    return fma(upper, powers[level], estrin_part<V, N, First + Count - low, low>(powers, c));
  }
}
template <class V, size_t N>
inline V estrin(V x, const Element<V> (&c)[N]) {
  constexpr int levels = N > 1 ? std::bit_width(N - 1) : 1;
  V powers[levels];
  powers[0] = x;
  for (int i = 1; i < levels; ++i) powers[i] = powers[i - 1] * powers[i - 1];
  return estrin_part<V, N, 0, N>(powers, c);
}

}  // namespace orvik
