#include "front/statistics/state.h"

#include <cmath>
#include <limits>

namespace orvik::front {

Moments::Moments(int64_t variables, double* memory) : p(variables) {
  count = reinterpret_cast<int64_t*>(memory);
  weights = memory + 1;
  mean = memory + 3;
  second = mean + p;
  third = second + p;
  fourth = third + p;
  low = fourth + p;
  high = low + p;
  products = high + p;
}

void Moments::clear() {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  *count = 0;
  weights[0] = weights[1] = 0;
  for (int64_t j = 0; j < p; ++j) {
    mean[j] = second[j] = third[j] = fourth[j] = 0;
    low[j] = kInfinity;
    high[j] = -kInfinity;
  }
  for (int64_t k = 0; k < p * p; ++k) products[k] = 0;
}

void Moments::merge(const Moments& other) {
  *count += *other.count;
  for (int64_t j = 0; j < p; ++j) {
    if (!(low[j] <= other.low[j])) low[j] = std::isnan(low[j]) ? low[j] : other.low[j];
    if (!(high[j] >= other.high[j])) high[j] = std::isnan(high[j]) ? high[j] : other.high[j];
  }
  const double a = weights[0], b = other.weights[0], sum = a + b;
  if (b == 0) return;
  weights[0] = sum;
  weights[1] += other.weights[1];
  const double part = b / sum, cross = a * part;
  // Products first: they need the means as they were.
  for (int64_t i = 0; i < p; ++i) {
    const double di = other.mean[i] - mean[i];
    for (int64_t j = 0; j <= i; ++j) {
      const double grown =
          products[i * p + j] + other.products[i * p + j] + (a == 0 ? 0 : cross * di * (other.mean[j] - mean[j]));
      products[i * p + j] = products[j * p + i] = grown;
    }
  }
  for (int64_t j = 0; j < p; ++j) {
    if (a == 0) {
      mean[j] = other.mean[j], second[j] = other.second[j], third[j] = other.third[j], fourth[j] = other.fourth[j];
      continue;
    }
    const double d = other.mean[j] - mean[j], d_sum = d / sum, d2 = d * d_sum;
    const double second_a = second[j], second_b = other.second[j], third_a = third[j], third_b = other.third[j];
    second[j] = second_a + second_b + cross * (d * d);
    third[j] = third_a + third_b + 3 * d_sum * (a * second_b - b * second_a) + cross * d2 * (a - b) * d;
    fourth[j] = fourth[j] + other.fourth[j] + 4 * d_sum * (a * third_b - b * third_a) +
                6 * (d_sum * d_sum) * (a * a * second_b + b * b * second_a) + cross * d2 * d2 * (a * a - a * b + b * b);
    mean[j] += d * part;
  }
}

}  // namespace orvik::front
