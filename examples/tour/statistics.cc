#include <orvik/ss.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "sections.h"

namespace tour {
namespace {

// Prints the status of a call that failed; the tour goes on.
bool done(int32_t status, const char* what) {
  if (status != 0) std::printf("  %s: status %d\n", what, status);
  return status == 0;
}

// Every estimate of one column.
void summarize(const Column& column) {
  const std::vector<double> x = column.present();
  if (x.empty()) {
    std::printf("  %-10s %6d\n", column.name.c_str(), 0);
    return;
  }
  const int32_t one = 1, n = static_cast<int32_t>(x.size()), storage = ORVIK_SS_STORAGE_ROWS, orders = 3;
  const double quartile_orders[3] = {0.25, 0.5, 0.75};
  double mean = 0, raw[3] = {}, central[3] = {}, skewness = 0, kurtosis = 0, quartiles[3] = {}, low = x[0], high = x[0];
  OrvikSSTask task;
  if (!done(__qordSSNewTask(&task, &one, &n, &storage, x.data(), nullptr, nullptr, 0), "new task")) return;
  __qordSSEditMoments(task, &mean, &raw[0], &raw[1], &raw[2], &central[0], &central[1], &central[2]);
  __qordSSEditTask(task, OrvikSS_skewness, &skewness);
  __qordSSEditTask(task, OrvikSS_kurtosis, &kurtosis);
  __qordSSEditTask(task, OrvikSS_minimum, &low);
  __qordSSEditTask(task, OrvikSS_maximum, &high);
  __qordSSEditQuantiles(task, &orders, quartile_orders, quartiles, nullptr, nullptr);
  const bool fine =
      done(_qordSSBasic(task, ORVIK_SS_SKEWNESS | ORVIK_SS_KURTOSIS, ORVIK_SS_METHOD_ONE_PASS, nullptr), "moments") &&
      done(_qordSSMinmax(task, ORVIK_SS_MINIMUM | ORVIK_SS_MAXIMUM, ORVIK_SS_METHOD_ONE_PASS), "extremes") &&
      done(_qordSSQuantiles(task, ORVIK_SS_QUANTILES, ORVIK_SS_METHOD_FAST, nullptr), "quartiles");
  __qorSSDeleteTask(&task);
  if (!fine) return;
  std::printf("  %-10s %6d %9.4g %9.4g %8.4g %8.4g %8.4g %8.4g %8.4g %9.3f %9.3f\n", column.name.c_str(), n, mean,
              std::sqrt(central[0]), low, quartiles[0], quartiles[1], quartiles[2], high, skewness, kurtosis);
}

// Correlation over the rows without a missing value.
void correlate(const Table& table) {
  const auto p = static_cast<int32_t>(table.columns.size());
  std::vector<double> x;  // observation by observation
  for (size_t row = 0; row < table.rows; ++row) {
    const auto missing = [row](const Column& c) { return std::isnan(c.values[row]); };
    if (std::any_of(table.columns.begin(), table.columns.end(), missing)) continue;
    for (const Column& c : table.columns) x.push_back(c.values[row]);
  }
  const auto n = static_cast<int32_t>(x.size() / table.columns.size());
  if (n == 0) {
    std::printf("\n  no row is complete: no correlation\n");
    return;
  }
  const int32_t storage = ORVIK_SS_STORAGE_COLUMNS, full = ORVIK_SS_MATRIX_FULL;
  std::vector<double> mean(p), correlation(static_cast<size_t>(p) * p);
  OrvikSSTask task;
  if (!done(__qordSSNewTask(&task, &p, &n, &storage, x.data(), nullptr, nullptr, 0), "new task")) return;
  __qordSSEditCovCor(task, mean.data(), nullptr, nullptr, correlation.data(), &full);
  const bool fine =
      done(_qordSSBasic(task, ORVIK_SS_CORRELATION, ORVIK_SS_METHOD_ONE_PASS, nullptr), "correlation");
  __qorSSDeleteTask(&task);
  if (!fine) return;
  std::printf("\n  correlation over the %d complete rows:\n  %-10s", n, "");
  for (const Column& c : table.columns) std::printf(" %9.9s", c.name.c_str());
  std::printf("\n");
  for (int32_t i = 0; i < p; ++i) {
    std::printf("  %-10.10s", table.columns[i].name.c_str());
    for (int32_t j = 0; j < p; ++j) std::printf(" %9.3f", correlation[static_cast<size_t>(i) * p + j]);
    std::printf("\n");
  }
}

// Squares of uniform numbers, made as they are needed (splitmix64, Vigna 2015): quantile q of them is q^2.
struct Squares {
  uint64_t state = 1;
  double operator()() {
    uint64_t z = state += 0x9E3779B97F4A7C15;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
    const double u = static_cast<double>((z ^ (z >> 31)) >> 11) * 0x1p-53;
    return u * u;
  }
};

// How many values the stream has: TOUR_STREAM_VALUES, such as 1e9.
int64_t stream_length() {
  const char* wanted = std::getenv("TOUR_STREAM_VALUES");
  const double count = wanted == nullptr ? 1e8 : std::atof(wanted);
  return count >= 1 && count <= 1e12 ? static_cast<int64_t>(count) : 100'000'000;
}

// A stream too long to keep: blocks of 2^18 values, one after the other, in bounded memory.
void watch_stream() {
  constexpr int32_t kBlock = 1 << 18;
  const int64_t total = stream_length();
  const int32_t one = 1, storage = ORVIK_SS_STORAGE_ROWS, count = 5;
  const double orders[5] = {0.01, 0.25, 0.5, 0.75, 0.99}, epsilon = 0.001;
  double quantiles[5] = {};
  std::vector<double> block(kBlock);
  int32_t n = kBlock;
  OrvikSSTask task;
  if (!done(__qordSSNewTask(&task, &one, &n, &storage, block.data(), nullptr, nullptr, 0), "new task")) return;
  __qordSSEditStreamQuantiles(task, &count, orders, quantiles, &one, &epsilon);
  std::printf("\n  quantiles of a stream of %lld squares of uniform numbers, ranks within %g of all\n",
              static_cast<long long>(total), epsilon);
  Squares next;
  bool fine = true;
  int shown = 0;
  for (int64_t seen = 0; fine && seen < total;) {
    n = static_cast<int32_t>(std::min<int64_t>(kBlock, total - seen));
    std::generate(block.begin(), block.begin() + n, [&] { return next(); });
    fine = done(_qordSSStreamQuantiles(task, 0, 0, nullptr), "stream quantiles");
    seen += n;
    if (const int tenths = static_cast<int>(10 * seen / total); tenths > shown) {
      shown = tenths;
      std::printf("    %3d %%  median so far %.6f\n", 10 * tenths, quantiles[2]);
      std::fflush(stdout);
    }
  }
  for (int k = 0; fine && k < count; ++k) {
    std::printf("    order %.2f: %.6f, rank off by %.6f\n", orders[k], quantiles[k],
                std::fabs(std::sqrt(quantiles[k]) - orders[k]));
  }
  __qorSQuantilesFreeBuffers(task);
  __qorSSDeleteTask(&task);
}

}  // namespace

void show_statistics(const Table& table) {
  std::printf("  %-10s %6s %9s %9s %8s %8s %8s %8s %8s %9s %9s\n", "column", "values", "mean", "deviation", "least",
              "1st qu.", "median", "3rd qu.", "largest", "skewness", "kurtosis");
  for (const Column& column : table.columns) summarize(column);
  correlate(table);
  watch_stream();
}

}  // namespace tour
