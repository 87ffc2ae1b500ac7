// Moments and extremes of 10^7 doubles, against memory bandwidth, Boost.Accumulators and GSL. Units: one value.
#include <immintrin.h>

#include <string>

#include "ss/rounds.h"
#include "ss/task.h"

#ifdef ORVIK_HAVE_BOOST
#include <boost/accumulators/accumulators.hpp>
#include <boost/accumulators/statistics.hpp>
#endif
#ifdef ORVIK_HAVE_GSL
#include <gsl/gsl_statistics_double.h>
#endif

namespace orvik::bench {
namespace {

volatile double sink;

// Reads all values and keeps what the compiler cannot drop: the bandwidth of one core.
void read(const std::vector<double>& x) {
  __m256d s[8];
  for (auto& v : s) v = _mm256_setzero_pd();
  const auto n = static_cast<int64_t>(x.size()) / 32 * 32;
  for (int64_t i = 0; i < n; i += 32) {
    for (int k = 0; k < 8; ++k) s[k] = _mm256_or_pd(s[k], _mm256_loadu_pd(x.data() + i + 4 * k));
  }
  for (int k = 1; k < 8; ++k) s[0] = _mm256_or_pd(s[0], s[k]);
  sink = s[0][0];
}

#ifdef ORVIK_HAVE_BOOST
namespace acc = boost::accumulators;

template <class... Tags>
void boost_moments(const std::vector<double>& x) {
  acc::accumulator_set<double, acc::stats<Tags...>> set;
  for (double v : x) set(v);
  sink = acc::mean(set);
}
void boost_weighted(const std::vector<double>& x, const std::vector<double>& w) {
  acc::accumulator_set<double, acc::stats<acc::tag::weighted_mean, acc::tag::weighted_variance>, double> set;
  for (size_t i = 0; i < x.size(); ++i) set(x[i], acc::weight = w[i]);
  sink = acc::weighted_mean(set) + acc::weighted_variance(set);
}
#endif

}  // namespace

void moments() {
  constexpr int64_t kCount = 10'000'000;
  const auto x = normal_values(kCount), w = normal_values(kCount, 2);
  constexpr uint64_t kVariance = ORVIK_SS_MEAN | ORVIK_SS_CENTRAL_MOMENT2;
  constexpr uint64_t kFour = kVariance | ORVIK_SS_SKEWNESS | ORVIK_SS_KURTOSIS;
  for (int64_t p : {1, 10, 100}) {
    for (int64_t storage : {ORVIK_SS_STORAGE_ROWS, ORVIK_SS_STORAGE_COLUMNS}) {
      Task task(p, kCount / p, storage, x.data()), weighted(p, kCount / p, storage, x.data(), w.data());
      const std::string shape =
          ", p = " + std::to_string(p) + (storage == ORVIK_SS_STORAGE_ROWS ? ", rows" : ", columns");
      compare("mean, variance, fast" + shape, kCount,
              {{"", [&] { task.basic(kVariance, 1); }}, {"reading memory", [&] { read(x); }}});
      compare("minimum, maximum" + shape, kCount,
              {{"", [&] { _qordSSMinmax(task.get(), ORVIK_SS_MINIMUM | ORVIK_SS_MAXIMUM, 1); }},
               {"reading memory", [&] { read(x); }}});
      compare(
          "four moments, fast" + shape, kCount,
          {
              {"", [&] { task.basic(kFour, 1); }},
#ifdef ORVIK_HAVE_BOOST
              {"Boost accumulators",
               [&] { boost_moments<acc::tag::mean, acc::tag::variance, acc::tag::skewness, acc::tag::kurtosis>(x); }},
#endif
#ifdef ORVIK_HAVE_GSL
              {"GSL",
               [&] {
                 const double m = gsl_stats_mean(x.data(), 1, x.size()), sd = gsl_stats_sd_m(x.data(), 1, x.size(), m);
                 sink = gsl_stats_skew_m_sd(x.data(), 1, x.size(), m, sd) +
                        gsl_stats_kurtosis_m_sd(x.data(), 1, x.size(), m, sd);
               }},
#endif
          },
          5);
#ifdef ORVIK_HAVE_BOOST
      compare(
          "mean, variance, one pass" + shape, kCount,
          {{"", [&] { task.basic(kVariance, 2); }},
           {"Boost accumulators, variance", [&] { boost_moments<acc::tag::mean, acc::tag::variance>(x); }},
           {"Boost accumulators, lazy variance", [&] { boost_moments<acc::tag::mean, acc::tag::lazy_variance>(x); }}},
          9);
      for (const auto& [method, name] : {std::pair<uint64_t, const char*>{1, ", fast"}, {2, ", one pass"}}) {
        compare(std::string("weighted mean, variance") + name + shape, kCount,
                {{"", [&, method = method] { weighted.basic(kVariance, method); }},
                 {"Boost accumulators", [&] { boost_weighted(x, w); }}},
                3);
      }
      compare("four moments, one pass" + shape, kCount,
              {{"", [&] { task.basic(kFour, 2); }},
               {"Boost accumulators",
                [&] { boost_moments<acc::tag::mean, acc::tag::variance, acc::tag::skewness, acc::tag::kurtosis>(x); }}},
              9);
#endif
    }
  }
}

}  // namespace orvik::bench
