// Interpolation: every path through the code gives the same bits.
#include "df/interpolate.h"

namespace orvik::df::test {
namespace {

template <class Real>
class InterpolatePathsTest : public ::testing::Test {};
TYPED_TEST_SUITE(InterpolatePathsTest, Reals);

TYPED_TEST(InterpolatePathsTest, OneSiteSmallBlockAndParallelPathsGiveTheSameBits) {
  struct Row {
    int64_t order, type;
  };
  for (const Row row : {Row{2, 0}, Row{3, 0}, Row{4, 2}, Row{3, 1}, Row{6, 0}, Row{0, 7}, Row{0, 8}}) {
    for (int64_t xhint : {0, 1, 2, 4}) {
      for (int64_t sitehint : {0, 64}) {
        auto fit = random_spline<TypeParam>(row.order, row.type, 500, 1, xhint);
        auto sites = spread_sites(*fit, 6000);
        if (sitehint == 64) std::sort(sites.begin(), sites.end());
        for (const auto& orders : {std::vector<int32_t>{1}, {1, 1, 1, 1}, {1, 0, 1}}) {
          Call<TypeParam> call;
          call.sitehint = sitehint;
          call.dorder = orders;
          const size_t nder = static_cast<size_t>(call.results());
          const auto block = call(fit->task, sites);
          ASSERT_EQ(call.status, 0);
          call.services = &LoopServices<4>::table;
          LoopServices<4>::calls = 0;
          EXPECT_EQ(call(fit->task, sites), block);
          EXPECT_EQ(LoopServices<4>::calls, 6000 * nder >= 1 << 14 ? 1 : 0);
          for (size_t n : {1, 2, 31, 32, 33, 257}) {
            for (size_t at : {size_t{0}, size_t{1234}}) {
              const std::vector<TypeParam> some(sites.begin() + static_cast<int64_t>(at),
                                                sites.begin() + static_cast<int64_t>(at + n));
              const auto r = call(fit->task, some);
              ASSERT_TRUE(std::equal(r.begin(), r.end(), block.begin() + static_cast<int64_t>(at * nder)))
                  << row.order << " " << row.type << " " << n << " " << at;
            }
          }
        }
      }
    }
  }
}

TYPED_TEST(InterpolatePathsTest, ThreadsGiveTheBitsOfOneThreadInEveryLayout) {
  auto fit = random_spline<TypeParam>(4, 2, 700, 3);
  const auto sites = spread_sites(*fit, 5011);
  for (int64_t rhint : {0, 16, 32, 128, 256, 512}) {
    Call<TypeParam> call;
    call.rhint = rhint;
    call.dorder = {1, 0, 1};
    const auto one = call(fit->task, sites);
    call.services = &ThreadServices<3>::table;
    EXPECT_EQ(call(fit->task, sites), one);
  }
}

// Equal, or both not a number.
template <class Real>
bool same(Real a, Real b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

// Sites of every kind: inside, breakpoints and their neighbours, both ends, far outside, infinite, not a number.
template <class Real>
std::vector<Real> wild_sites(Real a, Real b, int64_t n) {
  const Real inf = std::numeric_limits<Real>::infinity(), max = std::numeric_limits<Real>::max();
  std::vector<Real> sites = {a,
                             b,
                             std::nextafter(a, -inf),
                             std::nextafter(b, inf),
                             std::nextafter(b, -inf),
                             -inf,
                             inf,
                             -max,
                             max,
                             std::numeric_limits<Real>::quiet_NaN(),
                             std::numeric_limits<Real>::denorm_min(),
                             -Real(0)};
  for (Real u : random_values<Real>(n, 77)) sites.push_back(a + (b - a) * (u * Real(0.3) + Real(0.5)));
  return sites;
}

// With one result a site a single pass does all; several results take cells and intervals through arrays.
TYPED_TEST(InterpolatePathsTest, OneResultASiteHasTheBitsOfSeveral) {
  for (int64_t order : {2, 3, 4}) {
    for (int64_t nx : {2, 3, 17, 700}) {
      for (int64_t xhint : {0, 1, 2, 4}) {
        for (int64_t sitehint : {0, 64}) {
          auto fit = random_spline<TypeParam>(order, 0, nx, 1, xhint);
          auto sites = wild_sites(fit->x.front(), fit->x.back(), 611);
          if (sitehint == 64) {
            sites.erase(std::remove_if(sites.begin(), sites.end(), [](TypeParam t) { return std::isnan(t); }),
                        sites.end());
            std::sort(sites.begin(), sites.end());
          }
          Call<TypeParam> call;
          call.sitehint = sitehint;
          call.dorder = {1, 1, 1, 1};
          const auto all = call(fit->task, sites);
          for (size_t k = 0; k < 4; ++k) {
            call.dorder = {0, 0, 0, 0};
            call.dorder[k] = 1;
            if (k == 0) call.dorder = {1};
            const auto r = call(fit->task, sites);
            std::vector<int32_t> cell(sites.size());
            call.cell = cell.data();
            call.flags = 3;  // by way of cells
            const auto with_cells = call(fit->task, sites);
            call.flags = 4;
            const auto from_cells = call(fit->task, sites);
            call.flags = 1;
            for (size_t j = 0; j < sites.size(); ++j) {
              ASSERT_TRUE(same(r[j], all[4 * j + k]))
                  << order << " " << nx << " " << xhint << " " << k << " " << sites[j];
              ASSERT_TRUE(same(with_cells[j], r[j])) << sites[j];
              ASSERT_TRUE(same(from_cells[j], r[j])) << sites[j];
              if (j % 16 < 12) {
                ASSERT_TRUE(same(call(fit->task, {sites[j]})[0], r[j])) << sites[j];
              }
            }
          }
        }
      }
    }
  }
}

TYPED_TEST(InterpolatePathsTest, DegenerateEvenPartitionsGiveTheSameOnAllPaths) {
  const TypeParam inf = std::numeric_limits<TypeParam>::infinity(), max = std::numeric_limits<TypeParam>::max();
  const TypeParam tiny = std::numeric_limits<TypeParam>::denorm_min();
  const std::pair<TypeParam, TypeParam> ends[] = {
      {1, 1},      {3, -2},  {0, tiny},     {0, inf}, {-inf, 0},
      {-max, max}, {0, max}, {-tiny, tiny}, {0, 1},   {1, 1 + 16 * std::numeric_limits<TypeParam>::epsilon()}};
  for (const auto& [a, b] : ends) {
    for (int64_t nx : {2, 5, 300}) {
      auto fit = random_spline<TypeParam>(4, 0, nx, 1, 4);
      fit->given[0] = a, fit->given[1] = b;
      const auto sites = wild_sites<TypeParam>(-3, 4, 100);
      Call<TypeParam> call;
      const auto r = call(fit->task, sites);
      call.dorder = {1, 1};
      const auto two = call(fit->task, sites);
      call.dorder = {1};
      for (size_t j = 0; j < sites.size(); ++j) {
        ASSERT_TRUE(same(r[j], two[2 * j])) << a << " " << b << " " << nx << " " << sites[j];
        ASSERT_TRUE(same(r[j], call(fit->task, {sites[j]})[0])) << a << " " << b << " " << nx << " " << sites[j];
      }
    }
  }
}

// Beyond 2^21 points the position of a float site is rounded by more than a step, beyond 2^24 an index is no float.
TYPED_TEST(InterpolatePathsTest, LongEvenPartitionsGiveTheSameOnAllPaths) {
  for (int64_t nx : {(int64_t(1) << 21) - 1, int64_t(1) << 21, (int64_t(1) << 21) + 1, (int64_t(1) << 24) + 3}) {
    const std::vector<TypeParam> ends = {0, 1}, nothing;
    std::vector<TypeParam> c(static_cast<size_t>(2 * (nx - 1)));
    for (size_t i = 0; i < c.size(); ++i) c[i] = static_cast<TypeParam>(i % 1009);
    OwnedTask task;
    ASSERT_EQ(Entries<TypeParam>::make(task.out(), nx, ends.data(), 4, 1, c.data(), 16, 0), 0);
    ASSERT_EQ(Entries<TypeParam>::edit_spline(task, 2, 0, 0, nullptr, 0, nullptr, c.data(), 0), 0);
    auto sites = wild_sites<TypeParam>(0, 1, 200);
    for (TypeParam t = 1; sites.size() < 400; t = std::nextafter(t, TypeParam(0))) sites.push_back(t);
    Call<TypeParam> call;
    const auto r = call(task, sites);
    call.dorder = {1, 1};
    const auto two = call(task, sites);
    call.dorder = {1};
    for (size_t j = 0; j < sites.size(); ++j) {
      ASSERT_TRUE(same(r[j], two[2 * j])) << nx << " " << sites[j];
      ASSERT_TRUE(same(r[j], call(task, {sites[j]})[0])) << nx << " " << sites[j];
    }
  }
}

TYPED_TEST(InterpolatePathsTest, WideIntegersGiveTheSameInEveryLayoutOnEveryPath) {
  for (int64_t order : {2, 3, 4, 5}) {
    auto fit = random_spline<TypeParam>(order, 0, 60, 3);
    for (int64_t rhint : {0, 16, 32, 128, 256, 512}) {
      for (int64_t nsite : {1, 31, 32, 700, 9000}) {
        const auto sites = spread_sites(*fit, nsite);
        Call<TypeParam> call;
        call.rhint = rhint;
        call.dorder = {1, 0, 1};
        as_task(fit->task)->index_width = 0;
        const auto narrow = call(fit->task, sites);
        for (int32_t width : {1, 3}) {
          as_task(fit->task)->index_width = width;
          std::vector<int64_t> cell(sites.size());
          call.cell = cell.data();
          for (int64_t flags : {1, 3, 4}) {
            call.flags = flags;
            EXPECT_EQ(call(fit->task, sites), narrow) << order << " " << rhint << " " << nsite;
          }
          call.flags = 1;
          call.services = &LoopServices<3>::table;
          EXPECT_EQ(call(fit->task, sites), narrow);
          call.services = nullptr;
        }
      }
    }
  }
}

template <class Real>
int32_t cell_as_result(int64_t* count, const Real*, const int64_t* cells, Real* results, void* params) {
  auto* seen = static_cast<std::vector<int64_t>*>(params);
  for (int64_t j = 0; j < *count; ++j) seen->push_back(cells[j]), results[j] = 0;
  return 0;
}

// From 2^31 - 1 breakpoints on, cells are worked out in 64 bits. Callbacks for everything need no coefficients.
TYPED_TEST(InterpolatePathsTest, CellsAround32BitIndicesReachTheCallbacks) {
  for (int64_t nx : {int64_t(2147483646), int64_t(2147483647), int64_t(2147483648), int64_t(5000000000)}) {
    const TypeParam ends[] = {0, 1};
    const TypeParam y = 0;
    OwnedTask task;
    ASSERT_EQ(Entries<TypeParam>::make(task.out(), nx, ends, 4, 1, &y, 128, 1), 0);
    std::vector<int64_t> seen;
    Call<TypeParam> call;
    call.le = call.re = call.inside = cell_as_result<TypeParam>;
    call.le_params = call.re_params = call.inside_params = &seen;
    for (size_t n : {3, 40}) {
      std::vector<TypeParam> sites;
      while (sites.size() < n) sites.insert(sites.end(), {1, TypeParam(0.5), 1});
      seen.clear();
      call(task, sites);
      ASSERT_EQ(call.status, 0);
      ASSERT_EQ(seen.size(), sites.size());
      for (size_t j = 0; j < seen.size(); ++j) {
        EXPECT_EQ(seen[j],
                  j % 3 == 1 ? static_cast<int64_t>(TypeParam(0.5) * static_cast<TypeParam>(nx - 1)) + 1 : nx - 1);
      }
    }
  }
}

}  // namespace
}  // namespace orvik::df::test
