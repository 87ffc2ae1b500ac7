// Where the words of a generator go: raw, as floats, as doubles. A sink writes vectors of words, or the first few of
// one at the end of a request, at an index of the caller's array; conversion happens in registers on the way out.
//
// A sink is put together from a loader, which knows how the generator's vector holds its words and how those become
// floating-point numbers, and a conversion, which owns scale, origin and rounding.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "lanes/words.h"
#include "qor/unroll.h"

namespace orvik::qor {

// What a generator's `fill` asks of a sink for its vectors.
template <class Sink, class Vector>
concept SinkOf = requires(const Sink& sink, ptrdiff_t i, const Vector (&one)[1], const Vector (&some)[2], int count) {
  sink.group(i, one);
  sink.group(i, some);
  sink.some(i, one[0], count);
};

// One vector, as an array.
template <class Sink, class Vector>
void put_one(const Sink& sink, ptrdiff_t i, Vector w) {
  const Vector group[1] = {w};
  sink.group(i, group);
}

// A register of words in two halves.
struct Halves {
  I32Half low, high;
};

// What a sink of registers of one width tells one of another.
enum class Form : int32_t { none, raw, floats, doubles, quick_doubles };
struct Target {
  void* r;
  double scale, origin;  // of a conversion; a float's are floats
};

struct NullSink {
  static constexpr Form kForm = Form::none;
  NullSink() = default;
  explicit NullSink(const Target&) {}
  Target target() const { return {nullptr, 0, 0}; }
  template <class Vector, int N>
  void group(ptrdiff_t, const Vector (&)[N]) const {}
  template <class Vector>
  void some(ptrdiff_t, Vector, int) const {}
};

class RawSink {
 public:
  static constexpr Form kForm = Form::raw;
  explicit RawSink(void* r) : r_(static_cast<uint32_t*>(r)) {}
  explicit RawSink(const Target& target) : RawSink(target.r) {}
  Target target() const { return {r_, 0, 0}; }
  template <int N>
  void group(ptrdiff_t i, const I32 (&w)[N]) const {
    unroll<N>([&](auto k) __attribute__((always_inline)) { store(r_ + i + kWords * k, w[k]); });
  }
  template <int N>
  void group(ptrdiff_t i, const Halves (&w)[N]) const {
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      store(r_ + i + kWords * k, w[k].low);
      store(r_ + i + kWords * k + kWords / 2, w[k].high);
    });
  }
  void some(ptrdiff_t i, I32 w, int count) const { store_some(r_ + i, w, count); }
  void some(ptrdiff_t i, Halves w, int count) const { some(i, join(w.low, w.high), count); }

 private:
  uint32_t* r_;
};

// ---- intervals: how a, b become scale and origin -------------------------------------------------------------------

struct Words32 {
  static constexpr double kUnit = 0x1p-32;
};

// Numbers counted from a, a unit apart.
template <class Unit>
struct FromLow {
  template <class T>
  static T scale(T a, T b) {
    return (b - a) * static_cast<T>(Unit::kUnit);
  }
  template <class T>
  static T origin(T a, T) {
    return a;
  }
};
// Words with a sign, counted from the middle.
struct FromMiddle {
  template <class T>
  static T scale(T a, T b) {
    return (b - a) * static_cast<T>(0x1p-32);
  }
  template <class T>
  static T origin(T a, T b) {
    return (a + b) * static_cast<T>(0.5);
  }
};
// Either, computed in double and rounded to the result's type.
template <class Interval>
struct InDouble {
  template <class T>
  static T scale(T a, T b) {
    return static_cast<T>(Interval::scale(static_cast<double>(a), static_cast<double>(b)));
  }
  template <class T>
  static T origin(T a, T b) {
    return static_cast<T>(Interval::origin(static_cast<double>(a), static_cast<double>(b)));
  }
};

// ---- readings: how 32-bit words become floats and doubles ----------------------------------------------------------

inline I64 long_bits(uint64_t w) { return I64(w); }

