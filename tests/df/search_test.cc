// Search: every method, width and real type against a naive scan, the choice of the method, threads, callbacks.
#include <map>

#include "df/search/finder.h"
#include "df/support.h"
#include "df/task/task.h"
#include "serv/memory.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace orvik::df::test {
namespace {

template <class Real>
class SearchTest : public ::testing::Test {};
TYPED_TEST_SUITE(SearchTest, Reals);

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

// ---- Threads ----------------------------------------------------------------------------------------------------

TYPED_TEST(SearchTest, ThreadsAreUsedByTheRuleOfEachMethod) {
  using E = Entries<TypeParam>;
  const auto ran = [&](int64_t xhint, int64_t sitehint, bool peak, int64_t nx, int64_t nsite, auto loop) {
    using Loop = decltype(loop);
    const auto x = ragged_partition<TypeParam>(nx);
    OwnedTask task;
    EXPECT_EQ(E::make(task.out(), nx, x.data(), xhint, 0, nullptr, 0, 0), 0);
    auto sites = random_values<TypeParam>(nsite);
    if (sitehint == 64) std::sort(sites.begin(), sites.end());
    const TypeParam hint[] = {0, 1, 0, 0, 3};
    Loop::calls = 0;
    const auto cells = search_cells<TypeParam>(task, sites, sitehint, peak ? hint : nullptr, &Loop::table);
    EXPECT_EQ(cells, search_cells<TypeParam>(task, sites, sitehint, peak ? hint : nullptr));
    return Loop::calls == 1;
  };
  const LoopServices<1> one;
  const LoopServices<2> two;
  const LoopServices<3> three;
  const LoopServices<4> four;
  const LoopServices<5> five;
  // Uniform.
  EXPECT_FALSE(ran(4, 0, false, 50, 5000, two));
  EXPECT_TRUE(ran(4, 0, false, 50, 5001, two));
  EXPECT_FALSE(ran(4, 0, false, 50, 9000, one));
  // Quasi-uniform.
  EXPECT_FALSE(ran(2, 0, false, 100, 300, two));
  EXPECT_TRUE(ran(2, 0, false, 100, 301, two));
  EXPECT_TRUE(ran(2, 0, false, 600, 151, two));
  EXPECT_FALSE(ran(2, 0, false, 599, 151, three));
  EXPECT_TRUE(ran(2, 0, false, 40, 151, four));
  EXPECT_FALSE(ran(2, 0, false, 39, 151, four));
  EXPECT_FALSE(ran(2, 0, false, 600, 150, four));
  // Sorted.
  EXPECT_FALSE(ran(1, 64, false, 50, 3000, two));
  EXPECT_TRUE(ran(1, 64, false, 50, 3001, two));
  // Peak.
  EXPECT_FALSE(ran(1, 0, true, 1200, 1200, two));
  EXPECT_TRUE(ran(1, 0, true, 1200, 1201, two));
  EXPECT_TRUE(ran(1, 0, true, 1201, 32, two));
  EXPECT_FALSE(ran(1, 0, true, 1201, 2000, one));
  // Hybrid: with five threads the middle range runs on one.
  EXPECT_FALSE(ran(1, 0, false, 50, 300, two));
  EXPECT_TRUE(ran(1, 0, false, 50, 301, two));
  EXPECT_FALSE(ran(1, 0, false, 50, 600, three));
  EXPECT_TRUE(ran(1, 0, false, 50, 601, four));
  EXPECT_FALSE(ran(1, 0, false, 50, 2000, five));
  EXPECT_TRUE(ran(1, 0, false, 50, 2001, five));
  EXPECT_FALSE(ran(1, 0, false, 50, 9000, one));
}

TYPED_TEST(SearchTest, HybridDividesInBlocksOf128) {
  using E = Entries<TypeParam>;
  using Loop = LoopServices<4>;
  const auto x = ragged_partition<TypeParam>(50);
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 50, x.data(), 1, 0, nullptr, 0, 0), 0);
  search_cells<TypeParam>(task, random_values<TypeParam>(4 * 128 * 3 + 1000), 0, nullptr, &Loop::table);
  EXPECT_EQ(Loop::last_count, 4);
  using Many = LoopServices<20>;
  search_cells<TypeParam>(task, random_values<TypeParam>(2047), 0, nullptr, &Many::table);
  EXPECT_EQ(Many::last_count, 15);  // fewer blocks than threads
}

