#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <orvik/front.hpp>
#include <vector>

#include "attempt.h"
#include "sections.h"

namespace tour {
namespace {

// Every estimate of one column.
void summarize(const Column& column) {
  const std::vector<double> x = column.present();
  if (x.empty()) {
    std::printf("  %-10s %6d\n", column.name.c_str(), 0);
    return;
  }
  const auto n = static_cast<std::int64_t>(x.size());
  orvik::Summary<double> s(1);
  s.update(x, n, orvik::Layout::Rows);
  const auto quartiles = orvik::quantiles(x, n, 1, orvik::Layout::Rows, std::vector<double>{0.25, 0.5, 0.75});
  std::printf("  %-10s %6d %9.4g %9.4g %8.4g %8.4g %8.4g %8.4g %8.4g %9.3f %9.3f\n", column.name.c_str(),
              static_cast<int>(n), s.mean()[0], std::sqrt(s.variance()[0]), s.min()[0], quartiles[0], quartiles[1],
              quartiles[2], s.max()[0], s.skewness()[0], s.kurtosis()[0]);
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
  orvik::Summary<double> s(p);
  s.update(x, n, orvik::Layout::Columns);
  const std::vector<double> correlation = s.correlation();
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
  const std::vector<double> orders = {0.01, 0.25, 0.5, 0.75, 0.99};
  const double epsilon = 0.001;
  std::vector<double> block(kBlock);
  orvik::StreamQuantiles<double> stream(1, epsilon);
  std::printf("\n  quantiles of a stream of %lld squares of uniform numbers, ranks within %g of all\n",
              static_cast<long long>(total), epsilon);
  Squares next;
  int shown = 0;
  for (int64_t seen = 0; seen < total;) {
    const auto n = static_cast<size_t>(std::min<int64_t>(kBlock, total - seen));
    const std::span<double> now(block.data(), n);
    std::generate(now.begin(), now.end(), [&] { return next(); });
    stream.update(now, static_cast<int64_t>(n), orvik::Layout::Rows);
    seen += static_cast<int64_t>(n);
    if (const int tenths = static_cast<int>(10 * seen / total); tenths > shown) {
      shown = tenths;
      std::printf("    %3d %%  median so far %.6f\n", 10 * tenths, stream.quantile(0.5)[0]);
      std::fflush(stdout);
    }
  }
  const std::vector<double> quantiles = stream.quantile(orders);
  for (size_t k = 0; k < orders.size(); ++k) {
    std::printf("    order %.2f: %.6f, rank off by %.6f\n", orders[k], quantiles[k],
                std::fabs(std::sqrt(quantiles[k]) - orders[k]));
  }
}

}  // namespace

void show_statistics(const Table& table) {
  std::printf("  %-10s %6s %9s %9s %8s %8s %8s %8s %8s %9s %9s\n", "column", "values", "mean", "deviation", "least",
              "1st qu.", "median", "3rd qu.", "largest", "skewness", "kurtosis");
  for (const Column& column : table.columns) attempt(column.name.c_str(), [&] { summarize(column); });
  attempt("correlation", [&] { correlate(table); });
  attempt("stream quantiles", [] { watch_stream(); });
}

}  // namespace tour
