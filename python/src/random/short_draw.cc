// What Python does around a draw takes as long as a thousand numbers. A call whose arguments are numbers and a plain
// array of the distribution's type, or a length or several, or nothing, is served here; all others, and those that fail, go to the method as it is
// written in Python.
#include "random/short_draw.h"

#include <Python.h>
#define PY_ARRAY_UNIQUE_SYMBOL orvik_random_array_api
#include <numpy/ndarrayobject.h>
#include <numpy/arrayscalars.h>

#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>

#include "random/adapted.h"
#include "random/stream.h"

namespace py = pybind11;

namespace orvik::python {
namespace {

constexpr int64_t kMostNumbers = int64_t{1} << 20;  // between two looks for signals
constexpr int64_t kMostLocked = 500;                // up to which the interpreter's lock is kept
constexpr int kMostParameters = 3;
constexpr double kRequired = std::numeric_limits<double>::quiet_NaN();  // for a parameter without a value of its own
constexpr double kRootOfTwo = 1.4142135623730951;
constexpr uint32_t kInverseLognormal = 1, kRejection = 0;  // methods

// A distribution by its parameters in Python's order, behind which come size, dtype and out.
struct Distribution {
  const char* name;
  int count, wholes;  // parameters, and how many of them, the first ones, are integers of 32 bits
  const char* parameters[kMostParameters];
  double values[kMostParameters];  // that they have when they are not given
  // Doubles or integers of 32 bits. A status below 0: nothing has been drawn, and the method in Python tells why.
  orvik_status (*real)(orvik_stream* s, int64_t n, double* r, const double* p);
  orvik_status (*integer)(orvik_stream* s, int64_t n, int32_t* r, const double* p);
};

int32_t whole(double x) { return static_cast<int32_t>(x); }

orvik_status integers_below(orvik_stream* s, int64_t n, int32_t* r, const double* p) {
  const bool alone = std::isnan(p[1]);
  const int32_t low = alone ? 0 : whole(p[0]), high = whole(alone ? p[0] : p[1]);
  return low < high ? integers(s, n, r, low, high) : ORVIK_ERROR_BAD_PARAMETER;
}

orvik_status sample(orvik_stream* s, int64_t n, int32_t* r, const double* p) {
  const double all = p[0] + p[1];
  if (p[0] < 0 || p[1] < 0 || p[2] < 0 || p[2] > all || all > INT32_MAX) return ORVIK_ERROR_BAD_PARAMETER;
  return orvik_i_hypergeometric(s, n, r, whole(all), whole(p[2]), whole(p[0]));
}

#define DRAW(T, call) [](orvik_stream* s, int64_t n, T* r, const double* p) { return orvik_status{call}; }
#define REAL(...) DRAW(double, (__VA_ARGS__)), nullptr
#define INTEGER(...) nullptr, DRAW(int32_t, (__VA_ARGS__))
constexpr Distribution kDistributions[] = {
    {"uniform", 2, 0, {"low", "high"}, {0, 1},
     REAL(orvik_d_uniform_threads(s, n, r, p[0], p[1], 0))},
    {"normal", 2, 0, {"loc", "scale"}, {0, 1},
     REAL(orvik_d_gaussian_threads(s, n, r, p[0], p[1], ORVIK_GAUSSIAN_INVERSE, 0))},
    {"lognormal", 2, 0, {"mean", "sigma"}, {0, 1},
     REAL(orvik_d_lognormal_threads(s, n, r, p[0], p[1], 0, 1, kInverseLognormal, 0))},
    {"exponential", 1, 0, {"scale"}, {1},
     REAL(orvik_d_exponential_threads(s, n, r, 0, p[0], 0))},
    {"laplace", 2, 0, {"loc", "scale"}, {0, 1},
     REAL(orvik_d_laplace_threads(s, n, r, p[0], p[1], 0))},
    {"cauchy", 2, 0, {"loc", "scale"}, {0, 1},
     REAL(orvik_d_cauchy_threads(s, n, r, p[0], p[1], 0))},
    {"gumbel", 2, 0, {"loc", "scale"}, {0, 1},
     REAL(maxima(n, r, p[0], [&](double at) { return orvik_d_gumbel_threads(s, n, r, at, p[1], 0); }))},
    {"rayleigh", 1, 0, {"scale"}, {1},
     REAL(orvik_d_rayleigh_threads(s, n, r, 0, p[0] * kRootOfTwo, 0))},
    {"weibull", 1, 0, {"a"}, {kRequired},
     REAL(orvik_d_weibull_threads(s, n, r, p[0], 0, 1, 0))},
    {"gamma", 2, 0, {"shape", "scale"}, {kRequired, 1},
     REAL(orvik_d_gamma(s, n, r, p[0], 0, p[1]))},
    {"beta", 2, 0, {"a", "b"}, {kRequired, kRequired},
     REAL(orvik_d_beta(s, n, r, p[0], p[1], 0, 1))},
    {"chisquare", 1, 1, {"df"}, {kRequired},
     REAL(orvik_d_chisquare(s, n, r, whole(p[0])))},
    {"integers", 2, 2, {"low", "high"}, {kRequired, kRequired},
     INTEGER(integers_below(s, n, r, p))},
    {"bernoulli", 1, 0, {"p"}, {kRequired},
     INTEGER(orvik_i_bernoulli_threads(s, n, r, p[0], 0))},
    {"geometric", 1, 0, {"p"}, {kRequired},
     INTEGER(trials(s, n, r, p[0]))},
    {"binomial", 2, 1, {"n", "p"}, {kRequired, kRequired},
     INTEGER(orvik_i_binomial(s, n, r, whole(p[0]), p[1]))},
    {"hypergeometric", 3, 3, {"ngood", "nbad", "nsample"}, {kRequired, kRequired, kRequired},
     INTEGER(sample(s, n, r, p))},
    {"negative_binomial", 2, 0, {"n", "p"}, {kRequired, kRequired},
     INTEGER(orvik_i_negbinomial(s, n, r, p[0], p[1]))},
    {"poisson", 1, 0, {"lam"}, {1},
     INTEGER(orvik_i_poisson(s, n, r, p[0], kRejection))},
};
#undef INTEGER
#undef REAL
#undef DRAW

// A method of a class: a descriptor like a function's, with the function's attributes.
struct ShortDraw {
  PyObject_HEAD vectorcallfunc vectorcall;
  PyObject* function;
  const Distribution* distribution;
};

// Of a distribution's arguments by place.
PyObject* names_of[std::size(kDistributions)][kMostParameters + 3];
PyObject *place_name = nullptr, *lock_name = nullptr, *acquire_name = nullptr, *release_name = nullptr;

// What a call asks for.
struct Request {
  double parameters[kMostParameters];
  PyObject *size = Py_None, *out = Py_None;

