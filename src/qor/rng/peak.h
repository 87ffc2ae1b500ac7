// Rejection of integers under a mountain with a peak at 0, whose probabilities fall at first as a power of the number
// and then as an exponential one: a table in the variable x^a, which makes the power flat, and a tail. 0 and 1 have
// their own probabilities. Two doubles a candidate.
#pragma once

#include <cstdint>
#include <limits>

#include "lanes/round.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"
#include "qor/rng/vectors.h"

namespace orvik::qor {

// Probabilities by that of 0.
struct PowerPeak {
  double a;               // the power of x that has equal shares, at most 1
  double end;             // last number of the table, from 1 on
  double reach;           // end^a - 1
  double log_height;      // of x^(a - 1)
  double right;           // rate of the tail
  double highest;         // numbers beyond are cut to it
  double p1, p2, p3, p4;  // areas, summed: 0, 1, table, tail

  // of_one: probability of 1; log_share: ln of what x^a is multiplied by for an area; rate: of the exponential one,
  // from 0 on.
  void set(double power, double last, double of_one, double log_share, double rate) {
    const double log_end = kernels::ln.high(last);
    a = power;
    end = last;
    reach = kernels::expm1.high(a * log_end);
    log_height = log_share + kernels::ln.high(a);
    right = rate;
    highest = std::numeric_limits<int32_t>::max();
    p1 = 1;
    p2 = p1 + of_one;
    p3 = p2 + kernels::exp.high(log_share) * reach;
    p4 = p3 + kernels::exp.high(log_height + (a - 1) * log_end - end * right) / right;
  }
};

// log_ratio(n, y, r): logarithms of the probabilities of y by that of 0, of at most kCandidates numbers.
template <int32_t candidates, class LogRatio>
class PeakBatch {
 public:
  static constexpr int32_t kCandidates = candidates;
  PeakBatch(Uniforms<double>& uniforms, const PowerPeak& hat, LogRatio log_ratio)
      : uniforms_(uniforms), hat_(hat), log_ratio_(log_ratio) {}

  int32_t operator()(int32_t count, int32_t* out) {
    double w[2 * kCandidates], u[kCandidates], v[kCandidates], y[kCandidates], open_y[kList], answers[kList];
    Decision<V, kCandidates> decision;
    if (count < 1) return 0;
    if (!uniforms_.draw(2 * count, w)) return -1;
    split(count, w, u, v);
    int32_t opened = 0;
    for_each_vector<V>(count, [&](auto at) {  // lists take the places of what has been read
      const V place = at.load(u) * V(hat_.p4), second = at.load(v);
      const Mask<V> accepted = place <= V(hat_.p2);
      const uint32_t open = at.bits(complement(accepted));
      decision.set(at, accepted, open);
      at.store(y, select(place <= V(hat_.p1), V(0), V(1)));
      gather_chosen(open, place, u + opened);
      opened += gather_chosen(open, second, v + opened);
    });
    if (opened > 0) decide(opened, u, v, open_y, answers);
    return decision.compress(count, y, open_y, answers, out);
  }

 private:
  using V = F64;
  static constexpr int32_t kList = kCandidates + kBehind<V>;

  Mask<V> in_table(V u) const { return u <= V(hat_.p3); }

  void decide(int32_t n, const double* u, const double* v, double* y, double* answers) {
    double height[kCandidates], logarithm[kCandidates], log_x[kCandidates], x[kCandidates];
    const V least = V(std::numeric_limits<double>::min());
    for_each_vector<V>(n, [&](auto at) {
      const V place = at.load(u), share = (place - V(hat_.p2)) / V(hat_.p3 - hat_.p2);
      at.store(log_x, keep(in_table(place), share * V(hat_.reach)));
      at.store(height, max(least, at.load(v)));
    });
    kernels::log1p.call(Level::high, n, log_x, log_x);
    transform(n, log_x, [a = hat_.a](double l) { return l / a; });
    kernels::exp.call(Level::high, n, log_x, x);
    kernels::ln.call(Level::high, n, height, logarithm);
    for_each_vector<V>(n, [&](auto at) {
      const V place = at.load(u), tail = V(hat_.end + 1) - at.load(logarithm) / V(hat_.right);
      const Mask<V> table = in_table(place);
      const V number =
          select(table, min(V(hat_.end), max(V(2), round<Direction::up>(at.load(x)))), round<Direction::down>(tail));
      at.store(y, number);
      // In the tail the height of a candidate has a part of its own.
      const V part = select(table, V(1), (place - V(hat_.p3)) * V(hat_.right));
      at.store(height, max(least, at.load(height) * part));
      at.store(answers, keep(table, V(hat_.log_height) + V(hat_.a - 1) * at.load(log_x)));
    });
    kernels::ln.call(Level::high, n, height, height);
    log_ratio_(n, y, x);
    for_each_vector<V>(n, [&](auto at) {
      at.store(answers, as_answer<V>(at.load(height) + at.load(answers) <= at.load(x)));
      at.store(y, min(V(hat_.highest), at.load(y)));
    });
  }

  Uniforms<double>& uniforms_;
  const PowerPeak& hat_;
  LogRatio log_ratio_;
};

}  // namespace orvik::qor
