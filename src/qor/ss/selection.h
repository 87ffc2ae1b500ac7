// Order statistics of one array by selection, and what is made from two of them.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "lanes/lanes.h"
#include "qor/ss/sort.h"
#include "qor/unroll.h"

namespace orvik::ss {

// Where an order lies between two ranks.
struct Place {
  int64_t low, high;
  double fraction;

  Place(double order, int64_t n) {
    const double f = order * static_cast<double>(n - 1);
    low = static_cast<int64_t>(f);
    high = std::min(low + 1, n - 1);
    fraction = f - std::floor(f);
  }
  // A rank that is met is the value itself, and so is what lies between equal values: next to an infinity the
  // difference is none or no number.
  template <class T>
  T between(T a, T b) const {
    return fraction == 0 || a == b ? a : std::fma(b - a, static_cast<T>(fraction), a);
  }
};

// Index of a least value of n, none of which is NaN.
template <class T>
int64_t least_of(int64_t n, const T* a) {
  using V = VectorOf<T>;
  constexpr int64_t kStep = 4 * kWidth<V>;
  T least = a[0];
  int64_t i = 0;
  if (n >= kStep) {
    V v[4];
    for (int k = 0; k < 4; ++k) v[k] = load<V>(a + k * kWidth<V>);
    for (i = kStep; i + kStep <= n; i += kStep) {
      unroll<4>([&](auto k) __attribute__((always_inline)) { v[k] = min(load<V>(a + i + k * kWidth<V>), v[k]); });
    }
    T lanes[kWidth<V>];
    store(lanes, min(min(v[0], v[1]), min(v[2], v[3])));
    for (T x : lanes) least = x < least ? x : least;
  }
  for (; i < n; ++i) least = a[i] < least ? a[i] : least;
  i = 0;
  while (i + kWidth<V> <= n && none(load<V>(a + i) == V(least))) i += kWidth<V>;
  while (!(a[i] == least)) ++i;
  return i;
}

// Selects ranks of one array one after another; each one narrows the search for the next.
template <class T>
class Selection {
 public:
  static constexpr int64_t kMaxOrders = 32;  // beyond, a full sort is faster

  Selection(T* a, int64_t n) : a_(a), numbers_(move_nans(a, n)) {}

  T quantile(const Place& place) {
    select_rank(place.low);
    const T low = a_[place.low];
    // The next rank is the least of those behind.
    if (place.high != place.low && place.fraction != 0) {
      const int64_t next = next_placed(place.low);
      if (next != place.high) {
        std::swap(a_[place.high], a_[place.high + least_of(next - place.high, a_ + place.high)]);
        mark(place.high);
      }
    }
    return place.between(low, place.fraction == 0 ? low : a_[place.high]);
  }

 private:
  void select_rank(int64_t k) {
    if (k >= numbers_) return;
    int64_t before = -1;
    for (int64_t i = 0; i < count_; ++i) {
      if (placed_[i] == k) return;
      if (placed_[i] < k) before = std::max(before, placed_[i]);
    }
    select(a_, before + 1, next_placed(k) - 1, k);
    mark(k);
  }
  // The least rank above k that is in place; NaNs are.
  int64_t next_placed(int64_t k) const {
    int64_t next = std::max(numbers_, k + 1);
    for (int64_t i = 0; i < count_; ++i) {
      if (placed_[i] > k) next = std::min(next, placed_[i]);
    }
    return next;
  }
  void mark(int64_t k) { placed_[count_++] = k; }

  T* a_;
  int64_t numbers_;
  int64_t placed_[2 * kMaxOrders];
  int64_t count_ = 0;
};

// The median of an array that may be reordered.
template <class T>
T median(int64_t n, T* a) {
  return Selection<T>(a, n).quantile(Place(0.5, n));
}

// Median absolute deviation from the median; the deviations replace the array.
template <class T>
T median_deviation(int64_t n, T* a, T* center) {
  const T m = median(n, a);
  if (center != nullptr) *center = m;
  for (int64_t i = 0; i < n; ++i) a[i] = std::fabs(a[i] - m);
  return median(n, a);
}

// A value with its weight.
template <class T>
struct Weighed {
  T value;
  T weight;
  bool operator<(const Weighed& other) const { return value < other.value; }
};

// The value at which the running sum of weights passes half of `total`; the mean of two where a sum is exactly half.
// The array is sorted; it holds no NaN and no weight of 0. n is above 0.
template <class T>
T weighted_median(int64_t n, Weighed<T>* a, double total) {
  quicksort(a, n);
  double sum = 0;
  for (int64_t i = 0; i < n; ++i) {
    sum += static_cast<double>(a[i].weight);
    if (2 * sum < total) continue;
    if (2 * sum > total || i + 1 == n || a[i].value == a[i + 1].value) return a[i].value;
    return T{0.5} * (a[i].value + a[i + 1].value);
  }
  return a[n - 1].value;
}

}  // namespace orvik::ss
