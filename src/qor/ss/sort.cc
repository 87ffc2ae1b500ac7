#include "qor/ss/sort.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <type_traits>

#include "orvik/ss.h"

namespace orvik::ss {
namespace {

template <class T>
using Key = std::conditional_t<sizeof(T) == 8, uint64_t, uint32_t>;

// The digits of a sort: few counters for few values.
template <class T, int kDigitBits>
struct Digits {
  static constexpr int kBits = kDigitBits, kCount = 1 << kBits;
  static constexpr int kPasses = (8 * sizeof(T) + kBits - 1) / kBits;
  static int64_t of(Key<T> key, int shift) { return static_cast<int64_t>((key >> shift) & (kCount - 1)); }
};
constexpr int kFewBits = 8, kManyBits = 11;
constexpr int64_t kManyCount = 1500;  // values from which many counters pay

// Unsigned patterns in the order of the values; a NaN of either sign above all.
template <class T>
Key<T> key_of(T x) {
  constexpr Key<T> kSign = Key<T>{1} << (8 * sizeof(T) - 1);
  Key<T> bits = std::bit_cast<Key<T>>(x);
  if (x != x) bits &= ~kSign;
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}
template <class T>
T value_of(Key<T> key) {
  constexpr Key<T> kSign = Key<T>{1} << (8 * sizeof(T) - 1);
  return std::bit_cast<T>((key & kSign) != 0 ? key & ~kSign : ~key);
}

// Between the passes the buffers of values hold keys.
template <class T>
Key<T> load(const T* p) {
  return std::bit_cast<Key<T>>(*p);
}

// What a sort moves: values as keys, or values with their weights as they are.
template <class T>
struct Plain {
  using Value = T;
  static Key<T> first_key(const T* from) { return key_of(*from); }
  static Key<T> key(const T* from) { return load(from); }
  static void put_key(T* to, const T*, Key<T> key) { memcpy(to, &key, sizeof key); }
  static void put_last(T* to, const T*, Key<T> key) { *to = value_of<T>(key); }
};
template <class T>
struct Pair {
  using Value = T;
  static Key<T> first_key(const Weighed<T>* from) { return key_of(from->value); }
  static Key<T> key(const Weighed<T>* from) { return key_of(from->value); }
  static void put_key(Weighed<T>* to, const Weighed<T>* from, Key<T>) { *to = *from; }
  static void put_last(Weighed<T>* to, const Weighed<T>* from, Key<T>) { *to = *from; }
};

// One pass over a digit. The first one reads values, the last one writes them.
template <class How, class D, bool First, bool Last, class E>
void distribute(int64_t n, const E* from, E* to, int shift, uint32_t* place) {
  for (int64_t i = 0; i < n; ++i) {
    const auto key = First ? How::first_key(from + i) : How::key(from + i);
    E* target = to + place[D::of(key, shift)]++;
    Last ? How::put_last(target, from + i, key) : How::put_key(target, from + i, key);
  }
}

template <class How, class D, class E>
void sort_digits(int64_t n, const E* source, E* out, E* temporary) {
  uint32_t count[D::kPasses][D::kCount] = {};
  for (int64_t i = 0; i < n; ++i) {
    const auto key = How::first_key(source + i);
    for (int pass = 0; pass < D::kPasses; ++pass) ++count[pass][D::of(key, pass * D::kBits)];
  }
  // A digit that all keys share needs no pass.
  int passes[D::kPasses];
  int used = 0;
  const auto any = n > 0 ? How::first_key(source) : 0;
  for (int pass = 0; pass < D::kPasses; ++pass) {
    if (count[pass][D::of(any, pass * D::kBits)] == n) continue;
    passes[used++] = pass;
    uint32_t place = 0;
    for (uint32_t& c : count[pass]) place += std::exchange(c, place);
  }
  if (used == 0) {
    if (out != source) std::copy(source, source + n, out);
    return;
  }
  E* target = (used & 1) != 0 ? out : temporary;
  E* other = (used & 1) != 0 ? temporary : out;
  if (target == source) {
    std::copy(source, source + n, other);
    source = other;
  }
  for (int k = 0; k < used; ++k) {
    const int shift = passes[k] * D::kBits;
    uint32_t* place = count[passes[k]];
    const bool first = k == 0, last = k == used - 1;
    if (first && last) {
      distribute<How, D, true, true>(n, source, target, shift, place);
    } else if (first) {
      distribute<How, D, true, false>(n, source, target, shift, place);
    } else if (last) {
      distribute<How, D, false, true>(n, source, target, shift, place);
    } else {
      distribute<How, D, false, false>(n, source, target, shift, place);
    }
    source = target;
    std::swap(target, other);
  }
}

template <class How, class E>
void sort_keys(int64_t n, const E* source, E* out, E* temporary) {
  using T = typename How::Value;
  n < kManyCount ? sort_digits<How, Digits<T, kFewBits>>(n, source, out, temporary)
                 : sort_digits<How, Digits<T, kManyBits>>(n, source, out, temporary);
}

}  // namespace

template <class T>
void radix_sort(int64_t n, const T* source, T* out, T* temporary) {
  sort_keys<Plain<T>>(n, source, out, temporary);
}
template <class T>
void radix_sort(int64_t n, Weighed<T>* a, Weighed<T>* temporary) {
  sort_keys<Pair<T>>(n, a, a, temporary);
}

template void radix_sort(int64_t, const float*, float*, float*);
template void radix_sort(int64_t, const double*, double*, double*);
template void radix_sort(int64_t, Weighed<float>*, Weighed<float>*);
template void radix_sort(int64_t, Weighed<double>*, Weighed<double>*);

namespace {

template <class T>
T sort_select(int64_t n, T* a, int64_t k) {
  const int64_t numbers = move_nans(a, n);
  if (k < numbers) select(a, 0, numbers - 1, k);
  return a[k];
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
#define ORVIK_SS_SORT(d, real)                                                                      \
  void __qor##d##QSort(int64_t n, real* a) { orvik::ss::quicksort(a, orvik::ss::move_nans(a, n)); } \
  void __qor##d##QSortStep(int64_t n, real* a, int64_t stride) {                                    \
    const orvik::ss::Strided<real> s{a, stride};                                                    \
    orvik::ss::quicksort(s, orvik::ss::move_nans(s, n));                                            \
  }                                                                                                 \
  real __qor##d##QSortSelect(int64_t n, real* a, int64_t k) { return orvik::ss::sort_select(n, a, k); }
ORVIK_SS_SORT(d, double)
ORVIK_SS_SORT(s, float)
#undef ORVIK_SS_SORT
}
