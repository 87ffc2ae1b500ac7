// Registers of 512 bits, where the processor has them and they are built in, interpolate to the bits of the narrow
// ones; elsewhere there is one width.
#include <algorithm>
#include <cstring>
#include <limits>

#include "df/interpolate.h"
#include "support/narrow.h"

namespace orvik::df::test {
namespace {

template <class Real>
class WidthsTest : public ::testing::Test {};
TYPED_TEST_SUITE(WidthsTest, Reals);

template <class Real>
void expect_same(Call<Real>& call, OrvikDFTask task, const std::vector<Real>& sites, const char* what) {
  const std::vector<Real> wide = call(task, sites);
  ASSERT_EQ(call.status, 0) << what;
  const orvik::test::Narrow narrow;
  const std::vector<Real> expected = call(task, sites);
  for (size_t k = 0; k < wide.size(); ++k) {
    ASSERT_EQ(memcmp(&wide[k], &expected[k], sizeof(Real)), 0)
        << what << ", " << sites.size() << " sites, result " << k << ": " << wide[k] << " and " << expected[k];
  }
}

struct Kind {
  int64_t order, type;
};
constexpr Kind kKinds[] = {{2, 0}, {3, 0}, {4, 2}, {3, 1}, {6, 0}, {0, 7}, {0, 8}};

// Sites random, ascending, descending, and many in each piece.
template <class Real, class Body>
void for_site_orders(const Fit<Real>& fit, int64_t n, Body body) {
  auto sites = spread_sites(fit, n);
  body(sites, 0, "random sites");
  std::sort(sites.begin(), sites.end());
  body(sites, 0, "ascending sites");
  body(sites, 64, "sites said to ascend");
  std::reverse(sites.begin(), sites.end());
  body(sites, 0, "descending sites");
  for (int64_t k = 0; k < n; ++k) {
    sites[static_cast<size_t>(k)] =
        fit.x.front() + (fit.x.back() - fit.x.front()) * static_cast<Real>(k) / static_cast<Real>(4 * n);
  }
  body(sites, 64, "sites in runs");
}

TYPED_TEST(WidthsTest, EveryKindPartitionAndOrderOfSites) {
  for (const Kind kind : kKinds) {
    for (const int64_t xhint : {0, 1, 2, 4}) {
      for (const int64_t ny : {1, 3}) {
        for (const int64_t nx : {2, 3, 50, 1000}) {
          auto fit = random_spline<TypeParam>(kind.order, kind.type, nx, ny, xhint);
          for_site_orders(*fit, 700, [&](const std::vector<TypeParam>& sites, int64_t sitehint, const char* what) {
            for (const auto& orders : {std::vector<int32_t>{1}, {0, 1}, {1, 1}, {1, 0, 1}, {1, 1, 1, 1}}) {
              Call<TypeParam> call;
              call.sitehint = sitehint;
              call.dorder = orders;
              expect_same(call, fit->task, sites, what);
            }
          });
        }
      }
    }
  }
}

TYPED_TEST(WidthsTest, AnyNumberOfSites) {
  for (const int64_t xhint : {1, 4}) {
    for (const int64_t ny : {1, 2}) {
      for (const int64_t order : {2, 4}) {
        auto fit = random_spline<TypeParam>(order, order == 4 ? 2 : 0, 100, ny, xhint);
        for (int64_t n = 1; n <= 100; ++n) {
          Call<TypeParam> call;
          expect_same(call, fit->task, spread_sites(*fit, n), "");
        }
        for (const int64_t n : {127, 128, 129, 255, 256, 257, 1000, 4097}) {
          Call<TypeParam> call;
          call.dorder = {1, 1};
          expect_same(call, fit->task, spread_sites(*fit, n), "");
        }
      }
    }
  }
}

TYPED_TEST(WidthsTest, EveryLayoutOfResults) {
  for (const int64_t xhint : {1, 4}) {
    auto fit = random_spline<TypeParam>(4, 2, 300, 3, xhint);
    for (const int64_t rhint : {0, 16, 32, 128, 256, 512}) {
      for (const auto& orders : {std::vector<int32_t>{1}, {1, 1}, {1, 1, 1}, {1, 1, 1, 1}, {0, 0, 1, 1, 1}}) {
        Call<TypeParam> call;
        call.rhint = rhint;
        call.dorder = orders;
        expect_same(call, fit->task, spread_sites(*fit, 517), "");
      }
    }
  }
}

TYPED_TEST(WidthsTest, CellsGivenAndCellsAskedFor) {
  for (const int64_t xhint : {1, 4}) {
    auto fit = random_spline<TypeParam>(4, 2, 300, 1, xhint);
    const auto sites = spread_sites(*fit, 517);
    std::vector<int32_t> cell(sites.size());
    Call<TypeParam> call;
    call.cell = cell.data();
    call.flags = 3;
    expect_same(call, fit->task, sites, "cells asked for");
    call.flags = 4;
    expect_same(call, fit->task, sites, "cells given");
  }
}

TYPED_TEST(WidthsTest, SitesAndCoefficientsThatAreInfiniteOrNotANumber) {
  using Limits = std::numeric_limits<TypeParam>;
  const TypeParam specials[] = {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
                                Limits::max(),      TypeParam(-0.0),     Limits::denorm_min()};
  for (const int64_t order : {2, 4}) {
    for (const int64_t xhint : {1, 4}) {
      for (const int64_t ny : {1, 2}) {
        auto fit = random_spline<TypeParam>(order, order == 4 ? 2 : 0, 100, ny, xhint);
        const auto sites = spread_sites(*fit, 300);
        Call<TypeParam> call;
        call.dorder = {1, 1};
        for (const TypeParam special : specials) {
          auto some = sites;
          for (size_t k = 5; k < some.size(); k += 31) some[k] = special;
          expect_same(call, fit->task, some, "a special site");
        }
        for (const TypeParam special : specials) {
          const auto kept = fit->c;
          for (size_t k = 3; k < fit->c.size(); k += 29) fit->c[k] = special;
          expect_same(call, fit->task, sites, "a special coefficient");
          std::copy(kept.begin(), kept.end(), fit->c.begin());
        }
      }
    }
  }
}

}  // namespace
}  // namespace orvik::df::test
