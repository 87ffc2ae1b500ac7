// What is integrated: the antiderivatives of a function's pieces, zero at each piece's origin.
#ifndef ORVIK_DF_INTEGRATE_INTEGRAND_H
#define ORVIK_DF_INTEGRATE_INTEGRAND_H

#include "df/pieces/pieces.h"
#include "df/pieces/polynomials.h"
#include "df/pieces/values.h"

namespace orvik::df {

// Polynomials of a fixed order; the coefficients of a piece, or of several, are loaded once for all their limits.
template <class Real, int kOrder>
struct PolynomialIntegrand {
  static constexpr bool kVectors = true;
  const Real* c;

  struct Piece {
    const Real* c;
    Real operator()(Real t) const { return antiderivative<kOrder, Real>(c, t); }
  };
  Piece piece(int64_t i) const { return {c + kOrder * i}; }

  struct Pieces {
    Lanes<Real> c[kOrder];
    Lanes<Real> operator()(Lanes<Real> t) const { return antiderivative<kOrder, Real>(c, t); }
  };
  Pieces pieces(const int64_t* i) const {
    Pieces p;
    load_columns<kOrder>(c, i, p.c);
    return p;
  }
};

// Polynomials of any order.
template <class Real>
struct GeneralIntegrand {
  static constexpr bool kVectors = false;
  const Real* c;
  int64_t order;

  struct Piece {
    const Real* c;
    int64_t order;
    Real operator()(Real t) const { return general_antiderivative(c, order, t); }
  };
  Piece piece(int64_t i) const { return {c + order * i, order}; }
};

// Steps. Their pieces are cells: before the partition lies the first value, behind it the last one.
template <class Real>
struct StepIntegrand {
  static constexpr bool kVectors = false;
  Values<Real> y;
  int64_t points;
  bool right;  // an interval has the value of its right end

  struct Piece {
    Real value;
    Real operator()(Real t) const { return t == 0 ? Real(0) : value * t; }  // also of an infinite value
  };
  Piece piece(int64_t cell) const {
    return {y[std::min(std::max<int64_t>(right ? cell : cell - 1, 0), cell == 0 ? 0 : points - 1)]};
  }
};

// The cells of a partition as pieces: cell 0 is about x[0], every other one about the breakpoint before it.
template <class Real, bool kEven>
struct CellPieces {
  static constexpr bool kBeginsAtOrigin = true;
  static constexpr bool kConstant = true;
  Partition<Real, kEven> x;

  explicit CellPieces(const Task& task) : x(task) {}
  // A site just before the right end of a grid may have come out in the cell behind it.
  int64_t of(int64_t cell, Real site) const {
    return std::min(std::max<int64_t>(cell, 0), x.points() - (site <= x.last() ? 1 : 0));
  }
  int64_t first() const { return 0; }
  int64_t last() const { return x.points(); }
  Real origin(int64_t i) const { return x[std::max<int64_t>(i - 1, 0)]; }
  Real begin(int64_t) const { return 0; }
  Real end(int64_t i) const { return i == first() || i == last() ? Real(0) : x.gap(i - 1); }
  Real limit(int64_t i) const { return x[std::min(i, x.points() - 1)]; }  // the end of piece i, where it has one
};

}  // namespace orvik::df

#endif
