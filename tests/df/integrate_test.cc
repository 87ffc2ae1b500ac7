// Integration: limits of every kind, layouts, arguments.
#include <cstdlib>

#include "df/integrate.h"
#include "serv/memory.h"
#include "support/guarded.h"

namespace orvik::df::test {
namespace {

template <class Real>
class IntegrateTest : public ::testing::Test {};
TYPED_TEST_SUITE(IntegrateTest, Reals);

TYPED_TEST(IntegrateTest, EqualLimitsGiveZeroWhateverTheCell) {
  const TypeParam inf = std::numeric_limits<TypeParam>::infinity();
  for (const KindRow& kind : kIntegrable) {
    for (int64_t xhint : {1, 4}) {
      auto fit = integrable<TypeParam>(kind, 20, 1, xhint);
      if (kind.order > 0) fit->coefficients(3)[0] = std::numeric_limits<TypeParam>::quiet_NaN();
      std::vector<TypeParam> at = fit->x;
      for (TypeParam t : {fit->x[3] + TypeParam(0.01), fit->x[0] - 1, fit->x.back() + 1, inf, -inf}) at.push_back(t);
      Integral<TypeParam> integral;
      EXPECT_EQ(integral(fit->task, at, at), std::vector<TypeParam>(at.size(), 0)) << kind.name;
      EXPECT_EQ(integral.one(fit->task, fit->x[4], fit->x[4]), 0);
    }
  }
}

TYPED_TEST(IntegrateTest, ReversedLimitsGiveTheNegativeOfTheIntegralInOrder) {
  for (const KindRow& kind : kIntegrable) {
    for (int64_t xhint : {1, 2, 4}) {
      auto fit = integrable<TypeParam>(kind, 50, 2, xhint);
      std::vector<TypeParam> left, right;
      spread_limits(*fit, 500, &left, &right);
      Integral<TypeParam> integral;
      const auto r = integral(fit->task, left, right), back = integral(fit->task, right, left);
      for (size_t k = 0; k < r.size(); ++k) EXPECT_EQ(r[k], -back[k]) << kind.name << " " << k;
    }
  }
}

TYPED_TEST(IntegrateTest, LimitsThatAreBreakpointsAlsoTheLastGiveWholePieces) {
  for (const KindRow& kind : kIntegrable) {
    for (int64_t xhint : {1, 4}) {
      auto fit = integrable<TypeParam>(kind, 90, 1, xhint);
      const Model<TypeParam> model(*fit);
      Integral<TypeParam> integral;
      std::vector<TypeParam> left, right;
      for (size_t i : {0, 1, 31, 32, 33, 63, 64, 88, 89}) {
        for (size_t k : {0, 1, 31, 32, 33, 63, 64, 88, 89}) {
          if (i != k) left.push_back(model.x()[i]), right.push_back(model.x()[k]);
        }
      }
      const auto r = integral(fit->task, left, right);
      for (size_t k = 0; k < left.size(); ++k) {
        EXPECT_LE(error_in_ulp(r[k], model.integral(left[k], right[k])), 4) << kind.name << " " << k;
      }
    }
  }
}

TYPED_TEST(IntegrateTest, BothLimitsLeftOfThePartitionExtendTheFirstPolynomial) {
  for (int64_t xhint : {1, 4}) {
    auto fit = integrable<TypeParam>(kIntegrable[2], 20, 1, xhint);
    const TypeParam* c = fit->coefficients(0);
    const TypeParam x0 = fit->x[0];
    Integral<TypeParam> integral;
    const auto antiderivative = [&](long double t) {
      return t * (c[0] + t * (c[1] / 2.0L + t * (c[2] / 3.0L + t * (c[3] / 4.0L))));
    };
    const long double expected = antiderivative(-1) - antiderivative(-2);
    EXPECT_NEAR(static_cast<double>(integral.one(fit->task, x0 - 2, x0 - 1)), static_cast<double>(expected),
                sizeof(TypeParam) == 8 ? 1e-14 : 1e-5);
    // Behind it, the last one.
    const TypeParam* d = fit->coefficients(18);
    const auto behind = [&](long double t) {
      return t * (d[0] + t * (d[1] / 2.0L + t * (d[2] / 3.0L + t * (d[3] / 4.0L))));
    };
    const Model<TypeParam> model(*fit);
    const long double a = static_cast<long double>(fit->x.back()) + 1 - model.x()[18], b = a + 1;
    EXPECT_NEAR(static_cast<double>(integral.one(fit->task, fit->x.back() + 1, fit->x.back() + 2)),
                static_cast<double>(behind(b) - behind(a)), sizeof(TypeParam) == 8 ? 1e-12 : 1e-4);
  }
}

TYPED_TEST(IntegrateTest, StepsAddValuesTimesLengthsWithTheirSide) {
  const std::vector<TypeParam> x = {0, 1, 3, 4}, y = {10, 20, 40, 80};
  for (int64_t type : {7, 8}) {
    Fit<TypeParam> fit(x, y);
    fit.order = 0, fit.type = type;
    fit.make();
    Integral<TypeParam> integral;
    const bool left = type == 7;
    EXPECT_EQ(integral.one(fit.task, 0, 4), left ? 10 + 2 * 20 + 40 : 20 + 2 * 40 + 80);
    EXPECT_EQ(integral.one(fit.task, TypeParam(0.5), TypeParam(0.75)), left ? 2.5 : 5);
    EXPECT_EQ(integral.one(fit.task, -2, -1), 10);  // the first value goes on to the left
    EXPECT_EQ(integral.one(fit.task, -1, 1), left ? 20 : 30);
    EXPECT_EQ(integral.one(fit.task, 4, 5), 80);  // the last one to the right
    EXPECT_EQ(integral.one(fit.task, TypeParam(3.5), 6), left ? 20 + 160 : 40 + 160);
    EXPECT_EQ(integral.one(fit.task, 6, -2), left ? -(20 + 90 + 160) : -(20 + 180 + 160));
  }
}

TYPED_TEST(IntegrateTest, HintsOfLimitsAndPartitionsChangeNothing) {
  auto fit = integrable<TypeParam>(kIntegrable[2], 700, 1, 1);
  std::vector<TypeParam> left, right;
  spread_limits(*fit, 900, &left, &right);
  Integral<TypeParam> integral;
  const auto plain = integral(fit->task, left, right);
  const TypeParam no_peak[] = {9, 0, 9, 9, 9}, peak[] = {9, 1, 9, 9, 300};
  for (const TypeParam* a : {no_peak, peak}) {
    for (const TypeParam* b : {no_peak, peak}) {
      integral.left_datahint = a, integral.right_datahint = b;
      EXPECT_EQ(integral(fit->task, left, right), plain);
    }
  }
  integral.left_datahint = integral.right_datahint = nullptr;
  auto ascending = left;
  std::sort(ascending.begin(), ascending.end());
  const auto one_sided = integral(fit->task, ascending, right);
  integral.left_hint = 64;
  EXPECT_EQ(integral(fit->task, ascending, right), one_sided);
  const auto other_side = integral(fit->task, ascending, left);  // the right ones stay in any order
  auto ascending_right = right;
  std::sort(ascending_right.begin(), ascending_right.end());
  integral.left_hint = 0;
  const auto both = integral(fit->task, ascending, ascending_right);
  EXPECT_EQ(integral(fit->task, ascending, left), other_side);
  integral.left_hint = integral.right_hint = 64;
  EXPECT_EQ(integral(fit->task, ascending, ascending_right), both);
  for (int64_t xhint : {0, 2}) {
    as_task(fit->task)->xhint = xhint;
    integral.left_hint = integral.right_hint = 0;
    EXPECT_EQ(integral(fit->task, left, right), plain);
  }
}

TYPED_TEST(IntegrateTest, UniformLimitsAreExpanded) {
  for (int64_t xhint : {1, 4}) {
    auto fit = integrable<TypeParam>(kIntegrable[2], 100, 2, xhint);
    const std::vector<TypeParam> left_ends = {-5, 6}, right_ends = {7, -4};
    for (int64_t n : {2, 7, 128, 129, 1000}) {
      std::vector<TypeParam> left, right;
      const TypeParam part = 1 / static_cast<TypeParam>(n - 1);
      for (int64_t k = 0; k < n; ++k) {
        left.push_back(std::fma(part, 11 * static_cast<TypeParam>(k), TypeParam(-5)));
        right.push_back(std::fma(part, -11 * static_cast<TypeParam>(k), TypeParam(7)));
      }
      Integral<TypeParam> integral;
      const auto expected = integral(fit->task, left, right);
      integral.left_hint = 4;
      EXPECT_EQ(integral(fit->task, left_ends, right, n), expected) << n;
      integral.right_hint = 4;
      EXPECT_EQ(integral(fit->task, left_ends, right_ends, n), expected) << n;
    }
  }
}

TYPED_TEST(IntegrateTest, ResultsStandByFunctionsOrByLimits) {
  auto fit = integrable<TypeParam>(kIntegrable[2], 30, 3, 1);
  std::vector<TypeParam> left, right;
  spread_limits(*fit, 200, &left, &right);
  Integral<TypeParam> integral;
  const auto rows = integral(fit->task, left, right);
  integral.rhint = 128;
  EXPECT_EQ(integral(fit->task, left, right), rows);
  for (int64_t rhint : {0, 32}) {
    integral.rhint = rhint;
    const auto columns = integral(fit->task, left, right);
    for (size_t f = 0; f < 3; ++f) {
      for (size_t k = 0; k < 200; ++k) EXPECT_EQ(columns[k * 3 + f], rows[f * 200 + k]);
    }
  }
}

TYPED_TEST(IntegrateTest, ColumnsAndSingleRowsOfStepsAreRead) {
  const int64_t nx = 20, ny = 3;
  const auto x = ragged_partition<TypeParam>(nx);
  const auto y = random_values<TypeParam>(nx * ny);
  Fit<TypeParam> fit(x, y, ny);
  fit.order = 0, fit.type = 7;
  fit.make();
  Integral<TypeParam> integral;
  const auto rows = integral(fit.task, {x[0] - 1, x[3]}, {x[9], x.back() + 1});
  Fit<TypeParam> turned(x, transposed(y, nx, ny), ny);
  turned.order = 0, turned.type = 7, turned.yhint = 32;
  turned.make();
  EXPECT_EQ(integral(turned.task, {x[0] - 1, x[3]}, {x[9], x.back() + 1}), rows);
}

TYPED_TEST(IntegrateTest, TypeThenDataHintsThenResultHintThenRowsAreTested) {
  const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
  const TypeParam bad_flag[] = {0, 2, 0, 0, 1}, bad_peak[] = {0, 1, 0, 0, 21}, no_number[] = {0, nan, 0, 0, 1};
  for (int64_t xhint : {1, 4}) {
    auto fit = integrable<TypeParam>(kIntegrable[2], 20, 1, xhint);
    Task* task = as_task(fit->task);
    const void** rows = task->coeff_rows;
    Integral<TypeParam> integral;
    const auto status = [&] {
      const TypeParam r = integral.one(fit->task, fit->x[1], fit->x[7]);
      EXPECT_EQ(r == -77, integral.status != 0);  // a failing call writes nothing
      return integral.status;
    };
    integral.left_datahint = bad_flag, integral.right_datahint = bad_peak, integral.rhint = 256;
    task->coeff_rows = nullptr;
    task->s_order = 1;
    EXPECT_EQ(status(), DFS_BAD_SPLINE_TYPE);
    for (auto [order, type] : {std::pair<int64_t, int64_t>{0, 6}, {0, 0}, {3, 2}, {4, 1}, {4, 6}}) {
      task->s_order = order, task->s_type = type;
      EXPECT_EQ(status(), DFS_BAD_SPLINE_TYPE) << order << " " << type;
    }
    task->s_order = 4, task->s_type = 2;
    if (xhint == 1) {  // cells of a grid are computed: the hints are not looked at
      EXPECT_EQ(status(), DFS_BAD_DATA_HINT);
      integral.left_datahint = nullptr;
      EXPECT_EQ(status(), DFS_BAD_DATA_HINT);
      integral.right_datahint = no_number;
      EXPECT_EQ(status(), DFS_BAD_DATA_HINT);
      integral.right_hint = 64;  // nor here
    }
    for (int64_t rhint : {256, 512, 1, -1, 64}) {
      integral.rhint = rhint;
      EXPECT_EQ(status(), DFS_BAD_INTEGRAL_HINT);
    }
    integral.rhint = 32;
    EXPECT_EQ(status(), DFS_BAD_COEFFICIENTS);
    task->coeff_rows = rows;
    const void* row = rows[0];
    rows[0] = nullptr;
    EXPECT_EQ(status(), DFS_BAD_COEFFICIENTS);
    rows[0] = row;
    EXPECT_EQ(status(), 0);
    const void** values = task->y_rows;
    for (int64_t type : {7, 8}) {
      task->s_order = 0, task->s_type = type;
      EXPECT_EQ(status(), 0);
      task->y_rows = nullptr;
      EXPECT_EQ(status(), DFS_BAD_FUNCTIONS);
      task->y_rows = values;
      const void* value_row = values[0];
      values[0] = nullptr;
      EXPECT_EQ(status(), DFS_BAD_FUNCTIONS);
      values[0] = value_row;
    }
  }
  EXPECT_EQ(Entries<TypeParam>::integrate(nullptr, 0, 1, nullptr, 0, nullptr, 0, nullptr, nullptr, nullptr, 16, nullptr,
                                          nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
            DFS_NO_TASK);
}

TYPED_TEST(IntegrateTest, NoLimitsOrNoFunctionsIsNoError) {
  auto fit = integrable<TypeParam>(kIntegrable[2], 20, 1, 1);
  for (int64_t n : {0, -5}) {
    EXPECT_EQ(
        Entries<TypeParam>::integrate(fit->task, 0, n, nullptr, 0, nullptr, 0, nullptr, nullptr, nullptr, 16, nullptr,
                                      nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
        0);
  }
  OwnedTask none;
  ASSERT_EQ(Entries<TypeParam>::make(none.out(), 20, fit->x.data(), 1, 0, nullptr, 0, 0), 0);
  as_task(none)->s_order = 4;
  Integral<TypeParam> integral;
  EXPECT_EQ(integral.one(none, 0, 1), -77);
  EXPECT_EQ(integral.status, 0);
}

TYPED_TEST(IntegrateTest, LimitsThatAreNotANumberGiveOneAndInfiniteLimitsStayInBounds) {
  const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN(), inf = std::numeric_limits<TypeParam>::infinity();
  const TypeParam max = std::numeric_limits<TypeParam>::max();
  for (const KindRow& kind : kIntegrable) {
    for (int64_t xhint : {1, 2, 4}) {
      auto fit = integrable<TypeParam>(kind, 333, 1, xhint);
      const TypeParam mid = fit->x[100];
      std::vector<TypeParam> left, right;
      for (int repeat = 0; repeat < 20; ++repeat) {  // few and many limits, vectors and singles
        for (TypeParam a : {nan, inf, -inf, max, -max, mid}) {
          for (TypeParam b : {nan, inf, -inf, max, -max, mid}) left.push_back(a), right.push_back(b);
        }
      }
      Integral<TypeParam> integral;
      for (size_t n : {left.size(), size_t{36}, size_t{3}}) {
        left.resize(n), right.resize(n);
        const auto r = integral(fit->task, left, right);
        ASSERT_EQ(integral.status, 0);
        for (size_t k = 0; k < n; ++k) {
          if (std::isnan(left[k]) || std::isnan(right[k])) {
            EXPECT_TRUE(std::isnan(r[k]));
          } else if (left[k] == right[k]) {
            EXPECT_EQ(r[k], 0);
          } else if (std::isinf(left[k]) || std::isinf(right[k])) {
            EXPECT_FALSE(std::isfinite(r[k])) << kind.name << " " << left[k] << " " << right[k];
          }
        }
      }
      // Steps know what infinity times a value is.
      if (kind.order == 0) {
        EXPECT_EQ(integral.one(fit->task, mid, inf), std::copysign(inf, fit->y.back()));
        EXPECT_EQ(integral.one(fit->task, mid, -inf), std::copysign(inf, -fit->y.front()));
      }
    }
  }
}

// A NaN lies in no cell, so that the piece it is given may have no end among the breakpoints.
TYPED_TEST(IntegrateTest, StepIntegralsWithNaNLimitsReadNoBreakpointPastTheLast) {
  const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN(), inf = std::numeric_limits<TypeParam>::infinity();
  for (const KindRow& kind : kIntegrable) {
    if (kind.order != 0) continue;
    for (int64_t nx : {2, 3, 4, 5, 8, 16, 33, 512, 1024}) {
      for (int64_t xhint : {0, 1, 2, 4}) {
        auto fit = integrable<TypeParam>(kind, nx, 1, xhint);
        const size_t count = fit->given.size(), size = count * sizeof(TypeParam);
        // What the address sanitizer watches the end of, and what any build does.
        const std::unique_ptr<TypeParam, decltype(&std::free)> exact(static_cast<TypeParam*>(std::malloc(size)),
                                                                     std::free);
        orvik::test::Guarded<TypeParam> guarded(count);
        for (TypeParam* x : {exact.get(), guarded.at_back()}) {
          std::copy(fit->given.begin(), fit->given.end(), x);
          ASSERT_EQ(Entries<TypeParam>::edit_pointer(fit->task, DFP_BREAKPOINTS, x), 0);
          std::vector<TypeParam> left, right;
          for (int repeat = 0; repeat < 40; ++repeat) {  // few and many limits
            for (TypeParam other : {nan, fit->x.front(), fit->x.back(), fit->x[size_t(nx / 2)], inf, -inf}) {
              left.insert(left.end(), {nan, other});
              right.insert(right.end(), {other, nan});
            }
          }
          for (size_t n : {left.size(), size_t{12}, size_t{1}}) {
            left.resize(n), right.resize(n);
            Integral<TypeParam> integral;
            const auto r = integral(fit->task, left, right);
            ASSERT_EQ(integral.status, 0);
            for (size_t k = 0; k < n; ++k) EXPECT_TRUE(std::isnan(r[k])) << kind.name << " " << nx << " " << xhint;
          }
        }
      }
    }
  }
}

TYPED_TEST(IntegrateTest, FailingMemoryIsReportedAndWritesNothing) {
  auto fit = integrable<TypeParam>(kIntegrable[2], 200, 2, 1);
  std::vector<TypeParam> left, right;
  spread_limits(*fit, 300, &left, &right);
  Integral<TypeParam> integral;
  for (int64_t n = 1;; ++n) {
    const int64_t before = serv::live_allocations();
    serv::fail_allocation_after(n);
    const auto r = integral(fit->task, left, right);
    serv::fail_allocation_after(0);
    EXPECT_EQ(serv::live_allocations(), before);
    if (integral.status == 0) {
      EXPECT_EQ(n, 2);
      break;
    }
    EXPECT_EQ(integral.status, DFS_NO_MEMORY);
    EXPECT_EQ(r, std::vector<TypeParam>(r.size(), -77));
  }
  // Few limits take no memory.
  serv::fail_allocation_after(1);
  EXPECT_NE(integral.one(fit->task, fit->x[0], fit->x[100]), -77);
  serv::fail_allocation_after(0);
}

}  // namespace
}  // namespace orvik::df::test
