// Searching by the caller's own routine.
#include "df/search.h"
#include "serv/memory.h"

namespace orvik::df::test {
namespace {

template <class Real>
class SearchCallbacksTest : public ::testing::Test {};
TYPED_TEST_SUITE(SearchCallbacksTest, Reals);

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

TYPED_TEST(SearchCallbacksTest, CallbackSeesBlocksOf128AndAnEmptyLastOne) {
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

TYPED_TEST(SearchCallbacksTest, FailingCallbackKeepsTheCellsOfEarlierBlocks) {
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

TYPED_TEST(SearchCallbacksTest, GuessesAreRefinedUnlessFlagged) {
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

TYPED_TEST(SearchCallbacksTest, OnAUniformPartitionUnflaggedCellsAreComputedAfresh) {
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

TYPED_TEST(SearchCallbacksTest, UserDefinedEntriesCallBackOnceForAllSites) {
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
