// Rejection of integers under a hat: a parallelogram on a triangle, whose triangle lies below the distribution, between
// exponential tails (Schmeiser, Kachitvichyanukul 1981, 1988). Two floats a candidate.
#pragma once

#include <cstdint>
#include <limits>

#include "lanes/round.h"
#include "lanes/tables.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"
#include "qor/rng/vectors.h"

namespace orvik::qor {

struct TriangleHat {
  static constexpr int32_t kNear = 256;
  double near[2 * kNear + 1];  // probabilities by that of the mode, of the numbers up to kNear away from it
  double mode;                 // the most probable number
  double xm, xl, xr;           // middle and ends of the parallelogram
  double c;                    // its height above the triangle
  double left, right;          // rates of the tails
  double p1, p2, p3, p4;       // areas, summed: triangle, parallelogram, left tail, right tail

  // half: of the width; heights of the tails where they begin.
  void set(double m, double half, double height, double left_rate, double right_rate, double left_height,
           double right_height) {
    mode = m;
    p1 = half;
    xm = m + 0.5;
    xl = xm - p1;
    xr = xm + p1;
    c = height;
    left = left_rate;
    right = right_rate;
    p2 = p1 * (1 + c + c);
    p3 = p2 + left_height / left;
    p4 = p3 + right_height / right;
  }

  // step(k): P(k + 1) / P(k); 0 beyond the last number.
  template <class Step>
  void set_near(Step step) {
    near[kNear] = 1;
    for (int32_t i = 0; i < kNear; ++i) {
      near[kNear + i + 1] = near[kNear + i] * step(mode + i);
      near[kNear - i - 1] = mode - i > 0 ? near[kNear - i] / step(mode - i - 1) : 0;
    }
  }
};

// target.log_ratio(n, y, r): logarithms of the probabilities of y by that of the mode; target.highest; target.cut(y),
// the number that is given for y; target.variance. What leaves the triangle is decided in lists: near the mode by a
// table; further away most by a squeeze about the logarithm of the normal density (Kachitvichyanukul, Schmeiser 1988),
// whose answers are the exact test's, and the others by that test.
template <class Target>
class HatBatch {
 public:
  static constexpr int32_t kCandidates = 1024;
  HatBatch(Uniforms<float>& uniforms, const TriangleHat& hat, const Target& target)
      : uniforms_(uniforms), hat_(hat), target_(target) {}

  int32_t operator()(int32_t count, int32_t* out) {
    float w[2 * kCandidates];
    double u[kCandidates], v[kCandidates], y[kCandidates], open_y[kList], answers[kList];
    Decision<V, kCandidates> decision;
    if (!uniforms_.draw(2 * count, w)) return -1;
    if (count < kWidth<V>) return few(count, w, out);
    split(count, w, u, v);
    int32_t leaving = 0;
    for_each_vector<V>(count, [&](auto at) {  // lists take the places of what has been read
      const V place = at.load(u) * V(hat_.p4), second = at.load(v);
      const Mask<V> accepted = place <= V(hat_.p1);
      const uint32_t open = at.bits(complement(accepted));
      decision.set(at, accepted, open);
      at.store(y, in_triangle(place, second));
      gather_chosen(open, place, u + leaving);
      leaving += gather_chosen(open, second, v + leaving);
    });
    if (leaving > 0) decide(leaving, u, v, open_y, answers);
    return decision.compress(count, y, open_y, answers, out);
  }

 private:
  using V = F64;
  static constexpr int32_t kList = kCandidates + kBehind<V>;

  template <class X>
  X in_triangle(X place, X second) const {
    return target_.cut(round<Direction::down>(X(hat_.xm) - X(hat_.p1) * second + place));
  }

  // One after another: a caller who wants a number or two would wait for lists.
  int32_t few(int32_t count, const float* w, int32_t* out) {
    int32_t kept = 0;
    for (int32_t i = 0; i < count; ++i) {
      double second = static_cast<double>(w[2 * i + 1]), place = static_cast<double>(w[2 * i]) * hat_.p4;
      double y = 0, answer = 1;
      if (place <= hat_.p1)
        y = in_triangle(place, second);
      else
        decide_one(place, second, y, answer);
      out[kept] = static_cast<int32_t>(y);
      kept += answer > 0;
    }
    return kept;
  }
  void decide_one(double place, double second, double& y, double& answer) {
    double places[kBehind<V>] = {place}, seconds[kBehind<V>] = {second}, numbers[kBehind<V>], answers[kBehind<V>];
    decide(1, places, seconds, numbers, answers);
    y = numbers[0];
    answer = answers[0];
  }

