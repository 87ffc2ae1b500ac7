#include <orvik/zym.h>

#include <cmath>
#include <cstdio>
#include <orvik/front.hpp>
#include <vector>

#include "sections.h"

namespace tour {
namespace {

// Reports seen by the callback, which puts a value of its own in the place of the result.
int32_t reported = 0;

int32_t use_minus_one(ZymErrorContext* context) {
  if (reported++ == 0) {
    std::printf("    first report: %s, element %d, argument %g, result %g, code %d\n", context->functionName,
                context->index, context->arg1, context->result1, context->code);
  }
  context->result1 = -1;
  return 0;  // the standard handling goes on and writes result1 back
}

int count(const std::vector<double>& values, double wanted) {
  int found = 0;
  for (double value : values) found += value == wanted;
  return found;
}

// Steps between successive values and their logarithms; a step of zero has none and is reported.
void show_reports(const Column& column) {
  const std::vector<double> values = column.present();
  if (values.size() < 2) return;
  const auto n = static_cast<int32_t>(values.size() - 1);
  std::vector<double> step(values.size() - 1), logarithm(values.size() - 1);

  _zymdSub(n, values.data() + 1, values.data(), step.data());
  _zymdAbs(n, step.data(), step.data());
  std::printf("  %s: %d steps between successive values, %d of them zero\n", column.name.c_str(), n, count(step, 0));

  _zymClearErrStatus();
  _zymdLn(n, step.data(), logarithm.data());
  std::printf("    without callback: status %d, %d results of -infinity\n", _zymGetErrStatus(),
              count(logarithm, -INFINITY));

  reported = 0;
  _zymClearErrStatus();
  const ZymErrorCallback before = _zymSetErrorCallBack(use_minus_one);
  _zymdLn(n, step.data(), logarithm.data());
  _zymSetErrorCallBack(before);
  std::printf("    with a callback:  status %d, %d reports, %d results of -infinity\n", _zymGetErrStatus(), reported,
              count(logarithm, -INFINITY));
}

void show_mode() {
  const uint32_t mode = _zymGetMode();
  std::printf("  mode word 0x%X: accuracy level %u (1 LA, 2 HA, 3 EP), error handling 0x%X\n", mode, mode & 0xF,
              mode & 0xFF00);
  const uint32_t before = _zymSetMode(ZYM_EP);
  std::printf("  after _zymSetMode(ZYM_EP): 0x%X, the other fields kept", _zymGetMode());
  _zymSetMode(before);
  std::printf("; restored: 0x%X\n", _zymGetMode());
}

// The table as one row-major matrix, of which a column is a vector with the increment `columns`.
void show_strided(const Table& table) {
  const size_t columns = table.columns.size();
  std::vector<double> matrix(table.rows * columns);
  for (size_t row = 0; row < table.rows; ++row) {
    for (size_t c = 0; c < columns; ++c) matrix[row * columns + c] = table.columns[c].values[row];
  }
  const size_t c = columns / 2;
  const auto n = static_cast<int32_t>(table.rows);
  std::vector<double> squares(table.rows);
  _zymdSqrI(n, matrix.data() + c, static_cast<int32_t>(columns), squares.data(), 1);
  double sum = 0;
  int used = 0;
  for (double square : squares) {
    if (std::isnan(square)) continue;  // a missing value stays one
    sum += square;
    ++used;
  }
  std::printf("  %s as every %zu-th element of the row-major table, squared in place of a copy: root mean square %g\n",
              table.columns[c].name.c_str(), columns, used > 0 ? std::sqrt(sum / used) : NAN);
}

// Successive values, scaled to below 1, as complex numbers: the sine of the arc sine is the number again, also next to
// the cuts.
void show_complex(const Column& column) {
  const std::vector<double> values = column.present();
  if (values.size() < 2) return;
  double largest = 0;
  for (double value : values) largest = std::fmax(largest, std::fabs(value));
  if (!(largest > 0)) return;
  std::vector<std::complex<double>> z(values.size() - 1);
  for (size_t i = 0; i < z.size(); ++i) z[i] = {values[i] / largest, values[i + 1] / largest};
  const auto w = orvik::sin(orvik::asin(z));
  double worst = 0;
  for (size_t i = 0; i < z.size(); ++i) worst = std::fmax(worst, std::abs(w[i] - z[i]));
  std::printf("  %s: sin(asin z) of %d complex numbers differs from z by %.1e at most\n", column.name.c_str(),
              static_cast<int>(z.size()), worst);
}

// The value furthest from the mean, and how many as far out a normal distribution would have among as many values. The
// tail itself is computed, so that it does not become 0 next to 1.
void show_extreme(const Column& column) {
  const std::vector<double> values = column.present();
  if (values.size() < 3) return;
  const auto n = static_cast<double>(values.size());
  double mean = 0, square = 0;
  for (double value : values) mean += value / n;
  for (double value : values) square += (value - mean) * (value - mean) / (n - 1);
  if (!(square > 0)) return;
  std::vector<double> score;
  for (double value : values) score.push_back(-std::fabs(value - mean) / std::sqrt(square));
  const std::vector<double> tail = orvik::cdfnorm(score);
  size_t at = 0;
  for (size_t i = 1; i < tail.size(); ++i) {
    if (tail[i] < tail[at]) at = i;
  }
  std::printf("  %-16s furthest from its mean: %g, by %.2f deviations; %.3g of %zu values expected there\n",
              column.name.c_str(), values[at], -score[at], 2 * tail[at] * n, values.size());
}

// Bessel functions at the doubles nearest to their zeros, and one order far from its turning point.
void show_bessel() {
  const std::vector<double> zeros = {2.404825557695773, 5.520078110286311, 8.653727912911013};
  const std::vector<double> j0 = orvik::j0(zeros), j100 = orvik::jn(100, zeros);
  std::printf("  J0 at %.15f, %.15f, %.15f: %.3g, %.3g, %.3g\n", zeros[0], zeros[1], zeros[2], j0[0], j0[1], j0[2]);
  std::printf("  J of order 100 there: %.3g, %.3g, %.3g\n", j100[0], j100[1], j100[2]);
}

}  // namespace

void show_vector_math(const Table& table) {
  show_mode();
  std::printf("\n");
  for (const Column& column : table.columns) show_reports(column);
  std::printf("\n");
  for (const Column& column : table.columns) show_extreme(column);
  std::printf("\n");
  show_strided(table);
  std::printf("\n");
  show_complex(table.columns.front());
  std::printf("\n");
  show_bessel();
}

}  // namespace tour