struct Unsigned {
  template <int N>
  static void to_floats(const I32 (&w)[N], F32 (&x)[N]) {  // one rounding: halves against the biases 2^39, 2^23
    I32 high[N], low[N];
    unroll<N>([&](auto k) __attribute__((always_inline)) { high[k] = shift_right<16>(w[k]); });
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      high[k] = high[k] | I32(0x53000000);
      low[k] = with_high_halves(w[k], I32(0x4B000000));
    });
    unroll<N>([&](auto k) __attribute__((always_inline)) { x[k] = as_float(high[k]) - F32(0x1p39f + 0x1p23f); });
    unroll<N>([&](auto k) __attribute__((always_inline)) { x[k] = x[k] + as_float(low[k]); });
  }
  static F64 to_doubles(I32Half w) {  // exact
    return as_float(widen_unsigned(w) | long_bits(0x4330000000000000)) - F64(0x1p52);
  }
  static void to_doubles(I32 w, F64& low, F64& high) {
    const I32 bias = I32(0x43300000), crossed = cross_middle(w);
    low = as_float(as_long_words(first_two_words(crossed, bias))) - F64(0x1p52);
    high = as_float(as_long_words(last_two_words(crossed, bias))) - F64(0x1p52);
  }
};
struct Signed {
  template <int N>
  static void to_floats(const I32 (&w)[N], F32 (&x)[N]) {
    unroll<N>([&](auto k) __attribute__((always_inline)) { x[k] = to_float(w[k]); });
  }
  static F64 to_doubles(I32Half w) { return to_double(w); }
  static void to_doubles(I32 w, F64& low, F64& high) {
    low = to_double(low_half(w));
    high = to_double(high_half(w));
  }
};

// ---- conversions ---------------------------------------------------------------------------------------------------

template <class C>
concept FloatConversion = requires(const C& convert, float a, const I32 (&w)[2], F32 (&x)[2]) {
  C(a, a);
  convert(w, x);
};
template <class C>
concept DoubleConversion = requires(const C& convert, double a, I32 w, I32Half half, F64& x) {
  C(a, a);
  convert(w, x, x);
  { convert(half) } -> std::same_as<F64>;
};

// One fused step in the result's type.
template <class Reading, class Interval>
class ToFloats {
 public:
  ToFloats(float a, float b) : scale_(Interval::scale(a, b)), origin_(Interval::origin(a, b)) {}
  explicit ToFloats(const Target& t) : scale_(static_cast<float>(t.scale)), origin_(static_cast<float>(t.origin)) {}
  Target target(void* r) const { return {r, double{first_lane(scale_)}, double{first_lane(origin_)}}; }
  template <int N>
  void operator()(const I32 (&w)[N], F32 (&x)[N]) const {
    Reading::to_floats(w, x);
    unroll<N>([&](auto k) __attribute__((always_inline)) { x[k] = fma(scale_, x[k], origin_); });
  }

 private:
  F32 scale_, origin_;
};
template <class Reading, class Interval>
class ToDoubles {
 public:
  ToDoubles(double a, double b) : scale_(Interval::scale(a, b)), origin_(Interval::origin(a, b)) {}
  explicit ToDoubles(const Target& t) : scale_(t.scale), origin_(t.origin) {}
  Target target(void* r) const { return {r, first_lane(scale_), first_lane(origin_)}; }
  void operator()(I32 w, F64& low, F64& high) const {
    Reading::to_doubles(w, low, high);
    low = fma(scale_, low, origin_);
    high = fma(scale_, high, origin_);
  }
  F64 operator()(I32Half w) const { return fma(scale_, Reading::to_doubles(w), origin_); }

 private:
  F64 scale_, origin_;
};
// ToDoubles<Unsigned, FromLow<Unit>>, but the words keep their bias of 2^52, which is taken out with the origin: an
// operation less. The results are the same where the origin can take it without rounding, as it can for an interval
// from 0.
template <class Unit>
class ToDoublesBiased {
 public:
  ToDoublesBiased(double a, double b) : scale_((b - a) * Unit::kUnit), origin_(a - bias(a, b)) {}
  explicit ToDoublesBiased(const Target& t) : scale_(t.scale), origin_(t.origin) {}
  Target target(void* r) const { return {r, first_lane(scale_), first_lane(origin_)}; }
  // Whether the subtraction is exact (Knuth 1969); false for what is not finite.
  static bool applies(double a, double b) {
    const double s = -bias(a, b), sum = a + s, back = sum - a;
    return (a - (sum - back)) + (s - back) == 0;
  }
  void operator()(I32 w, F64& low, F64& high) const {
    const I32 exponent = I32(0x43300000), crossed = cross_middle(w);
    low = fma(scale_, as_float(as_long_words(first_two_words(crossed, exponent))), origin_);
    high = fma(scale_, as_float(as_long_words(last_two_words(crossed, exponent))), origin_);
  }
  F64 operator()(I32Half w) const {
    return fma(scale_, as_float(widen_unsigned(w) | long_bits(0x4330000000000000)), origin_);
  }

 private:
  static double bias(double a, double b) { return (b - a) * Unit::kUnit * 0x1p52; }
  F64 scale_, origin_;
};
// Floats by way of the double result, rounded once more.
template <class Reading, class Interval>
class ToFloatsByDoubles {
 public:
  ToFloatsByDoubles(float a, float b) : doubles_(static_cast<double>(a), static_cast<double>(b)) {}
  explicit ToFloatsByDoubles(const Target& t) : doubles_(t) {}
  Target target(void* r) const { return doubles_.target(r); }
  template <int N>
  void operator()(const I32 (&w)[N], F32 (&x)[N]) const {
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      F64 low, high;
      doubles_(w[k], low, high);
      x[k] = narrow(low, high);
    });
  }

 private:
  ToDoubles<Reading, Interval> doubles_;
};

