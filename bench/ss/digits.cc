// Correct decimal digits of variance and covariance by mean over deviation, number of observations and method, against
// two passes in long double over the data as stored. Prints the table of docs/statistics.md.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

#include "ss/task.h"

namespace {

using namespace orvik::bench;

double digits(long double got, long double want, double most) {
  const long double error = std::fabs(got - want) / std::fabs(want);
  if (!(error < 1)) return 0;
  return error == 0 ? most : std::min(most, static_cast<double>(-std::log10(error)));
}

template <class T>
void row(double ratio, int64_t n) {
  std::mt19937_64 engine(1);
  std::normal_distribution<double> normal;
  std::vector<T> x(2 * n);
  for (int64_t i = 0; i < n; ++i) {
    const double a = normal(engine), b = 0.5 * a + normal(engine);
    x[2 * i] = static_cast<T>(ratio + a), x[2 * i + 1] = static_cast<T>(ratio + b);
  }
  long double mean[2] = {}, variance = 0, covariance = 0;
  for (int64_t i = 0; i < n; ++i) mean[0] += x[2 * i], mean[1] += x[2 * i + 1];
  for (auto& m : mean) m /= static_cast<long double>(n);
  for (int64_t i = 0; i < n; ++i) {
    const long double d = x[2 * i] - mean[0];
    variance += d * d, covariance += d * (x[2 * i + 1] - mean[1]);
  }
  variance /= static_cast<long double>(n - 1), covariance /= static_cast<long double>(n - 1);

  const double most = sizeof(T) == 4 ? 7 : 15;
  const int64_t p = 2, storage = ORVIK_SS_STORAGE_COLUMNS, full = 0;
  T m[2] = {}, raw[2] = {}, central[2] = {}, matrix[4] = {};
  OrvikSSTask task = nullptr;
  Entries<T>::new_task(&task, &p, &n, &storage, x.data(), nullptr, nullptr, 1);
  Entries<T>::edit(task, OrvikSS_mean, m);
  Entries<T>::edit(task, OrvikSS_rawMoment2, raw);
  Entries<T>::edit(task, OrvikSS_centralMoment2, central);
  Entries<T>::edit(task, OrvikSS_covariance, matrix);
  __qoriSSEditTask(task, OrvikSS_covarianceStorage, &full);
  printf("| %s | 10^%.0f | 10^%.0f |", sizeof(T) == 4 ? "float" : "double", std::log10(ratio),
         std::log10(static_cast<double>(n)));
  for (uint64_t method : {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS, ORVIK_SS_METHOD_USER_MEAN}) {
    // The user's mean is the one that one pass has left.
    Entries<T>::basic(task, ORVIK_SS_CENTRAL_MOMENT2, method, nullptr);
    const double kept = digits(central[0], variance, most);
    Entries<T>::basic(task, ORVIK_SS_COVARIANCE, method, nullptr);
    printf(" %.1f | %.1f |", kept, digits(matrix[1], covariance, most));
  }
  printf("\n");
  __qorSSDeleteTask(&task);
}

}  // namespace

int main() {
  printf("| precision | mean / deviation | n | fast: variance | covariance | one pass: variance | covariance | user mean: "
         "variance | covariance |\n|---|---|---|---|---|---|---|---|---|\n");
  for (double ratio : {1.0, 1e2, 1e4, 1e6, 1e8}) {
    for (int64_t n : {100, 10'000, 1'000'000}) row<double>(ratio, n);
  }
  for (double ratio : {1.0, 10.0, 100.0, 1000.0, 10000.0}) {
    for (int64_t n : {100, 10'000, 1'000'000}) row<float>(ratio, n);
  }
}
