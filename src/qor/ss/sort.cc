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

constexpr int kDigitBits = 11;
constexpr int kDigits = 1 << kDigitBits;
template <class T>
constexpr int kPasses = (8 * sizeof(T) + kDigitBits - 1) / kDigitBits;

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

// One pass over a digit. The first one reads values, the last one writes them.
template <class T, bool First, bool Last>
void distribute(int64_t n, const T* from, T* to, int shift, uint32_t* place) {
  for (int64_t i = 0; i < n; ++i) {
    const Key<T> key = First ? key_of(from[i]) : load(from + i);
    T* target = to + place[(key >> shift) & (kDigits - 1)]++;
    if constexpr (Last) {
      *target = value_of<T>(key);
    } else {
      const Key<T> stored = key;
      memcpy(target, &stored, sizeof stored);
    }
  }
}

}  // namespace

template <class T>
void radix_sort(int64_t n, const T* source, T* out, T* temporary) {
  uint32_t count[kPasses<T>][kDigits] = {};
  for (int64_t i = 0; i < n; ++i) {
    const Key<T> key = key_of(source[i]);
    for (int pass = 0; pass < kPasses<T>; ++pass) ++count[pass][(key >> (pass * kDigitBits)) & (kDigits - 1)];
  }
  // A digit that all keys share needs no pass.
  int passes[kPasses<T>];
  int used = 0;
  const Key<T> any = n > 0 ? key_of(source[0]) : Key<T>{0};
  for (int pass = 0; pass < kPasses<T>; ++pass) {
    if (count[pass][(any >> (pass * kDigitBits)) & (kDigits - 1)] == n) continue;
    passes[used++] = pass;
    uint32_t place = 0;
    for (uint32_t& c : count[pass]) place += std::exchange(c, place);
  }
  if (used == 0) {
    if (out != source) std::copy(source, source + n, out);
    return;
  }
  T* target = (used & 1) != 0 ? out : temporary;
  T* other = (used & 1) != 0 ? temporary : out;
  if (target == source) {
    std::copy(source, source + n, other);
    source = other;
  }
  for (int k = 0; k < used; ++k) {
    const int shift = passes[k] * kDigitBits;
    uint32_t* place = count[passes[k]];
    const bool first = k == 0, last = k == used - 1;
    if (first && last) {
      distribute<T, true, true>(n, source, target, shift, place);
    } else if (first) {
      distribute<T, true, false>(n, source, target, shift, place);
    } else if (last) {
      distribute<T, false, true>(n, source, target, shift, place);
    } else {
      distribute<T, false, false>(n, source, target, shift, place);
    }
    source = target;
    std::swap(target, other);
  }
}

template void radix_sort(int64_t, const float*, float*, float*);
template void radix_sort(int64_t, const double*, double*, double*);

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
