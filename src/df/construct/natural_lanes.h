// The natural system of one function, without the arrays of its matrix; where it is long, several stretches of rows at
// a time.
//
// Forward and backward substitution are chains of dependent divisions and fused steps: one row cannot start before its
// neighbour has ended. So the rows are cut into as many stretches as there are lanes. Each stretch but the first starts
// from a guess some rows early, within the stretch before it, which writes over these rows when it comes to them. A
// diagonally dominant matrix forgets a wrong start within a few dozen rows. Afterwards each stretch is mended from its
// true start: rows are computed again, one by one, until a row comes out as it was, bit for bit; mostly the first does.
// From there on everything behind it is what the plain recurrence gives. For a matrix that forgets nothing the mending
// goes on to the end and is still right.
#ifndef ORVIK_DF_CONSTRUCT_NATURAL_LANES_H
#define ORVIK_DF_CONSTRUCT_NATURAL_LANES_H

#include "df/construct/coefficients.h"
#include "df/construct/natural_system.h"
#include "df/lanes.h"

namespace orvik::df {

template <class Real, bool kUniform>
class NaturalLanes {
  using V = Lanes<Real>;
  static constexpr int64_t kSquare = kWidth<V>;                  // rows turned at a time
  static constexpr int64_t kStretches = 2 * kWidth<V>;           // two vectors hide each other's latency
  static constexpr int64_t kLead = sizeof(Real) == 8 ? 36 : 20;  // after so many rows of an even grid no bit differs

 public:
  // `y`: the function's values, one after the other. As many elements as there are unknowns have `upper`, the upper
  // diagonal over the pivots, `reciprocals` of the pivots, and `w`, the half-solved right side.
  NaturalLanes(const NaturalSystem<Real, kUniform>& system, const Real* y, Real* upper, Real* reciprocals, Real* w)
      : system_(system),
        p_(system.partition),
        y_(y),
        x_(system.partition.given()),
        n_(system.unknowns()),
        upper_(upper),
        reciprocals_(reciprocals),
        w_(w) {
    // Rows 2 .. n - 2 have the general form; what whole squares leave of them follows singly, and all of few rows.
    const int64_t rows = n_ - 3 - kLead;
    length_ = rows / kStretches;
    steps_ = (length_ + kLead) / kSquare * kSquare;
    if (length_ < kSquare) length_ = steps_ = 0;
  }

  // Forward substitution of the first function of a task, which factors the matrix: false if a pivot cannot be
  // inverted. The reciprocals are kept for whom they are needed.
  bool factor(bool keep) {
    if (keep) {
      forward<Pass::kFirst>();
    } else {
      forward<Pass::kOnly>();
    }
    return !failed_;
  }
  // Of another function.
  void reduce() { forward<Pass::kNext>(); }

  // Backward substitution: of a periodic function into w.
  void solve() {
    Real d = w_[n_ - 1];
    for (int64_t i = n_ - 2; i >= 0; --i) w_[i] = d = back_row(upper_[i], w_[i], d);
  }
  // Of any other one as far as the coefficients.
  void put_coefficients(Real* out) {
    out_ = out;
    backward();
  }

 private:
  enum class Pass { kOnly, kFirst, kNext };

  // What a row hands on to the next.
  struct State {
    Real upper, w;
  };

  // Stretch j computes the steps_ rows from start(j) on. The neighbouring stretches compute those at its ends too: what
  // stands in the end is of the stretch that comes to a row last.
  int64_t start(int64_t stretch) const { return 2 + stretch * length_; }
  int64_t end(int64_t stretch) const { return start(stretch) + steps_; }
  int64_t rest() const { return length_ == 0 ? 2 : end(kStretches - 1); }

  Real m(int64_t i) const { return slope(y_[i], y_[i + 1], p_.inverse_h(i)); }

