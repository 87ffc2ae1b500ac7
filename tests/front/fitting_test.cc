// Splines and search: every kind with every end it takes, copies of what the caller gave, threads, bad input, failing
// allocations.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "orvik/df.h"
#include "orvik/front.h"
#include "serv/memory.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN(), kInf = std::numeric_limits<double>::infinity();

struct Spline {
  orvik_d_spline* s = nullptr;
  orvik_status status;
  Spline(const std::vector<double>& x, const std::vector<double>& y, int32_t kind,
         const orvik_spline_ends* ends = nullptr, const double* internal = nullptr)
      : status(orvik_d_spline_new(&s, static_cast<int64_t>(x.size()), x.data(),
                                  static_cast<int64_t>(y.size() / std::max<size_t>(x.size(), 1)), y.data(), kind, ends,
                                  internal)) {}
  ~Spline() { orvik_d_spline_delete(s); }
  Spline(const Spline&) = delete;
  double operator()(double t, int32_t derivative = 0) const {
    double r = -7;
    EXPECT_EQ(orvik_d_spline_evaluate(s, 1, &t, &r, derivative), ORVIK_SUCCESS);
    return r;
  }
};

const std::vector<double> kX = {0, 0.5, 1.25, 2, 3, 3.5, 5};
std::vector<double> values(double (*f)(double)) {
  std::vector<double> y;
  for (const double x : kX) y.push_back(f(x));
  return y;
}
constexpr int32_t kKinds[] = {ORVIK_LINEAR, ORVIK_HERMITE, ORVIK_BESSEL,  ORVIK_AKIMA,
                              ORVIK_HYMAN,  ORVIK_NATURAL, ORVIK_DEFAULT, ORVIK_QUADRATIC};

TEST(Splines, EveryKindPassesThroughItsValuesWithEveryEndThatItTakes) {
  auto y = values([](double x) { return std::sin(x); });
  y.back() = y.front();
  const std::vector<double> inner = {0.1, 0.2, 0.3, -0.1, 0.4};
  for (const int32_t kind : kKinds) {
    for (int32_t end = ORVIK_ENDS_FREE; end <= ORVIK_ENDS_SECOND; ++end) {
      const orvik_spline_ends ends = {end, 0.25, -0.5};
      const Spline s(kX, y, kind, &ends, inner.data());
      if (kind == ORVIK_QUADRATIC && (end == ORVIK_ENDS_NOT_A_KNOT || end == ORVIK_ENDS_PERIODIC)) {
        EXPECT_EQ(s.status, DFS_BAD_BOUNDARY_TYPE);
        EXPECT_EQ(s.s, nullptr);
        continue;
      }
      ASSERT_EQ(s.status, ORVIK_SUCCESS) << kind << " " << end;
      for (size_t i = 0; i < kX.size(); ++i) EXPECT_NEAR(s(kX[i]), y[i], 1e-12) << kind << " " << end << " " << i;
      if (kind != ORVIK_LINEAR && (end == ORVIK_ENDS_FIRST || end == ORVIK_ENDS_SECOND)) {
        const int32_t order = end == ORVIK_ENDS_FIRST ? 1 : 2;
        EXPECT_NEAR(s(kX.front(), order), 0.25, 1e-11) << kind << " " << end;
        EXPECT_NEAR(s(kX.back() - (kind == ORVIK_QUADRATIC ? 1e-13 : 0), order), -0.5, 1e-9) << kind << " " << end;
      }
      int64_t nx = 0, ny = 0, order = 0, count = 0;
      ASSERT_EQ(orvik_d_spline_shape(s.s, &nx, &ny, &order), ORVIK_SUCCESS);
      ASSERT_EQ(orvik_d_spline_coefficients(s.s, nullptr, &count), ORVIK_SUCCESS);
      EXPECT_EQ(count, (nx - (kind == ORVIK_QUADRATIC ? 0 : 1)) * order);
      std::vector<double> c(static_cast<size_t>(count));
      ASSERT_EQ(orvik_d_spline_coefficients(s.s, c.data(), &count), ORVIK_SUCCESS);
      for (size_t i = 0; i + 1 < kX.size(); ++i) EXPECT_NEAR(c[i * size_t(order)], y[i], 1e-14);
      EXPECT_EQ(s(1, 4), 0);
      EXPECT_EQ(s(1, 1000), 0);
    }
  }
}

