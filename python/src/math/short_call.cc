// What NumPy does around a loop takes as long as hundreds of elements. Where there is nothing for it to do, since all
// operands are plain arrays of the loop's type and of one shape, in order, apart from each other, the loop is called
// right away.
#include "math/short_call.h"

#include <algorithm>
#include <cstring>

#include "lanes/control.h"
#include "math/flags.h"
#include "math/loops.h"

namespace orvik::python {
namespace {

constexpr npy_intp kMostElements = 1 << 14;
constexpr npy_intp kMostLocked = 500;  // up to which the interpreter's lock is kept, as NumPy does
constexpr uint32_t kWatched = kSevereFlags | kUnderflowFlag;

vectorcallfunc numpy_call = nullptr;

// Whether the errstate of this thread is indifferent to these flags.
bool ignored(uint32_t flags) {
  if (flags == 0) return true;
#ifdef PyUFunc_GetPyValues
  int buffer, mask;
  PyObject* object = nullptr;
  if (PyUFunc_GetPyValues(const_cast<char*>("orvik"), &buffer, &mask, &object) < 0) {
    PyErr_Clear();
    return false;
  }
  Py_XDECREF(object);
  const auto indifferent = [&](uint32_t flag, int shift) {
    return (flags & flag) == 0 || (mask >> shift & 7) == UFUNC_ERR_IGNORE;
  };
  return indifferent(kDivideByZeroFlag, UFUNC_SHIFT_DIVIDEBYZERO) && indifferent(kOverflowFlag, UFUNC_SHIFT_OVERFLOW) &&
         indifferent(kUnderflowFlag, UFUNC_SHIFT_UNDERFLOW) && indifferent(kInvalidFlag, UFUNC_SHIFT_INVALID);
#else
  return false;
#endif
}

bool same_shape(PyArrayObject* a, PyArrayObject* b) {
  return PyArray_NDIM(a) == PyArray_NDIM(b) &&
         std::equal(PyArray_DIMS(a), PyArray_DIMS(a) + PyArray_NDIM(a), PyArray_DIMS(b));
}

bool apart(PyArrayObject* a, PyArrayObject* b) {
  const char *const first = PyArray_BYTES(a), *const second = PyArray_BYTES(b);
  return first + PyArray_NBYTES(a) <= second || second + PyArray_NBYTES(b) <= first;
}

// The result, as a new reference; null with no exception set where the call is not of this kind or meets anything
// unusual.
PyObject* short_call(PyUFuncObject* u, PyObject* const* arguments, Py_ssize_t count, PyObject* names) {
  const int inputs = u->nin;
  if (names != nullptr) {
    if (PyTuple_GET_SIZE(names) != 1 || count != inputs) return nullptr;
    if (PyUnicode_CompareWithASCIIString(PyTuple_GET_ITEM(names, 0), "out") != 0) return nullptr;
    ++count;
  }
  if (count != inputs && count != inputs + 1) return nullptr;
  for (Py_ssize_t k = 0; k < count; ++k) {
    if (!PyArray_CheckExact(arguments[k])) return nullptr;
  }
  auto* const* const arrays = reinterpret_cast<PyArrayObject* const*>(arguments);
  PyArrayObject* const first = arrays[0];
  const int type = PyArray_TYPE(first);
  const npy_intp n = PyArray_SIZE(first);
  if (n == 0 || n > kMostElements || PyArray_NDIM(first) == 0) return nullptr;
  int which = 0;
  while (which < u->ntypes && u->types[which * u->nargs] != type) ++which;
  if (which == u->ntypes) return nullptr;
  const Loop& loop = *static_cast<const Loop*>(u->data[which]);
  for (int k = 0; k < inputs; ++k) {
    if (PyArray_TYPE(arrays[k]) != type || !PyArray_ISCARRAY_RO(arrays[k]) || !same_shape(first, arrays[k]))
      return nullptr;
  }
  const int result_type = u->types[which * u->nargs + inputs];
  PyArrayObject* result;
  if (count > inputs) {
    result = arrays[inputs];
    if (PyArray_TYPE(result) != result_type || !PyArray_ISCARRAY(result) || !same_shape(first, result)) return nullptr;
    for (int k = 0; k < inputs; ++k) {
      if (!apart(result, arrays[k])) return nullptr;
    }
    Py_INCREF(result);
  } else {
    result = reinterpret_cast<PyArrayObject*>(PyArray_EMPTY(PyArray_NDIM(first), PyArray_DIMS(first), result_type, 0));
    if (result == nullptr) {
      PyErr_Clear();
      return nullptr;
    }
  }
  char* at[kMostArrays];
  for (int k = 0; k < inputs; ++k) at[k] = PyArray_BYTES(arrays[k]);
  at[inputs] = PyArray_BYTES(result);
  PyThreadState* const thread = n > kMostLocked ? PyEval_SaveThread() : nullptr;
  const uint32_t before = read_control();
  if ((before & kWatched) != 0) write_control(before & ~kWatched);
  const orvik_status status = call_with_flags(loop, n, at, nullptr, nullptr);
  const uint32_t flags = read_control() & kWatched;
  if (thread != nullptr) PyEval_RestoreThread(thread);
  if (status >= 0 && ignored(flags)) return reinterpret_cast<PyObject*>(result);
  Py_DECREF(result);
  return nullptr;  // NumPy then computes the same once more, and knows what its errstate wants of the flags
}

PyObject* call(PyObject* ufunc, PyObject* const* arguments, size_t flags, PyObject* names) {
  PyObject* const result =
      short_call(reinterpret_cast<PyUFuncObject*>(ufunc), arguments, PyVectorcall_NARGS(flags), names);
  return result != nullptr ? result : numpy_call(ufunc, arguments, flags, names);
}

}  // namespace

void add_short_call(PyObject* ufunc) {
  auto* const u = reinterpret_cast<PyUFuncObject*>(ufunc);
  const Loop& loop = *static_cast<const Loop*>(u->data[0]);
  if (loop.parameters != Parameters::kNone || loop.results != 1 || u->vectorcall == nullptr) return;
  numpy_call = u->vectorcall;
  u->vectorcall = call;
}

}  // namespace orvik::python
