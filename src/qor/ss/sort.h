// Sorting and selection in place. NaNs go last; no input takes more than O(n log n).
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace orvik::ss {

// An array whose elements are `step` apart.
template <class T>
struct Strided {
  T* a;
  int64_t step;
  T& operator[](int64_t i) const { return a[i * step]; }
};

namespace sorting {

// Segments below this length are left to insertion.
inline constexpr int64_t kShort = 16;

inline int depth_limit(int64_t n) { return 2 * (64 - __builtin_clzll(static_cast<uint64_t>(n) | 1)); }

template <class A>
void insertion(A a, int64_t low, int64_t high) {
  for (int64_t i = low + 1; i <= high; ++i) {
    const auto x = a[i];
    int64_t j = i;
    for (; j > low && x < a[j - 1]; --j) a[j] = a[j - 1];
    a[j] = x;
  }
}

// What a segment that partitions badly is left to.
template <class A>
void heap(A a, int64_t low, int64_t high) {
  const int64_t n = high - low + 1;
  auto sift = [&](int64_t root, int64_t end) {
    const auto x = a[low + root];
    for (int64_t child; (child = 2 * root + 1) < end; root = child) {
      if (child + 1 < end && a[low + child] < a[low + child + 1]) ++child;
      if (!(x < a[low + child])) break;
      a[low + root] = a[low + child];
    }
    a[low + root] = x;
  };
  for (int64_t i = n / 2 - 1; i >= 0; --i) sift(i, n);
  for (int64_t end = n - 1; end > 0; --end) {
    std::swap(a[low], a[low + end]);
    sift(0, end);
  }
}

// Narrows the unsorted part a[*left .. *right] of a long segment: what is left behind at its ends stands on the right
// side of the pivot. The places of misplaced elements are collected without branches, then swapped (Edelkamp, Weiss
// 2016).
template <class T>
void partition_blocks(T* a, T pivot, int64_t* left, int64_t* right) {
  constexpr int kBlock = 64;
  uint8_t before[kBlock], behind[kBlock];  // offsets from the ends of what does not belong there
  int before_begin = 0, before_end = 0, behind_begin = 0, behind_end = 0;
  int64_t l = *left, r = *right;
  while (r - l + 1 >= 2 * kBlock) {
    if (before_begin == before_end) {
      before_begin = before_end = 0;
      for (int i = 0; i < kBlock; ++i) {
        before[before_end] = static_cast<uint8_t>(i);
        before_end += !(a[l + i] < pivot);
      }
    }
    if (behind_begin == behind_end) {
      behind_begin = behind_end = 0;
      for (int i = 0; i < kBlock; ++i) {
        behind[behind_end] = static_cast<uint8_t>(i);
        behind_end += !(pivot < a[r - i]);
      }
    }
    const int pairs = std::min(before_end - before_begin, behind_end - behind_begin);
    for (int k = 0; k < pairs; ++k) std::swap(a[l + before[before_begin + k]], a[r - behind[behind_begin + k]]);
    before_begin += pairs;
    behind_begin += pairs;
    if (before_begin == before_end) l += kBlock;
    if (behind_begin == behind_end) r -= kBlock;
  }
  *left = l;
  *right = r;
}
template <class A, class V>
void partition_blocks(A, const V&, int64_t*, int64_t*) {}

// Splits a segment of at least 3 elements around the median of its ends and middle: nothing before *right + 1 is above
// the pivot, nothing behind *left - 1 below it, and the elements between are in place.
template <class A>
void partition(A a, int64_t low, int64_t high, int64_t* left, int64_t* right) {
  std::swap(a[low + (high - low) / 2], a[low + 1]);
  if (a[high] < a[low]) std::swap(a[low], a[high]);
  if (a[high] < a[low + 1]) std::swap(a[low + 1], a[high]);
  if (a[low + 1] < a[low]) std::swap(a[low], a[low + 1]);
  const auto pivot = a[low + 1];
  int64_t i = low + 2, j = high - 1;
  partition_blocks(a, pivot, &i, &j);
  --i;
  ++j;
  for (;;) {
    do ++i;
    while (a[i] < pivot);
    do --j;
    while (pivot < a[j]);
    if (j < i) break;
    std::swap(a[i], a[j]);
  }
  a[low + 1] = a[j];
  a[j] = pivot;
  *left = i;
  *right = j - 1;
}

}  // namespace sorting

// Sorts a[0 .. n - 1], which holds no NaN.
template <class A>
void quicksort(A a, int64_t n) {
  struct Segment {
    int64_t low, high;
    int depth;
  };
  Segment stack[64];  // the smaller half is followed: one entry for each halving
  int top = 0;
  Segment s{0, n - 1, sorting::depth_limit(n)};
  for (;;) {
    while (s.high - s.low + 1 >= sorting::kShort) {
      if (s.depth-- == 0) {
        sorting::heap(a, s.low, s.high);
        s.high = s.low;
        break;
      }
      int64_t i, j;
      sorting::partition(a, s.low, s.high, &i, &j);
      const Segment before{s.low, j, s.depth}, behind{i, s.high, s.depth};
      const bool follow = j - s.low < s.high - i;
      stack[top++] = follow ? behind : before;
      s = follow ? before : behind;
    }
    sorting::insertion(a, s.low, s.high);
    if (top == 0) return;
    s = stack[--top];
  }
}

namespace sorting {

// Two inward scans around a[k], which two sentinels stop, the bulk of a long segment by blocks. Leaves the segment that
// still holds rank k.
template <class A>
void partition_at(A a, int64_t* low, int64_t* high, int64_t k) {
  const auto pivot = a[k];
  int64_t i = *low, j = *high;
  std::swap(a[i], a[k]);
  if (pivot < a[j]) std::swap(a[i], a[j]);
  std::swap(a[i], a[j]);
  ++i, --j;
  partition_blocks(a, pivot, &i, &j);
  --i, ++j;
  for (bool first = true; first || i < j; first = false) {
    if (!first) std::swap(a[i], a[j]);
    do ++i;
    while (a[i] < pivot);
    do --j;
    while (pivot < a[j]);
  }
  if (!(a[*low] < pivot) && !(pivot < a[*low])) {
    std::swap(a[*low], a[j]);
  } else {
    std::swap(a[++j], a[*high]);
  }
  if (j <= k) *low = j + 1;
  if (k <= j) *high = j - 1;
}

}  // namespace sorting

// Puts the element of rank k in place within a[low .. high], which holds no NaN, smaller ones before, larger behind.
// A long segment is first narrowed around a pivot that a selection within a sample makes nearly the wanted one (Floyd,
// Rivest 1975).
template <class A>
void select(A a, int64_t low, int64_t high, int64_t k) {
  constexpr int64_t kSampled = 600;
  int depth = sorting::depth_limit(high - low + 1);
  while (high - low + 1 >= sorting::kShort) {
    if (depth-- == 0) return sorting::heap(a, low, high);
    if (high - low >= kSampled) {
      const double n = static_cast<double>(high - low + 1), rank = static_cast<double>(k - low + 1);
      const double z = std::log(n), s = 0.5 * std::exp(2 * z / 3);
      const double spread = 0.5 * std::sqrt(z * s * (n - s) / n) * (rank < n / 2 ? -1 : 1);
      const auto from = static_cast<int64_t>(static_cast<double>(k) - rank * s / n + spread);
      const auto to = static_cast<int64_t>(static_cast<double>(k) + (n - rank) * s / n + spread);
      select(a, std::max(low, std::min(from, k)), std::min(high, std::max(to, k)), k);
      sorting::partition_at(a, &low, &high, k);
      continue;
    }
    int64_t i, j;
    sorting::partition(a, low, high, &i, &j);
    if (k <= j) {
      high = j;
    } else if (k >= i) {
      low = i;
    } else {
      return;
    }
  }
  sorting::insertion(a, low, high);
}

// Moves the NaNs behind all others; returns how many others there are.
template <class A>
int64_t move_nans(A a, int64_t n) {
  int any = 0;
  for (int64_t i = 0; i < n; ++i) any |= a[i] != a[i];
  if (any == 0) return n;
  for (int64_t i = 0; i < n; ++i) {
    while (n > i && a[n - 1] != a[n - 1]) --n;
    if (i < n && a[i] != a[i]) std::swap(a[i], a[--n]);
  }
  return n;
}

// Sorts `n` contiguous values, NaNs last, from `source` to `out` by the digits of their bit patterns. `temporary` has n
// values; `source` may be `out` or `temporary`. n is at most 2^31 - 1.
template <class T>
void radix_sort(int64_t n, const T* source, T* out, T* temporary);

// A value with its weight.
template <class T>
struct Weighed {
  T value;
  T weight;
  bool operator<(const Weighed& other) const { return value < other.value; }
};

// Sorts values with their weights in the same way, -0 before 0; equal ones keep their order.
template <class T>
void radix_sort(int64_t n, Weighed<T>* a, Weighed<T>* temporary);

// Below this count, comparing is faster. (Of values that no branch foresees: an array that is sorted again and again
// tells another count.)
inline constexpr int64_t kRadixCount = 96;

// Sorts `n` values in place, with n values of scratch.
template <class T>
void sort_with_scratch(int64_t n, T* a, T* scratch) {
  if (n >= kRadixCount && n <= INT32_MAX) return radix_sort(n, a, a, scratch);
  quicksort(a, move_nans(a, n));
}

// The same from `source` to `out`. (The copy comes first: two arrays are sooner in a cache than three.)
template <class T>
void sort_to(int64_t n, const T* source, T* out, T* scratch) {
  if (out != source) std::copy(source, source + n, out);
  sort_with_scratch(n, out, scratch);
}

}  // namespace orvik::ss
