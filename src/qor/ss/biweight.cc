#include "qor/ss/biweight.h"

#include <algorithm>
#include <cmath>

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

template <class T>
double solve_scale(const Biweight& b, double loss, int64_t n, const T* d, double start) {
  // The mean loss falls as s grows, from the share of distances above 0 times the ceiling.
  int64_t positive = 0, finite = 0;
  for (int64_t i = 0; i < n; ++i) {
    positive += !(d[i] == 0);
    finite += std::isfinite(d[i]);
  }
  const auto count = static_cast<double>(n);
  if (static_cast<double>(positive) * b.ceiling() <= loss * count) return 0;
  if (static_cast<double>(n - finite) * b.ceiling() >= loss * count) return 0;
  double s = start, low = 0, high = INFINITY;
  for (int round = 0; round < 100; ++round) {
    double mean = 0, slope = 0;
    const double inverse = 1 / s;
    for (int64_t i = 0; i < n; ++i) {
      const double u = static_cast<double>(d[i]) * inverse;
      mean += b.rho(u);
      const double w = b.weight(u);
      if (w > 0) slope += w * u * u;
    }
    const double fault = mean / count - loss;
    (fault > 0 ? low : high) = s;
    if (std::fabs(fault) <= 1e-12 * loss) break;
    // Newton's step for 1 / s^2, in which the mean loss is a straight line as long as nothing is bent.
    const double ratio = 1 - 2 * fault * count / slope;
    double next = s / std::sqrt(ratio);
    if (!(next > low && next < high) || !std::isfinite(next)) next = std::isinf(high) ? 2 * s : (low + high) / 2;
    const bool still = std::fabs(next - s) <= 1e-10 * s;
    s = next;
    if (still) break;
  }
  return s;
}
template double solve_scale(const Biweight&, double, int64_t, const float*, double);
template double solve_scale(const Biweight&, double, int64_t, const double*, double);

}  // namespace orvik::ss