TEST(Splines, GoOnOutsideAndCubicsReproduceCubics) {
  const auto f = [](double x) { return 1 + x - 2 * x * x + 0.5 * x * x * x; };
  const auto y = values(f);
  const orvik_spline_ends ends = {ORVIK_ENDS_NOT_A_KNOT, 0, 0};
  const Spline s(kX, y, ORVIK_NATURAL, &ends);
  ASSERT_EQ(s.status, ORVIK_SUCCESS);
  for (const double t : {-3.0, -0.1, 0.3, 2.5, 5.0, 9.0}) EXPECT_NEAR(s(t), f(t), 1e-10);
  const double a[] = {0, 3, -1}, b[] = {5, 1, 7};
  double r[3];
  ASSERT_EQ(orvik_d_spline_integrate(s.s, 3, a, b, r), ORVIK_SUCCESS);
  const auto integral = [](double x) { return x + x * x / 2 - 2 * x * x * x / 3 + x * x * x * x / 8; };
  for (size_t k = 0; k < 3; ++k) EXPECT_NEAR(r[k], integral(b[k]) - integral(a[k]), 1e-9);
  EXPECT_TRUE(std::isnan(s(kNan)));
}

TEST(Splines, AnEvenPartitionIsTheOneThatIsWrittenOut) {
  std::vector<double> x, y;
  for (int i = 0; i <= 16; ++i) x.push_back(1 + i * 0.25), y.push_back(std::cos(x.back()));
  for (const int32_t kind : {ORVIK_LINEAR, ORVIK_NATURAL, ORVIK_AKIMA}) {
    const Spline given(x, y, kind);
    orvik_d_spline* even = nullptr;
    ASSERT_EQ(orvik_d_spline_new_uniform(&even, 1, 5, 17, 1, y.data(), kind, nullptr, nullptr), ORVIK_SUCCESS);
    for (double t = 0; t < 6; t += 0.037) {
      double r = 0;
      ASSERT_EQ(orvik_d_spline_evaluate(even, 1, &t, &r, 0), ORVIK_SUCCESS);
      EXPECT_NEAR(r, given(t), 1e-12 * (1 + std::fabs(r)));
    }
    orvik_d_spline_delete(even);
  }
  orvik_d_spline* s = nullptr;
  EXPECT_EQ(orvik_d_spline_new_uniform(&s, 1, 1, 17, 1, y.data(), ORVIK_NATURAL, nullptr, nullptr),
            ORVIK_ERROR_NOT_SORTED);
  EXPECT_EQ(orvik_d_spline_new_uniform(&s, kNan, 1, 17, 1, y.data(), ORVIK_NATURAL, nullptr, nullptr),
            ORVIK_ERROR_NOT_SORTED);
  EXPECT_EQ(orvik_d_spline_new_uniform(&s, 0, kInf, 17, 1, y.data(), ORVIK_NATURAL, nullptr, nullptr),
            ORVIK_ERROR_BAD_PARAMETER);
}

TEST(Splines, OwnWhatTheyNeedAndHoldSeveralFunctions) {
  auto x = kX;
  auto y = values([](double v) { return v * v; });
  for (const double v : kX) y.push_back(-v);
  const Spline s(x, y, ORVIK_BESSEL);
  ASSERT_EQ(s.status, ORVIK_SUCCESS);
  std::fill(x.begin(), x.end(), kNan);
  std::fill(y.begin(), y.end(), kNan);
  const double t[] = {0.7, 1.1, 4};
  double r[6];
  ASSERT_EQ(orvik_d_spline_evaluate(s.s, 3, t, r, 0), ORVIK_SUCCESS);
  for (size_t k = 0; k < 3; ++k) {
    EXPECT_NEAR(r[k], t[k] * t[k], 0.3);
    EXPECT_NEAR(r[3 + k], -t[k], 1e-12);
  }
}

