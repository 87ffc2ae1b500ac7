// The rows that are loops over a scalar routine: their names, one element through all their kernels, exact values.
#pragma once

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "accuracy/error.h"
#include "accuracy/reference.h"
#include "support/row_calls.h"

namespace orvik::test {

inline constexpr const char* kUnaryLoops[] = {"Cos",  "Sin",  "Tan",   "Cosh",  "Sinh",  "Tanh", "Acos",
                                              "Asin", "Atan", "Acosh", "Asinh", "Atanh", "Log10"};

using ComplexElements = testing::Types<ZymComplexFloat, ZymComplexDouble>;

template <class C>
class LoopTest : public testing::Test {
 protected:
  using E = Part<C>;
  using L = std::numeric_limits<E>;
  static constexpr E inf = L::infinity(), nan = L::quiet_NaN();
  static constexpr E tiny = L::denorm_min(), smallest = L::min(), largest = L::max();
  static constexpr accuracy::Format format = {sizeof(E) == 4};

  static std::string row(const std::string& function) { return (sizeof(E) == 4 ? "c" : "z") + function; }
  static C at(E re, E im) { return {re, im}; }
  // Of the one kernel that all levels share.
  static Outcome<C> outcome(const std::string& function, C z, C w = {}) { return evaluate<C>(row(function), 1, z, w); }
  static C value(const std::string& function, C z, C w = {}) { return outcome(function, z, w).r1; }

  // Whole arrays, which is much faster than an element in every place.
  static std::vector<C> values(const std::string& function, const std::vector<C>& z, const std::vector<C>& w = {}) {
    std::vector<C> r(z.size());
    Call<C> c;
    c.n = static_cast<int32_t>(z.size()), c.a = z.data(), c.b = w.data(), c.r1 = r.data();
    EXPECT_TRUE(call_row(row_named(row(function)), 1, false, c));
    return r;
  }

  // The error of each part in ulp, against MPC or Annex G.
  static double part_error(const std::string& function, C z, C got) {
    accuracy::Complex a, r;
    mpc_set_d_d(a, static_cast<double>(z.re), static_cast<double>(z.im), MPC_RNDNN);
    const accuracy::Stated s = accuracy::find_complex_reference(function)->unary(r, a);
    const auto error = [&](E part, mpfr_srcptr exact, bool any_sign) {
      return accuracy::part_error_of(static_cast<double>(part), exact, accuracy::Metric::ulp, format, any_sign);
    };
    return std::max(error(got.re, mpc_realref(r.v), s.any_sign[0]), error(got.im, mpc_imagref(r.v), s.any_sign[1]));
  }
  // That of a power, by its norm.
  static double power_error(C z, C w, C got) {
    accuracy::Complex a, b, r;
    mpc_set_d_d(a, static_cast<double>(z.re), static_cast<double>(z.im), MPC_RNDNN);
    mpc_set_d_d(b, static_cast<double>(w.re), static_cast<double>(w.im), MPC_RNDNN);
    const accuracy::Stated s = accuracy::find_complex_reference("Pow")->binary(r, a, b);
    if (s.any) return 0;
    const double parts[2] = {static_cast<double>(got.re), static_cast<double>(got.im)};
    return accuracy::norm_error_of(parts, mpc_realref(r.v), mpc_imagref(r.v), accuracy::Metric::ulp, format,
                                   s.any_sign);
  }
};

}  // namespace orvik::test
