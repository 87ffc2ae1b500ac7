// What the tests of searching share: a naive scan, the sites where methods could differ, partitions of all kinds.
#ifndef ORVIK_TESTS_DF_SEARCH_H
#define ORVIK_TESTS_DF_SEARCH_H

#include "df/support.h"
#include "df/task/task.h"

namespace orvik::df::test {

template <class Real>
int64_t naive_cell(const std::vector<Real>& x, Real t) {
  const int64_t nx = static_cast<int64_t>(x.size());
  if (t == x.back()) return nx - 1;
  int64_t cell = 0;
  while (cell < nx && x[size_t(cell)] <= t) ++cell;
  return cell;
}

// Breakpoints, their neighbours, midpoints, both sides of the ends, far outside, infinities.
template <class Real>
std::vector<Real> edge_sites(const std::vector<Real>& x) {
  const Real inf = std::numeric_limits<Real>::infinity(), big = std::numeric_limits<Real>::max() / 4;
  std::vector<Real> sites = {-inf, -big, x[0] - 1};
  for (size_t i = 0; i < x.size(); ++i) {
    sites.insert(sites.end(), {std::nextafter(x[i], -inf), x[i], std::nextafter(x[i], inf)});
    if (i + 1 < x.size()) sites.push_back(x[i] + (x[i + 1] - x[i]) / 2);
  }
  sites.insert(sites.end(), {x.back() + 1, big, inf});
  return sites;
}

template <class Real>
struct Shape {
  const char* name;
  std::vector<Real> x;
};

template <class Real>
std::vector<Shape<Real>> shapes() {
  std::vector<Shape<Real>> all;
  for (int64_t nx : {2, 3, 16, 17, 18, 40, 100, 1000, 3000}) all.push_back({"ragged", ragged_partition<Real>(nx)});
  // All but a few points in one bucket: brackets that need bisection.
  auto crowd = ragged_partition<Real>(500);
  crowd.push_back(crowd.back() + 5000);
  crowd.push_back(crowd.back() + 5000);
  all.push_back({"crowded left", crowd});
  std::vector<Real> mirrored;
  for (size_t i = crowd.size(); i-- > 0;) mirrored.push_back(-crowd[i]);
  all.push_back({"crowded right", mirrored});
  return all;
}

template <class Real>
std::vector<int64_t> search_cells(OrvikDFTask task, const std::vector<Real>& sites, int64_t sitehint,
                                  const Real* datahint, const OrvikDFServices* services = nullptr) {
  using E = Entries<Real>;
  const bool narrow = as_task(task)->index_width == 0;
  std::vector<int32_t> cell32(sites.size() + 1, -7);
  std::vector<int64_t> cell64(sites.size() + 1, -7);
  void* cell = narrow ? static_cast<void*>(cell32.data()) : cell64.data();
  EXPECT_EQ(E::search(task, 0, static_cast<int64_t>(sites.size()), sites.data(), sitehint, datahint, cell, nullptr,
                      nullptr, services),
            0);
  if (narrow) cell64.assign(cell32.begin(), cell32.end());
  EXPECT_EQ(cell64.back(), -7);
  cell64.pop_back();
  return cell64;
}

}  // namespace orvik::df::test

#endif
