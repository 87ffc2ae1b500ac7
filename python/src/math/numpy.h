// NumPy's headers for the files of this module; one of them, the module's, holds the tables of its functions.
#pragma once

#include <Python.h>

#define PY_UFUNC_UNIQUE_SYMBOL orvik_ufunc_api
#define PY_ARRAY_UNIQUE_SYMBOL orvik_array_api
#ifndef ORVIK_HOLDS_NUMPY_TABLES
#define NO_IMPORT_ARRAY
#define NO_IMPORT_UFUNC
#endif
#include <numpy/ndarrayobject.h>
#include <numpy/arrayscalars.h>
#include <numpy/ufuncobject.h>