TYPED_TEST(SearchTest, ThreadsFindTheCellsOfOneThread) {
  using E = Entries<TypeParam>;
  const auto x = ragged_partition<TypeParam>(3000);
  auto sites = random_values<TypeParam>(20011);
  for (auto& t : sites) t = t * 500 + 700;
  for (int64_t xhint : {1, 2, 4}) {
    for (int64_t sitehint : {0, 64}) {
      if (sitehint == 64) std::sort(sites.begin(), sites.end());
      OwnedTask task;
      ASSERT_EQ(E::make(task.out(), 3000, x.data(), xhint, 0, nullptr, 0, 1), 0);
      EXPECT_EQ(search_cells<TypeParam>(task, sites, sitehint, nullptr, &ThreadServices<3>::table),
                search_cells<TypeParam>(task, sites, sitehint, nullptr));
    }
  }
}

// ---- The methods as entries of their own ------------------------------------------------------------------------

template <class Real>
struct MethodEntries {
  using Plain = int32_t (*)(int64_t, const Real*, int64_t, const Real*, int64_t*, Real, void*, void*, const int64_t*,
                            void*);
  using Flagged = int32_t (*)(int64_t, const Real*, int64_t, const Real*, int64_t*, Real, void*, void*, const int64_t*,
                              void*, int64_t);
  const char* name;
  Plain narrow, wide, pack;
  Flagged flagged;
};
#define ORVIK_TEST_METHOD(p, stem)                                                               \
  {                                                                                              \
#stem, orvik_df_kernel_##p##DF##stem##Search1D32, orvik_df_kernel_##p##DF##stem##Search1D64, \
        orvik_df_kernel_##p##DF##stem##Search1D64Pack, orvik_df_kernel_##p##DF##stem##Search1D   \
  }
#define ORVIK_TEST_METHODS(p)                                                                     \
  {                                                                                               \
    ORVIK_TEST_METHOD(p, QuasiUniform), ORVIK_TEST_METHOD(p, Sorted), ORVIK_TEST_METHOD(p, Peak), \
        ORVIK_TEST_METHOD(p, Hybrid)                                                              \
  }
template <class Real>
std::vector<MethodEntries<Real>> method_entries() {
  if constexpr (sizeof(Real) == 8) {
    return ORVIK_TEST_METHODS(d);
  } else {
    return ORVIK_TEST_METHODS(s);
  }
}

TYPED_TEST(SearchTest, AllWidthsOfAllMethodsAgreeWithAScan) {
  using E = Entries<TypeParam>;
  for (const auto& shape : shapes<TypeParam>()) {
    const int64_t nx = static_cast<int64_t>(shape.x.size());
    const auto sites = edge_sites(shape.x);
    const int64_t n = static_cast<int64_t>(sites.size());
    OwnedTask task;
    ASSERT_EQ(E::make(task.out(), nx, shape.x.data(), 1, 0, nullptr, 0, 0), 0);
    std::vector<int64_t> expected;
    for (TypeParam t : sites) expected.push_back(naive_cell(shape.x, t));
    const std::vector<int32_t> expected32(expected.begin(), expected.end());
    for (const auto& entry : method_entries<TypeParam>()) {
      TypeParam value = static_cast<TypeParam>(nx - 1) / (shape.x.back() - shape.x.front());
      if (std::string(entry.name) == "Peak") value = static_cast<TypeParam>(nx / 2);
      if (std::string(entry.name) == "Hybrid") value = as_task(task)->template scale<TypeParam>();
      std::vector<int32_t> c32(sites.size());
      std::vector<int64_t> c64(sites.size()), pack(sites.size()), flagged(sites.size());
      const int64_t* table = as_task(task)->bucket_table;
      const auto args = [&](auto f, auto* cell, auto... more) {
        int64_t state = 0;
        EXPECT_EQ(f(nx, shape.x.data(), n, sites.data(), &state, value, nullptr, nullptr, table, cell, more...), 0);
        if (std::string(entry.name) == "Sorted") {
          EXPECT_EQ(state, nx);  // ends beyond the last
        }
      };
      args(entry.narrow, c32.data());
      args(entry.wide, c64.data());
      args(entry.pack, pack.data());
      EXPECT_EQ(c32, expected32) << entry.name << " " << shape.name << nx;
      EXPECT_EQ(c64, expected) << entry.name << " " << shape.name << nx;
      EXPECT_EQ(pack, expected) << entry.name;
      for (int64_t flags : {0, 1, 3, 4}) {
        args(entry.flagged, flagged.data(), flags);
        EXPECT_EQ(flagged, expected) << entry.name;
      }
      for (int64_t flags : {2, 6}) {
        std::fill(c32.begin(), c32.end(), -1);
        args(entry.flagged, c32.data(), flags);
        EXPECT_EQ(c32, expected32) << entry.name;
      }
    }
  }
}

