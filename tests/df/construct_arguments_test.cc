// Construction: tests of arguments in their order, and what a refusal leaves alone.
#include "df/fit.h"

namespace orvik::df::test {
namespace {

template <class Real>
class ConstructArgumentsTest : public ::testing::Test {};
TYPED_TEST_SUITE(ConstructArgumentsTest, Reals);

TYPED_TEST(ConstructArgumentsTest, MethodsCountsHintsAndBoundariesAreTestedInOrder) {
  using E = Entries<TypeParam>;
  struct Row {
    Construct kind;
    bool tests_method;
    int64_t least;
  };
  const Row rows[] = {{E::natural, true, 2}, {E::default_cubic, false, 3}, {E::hermite, false, 3},
                      {E::bessel, false, 4}, {E::hyman, false, 4},         {E::akima, false, 5}};
  const auto x = ragged_partition<TypeParam>(8);
  const auto y = random_values<TypeParam>(8);
  for (const Row& row : rows) {
    OwnedTask task;
    std::vector<TypeParam> c(64, TypeParam(77));
    ASSERT_EQ(E::make(task.out(), 8, x.data(), 1, 1, y.data(), 16, 0), 0);
    ASSERT_EQ(E::edit_spline(task, 4, 2, 0, nullptr, 0, nullptr, c.data(), 0), 0);
    Task* record = as_task(task);
    record->nx = row.least - 1, record->yhint = 5, record->bc_type = 4;
    EXPECT_EQ(row.kind(nullptr, 0, 1, nullptr), DFS_NO_TASK);
    EXPECT_EQ(row.kind(task, 0, 1, nullptr), row.tests_method ? DFS_UNKNOWN_METHOD : DFS_BAD_BREAKPOINT_COUNT);
    EXPECT_EQ(row.kind(task, 0, 0, nullptr), DFS_BAD_BREAKPOINT_COUNT);
    record->nx = row.least;
    EXPECT_EQ(row.kind(task, 0, 0, nullptr), DFS_BAD_FUNCTION_HINT);
    record->yhint = 16;
    for (int64_t bad : {4, 8, 16, 32, 3, 128, 20, -1}) {
      record->bc_type = bad;
      EXPECT_EQ(row.kind(task, 0, 0, nullptr), DFS_BAD_BOUNDARY_TYPE) << bad;
    }
    record->bc_type = 0;  // for Akima alone
    if (row.kind != E::akima) {
      EXPECT_EQ(row.kind(task, 0, 0, nullptr), DFS_BAD_BOUNDARY_TYPE);
    }
    for (int64_t needs : {12, 24, 36, 48}) {
      record->bc_type = needs;
      EXPECT_EQ(row.kind(task, 0, 0, nullptr), DFS_BAD_BOUNDARY_VALUES);
    }
    record->bc_type = 64;
    for (int64_t type : {0, 3}) {
      record->s_type = type;
      EXPECT_EQ(row.kind(task, 0, 0, nullptr), DFS_BAD_BOUNDARY_VALUES);
    }
    EXPECT_EQ(c, std::vector<TypeParam>(64, TypeParam(77)));  // nothing was written
  }
}

TYPED_TEST(ConstructArgumentsTest, LinearAndNaturalTestTheMethodFirst) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit({0, 1}, {2, 3});
  fit.order = 2, fit.bc_type = 999;
  fit.bc = {0};
  fit.make();
  EXPECT_EQ(E::linear(fit.task, 0, 1, nullptr), DFS_UNKNOWN_METHOD);
  as_task(fit.task)->nx = 1, as_task(fit.task)->yhint = 5;
  EXPECT_EQ(E::linear(fit.task, 0, 0, nullptr), DFS_BAD_BREAKPOINT_COUNT);
  as_task(fit.task)->nx = 2;
  EXPECT_EQ(E::linear(fit.task, 0, 0, nullptr), DFS_BAD_FUNCTION_HINT);
  as_task(fit.task)->yhint = 16;
  EXPECT_EQ(E::linear(fit.task, 0, 0, nullptr), 0);  // other boundary types mean nothing
  as_task(fit.task)->bc_type = 64;
  EXPECT_EQ(E::linear(fit.task, 0, 0, nullptr), DFS_NOT_PERIODIC);
  as_task(fit.task)->bc_type = 1;
  EXPECT_EQ(E::natural(fit.task, 0, 0, nullptr), DFS_BAD_BREAKPOINT_COUNT);  // two points, not-a-knot
}

TYPED_TEST(ConstructArgumentsTest, AkimaNeedsFiveBreakpointsAndBesselFour) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit({0, 1, 3, 4}, {1, 0, 2, 1});
  EXPECT_EQ(fit.construct(E::akima), DFS_BAD_BREAKPOINT_COUNT);
  EXPECT_EQ(fit.construct(E::bessel), 0);
}

TYPED_TEST(ConstructArgumentsTest, DifferingEndsOrNanAreNotPeriodicAndWriteNothing) {
  using E = Entries<TypeParam>;
  auto kinds = cubic_kinds<TypeParam>();
  kinds.push_back({"Linear", E::linear, 2, 0});
  for (const auto& kind : kinds) {
    for (int what = 0; what < 3; ++what) {
      auto fit = legal_fit(kind, 40, 20, 64, 1);
      // The last function spoils it for all.
      const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
      if (what == 0) fit->y[19 * 40] += 1;
      if (what == 1) fit->y[19 * 40] = nan;
      if (what == 2) fit->y[19 * 40] = fit->y[19 * 40 + 39] = nan;
      EXPECT_EQ(fit->construct(kind.construct), DFS_NOT_PERIODIC) << kind.name;
      EXPECT_EQ(fit->c, std::vector<TypeParam>(fit->c.size(), TypeParam(77)));
    }
  }
}

TYPED_TEST(ConstructArgumentsTest, QuadraticTestsItsArgumentsInOrder) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit({0, 1, 2, 4}, {1, 2, 0, 1});
  fit.order = 3, fit.type = 1;
  fit.make();
  Task* record = as_task(fit.task);
  record->yhint = 3, record->s_type = 2;
  EXPECT_EQ(E::quadratic(nullptr, 0, 0, nullptr), DFS_NO_TASK);
  EXPECT_EQ(E::quadratic(fit.task, 0, 9, nullptr), DFS_BAD_FUNCTION_HINT);
  record->yhint = 16;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_UNKNOWN_METHOD);
  record->s_type = 0, record->bc_type = 2, record->bc = nullptr;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_BOUNDARY_TYPE);
  record->bc_type = 128;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_BOUNDARY_VALUES);
  record->s_type = 1, record->ic_type = 4;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_INTERNAL_TYPE);
  record->ic_type = 8;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_BOUNDARY_TYPE);
  for (int64_t needs : {12, 24, 36, 48}) {
    record->bc_type = needs;
    EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_BOUNDARY_VALUES);
  }
  record->bc_type = 2;
  std::vector<TypeParam> knots = {0, 0.5, 1.5, 3, 4};
  record->ic = knots.data();
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), 0);
  knots[0] = 0.1f;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_INTERNAL_VALUES);
  knots[0] = 0, knots[4] = 3.9f;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_INTERNAL_VALUES);
}

}  // namespace
}  // namespace orvik::df::test
