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

}  // namespace
}  // namespace orvik::df::test
