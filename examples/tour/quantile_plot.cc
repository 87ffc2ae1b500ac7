#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <orvik/front.hpp>
#include <string>
#include <vector>

#include "sections.h"

namespace tour {
namespace {

// Sorted values of a column and where a normal distribution would have them: quantiles of the plotting positions
// (i - 3/8) / (n + 1/4) (Blom 1958).
struct QuantilePlot {
  std::vector<double> value, normal;

  explicit QuantilePlot(const Column& column) : value(column.present()), normal(value.size()) {
    std::sort(value.begin(), value.end());
    const auto n = static_cast<double>(value.size());
    for (size_t i = 0; i < value.size(); ++i) normal[i] = (static_cast<double>(i) + 0.625) / (n + 0.25);
    orvik::cdfnorminv(normal, normal);
  }

  // Mean and slope of the straight line through the points by least squares; how well it fits.
  double mean = 0, slope = 0, correlation = 0;
  bool fit() {
    if (value.size() < 3) return false;
    for (double v : value) mean += v / static_cast<double>(value.size());
    double xx = 0, xy = 0, yy = 0;
    for (size_t i = 0; i < value.size(); ++i) {
      xx += normal[i] * normal[i];
      xy += normal[i] * (value[i] - mean);
      yy += (value[i] - mean) * (value[i] - mean);
    }
    slope = xy / xx;
    correlation = yy > 0 ? xy / std::sqrt(xx * yy) : 1;
    return true;
  }

  // Normal quantiles to the right, values upwards; the line as dots.
  void draw() const {
    constexpr int kRows = 13, kColumns = 61;
    std::vector<std::string> picture(kRows, std::string(kColumns, ' '));
    const double left = normal.front(), width = normal.back() - left;
    const double low = value.front(), height = value.back() - low;
    if (!(height > 0)) return;
    const auto put = [&](double x, double y, char c) {
      const auto column = std::lround((x - left) / width * (kColumns - 1));
      const auto row = std::lround((y - low) / height * (kRows - 1));
      if (row >= 0 && row < kRows) picture[static_cast<size_t>(kRows - 1 - row)][static_cast<size_t>(column)] = c;
    };
    for (int i = 0; i < kColumns; ++i) {
      const double x = left + width * i / (kColumns - 1);
      put(x, mean + slope * x, '.');
    }
    for (size_t i = 0; i < value.size(); ++i) put(normal[i], value[i], 'o');
    for (size_t row = 0; row < kRows; ++row) {
      const bool end = row == 0 || row == kRows - 1;
      if (end) std::printf("  %8.4g |%s\n", row == 0 ? value.back() : low, picture[row].c_str());
      if (!end) std::printf("  %8s |%s\n", "", picture[row].c_str());
    }
    std::printf("  %8s  %-*.2f%.2f\n", "", kColumns - 4, left, normal.back());
  }
};

}  // namespace

void show_quantile_plot(const Table& table) {
  std::printf("  correlation of sorted values with normal quantiles (1: a normal distribution)\n");
  QuantilePlot straightest{Column{}};
  const Column* best = nullptr;
  for (const Column& column : table.columns) {
    QuantilePlot plot(column);
    if (!plot.fit()) continue;
    std::printf("  %-10.10s %.4f\n", column.name.c_str(), plot.correlation);
    if (best == nullptr || plot.correlation > straightest.correlation) straightest = plot, best = &column;
  }
  if (best == nullptr) return;
  std::printf("\n  %s against normal quantiles, and the line %.4g + %.4g z\n", best->name.c_str(), straightest.mean,
              straightest.slope);
  straightest.draw();
}

}  // namespace tour
