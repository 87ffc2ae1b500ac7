// The extension module orvik._math.
#include <Python.h>

#include "orvik/front.h"

namespace {
PyModuleDef definition = {PyModuleDef_HEAD_INIT, "orvik._math", nullptr, -1, nullptr, nullptr, nullptr, nullptr, nullptr};
}

PyMODINIT_FUNC PyInit__math() {
  PyObject* const module = PyModule_Create(&definition);
  if (module == nullptr) return nullptr;
  PyModule_AddStringConstant(module, "__version__", orvik_version());
  PyModule_AddObject(module, "__all__", PyList_New(0));
  return module;
}
