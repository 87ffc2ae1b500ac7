#include <orvik/zym.h>

#include <cmath>
#include <cstdio>
#include <numbers>
#include <vector>

#include "sections.h"

namespace tour {
namespace {

// Deviations from the mean, as complex numbers; a missing value counts as the mean.
std::vector<ZymComplexDouble> deviations(const Column& column) {
  double sum = 0;
  const std::vector<double> present = column.present();
  for (double value : present) sum += value;
  const double mean = sum / static_cast<double>(present.size());
  std::vector<ZymComplexDouble> z;
  for (double value : column.values) z.push_back({std::isnan(value) ? 0 : value - mean, 0});
  return z;
}

// |1/n sum of z[t] e^(-2 pi i k t / n)| for k = 1 .. n/2.
std::vector<double> amplitudes(const std::vector<ZymComplexDouble>& z) {
  const size_t n = z.size();
  const auto count = static_cast<int32_t>(n);
  std::vector<double> angle(n), length(n / 2);
  std::vector<ZymComplexDouble> wave(n), product(n), line(n / 2);
  for (size_t k = 1; k <= n / 2; ++k) {
    for (size_t t = 0; t < n; ++t) angle[t] = 2 * std::numbers::pi * static_cast<double>(k * t % n) / count;
    _zymzCIS(count, angle.data(), wave.data());
    _zymzMulByConj(count, z.data(), wave.data(), product.data());
    for (const ZymComplexDouble& p : product) line[k - 1].re += p.re / count, line[k - 1].im += p.im / count;
  }
  _zymzAbs(static_cast<int32_t>(n / 2), line.data(), length.data());
  return length;
}

}  // namespace

void show_periodogram(const Table& table) {
  for (const Column& column : table.columns) {
    const size_t n = column.values.size();
    if (n < 4 || column.present().empty()) continue;
    const std::vector<double> length = amplitudes(deviations(column));
    size_t strongest = 0;
    double total = 0;
    std::vector<double> power(length.size());
    for (size_t k = 0; k < length.size(); ++k) {
      power[k] = (2 * (k + 1) == n ? 1 : 2) * length[k] * length[k];  // the conjugate line as well
      total += power[k];
      if (power[k] > power[strongest]) strongest = k;
    }
    if (total == 0) continue;
    std::printf("  %-8s strongest period %6.2f rows, %4.1f%% of the variance %g\n", column.name.c_str(),
                static_cast<double>(n) / static_cast<double>(strongest + 1), 100 * power[strongest] / total, total);
  }
}

}  // namespace tour
