#include "zym/peer_page.h"

#include <cmath>
#include <cstdio>
#include <functional>
#include <vector>

#include "tools/rows/list.h"
#include "zym/compare.h"

#ifdef ORVIK_BENCH_REFERENCE
#include <gnu/libc-version.h>

#include "accuracy/error.h"
#include "accuracy/inputs.h"
#include "accuracy/reference.h"
#ifdef ORVIK_BENCH_BOOST
#include <boost/version.hpp>
#endif
#ifdef ORVIK_BENCH_GSL
#include <gsl/gsl_version.h>
#endif
#ifdef ORVIK_BENCH_SLEEF
#include <sleef.h>
#endif
#endif

namespace orvik::bench {

#ifdef ORVIK_BENCH_REFERENCE
namespace {

using namespace orvik::accuracy;

constexpr const char* kFunctions[] = {"Erf",        "Erfc",   "ErfInv", "Erfcx",   "ErfcInv", "CdfNorm",
                                      "CdfNormInv", "LGamma", "TGamma", "ExpInt1", "I0",      "I1",
                                      "J0",         "J1",     "Y0",     "Y1",      "Jn",      "Yn"};
constexpr int32_t kInDomain = 20000;
constexpr size_t kEverywhere = 20000;
// The references of functions with an order take a hundred times as long.
constexpr int32_t kFewer = 10;
int32_t fewer(const rows::Row& row) { return row.shape == rows::Shape::bessel ? kFewer : 1; }

struct Column {
  const char* title;
  std::vector<std::string_view> sources;  // of the peers, any of them
};
const std::vector<Column> kColumns = {{"GNU C library", {"libm"}},
                                      {"its vectors", {"libmvec"}},
                                      {"Boost.Math", {"boost"}},
                                      {"GSL", {"gsl"}},
                                      {"SLEEF", {"sleef u10", "sleef u15"}}};

// Worst errors over the inputs of the columns of results, computed beside one reference value an input. Inputs without
// a finite result in the format are left out: libraries differ there by intent.
template <class E>
class Table {
 public:
  Table(const rows::Row& row, std::vector<E> inputs) : row_(row), a_(std::move(inputs)) {}

  void run(const std::function<void(int32_t, const Arrays&)>& function) {
    auto& r = results_.emplace_back(a_.size());
    function(static_cast<int32_t>(a_.size()), {a_.data(), nullptr, r.data(), nullptr, 1, 1, 1, 1});
  }

  std::vector<double> worst() const {
    const Reference& reference = *find_reference(row_.function);
    const Format format{row_.single()};
    std::vector<double> found(results_.size(), 0.0);
    Real a, wanted;
    for (size_t i = 0; i < a_.size(); ++i) {
      const double argument = a_[i];
      if (!std::isfinite(argument)) continue;
      mpfr_set_d(a, argument, MPFR_RNDN);
      if (reference.order != nullptr) {
        reference.order(wanted, kOrder, a, MPFR_RNDN);
      } else {
        reference.unary(wanted, a, MPFR_RNDN);
      }
      if (mpfr_number_p(wanted) == 0 || mpfr_get_exp(wanted.v) > format.max_exponent()) continue;
      const double floor = reference.floor != nullptr ? reference.floor(row_.single(), &argument, kOrder) : 0;
      for (size_t k = 0; k < results_.size(); ++k) {
        const double error = error_of(results_[k][i], wanted, Metric::ulp, format, true, floor);
        if (!(error <= found[k])) found[k] = error;
      }
    }
    return found;
  }

