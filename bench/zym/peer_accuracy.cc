#include "zym/peer_accuracy.h"

#include <cmath>
#include <cstdio>

#include "tools/rows/list.h"
#include "zym/compare.h"

#ifdef ORVIK_BENCH_REFERENCE
#include "accuracy/error.h"
#include "accuracy/reference.h"
#endif

namespace orvik::bench {

#ifdef ORVIK_BENCH_REFERENCE
namespace {

using namespace orvik::accuracy;

// The i-th number of an array.
double value(const rows::Row& row, const void* array, int64_t i) {
  return row.single() ? static_cast<const float*>(array)[i] : static_cast<const double*>(array)[i];
}

// The error in ulp of element i of a result: complex ones by their norm.
class Judge {
 public:
  Judge(const rows::Row& row, const Arrays& arrays) : row_(row), arrays_(arrays) {
    if (row.complex()) {
      complex_ = find_complex_reference(row.function);
    } else {
      real_ = find_reference(row.function);
    }
  }
  bool judges() const {
    return row_.outputs() == 1 &&
           ((real_ != nullptr && !real_->exact()) || (complex_ != nullptr && !complex_->exact()));
  }
  double error(int32_t i) { return complex_ != nullptr ? complex_error(i) : real_error(i); }

 private:
  int32_t second(int32_t i) const { return row_.inputs() == 2 ? i : 0; }

  double real_error(int32_t i) {
    const double argument = value(row_, arrays_.a, i);
    mpfr_set_d(a_, argument, MPFR_RNDN);
    if (real_->order != nullptr) {
      real_->order(wanted_, kOrder, a_, MPFR_RNDN);
    } else if (real_->binary != nullptr) {
      mpfr_set_d(b_, value(row_, arrays_.b, second(i)), MPFR_RNDN);
      real_->binary(wanted_, a_, b_, MPFR_RNDN);
    } else {
      real_->unary(wanted_, a_, MPFR_RNDN);
    }
    const double floor = real_->floor != nullptr ? real_->floor(row_.single(), &argument, kOrder) : 0;
    return error_of(value(row_, arrays_.r1, i), wanted_, Metric::ulp, {row_.single()}, true, floor);
  }

  void load(accuracy::Complex& to, const void* array, int64_t i) {
    if (row_.input_parts == 2) {
      mpc_set_d_d(to, value(row_, array, 2 * i), value(row_, array, 2 * i + 1), MPC_RNDNN);
    } else {
      mpc_set_d_d(to, value(row_, array, i), 0, MPC_RNDNN);
    }
  }

  double complex_error(int32_t i) {
    load(x_, arrays_.a, i);
    const Format format{row_.single()};
    if (complex_->to_real != nullptr) {
      complex_->to_real(wanted_, x_);
      return error_of(value(row_, arrays_.r1, i), wanted_, Metric::ulp, format, true, 0);
    }
    if (complex_->binary != nullptr) {
      load(y_, arrays_.b, second(i));
      complex_->binary(z_, x_, y_);
    } else if (complex_->from_real != nullptr) {
      complex_->from_real(z_, mpc_realref(x_.v));
    } else {
      complex_->unary(z_, x_);
    }
    const double got[2] = {value(row_, arrays_.r1, 2 * i), value(row_, arrays_.r1, 2 * i + 1)};
    constexpr bool any_sign[2] = {true, true};
    return norm_error_of(got, mpc_realref(z_.v), mpc_imagref(z_.v), Metric::ulp, format, any_sign);
  }

  const rows::Row& row_;
  const Arrays& arrays_;
  const Reference* real_ = nullptr;
  const ComplexReference* complex_ = nullptr;
  Real a_, b_, wanted_;
  accuracy::Complex x_, y_, z_;
};

}  // namespace

void print_peer_accuracy(const std::string& filter) {
  constexpr int32_t n = 20000;
  std::printf("\n## Peers: largest error in ulp over %d values of the usual domain, bound that they are listed with\n",
              n);
  for (const Peer& peer : all_peers()) {
    const rows::Row* row = rows::find(peer.row);
    if (row == nullptr || !rows::matches(filter, row->name)) continue;
    const Operands operands(*row, n, 1);
    const Arrays arrays = operands.arrays();
    Judge judge(*row, arrays);
    if (!judge.judges()) continue;
    peer.unit(n, arrays);
    double worst = 0, at = 0;
    for (int32_t i = 0; i < n; ++i) {
      const double error = judge.error(i);
      if (error > worst) worst = error, at = value(*row, arrays.a, static_cast<int64_t>(i) * row->input_parts);
    }
    std::printf("%-12s %-10s %10.3f at %-14a listed %.2f%s\n", std::string(peer.row).c_str(),
                std::string(peer.source).c_str(), worst, at, peer.ulp, worst > peer.ulp ? "  MORE THAN LISTED" : "");
  }
}
#else
void print_peer_accuracy(const std::string&) { std::printf("peers: the references are built with the tests only\n"); }
#endif

}  // namespace orvik::bench
