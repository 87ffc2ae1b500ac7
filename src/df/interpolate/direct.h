// From sites and cells to one result a site in a single pass, for calls that ask for no more: intervals and local
// coordinates stay in registers. The bits are those of locate() and evaluate_polynomial().
#ifndef ORVIK_DF_INTERPOLATE_DIRECT_H
#define ORVIK_DF_INTERPOLATE_DIRECT_H

#include "df/interpolate/locate.h"
#include "df/interpolate/polynomials.h"
#include "df/interpolate/request.h"

namespace orvik::df {

// The interval of every cell in an array.
template <class Real>
struct StoredCells {
  static constexpr bool kEven = false;  // the partition may be any
  const int32_t* cell;
  Indices<Real> most;

  StoredCells(const Task& task, const int32_t* cells) : cell(cells), most(static_cast<int32_t>(task.nx - 2)) {}
  Indices<Real> operator()(int64_t j, Lanes<Real>) const {
    return min(max(Indices<Real>::load(cell + j), Indices<Real>(1)) + Indices<Real>(-1), most);
  }
  int64_t operator()(int64_t j, Real) const { return interval_of(cell[j], static_cast<int32_t>(most.first() + 2)); }
};

// The interval of every site on an even grid, without its cell: sites outside and not-a-numbers fall into place when
// the position is held inside. Sound where the position of x[1] cannot be rounded by a whole step.
template <class Real>
struct EvenCells {
  static constexpr bool kEven = true;
  Lanes<Real> start, value, most;
  Lookup<Real> lookup;

  static bool serves(const Lookup<Real>& p) {
    constexpr int64_t kMostPoints = int64_t(1) << (sizeof(Real) == 8 ? 30 : 21);
    return p.nx <= kMostPoints && p.value > 0 && p.value <= std::numeric_limits<Real>::max();
  }
  explicit EvenCells(const Lookup<Real>& p)
      : start(p.x[0]), value(p.value), most(static_cast<Real>(p.nx - 2)), lookup(p) {}
  Indices<Real> operator()(int64_t, Lanes<Real> t) const {
    return truncated(min(max((t - start) * value, Lanes<Real>(Real(0))), most));
  }
  int64_t operator()(int64_t, Real t) const { return interval_of(uniform_cell<int64_t>(lookup, t), lookup.nx); }
};

template <int kOrder, int kDerivative, class Real, class Cells>
void evaluate_sites(const Task& task, int64_t n, const Real* site, Cells cells, Real* out) {
  using V = Lanes<Real>;
  const Real* x = task.breakpoints<Real>();
  const Real* c = task.coefficients<Real>(0);
  const bool uniform = Cells::kEven || task.uniform();
  const V start(x[0]), step(uniform ? (x[1] - x[0]) / static_cast<Real>(task.nx - 1) : Real(0));
  int64_t j = 0;
  const auto vectors = [&](auto left_end) {
    for (; j + V::kCount <= n; j += V::kCount) {
      const V t = V::load(site + j);
      const Indices<Real> interval = cells(j, t);
      int64_t i[V::kCount];
      spread(interval, i);
      V columns[kOrder];
      if constexpr (Cells::kEven) {
        load_scattered_columns<kOrder>(c, i, columns);
      } else {
        load_columns<kOrder>(c, i, columns);
      }
      horner<kOrder, kDerivative, Real>(columns, t - left_end(interval, i)).store(out + j);
    }
  };
  if (uniform) {
    vectors([=](Indices<Real> i, const int64_t*) { return fma(step, reals(i), start); });
  } else if constexpr (!Cells::kEven) {
    vectors([=](Indices<Real>, const int64_t* i) { return load_column<1>(x, i, 0); });
  }
  for (; j < n; ++j) {
    const int64_t i = cells(j, site[j]);
    out[j] = horner<kOrder, kDerivative, Real>(c + kOrder * i, site[j] - left_end_of(task, x, i));
  }
}

// Value or slope; false for anything else.
template <int kOrder, class Real, class Cells>
bool evaluate_sites(const Task& task, int64_t derivative, int64_t n, const Real* site, Cells cells, Real* out) {
  switch (derivative) {
    case 0:
      evaluate_sites<kOrder, 0>(task, n, site, cells, out);
      return true;
    case 1:
      evaluate_sites<kOrder, 1>(task, n, site, cells, out);
      return true;
    default:
      return false;
  }
}

template <class Real, class Cells>
bool evaluate_sites(const Request<Real>& q, int64_t first, int64_t n, const Real* site, const Cells& cells) {
  int64_t derivative = 0;
  while (!q.orders[derivative]) ++derivative;
  Real* out = q.r + first;
  switch (q.evaluator) {
    case Evaluator::kLinear:
      return evaluate_sites<2>(q.task, derivative, n, site, cells, out);
    case Evaluator::kQuadratic:
      return evaluate_sites<3>(q.task, derivative, n, site, cells, out);
    default:
      return evaluate_sites<4>(q.task, derivative, n, site, cells, out);
  }
}

// One function, one derivative, nobody else's results: then all layouts are the order of the sites.
template <class Real>
bool one_result_each(const Request<Real>& q) {
  return q.compute && q.task.ny == 1 && q.orders.asked() == 1 && q.evaluator <= Evaluator::kCubic && !q.any_supplier();
}

// The sites first .. first + n - 1 of an even partition without blocks and cells. False where that does not serve.
template <class Real>
bool evaluate_without_cells(const Request<Real>& q, int64_t first, int64_t n) {
  const Lookup<Real>& lookup = q.finder.lookup();
  return one_result_each(q) && !q.write_cells && !q.cells_given && !q.uniform_sites &&
         q.finder.method() == Method::kUniform && EvenCells<Real>::serves(lookup) &&
         evaluate_sites(q, first, n, q.site + first, EvenCells<Real>(lookup));
}

}  // namespace orvik::df

#endif
