// What NumPy does around a loop takes as long as hundreds of elements. Where there is nothing for it to do, since all
// operands are plain arrays of the loop's type and of one shape, apart from each other, or numbers, the loop is called
// right away. So it is for a mask, where NumPy would call the loop for each stretch of elements.
#include "math/short_call.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "lanes/control.h"
#include "math/loops.h"

namespace orvik::python {
namespace {

constexpr uint32_t kWatched = kSevereFlags | kUnderflowFlag;

vectorcallfunc numpy_call = nullptr;

// What the errstate of this thread wants of flags that a call raised. False: an exception is set.
#ifdef PyUFunc_handlefperr
constexpr bool kHandles = true;
bool handle(const PyUFuncObject* u, uint32_t flags) {
  int buffer, mask, first = 1;
  PyObject* object = nullptr;
  if (PyUFunc_GetPyValues(const_cast<char*>(u->name), &buffer, &mask, &object) < 0) return false;
  const int status = ((flags & kDivideByZeroFlag) != 0 ? UFUNC_FPE_DIVIDEBYZERO : 0) |
                     ((flags & kOverflowFlag) != 0 ? UFUNC_FPE_OVERFLOW : 0) |
                     ((flags & kUnderflowFlag) != 0 ? UFUNC_FPE_UNDERFLOW : 0) |
                     ((flags & kInvalidFlag) != 0 ? UFUNC_FPE_INVALID : 0);
  const bool fine = mask == 0 || PyUFunc_handlefperr(mask, object, status, &first) >= 0;
  Py_XDECREF(object);
  return fine;
}
#else
constexpr bool kHandles = false;
bool handle(const PyUFuncObject*, uint32_t) { return true; }
#endif

bool same_shape(PyArrayObject* a, PyArrayObject* b) {
  return PyArray_NDIM(a) == PyArray_NDIM(b) &&
         std::equal(PyArray_DIMS(a), PyArray_DIMS(a) + PyArray_NDIM(a), PyArray_DIMS(b));
}

// Where an array lies whose n elements one step leads through: one in C order, or a vector.
struct Place {
  const char *first, *last;
  int64_t step;

  bool finds(PyArrayObject* a, npy_intp n) {
    step = PyArray_ITEMSIZE(a);
    const bool plain = PyArray_ISCARRAY_RO(a);
    if (!plain) {
      if (PyArray_NDIM(a) != 1 || !PyArray_ISBEHAVED_RO(a)) return false;
      step = PyArray_STRIDE(a, 0);
    }
    first = last = PyArray_BYTES(a);
    const int64_t way = (n - 1) * step;
    (way < 0 ? first : last) += way;
    last += PyArray_ITEMSIZE(a);
    return true;
  }
  bool meets(const Place& other) const { return first < other.last && other.first < last; }
};

// A number among the arguments: of Python's, a scalar of NumPy's, or an array without dimensions.
struct Number {
  double re = 0, im = 0;
  char type = 0;        // of what it is: 'f', 'd', 'F', 'D', or 'l', an integer; 0: none of these
  bool weak = false;    // of Python's: it takes the type of an array beside it

  static Number of(PyObject* x) {
    if (PyFloat_CheckExact(x)) return {PyFloat_AS_DOUBLE(x), 0, 'd', true};
    if (PyLong_CheckExact(x)) {
      constexpr long long kMost = 1LL << 53;  // which a double holds
      int overflow = 0;
      const long long value = PyLong_AsLongLongAndOverflow(x, &overflow);
      if (overflow != 0 || value > kMost || value < -kMost) return {};
      return {static_cast<double>(value), 0, 'l', true};
    }
    if (PyComplex_CheckExact(x)) return {PyComplex_RealAsDouble(x), PyComplex_ImagAsDouble(x), 'D', true};
    const PyTypeObject* const type = Py_TYPE(x);
    if (type == &PyDoubleArrType_Type) return {PyArrayScalar_VAL(x, Double), 0, 'd', false};
    if (type == &PyFloatArrType_Type) return at(&PyArrayScalar_VAL(x, Float), 'f');
    if (type == &PyCDoubleArrType_Type) return at(&PyArrayScalar_VAL(x, CDouble), 'D');
    if (type == &PyCFloatArrType_Type) return at(&PyArrayScalar_VAL(x, CFloat), 'F');
    if (!PyArray_CheckExact(x)) return {};
    auto* const array = reinterpret_cast<PyArrayObject*>(x);
    if (PyArray_NDIM(array) != 0 || !PyArray_ISBEHAVED_RO(array)) return {};
    return at(PyArray_DATA(array), PyArray_DESCR(array)->type);
  }

