// How well numbers fit a distribution: Kolmogorov and Smirnov's test for numbers, Pearson's for integers, and moments.
#pragma once

#include <algorithm>
#include <boost/math/special_functions/gamma.hpp>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <vector>

namespace orvik::testing {

// Probability of a distance as large as that of the sample (Stephens 1970). A number stands for all that round to it.
// The distance is taken at every 50th number, which loses 0.05 of the statistic where 10^6 are given.
template <class T, class Cdf>
double kolmogorov_p(std::vector<T> x, Cdf cdf) {
  std::sort(x.begin(), x.end());
  const double n = static_cast<double>(x.size());
  constexpr T kInfinity = std::numeric_limits<T>::infinity();
  double distance = 0;
  for (size_t i = 0; i < x.size(); i += 50) {
    const auto [first, last] = std::equal_range(x.begin(), x.end(), x[i]);
    const double below = cdf(static_cast<double>(std::nextafter(x[i], -kInfinity)));
    const double above = cdf(static_cast<double>(std::nextafter(x[i], kInfinity)));
    distance = std::max({distance, below - static_cast<double>(first - x.begin()) / n,
                         static_cast<double>(last - x.begin()) / n - above});
  }
  const double root = std::sqrt(n), z = (root + 0.12 + 0.11 / root) * distance;
  if (z < 0.3) return 1;
  double p = 0;
  for (int k = 1; k < 50; ++k) p += (k % 2 == 1 ? 2 : -2) * std::exp(-2 * k * k * z * z);
  return std::clamp(p, 0.0, 1.0);
}

// Cells of consecutive integers with at least 50 expected numbers each; the two tails are cells as well.
template <class Pmf>
double pearson_p(const std::vector<int32_t>& x, Pmf pmf) {
  std::map<int64_t, int64_t> counts;
  for (const int32_t v : x) ++counts[v];
  const double n = static_cast<double>(x.size());
  const int64_t low = counts.begin()->first, high = counts.rbegin()->first;
  double statistic = 0, expected = 0, observed = 0, expected_before = 0, observed_before = 0;
  int cells = 0;
  const auto close = [&](double e, double o) {
    statistic += (o - e) * (o - e) / e;
    ++cells;
  };
  for (int64_t k = low; k <= high; ++k) {
    expected += n * pmf(static_cast<double>(k));
    if (const auto at = counts.find(k); at != counts.end()) observed += static_cast<double>(at->second);
    if (expected < 50 || n - expected_before - expected < 50) continue;
    close(expected, observed);
    expected_before += expected;
    observed_before += observed;
    expected = observed = 0;
  }
  close(n - expected_before, n - observed_before);
  return cells < 2 ? 1 : boost::math::gamma_q((cells - 1) / 2.0, statistic / 2);
}

// The same over cells of about equal probability, of integers that spread over too many.
template <class Cdf>
double pearson_p_of_cells(std::vector<int32_t> x, Cdf cdf) {
  constexpr int kCells = 400;
  std::sort(x.begin(), x.end());
  const double n = static_cast<double>(x.size());
  double statistic = 0, below = 0;
  size_t counted = 0;
  int cells = 0;
  int64_t low = -1;
  const auto close = [&](double probability, size_t count) {
    const double expected = n * probability, off = static_cast<double>(count) - expected;
    statistic += off * off / expected;
    ++cells;
  };
  for (int i = 1; i < kCells; ++i) {
    int64_t high = std::numeric_limits<int32_t>::max(), before = low;  // the end of a cell lies in (before, high]
    while (high - before > 1) {
      const int64_t middle = before + (high - before) / 2;
      (cdf(static_cast<double>(middle)) >= static_cast<double>(i) / kCells ? high : before) = middle;
    }
    const double probability = cdf(static_cast<double>(high));
    if (n * (probability - below) < 50 || n * (1 - probability) < 50) continue;
    const auto at = static_cast<size_t>(std::upper_bound(x.begin(), x.end(), high) - x.begin());
    close(probability - below, at - counted);
    low = high, below = probability, counted = at;
  }
  close(1 - below, x.size() - counted);
  return cells < 2 ? 1 : boost::math::gamma_q((cells - 1) / 2.0, statistic / 2);
}

struct Moments {
  double mean, variance, mean_error, variance_error;  // errors: one standard deviation of the estimates
};
template <class T>
Moments moments(const std::vector<T>& x) {
  const double n = static_cast<double>(x.size());
  double sum = 0, square = 0, fourth = 0;
  for (const T v : x) sum += static_cast<double>(v);
  const double mean = sum / n;
  for (const T v : x) {
    const double d = static_cast<double>(v) - mean;
    square += d * d;
    fourth += d * d * d * d;
  }
  square /= n, fourth /= n;
  return {mean, square, std::sqrt(square / n), std::sqrt(std::max(fourth - square * square, 0.0) / n)};
}

}  // namespace orvik::testing