  // One row, from the state of the one before. Returns the reciprocal of its pivot.
  template <class T>
  static T row(T lower, T diagonal, T above, T right, T* upper, T* w) {
    const T reciprocal = T(Real(1)) / fnma(lower, *upper, diagonal);
    *upper = above * reciprocal;
    *w = fnma(lower, *w, right) * reciprocal;
    return reciprocal;
  }

  // The same, and what it hands on is kept. Of a factored matrix only the right side is there to do.
  template <Pass kPass>
  void keep_row(int64_t i, Real lower, Real diagonal, Real above, Real right, State* s) {
    if constexpr (kPass != Pass::kNext) {
      const Real reciprocal = row(lower, diagonal, above, right, &s->upper, &s->w);
      upper_[i] = s->upper;
      if constexpr (kPass == Pass::kFirst) reciprocals_[i] = reciprocal;
      if (std::isinf(reciprocal)) failed_ = true;
    } else {
      s->w = fnma(lower, s->w, right) * reciprocals_[i];
    }
    w_[i] = s->w;
  }
  template <Pass kPass>
  void keep_general_row(int64_t i, State* s) {
    const Real h_before = p_.h(i - 1), h = p_.h(i);
    const Real right = interior_right_side(h_before, h, m(i - 1), m(i));
    keep_row<kPass>(i, h, Real(2) * p_.two_h(i - 1), h_before, right, s);
  }

  template <Pass kPass>
  void forward() {
    const Values<Real> y(y_, 1);
    const EndRow<Real> left = system_.left(y), right = system_.right(y);
    State s{0, 0};
    keep_row<kPass>(0, Real(0), left.own, left.neighbour, left.right, &s);
    if (n_ > 2) keep_general_row<kPass>(1, &s);
    if (length_ > 0) {
      forward_stretches<kPass>(s);
      // Mend the stretches in order: each true start is the row before.
      for (int64_t j = 1; j < kStretches; ++j) mend_forward<kPass>(end(j - 1), end(j));
      s = {upper_[rest() - 1], w_[rest() - 1]};
    }
    for (int64_t i = rest(); i <= n_ - 2; ++i) keep_general_row<kPass>(i, &s);
    keep_row<kPass>(n_ - 1, right.neighbour, right.own, Real(0), right.right, &s);
    if (failed_) failed_ = any_infinite();
  }

  // A guess can meet a zero pivot that the true recurrence does not have: look again at what stands in the end. The
  // upper diagonal comes from the partition alone, so that all functions of a task get the same answer.
  bool any_infinite() const {
    return std::any_of(upper_, upper_ + n_, [](Real u) { return !std::isfinite(u); });
  }

  template <Pass kPass>
  void mend_forward(int64_t begin, int64_t end) {
    State s{upper_[begin - 1], w_[begin - 1]};
    for (int64_t i = begin; i < end; ++i) {
      const State before{upper_[i], w_[i]};
      keep_general_row<kPass>(i, &s);
      if ((kPass == Pass::kNext || s.upper == before.upper) && s.w == before.w) return;
    }
  }

