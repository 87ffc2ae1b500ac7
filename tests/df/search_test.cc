// Search: every method against a naive scan, the choice of the method, sites of all kinds.
#include "df/search.h"
#include "serv/memory.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace orvik::df::test {
namespace {

template <class Real>
class SearchTest : public ::testing::Test {};
TYPED_TEST_SUITE(SearchTest, Reals);

TYPED_TEST(SearchTest, EveryMethodAgreesWithAScanAtEveryEdge) {
  using E = Entries<TypeParam>;
  for (const auto& shape : shapes<TypeParam>()) {
    auto sites = edge_sites(shape.x);
    const int64_t nx = static_cast<int64_t>(shape.x.size());
    for (int width : {0, 1}) {
      for (int64_t xhint : {0, 1, 2}) {
        OwnedTask task;
        ASSERT_EQ(E::make(task.out(), nx, shape.x.data(), xhint, 0, nullptr, 0, width), 0);
        std::vector<int64_t> expected;
        for (TypeParam t : sites) expected.push_back(naive_cell(shape.x, t));
        EXPECT_EQ(search_cells<TypeParam>(task, sites, 0, nullptr), expected) << shape.name << " " << nx;
        EXPECT_EQ(search_cells<TypeParam>(task, sites, 64, nullptr), expected) << shape.name << " sorted " << nx;
        const TypeParam plain[] = {9, 0, 9, 9, 9};
        EXPECT_EQ(search_cells<TypeParam>(task, sites, 0, plain), expected);
        for (int64_t p : {int64_t{0}, int64_t{1}, nx / 2, nx - 1, nx}) {
          const TypeParam peak[] = {9, 1, 9, 9, static_cast<TypeParam>(p)};
          EXPECT_EQ(search_cells<TypeParam>(task, sites, 0, peak), expected) << shape.name << " peak " << p;
        }
        // In any order.
        auto shuffled = sites;
        std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(3));
        for (size_t j = 0; j < shuffled.size(); ++j) expected[j] = naive_cell(shape.x, shuffled[j]);
        EXPECT_EQ(search_cells<TypeParam>(task, shuffled, 0, nullptr), expected);
        const TypeParam peak[] = {9, 1, 9, 9, static_cast<TypeParam>(nx / 3)};
        EXPECT_EQ(search_cells<TypeParam>(task, shuffled, 0, peak), expected);
      }
    }
  }
}

TYPED_TEST(SearchTest, ThirtyOneAndThirtyTwoSitesGiveTheSameCells) {
  using E = Entries<TypeParam>;
  for (int64_t xhint : {1, 2, 4}) {
    for (int64_t sitehint : {0, 64}) {
      const auto x = ragged_partition<TypeParam>(300);
      OwnedTask task;
      ASSERT_EQ(E::make(task.out(), 300, x.data(), xhint, 0, nullptr, 0, 0), 0);
      auto sites = random_values<TypeParam>(32);
      for (auto& t : sites) t = t * 10 + 5;
      if (sitehint == 64) std::sort(sites.begin(), sites.end());
      const auto block = search_cells<TypeParam>(task, sites, sitehint, nullptr);
      for (size_t n : {31, 7, 1}) {
        const std::vector<TypeParam> fewer(sites.begin(), sites.begin() + static_cast<int64_t>(n));
        const auto cells = search_cells<TypeParam>(task, fewer, sitehint, nullptr);
        EXPECT_TRUE(std::equal(cells.begin(), cells.end(), block.begin()));
      }
      EXPECT_TRUE(search_cells<TypeParam>(task, {}, sitehint, nullptr).empty());
      EXPECT_EQ(E::search(task, 0, -5, sites.data(), sitehint, nullptr, nullptr, nullptr, nullptr, nullptr), 0);
    }
  }
}

