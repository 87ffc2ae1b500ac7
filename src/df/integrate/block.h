// A block of limit pairs: cells, pieces and offsets once for all functions, then the integrals of each function.
#ifndef ORVIK_DF_INTEGRATE_BLOCK_H
#define ORVIK_DF_INTEGRATE_BLOCK_H

#include "df/integrate/integrand.h"
#include "df/integrate/request.h"
#include "df/integrate/sums.h"

namespace orvik::df {

inline constexpr int64_t kLimitBlock = kUserBlock;

// Stretches of the axis in their own direction, each from a piece to another one not before it.
template <class Real>
struct Stretches {
  int64_t from_piece[kLimitBlock], to_piece[kLimitBlock];
  // Offsets from the pieces' origins: of the two limits, of the end of the first piece and the begin of the last one.
  // Within one piece the latter two are both zero, where antiderivatives vanish.
  Real from[kLimitBlock], to[kLimitBlock], end[kLimitBlock], begin[kLimitBlock];

  template <class Pieces>
  void set(const Pieces& pieces, int64_t j, int64_t i, Real a, int64_t k, Real b) {
    const bool same = i == k;
    from_piece[j] = i;
    to_piece[j] = k;
    from[j] = a - pieces.origin(i);
    to[j] = b - pieces.origin(k);
    end[j] = same ? Real(0) : pieces.end(i);
    begin[j] = same ? Real(0) : pieces.begin(k);
    if constexpr (Pieces::kConstant) {  // lengths are all that counts: each is rounded once
      from[j] = 0;
      if (same) to[j] = b - a;
      if (!same) end[j] = pieces.limit(i) - a;
    }
  }
};

// The integrals of the parts in the outer pieces of n stretches: in the first piece up to its end, in the last one from
// its begin. Together, within one piece. A limit that is the end of a piece or its begin takes no part of it, whatever
// the piece is: that keeps pieces that are no numbers out of stretches that only touch them.
template <bool kBeginsAtOrigin, class Real, class Integrand>
void integrate_outer(const Integrand& f, int64_t n, const Stretches<Real>& s, Real* head, Real* tail) {
  const auto part = [](auto from, auto to, auto integral) {
    return select(from == to, decltype(integral)(Real(0)), integral);
  };
  int64_t j = 0;
  if constexpr (Integrand::kVectors) {
    using V = Lanes<Real>;
    for (; j + kWidth<V> <= n; j += kWidth<V>) {
      const auto first = f.pieces(s.from_piece + j);
      const V from = load<V>(s.from + j), end = load<V>(s.end + j), begin = load<V>(s.begin + j);
      store(head + j, part(from, end, first(end) - first(from)));
      const auto last = f.pieces(s.to_piece + j);
      const V to = load<V>(s.to + j);
      V behind = last(to);
      if constexpr (!kBeginsAtOrigin) behind = behind - last(begin);
      store(tail + j, part(begin, to, behind));
    }
  }
  for (; j < n; ++j) {
    const auto first = f.piece(s.from_piece[j]), last = f.piece(s.to_piece[j]);
    head[j] = part(s.from[j], s.end[j], first(s.end[j]) - first(s.from[j]));
    Real behind = last(s.to[j]);
    if constexpr (!kBeginsAtOrigin) behind = behind - last(s.begin[j]);
    tail[j] = part(s.begin[j], s.to[j], behind);
  }
}

// The integrals of whole pieces, one after the other.
template <class Pieces, class Integrand>
struct WholePieces {
  const Pieces& pieces;
  const Integrand& f;

  template <class Real>
  void operator()(int64_t from, int64_t to, Real* out) const {
    int64_t i = from;
    if constexpr (Integrand::kVectors) {
      using V = Lanes<Real>;
      for (; i + kWidth<V> <= to; i += kWidth<V>) {
        int64_t number[kWidth<V>];
        Real end[kWidth<V>], begin[kWidth<V>];
        for (int64_t k = 0; k < kWidth<V>; ++k) {
          number[k] = i + k;
          end[k] = pieces.end(i + k);
          if constexpr (!Pieces::kBeginsAtOrigin) begin[k] = pieces.begin(i + k);
        }
        const auto several = f.pieces(number);
        V whole = several(load<V>(end));
        if constexpr (!Pieces::kBeginsAtOrigin) whole = whole - several(load<V>(begin));
        store(out + (i - from), whole);
      }
    }
    for (; i < to; ++i) {
      const auto one = f.piece(i);
      out[i - from] = one(pieces.end(i));
      if constexpr (!Pieces::kBeginsAtOrigin) out[i - from] = out[i - from] - one(pieces.begin(i));
    }
  }
};

// body(pieces, integrand of) with the pieces of the task's kind; `integrand of` a function number.
template <class Real, class Body>
auto with_pieces(const Task& task, Evaluator kind, Body body) {
  return with_partition<Real>(task, [&](const auto& x) {
    constexpr bool kEven = std::decay_t<decltype(x)>::kIsEven;
    using Intervals = IntervalPieces<Real, kEven>;
    const auto polynomials = [&]<int kOrder>(const auto& pieces) {
      return body(pieces, [&](int64_t f) { return PolynomialIntegrand<Real, kOrder>{task.coefficients<Real>(f)}; });
    };
    switch (kind) {
      case Evaluator::kLinear:
        return polynomials.template operator()<2>(Intervals(task));
      case Evaluator::kQuadratic:
        return polynomials.template operator()<3>(Intervals(task));
      case Evaluator::kCubic:
        return polynomials.template operator()<4>(Intervals(task));
      case Evaluator::kQuadraticKnots:
        return polynomials.template operator()<3>(KnotPieces<Real, kEven>(task));
      case Evaluator::kGeneral:
        return body(Intervals(task), [&](int64_t f) {
          return GeneralIntegrand<Real>{task.s_order > 0 ? task.coefficients<Real>(f) : nullptr, task.s_order};
        });
      default:
        return body(CellPieces<Real, kEven>(task), [&](int64_t f) {
          return StepIntegrand<Real>{Values<Real>(task, f), task.nx, kind == Evaluator::kStepRight};
        });
    }
  });
}

// Working memory of one block.
template <class Real>
struct LimitRoom {
  Real left[kLimitBlock], right[kLimitBlock];
  int64_t left_cell[kLimitBlock], right_cell[kLimitBlock];
  int32_t flag[kLimitBlock];
  bool reversed[kLimitBlock];
  Stretches<Real> inner, outer;  // the main stretches; where callbacks serve the inside, those on either side of it
  Real head[kLimitBlock], tail[kLimitBlock], sum[kLimitBlock];
  // For callbacks.
  Real from[kLimitBlock], to[kLimitBlock], result[kLimitBlock];
  int64_t cell[kLimitBlock];
  int32_t place[kLimitBlock];
};

// Integrates between the limits first .. first + count - 1, count <= kLimitBlock. `states`: of the two sorted searches.
// `sums`: the tables of all functions one after the other, or null.
template <class Real>
int32_t integrate_block(const IntegralRequest<Real>& request, int64_t first, int64_t count, int64_t* states,
                        const SumLayout& layout, const Real* sums, LimitRoom<Real>& room);

}  // namespace orvik::df

#endif
