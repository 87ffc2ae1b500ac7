// Inversion by plain sums of probabilities in extended precision, for tests of discrete distributions.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace orvik::testing {

inline long double log_gamma(long double x) {
  int sign;
  return lgammal_r(x, &sign);
}

// P(X <= k) from logarithms of probabilities; numbers outside [first, last] have none that count.
class Sums {
 public:
  template <class LogProbability>
  Sums(int64_t first, int64_t last, LogProbability log_probability) : first_(std::max<int64_t>(first, 0)) {
    long double sum = 0;
    for (int64_t k = first_; k <= last; ++k) below_or_at_.push_back(sum += std::exp(log_probability(k)));
  }
  // P(X < k)
  double below(int64_t k) const {
    return k <= first_ ? 0 : static_cast<double>(below_or_at_.at(static_cast<size_t>(k - 1 - first_)));
  }
  // The least k with u <= P(X <= k).
  int32_t operator()(long double u) const {
    const auto at = std::lower_bound(below_or_at_.begin(), below_or_at_.end(), u);
    return static_cast<int32_t>(first_ + (at - below_or_at_.begin()));
  }

 private:
  int64_t first_;
  std::vector<long double> below_or_at_;
};

inline Sums poisson_sums(double lambda) {
  const double wide = 9 * std::sqrt(lambda) + 40;
  return {static_cast<int64_t>(lambda - wide), static_cast<int64_t>(lambda + 1.3 * wide), [=](int64_t k) {
            const auto x = static_cast<long double>(k), mean = static_cast<long double>(lambda);
            return lambda > 0 ? x * std::log(mean) - mean - log_gamma(x + 1) : k == 0 ? 0.0L : -1e9L;
          }};
}

// ln P(k) of the negative binomial distribution
inline long double log_negative_binomial(double a, double p, int64_t k) {
  const auto x = static_cast<long double>(k), b = static_cast<long double>(a), s = static_cast<long double>(p);
  return log_gamma(x + b) - log_gamma(x + 1) - log_gamma(b) + b * std::log(s) + x * std::log1p(-s);
}

}  // namespace orvik::testing