  // As an element of that type beside arrays of it (`beside`) or only numbers. False where NumPy would take another
  // type, or the conversion might raise a flag.
  bool becomes(char wanted, bool beside, char* to) const {
    const bool narrow = wanted == 'f' || wanted == 'F', wide = wanted == 'd' || wanted == 'D';
    const bool complex = wanted == 'F' || wanted == 'D';
    if (!narrow && !wide) return false;
    if (type != wanted) {
      if (!weak || (!complex && type == 'D')) return false;
      if (narrow && !(beside && survives(re) && survives(im))) return false;
    }
    if (wanted == 'f') return put<1>(static_cast<float>(re), 0.0F, to);
    if (wanted == 'd') return put<1>(re, 0.0, to);
    return narrow ? put<2>(static_cast<float>(re), static_cast<float>(im), to) : put<2>(re, im, to);
  }

 private:
  static Number at(const void* data, char type) {
    const auto* const narrow = static_cast<const float*>(data);
    const auto* const wide = static_cast<const double*>(data);
    switch (type) {
      case 'f':
        return {double{narrow[0]}, 0, 'f', false};
      case 'F':
        return {double{narrow[0]}, double{narrow[1]}, 'F', false};
      case 'd':
        return {wide[0], 0, 'd', false};
      case 'D':
        return {wide[0], wide[1], 'D', false};
      default:
        return {};
    }
  }
  // Whether a float takes it as any number of its range. NumPy may take a wider type for integers of more than 16 bits,
  // and for parts of complex numbers that are not finite.
  bool survives(double x) const {
    if (x == 0) return true;
    if (type == 'l') return x >= -0x1p15 && x < 0x1p16;
    if (!std::isfinite(x)) return type == 'd';
    return std::fabs(x) < 3e38 && std::fabs(x) > 2e-38;
  }
  template <int parts, class E>
  static bool put(E re, E im, char* to) {
    const E values[] = {re, im};
    std::memcpy(to, values, parts * sizeof(E));
    return true;
  }
};

// The operands of one call, inputs first: arrays, borrowed but for the results, and numbers.
struct Call {
  Call(int in, int out) : inputs(in), results(out) {}

  PyArrayObject* arrays[kMostArrays] = {};  // null: a number
  Place places[kMostArrays];
  alignas(16) char numbers[kMostArrays][2 * sizeof(double)];
  PyArrayObject* shape = nullptr;  // an array of the inputs; null where all are numbers
  PyArrayObject* mask = nullptr;   // null: all elements
  const Loop* loop = nullptr;
  npy_intp n = 1;
  int inputs, results;
  int made = 0;  // results that are held

  bool takes(PyUFuncObject* u, PyObject* const* arguments) {
    Number scalars[kMostArrays];
    char type = 0;
    for (int k = 0; k < inputs; ++k) {
      if (PyArray_CheckExact(arguments[k]) && PyArray_NDIM(reinterpret_cast<PyArrayObject*>(arguments[k])) > 0) {
        arrays[k] = reinterpret_cast<PyArrayObject*>(arguments[k]);
        if (shape == nullptr) {
          shape = arrays[k];
          n = PyArray_SIZE(shape);
        } else if (PyArray_TYPE(arrays[k]) != PyArray_TYPE(shape) || !same_shape(shape, arrays[k])) {
          return false;
        }
        if (!places[k].finds(arrays[k], n)) return false;
      } else if (scalars[k] = Number::of(arguments[k]); scalars[k].type == 0) {
        return false;
      } else if (type == 0 || scalars[k].type == 'D') {
        type = scalars[k].type == 'l' ? 'd' : scalars[k].type;
      }
    }
    if (shape != nullptr) type = PyArray_DESCR(shape)->type;
    int which = 0;
    while (which < u->ntypes && type_of(u, which) != type) ++which;
    if (which == u->ntypes) return false;
    for (int k = 0; k < inputs; ++k) {
      if (arrays[k] == nullptr && !scalars[k].becomes(type, shape != nullptr, numbers[k])) return false;
    }
    loop = static_cast<const Loop*>(u->data[which]);
    types_ = u->types + which * u->nargs;
    return true;
  }