TYPED_TEST(SearchTest, UniformPartitionFollowsTheInverseStep) {
  using E = Entries<TypeParam>;
  const TypeParam inf = std::numeric_limits<TypeParam>::infinity(), nan = std::numeric_limits<TypeParam>::quiet_NaN();
  const TypeParam big = std::numeric_limits<TypeParam>::max() / 4;
  for (int64_t nx : {2, 3, 11, 1000}) {
    for (auto [a, b] : {std::pair<TypeParam, TypeParam>{0, 1}, {-1, 3}, {TypeParam(0.1), TypeParam(7.7)}}) {
      const TypeParam x[] = {a, b};
      const TypeParam value = static_cast<TypeParam>(nx - 1) / (b - a);
      std::vector<TypeParam> sites = {-inf, -big, a - 1, std::nextafter(a, -inf), a, b, std::nextafter(b, inf), b + 1,
                                      big,  inf,  nan};
      std::vector<int64_t> expected = {0, 0, 0, 0, 1, nx - 1, nx, nx, nx, nx, 0};
      for (TypeParam u : random_values<TypeParam>(500)) {
        const TypeParam t = a + (b - a) * (u + 2) / 4;
        if (t >= b) continue;
        sites.push_back(t);
        expected.push_back(std::min<int64_t>(static_cast<int64_t>((t - a) * value) + 1, nx));
      }
      for (int width : {0, 3}) {
        OwnedTask task;
        ASSERT_EQ(E::make(task.out(), nx, x, 4, 0, nullptr, 0, width), 0);
        EXPECT_EQ(search_cells<TypeParam>(task, sites, 0, nullptr), expected) << nx;
        for (size_t j = 0; j < sites.size(); j += 20) {  // one by one
          EXPECT_EQ(search_cells<TypeParam>(task, {sites[j]}, 0, nullptr)[0], expected[j]) << sites[j];
        }
        for (size_t j = 0; j < 11; ++j) {
          EXPECT_EQ(search_cells<TypeParam>(task, {sites[j]}, 0, nullptr)[0], expected[j]) << sites[j];
        }
      }
    }
  }
}

TYPED_TEST(SearchTest, UniformSitesJustAboveTheRightEndFollowTheFormula) {
  using E = Entries<TypeParam>;
  const TypeParam inf = std::numeric_limits<TypeParam>::infinity();
  const TypeParam a = -100, b = TypeParam(0.5), x[] = {a, b};
  int64_t still_inside = 0;
  for (int64_t nx = 2; nx < 300; ++nx) {
    const TypeParam value = static_cast<TypeParam>(nx - 1) / (b - a);
    std::vector<TypeParam> sites;
    std::vector<int64_t> expected;
    for (TypeParam t = b; sites.size() < 64; t = std::nextafter(t, inf)) {
      sites.push_back(t);
      const int64_t cell = std::min<int64_t>(static_cast<int64_t>((t - a) * value) + 1, nx);
      expected.push_back(t == b ? nx - 1 : cell);
      still_inside += t > b && cell == nx - 1;
    }
    for (int width : {0, 1}) {
      OwnedTask task;
      ASSERT_EQ(E::make(task.out(), nx, x, 4, 0, nullptr, 0, width), 0);
      EXPECT_EQ(search_cells<TypeParam>(task, sites, 0, nullptr), expected) << nx;
      for (size_t j : {0, 1, 7}) {  // one by one
        EXPECT_EQ(search_cells<TypeParam>(task, {sites[j]}, 0, nullptr)[0], expected[j]) << nx;
      }
    }
  }
  EXPECT_GT(still_inside, 0);
}

TYPED_TEST(SearchTest, HugeUniformPartitionsNeedWideIndices) {
  const TypeParam x[] = {0, 1};
  const int64_t nx = 5000000001;
  std::vector<TypeParam> sites = {-1, 0, TypeParam(0.5), 1, 2, TypeParam(0.75)};
  std::vector<int64_t> cell(sites.size());
  int64_t state = 0;
  const auto run = [&](auto entry) {
    EXPECT_EQ(
        entry(nx, x, 6, sites.data(), &state, static_cast<TypeParam>(nx - 1), nullptr, nullptr, nullptr, cell.data()),
        0);
  };
  if constexpr (sizeof(TypeParam) == 8) {
    run(orvik_df_kernel_dDFUniformSearch1D64);
  } else {
    run(orvik_df_kernel_sDFUniformSearch1D64);
  }
  EXPECT_EQ(cell, (std::vector<int64_t>{0, 1, 2500000001, nx - 1, nx,
                                        static_cast<int64_t>(TypeParam(0.75) * static_cast<TypeParam>(nx - 1)) + 1}));
}

