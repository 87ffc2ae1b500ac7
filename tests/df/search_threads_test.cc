// Search: when threads are used, and that they find the same cells.
#include "df/search.h"

namespace orvik::df::test {
namespace {

template <class Real>
class SearchThreadsTest : public ::testing::Test {};
TYPED_TEST_SUITE(SearchThreadsTest, Reals);

TYPED_TEST(SearchThreadsTest, ThreadsAreUsedByTheRuleOfEachMethod) {
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

TYPED_TEST(SearchThreadsTest, HybridDividesInBlocksOf128) {
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

TYPED_TEST(SearchThreadsTest, ThreadsFindTheCellsOfOneThread) {
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

}  // namespace
}  // namespace orvik::df::test