  // Which elements are computed.
  bool chooses(PyObject* where) {
    if (!PyArray_CheckExact(where) || shape == nullptr) return false;
    mask = reinterpret_cast<PyArrayObject*>(where);
    return PyArray_TYPE(mask) == NPY_BOOL && PyArray_ISCARRAY_RO(mask) && same_shape(shape, mask);
  }

  // Results of the caller's, or new ones where there are none.
  bool holds(PyObject* const* given) {
    for (int r = 0; r < results; ++r) {
      const int at = inputs + r;
      if (given == nullptr) {
        const int dimensions = shape != nullptr ? PyArray_NDIM(shape) : 0;
        npy_intp* const lengths = shape != nullptr ? PyArray_DIMS(shape) : nullptr;
        PyObject* const fresh = PyArray_EMPTY(dimensions, lengths, types_[inputs + r], 0);
        if (fresh == nullptr) {
          PyErr_Clear();
          return false;
        }
        arrays[at] = reinterpret_cast<PyArrayObject*>(fresh);
        ++made;
        places[at].finds(arrays[at], n);
        continue;
      }
      if (!PyArray_CheckExact(given[r]) || shape == nullptr) return false;
      auto* const result = reinterpret_cast<PyArrayObject*>(given[r]);
      if (PyArray_TYPE(result) != types_[at] || !PyArray_ISWRITEABLE(result) || !same_shape(shape, result) ||
          !places[at].finds(result, n) || (places[at].step == 0 && n > 1))
        return false;
      for (int k = 0; k < inputs; ++k) {
        if (arrays[k] != nullptr && !may_write(at, k)) return false;
      }
      if (mask != nullptr) {
        Place chosen;
        if (!chosen.finds(mask, n) || places[at].meets(chosen)) return false;
      }
      if (r > 0 && places[at].meets(places[inputs])) return false;
      Py_INCREF(result);
      arrays[at] = result;
      ++made;
    }
    return true;
  }

  Arrays operands() {
    Arrays x;
    for (int k = 0; k < inputs + results; ++k) {
      x.at[k] = arrays[k] != nullptr ? PyArray_BYTES(arrays[k]) : numbers[k];
      x.step[k] = arrays[k] != nullptr ? places[k].step : 0;
    }
    if (loop->swapped) {
      std::swap(x.at[1], x.at[2]);
      std::swap(x.step[1], x.step[2]);
    }
    return x;
  }

  void release() {
    while (made > 0) Py_DECREF(arrays[inputs + --made]);
  }

  // The result or the pair of them; those without dimensions as scalars.
  PyObject* take() {
    PyObject* taken[kMostArrays];
    for (int r = 0; r < results; ++r) {
      taken[r] = shape != nullptr ? reinterpret_cast<PyObject*>(arrays[inputs + r]) : PyArray_Return(arrays[inputs + r]);
    }
    made = 0;
    if (results == 1) return taken[0];
    PyObject* const pair = taken[0] != nullptr && taken[1] != nullptr ? PyTuple_New(2) : nullptr;
    if (pair == nullptr) {
      Py_XDECREF(taken[0]);
      Py_XDECREF(taken[1]);
      return nullptr;
    }
    PyTuple_SET_ITEM(pair, 0, taken[0]);
    PyTuple_SET_ITEM(pair, 1, taken[1]);
    return pair;
  }

 private:
  // A result may take the place of an argument as it is, or lie apart.
  bool may_write(int result, int argument) const {
    const Place &r = places[result], &a = places[argument];
    return !r.meets(a) || (kHandles && r.first == a.first && r.last == a.last && r.step == a.step);
  }

