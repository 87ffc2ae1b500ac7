// The extension module orvik._math: ufuncs, the level of accuracy of the thread, the number of threads.
#define ORVIK_HOLDS_NUMPY_TABLES
#include "math/error.h"
#include "math/loops.h"
#include "math/numpy.h"
#include "math/short_call.h"

namespace orvik::python {

void raise_from_loop(orvik_status status) {
  const PyGILState_STATE lock = PyGILState_Ensure();
  PyErr_SetString(status == ORVIK_ERROR_NO_MEMORY ? PyExc_MemoryError : PyExc_RuntimeError, orvik_status_text(status));
  PyGILState_Release(lock);
}

namespace {

int number_of(char type) {
  switch (type) {
    case 'f':
      return NPY_FLOAT;
    case 'd':
      return NPY_DOUBLE;
    case 'F':
      return NPY_CFLOAT;
    case 'D':
      return NPY_CDOUBLE;
    default:
      return NPY_LONG;
  }
}

// NumPy keeps the arrays that it is given, so these live as long as the process.
PyObject* make_ufunc(const Ufunc& u) {
  const Loop& first = u.loops[0];
  const int extra = first.parameters == Parameters::kFraction ? 4 : first.parameters == Parameters::kNone ? 0 : 1;
  const int inputs = first.inputs + extra, operands = inputs + first.results;
  auto* const functions = new PyUFuncGenericFunction[size_t(u.count)];
  auto* const data = new void*[size_t(u.count)];
  auto* const types = new char[size_t(u.count * operands)];
  for (int k = 0; k < u.count; ++k) {
    functions[k] = run_loop;
    data[k] = const_cast<Loop*>(&u.loops[k]);
    for (int p = 0; p < operands; ++p) types[k * operands + p] = static_cast<char>(number_of(u.loops[k].types[p]));
  }
  PyObject* const ufunc =
      PyUFunc_FromFuncAndData(functions, data, types, u.count, inputs, first.results, u.identity, u.name, u.doc, 0);
  if (ufunc != nullptr) add_short_call(ufunc);
  return ufunc;
}

PyObject* get_accuracy(PyObject*, PyObject*) { return PyLong_FromLong(accuracy); }

PyObject* set_accuracy(PyObject*, PyObject* level) {
  const long value = PyLong_AsLong(level);
  if (value == -1 && PyErr_Occurred()) return nullptr;
  if (value < ORVIK_HA || value > ORVIK_EP) {
    PyErr_SetString(PyExc_ValueError, orvik_status_text(ORVIK_ERROR_BAD_ACCURACY));
    return nullptr;
  }
  const int32_t before = accuracy;
  accuracy = static_cast<int32_t>(value);
  return PyLong_FromLong(before);
}

PyObject* get_num_threads(PyObject*, PyObject*) { return PyLong_FromLong(orvik_get_num_threads()); }

PyObject* set_num_threads(PyObject*, PyObject* threads) {
  PyObject* const index = PyNumber_Index(threads);
  if (index == nullptr) return nullptr;
  int overflow;
  const long value = PyLong_AsLongAndOverflow(index, &overflow);
  Py_DECREF(index);
  if (overflow != 0 || value < 0 || value > INT32_MAX) {
    PyErr_SetString(PyExc_ValueError, "the number of threads must be 0, for as many as pay, or more");
    return nullptr;
  }
  orvik_set_num_threads(static_cast<int32_t>(value));
  Py_RETURN_NONE;
}

PyMethodDef methods[] = {
    {"get_num_threads", get_num_threads, METH_NOARGS,
     "get_num_threads()\n--\n\nHow many threads a call uses at most.\n\nExamples\n--------\n>>> import orvik\n"
     ">>> orvik.get_num_threads() >= 1\nTrue"},
    {"set_num_threads", set_num_threads, METH_O,
     "set_num_threads(n, /)\n--\n\nLets calls use at most `n` threads; 0, as at the start: as many as the process may "
     "run on.\n\n"
     "It holds for the whole process. Results do not depend on it.\n\nExamples\n--------\n>>> import orvik\n"
     ">>> orvik.set_num_threads(1)\n>>> orvik.get_num_threads()\n1\n>>> orvik.set_num_threads(0)"},
    {"_get_accuracy", get_accuracy, METH_NOARGS, "The number of this thread's level."},
    {"_set_accuracy", set_accuracy, METH_O, "Sets this thread's level by its number and returns the one before."},
    {nullptr, nullptr, 0, nullptr}};

PyModuleDef definition = {PyModuleDef_HEAD_INIT,
                          "orvik._math",
                          "Ufuncs over the vector functions of orvik.",
                          -1,
                          methods,
                          nullptr,
                          nullptr,
                          nullptr,
                          nullptr};

// False with an exception set.
bool add_everything(PyObject* module) {
  PyObject* const names = PyList_New(0);
  if (names == nullptr || PyModule_AddObject(module, "__all__", names) < 0) return false;
  for (int k = 0; k < kUfuncCount; ++k) {
    PyObject* const ufunc = make_ufunc(kUfuncs[k]);
    if (ufunc == nullptr || PyModule_AddObject(module, kUfuncs[k].name, ufunc) < 0) return false;
    PyObject* const name = PyUnicode_FromString(kUfuncs[k].name);
    if (name == nullptr || PyList_Append(names, name) < 0) return false;
    Py_DECREF(name);
  }
  return PyModule_AddStringConstant(module, "__version__", orvik_version()) == 0;
}

}  // namespace
}  // namespace orvik::python

PyMODINIT_FUNC PyInit__math() {
  if (orvik_cpu_supported() == 0) {
    PyErr_SetString(PyExc_ImportError, orvik_status_text(ORVIK_ERROR_CPU));
    return nullptr;
  }
  import_array();
  import_umath();
  PyObject* const module = PyModule_Create(&orvik::python::definition);
  if (module == nullptr) return nullptr;
  if (!orvik::python::add_everything(module)) {
    Py_DECREF(module);
    return nullptr;
  }
  return module;
}