TYPED_TEST(SearchTest, SortedMethodGoesOnFromItsState) {
  const auto x = ragged_partition<TypeParam>(100);
  const auto run = [&](std::vector<TypeParam> sites, int64_t* state) {
    std::vector<int32_t> cell(sites.size());
    const int64_t n = static_cast<int64_t>(sites.size());
    if constexpr (sizeof(TypeParam) == 8) {
      orvik_df_kernel_dDFSortedSearch1D32(100, x.data(), n, sites.data(), state, 0, nullptr, nullptr, nullptr,
                                          cell.data());
    } else {
      orvik_df_kernel_sDFSortedSearch1D32(100, x.data(), n, sites.data(), state, 0, nullptr, nullptr, nullptr,
                                          cell.data());
    }
    return cell;
  };
  int64_t state = 0;
  EXPECT_EQ(run({x[10], x[30]}, &state), (std::vector<int32_t>{11, 31}));
  EXPECT_EQ(state, 31);
  EXPECT_EQ(run({x[99], x[40]}, &state), (std::vector<int32_t>{99, 41}));  // the last breakpoint leaves the state
  EXPECT_EQ(state, 41);
  EXPECT_EQ(run({x[5], x[50]}, &state), (std::vector<int32_t>{41, 51}));  // descending: the scan stops where it starts
}

// ---- Callbacks --------------------------------------------------------------------------------------------------

template <class Real>
struct CallbackLog {
  static inline std::vector<int64_t> counts;
  static inline std::vector<int64_t> guesses;  // by site, all calls
  static inline int32_t flag, status;
  static inline size_t fail_at;
  static inline void *word0, *word1;
  static int32_t call(int64_t* count, const Real*, int64_t* cells, int32_t* flags, void* w0, void* w1) {
    word0 = w0, word1 = w1;
    size_t done = 0;
    for (int64_t c : counts) done += static_cast<size_t>(c);
    counts.push_back(*count);
    for (size_t j = 0; j < static_cast<size_t>(*count); ++j) {
      cells[j] = guesses.empty() ? 5 : guesses[done + j];
      flags[j] = flag;
    }
    return counts.size() > fail_at ? -4242 : status;
  }
  static void reset(int32_t f, int32_t s, std::vector<int64_t> g = {}) {
    counts.clear(), guesses = g, flag = f, status = s, fail_at = 1000000;
  }
};

TYPED_TEST(SearchTest, CallbackSeesBlocksOf128AndAnEmptyLastOne) {
  using E = Entries<TypeParam>;
  using Log = CallbackLog<TypeParam>;
  const auto x = ragged_partition<TypeParam>(30);
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 30, x.data(), 1, 0, nullptr, 0, 1), 0);
  const auto sites = random_values<TypeParam>(300);
  std::vector<int64_t> cell(300, -1);
  const auto run = [&](int64_t n, const OrvikDFSearchParameters* parameters = nullptr) {
    return E::search(task, 0, n, sites.data(), 0, nullptr, cell.data(), Log::call, parameters, &LoopServices<4>::table);
  };
  Log::reset(1, 1000);
  EXPECT_EQ(run(128), 0);
  EXPECT_EQ(Log::counts, (std::vector<int64_t>{128, 0}));
  EXPECT_EQ(Log::word0, nullptr);
  Log::reset(1, 1000);
  int a = 0, b = 0;
  const OrvikDFSearchParameters parameters = {{&a, &b}};
  EXPECT_EQ(run(300, &parameters), 0);
  EXPECT_EQ(Log::counts, (std::vector<int64_t>{128, 128, 44}));
  EXPECT_EQ(Log::word0, &a);
  EXPECT_EQ(Log::word1, &b);
  EXPECT_EQ(cell, std::vector<int64_t>(300, 5));
  Log::reset(1, 1000);
  EXPECT_EQ(run(5), 0);  // also a short call
  EXPECT_EQ(Log::counts, (std::vector<int64_t>{5}));
  Log::reset(1, 17);
  EXPECT_EQ(run(5), 17);  // the last return is the status
}

