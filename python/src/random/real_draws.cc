// Distributions of real numbers.
#include <cmath>

#include "random/adapted.h"
#include "random/draws.h"

namespace py = pybind11;

namespace orvik::python {
namespace {

// The front's function for the type of the numbers.
#define FRONT(T, name)                       \
  ([](auto... a) {                           \
    if constexpr (std::is_same_v<T, double>) \
      return orvik_d_##name(a...);           \
    else                                     \
      return orvik_s_##name(a...);           \
  })
#define UNPACK(...) __VA_ARGS__

#define DRAW(name, piece, function, parameters, arguments)                          \
  stream.def(#name, [](Stream& s, py::array out, UNPACK parameters) {               \
    draw_real(s, out, 1, piece, [&]<class T>(orvik_stream* from, int64_t n, T* r) { \
      return FRONT(T, function)(from, n, r, UNPACK arguments);                      \
    });                                                                             \
  })
#define SPLIT(name, parameters, arguments) DRAW(name, kSplitPiece, name##_threads, parameters, arguments)
#define PLAIN(name, parameters, arguments) DRAW(name, kPlainPiece, name, parameters, arguments)

// The same for sets of parameters p.
#define SETS(name, piece, function, arguments)                                                                   \
  stream.def(#name "_sets",                                                                                      \
             [](Stream& s, py::array out, const py::array_t<int64_t>& n, const py::array_t<double>& t) {         \
               const auto draw = [&]<class T>(const T*) {                                                        \
                 Sets{n, t}.draw<T>(s, out, 1, piece, [](orvik_stream* from, int64_t m, T* r, const double* p) { \
                   return FRONT(T, function)(from, m, r, UNPACK arguments);                                      \
                 });                                                                                             \
               };                                                                                                \
               by_type(out, draw);                                                                               \
             })

template <class Do>
void by_type(const py::array& out, const Do& run) {
  if (py::isinstance<py::array_t<double>>(out)) return run(static_cast<const double*>(nullptr));
  if (py::isinstance<py::array_t<float>>(out)) return run(static_cast<const float*>(nullptr));
  raise(PyExc_TypeError, "the array is neither of float64 nor of float32");
}

// Vectors of a piece: a power of two, so that pairs and blocks of columns begin where they would.
int64_t vectors_of_piece(int64_t dimension) {
  int64_t vectors = kPlainPiece;
  while (vectors > 1024 && vectors * dimension > 4 * kPlainPiece) vectors /= 2;
  return vectors;
}

void multivariate_normal(Stream& s, py::array out, const py::array& mean, const py::array& factor, uint32_t method) {
  const int64_t dimension = mean.size();
  if (dimension < 1 || dimension > INT32_MAX || factor.size() != dimension * dimension ||
      !mean.dtype().equal(out.dtype()) || !factor.dtype().equal(out.dtype()) ||
      (mean.flags() & factor.flags() & py::array::c_style) == 0) {
    raise(PyExc_ValueError, "mean and factor do not fit");
  }
  draw_real(s, out, dimension, vectors_of_piece(dimension), [&]<class T>(orvik_stream* from, int64_t n, T* r) {
    return FRONT(T, multivariate_normal)(from, n, r, static_cast<int32_t>(dimension), int32_t{ORVIK_FACTOR_FULL},
                                         static_cast<const T*>(mean.data()), static_cast<const T*>(factor.data()),
                                         method);
  });
}

// loc + scale r, fused as in the draws, for locations and scales of their own. (The package runs on processors with
// these instructions.)
template <class T>
[[gnu::target("fma")]] void shift(int64_t n, T* r, const T* loc, const T* scale) {
  for (int64_t i = 0; i < n; ++i) r[i] = std::fma(r[i], scale[i], loc[i]);
}

void shift_and_scale(py::array out, const py::array& loc, const py::array& scale) {
  for (const py::array* x : {static_cast<const py::array*>(&out), &loc, &scale}) {
    if (!x->dtype().equal(out.dtype()) || x->size() != out.size() || (x->flags() & py::array::c_style) == 0) {
      raise(PyExc_ValueError, "locations and scales do not fit");
    }
  }
  by_type(out, [&]<class T>(const T*) {
    T* const r = static_cast<T*>(out.mutable_data());
    const T *const a = static_cast<const T*>(loc.data()), *const b = static_cast<const T*>(scale.data());
    const int64_t n = out.size();
    const py::gil_scoped_release released;
    shift(n, r, a, b);
  });
}

// The exponential function of the numbers as lognormal draws have it.
void exponentiate(py::array out) {
  if ((out.flags() & py::array::c_style) == 0) raise(PyExc_ValueError, "the array is not in C order");
  by_type(out, [&]<class T>(const T*) {
    T* const r = static_cast<T*>(out.mutable_data());
    const int64_t n = out.size();
    orvik_math_options options = {std::is_same_v<T, double> ? ORVIK_EP : ORVIK_LA, 0, nullptr, 0, 0};
    const py::gil_scoped_release released;
    if constexpr (std::is_same_v<T, double>) {
      orvik_dexp(n, r, r, &options);
    } else {
      orvik_sexp(n, r, r, &options);
    }
  });
}

}  // namespace

void define_real_draws(py::class_<Stream>& stream) {
  SPLIT(uniform, (double low, double high), (T(low), T(high), 0));
  SPLIT(gaussian, (double loc, double scale, uint32_t method), (T(loc), T(scale), method, 0));
  SPLIT(cauchy, (double loc, double scale), (T(loc), T(scale), 0));
  SPLIT(exponential, (double loc, double scale), (T(loc), T(scale), 0));
  SPLIT(laplace, (double loc, double scale), (T(loc), T(scale), 0));
  SPLIT(rayleigh, (double loc, double scale), (T(loc), T(scale), 0));
  SPLIT(weibull, (double a, double loc, double scale), (T(a), T(loc), T(scale), 0));
  SPLIT(lognormal, (double mean, double sigma, double loc, double scale, uint32_t method),
        (T(mean), T(sigma), T(loc), T(scale), method, 0));
  PLAIN(gamma, (double shape, double loc, double scale), (T(shape), T(loc), T(scale)));
  PLAIN(beta, (double a, double b, double loc, double scale), (T(a), T(b), T(loc), T(scale)));
  PLAIN(chisquare, (int32_t df), (df));
  stream.def("gumbel", [](Stream& s, py::array out, double loc, double scale) {
    draw_real(s, out, 1, kSplitPiece, [&]<class T>(orvik_stream* from, int64_t n, T* r) {
      return maxima(n, r, T(loc), [&](T at) { return FRONT(T, gumbel_threads)(from, n, r, at, T(scale), 0); });
    });
  });
  stream.def("multivariate_normal", multivariate_normal);
  SETS(weibull, kSplitPiece, weibull_threads, (T(p[0]), T(p[1]), T(p[2]), 0));
  SETS(gamma, kPlainPiece, gamma, (T(p[0]), T(p[1]), T(p[2])));
  SETS(beta, kPlainPiece, beta, (T(p[0]), T(p[1]), T(p[2]), T(p[3])));
  SETS(chisquare, kPlainPiece, chisquare, (static_cast<int32_t>(p[0])));
  stream.def_static("shift_and_scale", shift_and_scale);
  stream.def_static("exponentiate", exponentiate);
}

}  // namespace orvik::python
