// What the tests of integration share: a call with defaults, pairs of limits everywhere, integrals in quadruple
// precision.
#ifndef ORVIK_TESTS_DF_INTEGRATE_H
#define ORVIK_TESTS_DF_INTEGRATE_H

#include "df/interpolate.h"

namespace orvik::df::test {

template <class Real>
struct Integral {
  using E = Entries<Real>;
  int64_t left_hint = 0, right_hint = 0, rhint = 16;
  const Real *left_datahint = nullptr, *right_datahint = nullptr;
  typename E::IntegralCallback le = nullptr, re = nullptr, inside = nullptr;
  void *le_params = nullptr, *re_params = nullptr, *inside_params = nullptr;
  typename E::SearchCallback search = nullptr;
  const OrvikDFServices* services = nullptr;
  int32_t status = 1;

  std::vector<Real> operator()(OrvikDFTask task, const std::vector<Real>& left, const std::vector<Real>& right,
                               int64_t nlim = -1) {
    if (nlim < 0) nlim = static_cast<int64_t>(left.size());
    std::vector<Real> r(static_cast<size_t>(nlim * std::max<int64_t>(as_task(task)->ny, 1)) + 1, Real(-77));
    status =
        E::integrate(task, 0, nlim, left.data(), left_hint, right.data(), right_hint, left_datahint, right_datahint,
                     r.data(), rhint, le, le_params, re, re_params, inside, inside_params, search, nullptr, services);
    EXPECT_EQ(r.back(), -77);
    r.pop_back();
    return r;
  }
  Real one(OrvikDFTask task, Real a, Real b) { return (*this)(task, {a}, {b})[0]; }
};

using Quad = __float128;

// An integral and the sum of the magnitudes that it is made of.
struct Exact {
  Quad value = 0, magnitude = 0;
};

// The pieces of a fit as the library defines them, in the precision of the task, and integrals over them in quadruple
// precision, piece by piece.
template <class Real>
class Model {
 public:
  explicit Model(Fit<Real>& fit) : fit_(fit), x_(fit.x) {
    const int64_t nx = fit.nx;
    if (fit.xhint == 4) {
      const Real step = (fit.x.back() - fit.x.front()) / static_cast<Real>(nx - 1);
      for (int64_t i = 1; i < nx - 1; ++i) x_[size_t(i)] = std::fma(step, static_cast<Real>(i), fit.x.front());
    }
    own_knots_ = fit.type == 1 && fit.order == 3;
    for (int64_t i = 0; i < nx - 1; ++i) ends_.push_back(x_[size_t(i) + 1]);
    if (own_knots_) {
      for (int64_t i = 1; i < nx; ++i) {
        ends_[size_t(i) - 1] = fit.ic.empty() ? Real(0.5) * (x_[size_t(i) - 1] + x_[size_t(i)]) : fit.ic[size_t(i)];
      }
      ends_.push_back(x_.back());
    }
    if (steps()) ends_.insert(ends_.begin(), x_.front()), ends_.push_back(x_.back());
  }

  const std::vector<Real>& x() const { return x_; }
  bool steps() const { return fit_.order == 0; }

  Exact integral(Real a, Real b, int64_t f = 0) const {
    if (a > b) {
      Exact e = integral(b, a, f);
      return {-e.value, e.magnitude};
    }
    Exact e;
    const int64_t last = static_cast<int64_t>(ends_.size()) - 1;
    const int64_t begin = std::lower_bound(ends_.begin(), ends_.end(), a) - ends_.begin();
    for (int64_t i = std::min(begin, last); i <= last && (i == 0 || ends_[size_t(i) - 1] < b); ++i) {
      const bool first_piece = i == 0, last_piece = i == last;
      // The part of [a, b] in piece i; the outer pieces go on.
      const Real from = first_piece ? a : std::max(a, ends_[size_t(i) - 1]);
      const Real to = last_piece ? b : std::min(b, ends_[size_t(i)]);
      if (!(from < to)) continue;
      add(i, from, Quad(-1), f, &e);
      add(i, to, Quad(1), f, &e);
    }
    return e;
  }

