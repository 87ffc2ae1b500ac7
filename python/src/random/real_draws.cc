// Distributions of real numbers.
#include <cmath>

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

// loc + scale r, fused as in the draws, for locations and scales of their own.
template <class T>
void shift(py::array& out, const py::array& loc, const py::array& scale) {
  T* const r = static_cast<T*>(out.mutable_data());
  const T *const a = static_cast<const T*>(loc.data()), *const b = static_cast<const T*>(scale.data());
  const int64_t n = out.size();
  const py::gil_scoped_release released;
  for (int64_t i = 0; i < n; ++i) r[i] = std::fma(r[i], b[i], a[i]);
}

void shift_and_scale(py::array out, const py::array& loc, const py::array& scale) {
  for (const py::array* x : {static_cast<const py::array*>(&out), &loc, &scale}) {
    if (!x->dtype().equal(out.dtype()) || x->size() != out.size() || (x->flags() & py::array::c_style) == 0) {
      raise(PyExc_ValueError, "locations and scales do not fit");
    }
  }
  if (py::isinstance<py::array_t<double>>(out)) return shift<double>(out, loc, scale);
  if (py::isinstance<py::array_t<float>>(out)) return shift<float>(out, loc, scale);
  raise(PyExc_TypeError, "the array is neither of float64 nor of float32");
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
  // The front's numbers are minima; maxima, which NumPy draws, are their mirror image.
  stream.def("gumbel", [](Stream& s, py::array out, double loc, double scale) {
    draw_real(s, out, 1, kSplitPiece, [&]<class T>(orvik_stream* from, int64_t n, T* r) {
      const orvik_status status = FRONT(T, gumbel_threads)(from, n, r, T(-loc), T(scale), 0);
      for (int64_t i = 0; status >= 0 && i < n; ++i) r[i] = -r[i];
      return status;
    });
  });
  stream.def("multivariate_normal", multivariate_normal);
  stream.def_static("shift_and_scale", shift_and_scale);
}

}  // namespace orvik::python
