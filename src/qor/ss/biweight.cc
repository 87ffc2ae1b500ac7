#include "qor/ss/biweight.h"

#include <algorithm>
#include <cmath>

#include "lanes/lanes.h"
#include "lanes/sums.h"
#include "qor/ss/chi_square.h"
#include "qor/ss/kernels.h"

namespace orvik::ss {
namespace {

constexpr double kPrecision = 1e-10;  // relative, of the constants; 1e-4 would do

// Gauss and Legendre's rule of kPoints points on (-1, 1), its nodes by Newton's steps.
struct GaussLegendre {
  static constexpr int kPoints = 20;
  double node[kPoints], weight[kPoints];

  GaussLegendre() {
    for (int k = 0; k < kPoints; ++k) {
      double x = std::cos(M_PI * (k + 0.75) / (kPoints + 0.5)), slope = 1;
      for (int round = 0; round < 8; ++round) {
        double before = 1, value = x;
        for (int j = 2; j <= kPoints; ++j) {
          const double next = ((2 * j - 1) * x * value - (j - 1) * before) / j;
          before = value;
          value = next;
        }
        slope = kPoints * (x * value - before) / (x * x - 1);
        x -= value / slope;
      }
      node[k] = x;
      weight[k] = 2 / ((1 - x * x) * slope * slope);
    }
  }

  // f over (a, b), in pieces.
  template <class F>
  double integral(double a, double b, F&& f) const {
    constexpr int kPieces = 8;
    double sum = 0;
    const double half = (b - a) / (2 * kPieces);
    for (int piece = 0; piece < kPieces; ++piece) {
      const double middle = a + (2 * piece + 1) * half;
      for (int k = 0; k < kPoints; ++k) sum += weight[k] * f(middle + half * node[k]);
    }
    return sum * half;
  }
};

// Expected losses for one number of variables.
class Losses {
 public:
  explicit Losses(double p) : p_(p), log_norm_((1 - p / 2) * M_LN2 - kernel_lgamma(p / 2)) {}

  // E d^2 of the part below r is p P(chi-square of p + 2 degrees < r^2).
  double expected(const Biweight& b) const {
    const double reach = b.m + b.c;
    double loss = b.ceiling() * chi_square_above(p_, reach * reach);
    if (b.m > 0) loss += 0.5 * p_ * chi_square_below(p_ + 2, b.m * b.m);
    // Thirteen deviations and more from the root of p nothing is left of the density.
    const double low = std::max(b.m, std::sqrt(p_) - 13), high = std::min(reach, std::sqrt(p_) + 13);
    if (low < high) loss += rule_.integral(low, high, [&](double d) { return b.rho(d) * density(d); });
    return loss;
  }
  // Share of the largest loss that is expected; falls as the constants grow together.
  double share(const Biweight& b) const { return expected(b) / b.ceiling(); }

 private:
  // Of the distance, the root of a chi-square number.
  double density(double d) const { return std::exp(log_norm_ + (p_ - 1) * std::log(d) - 0.5 * d * d); }

