// Interpolation of other kinds than cubics: quadratic splines with knots, step functions, look-up.
#include "df/interpolate.h"

namespace orvik::df::test {
namespace {

template <class Real>
class InterpolateKindsTest : public ::testing::Test {};
TYPED_TEST_SUITE(InterpolateKindsTest, Reals);

TYPED_TEST(InterpolateKindsTest, QuadraticWithItsOwnKnotsIsEvaluatedBetweenThem) {
  using E = Entries<TypeParam>;
  for (int64_t xhint : {1, 4}) {
    for (bool given : {false, true}) {
      auto x = xhint == 4 ? even_partition<TypeParam>(12, 0, 11) : ragged_partition<TypeParam>(12);
      Fit<TypeParam> fit(x, random_values<TypeParam>(12));
      fit.order = 3, fit.type = 1, fit.bc_type = 2, fit.ic_type = 8, fit.xhint = xhint;
      std::vector<TypeParam> tau = {x[0]};
      for (size_t i = 1; i < 12; ++i)
        tau.push_back(given ? x[i - 1] + (x[i] - x[i - 1]) * TypeParam(0.25) : TypeParam(0.5) * (x[i - 1] + x[i]));
      tau.push_back(x.back());
      if (given) fit.ic = tau;
      ASSERT_EQ(fit.construct(E::quadratic), 0);
      for (int64_t nsite : {5, 400}) {
        const auto sites = spread_sites(fit, nsite);
        Call<TypeParam> call;
        call.dorder = {1, 1};
        const auto r = call(fit.task, sites);
        for (size_t j = 0; j < sites.size(); ++j) {
          int64_t i = std::upper_bound(tau.begin(), tau.end(), sites[j]) - tau.begin() - 1;
          i = std::clamp<int64_t>(i, 0, 11);
          const long double t = static_cast<long double>(sites[j]) - x[size_t(i)];
          EXPECT_NEAR(r[2 * j], fit.at(i, t, 0), 1e-3);
          EXPECT_NEAR(r[2 * j + 1], fit.at(i, t, 1), 1e-3);
          if (sizeof(TypeParam) == 8) {
            EXPECT_NEAR(r[2 * j], fit.at(i, t, 0), 1e-11);
          }
        }
        Call<TypeParam> at_points;
        const auto values = at_points(fit.task, x);
        for (size_t i = 0; i < 12; ++i) EXPECT_NEAR(values[i], fit.y[i], 1e-4);
      }
    }
  }
}

TYPED_TEST(InterpolateKindsTest, StepFunctionsTakeTheLeftOrTheRightValue) {
  for (int64_t xhint : {1, 4}) {
    for (bool columns : {false, true}) {
      auto fit = random_spline<TypeParam>(0, 7, 9, 2, xhint);  // even grid: step 1
      if (columns) {
        fit->y = transposed(fit->y, 9, 2);
        as_task(fit->task)->yhint = 32;
        ASSERT_EQ(Entries<TypeParam>::edit_pointer(fit->task, DFP_FUNCTIONS, fit->y.data()), 0);
      }
      const auto Y = [&](int64_t f, int64_t i) {
        return columns ? fit->y[size_t(i * 2 + f)] : fit->y[size_t(f * 9 + i)];
      };
      const auto& x = fit->x;
      const TypeParam between = (x[3] + x[4]) / 2;
      const std::vector<TypeParam> sites = {x[0] - 1, x[0], x[3], between, x[7], x[8], x[8] + 1};
      const int64_t left[] = {0, 0, 3, 3, 7, 8, 8}, right[] = {0, 0, 3, 4, 7, 8, 8};
      for (int64_t type : {7, 8}) {
        as_task(fit->task)->s_type = type;
        Call<TypeParam> call;
        call.dorder = {1, 1};
        const auto r = call(fit->task, sites);
        ASSERT_EQ(call.status, 0);
        for (int64_t f = 0; f < 2; ++f) {
          for (int64_t j = 0; j < 7; ++j) {
            EXPECT_EQ(r[size_t((f * 7 + j) * 2)], Y(f, type == 7 ? left[j] : right[j])) << type << " site " << j;
            EXPECT_EQ(r[size_t((f * 7 + j) * 2 + 1)], 0);
          }
        }
        call.dorder = {0, 1};  // no values asked: nothing is computed
        const auto none = call(fit->task, sites);
        EXPECT_EQ(call.status, 0);
        EXPECT_EQ(none, std::vector<TypeParam>(none.size(), TypeParam(-77)));
      }
    }
  }
}

TYPED_TEST(InterpolateKindsTest, LookUpWantsBreakpoints) {
  auto fit = random_spline<TypeParam>(0, 6, 9, 1);
  const TypeParam inf = std::numeric_limits<TypeParam>::infinity();
  Call<TypeParam> call;
  EXPECT_EQ(call(fit->task, fit->x), fit->y);
  EXPECT_EQ(call.status, 0);
  for (TypeParam bad : {fit->x[0] - 1, std::nextafter(fit->x[4], inf), (fit->x[2] + fit->x[3]) / 2, fit->x[8] + 1}) {
    call(fit->task, {fit->x[1], bad});
    EXPECT_EQ(call.status, DFS_SITE_NOT_BREAKPOINT);
  }
  call.dorder = {};
  call(fit->task, fit->x);
  EXPECT_EQ(call.status, DFS_BAD_ORDER_COUNT);
  call.dorder = {1, 0};
  call(fit->task, fit->x);
  EXPECT_EQ(call.status, DFS_BAD_ORDER_COUNT);
  call.dorder = {0};
  call(fit->task, fit->x);
  EXPECT_EQ(call.status, DFS_BAD_ORDER_FLAG);
  call.dorder = {};
  call(fit->task, {fit->x[0] - 1});  // the site first
  EXPECT_EQ(call.status, DFS_SITE_NOT_BREAKPOINT);
}

TYPED_TEST(InterpolateKindsTest, LookUpOnAUniformPartitionAllowsAHairsBreadth) {
  auto fit = random_spline<TypeParam>(0, 6, 9, 1, 4);  // -1 to 7, step 1
  Call<TypeParam> call;
  EXPECT_EQ(call(fit->task, fit->x), fit->y);
  if constexpr (sizeof(TypeParam) == 8) {
    const double near = 9.0e-13, far = 9.2e-13;
    EXPECT_EQ(call(fit->task, {2 + near, 2 - near, 7 - near}), (std::vector<double>{fit->y[3], fit->y[3], fit->y[8]}));
    EXPECT_EQ(call.status, 0);
    for (double bad : {2 + far, 2 - far, 7 + far, -1 - far}) {
      call(fit->task, {bad});
      EXPECT_EQ(call.status, DFS_SITE_NOT_BREAKPOINT) << bad;
    }
  }
  call(fit->task, {8});  // one step beyond the right end
  EXPECT_EQ(call.status, DFS_SITE_NOT_BREAKPOINT);
  call(fit->task, {-2});
  EXPECT_EQ(call.status, DFS_SITE_NOT_BREAKPOINT);
}

// Far from zero the steps do not add up to it by more than a hair; on a short grid its neighbour is as near.
TYPED_TEST(InterpolateKindsTest, LookUpFindsTheRightEndOfAUniformPartition) {
  for (const TypeParam width : {TypeParam(1e9) / 7, TypeParam(1e-13)}) {
    auto fit = random_spline<TypeParam>(0, 6, 8, 1, 4);
    const TypeParam ends[] = {width / 10, width};
    ASSERT_EQ(Entries<TypeParam>::edit_pointer(fit->task, DFP_BREAKPOINTS, ends), 0);
    Call<TypeParam> call;
    EXPECT_EQ(call(fit->task, {width}), (std::vector<TypeParam>{fit->y[7]})) << width;
    EXPECT_EQ(call.status, 0);
  }
}

}  // namespace
}  // namespace orvik::df::test
