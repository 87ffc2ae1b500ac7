// Interpolation: callbacks for values and for searching.
#include "df/interpolate.h"

namespace orvik::df::test {
namespace {

template <class Real>
class InterpolateCallbacksTest : public ::testing::Test {};
TYPED_TEST_SUITE(InterpolateCallbacksTest, Reals);

template <class Real>
struct Probe {
  Real base;
  int32_t status = 0;
  std::vector<Real> sites = {};
  std::vector<int64_t> cells = {};
  int64_t calls = 0;
  static int32_t call(int64_t* count, const Real* sites, const int64_t* cells, Real* results, void* params) {
    Probe* probe = static_cast<Probe*>(params);
    ++probe->calls;
    for (int64_t j = 0; j < *count; ++j) {
      probe->sites.push_back(sites[j]);
      probe->cells.push_back(cells[j]);
      results[j] = probe->base + static_cast<Real>(cells[j]);
    }
    return probe->status;
  }
};

TYPED_TEST(InterpolateCallbacksTest, CallbacksReplaceTheirOwnSites) {
  for (int64_t nsite : {1, 7, 600}) {
    for (int64_t order : {4, 3, 5}) {
      auto fit = random_spline<TypeParam>(order, 0, 20, 1);
      const auto sites = spread_sites(*fit, nsite, 2);
      Call<TypeParam> call;
      call.dorder = {1, 1};
      const auto plain = call(fit->task, sites);
      for (int mask = 1; mask < 8; ++mask) {
        Probe<TypeParam> left{1000}, right{2000}, inside{3000};
        call.le = (mask & 1) != 0 ? Probe<TypeParam>::call : nullptr, call.le_params = &left;
        call.re = (mask & 2) != 0 ? Probe<TypeParam>::call : nullptr, call.re_params = &right;
        call.inside = (mask & 4) != 0 ? Probe<TypeParam>::call : nullptr, call.inside_params = &inside;
        const auto r = call(fit->task, sites);
        ASSERT_EQ(call.status, 0);
        size_t in_left = 0;
        for (size_t j = 0; j < sites.size(); ++j) {
          int64_t cell = std::upper_bound(fit->x.begin(), fit->x.end(), sites[j]) - fit->x.begin();
          if (sites[j] == fit->x.back()) cell = 19;
          in_left += cell == 0;
          const int which = cell == 0 ? 1 : cell == 20 ? 2 : 4;
          for (size_t k = 0; k < 2; ++k) {
            const TypeParam expected = (mask & which) == 0
                                           ? plain[2 * j + k]
                                           : static_cast<TypeParam>((which == 4 ? 3000 : 1000 * which) + cell);
            ASSERT_EQ(r[2 * j + k], expected) << nsite << " " << mask << " " << j;
          }
        }
        EXPECT_EQ(left.sites.size(), (mask & 1) != 0 ? 2 * in_left : 0);  // once for each derivative
        if (in_left == 0) {
          EXPECT_EQ(left.calls, 0);
        }
      }
    }
  }
}

TYPED_TEST(InterpolateCallbacksTest, OrderZeroWithAllThreeCallbacksNeedsNoCoefficients) {
  auto fit = random_spline<TypeParam>(4, 0, 20, 1);
  as_task(fit->task)->s_order = 0;
  as_task(fit->task)->coeff_rows[0] = nullptr;
  Probe<TypeParam> left{1000}, right{2000}, inside{3000};
  Call<TypeParam> call;
  call.le = call.re = call.inside = Probe<TypeParam>::call;
  call.le_params = &left, call.re_params = &right, call.inside_params = &inside;
  const auto r = call(fit->task, {fit->x[0] - 1, fit->x[5], fit->x.back() + 1});
  EXPECT_EQ(call.status, 0);
  EXPECT_EQ(r, (std::vector<TypeParam>{1000, 3006, 2020}));
  call.le = nullptr;
  call(fit->task, {fit->x[5]});
  EXPECT_EQ(call.status, DFS_BAD_SPLINE_TYPE);
}

TYPED_TEST(InterpolateCallbacksTest, NegativeStatusOfACallbackEndsTheCallAndOthersDoNot) {
  for (int64_t nsite : {1, 9, 700, 20000}) {
    auto fit = random_spline<TypeParam>(4, 0, 20, 1);
    const auto sites = spread_sites(*fit, nsite);
    for (int32_t status : {-31, 31}) {
      Probe<TypeParam> inside{3000, status};
      Call<TypeParam> call;
      call.inside = Probe<TypeParam>::call;
      call.inside_params = &inside;
      call.services = &LoopServices<4>::table;
      const auto r = call(fit->task, sites);
      EXPECT_EQ(call.status, std::min(status, 0));
      if (nsite == 700 && status < 0) {
        EXPECT_EQ(inside.calls, 1);
        EXPECT_EQ(r.back(), -77);  // later blocks were not begun
      }
    }
  }
}

template <class Real>
int32_t third_cell(int64_t* count, const Real*, int64_t* cells, int32_t* flags, void* word0, void* word1) {
  EXPECT_EQ(word0, nullptr);
  EXPECT_EQ(word1, nullptr);
  for (int64_t j = 0; j < *count; ++j) cells[j] = 3, flags[j] = 1;
  return 0;
}

template <class Real>
int32_t guesses_only(int64_t* count, const Real*, int64_t* cells, int32_t* flags, void*, void*) {
  for (int64_t j = 0; j < *count; ++j) cells[j] = j % 9, flags[j] = 0;
  return 0;
}

template <class Real>
int32_t failing_search(int64_t*, const Real*, int64_t*, int32_t*, void*, void*) {
  return -99;
}

TYPED_TEST(InterpolateCallbacksTest, TheCallersSearchIsUsed) {
  for (int64_t xhint : {1, 4}) {
    for (int64_t nsite : {1, 12, 900, 40000}) {
      auto fit = random_spline<TypeParam>(4, 0, 20, 1, xhint);
      auto sites = spread_sites(*fit, nsite);
      for (auto& t : sites) t += TypeParam(0.001);  // off the breakpoints, where refinement differs on purpose
      Call<TypeParam> call;
      const auto plain = call(fit->task, sites);
      call.services = &LoopServices<4>::table;
      call.search = guesses_only<TypeParam>;
      EXPECT_EQ(call(fit->task, sites), plain);
      call.search = third_cell<TypeParam>;
      const auto third = call(fit->task, sites);
      call.search = nullptr;
      call.flags = 4;
      std::vector<int32_t> cell(static_cast<size_t>(nsite), 3);
      call.cell = cell.data();
      EXPECT_EQ(call(fit->task, sites), third);
      call.flags = 1;
      call.search = failing_search<TypeParam>;
      call(fit->task, sites);
      EXPECT_EQ(call.status, -99);
    }
  }
}

// Notes the counts of its calls; its buffers are of 128 sites.
template <class Real>
struct SearchLog {
  static inline std::vector<int64_t> counts;
  static inline std::vector<int32_t> statuses;  // of the calls; the last one's from there on
  static inline std::vector<Real> sites;
  static int32_t call(int64_t* count, const Real* at, int64_t* cells, int32_t* flags, void*, void*) {
    const size_t calls = counts.size();
    counts.push_back(*count);
    for (int64_t j = 0; j < *count; ++j) sites.push_back(at[j]), cells[j] = 2, flags[j] = 0;
    return statuses[std::min(calls, statuses.size() - 1)];
  }
  static void reset(std::vector<int32_t> s) { counts.clear(), sites.clear(), statuses = std::move(s); }
};

TYPED_TEST(InterpolateCallbacksTest, TheCallersSearchSees128SitesACallAndAnEmptyLastOne) {
  using Log = SearchLog<TypeParam>;
  using Counts = std::vector<int64_t>;
  for (int64_t xhint : {1, 4}) {
    for (int64_t order : {4, 5}) {
      for (const auto& orders : {std::vector<int32_t>{1}, {1, 1}}) {
        auto fit = random_spline<TypeParam>(order, 0, 20, 1, xhint);
        auto sites = spread_sites(*fit, 20000);
        for (auto& t : sites) t += TypeParam(0.001);
        Call<TypeParam> call;
        call.dorder = orders;
        call.services = &LoopServices<4>::table;
        for (auto [n, expected] : {std::pair<int64_t, Counts>{0, {0}},
                                   {1, {1}},
                                   {127, {127}},
                                   {128, {128, 0}},
                                   {300, {128, 128, 44}},
                                   {512, {128, 128, 128, 128, 0}}}) {
          const std::vector<TypeParam> some(sites.begin(), sites.begin() + n);
          call.search = nullptr;
          const auto plain = call(fit->task, some);
          Log::reset({0});
          call.search = Log::call;
          EXPECT_EQ(call(fit->task, some), plain);
          EXPECT_EQ(call.status, 0);
          EXPECT_EQ(Log::counts, expected) << n;
          EXPECT_EQ(Log::sites, some);
        }
        Log::reset({1000});
        call(fit->task, sites);
        EXPECT_EQ(Log::counts, Counts([] {
                    Counts all(20000 / 128, 128);
                    all.push_back(20000 % 128);
                    return all;
                  }()));
      }
    }
  }
}

TYPED_TEST(InterpolateCallbacksTest, TheCallersSearchSees128SitesOfAGridTooAndNoneWhereCellsAreGiven) {
  using Log = SearchLog<TypeParam>;
  auto fit = random_spline<TypeParam>(4, 2, 20, 1);
  const std::vector<TypeParam> ends = {fit->x.front() - 1, fit->x.back() + 1};
  Call<TypeParam> call;
  call.sitehint = 4;
  const auto plain = call(fit->task, ends, 300);
  Log::reset({0});
  call.search = Log::call;
  EXPECT_EQ(call(fit->task, ends, 300), plain);
  EXPECT_EQ(Log::counts, (std::vector<int64_t>{128, 128, 44}));
  std::vector<int32_t> cell(300, 3);
  call.cell = cell.data();
  call.flags = 4;
  Log::reset({-5});
  call(fit->task, ends, 300);
  EXPECT_EQ(call.status, 0);
  EXPECT_TRUE(Log::counts.empty());
}

TYPED_TEST(InterpolateCallbacksTest, TheCallersSearchGivesTheStatusOfItsLastCallAsInSearch) {
  using Log = SearchLog<TypeParam>;
  auto fit = random_spline<TypeParam>(4, 2, 20, 1);
  const auto sites = spread_sites(*fit, 300);
  Call<TypeParam> call;
  call.search = Log::call;
  Log::reset({17});
  call(fit->task, sites);
  EXPECT_EQ(call.status, 17);
  Log::reset({17, 17, 1000});
  call(fit->task, sites);
  EXPECT_EQ(call.status, 0);
  Log::reset({0, -8});
  const auto r = call(fit->task, sites);
  EXPECT_EQ(call.status, -8);
  EXPECT_EQ(Log::counts.size(), 2u);
  EXPECT_NE(r[127], -77);  // what was done before stays
  EXPECT_EQ(r[128], -77);
}

}  // namespace
}  // namespace orvik::df::test