  template <Pass kPass>
  void forward_stretches(State first) {
    V x_before[2], x_here[2], h_before[2], m_before[2], upper[2], w[2];
    for (int g = 0; g < 2; ++g) {
      Real a[kSquare], b[kSquare], hb[kSquare], mb[kSquare], u[kSquare], v[kSquare];
      for (int64_t j = 0; j < kSquare; ++j) {
        const int64_t i = start(g * kSquare + j);
        a[j] = given_x(i - 1), b[j] = given_x(i), hb[j] = p_.h(i - 1), mb[j] = m(i - 1), u[j] = 0, v[j] = 0;
      }
      if (g == 0) u[0] = first.upper, v[0] = first.w;
      x_before[g] = load<V>(a), x_here[g] = load<V>(b), h_before[g] = load<V>(hb), m_before[g] = load<V>(mb);
      upper[g] = load<V>(u), w[g] = load<V>(v);
    }
    V y_here[2];
    for (int g = 0; g < 2; ++g) {
      Real b[kSquare];
      for (int64_t j = 0; j < kSquare; ++j) b[j] = y_[start(g * kSquare + j)];
      y_here[g] = load<V>(b);
    }
    Mask<V> bad = V(Real(0)) > V(Real(0));
    const V infinity(std::numeric_limits<Real>::infinity());
    for (int64_t at = 0; at < steps_; at += kSquare) {
      V xs[2][kSquare], ys[2][kSquare], us[2][kSquare], ws[2][kSquare], rs[2][kSquare];
      for (int g = 0; g < 2; ++g) {
        if constexpr (!kUniform) load_turned(x_ + start(g * kSquare) + at + 1, xs[g]);
        load_turned(y_ + start(g * kSquare) + at + 1, ys[g]);
        if constexpr (kPass == Pass::kNext) load_turned(reciprocals_ + start(g * kSquare) + at, rs[g]);
      }
      for (int64_t k = 0; k < kSquare; ++k) {
        for (int g = 0; g < 2; ++g) {
          V h = h_before[g], inverse(p_.inverse_step()), twice(p_.two_h(0));
          if constexpr (!kUniform) {
            h = xs[g][k] - x_here[g], inverse = V(Real(1)) / h, twice = xs[g][k] - x_before[g];
            x_before[g] = x_here[g], x_here[g] = xs[g][k];
          }
          const V slope_here = (ys[g][k] - y_here[g]) * inverse;
          const V right = V(Real(3)) * (h * m_before[g] + h_before[g] * slope_here);
          if constexpr (kPass != Pass::kNext) {
            const V reciprocal = row(h, V(Real(2)) * twice, h_before[g], right, &upper[g], &w[g]);
            bad = bad | (reciprocal >= infinity) | (V(-std::numeric_limits<Real>::infinity()) >= reciprocal);
            us[g][k] = upper[g];
            rs[g][k] = reciprocal;
          } else {
            w[g] = fnma(h, w[g], right) * rs[g][k];
          }
          ws[g][k] = w[g];
          y_here[g] = ys[g][k], h_before[g] = h, m_before[g] = slope_here;
        }
      }
      for (int g = 0; g < 2; ++g) {
        const int64_t i = start(g * kSquare) + at;
        if constexpr (kPass != Pass::kNext) store_turned(us[g], upper_ + i);
        if constexpr (kPass == Pass::kFirst) store_turned(rs[g], reciprocals_ + i);
        store_turned(ws[g], w_ + i);
      }
    }
    if (!none(bad)) failed_ = true;
  }

  // What differences are formed of; on a grid there are none to form.
  Real given_x(int64_t i) const { return kUniform ? Real(0) : x_[i]; }

  // Rows of kSquare stretches, kSquare rows each: vector k holds row k of all.
  void load_turned(const Real* p, V* out) const {
    for (int64_t j = 0; j < kSquare; ++j) out[j] = load<V>(p + j * length_);
    turn(out);
  }
  void store_turned(V* rows, Real* p) const {
    turn(rows);
    for (int64_t j = 0; j < kSquare; ++j) store(p + j * length_, rows[j]);
  }

  // The derivative at i from the one at i + 1, and the coefficients of interval i.
  template <class T>
  static T back_row(T upper, T w, T d_next) {
    return fnma(upper, d_next, w);
  }
  void put(int64_t i, Real d, Real d_next) {
    const Real inverse = p_.inverse_h(i);
    Real* c = out_ + 4 * i;
    c[0] = y_[i];
    c[1] = d;
    cubic_terms<CubicForm::kNatural>(slope(y_[i], y_[i + 1], inverse), inverse, d, d_next, &c[2], &c[3]);
  }

