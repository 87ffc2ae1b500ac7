// Exponents of positive normal numbers as numbers. What is none has any finite one, without a flag, by integers (64
// bits: by way of the bits of 2^52). NormalExponents have an instruction where there is one, which gives zeros and
// infinities infinite ones and tells signalling NaNs: for arguments that are known to be normal.
#pragma once

#include "lanes/generic.h"

namespace orvik {

template <class V>
struct Exponents;

template <Double V>
struct Exponents<V> {
  Integer<V> biased;  // the exponent field at the low end of the bits of 2^52
  explicit Exponents(V x) : biased(shift_right<52>(as_bits(x)) | as_bits(V(0x1p52))) {}
  V numbers() const { return as_float(biased) - V(0x1p52 + 1023); }
};
template <Single V>
struct Exponents<V> {
  Integer<V> biased;
  explicit Exponents(V x) : biased(shift_right<23>(as_bits(x))) {}
  V numbers() const { return to_float(biased - Integer<V>(127)); }
};

template <class V>
struct NormalExponents : Exponents<V> {
  using Exponents<V>::Exponents;
};

#if ORVIK_REGISTER_BITS == 512
template <>
struct NormalExponents<F64> {
  F64 e;
  explicit NormalExponents(F64 x) : e(_mm512_getexp_pd(x.v)) {}
  F64 numbers() const { return e; }
};
template <>
struct NormalExponents<F32> {
  F32 e;
  explicit NormalExponents(F32 x) : e(_mm512_getexp_ps(x.v)) {}
  F32 numbers() const { return e; }
};
template <class V>
struct NormalExponents<Twice<V>> {
  NormalExponents<V> low, high;
  explicit NormalExponents(Twice<V> x) : low(x.low), high(x.high) {}
  Twice<V> numbers() const { return {low.e, high.e}; }
};
#endif

}  // namespace orvik
