// Loops over arrays in lanes, and the lists of those candidates of a batch that need more than the others do.
#pragma once

#include <cstdint>

#include "lanes/compress.h"
#include "lanes/generic.h"
#include "lanes/memory.h"

namespace orvik::qor {

// As integers, out of a register: of a conversion from memory the compiler believes that it leaves the upper halves of
// registers alone, and a caller's instructions of 128 bits would wait for them to be saved, a hundred nanoseconds.
inline auto as_integers(F64 whole) {
  asm("" : "+x"(whole.v));
  return to_integer(whole);
}

// The lanes of a vector at the elements from `first` on of as many arrays as a loop goes over. What it stores goes to
// working arrays, whose sizes are multiples of the width; what it gives, to those of the caller.
template <class V>
struct Whole {
  static constexpr int32_t count = kWidth<V>;
  int32_t first;

  V load(const Element<V>* p) const { return orvik::load<V>(p + first); }
  Pair<V> load_pairs(const Element<V>* p) const { return orvik::load_pairs<V>(p + 2 * first); }
  void store(Element<V>* p, V x) const { orvik::store(p + first, x); }
  void store(int32_t* p, F64 whole) const { orvik::store(p + first, as_integers(whole)); }
  void give(Element<V>* p, V x) const { orvik::store(p, x); }
  void give(int32_t* p, F64 whole) const { orvik::store(p, as_integers(whole)); }
  void give_pairs(Element<V>* p, Pair<V> x) const { store_pairs(p, x); }
  uint32_t bits(Mask<V> mask) const { return lane_bits(mask); }
};

// What is left of the arrays; the other lanes hold harmless numbers. They are stored with the rest: a load soon after
// takes a whole vector from the store before it and not from the cache.
template <class V>
struct Rest {
  int32_t first, count;

  // A number alone in all lanes: a masked load waits until what was stored by elements is in the cache.
  V load(const Element<V>* p) const { return count == 1 ? V(p[first]) : load_first(p + first, count, V(1)); }
  Pair<V> load_pairs(const Element<V>* p) const { return load_first_pairs(p + 2 * first, count, V(1)); }
  void store(Element<V>* p, V x) const { orvik::store(p + first, x); }
  void store(int32_t* p, F64 whole) const { orvik::store(p + first, as_integers(whole)); }
  void give(Element<V>* p, V x) const { store_first(p, count, x); }
  void give_pairs(Element<V>* p, Pair<V> x) const { store_first_pairs(p, count, x); }
  void give(int32_t* p, F64 whole) const {
    int32_t each[kWidth<F64>];
    orvik::store(each, as_integers(whole));
    for (int32_t k = 0; k < count; ++k) p[k] = each[k];
  }
  uint32_t bits(Mask<V> mask) const { return lane_bits(mask) & ((1u << count) - 1); }
};

// body(at) for all of n elements.
template <class V, class Body>
[[gnu::always_inline]] inline void for_each_vector(int32_t n, Body body) {
  int32_t i = 0;
  for (; n - i >= kWidth<V>; i += kWidth<V>) body(Whole<V>{i});
  if (i < n) body(Rest<V>{i, n - i});
}

// The chosen lanes of x behind those of the vectors before, to a list as long as a working array; how many. Lists may
// take the place of an array that has been read.
template <class V>
[[gnu::always_inline]] inline int32_t gather_chosen(uint32_t bits, V x, Element<V>* p) {
  store(p, compress(x, bits));
  return how_many(bits);
}
// The same to the caller's results, which are at least as many as the loop goes over.
template <class V, class At, class E>
[[gnu::always_inline]] inline int32_t give_chosen(At at, uint32_t bits, V x, E* r) {
  at.give(r, compress(x, bits));
  return how_many(bits);
}

// Room behind a list of V, which is read by whole vectors.
template <class V>
inline constexpr int32_t kBehind = kWidth<V>;

// A list that goes back to the places it was taken from.
template <class V>
class Expander {
 public:
  explicit Expander(const Element<V>* list) : next_(list) {}
  V operator()(uint32_t bits) {
    const V x = expand(load<V>(next_), bits);
    next_ += how_many(bits);
    return x;
  }