TEST(Splines, OfEveryKindReadNothingOfTheCallersLater) {
  for (int32_t kind = ORVIK_LINEAR; kind <= ORVIK_QUADRATIC; ++kind) {
    auto x = kX, y = values([](double v) { return v * v * v; });
    std::vector<double> internal(x.size() - 2, 1.5);
    const bool inner = kind == ORVIK_HERMITE || kind == ORVIK_DEFAULT;
    const Spline s(x, y, kind, nullptr, inner ? internal.data() : nullptr);
    ASSERT_EQ(s.status, ORVIK_SUCCESS) << kind;
    const double t[] = {-1, 0.7, 1.1, 4, 90}, from[] = {0, 0.3, 2, 1, 1};
    double before[3][5], after[3][5];
    const auto evaluate = [&](double(*r)[5]) {
      ASSERT_EQ(orvik_d_spline_evaluate(s.s, 5, t, r[0], 0), ORVIK_SUCCESS);
      ASSERT_EQ(orvik_d_spline_evaluate(s.s, 5, t, r[1], 1), ORVIK_SUCCESS);
      ASSERT_EQ(orvik_d_spline_integrate(s.s, 5, from, t, r[2]), ORVIK_SUCCESS);
    };
    evaluate(before);
    for (auto* gone : {&x, &y, &internal}) {
      std::fill(gone->begin(), gone->end(), kNan);
      std::vector<double>().swap(*gone);
    }
    evaluate(after);
    EXPECT_EQ(std::memcmp(before, after, sizeof before), 0) << kind;
  }
}

TEST(Splines, TheSmallestPartitions) {
  const std::vector<double> two = {1, 3}, y = {5, 9};
  const Spline line(two, y, ORVIK_LINEAR), natural(two, y, ORVIK_NATURAL);
  ASSERT_EQ(line.status, ORVIK_SUCCESS);
  ASSERT_EQ(natural.status, ORVIK_SUCCESS);
  EXPECT_DOUBLE_EQ(line(2), 7);
  EXPECT_DOUBLE_EQ(natural(2), 7);
  for (const int32_t kind : {ORVIK_BESSEL, ORVIK_AKIMA, ORVIK_HYMAN}) {
    EXPECT_EQ(Spline(two, y, kind).status, DFS_BAD_BREAKPOINT_COUNT) << kind;
  }
  const double none = 0;
  EXPECT_EQ(Spline(two, y, ORVIK_HERMITE, nullptr, &none).status, DFS_BAD_BREAKPOINT_COUNT);
}

TEST(Splines, BitsDoNotDependOnTheNumberOfThreads) {
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> u(-0.1, 1.1);
  constexpr int64_t nx = 5000, n = 40000;
  std::vector<double> x(nx), y(2 * nx), t(n), b(n);
  for (size_t i = 0; i < nx; ++i) x[i] = (double(i) + 0.3 * u(random)) / nx;
  for (double& v : y) v = u(random);
  for (size_t i = 0; i < n; ++i) t[i] = u(random), b[i] = u(random);
  std::vector<int64_t> cells(n), want_cells;
  for (const int32_t kind : {ORVIK_LINEAR, ORVIK_NATURAL, ORVIK_AKIMA, ORVIK_HYMAN, ORVIK_QUADRATIC}) {
    std::vector<double> want;
    for (const int32_t threads : {1, 2, 3, 7}) {
      orvik_set_num_threads(threads);
      const Spline s(x, y, kind);
      ASSERT_EQ(s.status, ORVIK_SUCCESS);
      std::vector<double> got(4 * n);
      ASSERT_EQ(orvik_d_spline_evaluate(s.s, n, t.data(), got.data(), 0), ORVIK_SUCCESS);
      ASSERT_EQ(orvik_d_spline_integrate(s.s, n, t.data(), b.data(), got.data() + 2 * n), ORVIK_SUCCESS);
      ASSERT_EQ(orvik_d_search(nx, x.data(), n, t.data(), cells.data()), ORVIK_SUCCESS);
      if (threads == 1) want = got, want_cells = cells;
      EXPECT_EQ(got, want) << kind << " " << threads;
      EXPECT_EQ(cells, want_cells);
    }
  }
  orvik_set_num_threads(0);
}

