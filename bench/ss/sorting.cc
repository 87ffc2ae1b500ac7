// Sorting and selection of 10^6 doubles, against the standard library. Units: one value.
#include <algorithm>
#include <cmath>

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

}  // namespace orvik::bench