  static char type_of(const PyUFuncObject* u, int which) {
    switch (u->types[which * u->nargs]) {
      case NPY_FLOAT:
        return 'f';
      case NPY_DOUBLE:
        return 'd';
      case NPY_CFLOAT:
        return 'F';
      case NPY_CDOUBLE:
        return 'D';
      default:
        return 0;
    }
  }

  const char* types_ = nullptr;
};

// A caller's names are interned, as a rule.
PyObject *out_name = nullptr, *where_name = nullptr;
bool is(PyObject* name, PyObject* own) { return name == own || PyUnicode_Compare(name, own) == 0; }

// Results and mask that a call gives: null where there are none. False where they are given in any other way.
bool reads(const Call& x, PyObject* const* arguments, Py_ssize_t count, PyObject* names, PyObject* const** given,
           PyObject** where) {
  *given = count > x.inputs ? arguments + x.inputs : nullptr;
  *where = nullptr;
  if (count != x.inputs && count != x.inputs + x.results) return false;
  const Py_ssize_t named = names != nullptr ? PyTuple_GET_SIZE(names) : 0;
  for (Py_ssize_t k = 0; k < named; ++k) {
    PyObject* const* const value = arguments + count + k;
    PyObject* const name = PyTuple_GET_ITEM(names, k);
    if (is(name, where_name)) {
      *where = *value;
    } else if (!is(name, out_name) || *given != nullptr) {
      return false;
    } else if (PyTuple_CheckExact(*value)) {
      if (PyTuple_GET_SIZE(*value) != x.results) return false;
      *given = reinterpret_cast<PyTupleObject*>(*value)->ob_item;
    } else if (x.results == 1) {
      *given = value;
    } else {
      return false;
    }
  }
  return true;
}

// The result, as a new reference. Null where an exception is set; also, without one, where the call is not of this kind
// or meets anything unusual.
PyObject* short_call(PyUFuncObject* u, PyObject* const* arguments, Py_ssize_t count, PyObject* names) {
  Call x(u->nin, u->nout);
  PyObject* const* given;
  PyObject* where;
  if (!reads(x, arguments, count, names, &given, &where) || !x.takes(u, arguments)) return nullptr;
  if (where != nullptr && !x.chooses(where)) return nullptr;
  const npy_intp n = x.n;
  if (n == 0 || !x.holds(given)) {
    x.release();
    return nullptr;
  }
  const Arrays operands = x.operands();
  PyThreadState* const thread = n > x.loop->locked ? PyEval_SaveThread() : nullptr;
  const uint32_t before = read_control();
  if ((before & kWatched) != 0) write_control(before & ~kWatched);
  const orvik_status status = run(*x.loop, n, operands, x.mask != nullptr ? PyArray_BYTES(x.mask) : nullptr);
  const uint32_t flags = read_control() & kWatched;
  if (thread != nullptr) PyEval_RestoreThread(thread);
  PyObject* result = nullptr;
  // Without a way to ask the errstate, NumPy computes the same once more.
  if (status >= 0 && (flags == 0 || (kHandles && handle(u, flags)))) result = x.take();
  x.release();
  return result;
}

PyObject* call(PyObject* ufunc, PyObject* const* arguments, size_t flags, PyObject* names) {
  PyObject* const result =
      short_call(reinterpret_cast<PyUFuncObject*>(ufunc), arguments, PyVectorcall_NARGS(flags), names);
  return result != nullptr || PyErr_Occurred() != nullptr ? result : numpy_call(ufunc, arguments, flags, names);
}

}  // namespace

void add_short_call(PyObject* ufunc) {
  auto* const u = reinterpret_cast<PyUFuncObject*>(ufunc);
  const Loop& loop = *static_cast<const Loop*>(u->data[0]);
  if (loop.parameters != Parameters::kNone || u->vectorcall == nullptr) return;
  if (out_name == nullptr) out_name = PyUnicode_InternFromString("out");
  if (where_name == nullptr) where_name = PyUnicode_InternFromString("where");
  if (out_name == nullptr || where_name == nullptr) return PyErr_Clear();
  numpy_call = u->vectorcall;
  u->vectorcall = call;
}

}  // namespace orvik::python