  void backward() {
    // The rows behind the last stretch, singly.
    Real d = w_[n_ - 1];
    for (int64_t i = n_ - 2; i >= rest(); --i) {
      const Real before = back_row(upper_[i], w_[i], d);
      put(i, before, d);
      d = before;
    }
    if (length_ > 0) {
      backward_stretches(d);
      for (int64_t j = kStretches - 1; j-- > 0;) mend_backward(start(j), start(j + 1));
      d = out_[4 * start(0) + 1];
    }
    for (int64_t i = std::min(start(0), n_ - 1) - 1; i >= 0; --i) {
      const Real before = back_row(upper_[i], w_[i], d);
      put(i, before, d);
      d = before;
    }
  }

  // From the row behind the stretch, whose derivative is now right, until a derivative is as it was.
  void mend_backward(int64_t begin, int64_t end) {
    Real d = out_[4 * end + 1];
    for (int64_t i = end - 1; i >= begin; --i) {
      const Real before = back_row(upper_[i], w_[i], d);
      const bool same = before == out_[4 * i + 1];
      put(i, before, d);  // its other end may have changed
      if (same) return;
      d = before;
    }
  }

  void backward_stretches(Real d_behind) {
    V d[2], x_behind[2], y_behind[2];
    for (int g = 0; g < 2; ++g) {
      Real u[kSquare], a[kSquare], b[kSquare];
      for (int64_t j = 0; j < kSquare; ++j) {
        const int64_t i = end(g * kSquare + j);
        // A guess for the derivative behind the stretch: its half-solved value.
        u[j] = g * kSquare + j == kStretches - 1 ? d_behind : w_[i];
        a[j] = given_x(i), b[j] = y_[i];
      }
      d[g] = load<V>(u), x_behind[g] = load<V>(a), y_behind[g] = load<V>(b);
    }
    for (int64_t at = steps_ - kSquare; at >= 0; at -= kSquare) {
      V xs[2][kSquare], ys[2][kSquare], us[2][kSquare], ws[2][kSquare];
      for (int g = 0; g < 2; ++g) {
        const int64_t i = start(g * kSquare) + at;
        if constexpr (!kUniform) load_turned(x_ + i, xs[g]);
        load_turned(y_ + i, ys[g]);
        load_turned(upper_ + i, us[g]);
        load_turned(w_ + i, ws[g]);
      }
      for (int64_t k = kSquare - 1; k >= 0; --k) {
        for (int g = 0; g < 2; ++g) {
          const V before = back_row(us[g][k], ws[g][k], d[g]);
          V inverse(p_.inverse_step());
          if constexpr (!kUniform) inverse = V(Real(1)) / (x_behind[g] - xs[g][k]), x_behind[g] = xs[g][k];
          const V slope_here = (y_behind[g] - ys[g][k]) * inverse;
          V c2, c3;
          cubic_terms<CubicForm::kNatural>(slope_here, inverse, before, d[g], &c2, &c3);
          Real rows[4 * kSquare];
          store_rows(rows, ys[g][k], before, c2, c3);
          if (at + k < length_) {
            for (int64_t j = 0; j < kSquare; ++j) copy_row(rows + 4 * j, out_ + 4 * (start(g * kSquare + j) + at + k));
          } else if (g == 1) {  // above their own rows all stretches but the last one do without coefficients
            copy_row(rows + 4 * (kSquare - 1), out_ + 4 * (start(kStretches - 1) + at + k));
          }
          d[g] = before, y_behind[g] = ys[g][k];
        }
      }
    }
  }
  static void copy_row(const Real* from, Real* to) {
    for (int k = 0; k < 4; ++k) to[k] = from[k];
  }

  const NaturalSystem<Real, kUniform>& system_;
  const Partition<Real, kUniform> p_;
  const Real* y_;
  const Real* x_;
  int64_t n_, length_, steps_;
  Real* upper_;
  Real* reciprocals_;
  Real* w_;
  Real* out_ = nullptr;
  bool failed_ = false;
};

}  // namespace orvik::df

#endif
