// NumPy's ufuncs, called by CPython's C API in the bench's thread with arrays around its memory: what a caller of
// Python pays for `f(a, out=r)` but for the interpreter's part. NumPy's loops of 512 bits serve where the processor has
// them.
//
// Bounds in ulp: 4 is what NumPy promises of its vector loops; those of loops that call the C library, and of complex
// ones, are the largest errors that `zym_bench --section peers` finds, rounded up.
#include <Python.h>

#define NPY_NO_DEPRECATED_API NPY_1_22_API_VERSION
#include <numpy/arrayobject.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <vector>

#include "zym/peers.h"

namespace orvik::bench {
namespace {

PyObject* module = nullptr;

[[noreturn]] void fail(const char* what) {
  PyErr_Print();
  std::fprintf(stderr, "numpy: %s failed\n", what);
  std::exit(1);
}

enum class Form { unary, binary, scalar, pair };  // pair: two results, the other way round than the entry has them

// A ufunc with its operands, outputs behind inputs, for the arrays of one comparison.
struct Ready {
  int32_t n = -1;
  Arrays arrays{};
  PyObject* ufunc = nullptr;
  PyObject* operands[3] = {};
  size_t count = 0;
};

PyObject* wrap(const void* data, int32_t n, int32_t step, int type) {
  PyArray_Descr* const kind = PyArray_DescrFromType(type);
  const npy_intp length[] = {n}, stride[] = {step * npy_intp{kind->elsize}};
  PyObject* const array = PyArray_NewFromDescr(&PyArray_Type, kind, step == 0 ? 0 : 1, length, stride,
                                               const_cast<void*>(data), NPY_ARRAY_BEHAVED, nullptr);
  if (array == nullptr) fail("an array");
  return array;
}

void prepare(Ready& ready, const char* name, Form form, int in, int out, bool strided, int32_t n,
             const Arrays& arrays) {
  for (PyObject*& old : ready.operands) Py_CLEAR(old);
  if (ready.ufunc == nullptr) ready.ufunc = PyObject_GetAttrString(module, name);
  if (ready.ufunc == nullptr) fail(name);
  const auto step = [strided](int32_t inc) { return strided ? inc : 1; };
  size_t k = 0;
  ready.operands[k++] = wrap(arrays.a, n, step(arrays.incA), in);
  if (form == Form::binary) ready.operands[k++] = wrap(arrays.b, n, step(arrays.incB), in);
  if (form == Form::scalar) ready.operands[k++] = wrap(arrays.b, n, 0, in);
  if (form == Form::pair) ready.operands[k++] = wrap(arrays.r2, n, step(arrays.incR2), out);
  ready.operands[k++] = wrap(arrays.r1, n, step(arrays.incR1), out);
  ready.count = k;
  ready.n = n;
  ready.arrays = arrays;
}

template <size_t length>
struct Name {
  char text[length];
  constexpr Name(const char (&name)[length]) { std::copy_n(name, length, text); }
};

template <Name name, Form form, int in, int out, bool strided>
void call(int32_t n, const Arrays& arrays) {
  static Ready ready;
  if (n != ready.n || !(arrays == ready.arrays)) prepare(ready, name.text, form, in, out, strided, n, arrays);
  PyObject* const result = PyObject_Vectorcall(ready.ufunc, ready.operands, ready.count, nullptr);
  if (result == nullptr) fail(name.text);
  Py_DECREF(result);
}

#define UFUNC(row, ulp, name, form, in, out) \
  {row, "numpy", ulp, call<name, Form::form, in, out, false>, call<name, Form::form, in, out, true>},
#define REAL(form, Function, ulp_s, ulp_d, name)                    \
  UFUNC("s" #Function, ulp_s, name, form, NPY_FLOAT32, NPY_FLOAT32) \
  UFUNC("d" #Function, ulp_d, name, form, NPY_FLOAT64, NPY_FLOAT64)
#define COMPLEX(form, Function, ulp_c, ulp_z, name)                     \
  UFUNC("c" #Function, ulp_c, name, form, NPY_COMPLEX64, NPY_COMPLEX64) \
  UFUNC("z" #Function, ulp_z, name, form, NPY_COMPLEX128, NPY_COMPLEX128)

// NumPy has loops over vectors for these, of 512 bits where the processor has AVX512_SKX, as it calls the set.
constexpr Peer kVectorLoops[] = {
    REAL(unary, Abs, 0.5, 0.5, "absolute") REAL(unary, Sqr, 0.5, 0.5, "square") REAL(unary, Inv, 0.5, 0.5, "reciprocal")
        REAL(unary, Sqrt, 0.5, 0.5, "sqrt") REAL(unary, Ceil, 0.5, 0.5, "ceil") REAL(unary, Floor, 0.5, 0.5, "floor")
            REAL(unary, Trunc, 0.5, 0.5, "trunc") REAL(unary, Rint, 0.5, 0.5, "rint") REAL(binary, Add, 0.5, 0.5, "add")
                REAL(binary, Sub, 0.5, 0.5, "subtract") REAL(binary, Mul, 0.5, 0.5, "multiply")
                    REAL(binary, Div, 0.5, 0.5, "divide") REAL(binary, Fmax, 0.5, 0.5, "fmax") REAL(
                        binary, Fmin, 0.5, 0.5, "fmin") REAL(unary, Cbrt, 4, 4, "cbrt") REAL(unary, Exp, 4, 4, "exp")
                        REAL(unary, Exp2, 4, 4, "exp2") REAL(unary, Expm1, 4, 4, "expm1") REAL(unary, Ln, 4, 4, "log")
                            REAL(unary, Log2, 4, 4, "log2") REAL(unary, Log10, 4, 4, "log10") REAL(
                                unary, Log1p, 4, 4, "log1p") REAL(unary, Sin, 4, 4, "sin") REAL(unary, Cos, 4, 4, "cos")
                                REAL(unary, Tan, 4, 4, "tan") REAL(unary, Asin, 4, 4, "arcsin")
                                    REAL(unary, Acos, 4, 4, "arccos") REAL(unary, Atan, 4, 4, "arctan") REAL(
                                        unary, Sinh, 4, 4, "sinh") REAL(unary, Cosh, 4, 4, "cosh")
                                        REAL(unary, Tanh, 4, 4, "tanh") REAL(unary, Asinh, 4, 4, "arcsinh") REAL(
                                            unary, Acosh, 4, 4, "arccosh") REAL(unary, Atanh, 4, 4, "arctanh")
                                            REAL(binary, Atan2, 4, 4, "arctan2") REAL(binary, Pow, 4, 4, "power")
                                                REAL(scalar, Powx, 4, 4, "power") UFUNC(
                                                    "cAbs", 1.9, "absolute", unary, NPY_COMPLEX64, NPY_FLOAT32)
                                                    UFUNC("zAbs", 1.8, "absolute", unary, NPY_COMPLEX128, NPY_FLOAT64)
                                                        COMPLEX(unary, Conj, 0.5, 0.5, "conjugate")
                                                            COMPLEX(binary, Add, 0.5, 0.5, "add")
                                                                COMPLEX(binary, Sub, 0.5, 0.5, "subtract")
                                                                    COMPLEX(binary, Mul, 1.4, 1.4, "multiply")};

// The others call the C library element by element.
constexpr Peer kElementLoops[] = {
    REAL(pair, Modf, 0.5, 0.5, "modf") REAL(binary, CopySign, 0.5, 0.5, "copysign") REAL(
        binary, NextAfter, 0.5, 0.5, "nextafter") REAL(binary, Fmod, 0.5, 0.5, "fmod")
        REAL(binary, Hypot, 0.51, 0.55, "hypot") COMPLEX(binary, Div, 2.8, 2.4, "divide") COMPLEX(
            unary, Sqrt, 1.4, 1.4, "sqrt") COMPLEX(unary, Exp, 1.5, 1.6, "exp") COMPLEX(unary, Ln, 1.4, 1.3, "log")
            COMPLEX(unary, Log10, 2.1, 1.8, "log10") COMPLEX(unary, Sin, 1.9, 2, "sin") COMPLEX(
                unary, Cos, 1.8, 1.8, "cos") COMPLEX(unary, Tan, 4.9, 5.3, "tan") COMPLEX(unary, Sinh, 1.8, 1.9, "sinh")
                COMPLEX(unary, Cosh, 2, 1.9, "cosh") COMPLEX(unary, Tanh, 5.6, 4.7, "tanh")
                    COMPLEX(unary, Asin, 2.1, 2.6, "arcsin") COMPLEX(unary, Acos, 2.3, 1.5, "arccos")
                        COMPLEX(unary, Atan, 3.8, 2, "arctan") COMPLEX(unary, Asinh, 2.8, 2.5, "arcsinh")
                            COMPLEX(unary, Acosh, 2.3, 1.5, "arccosh") COMPLEX(unary, Atanh, 4, 1.6, "arctanh")
                                COMPLEX(binary, Pow, 24, 27, "power") COMPLEX(scalar, Powx, 17, 17, "power")};

// An interpreter of its own kind: no signal handlers, no environment, no packages of the user's. False, the reason on
// standard error: none to be had.
bool start() {
  setenv("OPENBLAS_NUM_THREADS", "1", 0);  // NumPy's BLAS would start threads of its own
  PyConfig config;
  PyConfig_InitIsolatedConfig(&config);
  PyStatus status = PyConfig_SetBytesString(&config, &config.program_name, ORVIK_BENCH_PYTHON);
  if (PyStatus_Exception(status) == 0) status = Py_InitializeFromConfig(&config);
  PyConfig_Clear(&config);
  if (PyStatus_Exception(status) != 0) {
    std::fprintf(stderr, "no NumPy among the peers: %s\n",
                 status.err_msg != nullptr ? status.err_msg : "no interpreter");
    return false;
  }
  module = PyImport_ImportModule("numpy");
  if (module == nullptr || _import_array() < 0) {
    PyErr_Print();
    std::fputs("no NumPy among the peers: it cannot be imported\n", stderr);
    return false;
  }
  PyObject* const before = PyObject_CallMethod(module, "seterr", "s", "ignore");
  Py_XDECREF(before);
  return before != nullptr;
}

// The value of an expression of Python's over `numpy` as a text; empty where it has none.
std::string text_of(const char* expression) {
  PyObject* const names = PyDict_New();
  if (names == nullptr || PyDict_SetItemString(names, "numpy", module) < 0) fail("a name");
  PyObject* const value = PyRun_String(expression, Py_eval_input, names, names);
  const char* const text = value != nullptr ? PyUnicode_AsUTF8(value) : nullptr;
  const std::string copy = text != nullptr ? text : "";
  PyErr_Clear();
  Py_XDECREF(value);
  Py_DECREF(names);
  return copy;
}

std::vector<Peer> peers() {
  if (!start()) return {};
  const bool wide = text_of("str(numpy.core._multiarray_umath.__cpu_features__['AVX512_SKX'])") == "True";
  std::vector<Peer> all(std::begin(kVectorLoops), std::end(kVectorLoops));
  for (Peer& peer : all) peer.source = wide ? "numpy 512" : "numpy";
  all.insert(all.end(), std::begin(kElementLoops), std::end(kElementLoops));
  return all;
}

}  // namespace

std::span<const Peer> numpy_peers() {
  static const std::vector<Peer> all = peers();
  return all;
}

std::string numpy_description() { return numpy_peers().empty() ? "" : "NumPy " + text_of("numpy.__version__"); }

}  // namespace orvik::bench
