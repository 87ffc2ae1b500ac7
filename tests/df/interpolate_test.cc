// Interpolation: evaluators against models in long double, layouts, paths, cells, callbacks, statuses, threads.
#include "df/fit.h"
#include "df/interpolate/block.h"
#include "serv/memory.h"

namespace orvik::df::test {
namespace {

template <class Real>
class InterpolateTest : public ::testing::Test {};
TYPED_TEST_SUITE(InterpolateTest, Reals);

// The arguments of a call, with defaults for a plain evaluation.
template <class Real>
struct Call {
  using E = Entries<Real>;
  int64_t flags = 1, sitehint = 0, rhint = 16;
  std::vector<int32_t> dorder = {1};
  const Real* datahint = nullptr;
  void* cell = nullptr;
  typename E::Callback le = nullptr, re = nullptr, inside = nullptr;
  void *le_params = nullptr, *re_params = nullptr, *inside_params = nullptr;
  typename E::SearchCallback search = nullptr;
  const OrvikDFServices* services = nullptr;
  int32_t status = 1;

  int64_t results() const {
    int64_t asked = 0;
    for (int32_t k : dorder) asked += k;
    return std::max<int64_t>(asked, 1);
  }
  std::vector<Real> operator()(OrvikDFTask task, const std::vector<Real>& sites, int64_t nsite = -1) {
    if (nsite < 0) nsite = static_cast<int64_t>(sites.size());
    const size_t size = static_cast<size_t>(nsite * std::max<int64_t>(as_task(task)->ny, 1) * results());
    std::vector<Real> r(size + 1, Real(-77));
    std::vector<int64_t> wide(dorder.begin(), dorder.end());
    const bool wide_orders = (as_task(task)->index_width & 1) != 0;
    const void* orders = wide_orders ? static_cast<const void*>(wide.data()) : dorder.data();
    status = E::interpolate(task, flags, 0, nsite, sites.data(), sitehint, static_cast<int64_t>(dorder.size()), orders,
                            datahint, r.data(), rhint, cell, le, le_params, re, re_params, inside, inside_params,
                            search, nullptr, services);
    EXPECT_EQ(r.back(), -77);
    r.pop_back();
    return r;
  }
};

// A task with random coefficients of some order.
template <class Real>
std::unique_ptr<Fit<Real>> random_spline(int64_t order, int64_t type, int64_t nx, int64_t ny, int64_t xhint = 1) {
  auto x = xhint == 4 ? even_partition<Real>(nx, -1, 7) : ragged_partition<Real>(nx);
  auto fit = std::make_unique<Fit<Real>>(x, random_values<Real>(nx * ny), ny);
  fit->order = order, fit->type = type, fit->xhint = xhint;
  fit->make();
  fit->c = random_values<Real>(std::max<int64_t>(static_cast<int64_t>(fit->c.size()), 1), 9);
  EXPECT_EQ(Entries<Real>::edit_pointer(fit->task, DFP_COEFFICIENTS, fit->c.data()), 0);
  return fit;
}

template <class Real>
std::vector<Real> spread_sites(const Fit<Real>& fit, int64_t n, uint32_t seed = 21) {
  auto sites = random_values<Real>(n, seed);
  const Real a = fit.x.front(), b = fit.x.back();
  for (auto& t : sites) t = a + (b - a) * (t * Real(0.3) + Real(0.5));  // some outside on both sides
  sites[0] = b;
  if (n > 2) sites[1] = a, sites[2] = fit.x[fit.x.size() / 2];
  return sites;
}

template <class Real>
int64_t interval_at(const Fit<Real>& fit, Real t) {
  const int64_t above = std::upper_bound(fit.x.begin(), fit.x.end(), t) - fit.x.begin();
  return std::clamp<int64_t>(above - 1, 0, fit.nx - 2);
}

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

TYPED_TEST(InterpolateTest, OneSiteSmallBlockAndParallelPathsGiveTheSameBits) {
  struct Row {
    int64_t order, type;
  };
  for (const Row row : {Row{2, 0}, Row{3, 0}, Row{4, 2}, Row{3, 1}, Row{6, 0}, Row{0, 7}, Row{0, 8}}) {
    for (int64_t xhint : {0, 1, 2, 4}) {
      for (int64_t sitehint : {0, 64}) {
        auto fit = random_spline<TypeParam>(row.order, row.type, 500, 1, xhint);
        auto sites = spread_sites(*fit, 6000);
        if (sitehint == 64) std::sort(sites.begin(), sites.end());
        for (const auto& orders : {std::vector<int32_t>{1}, {1, 1, 1, 1}, {1, 0, 1}}) {
          Call<TypeParam> call;
          call.sitehint = sitehint;
          call.dorder = orders;
          const size_t nder = static_cast<size_t>(call.results());
          const auto block = call(fit->task, sites);
          ASSERT_EQ(call.status, 0);
          call.services = &LoopServices<4>::table;
          LoopServices<4>::calls = 0;
          EXPECT_EQ(call(fit->task, sites), block);
          EXPECT_EQ(LoopServices<4>::calls, 6000 * nder >= 1 << 14 ? 1 : 0);
          for (size_t n : {1, 2, 31, 32, 33, 257}) {
            for (size_t at : {size_t{0}, size_t{1234}}) {
              const std::vector<TypeParam> some(sites.begin() + static_cast<int64_t>(at),
                                                sites.begin() + static_cast<int64_t>(at + n));
              const auto r = call(fit->task, some);
              ASSERT_TRUE(std::equal(r.begin(), r.end(), block.begin() + static_cast<int64_t>(at * nder)))
                  << row.order << " " << row.type << " " << n << " " << at;
            }
          }
        }
      }
    }
  }
}

TYPED_TEST(InterpolateTest, ThreadsGiveTheBitsOfOneThreadInEveryLayout) {
  auto fit = random_spline<TypeParam>(4, 2, 700, 3);
  const auto sites = spread_sites(*fit, 5011);
  for (int64_t rhint : {0, 16, 32, 128, 256, 512}) {
    Call<TypeParam> call;
    call.rhint = rhint;
    call.dorder = {1, 0, 1};
    const auto one = call(fit->task, sites);
    call.services = &ThreadServices<3>::table;
    EXPECT_EQ(call(fit->task, sites), one);
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

TYPED_TEST(InterpolateTest, QuadraticWithItsOwnKnotsIsEvaluatedBetweenThem) {
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

// ---- Step functions and look-up ---------------------------------------------------------------------------------

TYPED_TEST(InterpolateTest, StepFunctionsTakeTheLeftOrTheRightValue) {
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

TYPED_TEST(InterpolateTest, LookUpWantsBreakpoints) {
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

TYPED_TEST(InterpolateTest, LookUpOnAUniformPartitionAllowsAHairsBreadth) {
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

// ---- Callbacks --------------------------------------------------------------------------------------------------

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

TYPED_TEST(InterpolateTest, CallbacksReplaceTheirOwnSites) {
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

TYPED_TEST(InterpolateTest, OrderZeroWithAllThreeCallbacksNeedsNoCoefficients) {
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

TYPED_TEST(InterpolateTest, NegativeStatusOfACallbackEndsTheCallAndOthersDoNot) {
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

TYPED_TEST(InterpolateTest, TheCallersSearchIsUsed) {
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

// ---- Memory and width -------------------------------------------------------------------------------------------

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
