// Tridiagonal systems without pivoting, for matrices whose diagonal dominates.
//
// Arguments by reference, columns of right sides `ldb` apart, 64-bit integers. `dl` and `du` have n - 1 elements, `d`
// has n. `info`: 0, -k when argument k is bad, i when pivot i (from 1) is zero or too small to invert.
#ifndef ORVIK_SRC_SERV_TRIDIAGONAL_H
#define ORVIK_SRC_SERV_TRIDIAGONAL_H

#include <stdint.h>

// Exported also where the library itself is built with hidden visibility.
#pragma GCC visibility push(default)
extern "C" {

// A = L U in place: dl stays, d becomes the reciprocals of the pivots, du the upper diagonal over the pivots.
void ddttrfb_4dfl(const int64_t* n, double* dl, double* d, double* du, int64_t* info);
void sdttrfb_4dfl(const int64_t* n, float* dl, float* d, float* du, int64_t* info);

// Solves with that factorization for nrhs columns of b, in place. `trans` is 'N'.
void ddttrsb_4dfl(const char* trans, const int64_t* n, const int64_t* nrhs, const double* dl, const double* d,
                  const double* du, double* b, const int64_t* ldb, int64_t* info);
void sdttrsb_4dfl(const char* trans, const int64_t* n, const int64_t* nrhs, const float* dl, const float* d,
                  const float* du, float* b, const int64_t* ldb, int64_t* info);

// Factors and solves in one step, with the bits of the two above.
void ddtsvb_4dfl(const int64_t* n, const int64_t* nrhs, double* dl, double* d, double* du, double* b,
                 const int64_t* ldb, int64_t* info);
void sdtsvb_4dfl(const int64_t* n, const int64_t* nrhs, float* dl, float* d, float* du, float* b, const int64_t* ldb,
                 int64_t* info);
}
#pragma GCC visibility pop

#endif
