// All asked derivatives of polynomial pieces at many sites, from one load of each site's coefficients.
#ifndef ORVIK_DF_INTERPOLATE_EVALUATE_H
#define ORVIK_DF_INTERPOLATE_EVALUATE_H

#include "df/interpolate/request.h"
#include "df/pieces/pieces.h"
#include "df/pieces/polynomials.h"

namespace orvik::df {

// Where sites lie: the number of the piece and the coordinate in it, of several sites or of one. Several ways to know
// it.

// By cells; numbers and coordinates stay in registers.
template <class Real, bool kEven>
struct CellSpots {
  static constexpr bool kScattered = false, kRuns = false;
  Partition<Real, kEven> x;
  const Real* site;
  const int32_t* cell;

  void many(int64_t j, int64_t* i, Lanes<Real>* t) const {
    using I = LaneIndices<Real>;
    const I interval = min(max(load_indices<I>(cell + j), I(1)) + I(-1), I(static_cast<int32_t>(x.points() - 2)));
    spread(interval, i);
    *t = load<Lanes<Real>>(site + j) - x.left_ends(interval, i);
  }
  int64_t one(int64_t j, Real* t) const {
    const int64_t i = interval_of<int64_t>(cell[j], x.points());
    *t = site[j] - x.left_end(i);
    return i;
  }
};

// The same where many sites follow each other in each piece: its coefficients and its left end are the same for all.
template <class Real>
struct RunSpots : CellSpots<Real, false> {
  static constexpr bool kRuns = true;

  // The piece, where it is that of all; else -1.
  int64_t common(int64_t j, Lanes<Real>* t) const {
    const int32_t cell = this->cell[j];
    if (!all_equal(load_indices<LaneIndices<Real>>(this->cell + j), cell)) return -1;
    const int64_t i = interval_of<int64_t>(cell, this->x.points());
    *t = load<Lanes<Real>>(this->site + j) - Lanes<Real>(this->x.left_end(i));
    return i;
  }
};

// On an even grid straight from the sites: those outside and not-a-numbers fall into place when the position is held
// inside. Sound where the position of x[1] cannot be rounded by a whole step.
template <class Real>
struct GridSpots {
  static constexpr bool kScattered = true, kRuns = false;
  Partition<Real, true> x;
  Lookup<Real> lookup;
  const Real* site;

  static bool serves(const Lookup<Real>& p) {
    constexpr int64_t kMostPoints = int64_t(1) << (sizeof(Real) == 8 ? 30 : 21);
    return p.nx <= kMostPoints && p.value > 0 && p.value <= std::numeric_limits<Real>::max();
  }
  void many(int64_t j, int64_t* i, Lanes<Real>* t) const {
    using V = Lanes<Real>;
    const V at = load<V>(site + j), most(static_cast<Real>(x.points() - 2));
    const LaneIndices<Real> interval = truncated(min(max((at - V(x.first())) * V(lookup.value), V(Real(0))), most));
    spread(interval, i);
    *t = at - x.left_ends(interval, i);
  }
  int64_t one(int64_t j, Real* t) const {
    const int64_t i = interval_of(uniform_cell<int64_t>(lookup, site[j]), lookup.nx);
    *t = site[j] - x.left_end(i);
    return i;
  }
};

// Found before, for all functions of a task or by pieces that are not intervals.
template <class Real>
struct StoredSpots {
  static constexpr bool kScattered = false, kRuns = false;
  const int64_t* index;
  const Real* t;

