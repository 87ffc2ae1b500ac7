// How even points of the unit cube are.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace orvik::support {

// Star discrepancy of points of the unit square, x[2 i], x[2 i + 1], exactly (De Clerck 1986): n^2 steps.
inline double star_discrepancy(const std::vector<double>& x) {
  const size_t n = x.size() / 2;
  std::vector<size_t> order(n);
  for (size_t i = 0; i < n; ++i) order[i] = i;
  std::sort(order.begin(), order.end(), [&](size_t i, size_t j) { return x[2 * i] < x[2 * j]; });
  std::vector<double> y = {0, 1};  // of the points so far, ascending, between 0 and 1
  double worst = 0, left = 0;
  for (size_t i = 0; i <= n; ++i) {
    const double right = i < n ? x[2 * order[i]] : 1;
    for (size_t k = 0; k <= i; ++k) {
      const double share = static_cast<double>(k) / static_cast<double>(n);
      worst = std::max({worst, std::fabs(share - left * y[k]), std::fabs(share - right * y[k + 1])});
    }
    if (i == n) break;
    const double next = x[2 * order[i] + 1];
    y.insert(std::lower_bound(y.begin() + 1, y.end() - 1, next), next);
    left = right;
  }
  return worst;
}

// Mean square discrepancy over all boxes from the origin, its root (Warnock 1972): n^2 s steps.
inline double mean_star_discrepancy(const std::vector<double>& x, size_t dim) {
  const size_t n = x.size() / dim;
  const double count = static_cast<double>(n);
  double single = 0, pairs = 0;
  for (size_t i = 0; i < n; ++i) {
    double own = 1;
    for (size_t d = 0; d < dim; ++d) own *= (1 - x[i * dim + d] * x[i * dim + d]) / 2;
    single += own;
    double row = 0;  // sums of sums: the terms cancel to a small part of their sum
    for (size_t j = 0; j <= i; ++j) {
      double both = 1;
      for (size_t d = 0; d < dim; ++d) both *= 1 - std::max(x[i * dim + d], x[j * dim + d]);
      row += i == j ? both : 2 * both;
    }
    pairs += row;
  }
  return std::sqrt(std::pow(3, -static_cast<double>(dim)) - 2 * single / count + pairs / (count * count));
}

// The same of random points: the root of the expected square.
inline double random_mean_star_discrepancy(size_t n, size_t dim) {
  const double s = static_cast<double>(dim);
  return std::sqrt((std::pow(2, -s) - std::pow(3, -s)) / static_cast<double>(n));
}

}  // namespace orvik::support