// ---- sinks of 32-bit words -----------------------------------------------------------------------------------------

template <FloatConversion Conversion>
class FloatSink {
 public:
  static constexpr Form kForm = Form::floats;
  FloatSink(float* r, float a, float b) : r_(r), convert_(a, b) {}
  explicit FloatSink(const Target& target) : r_(static_cast<float*>(target.r)), convert_(target) {}
  Target target() const { return convert_.target(r_); }
  template <int N>
  void group(ptrdiff_t i, const I32 (&w)[N]) const {
    F32 x[N];
    convert_(w, x);
    unroll<N>([&](auto k) __attribute__((always_inline)) { store(r_ + i + kWords * k, x[k]); });
  }
  template <int N>
  void group(ptrdiff_t i, const Halves (&w)[N]) const {
    I32 words[N];
    unroll<N>([&](auto k) __attribute__((always_inline)) { words[k] = join(w[k].low, w[k].high); });
    group(i, words);
  }
  void some(ptrdiff_t i, I32 w, int count) const {
    const I32 words[1] = {w};
    F32 x[1];
    convert_(words, x);
    store_some(r_ + i, x[0], count);
  }
  void some(ptrdiff_t i, Halves w, int count) const { some(i, join(w.low, w.high), count); }

 private:
  float* r_;
  Conversion convert_;
};

template <DoubleConversion Conversion>
class DoubleSink {
 public:
  static constexpr Form kForm = requires { Conversion::applies(0.0, 0.0); }
  ? Form::quick_doubles : Form::doubles;
  static bool applies(double a, double b) { return Conversion::applies(a, b); }
  DoubleSink(double* r, double a, double b) : r_(r), convert_(a, b) {}
  explicit DoubleSink(const Target& target) : r_(static_cast<double*>(target.r)), convert_(target) {}
  Target target() const { return convert_.target(r_); }
  template <int N>
  void group(ptrdiff_t i, const I32 (&w)[N]) const {  // one after the other: registers are short
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      F64 low, high;
      convert_(w[k], low, high);
      store(r_ + i + kWords * k, low);
      store(r_ + i + kWords * k + kWords / 2, high);
    });
  }
  template <int N>
  void group(ptrdiff_t i, const Halves (&w)[N]) const {
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      store(r_ + i + kWords * k, convert_(w[k].low));
      store(r_ + i + kWords * k + kWords / 2, convert_(w[k].high));
    });
  }
  void some(ptrdiff_t i, I32 w, int count) const { some(i, Halves{low_half(w), high_half(w)}, count); }
  void some(ptrdiff_t i, Halves w, int count) const {
    constexpr int kHalf = kWords / 2;
    store_some(r_ + i, convert_(w.low), count < kHalf ? count : kHalf);
    if (count > kHalf) store_some(r_ + i + kHalf, convert_(w.high), count - kHalf);
  }

 private:
  double* r_;
  Conversion convert_;
};

// ---- sinks of a vector of elements of 64 bits -----------------------------------------------------------------------

// A loader of such: `Vector`, of kLongs elements; `Element`, `store_all(r, w)` and `store_first(r, w, count)` for the
// raw form; `to_doubles(w, x)`, and `kDoubleScale` where a unit apart is not 1.
template <class Loader>
class RawLongs {
 public:
  using Vector = typename Loader::Vector;
  using Element = typename Loader::Element;
  static constexpr Form kForm = Form::raw;
  explicit RawLongs(void* r) : r_(static_cast<Element*>(r)) {}
  explicit RawLongs(const Target& target) : RawLongs(target.r) {}
  Target target() const { return {r_, 0, 0}; }
  template <int N>
  void group(ptrdiff_t i, const Vector (&w)[N]) const {
    unroll<N>([&](auto k) __attribute__((always_inline)) { Loader::store_all(r_ + i + kLongs * k, w[k]); });
  }
  void some(ptrdiff_t i, Vector w, int count) const { Loader::store_first(r_ + i, w, count); }
  void one(ptrdiff_t i, uint64_t w) const { r_[i] = static_cast<Element>(w); }
  void first(ptrdiff_t i, const Vector& w) const { Loader::store_first(r_ + i, w, 1); }

 private:
  Element* r_;
};