  bool reads(const Distribution& d, PyObject* const* arguments, Py_ssize_t count, PyObject* names) {
    std::memcpy(parameters, d.values, sizeof parameters);
    if (count > d.count + 3) return false;
    for (Py_ssize_t k = 0; k < count; ++k) {
      if (!take(d, static_cast<int>(k), arguments[k])) return false;
    }
    const Py_ssize_t named = names != nullptr ? PyTuple_GET_SIZE(names) : 0;
    for (Py_ssize_t k = 0; k < named; ++k) {
      PyObject* const name = PyTuple_GET_ITEM(names, k);
      const int place = place_of(d, name);
      if (place < count || !take(d, place, arguments[count + k])) return false;  // unknown, or given twice
    }
    if (std::isnan(parameters[0])) return false;  // NaN, or none
    for (int k = 1; k < d.count; ++k) {
      if (std::isnan(parameters[k]) && !may_lack(d, k)) return false;
    }
    return size == Py_None || out == Py_None;
  }

  // The lengths of a new array. False, with no exception set, where they are not this kind's.
  bool shape(npy_intp* lengths, int* dimensions) const {
    const bool tuple = PyTuple_CheckExact(size);
    const Py_ssize_t count = tuple ? PyTuple_GET_SIZE(size) : 1;
    if (count > kMostDimensions) return false;
    npy_intp numbers = 1;
    for (Py_ssize_t k = 0; k < count; ++k) {
      PyObject* const length = tuple ? PyTuple_GET_ITEM(size, k) : size;
      const Py_ssize_t n = PyLong_CheckExact(length) ? PyLong_AsSsize_t(length) : -1;
      if (n < 0 || n > kMostNumbers || (numbers *= n) > kMostNumbers) return PyErr_Clear(), false;
      lengths[k] = n;
    }
    *dimensions = static_cast<int>(count);
    return true;
  }

  static constexpr int kMostDimensions = 8;

 private:
  static int place_of(const Distribution& d, PyObject* name) {
    PyObject* const* const own = names_of[&d - kDistributions];
    for (int k = d.count + 2; k >= 0; --k) {  // a caller's names are interned as well, as a rule
      if (name == own[k]) return k;
    }
    for (int k = 0; k < d.count + 3; ++k) {
      if (PyUnicode_Compare(name, own[k]) == 0) return k;
    }
    return -1;
  }

  // Whether a call may leave the parameter out, of those that have no value of their own.
  static bool may_lack(const Distribution& d, int k) { return d.integer != nullptr && d.wholes == 2 && k == 1; }