  void many(int64_t j, int64_t* i, Lanes<Real>* at) const {
    std::copy(index + j, index + j + kWidth<Lanes<Real>>, i);
    *at = load<Lanes<Real>>(t + j);
  }
  int64_t one(int64_t j, Real* at) const {
    *at = t[j];
    return index[j];
  }
};

// `count` vectors of results, at most four, to the places of sites that do not lie side by side.
template <class Real>
void put_results(const Lanes<Real>* v, int64_t count, const Layout& layout, Real* r) {
  using V = Lanes<Real>;
  if (layout.derivative == 1 && count == 2 && layout.site == 2) {
    store_pairs(r, Pair<V>{v[0], v[1]});
  } else if (layout.derivative == 1 && count == 4 && layout.site == 4) {
    store_rows(r, v[0], v[1], v[2], v[3]);
  } else {
    Real singles[4][kWidth<V>];
    for (int64_t k = 0; k < count; ++k) store(singles[k], v[k]);
    for (int64_t j = 0; j < kWidth<V>; ++j) {
      for (int64_t k = 0; k < count; ++k) r[j * layout.site + k * layout.derivative] = singles[k][j];
    }
  }
}

// put(value) for each derivative of the bits of kAsked, or of `asked` where kAsked is 0, that is below kOrder. V is a
// real or a vector.
template <int kOrder, unsigned kAsked, class Real, class V, class Put>
[[gnu::always_inline]] inline void derivatives(unsigned asked, const V* c, V t, Put put) {
  if (kAsked != 0) asked = kAsked;
  if ((asked & 1) != 0) put(horner<kOrder, 0, Real>(c, t));
  if ((asked & 2) != 0) put(horner<kOrder, 1, Real>(c, t));
  if constexpr (kOrder > 2) {
    if ((asked & 4) != 0) put(horner<kOrder, 2, Real>(c, t));
  }
  if constexpr (kOrder > 3) {
    if ((asked & 8) != 0) put(horner<kOrder, 3, Real>(c, t));
  }
}

template <int kOrder, unsigned kAsked, class Real, class Spots>
void evaluate_asked(const Real* c, unsigned asked, int64_t n, const Spots& given, const Layout& layout, Real* r) {
  using V = Lanes<Real>;
  const Spots spots = given;  // so that its members need not be read again after each store
  int64_t j = 0;
  for (; j + kWidth<V> <= n; j += kWidth<V>) {
    V t, columns[kOrder];
    int64_t common = -1;
    if constexpr (Spots::kRuns) common = spots.common(j, &t);
    if (common >= 0) {
      for (int k = 0; k < kOrder; ++k) columns[k] = V(c[kOrder * common + k]);
    } else {
      int64_t i[kWidth<V>];
      spots.many(j, i, &t);
      if constexpr (Spots::kScattered) {
        load_scattered_columns<kOrder>(c, i, columns);
      } else {
        load_columns<kOrder>(c, i, columns);
      }
    }
    Real* place = r + j * layout.site;
    if (layout.site == 1) {
      derivatives<kOrder, kAsked, Real>(asked, columns, t, [&](V value) {
        store(place, value);
        place += layout.derivative;
      });
    } else {
      V out[4];
      int64_t count = 0;
      derivatives<kOrder, kAsked, Real>(asked, columns, t, [&](V value) { out[count++] = value; });
      put_results(out, count, layout, place);
    }
  }
  for (; j < n; ++j) {
    Real t;
    const int64_t i = spots.one(j, &t);
    Real* place = r + j * layout.site;
    derivatives<kOrder, kAsked, Real>(asked, c + kOrder * i, t, [&](Real value) {
      *place = value;
      place += layout.derivative;
    });
  }
}

// All derivatives that `orders` asks for. The value, the slope, both and these with the next have loops of their own.
template <int kOrder, class Real, class Spots>
void evaluate(const Real* c, const Orders& orders, int64_t n, const Spots& spots, const Layout& layout, Real* r) {
  const unsigned asked = orders.below(kOrder);
  if (asked == 1) {
    evaluate_asked<kOrder, 1>(c, asked, n, spots, layout, r);
  } else if (asked == 2) {
    evaluate_asked<kOrder, 2>(c, asked, n, spots, layout, r);
  } else if (asked == 3) {
    evaluate_asked<kOrder, 3>(c, asked, n, spots, layout, r);
  } else if (kOrder > 2 && asked == 7) {
    evaluate_asked<kOrder, 7>(c, asked, n, spots, layout, r);
  } else if (asked != 0) {
    evaluate_asked<kOrder, 0>(c, asked, n, spots, layout, r);
  }
  // The others vanish.
  for (int64_t k = __builtin_popcount(asked); k < orders.asked(); ++k) {
    for (int64_t j = 0; j < n; ++j) r[j * layout.site + k * layout.derivative] = 0;
  }
}

// By the kind of the polynomials.
template <class Real, class Spots>
void evaluate(const Request<Real>& q, int64_t function, int64_t n, const Spots& spots, Real* r) {
  const Real* c = q.task.template coefficients<Real>(function);
  switch (q.evaluator) {
    case Evaluator::kLinear:
      return evaluate<2>(c, q.orders, n, spots, q.layout, r);
    case Evaluator::kQuadratic:
    case Evaluator::kQuadraticKnots:
      return evaluate<3>(c, q.orders, n, spots, q.layout, r);
    default:
      return evaluate<4>(c, q.orders, n, spots, q.layout, r);
  }
}

}  // namespace orvik::df

#endif