TYPED_TEST(SearchTest, NotANumberAndUnsortedPartitionsStayInBounds) {
  using E = Entries<TypeParam>;
  // The arrays are exactly as long as they must be: the address sanitizer sees a step outside.
  const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
  std::vector<TypeParam> x = random_values<TypeParam>(333);
  for (int64_t xhint : {0, 1, 2, 4}) {
    OwnedTask task;
    ASSERT_EQ(E::make(task.out(), 333, x.data(), xhint, 0, nullptr, 0, 0), 0);
    auto sites = random_values<TypeParam>(100, 4);
    sites[3] = sites[50] = sites[99] = nan;
    for (int64_t sitehint : {0, 64}) {
      for (int64_t cell : search_cells<TypeParam>(task, sites, sitehint, nullptr)) {
        EXPECT_TRUE(0 <= cell && cell <= 333);
      }
    }
    const TypeParam peak[] = {0, 1, 0, 0, 100};
    for (int64_t cell : search_cells<TypeParam>(task, sites, 0, peak)) EXPECT_TRUE(0 <= cell && cell <= 333);
  }
}

TYPED_TEST(SearchTest, DataHintIsTestedOnlyWhereItCouldMatter) {
  using E = Entries<TypeParam>;
  const auto x = ragged_partition<TypeParam>(20);
  const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
  const TypeParam t = 0;
  int32_t cell = -1;
  const std::vector<std::vector<TypeParam>> bad = {{0, 2, 0, 0, 1},  {0, nan, 0, 0, 1}, {0, -1, 0, 0, 1},
                                                   {0, 1, 0, 0, -1}, {0, 1, 0, 0, 21},  {0, 1, 0, 0, nan}};
  for (int64_t xhint : {0, 1, 2, 4}) {
    OwnedTask task;
    ASSERT_EQ(E::make(task.out(), 20, x.data(), xhint, 0, nullptr, 0, 0), 0);
    for (const auto& hint : bad) {
      cell = -1;
      const int32_t expected = xhint <= 1 ? DFS_BAD_DATA_HINT : 0;
      EXPECT_EQ(E::search(task, 0, 1, &t, 0, hint.data(), &cell, nullptr, nullptr, nullptr), expected);
      EXPECT_EQ(cell == -1, expected != 0);
      EXPECT_EQ(E::search(task, 0, 1, &t, 64, hint.data(), &cell, nullptr, nullptr, nullptr), 0);  // sorted: not read
    }
    const TypeParam legal[] = {nan, 1, nan, nan, 20};
    EXPECT_EQ(E::search(task, 0, 1, &t, 0, legal, &cell, nullptr, nullptr, nullptr), 0);
  }
  EXPECT_EQ(E::search(nullptr, 0, 1, &t, 0, nullptr, &cell, nullptr, nullptr, nullptr), DFS_NO_TASK);
}

TYPED_TEST(SearchTest, UniformSitesAreExpandedAndALongGridIsNotGivenBack) {
  using E = Entries<TypeParam>;
  const auto x = ragged_partition<TypeParam>(200);
  const TypeParam ends[] = {-5, 60};
  for (int64_t n : {2, 31, 40, 4096, 4097}) {
    std::vector<TypeParam> sites(static_cast<size_t>(n));
    const TypeParam part = 1 / static_cast<TypeParam>(n - 1);
    for (int64_t k = 0; k < n; ++k) sites[size_t(k)] = std::fma(part, 65 * static_cast<TypeParam>(k), TypeParam(-5));
    OwnedTask task;
    ASSERT_EQ(E::make(task.out(), 200, x.data(), 1, 0, nullptr, 0, 0), 0);
    const auto expected = search_cells<TypeParam>(task, sites, 0, nullptr);
    std::vector<int32_t> cell(static_cast<size_t>(n));
    const int64_t before = serv::live_allocations();
#if defined(__SANITIZE_ADDRESS__)
    __lsan_disable();
#endif
    ASSERT_EQ(E::search(task, 0, n, ends, 4, nullptr, cell.data(), nullptr, nullptr, nullptr), 0);
#if defined(__SANITIZE_ADDRESS__)
    __lsan_enable();
#endif
    EXPECT_TRUE(std::equal(cell.begin(), cell.end(), expected.begin()));
    EXPECT_EQ(serv::live_allocations() - before, n > 4096 ? 1 : 0);
    serv::fail_allocation_after(1);
    EXPECT_EQ(E::search(task, 0, n, ends, 4, nullptr, cell.data(), nullptr, nullptr, nullptr),
              n > 4096 ? DFS_NO_MEMORY : 0);
    serv::fail_allocation_after(0);
  }
}