 private:
  const Element<V>* next_;
};

// Lanes that a loop over up to `size` elements has chosen.
template <class V, int32_t size>
class Chosen {
 public:
  template <class At>
  uint32_t operator()(At at) const {
    return bits_[at.first / kWidth<V>];
  }
  template <class At>
  void set(At at, uint32_t bits) {
    bits_[at.first / kWidth<V>] = bits;
  }

 private:
  static_assert(size % kWidth<V> == 0);
  uint32_t bits_[size / kWidth<V>];
};

// What a list answers: more than 0 for yes.
template <class V>
inline V as_answer(Mask<V> yes) {
  return keep(yes, V(1));
}

// The decision about up to `size` candidates: some are accepted, some are open until a list of them has its answers.
template <class V, int32_t size>
class Decision {
 public:
  using E = Element<V>;

  template <class At>
  void set(At at, Mask<V> accepted, uint32_t open) {
    accepted_.set(at, at.bits(accepted));
    open_.set(at, open);
  }

  // Those of x that are accepted to r; how many.
  template <class R>
  int32_t compress(int32_t n, const E* x, const E* answers, R* r) const {
    return collect(n, answers, r, [&](auto at, uint32_t) { return at.load(x); });
  }
  // The open ones have numbers of their own.
  template <class R>
  int32_t compress(int32_t n, const E* x, const E* open_x, const E* answers, R* r) const {
    Expander<V> others(open_x);
    return collect(n, answers, r,
                   [&](auto at, uint32_t open) { return select(chosen<V>(open), others(open), at.load(x)); });
  }

 private:
  template <class R, class Number>
  [[gnu::always_inline]] int32_t collect(int32_t n, const E* answers, R* r, Number number) const {
    Expander<V> answer(answers);
    int32_t kept = 0;
    for_each_vector<V>(n, [&](auto at) {
      const uint32_t open = open_(at), accepted = accepted_(at) | (open & lane_bits(answer(open) > V(0)));
      kept += give_chosen(at, accepted, number(at, open), r + kept);
    });
    return kept;
  }

  Chosen<V, size> accepted_, open_;
};

// Those of x that accepted(at, x) says to r; how many.
template <class V, class Accepted>
[[gnu::always_inline]] inline int32_t accept(int32_t n, const Element<V>* x, Element<V>* r, Accepted accepted) {
  int32_t kept = 0;
  for_each_vector<V>(n, [&](auto at) {
    const V y = at.load(x);
    kept += give_chosen(at, at.bits(accepted(at, y)), y, r + kept);
  });
  return kept;
}

// Pairs apart, to working arrays.
template <class T>
void split(int32_t pairs, const T* w, T* even, T* odd) {
  using V = VectorOf<T>;
  for_each_vector<V>(pairs, [&](auto at) {
    const Pair<V> both = at.load_pairs(w);
    at.store(even, both.first);
    at.store(odd, both.second);
  });
}
// Floats as doubles.
inline void split(int32_t pairs, const float* w, double* even, double* odd) {
  int32_t i = 0;
  for (; pairs - i >= kWidth<F32>; i += kWidth<F32>) {
    const Pair<F32> both = load_pairs<F32>(w + 2 * i);
    store(even + i, widen_low(both.first));
    store(even + i + kWidth<F64>, widen_high(both.first));
    store(odd + i, widen_low(both.second));
    store(odd + i + kWidth<F64>, widen_high(both.second));
  }
  for (; i < pairs; ++i) {
    even[i] = static_cast<double>(w[2 * i]);
    odd[i] = static_cast<double>(w[2 * i + 1]);
  }
}

}  // namespace orvik::qor