TYPED_TEST(SearchTest, FailingCallbackKeepsTheCellsOfEarlierBlocks) {
  using E = Entries<TypeParam>;
  using Log = CallbackLog<TypeParam>;
  const auto x = ragged_partition<TypeParam>(30);
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 30, x.data(), 1, 0, nullptr, 0, 0), 0);
  const auto sites = random_values<TypeParam>(300);
  std::vector<int32_t> cell(300, -1);
  Log::reset(1, 1000);
  Log::fail_at = 1;
  EXPECT_EQ(E::search(task, 0, 300, sites.data(), 0, nullptr, cell.data(), Log::call, nullptr, nullptr), -4242);
  EXPECT_EQ(cell[127], 5);
  EXPECT_EQ(cell[128], -1);
}

TYPED_TEST(SearchTest, GuessesAreRefinedUnlessFlagged) {
  using E = Entries<TypeParam>;
  using Log = CallbackLog<TypeParam>;
  const auto x = ragged_partition<TypeParam>(20);
  const auto edges = edge_sites(x);
  std::vector<TypeParam> sites;
  std::vector<int64_t> guesses, expected;
  for (TypeParam t : edges) {
    for (int64_t g : {-3, 0, 1, 2, 7, 10, 18, 19, 20, 25}) {
      sites.push_back(t);
      guesses.push_back(g);
      int64_t cell = naive_cell(x, t);
      // A site equal to x[g] stays in its guessed cell, for a first guess of 0 in cell 0.
      const int64_t held = std::max<int64_t>(g, 0);
      if (held < 20 && t == x[size_t(held)]) cell = g < 1 ? 0 : g;
      expected.push_back(cell);
    }
  }
  for (int width : {0, 1}) {
    OwnedTask task;
    ASSERT_EQ(E::make(task.out(), 20, x.data(), 1, 0, nullptr, 0, width), 0);
    const auto run = [&](int32_t flag, int32_t status) {
      Log::reset(flag, status, guesses);
      std::vector<int32_t> c32(sites.size());
      std::vector<int64_t> c64(sites.size());
      void* cell = width == 0 ? static_cast<void*>(c32.data()) : c64.data();
      EXPECT_EQ(E::search(task, 0, static_cast<int64_t>(sites.size()), sites.data(), 0, nullptr, cell, Log::call,
                          nullptr, nullptr),
                0);
      return width == 0 ? std::vector<int64_t>(c32.begin(), c32.end()) : c64;
    };
    EXPECT_EQ(run(0, 0), expected);
    EXPECT_EQ(run(1, 0), guesses);
    EXPECT_EQ(run(0, 1000), guesses);
  }
}

TYPED_TEST(SearchTest, OnAUniformPartitionUnflaggedCellsAreComputedAfresh) {
  using E = Entries<TypeParam>;
  using Log = CallbackLog<TypeParam>;
  const TypeParam x[] = {-2, 2};
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 33, x, 4, 0, nullptr, 0, 1), 0);
  const auto sites = random_values<TypeParam>(200);
  const auto expected = search_cells<TypeParam>(task, sites, 0, nullptr);
  std::vector<int64_t> cell(200);
  Log::reset(0, 0);
  ASSERT_EQ(E::search(task, 0, 200, sites.data(), 0, nullptr, cell.data(), Log::call, nullptr, nullptr), 0);
  EXPECT_EQ(cell, expected);
  Log::reset(7, 0);
  ASSERT_EQ(E::search(task, 0, 200, sites.data(), 0, nullptr, cell.data(), Log::call, nullptr, nullptr), 0);
  EXPECT_EQ(cell, std::vector<int64_t>(200, 5));
}