 private:
  void add(int64_t piece, Real at, Quad sign, int64_t f, Exact* e) const {
    const int64_t nx = fit_.nx;
    if (steps()) {
      int64_t i = fit_.type == 8 ? piece : piece - 1;  // pieces are cells
      if (piece == 0) i = 0;
      i = std::min(std::max<int64_t>(i, 0), nx - 1);
      const Quad t = Quad(at) - Quad(x_[size_t(std::max<int64_t>(piece - 1, 0))]);
      collect(sign * Quad(fit_.y[size_t(f * nx + i)]) * t, e);
      return;
    }
    const Real* c = fit_.coefficients(piece, f);
    const Quad t = Quad(at) - Quad(x_[size_t(piece)]);
    Quad power = t;
    for (int64_t j = 0; j < fit_.order; ++j) {
      collect(sign * Quad(c[j]) * power / Quad(j + 1), e);
      power *= t;
    }
  }
  static void collect(Quad v, Exact* e) {
    e->value += v;
    e->magnitude += v < 0 ? -v : v;
  }

  Fit<Real>& fit_;
  std::vector<Real> x_, ends_;
  bool own_knots_ = false;
};

// The error of an integral in units of the last place of its sum of magnitudes.
template <class Real>
double error_in_ulp(Real got, const Exact& e) {
  const Real magnitude = static_cast<Real>(e.magnitude);
  const Real ulp = std::nextafter(magnitude, std::numeric_limits<Real>::infinity()) - magnitude;
  const Quad error = Quad(got) - e.value;
  return static_cast<double>((error < 0 ? -error : error) / Quad(ulp));
}

struct KindRow {
  int64_t order, type;
  const char* name;
};
inline constexpr KindRow kIntegrable[] = {{2, 0, "linear"},    {3, 0, "quadratic"}, {4, 2, "cubic"},
                                          {3, 1, "knots"},     {6, 0, "order six"}, {0, 8, "step, right"},
                                          {0, 7, "step, left"}};

// Pairs of limits: breakpoints and neighbours, one piece, many, outside on both sides, reversed, equal.
template <class Real>
void spread_limits(const Fit<Real>& fit, int64_t n, std::vector<Real>* left, std::vector<Real>* right) {
  *left = spread_sites(fit, n, 31);
  *right = spread_sites(fit, n, 32);
  const Real a = fit.x.front(), b = fit.x.back(), inf = std::numeric_limits<Real>::infinity();
  const Real mid = fit.x[fit.x.size() / 2];
  const std::vector<std::pair<Real, Real>> special = {{a, b},
                                                      {b, a},
                                                      {a - 1, b + 1},
                                                      {a, a},
                                                      {b, b},
                                                      {mid, mid},
                                                      {mid, b},
                                                      {a, mid},
                                                      {a - 2, a - 1},
                                                      {b + 1, b + 2},
                                                      {a - 1, a},
                                                      {b, b + 1},
                                                      {std::nextafter(b, inf), b},
                                                      {mid, std::nextafter(mid, inf)},
                                                      {mid, std::nextafter(mid, -inf)},
                                                      {b + 1, a - 1},
                                                      {mid, b + 1},
                                                      {a - 1, mid}};
  for (size_t j = 0; j < special.size() && j < left->size(); ++j)
    (*left)[j] = special[j].first, (*right)[j] = special[j].second;
  for (size_t j = special.size(); j < left->size(); j += 3) (*right)[j] = (*left)[j] + Real(0.01);
}

// Whether a limit lies so near to a point of an even grid, without being one, that rounding may put it on the other
// side: the pieces of a random spline do not join.
template <class Real>
bool beside_grid_point(const Model<Real>& model, Real t) {
  const auto& x = model.x();
  const auto above = std::lower_bound(x.begin(), x.end(), t);
  const Real near = std::numeric_limits<Real>::epsilon() * 64 * (std::abs(x.front()) + std::abs(x.back()));
  const auto beside = [&](auto at) { return at >= x.begin() && at < x.end() && *at != t && std::abs(*at - t) < near; };
  return beside(above) || beside(above - 1);
}

// A spline with random coefficients, for step kinds without any.
template <class Real>
std::unique_ptr<Fit<Real>> integrable(const KindRow& kind, int64_t nx, int64_t ny, int64_t xhint) {
  return random_spline<Real>(kind.order, kind.type, nx, ny, xhint);
}

}  // namespace orvik::df::test

#endif