TEST(Splines, SitesInOrderGiveTheBitsAndCellsOfSitesWithoutOrder) {
  std::mt19937_64 random(5);
  std::uniform_real_distribution<double> step(0.01, 1), place(-2, 130);
  std::vector<double> x(257), y(257), t(200003);
  for (size_t i = 1; i < x.size(); ++i) x[i] = x[i - 1] + step(random);
  for (double& v : y) v = step(random);
  for (double& v : t) v = place(random);
  std::copy(x.begin(), x.end(), t.begin());
  t[300] = kInf, t[301] = -kInf;
  std::vector<double> ordered = t;
  std::sort(ordered.begin(), ordered.end());
  const int64_t n = static_cast<int64_t>(t.size());
  for (const int32_t kind : {ORVIK_NATURAL, ORVIK_QUADRATIC}) {
    const Spline s(x, y, kind);
    for (const int32_t threads : {1, 3}) {
      orvik_set_num_threads(threads);
      std::vector<double> in_order(t.size()), without(t.size());
      std::vector<int64_t> cells(t.size());
      ASSERT_EQ(orvik_d_spline_evaluate(s.s, n, ordered.data(), in_order.data(), 0), ORVIK_SUCCESS);
      ASSERT_EQ(orvik_d_search(257, x.data(), n, ordered.data(), cells.data()), ORVIK_SUCCESS);
      std::vector<double> last_first(ordered.rbegin(), ordered.rend());
      ASSERT_EQ(orvik_d_spline_evaluate(s.s, n, last_first.data(), without.data(), 0), ORVIK_SUCCESS);
      std::reverse(without.begin(), without.end());
      EXPECT_EQ(std::memcmp(in_order.data(), without.data(), t.size() * sizeof(double)), 0) << kind << " " << threads;
      for (size_t i = 0; i < t.size(); ++i) {
        ASSERT_EQ(cells[i], std::upper_bound(x.begin(), x.end(), ordered[i]) - x.begin()) << ordered[i];
      }
    }
  }
  orvik_set_num_threads(0);
}

