// Sums over contiguous values of one variable.
#pragma once

#include <cmath>
#include <limits>
#include <type_traits>

#include "lanes/lanes.h"
#include "lanes/sums.h"
#include "qor/ss/powers.h"
#include "qor/ss/rows.h"
#include "qor/unroll.h"

namespace orvik::ss {

// step(i, r) for whole steps of kEach vectors from place i on in stream r of kCount; then vector(i, r) for the whole
// vectors that are left, then part(i, lanes) for the rest. The streams are equal parts of the values: memory is read
// faster in several places at once, as the hardware foresees each.
template <class V, int kCount, int kEach, class Step, class Vector, class Part>
inline __attribute__((always_inline)) void for_streams(int64_t n, Step&& step, Vector&& vector, Part&& part) {
  constexpr int64_t kStep = kEach * kWidth<V>;
  const int64_t apart = n / (kCount * kStep) * kStep;
  for (int64_t i = 0; i < apart; i += kStep) {
    unroll<kCount>([&](auto r) __attribute__((always_inline)) { step(i + r * apart, r); });
  }
  int64_t i = kCount * apart;
  unroll<kCount * kEach - 1>([&](auto r) __attribute__((always_inline)) {
    if (i + kWidth < V >> n) return;
    vector(i, r);
    i += kWidth<V>;
  });
  if (i < n) part(i, n - i);
}

// Paired: deviations of two values at once from twice the point, which takes fewer operations. Equal values still have
// none, rounding of a pair is that of a result, but its sum may overflow.
template <int K, bool Weighted, bool Shifted, bool Paired, class T>
inline void add_segment(int64_t n, const T* x, const T* w, T shift, double (&sums)[K]) {
  static_assert(!Paired || (K == 1 && Shifted && !Weighted));
  using V = VectorOf<T>;
  // As many accumulators as the registers hold.
  constexpr int kCount = K <= 2 ? 4 : 3, kEach = K == 1 ? 2 : 1;
  const V u = V(shift);
  V s[kCount * kEach][K];
  // One by one: a loop over all of them becomes a store of zeros to memory, which takes longer than a short sum.
  unroll<kCount * kEach * K>([&](auto i) __attribute__((always_inline)) { s[i / K][i % K] = V(T(0)); });
  const auto vector = [&](int64_t i, auto r) __attribute__((always_inline)) {
    V d = load<V>(x + i);
    if constexpr (Shifted) d = d - u;
    add_powers<K, Weighted>(d, Weighted ? load<V>(w + i) : u, s[r]);
  };
  const V twice = u + u;
  const auto step = [&](int64_t i, auto r) __attribute__((always_inline)) {
    if constexpr (Paired) {
      // The difference as a fused step: by a unit that additions leave idle.
      s[r][0] = s[r][0] + fms(load<V>(x + i) + load<V>(x + i + kWidth<V>), V(T(1)), twice);
    } else {
      unroll<kEach>([&](auto k) __attribute__((always_inline)) {
        vector(i + k * kWidth<V>, std::integral_constant<int, r * kEach + k>{});
      });
    }
  };
  for_streams<V, kCount, kEach>(
      n, step, vector, [&](int64_t i, int64_t lanes) __attribute__((always_inline)) {
        const auto mask = first_lanes<V>(lanes);
        V d = load(x + i, mask);
        if constexpr (Shifted) d = keep(mask, d - u);
        add_powers<K, Weighted>(d, Weighted ? load(w + i, mask) : u, s[kCount * kEach - 1]);
      });
  unroll<K>([&](auto k) __attribute__((always_inline)) {
    // In pairs, and pairs of these: short chains of additions.
    unroll<kCount * kEach / 2>([&](auto r) __attribute__((always_inline)) { s[r][k] = s[2 * r][k] + s[2 * r + 1][k]; });
    constexpr int kOdd = kCount * kEach / 2 * 2;
    if constexpr (kOdd < kCount * kEach) s[1][k] = s[kOdd][k];
    constexpr int kLeft = (kCount * kEach + 1) / 2;
    if constexpr (kLeft == 4) s[0][k] = s[0][k] + s[1][k], s[1][k] = s[2][k] + s[3][k];
    sums[k] = static_cast<double>(horizontal_sum(s[0][k] + s[1][k]));
  });
}

// sums[k] = sum of w (x - shift)^(k + 1). Without weights (null) w is 1, without a shift it is zero.
template <int K, class T>
inline void add_segment(int64_t n, const T* x, const T* w, const T* shift, double (&sums)[K]) {
  if (w != nullptr) {
    shift != nullptr ? add_segment<K, true, true, false>(n, x, w, *shift, sums)
                     : add_segment<K, true, false, false>(n, x, w, T{0}, sums);
  } else if (shift == nullptr) {
    add_segment<K, false, false, false>(n, x, w, T{0}, sums);
  } else {
    add_segment<K, false, true, K == 1>(n, x, w, *shift, sums);
    if (K == 1 && !(std::fabs(sums[0]) <= std::numeric_limits<double>::max())) {
      add_segment<K, false, true, false>(n, x, w, *shift, sums);
    }
  }
}

}  // namespace orvik::ss
