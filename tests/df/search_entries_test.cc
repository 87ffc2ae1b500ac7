// The search methods as entries of their own, in all widths.
#include "df/search.h"

namespace orvik::df::test {
namespace {

template <class Real>
class SearchEntriesTest : public ::testing::Test {};
TYPED_TEST_SUITE(SearchEntriesTest, Reals);

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

TYPED_TEST(SearchEntriesTest, AllWidthsOfAllMethodsAgreeWithAScan) {
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

TYPED_TEST(SearchEntriesTest, SortedMethodGoesOnFromItsState) {
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

}  // namespace
}  // namespace orvik::df::test
