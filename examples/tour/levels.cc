#include <orvik/zym.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <vector>

#include "sections.h"

namespace tour {
namespace {

// Distance from the exact value in units of the last place of the result's format.
template <class E>
double error_in_ulp(E got, long double exact) {
  const E nearest = static_cast<E>(std::fabs(exact));
  const long double ulp = static_cast<long double>(std::nextafter(nearest, static_cast<E>(INFINITY))) - nearest;
  return static_cast<double>(std::fabs(static_cast<long double>(got) - exact) / ulp);
}

template <class E>
struct Level {
  const char* name;
  void (*function)(int32_t, const E*, E*);
};

// Nanoseconds per element of a call on the whole array, the fastest of several rounds.
template <class E>
double speed(const Level<E>& level, const std::vector<E>& values, std::vector<E>* results) {
  using Clock = std::chrono::steady_clock;
  const auto n = static_cast<int32_t>(values.size());
  double best = INFINITY;
  for (int round = 0; round < 20; ++round) {
    const auto start = Clock::now();
    level.function(n, values.data(), results->data());
    const double nanoseconds = std::chrono::duration<double, std::nano>(Clock::now() - start).count();
    best = std::min(best, nanoseconds / n);
  }
  return best;
}

// One function at its three levels on the column: some results, the worst error over the column, the time on an array
// that repeats it.
template <class E>
void show_function(const char* title, const std::vector<double>& column, const Level<E> (&levels)[3],
                   long double (*exact)(long double)) {
  std::vector<E> values(10000);
  for (size_t i = 0; i < values.size(); ++i) values[i] = static_cast<E>(column[i % column.size()]);
  std::vector<E> results(values.size());
  std::printf("  %-18s", title);
  for (size_t i = 0; i < 3; ++i) std::printf("  %16s(%g)", "f", static_cast<double>(values[i]));
  std::printf("   worst ulp   ns\n");
  for (const Level<E>& level : levels) {
    const double nanoseconds = speed(level, values, &results);
    double worst = 0;
    for (size_t i = 0; i < std::min(column.size(), values.size()); ++i) {
      worst = std::max(worst, error_in_ulp(results[i], exact(static_cast<long double>(values[i]))));
    }
    std::printf("    %-16s", level.name);
    for (size_t i = 0; i < 3; ++i) std::printf("  %20.*g", sizeof(E) == 4 ? 9 : 17, static_cast<double>(results[i]));
    std::printf("   %9.3g  %4.2f\n", worst, nanoseconds);
  }
}

}  // namespace

void show_levels(const Table& table) {
  // The first column whose values are positive and small enough for an exponential.
  for (const Column& column : table.columns) {
    const std::vector<double> values = column.present();
    if (values.size() < 3) continue;
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    if (*least <= 0 || *most > 80) continue;
    std::printf("  Column %s, errors against the exact values in units of the last place:\n\n", column.name.c_str());
    const Level<float> log_single[3] = {
        {"HA _zymsLn", _zymsLn}, {"LA _zymsLn_21", _zymsLn_21}, {"EP _zymsLn_11", _zymsLn_11}};
    const Level<float> exp_single[3] = {
        {"HA _zymsExp", _zymsExp}, {"LA _zymsExp_21", _zymsExp_21}, {"EP _zymsExp_11", _zymsExp_11}};
    const Level<double> log_double[3] = {
        {"HA _zymdLn", _zymdLn}, {"LA _zymdLn_50", _zymdLn_50}, {"EP _zymdLn_26", _zymdLn_26}};
    const Level<double> root_double[3] = {
        {"HA _zymdCbrt", _zymdCbrt}, {"LA _zymdCbrt_50", _zymdCbrt_50}, {"EP _zymdCbrt_26", _zymdCbrt_26}};
    const Level<double> power_double[3] = {
        {"HA _zymdPowx", [](int32_t n, const double* a, double* r) { _zymdPowx(n, a, 2.5, r); }},
        {"LA _zymdPowx_50", [](int32_t n, const double* a, double* r) { _zymdPowx_50(n, a, 2.5, r); }},
        {"EP _zymdPowx_26", [](int32_t n, const double* a, double* r) { _zymdPowx_26(n, a, 2.5, r); }}};
    const Level<double> arc_double[3] = {
        {"HA _zymdAtan", _zymdAtan}, {"LA _zymdAtan_50", _zymdAtan_50}, {"EP _zymdAtan_26", _zymdAtan_26}};
    const Level<float> tanh_single[3] = {
        {"HA _zymsTanh", _zymsTanh}, {"LA _zymsTanh_21", _zymsTanh_21}, {"EP _zymsTanh_11", _zymsTanh_11}};
    const Level<double> area_double[3] = {
        {"HA _zymdAsinh", _zymdAsinh}, {"LA _zymdAsinh_50", _zymdAsinh_50}, {"EP _zymdAsinh_26", _zymdAsinh_26}};
    const Level<float> sine_single[3] = {
        {"HA _zymsSin", _zymsSin}, {"LA _zymsSin_21", _zymsSin_21}, {"EP _zymsSin_11", _zymsSin_11}};
    const Level<double> sine_double[3] = {
        {"HA _zymdSin", _zymdSin}, {"LA _zymdSin_50", _zymdSin_50}, {"EP _zymdSin_26", _zymdSin_26}};
    const Level<double> tangent_double[3] = {
        {"HA _zymdTan", _zymdTan}, {"LA _zymdTan_50", _zymdTan_50}, {"EP _zymdTan_26", _zymdTan_26}};
    const Level<double> degrees_double[3] = {
        {"HA _zymdCosd", _zymdCosd}, {"LA _zymdCosd_50", _zymdCosd_50}, {"EP _zymdCosd_26", _zymdCosd_26}};
    const Level<float> log_gamma_single[3] = {
        {"HA _zymsLGamma", _zymsLGamma}, {"LA _zymsLGamma_21", _zymsLGamma_21}, {"EP _zymsLGamma_11", _zymsLGamma_11}};
    const Level<double> gamma_double[3] = {
        {"HA _zymdTGamma", _zymdTGamma}, {"LA _zymdTGamma_50", _zymdTGamma_50}, {"EP _zymdTGamma_26", _zymdTGamma_26}};
    show_function<float>("exp, 32 bits", values, exp_single, [](long double x) { return std::exp(x); });
    show_function<float>("ln, 32 bits", values, log_single, [](long double x) { return std::log(x); });
    show_function<double>("ln, 64 bits", values, log_double, [](long double x) { return std::log(x); });
    show_function<double>("cube root, 64 bits", values, root_double, [](long double x) { return std::cbrt(x); });
    show_function<double>("x^2.5, 64 bits", values, power_double, [](long double x) { return std::pow(x, 2.5L); });
    show_function<float>("sine, 32 bits", values, sine_single, [](long double x) { return std::sin(x); });
    show_function<double>("sine, 64 bits", values, sine_double, [](long double x) { return std::sin(x); });
    show_function<double>("tangent, 64 bits", values, tangent_double, [](long double x) { return std::tan(x); });
    show_function<double>("cos of degrees, 64", values, degrees_double,
                          [](long double x) { return std::cos(x * (std::numbers::pi_v<long double> / 180)); });
    show_function<double>("arc tangent, 64 bits", values, arc_double, [](long double x) { return std::atan(x); });
    show_function<float>("tanh, 32 bits", values, tanh_single, [](long double x) { return std::tanh(x); });
    show_function<double>("asinh, 64 bits", values, area_double, [](long double x) { return std::asinh(x); });
    show_function<float>("ln gamma, 32 bits", values, log_gamma_single, [](long double x) { return std::lgamma(x); });
    show_function<double>("gamma, 64 bits", values, gamma_double, [](long double x) { return std::tgamma(x); });
    return;
  }
  std::printf("  No column has only values from above 0 to 80.\n");
}

}  // namespace tour
