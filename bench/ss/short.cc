// Short data, both precisions: moments and sums of n values against Eigen and Boost.Accumulators; weights against none;
// every length from 1 to 1,023 and shape for cliffs. Units: one value.
#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

#include "ss/rounds.h"
#include "ss/task.h"

#ifdef ORVIK_HAVE_BOOST
#include <boost/accumulators/accumulators.hpp>
#include <boost/accumulators/statistics.hpp>
#endif
#ifdef ORVIK_HAVE_EIGEN
#include <Eigen/Dense>
#endif

namespace orvik::bench {
namespace {

constexpr uint64_t kVariance = ORVIK_SS_MEAN | ORVIK_SS_CENTRAL_MOMENT2;
constexpr uint64_t kFour = kVariance | ORVIK_SS_SKEWNESS | ORVIK_SS_KURTOSIS;
constexpr uint64_t kSums = ORVIK_SS_SUM | ORVIK_SS_RAW_SUM2;

template <class T>
volatile T sink;

template <class T>
std::string type() {
  return sizeof(T) == 4 ? "float" : "double";
}

// A run of some 10^6 values: calls of n values each.
template <class Call>
std::function<void()> repeated(int64_t n, Call call) {
  const int64_t calls = std::max<int64_t>(1, 1'000'000 / n);
  return [calls, call] {
    for (int64_t k = 0; k < calls; ++k) call();
  };
}
int64_t values_of(int64_t n) { return std::max<int64_t>(1, 1'000'000 / n) * n; }

#ifdef ORVIK_HAVE_BOOST
namespace acc = boost::accumulators;

template <class T, class Sum, class... Tags>
void boost_run(const T* x, int64_t n) {
  acc::accumulator_set<T, acc::stats<Sum, Tags...>> set;
  for (int64_t i = 0; i < n; ++i) set(x[i]);
  sink<T> = acc::extract_result<Sum>(set);
}
template <class T>
void boost_weighted(const T* x, const T* w, int64_t n) {
  acc::accumulator_set<T, acc::stats<acc::tag::weighted_mean, acc::tag::weighted_variance>, T> set;
  for (int64_t i = 0; i < n; ++i) set(x[i], acc::weight = w[i]);
  sink<T> = acc::weighted_mean(set) + acc::weighted_variance(set);
}
#endif

template <class T>
void against_peers(int64_t n) {
  const auto x = normal_values<T>(n), w = normal_values<T>(n, 2);
  TaskOf<T> task(1, n, ORVIK_SS_STORAGE_ROWS, x.data());
  TaskOf<T> weighted(1, n, ORVIK_SS_STORAGE_ROWS, x.data(), w.data());
  const std::string tail = ", " + type<T>() + ", n = " + std::to_string(n);
  const std::pair<uint64_t, std::string> methods[] = {{1, ", fast"}, {2, ", one pass"}};
  for (const auto& [method, name] : methods) {
    auto ours = [&, method = method](TaskOf<T>& t, uint64_t estimates) {
      return Candidate{"", repeated(n, [&t, estimates, method] { t.basic(estimates, method); })};
    };
    std::vector<Candidate> mean = {ours(task, ORVIK_SS_MEAN)}, variance = {ours(task, kVariance)},
                           four = {ours(task, kFour)}, sums = {ours(task, kSums)},
                           weighed = {ours(weighted, kVariance)};
#ifdef ORVIK_HAVE_EIGEN
    const Eigen::Map<const Eigen::Array<T, Eigen::Dynamic, 1>> a(x.data(), n), b(w.data(), n);
    auto eigen = [&](auto call) { return Candidate{"Eigen", repeated(n, call)}; };
    mean.push_back(eigen([a] { sink<T> = a.mean(); }));
    variance.push_back(eigen([a, n] {
      const T m = a.mean();
      sink<T> = m + (a - m).square().sum() / static_cast<T>(n - 1);
    }));
    four.push_back(eigen([a, n] {
      const T m = a.mean();
      const T c2 = (a - m).square().mean(), c3 = (a - m).cube().mean(), c4 = (a - m).square().square().mean();
      sink<T> = m + c3 / std::sqrt(c2 * c2 * c2) + c4 / (c2 * c2);
    }));
    sums.push_back(eigen([a] { sink<T> = a.sum() + a.square().sum(); }));
    weighed.push_back(eigen([a, b] {
      const T sum = b.sum(), m = (a * b).sum() / sum;
      sink<T> = (b * (a - m).square()).sum() / (sum - b.square().sum() / sum);
    }));
#endif
#ifdef ORVIK_HAVE_BOOST
    auto boost = [&](auto run) { return Candidate{"Boost accumulators", repeated(n, [&x, n, run] { run(x.data(), n); })}; };
    mean.push_back(boost(boost_run<T, acc::tag::mean>));
    variance.push_back(boost(boost_run<T, acc::tag::variance, acc::tag::mean>));
    four.push_back(boost(boost_run<T, acc::tag::kurtosis, acc::tag::mean, acc::tag::variance, acc::tag::skewness>));
    sums.push_back(boost(boost_run<T, acc::tag::sum>));
    weighed.push_back({"Boost accumulators", repeated(n, [&] { boost_weighted(x.data(), w.data(), n); })});
#endif
    const auto units = static_cast<double>(values_of(n));
    compare("mean" + name + tail, units, mean, 15);
    compare("mean, variance" + name + tail, units, variance, 15);
    compare("four moments" + name + tail, units, four, 15);
    compare("sums of x and of squares" + name + tail, units, sums, 15);
    compare("weighted mean, variance" + name + tail, units, weighed, 15);
  }
}

// Weights, storages and shapes beside the plain case of one variable and as many values.
template <class T>
void shapes() {
  constexpr int64_t kValues = 1'000'000;
  const auto x = normal_values<T>(kValues), w = normal_values<T>(kValues, 2);
  for (const auto& [method, name] : {std::pair<uint64_t, const char*>{1, ", fast"}, {2, ", one pass"}}) {
    TaskOf<T> plain(1, kValues, ORVIK_SS_STORAGE_ROWS, x.data());
    for (int64_t p : {1, 2, 3, 10, 33, 100, 1000}) {
      for (int64_t storage : {ORVIK_SS_STORAGE_ROWS, ORVIK_SS_STORAGE_COLUMNS}) {
        for (bool weighted : {false, true}) {
          TaskOf<T> task(p, kValues / p, storage, x.data(), weighted ? w.data() : nullptr);
          compare(std::string(weighted ? "weighted " : "") + "mean, variance" + name + ", " + type<T>() + ", p = " +
                      std::to_string(p) + (storage == ORVIK_SS_STORAGE_ROWS ? ", rows" : ", columns"),
                  kValues,
                  {{"", [&, method = method] { task.basic(kVariance, method); }},
                   {"one plain variable", [&, method = method] { plain.basic(kVariance, method); }}},
                  7);
        }
      }
    }
  }
}

// The time of a call must not jump from one length to the next: the worst of n against the least of all longer ones.
template <class T>
void cliffs() {
  const auto x = normal_values<T>(100 * 1023), w = normal_values<T>(1023, 2);
  for (const auto& [method, name] : {std::pair<uint64_t, const char*>{1, ", fast"}, {2, ", one pass"}}) {
    for (int64_t p : {1, 10, 100}) {
      for (int64_t storage : {ORVIK_SS_STORAGE_ROWS, ORVIK_SS_STORAGE_COLUMNS}) {
        for (bool weighted : {false, true}) {
          constexpr int64_t kMost = 1023;
          std::vector<Candidate> lengths;
          std::vector<std::unique_ptr<TaskOf<T>>> tasks;
          for (int64_t n = 1; n <= kMost; n += n < 80 || p == 1 ? 1 : 16) {
            tasks.push_back(std::make_unique<TaskOf<T>>(p, n, storage, x.data(), weighted ? w.data() : nullptr));
            lengths.push_back({std::to_string(n), [t = tasks.back().get(), method = method] {
                                 for (int k = 0; k < 20; ++k) t->basic(kVariance, method);
                               }});
          }
          rounds(lengths, 9);
          double worst = 0, least = 1e300;
          std::string at;
          for (size_t k = lengths.size(); k-- > 0;) {
            if (lengths[k].best / least > worst) worst = lengths[k].best / least, at = lengths[k].name;
            least = std::min(least, lengths[k].best);
          }
          const double units = 20.0 * kMost * static_cast<double>(p);
          printf("| cliffs: mean, variance%s, %s, p = %d, %s%s | %.4g | n = %s against longer ones | %.4g | %.2f |\n", name,
                 type<T>().c_str(), static_cast<int>(p), storage == ORVIK_SS_STORAGE_ROWS ? "rows" : "columns",
                 weighted ? ", weighted" : "", lengths.back().best / units * 1e9, at.c_str(),
                 lengths.front().best / 20 * 1e9, 1 / worst);
          fflush(stdout);
        }
      }
    }
  }
}

}  // namespace

void short_data() {
  for (int64_t n : {10, 100, 1000}) {
    against_peers<double>(n);
    against_peers<float>(n);
  }
}
void all_shapes() {
  shapes<double>();
  shapes<float>();
}
void all_cliffs() {
  cliffs<double>();
  cliffs<float>();
}

}  // namespace orvik::bench
