// Integration: callbacks for parts outside and inside, and for searching.
#include "df/integrate.h"

namespace orvik::df::test {
namespace {

template <class Real>
class IntegrateCallbacksTest : public ::testing::Test {};
TYPED_TEST_SUITE(IntegrateCallbacksTest, Reals);

// Integrates a constant, and keeps what it was given.
template <class Real>
struct Constant {
  Real value;
  int32_t status = 0;
  int64_t fail_at = 1 << 30;  // call
  std::vector<Real> from = {}, to = {};
  std::vector<int64_t> cells = {};
  int64_t calls = 0;
  static int32_t call(int64_t* count, const Real* left, const Real* right, const int64_t* cells, Real* results,
                      void* params) {
    Constant* self = static_cast<Constant*>(params);
    for (int64_t j = 0; j < *count; ++j) {
      self->from.push_back(left[j]), self->to.push_back(right[j]), self->cells.push_back(cells[j]);
      results[j] = self->value * (right[j] - left[j]);
    }
    return ++self->calls > self->fail_at ? -41 : self->status;
  }
};

TYPED_TEST(IntegrateCallbacksTest, EachPartIsTheCallbacksOrThePolynomials) {
  const double tolerance = sizeof(TypeParam) == 8 ? 1e-12 : 2e-4;
  for (const KindRow& kind : kIntegrable) {
    for (int64_t xhint : {1, 4}) {
      auto fit = integrable<TypeParam>(kind, 40, 2, xhint);
      const TypeParam x0 = fit->x.front(), xn = fit->x.back();
      std::vector<TypeParam> left, right;
      spread_limits(*fit, 300, &left, &right);
      Integral<TypeParam> plain;
      for (int mask = 1; mask < 8; ++mask) {
        Constant<TypeParam> before{100}, behind{-200}, inside{300};
        Integral<TypeParam> call;
        if ((mask & 1) != 0) call.le = Constant<TypeParam>::call, call.le_params = &before;
        if ((mask & 2) != 0) call.re = Constant<TypeParam>::call, call.re_params = &behind;
        if ((mask & 4) != 0) call.inside = Constant<TypeParam>::call, call.inside_params = &inside;
        const auto r = call(fit->task, left, right);
        ASSERT_EQ(call.status, 0);
        for (size_t k = 0; k < left.size(); ++k) {
          const TypeParam a = std::min(left[k], right[k]), b = std::max(left[k], right[k]);
          for (size_t f = 0; f < 2; ++f) {
            double expected = 0;
            const auto part = [&](TypeParam from, TypeParam to, bool given, double value) {
              if (!(from < to)) return;
              if (given) {
                expected += value * static_cast<double>(to - from);
              } else {
                expected += static_cast<double>(plain(fit->task, {from}, {to})[f]);
              }
            };
            part(a, std::min(b, x0), (mask & 1) != 0, 100);
            part(std::max(a, x0), std::min(b, xn), (mask & 4) != 0, 300);
            part(std::max(a, xn), b, (mask & 2) != 0, -200);
            if (left[k] > right[k]) expected = -expected;
            ASSERT_NEAR(static_cast<double>(r[f * left.size() + k]), expected, tolerance * (1 + std::abs(expected)))
                << kind.name << " mask " << mask << " from " << left[k] << " to " << right[k];
          }
        }
        // Only non-empty parts, in order, each where it belongs.
        const auto test = [&](const Constant<TypeParam>& c, TypeParam least, TypeParam most) {
          for (size_t k = 0; k < c.from.size(); ++k) {
            EXPECT_LT(c.from[k], c.to[k]);
            EXPECT_GE(c.from[k], least);
            EXPECT_LE(c.to[k], most);
          }
        };
        const TypeParam inf = std::numeric_limits<TypeParam>::infinity();
        test(before, -inf, x0), test(behind, xn, inf), test(inside, x0, xn);
        for (int64_t cell : before.cells) EXPECT_EQ(cell, 0);
        for (int64_t cell : behind.cells) EXPECT_EQ(cell, 40);
        for (size_t k = 0; k < inside.cells.size(); ++k) {
          const int64_t cell = inside.cells[k];
          ASSERT_TRUE(1 <= cell && cell <= 39);
          const bool begins_in = fit->x[size_t(cell) - 1] <= inside.from[k] && inside.from[k] < fit->x[size_t(cell)];
          EXPECT_TRUE(begins_in || xhint == 4);  // on an even grid rounding may put it into a neighbour
        }
      }
    }
  }
}

TYPED_TEST(IntegrateCallbacksTest, AllThreeCallbacksNeedNoCoefficientsAndNoKind) {
  auto fit = integrable<TypeParam>(kIntegrable[2], 20, 1, 1);
  as_task(fit->task)->coeff_rows[0] = nullptr;
  Constant<TypeParam> one{1};
  Integral<TypeParam> call;
  call.le = call.re = call.inside = Constant<TypeParam>::call;
  call.le_params = call.re_params = call.inside_params = &one;
  const TypeParam a = fit->x.front() - 1, b = fit->x.back() + 1;
  for (int64_t order : {4, 0}) {
    as_task(fit->task)->s_order = order;
    const auto r = call(fit->task, std::vector<TypeParam>(40, b), std::vector<TypeParam>(40, a));
    EXPECT_EQ(call.status, 0);
    for (TypeParam v : r) EXPECT_NEAR(static_cast<double>(v), static_cast<double>(a - b), 1e-5);
  }
  call.le = nullptr;
  call.one(fit->task, a, b);
  EXPECT_EQ(call.status, DFS_BAD_SPLINE_TYPE);
}

TYPED_TEST(IntegrateCallbacksTest, InfiniteLimitsAreTheCallbacksAndNoNumbersAreNot) {
  const TypeParam inf = std::numeric_limits<TypeParam>::infinity(), nan = std::numeric_limits<TypeParam>::quiet_NaN();
  auto fit = integrable<TypeParam>(kIntegrable[2], 20, 1, 1);
  Constant<TypeParam> zero{0};
  // An antiderivative that is bounded: the callback gives 5 whatever the part.
  const auto five = [](int64_t* count, const TypeParam*, const TypeParam*, const int64_t*, TypeParam* results,
                       void*) -> int32_t {
    std::fill(results, results + *count, TypeParam(5));
    return 0;
  };
  Integral<TypeParam> plain, call;
  call.le = call.re = five;
  const TypeParam whole = plain.one(fit->task, fit->x.front(), fit->x.back());
  EXPECT_NEAR(static_cast<double>(call.one(fit->task, -inf, inf)), static_cast<double>(whole) + 10, 1e-5);
  EXPECT_EQ(call.one(fit->task, -inf, fit->x.front() - 1), 5);
  EXPECT_EQ(call.one(fit->task, inf, fit->x.back() + 1), -5);
  call.le = call.re = call.inside = Constant<TypeParam>::call;
  call.le_params = call.re_params = call.inside_params = &zero;
  EXPECT_TRUE(std::isnan(call.one(fit->task, nan, 1)));
  EXPECT_TRUE(std::isnan(call.one(fit->task, 1, nan)));
  EXPECT_EQ(zero.calls, 0);
  EXPECT_EQ(call.one(fit->task, 1, 1), 0);
  EXPECT_EQ(zero.calls, 0);
}

TYPED_TEST(IntegrateCallbacksTest, FailingCallbackEndsTheCallWithItsStatusAndKeepsEarlierResults) {
  auto fit = integrable<TypeParam>(kIntegrable[2], 20, 1, 1);
  std::vector<TypeParam> left, right;
  spread_limits(*fit, 20000, &left, &right);
  for (int which : {0, 1, 2}) {
    for (int32_t status : {0, 31}) {  // a positive status is no failure
      Constant<TypeParam> constant{1, status};
      constant.fail_at = status == 0 ? 1 : 1 << 30;
      Integral<TypeParam> call;
      auto& callback = which == 0 ? call.le : which == 1 ? call.re : call.inside;
      (which == 0 ? call.le_params : which == 1 ? call.re_params : call.inside_params) = &constant;
      callback = Constant<TypeParam>::call;
      const auto r = call(fit->task, left, right);
      EXPECT_EQ(call.status, status == 0 ? -41 : 0);
      if (status == 0) {
        EXPECT_EQ(constant.calls, 2);
        EXPECT_NE(r[127], -77);  // the block before
        EXPECT_EQ(r[128], -77);
      }
      constant.calls = 0;
      call.services = &LoopServices<4>::table;  // on worker threads
      call(fit->task, left, right);
      EXPECT_EQ(call.status, status == 0 ? -41 : 0);
    }
  }
}

template <class Real>
struct SearchLog {
  static inline std::vector<int64_t> counts;
  static inline int32_t flag, status;
  static inline size_t fail_at;
  static int32_t call(int64_t* count, const Real*, int64_t* cells, int32_t* flags, void*, void*) {
    counts.push_back(*count);
    for (int64_t j = 0; j < *count; ++j) cells[j] = flag == 0 ? j % 23 : 3, flags[j] = flag;
    return counts.size() > fail_at ? -99 : status;
  }
  static void reset(int32_t f, int32_t s, size_t fail = 1 << 30) {
    counts.clear(), flag = f, status = s, fail_at = fail;
  }
};

TYPED_TEST(IntegrateCallbacksTest, TheCallersSearchSees128LimitsOfEachSideAndAnEmptyLastCall) {
  using Log = SearchLog<TypeParam>;
  using Counts = std::vector<int64_t>;
  auto fit = integrable<TypeParam>(kIntegrable[2], 20, 2, 1);
  std::vector<TypeParam> all_left, all_right;
  spread_limits(*fit, 300, &all_left, &all_right);
  for (size_t k = 0; k < 300; ++k) {  // off the breakpoints, where refinement differs on purpose
    all_left[k] += TypeParam(0.001), all_right[k] += TypeParam(0.002);
  }
  Integral<TypeParam> plain, call;
  call.search = Log::call;
  call.services = &LoopServices<4>::table;  // but on the calling thread
  for (auto [n, expected] : {std::pair<size_t, Counts>{0, {0, 0}},
                             {5, {5, 5}},
                             {128, {128, 128, 0, 0}},
                             {300, {128, 128, 128, 128, 44, 44}}}) {
    const auto end = static_cast<int64_t>(n);
    const std::vector<TypeParam> left(all_left.begin(), all_left.begin() + end);
    const std::vector<TypeParam> right(all_right.begin(), all_right.begin() + end);
    Log::reset(0, 0);
    EXPECT_EQ(call(fit->task, left, right), plain(fit->task, left, right)) << n;
    EXPECT_EQ(call.status, 0);
    EXPECT_EQ(Log::counts, expected);
  }
  // Limits of a grid too.
  call.left_hint = plain.left_hint = 4;
  Log::reset(0, 17);
  EXPECT_EQ(call(fit->task, {0, 5}, all_right, 300), plain(fit->task, {0, 5}, all_right, 300));
  EXPECT_EQ(call.status, 0);
  EXPECT_EQ(Log::counts, (Counts{128, 128, 128, 128, 44, 44}));
}

TYPED_TEST(IntegrateCallbacksTest, FinalCellsOfTheCallersSearchStandEvenIfTheyAreWrong) {
  using Log = SearchLog<TypeParam>;
  auto fit = integrable<TypeParam>(kIntegrable[2], 20, 1, 1);
  Integral<TypeParam> call;
  call.search = Log::call;
  const TypeParam* c = fit->coefficients(2);
  for (int32_t status : {0, 1000}) {
    Log::reset(1, status);
    const TypeParam a = fit->x[7], b = fit->x[12];
    const auto antiderivative = [&](long double t) {
      return t * (c[0] + t * (c[1] / 2.0L + t * (c[2] / 3.0L + t * (c[3] / 4.0L))));
    };
    const long double from = static_cast<long double>(a) - fit->x[2], to = static_cast<long double>(b) - fit->x[2];
    const double expected = static_cast<double>(antiderivative(to) - antiderivative(from));
    EXPECT_NEAR(static_cast<double>(call.one(fit->task, a, b)), expected, 1e-4 * std::abs(expected));
  }
}

TYPED_TEST(IntegrateCallbacksTest, FailingSearchEndsTheCallWithItsStatusAndKeepsEarlierResults) {
  using Log = SearchLog<TypeParam>;
  auto fit = integrable<TypeParam>(kIntegrable[2], 20, 1, 1);
  std::vector<TypeParam> left, right;
  spread_limits(*fit, 300, &left, &right);
  Integral<TypeParam> call;
  call.search = Log::call;
  for (size_t fail : {2, 3}) {  // for the left limits of the second block, for its right ones
    Log::reset(0, 0, fail);
    const auto r = call(fit->task, left, right);
    EXPECT_EQ(call.status, -99);
    EXPECT_EQ(Log::counts.size(), fail + 1);
    EXPECT_NE(r[127], -77);
    EXPECT_EQ(r[128], -77);
  }
}

TYPED_TEST(IntegrateCallbacksTest, OnAnEvenPartitionCellsAreComputedAndTheCallersSearchIsNotCalled) {
  using Log = SearchLog<TypeParam>;
  auto fit = integrable<TypeParam>(kIntegrable[2], 20, 1, 4);
  std::vector<TypeParam> left, right;
  spread_limits(*fit, 300, &left, &right);
  Integral<TypeParam> plain, call;
  call.search = Log::call;
  Log::reset(1, 0, 0);
  EXPECT_EQ(call(fit->task, left, right), plain(fit->task, left, right));
  EXPECT_EQ(call.status, 0);
  EXPECT_TRUE(Log::counts.empty());
}

}  // namespace
}  // namespace orvik::df::test
