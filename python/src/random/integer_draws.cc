// Distributions of integers, and words.
#include "random/draws.h"

namespace py = pybind11;

namespace orvik::python {

#define UNPACK(...) __VA_ARGS__
#define DRAW(name, piece, function, parameters, arguments)                           \
  stream.def(#name, [](Stream& s, py::array out, UNPACK parameters) {                \
    draw_integers(s, out, 1, piece, [&](orvik_stream* from, int64_t n, int32_t* r) { \
      return orvik_i_##function(from, n, r, UNPACK arguments);                       \
    });                                                                              \
  })

void define_integer_draws(py::class_<Stream>& stream) {
  DRAW(integers, kSplitPiece, uniform_threads, (int32_t low, int32_t high), (low, high, 0));
  DRAW(bernoulli, kSplitPiece, bernoulli_threads, (double p), (p, 0));
  DRAW(binomial, kPlainPiece, binomial, (int32_t trials, double p), (trials, p));
  DRAW(hypergeometric, kPlainPiece, hypergeometric, (int32_t all, int32_t sample, int32_t marked),
       (all, sample, marked));
  DRAW(negative_binomial, kPlainPiece, negbinomial, (double successes, double p), (successes, p));
  DRAW(poisson, kPlainPiece, poisson, (double mean, uint32_t method), (mean, method));
  stream.def("poissons", [](Stream& s, py::array out, const py::array_t<double>& means) {
    if (means.size() != out.size()) raise(PyExc_ValueError, "means must be as many as numbers");
    const double* mean = means.data();
    draw_integers(s, out, 1, kPlainPiece, [&](orvik_stream* from, int64_t n, int32_t* r) {
      const orvik_status status = orvik_i_poissonv(from, n, r, mean);
      mean += n;
      return status;
    });
  });
  // The sequential method draws each outcome for all rows at once: only the front's own cuts leave its numbers as they
  // are.
  stream.def("multinomial",
             [](Stream& s, py::array out, int32_t trials, const py::array_t<double>& p, uint32_t method) {
               const int64_t outcomes = p.size();
               if (outcomes < 1 || outcomes > INT32_MAX) raise(PyExc_ValueError, "there are no outcomes, or too many");
               const int64_t piece = method == ORVIK_MULTINOMIAL_SEQUENTIAL ? kWhole : 1 + kPlainPiece / outcomes;
               draw_integers(s, out, outcomes, piece, [&](orvik_stream* from, int64_t n, int32_t* r) {
                 return orvik_i_multinomial(from, n, r, trials, static_cast<int32_t>(outcomes), p.data(), method);
               });
             });
  // The front counts failures before a success; NumPy the trials.
  stream.def("geometric", [](Stream& s, py::array out, double p) {
    draw_integers(s, out, 1, kSplitPiece, [&](orvik_stream* from, int64_t n, int32_t* r) {
      const orvik_status status = orvik_i_geometric_threads(from, n, r, p, 0);
      for (int64_t i = 0; status >= 0 && i < n; ++i) r[i] += r[i] < INT32_MAX;
      return status;
    });
  });
  stream.def("words", [](Stream& s, py::array_t<uint32_t> out) {
    draw_pieces<uint32_t>(s, out, 1, kSplitPiece, [](orvik_stream* from, int64_t n, uint32_t* r) {
      return orvik_i_words_threads(from, n, r, 0);
    });
  });
}

}  // namespace orvik::python
