// Integrals against quadruple precision.
#include "df/integrate.h"

namespace orvik::df::test {
namespace {

template <class Real>
class IntegrateExactTest : public ::testing::Test {};
TYPED_TEST_SUITE(IntegrateExactTest, Reals);

constexpr double kBound = 4;  // ulp of the sum of magnitudes

TYPED_TEST(IntegrateExactTest, EveryKindIsExactToFourUlpOfTheSumOfMagnitudes) {
  double worst = 0;
  for (const KindRow& kind : kIntegrable) {
    for (int64_t nx : {2, 3, 5, 33, 34, 66, 150}) {
      for (int64_t xhint : {0, 1, 2, 4}) {
        auto fit = integrable<TypeParam>(kind, nx, 2, xhint);
        const Model<TypeParam> model(*fit);
        std::vector<TypeParam> left, right;
        spread_limits(*fit, 300, &left, &right);
        Integral<TypeParam> integral;
        const auto r = integral(fit->task, left, right);
        ASSERT_EQ(integral.status, 0);
        for (int64_t f = 0; f < 2; ++f) {
          for (size_t k = 0; k < left.size(); ++k) {
            if (xhint == 4 && (beside_grid_point(model, left[k]) || beside_grid_point(model, right[k]))) continue;
            const double error = left[k] == right[k] ? 0
                                                     : error_in_ulp(r[size_t(f) * left.size() + k],
                                                                    model.integral(left[k], right[k], f));
            worst = std::max(worst, error);
            ASSERT_LE(error, kBound) << kind.name << " nx " << nx << " hint " << xhint << " from " << left[k] << " to "
                                     << right[k];
          }
        }
      }
    }
  }
  this->RecordProperty("worst_ulp", std::to_string(worst));
}

TYPED_TEST(IntegrateExactTest, ShortStretchesBehindHugePiecesLoseNothing) {
  auto fit = integrable<TypeParam>(kIntegrable[2], 5000, 1, 1);
  const TypeParam huge = sizeof(TypeParam) == 8 ? TypeParam(1e200) : TypeParam(1e25);
  for (int64_t i = 0; i < 1000; ++i) fit->coefficients(i)[0] *= huge;
  fit->coefficients(1500)[1] = std::numeric_limits<TypeParam>::infinity();
  fit->coefficients(3000)[2] = std::numeric_limits<TypeParam>::quiet_NaN();
  const Model<TypeParam> model(*fit);
  std::vector<TypeParam> left, right;
  for (int64_t i = 1501; i + 70 < 4998; i += 13) {
    if (i <= 3000 && i + 70 >= 3000) continue;
    left.push_back(fit->x[size_t(i)] + TypeParam(0.01));
    right.push_back(fit->x[size_t(i + i % 70)] + TypeParam(0.02));
  }
  Integral<TypeParam> integral;
  const auto r = integral(fit->task, left, right);
  for (size_t k = 0; k < left.size(); ++k)
    EXPECT_LE(error_in_ulp(r[k], model.integral(left[k], right[k])), kBound) << k;
  // What does pass them is infinite or no number, and is no other's business.
  EXPECT_TRUE(std::isinf(integral.one(fit->task, fit->x[1400], fit->x[1600])));
  EXPECT_TRUE(std::isnan(integral.one(fit->task, fit->x[2900], fit->x[3100])));
}

// A stretch of a step function is a value times a length.
TYPED_TEST(IntegrateExactTest, ShortStretchesOfStepsAreValueTimesLength) {
  const TypeParam inf = std::numeric_limits<TypeParam>::infinity();
  for (size_t kind : {5, 6}) {
    for (int64_t xhint : {1, 4}) {
      auto fit = integrable<TypeParam>(kIntegrable[kind], 40, 1, xhint);
      for (int64_t i = 0; i < 39; ++i) {
        const TypeParam a = fit->x[size_t(i)] + static_cast<TypeParam>(fit->h(i) * 0.7L), b = std::nextafter(a, inf);
        const TypeParam value = fit->y[size_t(kind == 5 ? i + 1 : i)];
        Integral<TypeParam> integral;
        EXPECT_EQ(integral.one(fit->task, a, b), value * (b - a)) << xhint << " " << i;
        EXPECT_EQ(integral.one(fit->task, b, a), -(value * (b - a))) << xhint << " " << i;
      }
    }
  }
}

TYPED_TEST(IntegrateExactTest, StepsJustBeforeTheRightEndOfAGridAreNoWholeInterval) {
  const TypeParam inf = std::numeric_limits<TypeParam>::infinity();
  for (size_t kind : {5, 6}) {
    for (int64_t nx = 2; nx < 60; ++nx) {
      auto fit = integrable<TypeParam>(kIntegrable[kind], nx, 1, 4);
      const TypeParam end = fit->x.back();
      const TypeParam value = fit->y[size_t(kind == 5 ? nx - 1 : nx - 2)];
      TypeParam before = end;
      for (int step = 0; step < 4; ++step) {
        before = std::nextafter(before, -inf);
        Integral<TypeParam> integral;
        EXPECT_EQ(integral.one(fit->task, before, end), value * (end - before)) << nx;
        EXPECT_EQ(integral.one(fit->task, end, before), -(value * (end - before))) << nx;
      }
    }
  }
}

TYPED_TEST(IntegrateExactTest, PiecesThatAreNoNumbersLeaveStretchesAloneThatOnlyTouchThem) {
  const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
  for (const KindRow& kind : kIntegrable) {
    auto fit = integrable<TypeParam>(kind, 60, 1, 1);
    const bool knots = kind.order == 3 && kind.type == 1, right = kind.type == 8;
    TypeParam begin = fit->x[20], end = fit->x[21];  // of the piece
    if (knots) begin = (fit->x[19] + fit->x[20]) / 2, end = (fit->x[20] + fit->x[21]) / 2;
    std::vector<TypeParam> left, other;
    for (int64_t i = 0; i < 19; ++i) left.push_back(fit->x[size_t(i)]), other.push_back(fit->x[size_t(22 + i)]);
    const std::vector<TypeParam> begins(left.size(), begin), ends(other.size(), end);
    Integral<TypeParam> integral;
    const auto before = integral(fit->task, left, begins), behind = integral(fit->task, ends, other);
    if (kind.order == 0) fit->y[size_t(right ? 21 : 20)] = nan;
    for (int64_t k = 0; k < kind.order; ++k) fit->coefficients(20)[k] = nan;
    EXPECT_EQ(integral(fit->task, left, begins), before) << kind.name;
    EXPECT_EQ(integral(fit->task, ends, other), behind) << kind.name;
    for (size_t k = 0; k < left.size(); ++k) {  // without the sums of all pieces
      EXPECT_EQ(integral.one(fit->task, left[k], begin), before[k]) << kind.name;
      EXPECT_EQ(integral.one(fit->task, end, other[k]), behind[k]) << kind.name;
    }
    EXPECT_TRUE(std::isnan(integral.one(fit->task, begin, end))) << kind.name;
    EXPECT_TRUE(std::isnan(integral.one(fit->task, left[3], other[3]))) << kind.name;
  }
}

TYPED_TEST(IntegrateExactTest, LongSumsOfManyPiecesStayExact) {
  for (int64_t xhint : {1, 4}) {
    auto fit = integrable<TypeParam>(kIntegrable[2], 60000, 1, xhint);
    const Model<TypeParam> model(*fit);
    std::vector<TypeParam> left, right;
    spread_limits(*fit, 24, &left, &right);
    for (size_t n : {size_t{24}, size_t{5}}) {  // with the sums of all pieces, and without
      left.resize(n), right.resize(n);
      Integral<TypeParam> integral;
      const auto r = integral(fit->task, left, right);
      for (size_t k = 0; k < n; ++k) {
        if (xhint == 4 && (beside_grid_point(model, left[k]) || beside_grid_point(model, right[k]))) continue;
        const double error = left[k] == right[k] ? 0 : error_in_ulp(r[k], model.integral(left[k], right[k]));
        EXPECT_LE(error, kBound) << k;
      }
    }
  }
}

// What is constructed, not what is random: the integral of a spline through a sine.
TYPED_TEST(IntegrateExactTest, TheIntegralOfASplineThroughASineIsACosine) {
  const int64_t nx = 2001;
  const auto x = even_partition<TypeParam>(nx, 0, 10);
  std::vector<TypeParam> y;
  for (TypeParam t : x) y.push_back(static_cast<TypeParam>(std::sin(static_cast<double>(t))));
  Fit<TypeParam> fit(x, y);
  fit.order = 4, fit.type = 2, fit.bc_type = 1;
  ASSERT_EQ(fit.construct(Entries<TypeParam>::natural), 0);
  Integral<TypeParam> integral;
  for (double b : {0.5, 3.0, 9.99}) {
    const double got = static_cast<double>(integral.one(fit.task, 0, static_cast<TypeParam>(b)));
    EXPECT_NEAR(got, 1 - std::cos(b), sizeof(TypeParam) == 8 ? 1e-11 : 2e-5);
  }
}

}  // namespace
}  // namespace orvik::df::test