  // What left the triangle at (u, v): numbers, and answers.
  void decide(int32_t n, const double* u, const double* v, double* y, double* answers) {
    double height[kCandidates], far_places[kCandidates], far_heights[kCandidates], far_answers[kList];
    double tail_u[kCandidates], tail_v[kCandidates], tail_places[kList], tail_heights[kList];
    Chosen<V, kCandidates> tails, far;
    int32_t in_tails = 0, remaining = 0;
    for_each_vector<V>(n, [&](auto at) {
      const V place = at.load(u), second = at.load(v), x = V(hat_.xl) + (place - V(hat_.p1)) / V(hat_.c);
      at.store(height, second * V(hat_.c) + V(1) - magnitude(V(hat_.mode) - x + V(0.5)) / V(hat_.p1));
      at.store(y, round<Direction::down>(x));
      const uint32_t bits = at.bits(complement(place <= V(hat_.p2)));
      tails.set(at, bits);
      gather_chosen(bits, place, tail_u + in_tails);
      in_tails += gather_chosen(bits, second, tail_v + in_tails);
    });
    place_in_tails(in_tails, tail_u, tail_v, tail_places, tail_heights);
    Expander<V> place_in_tail(tail_places), height_in_tail(tail_heights);
    for_each_vector<V>(n, [&](auto at) {
      const uint32_t in_tail = tails(at);
      const Mask<V> tail = chosen<V>(in_tail);
      const V tall = select(tail, height_in_tail(in_tail), at.load(height));
      V place = select(tail, place_in_tail(in_tail), at.load(y));
      const Mask<V> possible = (tall <= V(1)) & (place >= V(0)) & (place <= V(target_.highest));
      place = select(possible, place, V(hat_.mode));
      const V away = place - V(hat_.mode), end = V(TriangleHat::kNear);
      const Mask<V> near = magnitude(away) <= end;
      const V probability = gather(hat_.near, Indices(to_integer(keep(near, away + end))));
      at.store(answers, as_answer<V>(possible & near & (tall <= probability)));
      at.store(y, target_.cut(place));
      const uint32_t bits = at.bits(andnot(near, possible));
      far.set(at, bits);
      gather_chosen(bits, place, far_places + remaining);
      remaining += gather_chosen(bits, tall, far_heights + remaining);
    });
    if (remaining == 0) return;
    decide_far(remaining, far_places, far_heights, far_answers);
    Expander<V> answer_far(far_answers);
    for_each_vector<V>(n, [&](auto at) {
      const uint32_t bits = far(at);
      at.store(answers, select(chosen<V>(bits), answer_far(bits), at.load(answers)));
    });
  }

  void decide_far(int32_t n, const double* place, const double* height, double* answers) {
    double logarithm[kCandidates], open_places[kCandidates], open_logarithms[kCandidates], open_answers[kList];
    Chosen<V, kCandidates> open;
    for_each_vector<V>(
        n, [&](auto at) { at.store(logarithm, max(V(std::numeric_limits<double>::min()), at.load(height))); });
    kernels::ln.call(Level::high, n, logarithm, logarithm);
    const V inverse = V(1 / target_.variance), end = V(target_.variance * 0.5 - 1);
    int32_t opened = 0;
    for_each_vector<V>(n, [&](auto at) {
      const V k = magnitude(at.load(place) - V(hat_.mode)), height_logarithm = at.load(logarithm);
      const V rho = (k * inverse) * ((k * (k * V(1.0 / 3) + V(0.625)) + V(1.0 / 6)) * inverse + V(0.5));
      const V t = k * k * inverse * V(-0.5);
      const Mask<V> squeezes = k < end, accepts = squeezes & (height_logarithm < t - rho);
      const Mask<V> decided = accepts | (squeezes & (height_logarithm > t + rho));
      at.store(answers, as_answer<V>(accepts));
      const uint32_t bits = at.bits(complement(decided));
      open.set(at, bits);
      gather_chosen(bits, at.load(place), open_places + opened);
      opened += gather_chosen(bits, height_logarithm, open_logarithms + opened);
    });
    if (opened == 0) return;
    target_.log_ratio(opened, open_places, open_answers);
    for_each_vector<V>(opened, [&](auto at) {
      at.store(open_answers, as_answer<V>(at.load(open_logarithms) <= at.load(open_answers)));
    });
    Expander<V> answer_open(open_answers);
    for_each_vector<V>(n, [&](auto at) {
      const uint32_t bits = open(at);
      at.store(answers, select(chosen<V>(bits), answer_open(bits), at.load(answers)));
    });
  }

  void place_in_tails(int32_t n, const double* u, const double* v, double* place, double* height) {
    double logarithm[kCandidates];
    if (n == 0) return;
    kernels::ln.call(Level::high, n, v, logarithm);
    for_each_vector<V>(n, [&](auto at) {
      const Mask<V> to_left = at.load(u) <= V(hat_.p3);
      const V rate = select(to_left, V(hat_.left), V(hat_.right)), beyond = at.load(logarithm) / rate;
      at.store(place, round<Direction::down>(select(to_left, V(hat_.xl) + beyond, V(hat_.xr) - beyond)));
      at.store(height, at.load(v) * ((at.load(u) - select(to_left, V(hat_.p2), V(hat_.p3))) * rate));
    });
  }

  Uniforms<float>& uniforms_;
  const TriangleHat& hat_;
  const Target& target_;
};

}  // namespace orvik::qor
