#include "serv/blas.h"

#include <dlfcn.h>
#include <stddef.h>
#include <stdio.h>

#include <atomic>

#include "orvik/serv.h"

namespace orvik::serv::blas {
namespace {

// Fortran compilers pass the length of each character argument by value behind all others; packages written in C do not
// look at it.
using Length = size_t;
using Char = const char*;
using Int = const int32_t*;

template <typename T>
struct Routines {
  void (*gemm)(Char, Char, Int, Int, Int, const T*, const T*, Int, const T*, Int, const T*, T*, Int, Length, Length);
  void (*gemv)(Char, Int, Int, const T*, const T*, Int, const T*, Int, const T*, T*, Int, Length);
  void (*symm)(Char, Char, Int, Int, const T*, const T*, Int, const T*, Int, const T*, T*, Int, Length, Length);
  void (*syr)(Char, Int, const T*, const T*, Int, T*, Int, Length);
  void (*syrk)(Char, Char, Int, Int, const T*, const T*, Int, const T*, T*, Int, Length, Length);
  void (*trmm)(Char, Char, Char, Char, Int, Int, const T*, const T*, Int, T*, Int, Length, Length, Length, Length);
  void (*tpmv)(Char, Char, Char, Int, const T*, T*, Int, Length, Length, Length);
  void (*potrf)(Char, Int, T*, Int, int32_t*, Length);
  void (*potri)(Char, Int, T*, Int, int32_t*, Length);
  void (*trtri)(Char, Char, Int, T*, Int, int32_t*, Length, Length);
  void (*syev)(Char, Char, Int, T*, Int, T*, T*, Int, int32_t*, Length, Length);
  void (*spevd)(Char, Char, Int, T*, T*, T*, Int, T*, Int, int32_t*, Int, int32_t*, Length, Length);
};

struct Package {
  Routines<float> s;
  Routines<double> d;
};

Package bound_package;
std::atomic<const Package*> current{nullptr};
std::atomic<bool> forbidden{false};
uint64_t publication;  // lock word

// One of the two libraries, loaded when a routine is not in the process already.
class Library {
 public:
  explicit Library(const char* file) : file_(file) {}

  template <typename Function>
  bool find(Function* function, char precision, const char* routine) {
    char name[16];
    snprintf(name, sizeof name, "%c%s_", precision, routine);
    void* symbol = dlsym(RTLD_DEFAULT, name);
    if (symbol == nullptr) {
      if (handle_ == nullptr) handle_ = dlopen(file_, RTLD_NOW | RTLD_LOCAL);
      if (handle_ != nullptr) symbol = dlsym(handle_, name);
    }
    *function = reinterpret_cast<Function>(symbol);
    return symbol != nullptr;
  }

