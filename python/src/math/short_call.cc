// What NumPy does around a loop takes as long as hundreds of elements. Where there is nothing for it to do, since all
// operands are plain arrays of the loop's type and of one shape, in order, apart from each other, the loop is called
// right away.
#include "math/short_call.h"

#include <algorithm>
#include <utility>

#include "lanes/control.h"
#include "math/flags.h"
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

bool apart(PyArrayObject* a, PyArrayObject* b) {
  const char *const first = PyArray_BYTES(a), *const second = PyArray_BYTES(b);
  return first + PyArray_NBYTES(a) <= second || second + PyArray_NBYTES(b) <= first;
}

// A result may take the place of an argument as it is, or lie apart.
bool may_write(PyArrayObject* result, PyArrayObject* argument) {
  const bool same = PyArray_BYTES(result) == PyArray_BYTES(argument) && PyArray_TYPE(result) == PyArray_TYPE(argument);
  return (kHandles && same) || apart(result, argument);
}

// The arrays of one call, inputs first: borrowed but for the results.
struct Call {
  Call(int in, int out) : inputs(in), results(out) {}

  PyArrayObject* arrays[kMostArrays] = {};
  const Loop* loop = nullptr;
  int inputs, results;
  int made = 0;  // results that are held

  bool takes(PyUFuncObject* u, PyObject* const* arguments) {
    for (int k = 0; k < inputs; ++k) {
      if (!PyArray_CheckExact(arguments[k])) return false;
      arrays[k] = reinterpret_cast<PyArrayObject*>(arguments[k]);
    }
    const int type = PyArray_TYPE(arrays[0]);
    if (PyArray_NDIM(arrays[0]) == 0) return false;
    for (int k = 0; k < inputs; ++k) {
      if (PyArray_TYPE(arrays[k]) != type || !PyArray_ISCARRAY_RO(arrays[k]) || !same_shape(arrays[0], arrays[k]))
        return false;
    }
    int which = 0;
    while (which < u->ntypes && u->types[which * u->nargs] != type) ++which;
    if (which == u->ntypes) return false;
    loop = static_cast<const Loop*>(u->data[which]);
    types_ = u->types + which * u->nargs;
    return true;
  }

  // Results of the caller's, or new ones where there are none.
  bool holds(PyObject* const* given) {
    for (int r = 0; r < results; ++r) {
      if (given == nullptr) {
        PyObject* const fresh = PyArray_EMPTY(PyArray_NDIM(arrays[0]), PyArray_DIMS(arrays[0]), types_[inputs + r], 0);
        if (fresh == nullptr) {
          PyErr_Clear();
          return false;
        }
        arrays[inputs + made++] = reinterpret_cast<PyArrayObject*>(fresh);
        continue;
      }
      if (!PyArray_CheckExact(given[r])) return false;
      auto* const result = reinterpret_cast<PyArrayObject*>(given[r]);
      if (PyArray_TYPE(result) != types_[inputs + r] || !PyArray_ISCARRAY(result) || !same_shape(arrays[0], result))
        return false;
      for (int k = 0; k < inputs; ++k) {
        if (!may_write(result, arrays[k])) return false;
      }
      if (r > 0 && !apart(result, arrays[inputs])) return false;
      Py_INCREF(result);
      arrays[inputs + made++] = result;
    }
    return true;
  }

  void release() {
    while (made > 0) Py_DECREF(arrays[inputs + --made]);
  }

  PyObject* take() {
    auto* const first = reinterpret_cast<PyObject*>(arrays[inputs]);
    made = 0;
    if (results == 1) return first;
    PyObject* const pair = PyTuple_New(2);
    if (pair == nullptr) {
      made = results;
      return nullptr;
    }
    PyTuple_SET_ITEM(pair, 0, first);
    PyTuple_SET_ITEM(pair, 1, reinterpret_cast<PyObject*>(arrays[inputs + 1]));
    return pair;
  }

 private:
  const char* types_ = nullptr;
};

// The result, as a new reference. Null where an exception is set; also, without one, where the call is not of this kind
// or meets anything unusual.
PyObject* short_call(PyUFuncObject* u, PyObject* const* arguments, Py_ssize_t count, PyObject* names) {
  Call x(u->nin, u->nout);
  PyObject* const* given = arguments + x.inputs;
  if (names != nullptr) {
    if (PyTuple_GET_SIZE(names) != 1 || count != x.inputs) return nullptr;
    if (PyUnicode_CompareWithASCIIString(PyTuple_GET_ITEM(names, 0), "out") != 0) return nullptr;
    if (PyTuple_CheckExact(*given)) {
      if (PyTuple_GET_SIZE(*given) != x.results) return nullptr;
      given = reinterpret_cast<PyTupleObject*>(*given)->ob_item;
    } else if (x.results != 1) {
      return nullptr;
    }
  } else if (count == x.inputs) {
    given = nullptr;
  } else if (count != x.inputs + x.results) {
    return nullptr;
  }
  if (!x.takes(u, arguments)) return nullptr;
  const npy_intp n = PyArray_SIZE(x.arrays[0]);
  if (n == 0 || !x.holds(given)) {
    x.release();
    return nullptr;
  }
  char* at[kMostArrays];
  for (int k = 0; k < x.inputs + x.results; ++k) at[k] = PyArray_BYTES(x.arrays[k]);
  if (x.loop->swapped) std::swap(at[1], at[2]);
  PyThreadState* const thread = n > x.loop->locked ? PyEval_SaveThread() : nullptr;
  const uint32_t before = read_control();
  if ((before & kWatched) != 0) write_control(before & ~kWatched);
  const orvik_status status = call_with_flags(*x.loop, n, at, nullptr, nullptr);
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
  numpy_call = u->vectorcall;
  u->vectorcall = call;
}

}  // namespace orvik::python
