// Interpolation: polynomials against models in long double, layouts, orders, cells, statuses, memory.
#include "df/interpolate.h"
#include "df/interpolate/block.h"
#include "serv/memory.h"

namespace orvik::df::test {
namespace {

template <class Real>
class InterpolateTest : public ::testing::Test {};
TYPED_TEST_SUITE(InterpolateTest, Reals);

TYPED_TEST(InterpolateTest, PolynomialsAndTheirDerivativesAgreeWithAModel) {
  for (int64_t order : {2, 3, 4, 5, 8}) {
    for (int64_t xhint : {1, 4}) {
      auto fit = random_spline<TypeParam>(order, 0, 60, 2, xhint);
      const auto sites = spread_sites(*fit, 300);
      Call<TypeParam> call;
      call.dorder = {1, 1, 1, 1, 1, 1};
      call.rhint = 32;
      const auto r = call(fit->task, sites);
      ASSERT_EQ(call.status, 0);
      for (int64_t f = 0; f < 2; ++f) {
        for (size_t j = 0; j < sites.size(); ++j) {
          int64_t i = interval_at(*fit, sites[j]);
          if (xhint == 4) {
            const TypeParam step = (fit->x.back() - fit->x[0]) / 59, inverse = 59 / (fit->x.back() - fit->x[0]);
            i = std::clamp<int64_t>(static_cast<int64_t>(std::floor((sites[j] - fit->x[0]) * inverse)), 0, 58);
            if (sites[j] == fit->x.back()) i = 58;
            fit->x[size_t(i)] = std::fma(step, static_cast<TypeParam>(i), fit->given[0]);
          }
          const long double t = static_cast<long double>(sites[j]) - fit->x[size_t(i)];
          for (int k = 0; k < 6; ++k) {
            const long double expected = fit->at(i, t, k, f);
            const long double tol = (std::abs(expected) + 10) * (sizeof(TypeParam) == 8 ? 1e-11 : 4e-3) *
                                    std::pow(1 + std::abs(t), static_cast<long double>(order));
            ASSERT_NEAR(r[size_t((f * 6 + k) * 300) + j], expected, tol) << order << " " << k << " " << sites[j];
            if (k >= order) {
              ASSERT_EQ(r[size_t((f * 6 + k) * 300) + j], 0);
            }
          }
        }
      }
    }
  }
}

TYPED_TEST(InterpolateTest, LayoutsPlaceTheSameResults) {
  auto fit = random_spline<TypeParam>(4, 0, 30, 3);
  for (int64_t nsite : {1, 5, 300}) {
    const auto sites = spread_sites(*fit, nsite);
    Call<TypeParam> call;
    call.dorder = {0, 1, 1};
    const auto base = call(fit->task, sites);
    for (int64_t same : {0, 128}) {
      call.rhint = same;
      EXPECT_EQ(call(fit->task, sites), base);
    }
    const auto expect = [&](int64_t rhint, auto place) {
      call.rhint = rhint;
      const auto r = call(fit->task, sites);
      for (int64_t f = 0; f < 3; ++f) {
        for (int64_t s = 0; s < nsite; ++s) {
          for (int64_t k = 0; k < 2; ++k)
            ASSERT_EQ(r[size_t(place(f, s, k))], base[size_t((f * nsite + s) * 2 + k)]) << rhint;
        }
      }
    };
    expect(32, [=](int64_t f, int64_t s, int64_t k) { return (f * 2 + k) * nsite + s; });
    expect(256, [=](int64_t f, int64_t s, int64_t k) { return (s * 3 + f) * 2 + k; });
    expect(512, [=](int64_t f, int64_t s, int64_t k) { return (s * 2 + k) * 3 + f; });
    for (int64_t bad : {1, 64, 48, -16, 1024}) {
      call.rhint = bad;
      const auto r = call(fit->task, sites);
      EXPECT_EQ(call.status, DFS_BAD_RESULT_HINT);
      EXPECT_EQ(r, std::vector<TypeParam>(r.size(), TypeParam(-77)));
    }
  }
}

TYPED_TEST(InterpolateTest, NoOrdersOrNoneSetMeansValues) {
  auto fit = random_spline<TypeParam>(4, 0, 30, 1);
  for (int64_t nsite : {1, 10, 100}) {
    const auto sites = spread_sites(*fit, nsite);
    Call<TypeParam> call;
    const auto values = call(fit->task, sites);
    for (const auto& orders : {std::vector<int32_t>{}, {0}, {0, 0, 0}}) {
      call.dorder = orders;
      EXPECT_EQ(call(fit->task, sites), values);
      EXPECT_EQ(call.status, 0);
    }
  }
}

TYPED_TEST(InterpolateTest, OrderFlagsAre64BitsWideByBitZeroOfTheIndexWidth) {
  for (int32_t width : {1, 2, 3}) {
    auto fit = random_spline<TypeParam>(4, 0, 30, 1);
    const auto sites = spread_sites(*fit, 50);
    Call<TypeParam> call;
    call.dorder = {0, 1, 1};
    const auto narrow = call(fit->task, sites);
    as_task(fit->task)->index_width = width;
    EXPECT_EQ(call(fit->task, sites), narrow);  // the call hands over what the width asks for
  }
}

TYPED_TEST(InterpolateTest, OrdersAndTypesChooseTheEvaluatorOrFail) {
  auto fit = random_spline<TypeParam>(6, 0, 30, 1);
  const std::vector<TypeParam> sites = {fit->x[3]};
  const auto status = [&](int64_t order, int64_t type) {
    as_task(fit->task)->s_order = order, as_task(fit->task)->s_type = type;
    Call<TypeParam> call;
    const auto r = call(fit->task, sites);
    if (call.status != 0) {
      EXPECT_EQ(r[0], -77);
    }
    return call.status;
  };
  for (int64_t type : {0, 1, 2, 7, 9}) EXPECT_EQ(status(1, type), DFS_BAD_SPLINE_TYPE);
  for (int64_t type : {0, 1, 5, 9, 12}) EXPECT_EQ(status(2, type), 0);
  for (int64_t type : {0, 1}) EXPECT_EQ(status(3, type), 0);
  for (int64_t type : {2, 3, 9}) EXPECT_EQ(status(3, type), DFS_BAD_SPLINE_TYPE);
  for (int64_t type : {0, 2, 3, 4, 5, 9}) EXPECT_EQ(status(4, type), 0);
  for (int64_t type : {1, 6, 7, 8, 10}) EXPECT_EQ(status(4, type), DFS_BAD_SPLINE_TYPE);
  for (int64_t type : {0, 1, 99}) EXPECT_EQ(status(5, type), 0);
  for (int64_t type : {6, 7, 8}) EXPECT_EQ(status(0, type), 0);
  for (int64_t type : {0, 1, 5, 9}) EXPECT_EQ(status(0, type), DFS_BAD_SPLINE_TYPE);
}

TYPED_TEST(InterpolateTest, TypeThenDataHintThenResultHintAreTested) {
  using E = Entries<TypeParam>;
  auto fit = random_spline<TypeParam>(4, 0, 30, 1);
  const TypeParam bad[] = {0, 5, 0, 0, 0};
  Call<TypeParam> call;
  call.datahint = bad;
  call.rhint = 7;
  as_task(fit->task)->s_order = 1;
  call(fit->task, {1});
  EXPECT_EQ(call.status, DFS_BAD_SPLINE_TYPE);
  as_task(fit->task)->s_order = 4;
  call(fit->task, {1});
  EXPECT_EQ(call.status, DFS_BAD_DATA_HINT);
  call.flags = 4;  // no search, no data hint
  std::vector<int32_t> cell = {1};
  call.cell = cell.data();
  call(fit->task, {1});
  EXPECT_EQ(call.status, DFS_BAD_RESULT_HINT);
  TypeParam r;
  EXPECT_EQ(E::interpolate(nullptr, 1, 0, 1, &r, 0, 0, nullptr, nullptr, &r, 16, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
            DFS_NO_TASK);
}

TYPED_TEST(InterpolateTest, SitesOutsideExtendTheOuterPolynomials) {
  auto fit = random_spline<TypeParam>(2, 0, 10, 1);
  const TypeParam a = fit->x.front(), b = fit->x.back();
  Call<TypeParam> call;
  const auto r = call(fit->task, {a - 2, b + 3, b});
  const TypeParam* first = fit->coefficients(0);
  const TypeParam* last = fit->coefficients(8);
  EXPECT_EQ(r[0], std::fma((a - 2) - a, first[1], first[0]));
  EXPECT_EQ(r[1], std::fma((b + 3) - fit->x[8], last[1], last[0]));
  EXPECT_EQ(r[2], std::fma(b - fit->x[8], last[1], last[0]));  // the whole length of the last interval
}

TYPED_TEST(InterpolateTest, CellsAreWrittenTakenOrBoth) {
  for (int32_t width : {0, 1}) {
    for (int64_t nsite : {1, 20, 300}) {
      auto fit = random_spline<TypeParam>(4, 0, 40, 1);
      as_task(fit->task)->index_width = width;
      const auto sites = spread_sites(*fit, nsite);
      Call<TypeParam> call;
      const auto values = call(fit->task, sites);
      std::vector<int32_t> narrow(size_t(nsite) + 1, -5);
      std::vector<int64_t> wide(size_t(nsite) + 1, -5);
      call.cell = width == 0 ? static_cast<void*>(narrow.data()) : wide.data();
      call.flags = 2;  // cells only
      const auto nothing = call(fit->task, sites);
      EXPECT_EQ(nothing, std::vector<TypeParam>(nothing.size(), TypeParam(-77)));
      if (width == 0) wide.assign(narrow.begin(), narrow.end());
      EXPECT_EQ(wide.back(), -5);
      for (size_t j = 0; j < sites.size(); ++j) {
        int64_t cell = std::upper_bound(fit->x.begin(), fit->x.end(), sites[j]) - fit->x.begin();
        if (sites[j] == fit->x.back()) cell = 39;
        EXPECT_EQ(wide[j], cell);
      }
      call.flags = 3;
      EXPECT_EQ(call(fit->task, sites), values);
      call.flags = 4;
      EXPECT_EQ(call(fit->task, sites), values);
      // Given cells are believed.
      std::fill(narrow.begin(), narrow.end(), 7);
      std::fill(wide.begin(), wide.end(), 7);
      const auto r = call(fit->task, sites);
      const TypeParam t = sites[0] - fit->x[6];
      const TypeParam* c = fit->coefficients(6);
      EXPECT_EQ(r[0], std::fma(t, std::fma(t, std::fma(t, c[3], c[2]), c[1]), c[0]));
      call.flags = 0;  // neither
      const auto none = call(fit->task, sites);
      EXPECT_EQ(none, std::vector<TypeParam>(none.size(), TypeParam(-77)));
    }
  }
}

// Only the outer intervals serve cells outside 1 to nx - 1, however far; the extremes of the integers among them.
TYPED_TEST(InterpolateTest, GivenCellsOutsideTakeTheOuterPolynomials) {
  for (int32_t width : {0, 1}) {
    for (int64_t nsite : {1, 20, 300}) {
      auto fit = random_spline<TypeParam>(4, 0, 40, 1);
      as_task(fit->task)->index_width = width;
      const auto sites = spread_sites(*fit, nsite);
      for (int64_t given : {int64_t{INT32_MIN}, int64_t{-1}, int64_t{0}, int64_t{40}, int64_t{INT32_MAX}}) {
        std::vector<int32_t> narrow(size_t(nsite), static_cast<int32_t>(given));
        std::vector<int64_t> wide(size_t(nsite), given);
        Call<TypeParam> call;
        call.cell = width == 0 ? static_cast<void*>(narrow.data()) : wide.data();
        call.flags = 4;
        const auto r = call(fit->task, sites);
        EXPECT_EQ(call.status, 0);
        const int64_t i = given <= 0 ? 0 : 38;
        const TypeParam* c = fit->coefficients(i);
        for (size_t j = 0; j < sites.size(); ++j) {
          const TypeParam t = sites[j] - fit->x[static_cast<size_t>(i)];
          ASSERT_EQ(r[j], std::fma(t, std::fma(t, std::fma(t, c[3], c[2]), c[1]), c[0])) << given << " " << nsite;
        }
      }
    }
  }
}

TYPED_TEST(InterpolateTest, UniformSitesAreExpandedBlockByBlock) {
  auto fit = random_spline<TypeParam>(4, 0, 40, 1);
  for (int64_t n : {2, 30, 257, 9000}) {
    std::vector<TypeParam> sites(static_cast<size_t>(n));
    const TypeParam part = 1 / static_cast<TypeParam>(n - 1);
    for (int64_t k = 0; k < n; ++k)
      sites[size_t(k)] = std::fma(part, TypeParam(20) * static_cast<TypeParam>(k), TypeParam(-2));
    Call<TypeParam> call;
    const auto expected = call(fit->task, sites);
    call.sitehint = 4;
    EXPECT_EQ(call(fit->task, {-2, 18}, n), expected);
    call.services = &ThreadServices<2>::table;
    EXPECT_EQ(call(fit->task, {-2, 18}, n), expected);
  }
  Call<TypeParam> call;
  call.sitehint = 4;
  EXPECT_TRUE(std::isnan(call(fit->task, {0, 1}, 1)[0]));
}

TYPED_TEST(InterpolateTest, OnlyTheBlockPathTakesMemoryAndGivesItBack) {
  auto fit = random_spline<TypeParam>(4, 0, 20, 1);
  const int64_t before = serv::live_allocations();
  std::vector<int64_t> cell(40);
  const auto status = [&](int64_t nsite, int64_t flags, int32_t width) {
    as_task(fit->task)->index_width = width;
    Call<TypeParam> call;
    call.flags = flags;
    call.cell = cell.data();
    serv::fail_allocation_after(1);
    const auto r = call(fit->task, spread_sites(*fit, nsite));
    serv::fail_allocation_after(0);
    if (call.status != 0) {
      EXPECT_EQ(r, std::vector<TypeParam>(r.size(), TypeParam(-77)));
    }
    return call.status;
  };
  EXPECT_EQ(status(1, 1, 0), 0);
  EXPECT_EQ(status(1, 1, 3), 0);
  EXPECT_EQ(status(1, 3, 0), DFS_NO_MEMORY);
  EXPECT_EQ(status(31, 1, 0), 0);
  EXPECT_EQ(status(31, 1, 1), DFS_NO_MEMORY);
  EXPECT_EQ(status(31, 1, 2), DFS_NO_MEMORY);
  EXPECT_EQ(status(31, 1, 4), 0);
  EXPECT_EQ(status(31, 3, 0), DFS_NO_MEMORY);
  EXPECT_EQ(status(32, 1, 0), DFS_NO_MEMORY);
  EXPECT_EQ(serv::live_allocations(), before);
}

TYPED_TEST(InterpolateTest, NoSitesIsNoError) {
  auto fit = random_spline<TypeParam>(4, 0, 20, 1);
  Call<TypeParam> call;
  EXPECT_TRUE(call(fit->task, {}).empty());
  EXPECT_EQ(call.status, 0);
}

TYPED_TEST(InterpolateTest, WideIndicesEvaluateTheSame) {
  for (int64_t order : {2, 3, 4, 5}) {
    auto fit = random_spline<TypeParam>(order, 0, 60, 1);
    const auto sites = spread_sites(*fit, 200);
    Call<TypeParam> call;
    const auto expected = call(fit->task, sites);
    const Task& task = *as_task(fit->task);
    std::vector<TypeParam> r(200);
    Evaluator evaluator;
    ASSERT_TRUE(choose_evaluator(order, 0, false, &evaluator));
    const Supplier<TypeParam> none = {nullptr, nullptr};
    const Request<TypeParam> request{task,
                                     evaluator,
                                     Finder<TypeParam>(task, Method::kHybrid, nullptr),
                                     Orders(task, 0, nullptr),
                                     Layout{200, 1, 1},
                                     true,
                                     false,
                                     false,
                                     false,
                                     200,
                                     sites.data(),
                                     r.data(),
                                     nullptr,
                                     none,
                                     none,
                                     none,
                                     UserSearch<TypeParam>(nullptr, nullptr)};
    auto room = std::make_unique<BlockRoom<TypeParam, int64_t>>();
    int64_t state = 0;
    ASSERT_EQ(run_block(request, 0, 200, &state, *room), 0);
    EXPECT_EQ(r, expected);
  }
}

}  // namespace
}  // namespace orvik::df::test