  static bool is_type(const Distribution& d, PyObject* value) {
    static_assert(NPY_SIZEOF_INT == 4);
    return value == reinterpret_cast<PyObject*>(d.real != nullptr ? &PyDoubleArrType_Type : &PyIntArrType_Type);
  }

  bool take(const Distribution& d, int place, PyObject* value) {
    if (place < d.wholes) {
      if (!PyLong_CheckExact(value)) return false;
      int overflow = 0;
      const long x = PyLong_AsLongAndOverflow(value, &overflow);
      parameters[place] = static_cast<double>(x);
      return overflow == 0 && x >= INT32_MIN && x <= INT32_MAX;
    }
    if (place < d.count) {
      if (PyFloat_CheckExact(value)) {
        parameters[place] = PyFloat_AS_DOUBLE(value);
        return true;
      }
      if (!PyLong_CheckExact(value)) return false;
      parameters[place] = PyLong_AsDouble(value);
      if (parameters[place] != -1.0 || PyErr_Occurred() == nullptr) return true;
      PyErr_Clear();
      return false;
    }
    if (place == d.count) {
      size = value;
      return value == Py_None || PyLong_CheckExact(value) || PyTuple_CheckExact(value);
    }
    if (place == d.count + 1) return is_type(d, value);
    out = value;
    return value == Py_None || is_plain(d, value);
  }

  static bool is_plain(const Distribution& d, PyObject* value) {
    if (!PyArray_CheckExact(value)) return false;
    auto* const array = reinterpret_cast<PyArrayObject*>(value);
    return PyArray_TYPE(array) == (d.real != nullptr ? NPY_DOUBLE : NPY_INT) && PyArray_ISCARRAY(array);
  }
};

// Holds a bit generator's lock. False where it could not be had; no exception is set then.
class Held {
 public:
  explicit Held(PyObject* generator) : lock_(PyObject_GetAttr(generator, lock_name)) {
    PyObject* const done = lock_ != nullptr ? PyObject_CallMethodNoArgs(lock_, acquire_name) : nullptr;
    if (done == nullptr) {
      PyErr_Clear();
      Py_CLEAR(lock_);
    }
    Py_XDECREF(done);
  }
  ~Held() {
    if (lock_ == nullptr) return;
    PyObject* const done = PyObject_CallMethodNoArgs(lock_, release_name);
    if (done == nullptr) PyErr_WriteUnraisable(lock_);
    Py_XDECREF(done);
    Py_DECREF(lock_);
  }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  explicit operator bool() const { return lock_ != nullptr; }