 private:
  const char* file_;
  void* handle_ = nullptr;  // never closed: the routines are in use until the process ends
};

template <typename T>
bool find_all(char precision, Library& blas, Library& lapack, Routines<T>* r) {
  return blas.find(&r->gemm, precision, "gemm") && blas.find(&r->gemv, precision, "gemv") &&
         blas.find(&r->symm, precision, "symm") && blas.find(&r->syr, precision, "syr") &&
         blas.find(&r->syrk, precision, "syrk") && blas.find(&r->trmm, precision, "trmm") &&
         blas.find(&r->tpmv, precision, "tpmv") && lapack.find(&r->potrf, precision, "potrf") &&
         lapack.find(&r->potri, precision, "potri") && lapack.find(&r->trtri, precision, "trtri") &&
         lapack.find(&r->syev, precision, "syev") && lapack.find(&r->spevd, precision, "spevd");
}

// The lock is not held over dlopen, whose own lock another thread may hold while it waits for ours; two threads that
// bind at the same time find the same routines.
const Package* bind() {
  Library blas(ORVIK_BLAS_LIBRARY), lapack(ORVIK_LAPACK_LIBRARY);
  Package found;
  if (!find_all('s', blas, lapack, &found.s) || !find_all('d', blas, lapack, &found.d)) return nullptr;
  orvik_serv_lock(&publication);
  if (current.load(std::memory_order_relaxed) == nullptr) {
    bound_package = found;
    current.store(&bound_package, std::memory_order_release);
  }
  orvik_serv_unlock(&publication);
  return &bound_package;
}

const Package* package() {
  if (forbidden.load(std::memory_order_relaxed)) return nullptr;
  const Package* bound = current.load(std::memory_order_acquire);
  return bound != nullptr ? bound : bind();
}

template <typename T>
const Routines<T>* routines();
template <>
const Routines<float>* routines() {
  const Package* bound = package();
  return bound != nullptr ? &bound->s : nullptr;
}
template <>
const Routines<double>* routines() {
  const Package* bound = package();
  return bound != nullptr ? &bound->d : nullptr;
}

}  // namespace

bool load() { return package() != nullptr; }

void pretend_missing(bool missing) { forbidden.store(missing, std::memory_order_relaxed); }

template <typename T>
int32_t gemm(char transa, char transb, int32_t m, int32_t n, int32_t k, Scalar<T> alpha, const T* a, int32_t lda,
             const T* b, int32_t ldb, Scalar<T> beta, T* c, int32_t ldc) {
  const auto* r = routines<T>();
  if (r == nullptr) return kMissing;
  r->gemm(&transa, &transb, &m, &n, &k, &alpha, a, &lda, b, &ldb, &beta, c, &ldc, 1, 1);
  return 0;
}

template <typename T>
int32_t gemv(char trans, int32_t m, int32_t n, Scalar<T> alpha, const T* a, int32_t lda, const T* x, int32_t incx,
             Scalar<T> beta, T* y, int32_t incy) {
  const auto* r = routines<T>();
  if (r == nullptr) return kMissing;
  r->gemv(&trans, &m, &n, &alpha, a, &lda, x, &incx, &beta, y, &incy, 1);
  return 0;
}

template <typename T>
int32_t symm(char side, char uplo, int32_t m, int32_t n, Scalar<T> alpha, const T* a, int32_t lda, const T* b,
             int32_t ldb, Scalar<T> beta, T* c, int32_t ldc) {
  const auto* r = routines<T>();
  if (r == nullptr) return kMissing;
  r->symm(&side, &uplo, &m, &n, &alpha, a, &lda, b, &ldb, &beta, c, &ldc, 1, 1);
  return 0;
}

template <typename T>
int32_t syr(char uplo, int32_t n, Scalar<T> alpha, const T* x, int32_t incx, T* a, int32_t lda) {
  const auto* r = routines<T>();
  if (r == nullptr) return kMissing;
  r->syr(&uplo, &n, &alpha, x, &incx, a, &lda, 1);
  return 0;
}

template <typename T>
int32_t syrk(char uplo, char trans, int32_t n, int32_t k, Scalar<T> alpha, const T* a, int32_t lda, Scalar<T> beta,
             T* c, int32_t ldc) {
  const auto* r = routines<T>();
  if (r == nullptr) return kMissing;
  r->syrk(&uplo, &trans, &n, &k, &alpha, a, &lda, &beta, c, &ldc, 1, 1);
  return 0;
}

template <typename T>
int32_t trmm(char side, char uplo, char transa, char diag, int32_t m, int32_t n, Scalar<T> alpha, const T* a,
             int32_t lda, T* b, int32_t ldb) {
  const auto* r = routines<T>();
  if (r == nullptr) return kMissing;
  r->trmm(&side, &uplo, &transa, &diag, &m, &n, &alpha, a, &lda, b, &ldb, 1, 1, 1, 1);
  return 0;
}

template <typename T>
int32_t tpmv(char uplo, char trans, char diag, int32_t n, const T* ap, T* x, int32_t incx) {
  const auto* r = routines<T>();
  if (r == nullptr) return kMissing;
  r->tpmv(&uplo, &trans, &diag, &n, ap, x, &incx, 1, 1, 1);
  return 0;
}

template <typename T>
int32_t potrf(char uplo, int32_t n, T* a, int32_t lda) {
  const auto* r = routines<T>();
  int32_t info = kMissing;
  if (r != nullptr) r->potrf(&uplo, &n, a, &lda, &info, 1);
  return info;
}

template <typename T>
int32_t potri(char uplo, int32_t n, T* a, int32_t lda) {
  const auto* r = routines<T>();
  int32_t info = kMissing;
  if (r != nullptr) r->potri(&uplo, &n, a, &lda, &info, 1);
  return info;
}

template <typename T>
int32_t trtri(char uplo, char diag, int32_t n, T* a, int32_t lda) {
  const auto* r = routines<T>();
  int32_t info = kMissing;
  if (r != nullptr) r->trtri(&uplo, &diag, &n, a, &lda, &info, 1, 1);
  return info;
}

template <typename T>
int32_t syev(char jobz, char uplo, int32_t n, T* a, int32_t lda, T* w, T* work, int32_t lwork) {
  const auto* r = routines<T>();
  int32_t info = kMissing;
  if (r != nullptr) r->syev(&jobz, &uplo, &n, a, &lda, w, work, &lwork, &info, 1, 1);
  return info;
}

template <typename T>
int32_t spevd(char jobz, char uplo, int32_t n, T* ap, T* w, T* z, int32_t ldz, T* work, int32_t lwork, int32_t* iwork,
              int32_t liwork) {
  const auto* r = routines<T>();
  int32_t info = kMissing;
  if (r != nullptr) r->spevd(&jobz, &uplo, &n, ap, w, z, &ldz, work, &lwork, iwork, &liwork, &info, 1, 1);
  return info;
}

#define ORVIK_INSTANTIATE(T)                                                                                          \
  template int32_t gemm(char, char, int32_t, int32_t, int32_t, Scalar<T>, const T*, int32_t, const T*, int32_t,       \
                        Scalar<T>, T*, int32_t);                                                                      \
  template int32_t gemv(char, int32_t, int32_t, Scalar<T>, const T*, int32_t, const T*, int32_t, Scalar<T>, T*,       \
                        int32_t);                                                                                     \
  template int32_t symm(char, char, int32_t, int32_t, Scalar<T>, const T*, int32_t, const T*, int32_t, Scalar<T>, T*, \
                        int32_t);                                                                                     \
  template int32_t syr(char, int32_t, Scalar<T>, const T*, int32_t, T*, int32_t);                                     \
  template int32_t syrk(char, char, int32_t, int32_t, Scalar<T>, const T*, int32_t, Scalar<T>, T*, int32_t);          \
  template int32_t trmm(char, char, char, char, int32_t, int32_t, Scalar<T>, const T*, int32_t, T*, int32_t);         \
  template int32_t tpmv(char, char, char, int32_t, const T*, T*, int32_t);                                            \
  template int32_t potrf(char, int32_t, T*, int32_t);                                                                 \
  template int32_t potri(char, int32_t, T*, int32_t);                                                                 \
  template int32_t trtri(char, char, int32_t, T*, int32_t);                                                           \
  template int32_t syev(char, char, int32_t, T*, int32_t, T*, T*, int32_t);                                           \
  template int32_t spevd(char, char, int32_t, T*, T*, T*, int32_t, T*, int32_t, int32_t*, int32_t);

ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)

}  // namespace orvik::serv::blas
