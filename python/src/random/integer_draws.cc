// Distributions of integers, and words.
#include <cmath>

#include "random/adapted.h"
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

// The same for sets of parameters p.
#define SETS(name, piece, function, arguments)                                                                  \
  stream.def(#name "_sets", [](Stream& s, py::array_t<int32_t> out, const py::array_t<int64_t>& n,              \
                               const py::array_t<double>& t) {                                                  \
    Sets{n, t}.draw<int32_t>(s, out, 1, piece, [](orvik_stream* from, int64_t m, int32_t* r, const double* p) { \
      return orvik_i_##function(from, m, r, UNPACK arguments);                                                  \
    });                                                                                                         \
  })

namespace {

// Piece of a draw of rows: the sequential method draws each outcome for all rows at once, so that only the front's own
// cuts leave its numbers as they are.
int64_t rows_of_piece(int64_t outcomes, uint32_t method) {
  if (outcomes < 1 || outcomes > INT32_MAX) raise(PyExc_ValueError, "there are no outcomes, or too many");
  return method == ORVIK_MULTINOMIAL_SEQUENTIAL ? kWhole : 1 + kPlainPiece / outcomes;
}

int32_t whole(double x) { return static_cast<int32_t>(x); }

// Intervals of integers, one for each number or one for all: `first`, modulo 2^64, and as many as `beyond` behind it.
struct Intervals {
  const int64_t* first;
  const uint32_t* beyond;
  int64_t step;  // 0 or 1
};

// Where the first has 32 bits, numbers are those of the front's integers, which are low + u (high - low) rounded down;
// `high`, to which a sum may be rounded up, is none of them. (The package runs on processors with these instructions.)
template <class T>
[[gnu::target("fma")]] void place(int64_t n, const double* u, const Intervals& in, T* r) {
  for (int64_t i = 0; i < n; ++i) {
    const int64_t low = in.first[i * in.step];
    const double beyond = in.beyond[i * in.step];
    const bool narrow = low == static_cast<int32_t>(low);
    const double shift = narrow ? static_cast<double>(low) : 0, last = shift + beyond;
    const double x = std::floor(std::fma(u[i], beyond + 1, shift));
    const auto whole = static_cast<uint64_t>(static_cast<int64_t>(x < last ? x : last));
    r[i] = static_cast<T>(narrow ? whole : whole + static_cast<uint64_t>(low));
  }
}

template <class T>
void between(Stream& s, py::array& out, Intervals in) {
  draw_pieces<T>(s, out, 1, kPlainPiece, [&](orvik_stream* stream, int64_t n, T* r) {
    constexpr int64_t kBlock = 4096;
    double u[kBlock];
    orvik_status status = ORVIK_SUCCESS;
    for (int64_t done = 0; done < n && status >= 0; done += kBlock) {
      const int64_t count = std::min(n - done, kBlock);
      status = orvik_d_uniform(stream, count, u, 0.0, 1.0);
      if (status < 0) break;
      place(count, u, in, r + done);
      in.first += count * in.step;
      in.beyond += count * in.step;
    }
    return status;
  });
}

void integers_between(Stream& s, py::array out, const py::array_t<int64_t>& first,
                      const py::array_t<uint32_t>& beyond) {
  const bool alone = first.size() == 1;
  if ((!alone && first.size() != out.size()) || beyond.size() != first.size()) {
    raise(PyExc_ValueError, "intervals must be as many as numbers");
  }
  const Intervals in = {first.data(), beyond.data(), alone ? 0 : 1};
  switch (out.itemsize()) {  // modulo their size, signed and unsigned ones are alike
    case 1:
      return between<uint8_t>(s, out, in);
    case 2:
      return between<uint16_t>(s, out, in);
    case 4:
      return between<uint32_t>(s, out, in);
    default:
      return between<uint64_t>(s, out, in);
  }
}

}  // namespace

void define_integer_draws(py::class_<Stream>& stream) {
  stream.def("integers", [](Stream& s, py::array out, int32_t low, int32_t high) {
    draw_integers(s, out, 1, kSplitPiece,
                  [&](orvik_stream* from, int64_t n, int32_t* r) { return integers(from, n, r, low, high); });
  });
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
  stream.def("multinomial", [](Stream& s, py::array out, int32_t n, const py::array_t<double>& p, uint32_t method) {
    const int64_t outcomes = p.size();
    draw_integers(s, out, outcomes, rows_of_piece(outcomes, method), [&](orvik_stream* from, int64_t rows, int32_t* r) {
      return orvik_i_multinomial(from, rows, r, n, static_cast<int32_t>(outcomes), p.data(), method);
    });
  });
  stream.def("geometric", [](Stream& s, py::array out, double p) {
    draw_integers(s, out, 1, kSplitPiece,
                  [&](orvik_stream* from, int64_t n, int32_t* r) { return trials(from, n, r, p); });
  });
  SETS(bernoulli, kSplitPiece, bernoulli_threads, (p[0], 0));
  SETS(binomial, kPlainPiece, binomial, (whole(p[0]), p[1]));
  SETS(hypergeometric, kPlainPiece, hypergeometric, (whole(p[0]), whole(p[1]), whole(p[2])));
  SETS(negative_binomial, kPlainPiece, negbinomial, (p[0], p[1]));
  stream.def("geometric_sets", [](Stream& s, py::array_t<int32_t> out, const py::array_t<int64_t>& n,
                                  const py::array_t<double>& t) {
    Sets{n, t}.draw<int32_t>(s, out, 1, kSplitPiece, [](orvik_stream* from, int64_t m, int32_t* r, const double* p) {
      return trials(from, m, r, *p);
    });
  });
  // Trials, then the probabilities of the outcomes.
  stream.def("multinomial_sets", [](Stream& s, py::array_t<int32_t> out, const py::array_t<int64_t>& n,
                                    const py::array_t<double>& t, uint32_t method) {
    const int64_t outcomes = out.ndim() > 0 ? out.shape(out.ndim() - 1) : 0;
    if (n.size() > 0 && t.size() != n.size() * (outcomes + 1)) raise(PyExc_ValueError, "the sets are not of this kind");
    Sets{n, t}.draw<int32_t>(s, out, outcomes, rows_of_piece(outcomes, method),
                             [&](orvik_stream* from, int64_t rows, int32_t* r, const double* p) {
                               return orvik_i_multinomial(from, rows, r, whole(p[0]), static_cast<int32_t>(outcomes),
                                                          p + 1, method);
                             });
  });
  stream.def("integers_between", integers_between);
  stream.def("words", [](Stream& s, py::array_t<uint32_t> out) {
    draw_pieces<uint32_t>(s, out, 1, kSplitPiece, [](orvik_stream* from, int64_t n, uint32_t* r) {
      return orvik_i_words_threads(from, n, r, 0);
    });
  });
}

}  // namespace orvik::python