 private:
  PyObject* lock_;
};

bool fill(PyObject* generator, const Distribution& d, const double* parameters, int64_t n, void* r) {
  PyObject* const place = PyObject_GetAttr(generator, place_name);
  auto* const stream = place != nullptr ? static_cast<Stream*>(PyCapsule_GetPointer(place, kPlace)) : nullptr;
  bool filled = false;
  if (stream == nullptr) {
    PyErr_Clear();
  } else if (const Held held(generator); held) {
    if (orvik_stream* const from = stream->exact_or_null(); from != nullptr) {
      PyThreadState* const thread = n > kMostLocked ? PyEval_SaveThread() : nullptr;
      filled = (d.real != nullptr ? d.real(from, n, static_cast<double*>(r), parameters)
                                  : d.integer(from, n, static_cast<int32_t*>(r), parameters)) >= 0;
      if (thread != nullptr) PyEval_RestoreThread(thread);
    }
  }
  Py_XDECREF(place);
  return filled;
}

// A new reference; null, with no exception set, where the call is not of this kind or fails.
PyObject* short_draw(const Distribution& d, PyObject* const* arguments, Py_ssize_t count, PyObject* names) {
  Request request;
  if (count < 1 || !request.reads(d, arguments + 1, count - 1, names)) return nullptr;
  PyObject* const generator = arguments[0];
  if (request.out == Py_None && request.size == Py_None) {
    double real;
    int32_t integer;
    void* const number = d.real != nullptr ? static_cast<void*>(&real) : &integer;
    if (!fill(generator, d, request.parameters, 1, number)) return nullptr;
    return d.real != nullptr ? PyFloat_FromDouble(real) : PyLong_FromLong(integer);
  }
  PyObject* result = request.out;
  if (request.out == Py_None) {
    npy_intp lengths[Request::kMostDimensions];
    int dimensions;
    if (!request.shape(lengths, &dimensions)) return nullptr;
    result = PyArray_SimpleNew(dimensions, lengths, d.real != nullptr ? NPY_DOUBLE : NPY_INT);
    if (result == nullptr) return PyErr_Clear(), nullptr;
  } else {
    Py_INCREF(result);
  }
  auto* const array = reinterpret_cast<PyArrayObject*>(result);
  const npy_intp n = PyArray_SIZE(array);
  if (n <= kMostNumbers && fill(generator, d, request.parameters, n, PyArray_DATA(array))) return result;
  Py_DECREF(result);
  return nullptr;
}

PyObject* call(PyObject* self, PyObject* const* arguments, size_t flags, PyObject* names) {
  const auto* const draw = reinterpret_cast<ShortDraw*>(self);
  PyObject* const result = short_draw(*draw->distribution, arguments, PyVectorcall_NARGS(flags), names);
  return result != nullptr || PyErr_Occurred() != nullptr
             ? result
             : PyObject_Vectorcall(draw->function, arguments, flags, names);
}

PyObject* bind(PyObject* self, PyObject* object, PyObject*) {
  if (object != nullptr && object != Py_None) return PyMethod_New(self, object);
  Py_INCREF(self);
  return self;
}

// The function's name, text, signature and so on; inspect and doctest follow __wrapped__.
PyObject* attribute(PyObject* self, PyObject* name) {
  auto* const function = reinterpret_cast<ShortDraw*>(self)->function;
  if (PyUnicode_CompareWithASCIIString(name, "__wrapped__") == 0) {
    Py_INCREF(function);
    return function;
  }
  if (PyUnicode_CompareWithASCIIString(name, "__class__") == 0) return PyObject_GenericGetAttr(self, name);
  return PyObject_GetAttr(function, name);
}

// pydoc asks for the text past `attribute`.
PyObject* text_of_method(PyObject* self, void*) {
  return PyObject_GetAttrString(reinterpret_cast<ShortDraw*>(self)->function, "__doc__");
}
PyGetSetDef properties[] = {{"__doc__", text_of_method, nullptr, nullptr, nullptr},
                            {nullptr, nullptr, nullptr, nullptr, nullptr}};

void forget(PyObject* self) {
  PyTypeObject* const type = Py_TYPE(self);
  Py_XDECREF(reinterpret_cast<ShortDraw*>(self)->function);
  type->tp_free(self);
}

PyTypeObject type = [] {
  PyTypeObject t = {};
  t.ob_base.ob_base.ob_refcnt = 1;
  t.tp_name = "orvik._random.ShortDraw";
  t.tp_basicsize = sizeof(ShortDraw);
  t.tp_flags = Py_TPFLAGS_DEFAULT | Py_TPFLAGS_HAVE_VECTORCALL | Py_TPFLAGS_METHOD_DESCRIPTOR;
  t.tp_vectorcall_offset = offsetof(ShortDraw, vectorcall);
  t.tp_call = PyVectorcall_Call;
  t.tp_descr_get = bind;
  t.tp_getattro = attribute;
  t.tp_getset = properties;
  t.tp_dealloc = forget;
  return t;
}();

py::object make(const py::function& function) {
  const auto name = py::cast<std::string>(function.attr("__name__"));
  for (const Distribution& d : kDistributions) {
    if (name != d.name) continue;
    auto* const made = PyObject_New(ShortDraw, &type);
    if (made == nullptr) throw py::error_already_set();
    made->vectorcall = call;
    made->function = function.inc_ref().ptr();
    made->distribution = &d;
    return py::reinterpret_steal<py::object>(reinterpret_cast<PyObject*>(made));
  }
  raise(PyExc_ValueError, "no such distribution");
}

}  // namespace

void define_short_draw(py::module_& module) {
  if (_import_array() < 0 || PyType_Ready(&type) < 0) throw py::error_already_set();
  place_name = PyUnicode_InternFromString("_place");
  lock_name = PyUnicode_InternFromString("lock");
  acquire_name = PyUnicode_InternFromString("acquire");
  release_name = PyUnicode_InternFromString("release");
  if (place_name == nullptr || lock_name == nullptr || acquire_name == nullptr || release_name == nullptr) {
    throw py::error_already_set();
  }
  for (size_t k = 0; k < std::size(kDistributions); ++k) {
    static constexpr const char* kOthers[] = {"size", "dtype", "out"};
    const int count = kDistributions[k].count;
    for (int p = 0; p < count + 3; ++p) {
      const char* const text = p < count ? kDistributions[k].parameters[p] : kOthers[p - count];
      names_of[k][p] = PyUnicode_InternFromString(text);
      if (names_of[k][p] == nullptr) throw py::error_already_set();
    }
  }
  module.def("short_draw", make);
}

}  // namespace orvik::python
