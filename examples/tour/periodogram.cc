#include <cmath>
#include <cstdio>
#include <numbers>
#include <orvik/front.hpp>
#include <vector>

#include "sections.h"

namespace tour {
namespace {

// Deviations from the mean, as complex numbers; a missing value counts as the mean.
std::vector<std::complex<double>> deviations(const Column& column) {
  double sum = 0;
  const std::vector<double> present = column.present();
  for (double value : present) sum += value;
  const double mean = sum / static_cast<double>(present.size());
  std::vector<std::complex<double>> z;
  for (double value : column.values) z.emplace_back(std::isnan(value) ? 0 : value - mean);
  return z;
}

// |1/n sum of z[t] e^(-2 pi i k t / n)| for k = 1 .. n/2.
std::vector<double> amplitudes(const std::vector<std::complex<double>>& z) {
  const size_t n = z.size();
  const auto count = static_cast<double>(n);
  std::vector<double> angle(n);
  std::vector<std::complex<double>> wave(n), product(n), line(n / 2);
  for (size_t k = 1; k <= n / 2; ++k) {
    for (size_t t = 0; t < n; ++t) angle[t] = 2 * std::numbers::pi * static_cast<double>(k * t % n) / count;
    orvik::cis(angle, wave);
    orvik::mulbyconj(z, wave, product);
    for (const std::complex<double>& p : product) line[k - 1] += p / count;
  }
  return orvik::abs(line);
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