TYPED_TEST(SearchTest, UserDefinedEntriesCallBackOnceForAllSites) {
  using Log = CallbackLog<TypeParam>;
  const auto x = ragged_partition<TypeParam>(20);
  const auto sites = random_values<TypeParam>(500);
  std::vector<int64_t> expected, wide(500), pack(500), flagged(500);
  for (TypeParam t : sites) expected.push_back(naive_cell(x, t));
  std::vector<int32_t> narrow(500), done(500, 9);
  const int64_t before = serv::live_allocations();
  const auto run = [&](auto f, auto* cell, auto... more) {
    Log::reset(0, 0);
    EXPECT_EQ(f(20, x.data(), 500, sites.data(), nullptr, TypeParam(0), nullptr, nullptr, nullptr, cell, more...,
                Log::call, nullptr, nullptr, done.data()),
              0);
    EXPECT_EQ(Log::counts, (std::vector<int64_t>{500}));
    EXPECT_EQ(done, std::vector<int32_t>(500, 0));
  };
  const int64_t w64 = 0, w32 = 2;
  if constexpr (sizeof(TypeParam) == 8) {
    run(orvik_df_kernel_dDFUserDefSearch1D32, narrow.data());
    run(orvik_df_kernel_dDFUserDefSearch1D64, wide.data());
    run(orvik_df_kernel_dDFUserDefSearch1D64Pack, pack.data());
    run(orvik_df_kernel_dDFUserDefSearch1D, flagged.data(), w64);
  } else {
    run(orvik_df_kernel_sDFUserDefSearch1D32, narrow.data());
    run(orvik_df_kernel_sDFUserDefSearch1D64, wide.data());
    run(orvik_df_kernel_sDFUserDefSearch1D64Pack, pack.data());
    run(orvik_df_kernel_sDFUserDefSearch1D, flagged.data(), w64);
  }
  EXPECT_EQ(std::vector<int64_t>(narrow.begin(), narrow.end()), expected);
  EXPECT_EQ(wide, expected);
  EXPECT_EQ(pack, expected);
  EXPECT_EQ(flagged, expected);
  std::fill(narrow.begin(), narrow.end(), -1);
  if constexpr (sizeof(TypeParam) == 8) {
    run(orvik_df_kernel_dDFUserDefSearch1D, narrow.data(), w32);
    run(orvik_df_kernel_dDFUniUserDefSearch1D64, wide.data());
    run(orvik_df_kernel_dDFUniUserDefSearch1D32, narrow.data());
  } else {
    run(orvik_df_kernel_sDFUserDefSearch1D, narrow.data(), w32);
    run(orvik_df_kernel_sDFUniUserDefSearch1D64, wide.data());
    run(orvik_df_kernel_sDFUniUserDefSearch1D32, narrow.data());
  }
  EXPECT_EQ(std::vector<int64_t>(narrow.begin(), narrow.end()), wide);
  EXPECT_EQ(serv::live_allocations(), before);
  serv::fail_allocation_after(1);
  Log::reset(0, 0);
  int32_t status;
  if constexpr (sizeof(TypeParam) == 8) {
    status = orvik_df_kernel_dDFUserDefSearch1D32(20, x.data(), 500, sites.data(), nullptr, 0, nullptr, nullptr,
                                                  nullptr, narrow.data(), Log::call, nullptr, nullptr, done.data());
  } else {
    status = orvik_df_kernel_sDFUserDefSearch1D32(20, x.data(), 500, sites.data(), nullptr, 0, nullptr, nullptr,
                                                  nullptr, narrow.data(), Log::call, nullptr, nullptr, done.data());
  }
  serv::fail_allocation_after(0);
  EXPECT_EQ(status, DFS_NO_MEMORY);
  EXPECT_TRUE(Log::counts.empty());
}

}  // namespace
}  // namespace orvik::df::test
