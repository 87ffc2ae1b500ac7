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

double value(const rows::Row& row, const void* array, int32_t i) {
  return row.single() ? static_cast<const float*>(array)[i] : static_cast<const double*>(array)[i];
}

}  // namespace

void print_peer_accuracy(const std::string& filter) {
  using namespace orvik::accuracy;
  constexpr int32_t n = 20000;
  std::printf("\n## Peers: largest error in ulp over %d values of the usual domain, bound that they are listed with\n", n);
  for (const Peer& peer : all_peers()) {
    const rows::Row* row = rows::find(peer.row);
    const Reference* reference = row == nullptr ? nullptr : find_reference(row->function);
    if (row == nullptr || !rows::matches(filter, row->name) || reference == nullptr || reference->exact()) continue;
    if (reference->unary == nullptr && reference->binary == nullptr) continue;
    const Operands operands(*row, n, 1);
    const Arrays arrays = operands.arrays();
    peer.unit(n, arrays);
    Real a, b, wanted;
    double worst = 0, at = 0;
    for (int32_t i = 0; i < n; ++i) {
      mpfr_set_d(a, value(*row, arrays.a, i), MPFR_RNDN);
      double floor = 0;
      if (reference->unary != nullptr) {
        reference->unary(wanted, a, MPFR_RNDN);
      } else {
        mpfr_set_d(b, value(*row, arrays.b, row->inputs() == 2 ? i : 0), MPFR_RNDN);
        reference->binary(wanted, a, b, MPFR_RNDN);
      }
      const double argument = value(*row, arrays.a, i);
      if (reference->floor != nullptr) floor = reference->floor(row->single(), &argument, 0);
      const double error = error_of(value(*row, arrays.r1, i), wanted, Metric::ulp, {row->single()}, true, floor);
      if (error > worst) worst = error, at = argument;
    }
    std::printf("%-12.*s %-10.*s %10.3f at %-14a listed %.2f%s\n", static_cast<int>(peer.row.size()), peer.row.data(),
                static_cast<int>(peer.source.size()), peer.source.data(), worst, at, peer.ulp,
                worst > peer.ulp ? "  MORE THAN LISTED" : "");
  }
}
#else
void print_peer_accuracy(const std::string&) { std::printf("peers: the references are built with the tests only\n"); }
#endif

}  // namespace orvik::bench