  double p_, log_norm_;
  GaussLegendre rule_;
};

// Where a falling function of (0, infinity) passes `value`.
template <class F>
double solve_falling(double value, double start, F&& f) {
  double low = start, high = start;
  while (low > 1e-100 && f(low) < value) low /= 2;
  while (high < 1e100 && f(high) > value) high *= 2;
  while (high - low > kPrecision * high) {
    const double middle = (low + high) / 2;
    if (middle == low || middle == high) break;
    (f(middle) > value ? low : high) = middle;
  }
  return (low + high) / 2;
}

}  // namespace

double expected_loss(const Biweight& b, double p) { return Losses(p).expected(b); }

Biweight find_biweight(double p, double breakdown, double rejection) {
  const Losses losses(p);
  const double reach = std::sqrt(chi_square_quantile(1 - rejection, p));
  if (losses.share({0, reach}) <= breakdown) {
    return {0, solve_falling(breakdown, reach, [&](double c) { return losses.share({0, c}); })};
  }
  if (losses.share({reach, 0}) >= breakdown) {
    return {solve_falling(breakdown, reach, [&](double m) { return losses.share({m, 0}); }), 0};
  }
  // Between the two, the share falls as m takes from c.
  double low = 0, high = reach;
  while (high - low > kPrecision * reach) {
    const double m = (low + high) / 2;
    (losses.share({m, reach - m}) > breakdown ? low : high) = m;
  }
  return {low, reach - low};
}

namespace {

// Loss and w u^2 of scaled distances, added up in four lanes.
template <class T>
void add_losses(const Biweight& b, double inverse, int64_t n, const T* d, double* loss, double* squares) {
  using V = VectorOf<double>;
  constexpr int64_t kLanes = kWidth<V>;
  const double reach = b.m + b.c, c = b.c > 0 ? 1 / b.c : 0;
  const V ceiling = V(b.ceiling()), inner = V(0.5 * b.m * b.m), cm = V(b.c * b.m), cc = V(b.c * b.c);
  V sum = V(0.0), slope = V(0.0);
  const auto add = [&](V distances) __attribute__((always_inline)) {
    const V u = distances * V(inverse), u2 = u * u;
    const auto near = u <= V(b.m), within = u < V(reach);
    // As Biweight::rho and weight, all three cases at once.
    const V t = (u - V(b.m)) * V(c), s = t * t, bend = V(1.0) - s;
    const V first = t * (V(1.0) - s * (V(2.0 / 3) - s * V(0.2)));
    const V second = s * (V(0.5) - s * (V(0.5) - s * V(1.0 / 6)));
    const V between = inner + cm * first + cc * second;
    sum = sum + select(near, V(0.5) * u2, select(within, between, ceiling));
    slope = slope + select(near, u2, keep(within, bend * bend * u2));
  };
  int64_t i = 0;
  for (; i + kLanes <= n; i += kLanes) add(load_wide(d + i));
  double rest[kLanes] = {};  // a distance of 0 has no loss
  for (int64_t k = 0; i + k < n; ++k) rest[k] = static_cast<double>(d[i + k]);
  add(load<V>(rest));
  *loss = horizontal_sum(sum);
  *squares = horizontal_sum(slope);
}

}  // namespace

template <class T>
int32_t solve_scale(const Biweight& b, double loss, int64_t n, const T* d, const OrvikThreading* threading, double* s) {
  const Chunks chunks(n);
  int64_t positives[Chunks::kMost], finites[Chunks::kMost];
  int32_t status = chunks.run(threading, [&](int32_t chunk, int64_t i, int64_t end) {
    int64_t positive = 0, finite = 0;
    for (; i < end; ++i) {
      positive += !(d[i] == 0);
      finite += std::isfinite(d[i]);
    }
    positives[chunk] = positive;
    finites[chunk] = finite;
  });
  if (status != kDone) return status;
  int64_t positive = 0, finite = 0;
  for (int32_t k = 0; k < chunks.count; ++k) positive += positives[k], finite += finites[k];
  // The mean loss falls as s grows, from the share of distances above 0 times the ceiling.
  const auto count = static_cast<double>(n);
  const bool none = static_cast<double>(positive) * b.ceiling() <= loss * count ||
                    static_cast<double>(n - finite) * b.ceiling() >= loss * count;
  if (none) {
    *s = 0;
    return kDone;
  }
  double low = 0, high = INFINITY, losses[Chunks::kMost], slopes[Chunks::kMost];
  for (int round = 0; round < 100; ++round) {
    status = chunks.run(threading, [&, inverse = 1 / *s](int32_t chunk, int64_t i, int64_t end) {
      add_losses(b, inverse, end - i, d + i, &losses[chunk], &slopes[chunk]);
    });
    if (status != kDone) return status;
    double mean = 0, slope = 0;
    for (int32_t k = 0; k < chunks.count; ++k) mean += losses[k], slope += slopes[k];
    const double fault = mean / count - loss;
    (fault > 0 ? low : high) = *s;
    if (std::fabs(fault) <= 1e-12 * loss) break;
    // Newton's step for 1 / s^2, in which the mean loss is a straight line as long as nothing is bent.
    const double ratio = 1 - 2 * fault * count / slope;
    double next = *s / std::sqrt(ratio);
    if (!(next > low && next < high) || !std::isfinite(next)) next = std::isinf(high) ? 2 * *s : (low + high) / 2;
    const bool still = std::fabs(next - *s) <= 1e-10 * *s;
    *s = next;
    if (still) break;
  }
  return kDone;
}

template <class T>
int32_t weigh_distances(const Biweight& b, double s, int64_t n, const T* d, const OrvikThreading* threading, T* weights,
                        double* squares) {
  const Chunks chunks(n);
  double sums[Chunks::kMost];
  const int32_t status = chunks.run(threading, [&](int32_t chunk, int64_t i, int64_t end) {
    double sum = 0;
    for (; i < end; ++i) {
      const double u = static_cast<double>(d[i]) / s, w = b.weight(u);
      weights[i] = static_cast<T>(w);
      if (w > 0) sum += w * u * u;
    }
    sums[chunk] = sum;
  });
  *squares = 0;
  for (int32_t k = 0; status == kDone && k < chunks.count; ++k) *squares += sums[k];
  return status;
}

#define ORVIK_INSTANTIATE(T)                                                                                \
  template int32_t solve_scale(const Biweight&, double, int64_t, const T*, const OrvikThreading*, double*); \
  template int32_t weigh_distances(const Biweight&, double, int64_t, const T*, const OrvikThreading*, T*, double*);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss
