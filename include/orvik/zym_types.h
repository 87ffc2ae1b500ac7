/* Types of the vector functions: complex elements, levels, the mode word, error reports. */
#ifndef ORVIK_ZYM_TYPES_H
#define ORVIK_ZYM_TYPES_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Complex elements. */
typedef struct ZymComplexFloat {
  float re, im; /* real part, imaginary part */
} ZymComplexFloat;
typedef struct ZymComplexDouble {
  double re, im; /* real part, imaginary part */
} ZymComplexDouble;

/* Fields of the mode word. */
enum {
  /* Accuracy level: index + 1 of a kernel in its dispatch table row. */
  ZYM_LA = 0x1, /* lower accuracy: within 4 ulp */
  ZYM_HA = 0x2, /* high accuracy: within 1 ulp */
  ZYM_EP = 0x3, /* enhanced performance: half of the bits */
  /* Consistency: held and returned, read by no kernel; comes in only through the environment. */
  ZYM_FLOAT_CONSISTENT = 0x10,
  ZYM_DOUBLE_CONSISTEN = 0x20,
  ZYM_RESTORE = 0x30,
  /* What a reported element causes. */
  ZYM_ERRMODE_IGNORE = 0x100,
  ZYM_ERRMODE_ERRNO = 0x200,
  ZYM_ERRMODE_STDERR = 0x400,
  ZYM_ERRMODE_EXCEPT = 0x800,
  ZYM_ERRMODE_CALLBACK = 0x1000,
  ZYM_ERRMODE_NOERR = 0x2000,
  ZYM_ERRMODE_DEFAULT = 0x1A00,
  /* Denormal handling: this value flushes, any other does not. */
  ZYM_FLUSH_DENORMALS = 0x280000,
  /* Traps of ZYM_ERRMODE_EXCEPT. */
  ZYM_TRAP_INVALID = 0x1000000,
  ZYM_TRAP_DIVBYZERO = 0x2000000,
  ZYM_TRAP_OVERFLOW = 0x4000000,
  ZYM_TRAP_UNDERFLOW = 0x8000000
};

/* Codes of reported elements. The negative ones are the calling layer's. */
enum {
  zymErrorBadAccess = -2,
  zymErrorBadArgument = -1,
  zymErrorDomain = 1,
  zymErrorSingularity = 2,
  zymErrorOverflow = 3,
  zymErrorUnderflow = 4
};

/* One reported element, as a callback sees it. 32-bit values are widened. A function of one argument passes it twice,
 * likewise one result; result1 decides what is written back. */
typedef struct ZymErrorContext {
  int32_t code;               /* zymErrorDomain ... zymErrorUnderflow */
  int32_t index;              /* in the whole vector, see _zymSetInterfInputVectorPointer */
  double arg1, arg2;          /* the element's arguments, of complex functions their real parts */
  double result1, result2;    /* its results, which a callback may change */
  char functionName[64];      /* NUL-terminated */
  int32_t functionNameLength; /* without the NUL */
  double arg1Imag, arg2Imag, result1Imag, result2Imag; /* complex functions only */
} ZymErrorContext;

/* Returns 0 to let the standard handling go on (and result1, result2 be written back), anything else when the element
 * has been handled. */
typedef int32_t (*ZymErrorCallback)(ZymErrorContext* context);

/* A table row is patched in the library's own copy. A weak reference is always resolved through the global offset
 * table, where a plain one may be compiled to a copy relocation, that is, to a table of the program's own. It does not
 * make the linker take the library: the flags of the CMake targets and of pkg-config do. */
#define ORVIK_TABLE extern __attribute__((weak))

#ifdef __cplusplus
}
#endif

#endif
