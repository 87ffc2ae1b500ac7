// Rejection of integers under a table mountain: a rectangle as high as the mode between exponential tails
// (Kachitvichyanukul, Schmeiser 1985). Two uniforms of type T a candidate.
#pragma once

#include <cstdint>
#include <limits>

#include "lanes/round.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"
#include "qor/rng/vectors.h"

namespace orvik::qor {

struct TableMountain {
  double mode, highest;
  double xl, xr;       // the rectangle, from the first number to behind the last
  double left, right;  // rates of the tails
  double p1, p2, p3;   // areas, summed: rectangle, left tail, right tail

  // Heights of the tails where they begin; 0 for none.
  void set(double left_rate, double left_height, double right_rate, double right_height) {
    left = left_rate;
    right = right_rate;
    p1 = xr - xl;
    p2 = p1 + (left_height > 0 ? left_height / left : 0);
    p3 = p2 + (right_height > 0 ? right_height / right : 0);
  }
};

// log_ratio(n, y, r): logarithms of the probabilities of y by that of the mode, of at most kCandidates numbers.
template <class T, int32_t candidates, class LogRatio>
class MountainBatch {
 public:
  static constexpr int32_t kCandidates = candidates;
  MountainBatch(Uniforms<T>& uniforms, const TableMountain& hat, LogRatio log_ratio)
      : uniforms_(uniforms), hat_(hat), log_ratio_(log_ratio) {}

  int32_t operator()(int32_t count, int32_t* out) {
    using V = F64;
    T w[2 * kCandidates];
    double u[kCandidates], v[kCandidates], y[kCandidates], ratio[kCandidates];
    double tail_u[kCandidates], tail_v[kCandidates], logarithm[kCandidates], place[kCandidates + kBehind<V>],
        height[kCandidates + kBehind<V>];
    Chosen<V, kCandidates> tails, impossible;
    if (count < 1) return 0;
    if (!uniforms_.draw(2 * count, w)) return -1;
    split(count, w, u, v);
    int32_t in_tails = 0;
    for_each_vector<V>(count, [&](auto at) {
      const V at_u = at.load(u) * V(hat_.p3);
      const uint32_t bits = at.bits(at_u > V(hat_.p1));
      tails.set(at, bits);
      at.store(y, V(hat_.xl) + at_u);
      gather_chosen(bits, at_u, tail_u + in_tails);
      in_tails += gather_chosen(bits, at.load(v), tail_v + in_tails);
    });
    // In a tail the height of a candidate has a part of its own.
    if (in_tails > 0) kernels::ln.call(Level::high, in_tails, tail_v, logarithm);
    for_each_vector<V>(in_tails, [&](auto at) {
      const Mask<V> to_left = at.load(tail_u) <= V(hat_.p2);
      const V rate = select(to_left, V(hat_.left), V(hat_.right)), beyond = at.load(logarithm) / rate;
      at.store(place, select(to_left, V(hat_.xl) + beyond, V(hat_.xr) - beyond));
      at.store(height, at.load(tail_v) * ((at.load(tail_u) - select(to_left, V(hat_.p1), V(hat_.p2))) * rate));
    });
    Expander<V> place_in_tail(place), height_in_tail(height);
    for_each_vector<V>(count, [&](auto at) {
      const uint32_t in_tail = tails(at);
      const Mask<V> tail = chosen<V>(in_tail);
      const V number = round<Direction::down>(select(tail, place_in_tail(in_tail), at.load(y)));
      const Mask<V> possible = (number >= V(0)) & (number <= V(hat_.highest));
      impossible.set(at, at.bits(complement(possible)));
      at.store(y, select(possible, number, V(hat_.mode)));
      at.store(v, max(V(std::numeric_limits<double>::min()), select(tail, height_in_tail(in_tail), at.load(v))));
    });
    kernels::ln.call(Level::high, count, v, v);
    log_ratio_(count, y, ratio);
    int32_t kept = 0;
    for_each_vector<V>(count, [&](auto at) {
      const uint32_t accepted = at.bits(at.load(v) <= at.load(ratio)) & ~impossible(at);
      kept += give_chosen(at, accepted, at.load(y), out + kept);
    });
    return kept;
  }

 private:
  Uniforms<T>& uniforms_;
  const TableMountain& hat_;
  LogRatio log_ratio_;
};

}  // namespace orvik::qor
