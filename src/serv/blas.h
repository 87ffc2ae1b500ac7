// BLAS and LAPACK, any package, behind one typed interface over the standard Fortran one (32-bit integers).
//
// Nothing is linked: the package is bound at first use, since some start threads as soon as they are loaded. Symbols
// that the process already has come first; otherwise the libraries named at configure time (ORVIK_BLAS_LIBRARY,
// ORVIK_LAPACK_LIBRARY) are loaded, and stay loaded.
//
// Matrices are column-major, arguments as in the reference documentation (Dongarra et al. 1990, Anderson et al. 1999).
#ifndef ORVIK_SRC_SERV_BLAS_H
#define ORVIK_SRC_SERV_BLAS_H

#include <stdint.h>

#include <type_traits>

namespace orvik::serv::blas {

// Binds the package. False when a library or a routine is missing; the next call looks again. Cheap once bound.
bool load();

// For tests: as if no package were installed.
void pretend_missing(bool missing);

// What a routine returns when load() does. LAPACK's own answers are small.
inline constexpr int32_t kMissing = INT32_MIN;

// A scalar argument that does not take part in finding T.
template <typename T>
using Scalar = std::type_identity_t<T>;

// The routines of BLAS: 0, or kMissing and nothing done. For T = float and double.

// C = alpha op(A) op(B) + beta C
template <typename T>
int32_t gemm(char transa, char transb, int32_t m, int32_t n, int32_t k, Scalar<T> alpha, const T* a, int32_t lda,
             const T* b, int32_t ldb, Scalar<T> beta, T* c, int32_t ldc);
// y = alpha op(A) x + beta y
template <typename T>
int32_t gemv(char trans, int32_t m, int32_t n, Scalar<T> alpha, const T* a, int32_t lda, const T* x, int32_t incx,
             Scalar<T> beta, T* y, int32_t incy);
// C = alpha A B + beta C or alpha B A + beta C, A symmetric
template <typename T>
int32_t symm(char side, char uplo, int32_t m, int32_t n, Scalar<T> alpha, const T* a, int32_t lda, const T* b,
             int32_t ldb, Scalar<T> beta, T* c, int32_t ldc);
// A = alpha x x' + A
template <typename T>
int32_t syr(char uplo, int32_t n, Scalar<T> alpha, const T* x, int32_t incx, T* a, int32_t lda);
// C = alpha A A' + beta C or alpha A' A + beta C
template <typename T>
int32_t syrk(char uplo, char trans, int32_t n, int32_t k, Scalar<T> alpha, const T* a, int32_t lda, Scalar<T> beta,
             T* c, int32_t ldc);
// B = alpha op(A) B or alpha B op(A), A triangular
template <typename T>
int32_t trmm(char side, char uplo, char transa, char diag, int32_t m, int32_t n, Scalar<T> alpha, const T* a,
             int32_t lda, T* b, int32_t ldb);
// x = op(A) x, A triangular and packed
template <typename T>
int32_t tpmv(char uplo, char trans, char diag, int32_t n, const T* ap, T* x, int32_t incx);

// The routines of LAPACK return its `info`, or kMissing.

// Cholesky factor of a positive definite matrix; info > 0: the order of the minor that is not positive
template <typename T>
int32_t potrf(char uplo, int32_t n, T* a, int32_t lda);
// Inverse from the Cholesky factor
template <typename T>
int32_t potri(char uplo, int32_t n, T* a, int32_t lda);
// Inverse of a triangular matrix
template <typename T>
int32_t trtri(char uplo, char diag, int32_t n, T* a, int32_t lda);
// Eigenvalues, and eigenvectors with jobz 'V', of a symmetric matrix; lwork = -1 asks for the best size in work[0]
template <typename T>
int32_t syev(char jobz, char uplo, int32_t n, T* a, int32_t lda, T* w, T* work, int32_t lwork);
// The same of a packed symmetric matrix, by divide and conquer
template <typename T>
int32_t spevd(char jobz, char uplo, int32_t n, T* ap, T* w, T* z, int32_t ldz, T* work, int32_t lwork, int32_t* iwork,
              int32_t liwork);

}  // namespace orvik::serv::blas

#endif
