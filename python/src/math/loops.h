// The loops of ufuncs over the front's functions: what NumPy calls with addresses and steps in bytes.
#pragma once

#include <cstddef>
#include <cstdint>

#include "orvik/front.h"

namespace orvik::python {

inline constexpr int kMostArrays = 3, kMostOperands = 7;

// A function of the front by its arrays, inputs first. A null `increments` means unit stride.
using Call = orvik_status (*)(int64_t n, char* const* at, const int64_t* increments, const void* parameters,
                              orvik_math_options* options);

// How operands that are no arrays of the front's function come: none; an order in front, integer or floating-point;
// scales and shifts of a fraction behind the inputs.
enum class Parameters : uint8_t { kNone, kOrder, kRealOrder, kFraction };

// Computes two inputs' elements one after another: each sees what earlier ones wrote. Steps in bytes.
using InOrder = void (*)(int64_t n, char* const* at, const int64_t* steps);

// One loop of a ufunc: a row of the front at one precision.
struct Loop {
  Call call;
  uint8_t inputs, results;     // arrays
  uint8_t bytes[kMostArrays];  // of an element
  char types[kMostOperands];   // NumPy's characters of all operands as the ufunc has them
  Parameters parameters;
  bool swapped = false;   // the results the other way round
  bool selects = false;   // hands numbers on: a NaN raises nothing, as in NumPy
  bool divides = false;   // a quotient of complex numbers: the kernels do not tell of divisions by zero
  bool raises = false;    // the kernels' flags tell 0 / 0 from NaN / 0 and poles from overflow, which reports do not
  bool reorders = false;  // a reduction may be computed in any order
  bool reports = false;   // elements can be exceptional
  InOrder in_order = nullptr;  // of functions that are one instruction, with the same bits
  int32_t locked = 500;   // elements up to which a call keeps the interpreter's lock: some microseconds
};

// The level of this thread's calls.
extern thread_local int32_t accuracy;

// The arrays of a call: where their first elements lie, and the bytes from one to the next.
struct Arrays {
  char* at[kMostArrays];
  int64_t step[kMostArrays];
};

// A loop without parameters, of any steps. `mask`: the elements that are computed, none of the others is touched; null
// for all.
orvik_status run(const Loop& loop, int64_t n, const Arrays& x, const char* mask);

// What NumPy calls; `data` is the Loop.
void run_loop(char** operands, const ptrdiff_t* dimensions, const ptrdiff_t* steps, void* data);

template <class T>
inline constexpr char kType = '?';
template <>
inline constexpr char kType<float> = 'f';
template <>
inline constexpr char kType<double> = 'd';
template <>
inline constexpr char kType<ZymComplexFloat> = 'F';
template <>
inline constexpr char kType<ZymComplexDouble> = 'D';

// The loops of each shape of the rows, from the front's function for unit stride and that for any.
template <auto unit, auto strided>
struct Of;

template <class A, class R, orvik_status (*unit)(int64_t, const A*, R*, orvik_math_options*), auto strided>
struct Of<unit, strided> {
  static orvik_status call(int64_t n, char* const* at, const int64_t* inc, const void*, orvik_math_options* o) {
    const auto* const a = reinterpret_cast<const A*>(at[0]);
    auto* const r = reinterpret_cast<R*>(at[1]);
    return inc == nullptr ? unit(n, a, r, o) : strided(n, a, inc[0], r, inc[1], o);
  }
  static constexpr Loop loop = {call, 1, 1, {sizeof(A), sizeof(R)}, {kType<A>, kType<R>}, Parameters::kNone};
};

template <class T, orvik_status (*unit)(int64_t, const T*, const T*, T*, orvik_math_options*), auto strided>
struct Of<unit, strided> {
  static orvik_status call(int64_t n, char* const* at, const int64_t* inc, const void*, orvik_math_options* o) {
    const auto *const a = reinterpret_cast<const T*>(at[0]), *const b = reinterpret_cast<const T*>(at[1]);
    auto* const r = reinterpret_cast<T*>(at[2]);
    return inc == nullptr ? unit(n, a, b, r, o) : strided(n, a, inc[0], b, inc[1], r, inc[2], o);
  }
  static constexpr char t = kType<T>;
  static constexpr Loop loop = {call, 2, 1, {sizeof(T), sizeof(T), sizeof(T)}, {t, t, t}, Parameters::kNone};
};

template <class T, orvik_status (*unit)(int64_t, const T*, T*, T*, orvik_math_options*), auto strided>
struct Of<unit, strided> {
  static orvik_status call(int64_t n, char* const* at, const int64_t* inc, const void*, orvik_math_options* o) {
    const auto* const a = reinterpret_cast<const T*>(at[0]);
    auto *const r1 = reinterpret_cast<T*>(at[1]), *const r2 = reinterpret_cast<T*>(at[2]);
    return inc == nullptr ? unit(n, a, r1, r2, o) : strided(n, a, inc[0], r1, inc[1], r2, inc[2], o);
  }
  static constexpr char t = kType<T>;
  static constexpr Loop loop = {call, 1, 2, {sizeof(T), sizeof(T), sizeof(T)}, {t, t, t}, Parameters::kNone};
};

template <class T, orvik_status (*unit)(int64_t, int32_t, const T*, T*, orvik_math_options*), auto strided>
struct Of<unit, strided> {
  static orvik_status call(int64_t n, char* const* at, const int64_t* inc, const void* order, orvik_math_options* o) {
    const int32_t k = *static_cast<const int32_t*>(order);
    const auto* const a = reinterpret_cast<const T*>(at[0]);
    auto* const r = reinterpret_cast<T*>(at[1]);
    return inc == nullptr ? unit(n, k, a, r, o) : strided(n, k, a, inc[0], r, inc[1], o);
  }
  static constexpr char t = kType<T>;
  static constexpr Loop loop = {call, 1, 1, {sizeof(T), sizeof(T)}, {'l', t, t}, Parameters::kOrder};
};

template <class T, orvik_status (*unit)(int64_t, const T*, const T*, T, T, T, T, T*, orvik_math_options*), auto strided>
struct Of<unit, strided> {
  static orvik_status call(int64_t n, char* const* at, const int64_t* inc, const void* p, orvik_math_options* o) {
    const auto *const a = reinterpret_cast<const T*>(at[0]), *const b = reinterpret_cast<const T*>(at[1]);
    const auto* const s = static_cast<const T*>(p);
    auto* const r = reinterpret_cast<T*>(at[2]);
    return inc == nullptr ? unit(n, a, b, s[0], s[1], s[2], s[3], r, o)
                          : strided(n, a, inc[0], b, inc[1], s[0], s[1], s[2], s[3], r, inc[2], o);
  }
  static constexpr char t = kType<T>;
  static constexpr Loop loop = {
      call, 2, 1, {sizeof(T), sizeof(T), sizeof(T)}, {t, t, t, t, t, t, t}, Parameters::kFraction};
};

// The same loop with orders as floating-point numbers.
constexpr Loop real_order(Loop loop) {
  loop.types[0] = loop.types[1];
  loop.parameters = Parameters::kRealOrder;
  return loop;
}
// With one of the properties above.
constexpr Loop with(Loop loop, bool Loop::*property) {
  loop.*property = true;
  return loop;
}
constexpr Loop with(Loop loop, InOrder in_order) {
  loop.in_order = in_order;
  return loop;
}
// With the length up to which the lock is kept.
constexpr Loop locked(Loop loop, int32_t elements) {
  loop.locked = elements;
  return loop;
}

// A ufunc as the module makes it.
struct Ufunc {
  const char* name;
  int identity;  // NumPy's constant
  const char* doc;
  const Loop* loops;
  int count;
};
extern const Ufunc kUfuncs[];
extern const int kUfuncCount;

}  // namespace orvik::python