template <class Loader>
class DoubleLongs {
 public:
  using Vector = typename Loader::Vector;
  static constexpr Form kForm = Form::doubles;
  DoubleLongs(double* r, double a, double b) : r_(r), scale_((b - a) * Loader::kDoubleScale), a_(a) {}
  explicit DoubleLongs(const Target& target)
      : r_(static_cast<double*>(target.r)), scale_(target.scale), a_(target.origin) {}
  Target target() const { return {r_, first_lane(scale_), first_lane(a_)}; }
  template <int N>
  void group(ptrdiff_t i, const Vector (&w)[N]) const {
    F64 x[N];
    Loader::to_doubles(w, x);
    unroll<N>([&](auto k) __attribute__((always_inline)) { store(r_ + i + kLongs * k, fma(scale_, x[k], a_)); });
  }
  void some(ptrdiff_t i, Vector w, int count) const {
    const Vector words[1] = {w};
    F64 x[1];
    Loader::to_doubles(words, x);
    store_some(r_ + i, fma(scale_, x[0], a_), count);
  }
  // The first element alone, from a loader that has a shorter way to one.
  void first(ptrdiff_t i, const Vector& w) const {
    r_[i] = __builtin_fma(first_lane(scale_), Loader::first_double(w), first_lane(a_));
  }

 private:
  double* r_;
  F64 scale_, a_;
};

// Floats from a loader that makes them, two vectors to one of floats, in one fused step.
template <class Loader>
class FloatLongs {
 public:
  using Vector = typename Loader::Vector;
  static constexpr Form kForm = Form::floats;
  FloatLongs(float* r, float a, float b) : r_(r), scale_((b - a) * Loader::kFloatScale), a_(a) {}
  explicit FloatLongs(const Target& target)
      : r_(static_cast<float*>(target.r)),
        scale_(static_cast<float>(target.scale)),
        a_(static_cast<float>(target.origin)) {}
  Target target() const { return {r_, double{first_lane(scale_)}, double{first_lane(a_)}}; }
  template <int N>
  void group(ptrdiff_t i, const Vector (&w)[N]) const {
    F32 x[(N + 1) / 2];
    Loader::to_floats(w, x);
    unroll<(N + 1) / 2>([&](auto k) __attribute__((always_inline)) { x[k] = fma(scale_, x[k], a_); });
    unroll<N / 2>([&](auto k) __attribute__((always_inline)) { store(r_ + i + kWords * k, x[k]); });
    if constexpr (N % 2 == 1) store_low_half(r_ + i + kLongs * (N - 1), x[N / 2]);
  }
  void some(ptrdiff_t i, Vector w, int count) const {
    const Vector words[1] = {w};
    F32 x[1];
    Loader::to_floats(words, x);
    store_some(r_ + i, fma(scale_, x[0], a_), count);
  }

 private:
  float* r_;
  F32 scale_, a_;
};

// Floats that are the double results, rounded once more.
template <class Loader>
class RoundedLongs {
 public:
  using Vector = typename Loader::Vector;
  static constexpr Form kForm = Form::floats;
  RoundedLongs(float* r, float a, float b)
      : r_(r), scale_((static_cast<double>(b) - static_cast<double>(a)) * Loader::kDoubleScale), a_(double{a}) {}
  explicit RoundedLongs(const Target& target)
      : r_(static_cast<float*>(target.r)), scale_(target.scale), a_(target.origin) {}
  Target target() const { return {r_, first_lane(scale_), first_lane(a_)}; }
  template <int N>
  void group(ptrdiff_t i, const Vector (&w)[N]) const {
    F64 x[N];
    Loader::to_doubles(w, x);
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      store_low_half(r_ + i + kLongs * k, narrow(fma(scale_, x[k], a_)));
    });
  }
  void some(ptrdiff_t i, Vector w, int count) const {
    const Vector words[1] = {w};
    F64 x[1];
    Loader::to_doubles(words, x);
    store_some(r_ + i, narrow(fma(scale_, x[0], a_)), count);
  }
  void first(ptrdiff_t i, const Vector& w) const {
    r_[i] = static_cast<float>(__builtin_fma(first_lane(scale_), Loader::first_double(w), first_lane(a_)));
  }

 private:
  float* r_;
  F64 scale_, a_;
};

// ---- sinks of single elements --------------------------------------------------------------------------------------

template <class Word, class Element>
class ElementSink {
 public:
  ElementSink(Element* r, Element a, Element b)
      : r_(r), scale_((b - a) * (sizeof(Word) == 8 ? Element(0x1p-64) : Element(0x1p-32))), a_(a) {}
  void one(ptrdiff_t i, Word w) const {
    if constexpr (sizeof(Element) == 8)
      r_[i] = __builtin_fma(scale_, static_cast<Element>(w), a_);
    else
      r_[i] = __builtin_fmaf(scale_, static_cast<Element>(w), a_);
  }

 private:
  Element* r_;
  Element scale_, a_;
};

}  // namespace orvik::qor