 private:
  const rows::Row& row_;
  std::vector<E> a_;
  std::vector<std::vector<E>> results_;
};

// Three digits rounded up; "none" where a number is missing.
std::string shown(double error) {
  if (!std::isfinite(error)) return "no number";
  char text[32];
  if (error >= 1e4) {
    std::snprintf(text, sizeof text, "%.0e", error * 1.05);
  } else {
    const double unit = error >= 100 ? 1 : error >= 10 ? 0.1 : 0.01;
    std::snprintf(text, sizeof text, "%.*f", error >= 100 ? 0 : error >= 10 ? 1 : 2, std::ceil(error / unit) * unit);
  }
  return text;
}

template <class E>
std::string line(const rows::Row& row, std::vector<E> inputs, const std::vector<Peer>& peers) {
  Table<E> table(row, std::move(inputs));
  for (int level : {1, 0}) {
    table.run([&](int32_t n, const Arrays& arrays) {
      rows::Call call{.a = arrays.a, .r1 = arrays.r1};
      call.order = kOrder;
      rows::with_call(row, row.entries[0][row.kernel(level)], false, call, [&](auto run) { run(n); });
    });
  }
  std::vector<bool> there;
  for (const Column& column : kColumns) {
    const Peer* found = nullptr;
    for (const Peer& peer : peers) {
      for (std::string_view source : column.sources) {
        if (found == nullptr && peer.row == row.name && peer.source == source) found = &peer;
      }
    }
    there.push_back(found != nullptr);
    if (found != nullptr) table.run(found->unit);
  }
  const std::vector<double> worst = table.worst();
  std::string text = "| `" + std::string(row.name) + "` | " + shown(worst[0]) + " | " + shown(worst[1]);
  size_t k = 2;
  for (bool one : there) text += " | " + (one ? shown(worst[k++]) : std::string());
  return text + " |\n";
}

template <class E>
std::vector<E> in_domain(const rows::Row& row) {
  const int32_t n = kInDomain / fewer(row);
  const Operands operands(row, n, 1);
  const E* first = static_cast<const E*>(operands.arrays().a);
  return {first, first + n};
}

template <class E>
std::vector<E> all_sizes(const rows::Row& row) {
  return make_inputs<E>(row, kEverywhere / static_cast<size_t>(fewer(row)), 1).a;
}

std::string versions() {
  std::string text = std::string("GNU C library ") + gnu_get_libc_version();
#ifdef ORVIK_BENCH_BOOST
  text += ", Boost " + std::to_string(BOOST_VERSION / 100000) + "." + std::to_string(BOOST_VERSION / 100 % 1000);
#endif
#ifdef ORVIK_BENCH_GSL
  text += std::string(", GSL ") + GSL_VERSION;
#endif
#ifdef ORVIK_BENCH_SLEEF
  text += ", SLEEF " + std::to_string(SLEEF_VERSION_MAJOR) + "." + std::to_string(SLEEF_VERSION_MINOR);
#endif
  return text;
}

}  // namespace

bool write_peer_page(const std::string& path, const std::string& filter) {
  const std::vector<Peer> peers = all_peers();
  std::string domain, everywhere;
  for (const char* function : kFunctions) {
    for (const char* precision : {"s", "d"}) {
      const rows::Row* row = rows::find(std::string(precision) + function);
      if (row == nullptr || !row->built() || !rows::matches(filter, row->name)) continue;
      std::fprintf(stderr, "%s\n", std::string(row->name).c_str());
      if (row->single()) {
        domain += line(*row, in_domain<float>(*row), peers);
        everywhere += line(*row, all_sizes<float>(*row), peers);
      } else {
        domain += line(*row, in_domain<double>(*row), peers);
        everywhere += line(*row, all_sizes<double>(*row), peers);
      }
    }
  }
  std::string header = "| row | ours, HA | ours, LA |", rule = "|---|---|---|";
  for (const Column& column : kColumns) header += std::string(" ") + column.title + " |", rule += "---|";
  header += "\n" + rule + "\n";
  const std::string page =
      "# Worst errors of special functions beside other libraries\n\n"
      "Generated; do not edit. To repeat it:\n\n```\n"
      "cmake --build --preset release --target zym_bench\n"
      "build/release/bin/zym_bench --peer-page docs/accuracy-peers.md\n```\n\n" +
      versions() +
      ".\nErrors in ulp against MPFR, all libraries over the same inputs, rounded up; near zeros of `LGamma` and the "
      "Bessel\n"
      "functions in ulp of the floors that [vector-mathematics.md](vector-mathematics.md) states. `Jn` and `Yn` of "
      "order 3,\nover a tenth of the inputs.\n"
      "Inputs whose exact result is no finite number of the format are left out; \"no number\" is an infinity or a NaN "
      "where\n"
      "it is one. Boost.Math as it comes computes floats in double and doubles in long double. Empty: no such "
      "function.\n\n"
      "## Usual arguments\n\n" +
      std::to_string(kInDomain) + " values, even over the domain that the benchmark uses.\n\n" + header + domain +
      "\n## All arguments\n\nAbout " + std::to_string(kEverywhere) +
      " values: random bit patterns, neighbourhoods of thresholds, poles and zeros, the usual domain.\n\n" + header +
      everywhere;
  FILE* file = std::fopen(path.c_str(), "w");
  if (file == nullptr) return false;
  const bool written = std::fwrite(page.data(), 1, page.size(), file) == page.size();
  return std::fclose(file) == 0 && written;
}
#else
bool write_peer_page(const std::string&, const std::string&) {
  std::fputs("peers: the references are built with the tests only\n", stderr);
  return false;
}
#endif

}  // namespace orvik::bench