TEST(Splines, BadArgumentsGetTheirStatus) {
  const auto y = values([](double x) { return x; });
  const auto made = [&](const std::vector<double>& x, int32_t kind = ORVIK_NATURAL,
                        const orvik_spline_ends* ends = nullptr,
                        const double* internal = nullptr) { return Spline(x, y, kind, ends, internal).status; };
  auto x = kX;
  x[3] = x[2];
  EXPECT_EQ(made(x), ORVIK_ERROR_NOT_SORTED);
  x[3] = 0;
  EXPECT_EQ(made(x), ORVIK_ERROR_NOT_SORTED);
  for (const size_t i : {0, 3, 6}) {
    x = kX;
    x[i] = kNan;
    EXPECT_EQ(made(x), ORVIK_ERROR_NOT_SORTED);
  }
  x = kX;
  x[6] = kInf;
  EXPECT_EQ(made(x), ORVIK_ERROR_BAD_PARAMETER);
  orvik_d_spline* s = nullptr;
  EXPECT_EQ(orvik_d_spline_new(&s, 1, kX.data(), 1, y.data(), ORVIK_LINEAR, nullptr, nullptr), ORVIK_ERROR_NOT_SORTED);
  EXPECT_EQ(orvik_d_spline_new(&s, 0, kX.data(), 1, y.data(), ORVIK_LINEAR, nullptr, nullptr), ORVIK_ERROR_NOT_SORTED);
  EXPECT_EQ(orvik_d_spline_new(&s, -7, kX.data(), 1, y.data(), ORVIK_LINEAR, nullptr, nullptr), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_spline_new(&s, 7, kX.data(), 0, y.data(), ORVIK_LINEAR, nullptr, nullptr), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_spline_new(&s, INT64_MAX, kX.data(), 9, y.data(), ORVIK_LINEAR, nullptr, nullptr),
            ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_spline_new(&s, 7, nullptr, 1, y.data(), ORVIK_LINEAR, nullptr, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_spline_new(&s, 7, kX.data(), 1, nullptr, ORVIK_LINEAR, nullptr, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_spline_new(nullptr, 7, kX.data(), 1, y.data(), ORVIK_LINEAR, nullptr, nullptr),
            ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(made(kX, -1), ORVIK_ERROR_BAD_PARAMETER);
  EXPECT_EQ(made(kX, 8), ORVIK_ERROR_BAD_PARAMETER);
  for (const orvik_spline_ends ends :
       {orvik_spline_ends{-1, 0, 0}, orvik_spline_ends{5, 0, 0}, orvik_spline_ends{ORVIK_ENDS_FIRST, kNan, 0},
        orvik_spline_ends{ORVIK_ENDS_SECOND, 0, kInf}}) {
    EXPECT_EQ(made(kX, ORVIK_NATURAL, &ends), ORVIK_ERROR_BAD_PARAMETER);
  }
  const orvik_spline_ends periodic = {ORVIK_ENDS_PERIODIC, 0, 0};
  EXPECT_EQ(made(kX, ORVIK_NATURAL, &periodic), DFS_NOT_PERIODIC);
  EXPECT_EQ(made(kX, ORVIK_HERMITE), ORVIK_ERROR_NULL_POINTER);
  const double internal[] = {1, 1, kNan, 1, 1};
  EXPECT_EQ(made(kX, ORVIK_DEFAULT, nullptr, internal), ORVIK_ERROR_BAD_PARAMETER);
}

TEST(Splines, BadSitesAndObjects) {
  const auto y = values([](double x) { return x; });
  const Spline s(kX, y, ORVIK_NATURAL);
  double t[] = {1, 2}, r[] = {-7, -7};
  int64_t count = 1;
  EXPECT_EQ(orvik_d_spline_evaluate(s.s, -1, t, r, 0), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_spline_evaluate(s.s, INT64_MAX, t, r, 0), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_spline_evaluate(s.s, 2, nullptr, r, 0), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_spline_evaluate(s.s, 2, t, nullptr, 0), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_spline_evaluate(s.s, 2, t, t, 0), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_d_spline_evaluate(s.s, 2, t, r, -1), ORVIK_ERROR_BAD_PARAMETER);
  EXPECT_EQ(orvik_d_spline_evaluate(s.s, 0, nullptr, nullptr, 0), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_d_spline_integrate(s.s, 2, t, nullptr, r), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_spline_integrate(s.s, 1, t, t + 1, t + 1), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_d_spline_coefficients(s.s, r, &count), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_spline_coefficients(s.s, r, nullptr), ORVIK_ERROR_NULL_POINTER);
  orvik_d_spline* deleted = nullptr;
  ASSERT_EQ(orvik_d_spline_new(&deleted, 7, kX.data(), 1, y.data(), ORVIK_LINEAR, nullptr, nullptr), ORVIK_SUCCESS);
  orvik_d_spline_delete(deleted);
  orvik_d_spline_delete(deleted);
  for (auto* bad : {static_cast<orvik_d_spline*>(nullptr), deleted}) {
    EXPECT_EQ(orvik_d_spline_evaluate(bad, 2, t, r, 0), ORVIK_ERROR_BAD_OBJECT);
    EXPECT_EQ(orvik_d_spline_integrate(bad, 1, t, t, r), ORVIK_ERROR_BAD_OBJECT);
    EXPECT_EQ(orvik_d_spline_coefficients(bad, nullptr, &count), ORVIK_ERROR_BAD_OBJECT);
    EXPECT_EQ(orvik_d_spline_shape(bad, nullptr, nullptr, nullptr), ORVIK_ERROR_BAD_OBJECT);
  }
  EXPECT_EQ(r[0], -7);
}

TEST(Splines, FailingAllocationsLeaveNothingBehind) {
  const auto y = values([](double x) { return x; });
  std::vector<double> t(1000, 1.5), b(1000, 2.5), r(1000);
  orvik_set_num_threads(1);
  for (const int32_t kind : {ORVIK_LINEAR, ORVIK_NATURAL, ORVIK_QUADRATIC}) {
    for (int64_t n = 1; n < 1000; ++n) {
      const int64_t live = orvik::serv::live_allocations();
      orvik_d_spline* s = nullptr;
      orvik::serv::fail_allocation_after(n);
      orvik_status status = orvik_d_spline_new(&s, 7, kX.data(), 1, y.data(), kind, nullptr, nullptr);
      EXPECT_EQ(s == nullptr, status != ORVIK_SUCCESS);
      if (status == ORVIK_SUCCESS) status = orvik_d_spline_evaluate(s, 1000, t.data(), r.data(), 0);
      if (status == ORVIK_SUCCESS) status = orvik_d_spline_integrate(s, 1000, t.data(), b.data(), r.data());
      orvik::serv::fail_allocation_after(0);
      orvik_d_spline_delete(s);
      EXPECT_EQ(orvik::serv::live_allocations(), live);
      if (status == ORVIK_SUCCESS) break;
      EXPECT_EQ(status, ORVIK_ERROR_NO_MEMORY);
    }
  }
  orvik_set_num_threads(0);
}

TEST(Search, CountsTheBreakpointsThatAreNotAbove) {
  std::vector<double> t = {-1, 0, 0.1, 0.5, 1.25, 2, 2.5, 3, 4, 5, 6, kInf, -kInf};
  std::vector<int64_t> cell(t.size());
  ASSERT_EQ(orvik_d_search(7, kX.data(), int64_t(t.size()), t.data(), cell.data()), ORVIK_SUCCESS);
  for (size_t i = 0; i < t.size(); ++i) {
    EXPECT_EQ(cell[i], std::upper_bound(kX.begin(), kX.end(), t[i]) - kX.begin()) << t[i];
  }
  int64_t one = 0;
  ASSERT_EQ(orvik_d_search(7, kX.data(), 1, &kNan, &one), ORVIK_SUCCESS);
  EXPECT_EQ(one, 7);
  const double wide[] = {-kInf, 0, kInf}, at[] = {-kInf, -1, 0, kInf, kNan};
  int64_t cells[5];
  ASSERT_EQ(orvik_d_search(3, wide, 5, at, cells), ORVIK_SUCCESS);
  const int64_t want[] = {1, 1, 2, 3, 3};
  EXPECT_TRUE(std::equal(want, want + 5, cells));
  const float xs[] = {1, 2, 4}, ts[] = {4, 3.5f, 0};
  ASSERT_EQ(orvik_s_search(3, xs, 3, ts, cells), ORVIK_SUCCESS);
  EXPECT_EQ(cells[0], 3);
  EXPECT_EQ(cells[1], 2);
  EXPECT_EQ(cells[2], 0);
}

TEST(Search, BadArgumentsGetTheirStatus) {
  const double t = 1;
  int64_t cell = -7;
  const double down[] = {2, 1}, nan[] = {1, kNan};
  EXPECT_EQ(orvik_d_search(2, down, 1, &t, &cell), ORVIK_ERROR_NOT_SORTED);
  EXPECT_EQ(orvik_d_search(2, nan, 1, &t, &cell), ORVIK_ERROR_NOT_SORTED);
  EXPECT_EQ(orvik_d_search(1, down, 1, &t, &cell), ORVIK_ERROR_NOT_SORTED);
  EXPECT_EQ(orvik_d_search(-1, down, 1, &t, &cell), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_search(7, kX.data(), -1, &t, &cell), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_search(7, nullptr, 1, &t, &cell), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_search(7, kX.data(), 1, nullptr, &cell), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_search(7, kX.data(), 1, &t, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_search(7, kX.data(), 0, nullptr, nullptr), ORVIK_SUCCESS);
  EXPECT_EQ(cell, -7);
}

}  // namespace
