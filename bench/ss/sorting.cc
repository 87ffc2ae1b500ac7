// Sorting and selection of 10^6 doubles, against the standard library. Units: one value.
#include <algorithm>
#include <cmath>
#include <string>

#include "ss/rounds.h"
#include "ss/task.h"

namespace orvik::bench {

void sorting() {
  constexpr int64_t kCount = 1'000'000;
  const auto x = normal_values(kCount);
  std::vector<double> work(kCount), sorted(kCount);
  volatile double sink = 0;
  Task one(1, kCount, ORVIK_SS_STORAGE_ROWS, x.data());
  const int64_t rows = ORVIK_SS_STORAGE_ROWS;
  __qordSSEditTask(one.get(), OrvikSS_orderStatistics, sorted.data());
  __qoriSSEditTask(one.get(), OrvikSS_orderStatisticsStorage, &rows);
  const Candidate copied_sort = {"std::sort", [&] {
                                   work = x;
                                   std::sort(work.begin(), work.end());
                                 }};
  compare("median", kCount,
          {{"", [&] { _qordSSQuantiles(one.get(), ORVIK_SS_QUANTILES, 1, nullptr); }},
           {"std::nth_element", [&] {
              work = x;
              const auto middle = work.begin() + kCount / 2;
              std::nth_element(work.begin(), middle, work.end());
              sink = (*middle + *std::max_element(work.begin(), middle)) / 2;
            }}});
  compare("selection, in place", kCount,
          {{"",
            [&] {
              work = x;
              sink = __qordQSortSelect(kCount, work.data(), kCount / 2);
            }},
           {"std::nth_element", [&] {
              work = x;
              std::nth_element(work.begin(), work.begin() + kCount / 2, work.end());
              sink = work[kCount / 2];
            }}});
  compare("sort, in place", kCount,
          {{"",
            [&] {
              work = x;
              __qordQSort(kCount, work.data());
            }},
           copied_sort});
  compare("order statistics, p = 1", kCount,
          {{"", [&] { _qordSSQuantiles(one.get(), ORVIK_SS_ORDER_STATISTICS, 1, nullptr); }}, copied_sort});
  for (int64_t form : {ORVIK_SS_STORAGE_ROWS, ORVIK_SS_STORAGE_COLUMNS}) {
    Task ten(10, kCount / 10, ORVIK_SS_STORAGE_ROWS, x.data());
    __qordSSEditTask(ten.get(), OrvikSS_sortedObservations, sorted.data());
    __qoriSSEditTask(ten.get(), OrvikSS_sortedStorage, &form);
    compare(form == ORVIK_SS_STORAGE_ROWS ? "sort of 10 variables, to rows" : "sort of 10 variables, to columns", kCount,
            {{"", [&] { _qordSSSort(ten.get(), 0, ORVIK_SS_METHOD_SORT, nullptr); }}, {"std::sort", [&] {
                work = x;
                for (int j = 0; j < 10; ++j) std::sort(work.begin() + j * kCount / 10, work.begin() + (j + 1) * kCount / 10);
              }}});
  }
}

namespace {

// Quartiles and median absolute deviation, beside what nth_element needs for them on a copy.
template <class T>
void selections(int64_t n) {
  const auto x = normal_values<T>(n);
  std::vector<T> work(n);
  volatile T sink = 0;
  TaskOf<T> task(1, n, ORVIK_SS_STORAGE_ROWS, x.data());
  task.set_orders({T{0.25}, T{0.5}, T{0.75}});
  const int64_t calls = 1'000'000 / n;
  auto repeated = [calls](auto call) {
    return [calls, call] {
      for (int64_t k = 0; k < calls; ++k) call();
    };
  };
  // The element of a rank and the least one behind it, in a range whose first element has rank `from`.
  auto rank = [&work](int64_t from, double order) {
    const double f = order * static_cast<double>(work.size() - 1);
    const auto k = static_cast<int64_t>(f);
    std::nth_element(work.begin() + from, work.begin() + k, work.end());
    const T next = *std::min_element(work.begin() + k + 1, work.end());
    return work[k] + static_cast<T>(f - std::floor(f)) * (next - work[k]);
  };
  const std::string tail = std::string(sizeof(T) == 4 ? ", float" : ", double") + ", n = " + std::to_string(n);
  compare("quartiles" + tail, static_cast<double>(calls * n),
          {{"", repeated([&] { Entries<T>::quantiles(task.get(), ORVIK_SS_QUANTILES, 1, nullptr); })},
           {"std::nth_element", repeated([&] {
              std::copy(x.begin(), x.end(), work.begin());
              const T low = rank(0, 0.25);
              const T middle = rank(static_cast<int64_t>(0.25 * static_cast<double>(n - 1)) + 1, 0.5);
              sink = low + middle + rank(static_cast<int64_t>(0.5 * static_cast<double>(n - 1)) + 1, 0.75);
            })}},
          15);
  compare("median absolute deviation" + tail, static_cast<double>(calls * n),
          {{"", repeated([&] { Entries<T>::mad(task.get(), ORVIK_SS_MEDIAN_ABS_DEVIATION, 1, nullptr); })},
           {"std::nth_element", repeated([&] {
              std::copy(x.begin(), x.end(), work.begin());
              const T m = rank(0, 0.5);
              for (T& v : work) v = std::fabs(v - m);
              sink = rank(0, 0.5);
            })}},
          15);
}

}  // namespace

void quartiles() {
  for (int64_t n : {1000, 100'000}) {
    selections<double>(n);
    selections<float>(n);
  }
}

}  // namespace orvik::bench
