// The rows of vector functions as the front sees them: their tables, the layout of their arrays, and how a kernel of
// each shape is called. Included by the generated sources that define the functions.
#pragma once

#include <cstdint>
#include <type_traits>

#include "orvik/front.h"

namespace orvik::front {

struct Input {
  const void* start = nullptr;
  int64_t step = 1;  // elements
};
struct Result {
  void* start = nullptr;
  int64_t step = 1;
};

// The arguments of a call but its length.
struct Operands {
  Input a, b;
  Result r1, r2;
  const void* scalars = nullptr;
  int32_t order = 0;
  bool strided = false;
};

// Calls a kernel for n elements from element `first` on.
using Invoke = void (*)(void* kernel, const Operands& o, bool strided, int64_t first, int32_t n);

struct Row {
  void* const* unit;     // the row's kernels by level, of unit stride
  void* const* strided;  // of any
  const float* costs;    // by level, for an element
  Invoke invoke;
  int32_t input_bytes, result_bytes;  // of an element
  bool second_argument, second_array, second_result, complex, same_type, reports;
};

orvik_status run(const Row& row, const Operands& o, int64_t n, orvik_math_options* options);

template <class T>
const T* input(const Input& x, int64_t first) {
  return static_cast<const T*>(x.start) + first * x.step;
}
template <class T>
T* result(const Result& x, int64_t first) {
  return static_cast<T*>(x.start) + first * x.step;
}
inline int32_t step(int64_t elements) { return static_cast<int32_t>(elements); }

template <class... T, class... U>
void call(void* kernel, U... arguments) {
  reinterpret_cast<void (*)(T...)>(kernel)(arguments...);
}

template <class T>
inline constexpr bool kComplex = std::is_same_v<T, ZymComplexFloat> || std::is_same_v<T, ZymComplexDouble>;

// What the shapes have in common: the making of a row.
enum class Second { kNone, kArray, kScalar };
template <class Shape, class In, class Out, Second second = Second::kNone, bool second_result = false>
struct Shaped {
  static constexpr Row row(void* const* unit, void* const* strided, const float* costs, bool reports) {
    return {unit,
            strided,
            costs,
            Shape::invoke,
            sizeof(In),
            sizeof(Out),
            second != Second::kNone,
            second == Second::kArray,
            second_result,
            kComplex<In>,
            std::is_same_v<In, Out>,
            reports};
  }
};

template <class In, class Out>
struct Unary : Shaped<Unary<In, Out>, In, Out> {
  static void invoke(void* kernel, const Operands& o, bool strided, int64_t first, int32_t n) {
    const In* const a = input<In>(o.a, first);
    Out* const r = result<Out>(o.r1, first);
    if (!strided) return call<int32_t, const In*, Out*>(kernel, n, a, r);
    call<int32_t, const In*, int32_t, Out*, int32_t>(kernel, n, a, step(o.a.step), r, step(o.r1.step));
  }
};

template <class T>
struct Binary : Shaped<Binary<T>, T, T, Second::kArray> {
  static void invoke(void* kernel, const Operands& o, bool strided, int64_t first, int32_t n) {
    const T *const a = input<T>(o.a, first), *const b = input<T>(o.b, first);
    T* const r = result<T>(o.r1, first);
    if (!strided) return call<int32_t, const T*, const T*, T*>(kernel, n, a, b, r);
    call<int32_t, const T*, int32_t, const T*, int32_t, T*, int32_t>(kernel, n, a, step(o.a.step), b, step(o.b.step), r,
                                                                     step(o.r1.step));
  }
};

template <class T>
struct Unary2 : Shaped<Unary2<T>, T, T, Second::kNone, true> {
  static void invoke(void* kernel, const Operands& o, bool strided, int64_t first, int32_t n) {
    const T* const a = input<T>(o.a, first);
    T *const r1 = result<T>(o.r1, first), *const r2 = result<T>(o.r2, first);
    if (!strided) return call<int32_t, const T*, T*, T*>(kernel, n, a, r1, r2);
    call<int32_t, const T*, int32_t, T*, int32_t, T*, int32_t>(kernel, n, a, step(o.a.step), r1, step(o.r1.step), r2,
                                                               step(o.r2.step));
  }
};

// The scalar operand is passed by value, the pair of 64 bits by its address.
template <class T>
struct Scalar : Shaped<Scalar<T>, T, T, Second::kScalar> {
  using Passed = std::conditional_t<std::is_same_v<T, ZymComplexDouble>, const T*, T>;
  static Passed passed(const T* b) {
    if constexpr (std::is_pointer_v<Passed>) {
      return b;
    } else {
      return *b;
    }
  }
  static void invoke(void* kernel, const Operands& o, bool strided, int64_t first, int32_t n) {
    const T* const a = input<T>(o.a, first);
    const Passed b = passed(static_cast<const T*>(o.scalars));
    T* const r = result<T>(o.r1, first);
    if (!strided) return call<int32_t, const T*, Passed, T*>(kernel, n, a, b, r);
    call<int32_t, const T*, int32_t, Passed, T*, int32_t>(kernel, n, a, step(o.a.step), b, r, step(o.r1.step));
  }
};

template <class T>
struct Bessel : Shaped<Bessel<T>, T, T> {
  static void invoke(void* kernel, const Operands& o, bool strided, int64_t first, int32_t n) {
    const T* const a = input<T>(o.a, first);
    T* const r = result<T>(o.r1, first);
    if (!strided) return call<int32_t, int32_t, const T*, T*>(kernel, n, o.order, a, r);
    call<int32_t, int32_t, const T*, int32_t, T*, int32_t>(kernel, n, o.order, a, step(o.a.step), r, step(o.r1.step));
  }
};

template <class T>
struct Fraction : Shaped<Fraction<T>, T, T, Second::kArray> {
  static void invoke(void* kernel, const Operands& o, bool strided, int64_t first, int32_t n) {
    const T *const a = input<T>(o.a, first), *const b = input<T>(o.b, first);
    T* const r = result<T>(o.r1, first);
    const T* const s = static_cast<const T*>(o.scalars);
    if (!strided) {
      return call<int32_t, const T*, const T*, T, T, T, T, T*>(kernel, n, a, b, s[0], s[1], s[2], s[3], r);
    }
    call<int32_t, const T*, int32_t, const T*, int32_t, T, T, T, T, T*, int32_t>(
        kernel, n, a, step(o.a.step), b, step(o.b.step), s[0], s[1], s[2], s[3], r, step(o.r1.step));
  }
};

}  // namespace orvik::front