TYPED_TEST(SearchTest, OneUniformSiteIsNotANumber) {
  using E = Entries<TypeParam>;
  const TypeParam x[] = {0, 1}, ends[] = {TypeParam(0.5), TypeParam(0.75)};
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 50, x, 4, 0, nullptr, 0, 0), 0);
  int32_t cell = -1;
  ASSERT_EQ(E::search(task, 0, 1, ends, 4, nullptr, &cell, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(cell, 0);
}

// What the sorted method does with any sites, one after the other.
template <class Real>
std::vector<int64_t> scanned_cells(const std::vector<Real>& x, const std::vector<Real>& sites) {
  const int64_t nx = static_cast<int64_t>(x.size());
  int64_t state = 0;
  std::vector<int64_t> cells;
  for (Real t : sites) {
    if (t == x.back()) {
      cells.push_back(nx - 1);
      continue;
    }
    while (state < nx && !(x[size_t(state)] > t)) ++state;
    cells.push_back(state);
  }
  return cells;
}

TYPED_TEST(SearchTest, SortedSitesOfEveryDensityAreScanned) {
  using E = Entries<TypeParam>;
  const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
  for (int64_t nx : {2, 3, 4, 5, 40, 1000}) {
    const auto x = ragged_partition<TypeParam>(nx);
    OwnedTask task;
    ASSERT_EQ(E::make(task.out(), nx, x.data(), 1, 0, nullptr, 0, 0), 0);
    for (int64_t nsite : {31, 32, 40, 64, 65, 100, 500, 3000, 20000}) {
      auto sites = random_values<TypeParam>(nsite, static_cast<uint32_t>(nx + nsite));
      for (auto& t : sites) t = x[0] + (x.back() - x[0]) * (t * TypeParam(0.27) + TypeParam(0.5));
      for (size_t j = 0; j < sites.size(); j += 7) sites[j] = x[j % x.size()];  // breakpoints, the last one too
      std::sort(sites.begin(), sites.end());
      EXPECT_EQ(search_cells<TypeParam>(task, sites, 64, nullptr), scanned_cells(x, sites)) << nx << " " << nsite;
      // Some that are out of order, and not-a-numbers, which no breakpoint is above.
      auto disturbed = sites;
      for (size_t j = 3; j + 20 < disturbed.size(); j += 61) std::swap(disturbed[j], disturbed[j + 11]);
      EXPECT_EQ(search_cells<TypeParam>(task, disturbed, 64, nullptr), scanned_cells(x, disturbed)) << nx;
      disturbed[size_t(nsite) - 12] = nan;
      EXPECT_EQ(search_cells<TypeParam>(task, disturbed, 64, nullptr), scanned_cells(x, disturbed)) << nx;
    }
  }
}

// Few sites in a long partition: each lies thousands of breakpoints from the one before, from a peak, from a guess.
TYPED_TEST(SearchTest, SitesFarFromEachOtherAndFromGuessesAreFoundByLeaps) {
  using E = Entries<TypeParam>;
  for (int64_t nx : {100, 300, 30000}) {
    auto x = ragged_partition<TypeParam>(nx);
    for (int64_t i = 0; i < nx; ++i) x[size_t(i)] += static_cast<TypeParam>(i) * static_cast<TypeParam>(i) / 1000;
    std::mt19937 random(5);
    for (int64_t count = 1; count <= 150; ++count) {
      std::vector<TypeParam> sites;
      for (int64_t k = 0; k < count; ++k) {
        const TypeParam at = x[random() % x.size()];
        sites.push_back(k % 3 == 0 ? at : std::nextafter(at, k % 3 == 1 ? x.back() * 2 : -x.back()));
      }
      std::vector<int64_t> expected, ascending;
      for (TypeParam t : sites) expected.push_back(naive_cell(x, t));
      std::vector<TypeParam> sorted = sites;
      std::sort(sorted.begin(), sorted.end());
      for (TypeParam t : sorted) ascending.push_back(naive_cell(x, t));
      for (int32_t width : {0, 1}) {
        for (int64_t xhint : {1, 2}) {
          OwnedTask task;
          ASSERT_EQ(E::make(task.out(), nx, x.data(), xhint, 0, nullptr, 0, width), 0);
          ASSERT_EQ(search_cells<TypeParam>(task, sites, 0, nullptr), expected) << nx << " " << count << " " << xhint;
          ASSERT_EQ(search_cells<TypeParam>(task, sorted, 64, nullptr), ascending) << nx << " " << count;
          for (int64_t peak : {int64_t(0), nx / 2, nx}) {
            const TypeParam hint[] = {0, 1, 0, 0, static_cast<TypeParam>(peak)};
            ASSERT_EQ(search_cells<TypeParam>(task, sites, 0, hint), expected) << nx << " " << count << " " << peak;
          }
        }
      }
    }
  }
}

TYPED_TEST(SearchTest, HybridAgreesWithAScanInPartitionsOfEverySmallSize) {
  using E = Entries<TypeParam>;
  const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
  for (int64_t nx = 2; nx <= 80; ++nx) {
    for (bool repeated : {false, true}) {
      auto x = ragged_partition<TypeParam>(nx, static_cast<uint32_t>(nx));
      if (repeated && nx > 4) x[1] = x[2], x[size_t(nx) - 2] = x[size_t(nx) - 1];
      OwnedTask task;
      ASSERT_EQ(E::make(task.out(), nx, x.data(), 1, 0, nullptr, 0, 0), 0);
      auto sites = edge_sites(x);
      sites.resize((sites.size() + 7) / 8 * 8, x[0]);  // whole vectors, all in the block
      std::shuffle(sites.begin(), sites.end(), std::mt19937(static_cast<uint32_t>(nx)));
      std::vector<int64_t> expected;
      for (TypeParam t : sites) expected.push_back(naive_cell(x, t));
      while (sites.size() < 32) sites.push_back(nan), expected.push_back(0);
      EXPECT_EQ(search_cells<TypeParam>(task, sites, 0, nullptr), expected) << nx << " " << repeated;
      for (size_t j = 0; j < sites.size(); ++j) {  // and one by one
        ASSERT_EQ(search_cells<TypeParam>(task, {sites[j]}, 0, nullptr)[0], expected[j]) << nx << " " << sites[j];
      }
    }
  }
}

TYPED_TEST(SearchTest, HybridWith17BreakpointsUsesTheTableAndWith16Scans) {
  using E = Entries<TypeParam>;
  for (int64_t nx : {16, 17}) {
    const auto x = ragged_partition<TypeParam>(nx);
    OwnedTask task;
    ASSERT_EQ(E::make(task.out(), nx, x.data(), 1, 0, nullptr, 0, 0), 0);
    Task* record = as_task(task);
    std::fill(record->bucket_table, record->bucket_table + 2 * record->bucket_count + 2, 0);  // every bracket is empty
    const std::vector<TypeParam> sites(40, (x[9] + x[10]) / 2);
    const int64_t expected = nx == 16 ? 10 : 0;
    EXPECT_EQ(search_cells<TypeParam>(task, sites, 0, nullptr), std::vector<int64_t>(40, expected));
    EXPECT_EQ(search_cells<TypeParam>(task, {sites[0]}, 0, nullptr)[0], expected);
  }
}

TYPED_TEST(SearchTest, UniformCellsAround32BitIndicesAreExact) {
  using E = Entries<TypeParam>;
  for (int64_t nx : {int64_t(2147483646), int64_t(2147483647), int64_t(2147483648)}) {
    const TypeParam x[] = {0, 1024};
    OwnedTask task;
    ASSERT_EQ(E::make(task.out(), nx, x, 4, 0, nullptr, 0, 1), 0);
    const TypeParam value = static_cast<TypeParam>(nx - 1) / TypeParam(1024);
    std::vector<TypeParam> sites = {-1, 0, 512, std::nextafter(TypeParam(1024), TypeParam(0)), 1024, 1025};
    std::vector<int64_t> expected = {0, 1, static_cast<int64_t>(512 * value) + 1, 0, nx - 1, nx};
    expected[3] = std::min<int64_t>(static_cast<int64_t>(sites[3] * value) + 1, nx);
    for (size_t n : {6, 48}) {  // one by one, in vectors
      const size_t period = 6;
      while (sites.size() < n)
        sites.push_back(sites[sites.size() % period]), expected.push_back(expected[expected.size() % period]);
      EXPECT_EQ(search_cells<TypeParam>(task, sites, 0, nullptr), expected) << nx;
    }
  }
}

}  // namespace
}  // namespace orvik::df::test
