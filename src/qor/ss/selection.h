// Order statistics of one array by selection, and what is made from two of them.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

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

// Selects ranks of an array of numbers by their share of the range: values are counted in buckets of equal width, and only
// those of the buckets that hold a rank are looked at. Nothing is moved, and no branch depends on a value.
template <class T>
class Buckets {
 public:
  static constexpr int64_t kLeast = 48, kLongest = int64_t{1} << 20;  // numbers for which this is worth while

  // False where the values crowd too few buckets, or are no finite numbers; the array is as it was.
  bool quantiles(int64_t n, const T* a, int64_t count, const T* orders, T* results) {
    if (n < kLeast || n > kLongest || !find_range(n, a)) return false;
    buckets_ = n < 256 ? kMost / 16 : n < 8192 ? kMost / 8 : kMost;
    scale_ = static_cast<T>(buckets_ - 1) / (high_ - low_);
    if (!(scale_ > 0 && scale_ <= std::numeric_limits<T>::max())) return false;
    count_values(n, a);
    for (int64_t k = 0; k < count; ++k) {
      const Place place(orders[k], n);
      want(place.low);
      want(place.high);
    }
    if (!collect(n, a)) return false;
    quicksort(held_, holds_);
    for (int64_t k = 0; k < count; ++k) {
      const Place place(orders[k], n);
      results[k] = place.between(value_of(place.low), value_of(place.high));
    }
    return true;
  }

 private:
  static constexpr int32_t kMost = 2048;
  static constexpr int64_t kBlock = 256, kHeld = 2048;

  // A NaN is found by what it does to a sum of differences.
  bool find_range(int64_t n, const T* a) {
    using V = VectorOf<T>;
    V low = V(a[0]), high = low, spoiled = V(T(0));
    for_vectors_from_end<V>(n, a, [&](V x) __attribute__((always_inline)) {
      low = min(x, low);
      high = max(x, high);
      spoiled = spoiled + (x - x);
    });
    T lows[kWidth<V>], highs[kWidth<V>], rests[kWidth<V>];
    store(lows, low);
    store(highs, high);
    store(rests, spoiled);
    low_ = lows[0], high_ = highs[0];
    T rest = 0;
    for (int k = 0; k < kWidth<V>; ++k) {
      low_ = std::min(low_, lows[k]);
      high_ = std::max(high_, highs[k]);
      rest += rests[k];
    }
    return rest == 0;
  }

  // All whole vectors, the last one from the end; n is no less than a vector.
  template <class V, class Body>
  static void for_vectors_from_end(int64_t n, const T* a, Body&& body) {
    for (int64_t i = 0; i + kWidth<V> <= n; i += kWidth<V>) body(load<V>(a + i));
    body(load<V>(a + n - kWidth<V>));
  }

  // body(value, bucket) in order.
  template <class Body>
  void for_buckets(int64_t n, const T* a, Body&& body) const {
    int32_t bucket[kBlock];
    for (int64_t i = 0; i < n; i += kBlock) {
      const int64_t m = std::min(kBlock, n - i);
      for (int64_t r = 0; r < m; ++r) bucket[r] = static_cast<int32_t>((a[i + r] - low_) * scale_);
      for (int64_t r = 0; r < m; ++r) body(a[i + r], bucket[r]);
    }
  }

  void count_values(int64_t n, const T* a) {
    std::fill_n(before_, static_cast<uint32_t>(buckets_) + 1, 0);
    for_buckets(n, a, [&](T, int32_t bucket) { ++before_[bucket + 1]; });
    std::fill_n(wanted_, static_cast<uint32_t>(buckets_), uint8_t{0});
    for (int32_t k = 0; k < buckets_; ++k) before_[k + 1] += before_[k];
  }

  int32_t bucket_of(int64_t rank) const {
    return static_cast<int32_t>(std::upper_bound(before_, before_ + buckets_ + 1, rank) - before_) - 1;
  }
  void want(int64_t rank) { wanted_[bucket_of(rank)] = 1; }

  bool collect(int64_t n, const T* a) {
    int64_t total = 0;
    for (int32_t k = 0; k < buckets_; ++k) {
      held_before_[k] = static_cast<int32_t>(total);
      total += wanted_[k] != 0 ? before_[k + 1] - before_[k] : 0;
      if (total > std::min(kHeld, n / 4)) return false;  // a partition is faster
    }
    holds_ = 0;
    for_buckets(n, a, [&](T x, int32_t bucket) {
      held_[holds_] = x;  // kept if the bucket is wanted
      holds_ += wanted_[bucket];
    });
    return true;
  }

  // Of a rank in a wanted bucket.
  T value_of(int64_t rank) const {
    const int32_t bucket = bucket_of(rank);
    return held_[held_before_[bucket] + rank - before_[bucket]];
  }

  int32_t buckets_ = 0;
  T low_ = 0, high_ = 0, scale_ = 0;
  int64_t holds_ = 0;
  int32_t before_[kMost + 1], held_before_[kMost];  // values in the buckets before, of all and of those held
  uint8_t wanted_[kMost];
  T held_[kHeld + 1];
};

// Quantiles of an array that may be reordered.
template <class T>
void quantiles_of(int64_t n, T* a, int64_t count, const T* orders, T* results) {
  if (count <= Selection<T>::kMaxOrders) {
    Buckets<T> buckets;  // not cleared
    if (buckets.quantiles(n, a, count, orders, results)) return;
    Selection<T> selection(a, n);
    for (int64_t k = 0; k < count; ++k) results[k] = selection.quantile(Place(orders[k], n));
    return;
  }
  quicksort(a, move_nans(a, n));
  for (int64_t k = 0; k < count; ++k) {
    const Place place(orders[k], n);
    results[k] = place.between(a[place.low], a[place.high]);
  }
}

// The median of an array that may be reordered.
template <class T>
T median(int64_t n, T* a) {
  const T half = T{0.5};
  T result;
  quantiles_of(n, a, 1, &half, &result);
  return result;
}

// Median absolute deviation from the median; the deviations replace the array.
template <class T>
T median_deviation(int64_t n, T* a, T* center) {
  const T m = median(n, a);
  if (center != nullptr) *center = m;
  for (int64_t i = 0; i < n; ++i) a[i] = std::fabs(a[i] - m);
  return median(n, a);
}

// The value at which the running sum of weights passes half of `total`; the mean of two where a sum is exactly half.
// The array is sorted, with as much scratch; it holds no NaN and no weight of 0. n is above 0.
template <class T>
T weighted_median(int64_t n, Weighed<T>* a, Weighed<T>* scratch, double total) {
  n >= kRadixCount && n <= INT32_MAX ? radix_sort(n, a, scratch) : quicksort(a, n);
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
