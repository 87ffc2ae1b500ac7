// The C++ front: spans, vectors, arrays; exceptions with statuses; objects that move, copy, merge, save and load.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <type_traits>

#include "orvik/df.h"
#include "orvik/front.hpp"
#include "orvik/qor.h"

namespace {

template <class F>
std::int32_t thrown(F f) {
  try {
    f();
  } catch (const orvik::Error& error) {
    EXPECT_STREQ(error.what(), orvik_status_text(error.status()));
    return error.status();
  }
  return 0;
}

static_assert(std::is_base_of_v<std::runtime_error, orvik::Error>);
static_assert(std::uniform_random_bit_generator<orvik::Stream>);
static_assert(!std::is_copy_constructible_v<orvik::Stream> && std::is_nothrow_move_constructible_v<orvik::Stream>);
static_assert(!std::is_copy_constructible_v<orvik::Summary<double>> &&
              !std::is_copy_constructible_v<orvik::Spline<float>>);

TEST(CxxMath, TakesSpansVectorsAndArrays) {
  std::vector<double> a = {0, 1, 2}, r(3);
  EXPECT_EQ(orvik::exp(a, r), 0);
  EXPECT_DOUBLE_EQ(r[1], std::exp(1.0));
  EXPECT_EQ(orvik::exp<double>(a, r), 0);
  EXPECT_EQ(orvik::exp(std::span<const double>(a), std::span<double>(r)), 0);
  EXPECT_EQ(orvik::exp(a), r);
  std::array<float, 2> f = {4, 9};
  EXPECT_EQ(orvik::sqrt(f, f), 0);
  EXPECT_EQ(f[1], 3);
  double c[2] = {8, 27};
  EXPECT_EQ(orvik::cbrt(c, c), 0);
  EXPECT_DOUBLE_EQ(c[1], 3);
  EXPECT_EQ(orvik::exp(std::span<const double>(), std::span<double>()), 0);
}

TEST(CxxMath, EveryShape) {
  const std::vector<double> a = {0.5, 1}, b = {2, 3};
  std::vector<double> r(2), s(2);
  orvik::sincos(a, r, s);
  EXPECT_NEAR(r[0] * r[0] + s[0] * s[0], 1, 1e-15);
  EXPECT_EQ(orvik::pow(b, b)[1], 27);
  EXPECT_EQ(orvik::powx(b, 2.0)[1], 9);
  EXPECT_NEAR(orvik::jn(2, a)[1], 0.11490348493190048, 1e-15);
  EXPECT_EQ(orvik::linearfrac(a, b, 2, 1, 1, 0)[0], 1);
  const std::vector<std::complex<double>> z = {{3, 4}, {0, 1}};
  EXPECT_EQ(orvik::abs(z)[0], 5);
  EXPECT_EQ(orvik::mul(z, z)[1], std::complex<double>(-1, 0));
  EXPECT_NEAR(std::abs(orvik::powx(z, {0, 1})[1] - std::exp(-std::acos(0.0))), 0, 1e-14);
  const std::vector<std::complex<float>> w = orvik::cis(std::vector<float>{0, 1});
  EXPECT_EQ(w[0], std::complex<float>(1, 0));
}

TEST(CxxMath, PositiveStatusesAreReturnedAndReported) {
  std::vector<orvik::Report> reports;
  const std::vector<double> a = {1, 0, -1, 0};
  std::vector<double> r(4);
  EXPECT_EQ(orvik::ln(a, r, {.accuracy = orvik::Accuracy::EP, .threads = 2, .reports = &reports}), ORVIK_DOMAIN);
  ASSERT_EQ(reports.size(), 3u);
  EXPECT_EQ(reports[1].index, 2);
  EXPECT_EQ(reports[1].code, ORVIK_DOMAIN);
  EXPECT_EQ(reports[1].a[0], -1);
}

// Room for 256 megabytes of reports, of which one is written.
TEST(CxxMath, RoomForReportsThatAreNotWrittenTakesNoMemory) {
  std::vector<double> a(4000000, 0.5);
  std::vector<orvik::Report> reports(3);
  a[3999999] = -1;
  const auto most = [] {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;  // kilobytes
  };
  const long before = most();
  EXPECT_EQ(orvik::ln(a, a, {.reports = &reports}), ORVIK_DOMAIN);
  EXPECT_LT(most() - before, 100000);
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_EQ(reports[0].index, 3999999);
}

TEST(CxxMath, ErrorsThrowBeforeAnythingIsWritten) {
  std::vector<double> a = {1, 2, 3}, r = {-7, -7, -7}, shorter = {-7, -7};
  EXPECT_EQ(thrown([&] { orvik::exp(a, shorter); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([&] { orvik::add(a, shorter, r); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([&] { orvik::add(a, shorter); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([&] { orvik::exp(std::span(a).first(2), std::span(a).last(2)); }), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(thrown([&] { orvik::exp(a, r, {.threads = -1}); }), ORVIK_ERROR_BAD_PARAMETER);
  EXPECT_EQ(thrown([&] { orvik::exp(a, r, {.accuracy = static_cast<orvik::Accuracy>(9)}); }), ORVIK_ERROR_BAD_ACCURACY);
  EXPECT_EQ(r, std::vector<double>(3, -7));
  EXPECT_EQ(shorter, std::vector<double>(2, -7));
}

TEST(CxxStream, IsAGeneratorMovesCopiesAndComesBack) {
  orvik::Stream s(orvik::Generator::MT19937, 7);
  std::vector<int> v(100), w;
  std::iota(v.begin(), v.end(), 0);
  w = v;
  orvik::Stream copy = s.copy();
  std::shuffle(v.begin(), v.end(), s);
  std::shuffle(w.begin(), w.end(), copy);
  EXPECT_EQ(v, w);
  EXPECT_FALSE(std::is_sorted(v.begin(), v.end()));
  const auto image = s.save();
  orvik::Stream moved = std::move(s), loaded = orvik::Stream::load(image);
  EXPECT_EQ(moved(), loaded());
  EXPECT_EQ(moved.generator(), orvik::Generator::MT19937);
  EXPECT_EQ(thrown([&] { s.skip(1); }), ORVIK_ERROR_BAD_STREAM);
  moved.skip(10);
  for (int k = 0; k < 10; ++k) loaded();
  EXPECT_EQ(moved(), loaded());
  const std::uint32_t seeds[] = {1, 2, 3};
  orvik::Stream seeded(orvik::member(orvik::Generator::MT2203, 5), seeds);
  EXPECT_EQ(static_cast<std::int32_t>(seeded.generator()), ORVIK_MT2203 + 5);
  EXPECT_EQ(thrown([&] { seeded.leapfrog(0, 2); }), ORVIK_QOR_NO_LEAPFROG);
  EXPECT_EQ(thrown([] { orvik::Stream(static_cast<orvik::Generator>(3)); }), ORVIK_QOR_BAD_BRNG);
  EXPECT_EQ(thrown([&] { orvik::Stream::load(std::span(image).first(20)); }), ORVIK_ERROR_BAD_IMAGE);
}

TEST(CxxStream, DrawsAllDistributions) {
  orvik::Stream s;
  std::vector<double> d(2000);
  std::array<float, 100> f;
  std::vector<std::int32_t> i(100);
  std::vector<std::uint32_t> w(100);
  orvik::uniform(s, d);
  EXPECT_TRUE(std::all_of(d.begin(), d.end(), [](double x) { return x >= 0 && x <= 1; }));
  orvik::uniform(s, std::span(f), 2, 3);
  EXPECT_TRUE(std::all_of(f.begin(), f.end(), [](float x) { return x >= 2 && x <= 3; }));
  orvik::normal(s, d, 5, 0.1);
  EXPECT_NEAR(std::accumulate(d.begin(), d.end(), 0.0) / 2000, 5, 0.02);
  orvik::gaussian(s, d), orvik::cauchy(s, d), orvik::exponential(s, f), orvik::gumbel(s, d), orvik::laplace(s, d);
  orvik::rayleigh(s, d), orvik::weibull(s, d, 2), orvik::lognormal(s, d), orvik::gamma(s, f, 2),
      orvik::beta(s, d, 2, 3);
  orvik::chisquare(s, d, 4);
  orvik::uniform(s, i, 0, 10), orvik::bernoulli(s, i, 0.5), orvik::geometric(s, i, 0.5), orvik::binomial(s, i, 10, 0.5);
  orvik::hypergeometric(s, i, 10, 5, 5), orvik::words(s, w), orvik::negbinomial(s, i, 2.5, 0.5);
  orvik::poisson(s, i, 4), orvik::poisson(s, i, 4, ORVIK_POISSON_NORMAL);
  orvik::poissonv(s, i, std::vector<double>(100, 4.0));
  EXPECT_EQ(thrown([&] { orvik::poissonv(s, i, std::vector<double>(99, 4.0)); }), ORVIK_ERROR_BAD_LENGTH);
  const std::vector<double> outcomes = {0.2, 0.3, 0.1, 0.4};
  orvik::multinomial(s, i, 30, outcomes);
  for (auto row = i.begin(); row != i.end(); row += 4) EXPECT_EQ(std::accumulate(row, row + 4, 0), 30);
  orvik::multinomial(s, i, 30, outcomes, ORVIK_MULTINOMIAL_POISSON);
  EXPECT_EQ(thrown([&] { orvik::multinomial(s, std::span(i).first(99), 30, outcomes); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([&] { orvik::normal(s, d, 0, -1); }), ORVIK_ERROR_BAD_PARAMETER);
  orvik::Stream other = s.copy();
  std::vector<double> e(2000);
  orvik::uniform(s, d, 1, 2), orvik::uniform_threads(other, e, 1, 2, 3);
  EXPECT_EQ(d, e);
  orvik::normal(s, d), orvik::normal_threads(other, e);
  EXPECT_EQ(d, e);
  const std::vector<double> mean = {10, 20}, deviations = {1, 0};
  orvik::multivariate_normal(s, d, mean, deviations, ORVIK_FACTOR_DIAGONAL);
  EXPECT_EQ(d[1], 20);
  EXPECT_NE(d[0], d[2]);
  EXPECT_EQ(thrown([&] { orvik::multivariate_normal(s, d, mean, deviations); }), ORVIK_ERROR_BAD_LENGTH);
}

// A distribution and its form for threads, over one stream each.
#define EXPECT_SAME_OVER_THREADS(name, ...)                                                     \
  do {                                                                                          \
    orvik::Stream one(orvik::Generator::MRG32K3A, 3), many = one.copy();                        \
    orvik::name(one, want __VA_OPT__(, ) __VA_ARGS__);                                          \
    orvik::name##_threads(many, got __VA_OPT__(, ) __VA_ARGS__, 3);                             \
    EXPECT_EQ(want, got) << #name;                                                              \
    EXPECT_EQ(one(), many()) << #name;                                                          \
    EXPECT_EQ(thrown([&] { orvik::name##_threads(many, got __VA_OPT__(, ) __VA_ARGS__, -1); }), \
              ORVIK_ERROR_BAD_PARAMETER);                                                       \
  } while (false)

template <class T>
void real_draws_over_threads() {
  std::vector<T> want(1000), got(1000);
  EXPECT_SAME_OVER_THREADS(uniform, 1, 2);
  EXPECT_SAME_OVER_THREADS(normal, 1, 2);
  EXPECT_SAME_OVER_THREADS(gaussian, 1, 2, ORVIK_GAUSSIAN_BOX_MULLER);
  EXPECT_SAME_OVER_THREADS(cauchy, 1, 2);
  EXPECT_SAME_OVER_THREADS(exponential, 1, 2);
  EXPECT_SAME_OVER_THREADS(gumbel, 1, 2);
  EXPECT_SAME_OVER_THREADS(laplace, 1, 2);
  EXPECT_SAME_OVER_THREADS(rayleigh, 1, 2);
  EXPECT_SAME_OVER_THREADS(weibull, 2, 1, 2);
  EXPECT_SAME_OVER_THREADS(lognormal, 1, 2, 0, 1, 1u);
}

TEST(CxxStream, DrawsTheSameOverThreads) {
  real_draws_over_threads<double>();
  real_draws_over_threads<float>();
  std::vector<std::int32_t> want(1000), got(1000);
  EXPECT_SAME_OVER_THREADS(uniform, 1, 20);
  EXPECT_SAME_OVER_THREADS(bernoulli, 0.4);
  EXPECT_SAME_OVER_THREADS(geometric, 0.4);
}

TEST(CxxStream, DrawsTheSameWordsOverThreads) {
  std::vector<std::uint32_t> want(1000), got(1000);
  EXPECT_SAME_OVER_THREADS(words);
}

TEST(CxxSummary, FeedsMergesAndSaves) {
  const std::vector<double> x = {1, 2, 3, 4, 2, 4, 6, 9};
  orvik::Summary<double> s(2), t(2);
  s.update(x, 4, orvik::Layout::Rows);
  const std::vector<double> left = {1, 2, 2, 4}, right = {3, 6, 4, 9};
  t.update(left, 2, orvik::Layout::Columns);
  orvik::Summary<double> u(2);
  u.update(right, 2, orvik::Layout::Columns, std::vector<double>{1, 1});
  t.merge(orvik::Summary<double>::load(u.save()));
  EXPECT_EQ(t.count(), 4);
  EXPECT_EQ(t.dimension(), 2);
  EXPECT_EQ(t.mean(), s.mean());
  EXPECT_EQ(t.max(), s.max());
  EXPECT_NEAR(t.covariance()[1], s.covariance()[1], 1e-14);
  EXPECT_NEAR(t.skewness()[1], s.skewness()[1], 1e-14);
  EXPECT_NEAR(t.kurtosis()[0], s.kurtosis()[0], 1e-14);
  EXPECT_EQ(thrown([&] { s.update(x, 5, orvik::Layout::Rows); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([&] { s.update(x, 3, orvik::Layout::Rows); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([&] { s.update(x, 4, orvik::Layout::Rows, std::vector<double>{1}); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([] { orvik::Summary<float>(0); }), ORVIK_ERROR_BAD_LENGTH);
}

TEST(CxxStreamQuantiles, SavesAndGoesOn) {
  orvik::StreamQuantiles<float> s(2, 0.1f);
  std::vector<float> x(400);
  for (size_t i = 0; i < x.size(); ++i) x[i] = static_cast<float>(i * 37 % 400);
  s.update(x, 200, orvik::Layout::Rows);
  const auto image = s.save();
  auto t = orvik::StreamQuantiles<float>::load(image);
  EXPECT_EQ(t.dimension(), 2);
  s.update(x, 200, orvik::Layout::Columns);
  t.update(x, 200, orvik::Layout::Columns);
  EXPECT_EQ(t.quantile(0.3f), s.quantile(0.3f));
  EXPECT_EQ(t.save(), s.save());
  EXPECT_EQ(thrown([&] { orvik::StreamQuantiles<double>::load(image); }), ORVIK_ERROR_BAD_IMAGE);
  for (size_t less = 0; less < image.size(); ++less) {
    ASSERT_EQ(thrown([&] { orvik::StreamQuantiles<float>::load(std::span(image).first(less)); }),
              ORVIK_ERROR_BAD_IMAGE);
  }
  for (size_t at = 0; at < image.size(); ++at) {
    auto bent = image;
    bent[at] ^= std::byte{16};
    ASSERT_EQ(thrown([&] { orvik::StreamQuantiles<float>::load(bent); }), ORVIK_ERROR_BAD_IMAGE) << at;
  }
}

TEST(CxxEstimators, AreThere) {
  const std::vector<double> x = {4, 1, 3, 2}, w = {1, 1, 5, 1};
  EXPECT_EQ(orvik::quantiles(x, 4, 1, orvik::Layout::Rows, std::vector<double>{0, 0.5}), (std::vector<double>{1, 2.5}));
  EXPECT_EQ(orvik::sort(x, 4, 1, orvik::Layout::Rows), (std::vector<double>{1, 2, 3, 4}));
  EXPECT_EQ(orvik::mad(x, 4, 1, orvik::Layout::Rows)[0], 1);
  EXPECT_EQ(orvik::weighted_median(x, 4, 1, orvik::Layout::Rows, w)[0], 3);
  orvik::StreamQuantiles<double> q(1, 0.1);
  q.update(x, 4, orvik::Layout::Rows);
  EXPECT_EQ(q.quantile(1.0)[0], 4);
  EXPECT_EQ(thrown([&] { orvik::mad(x, 5, 1, orvik::Layout::Rows); }), ORVIK_ERROR_BAD_LENGTH);
}

// What converts to a span, whether it may be written or not, with second arrays of any such kind.
TEST(CxxEstimators, TakeArraysAndSpansAsVectors) {
  constexpr auto kRows = orvik::Layout::Rows;
  const std::vector<double> x = {4, 1, 3, 2, 7, 5}, w = {1, 1, 5, 1, 1, 1}, q = {0, 0.5};
  std::array<double, 6> array;
  std::copy(x.begin(), x.end(), array.begin());
  const std::span<double> span(array);
  const std::span<const double> reading(array);
  double plain[6];
  std::copy(x.begin(), x.end(), plain);
  const auto check = [&](const auto& data) {
    for (const auto& got :
         {orvik::quantiles(data, 6, 1, kRows, q), orvik::quantiles(data, 6, 1, kRows, std::span<const double>(q)),
          orvik::quantiles(data, 6, 1, kRows, std::array<double, 2>{0, 0.5})}) {
      EXPECT_EQ(got, orvik::quantiles(x, 6, 1, kRows, q));
    }
    EXPECT_EQ(orvik::sort(data, 6, 1, kRows), (std::vector<double>{1, 2, 3, 4, 5, 7}));
    EXPECT_EQ(orvik::mad(data, 6, 1, kRows), orvik::mad(x, 6, 1, kRows));
    EXPECT_EQ(orvik::weighted_median(data, 6, 1, kRows, w), orvik::weighted_median(x, 6, 1, kRows, w));
    EXPECT_EQ(orvik::outliers(data, 6, 1, kRows, 0.1), orvik::outliers(x, 6, 1, kRows, 0.1));
    EXPECT_EQ(orvik::impute(data, 6, 1, kRows, 2), orvik::impute(x, 6, 1, kRows, 2));
    EXPECT_EQ(orvik::robust_covariance(data, 6, 1, kRows).mean, orvik::robust_covariance(x, 6, 1, kRows).mean);
    EXPECT_EQ(orvik::search(std::array{1.0, 3.0}, data), orvik::search(std::vector{1.0, 3.0}, x));
    EXPECT_EQ(orvik::search(std::span<const double>(w).subspan(1, 2), data).size(), 6u);
  };
  check(array), check(span), check(reading), check(plain), check(x);
  EXPECT_EQ(orvik::sort<double>(array, 6, 1, kRows), orvik::sort<double>(x, 6, 1, kRows));
  EXPECT_EQ(orvik::quantiles<double>(x, 6, 1, kRows, q), orvik::quantiles(x, 6, 1, kRows, q));
}

TEST(CxxImages, EmptyOnesAreDamaged) {
  EXPECT_EQ(thrown([] { orvik::Stream::load({}); }), ORVIK_ERROR_BAD_IMAGE);
  EXPECT_EQ(thrown([] { orvik::Summary<double>::load(std::vector<std::byte>()); }), ORVIK_ERROR_BAD_IMAGE);
  EXPECT_EQ(thrown([] { orvik::StreamQuantiles<float>::load(std::array<std::byte, 0>()); }), ORVIK_ERROR_BAD_IMAGE);
}

TEST(CxxStream, AMoveOntoOneLeavesNothingBehind) {
  orvik::Stream a(orvik::Generator::MT19937, 1), b(orvik::Generator::MT19937, 2);
  const std::uint32_t word = orvik::Stream(orvik::Generator::MT19937, 2)();
  a = std::move(b);
  EXPECT_EQ(b.get(), nullptr);
  orvik::Stream& itself = a;
  a = std::move(itself);
  EXPECT_EQ(a(), word);
}

TEST(CxxEstimators, OfDataThatAreNotClean) {
  std::vector<double> x(200);
  orvik::Stream s;
  orvik::normal(s, x);
  x[7] = 50;
  const auto flags = orvik::outliers(x, 100, 2, orvik::Layout::Rows);
  EXPECT_EQ(std::accumulate(flags.begin(), flags.end(), 0), 1);
  EXPECT_EQ(flags[7], 1);
  EXPECT_EQ(orvik::outliers(x, 100, 2, orvik::Layout::Rows, 0.0)[7], 0);
  const auto robust = orvik::robust_covariance(x, 100, 2, orvik::Layout::Rows);
  EXPECT_NEAR(robust.mean[0], 0, 0.5);
  EXPECT_NEAR(robust.covariance[3], 1, 0.6);
  EXPECT_EQ(robust.covariance[1], robust.covariance[2]);
  x[7] = std::numeric_limits<double>::quiet_NaN();
  const auto sets = orvik::impute(x, 100, 2, orvik::Layout::Rows, 2);
  ASSERT_EQ(sets.size(), 400u);
  EXPECT_LT(std::abs(sets[7]), 10);
  EXPECT_NE(sets[7], sets[207]);
  EXPECT_EQ(sets[8], x[8]);
  EXPECT_EQ(orvik::impute(x, 100, 2, orvik::Layout::Rows)[7], sets[7]);
  EXPECT_EQ(thrown([&] { orvik::outliers(x, 99, 2, orvik::Layout::Rows); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([&] { orvik::outliers(x, 20, 10, orvik::Layout::Rows); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([&] { orvik::robust_covariance(x, 20, 10, orvik::Layout::Rows); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([&] { orvik::impute(x, 100, 2, orvik::Layout::Rows, -1); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([&] { orvik::impute(x, 100, 2, orvik::Layout::Rows, std::numeric_limits<std::int64_t>::max()); }),
            ORVIK_ERROR_BAD_LENGTH);
}

TEST(CxxSpline, EvaluatesAndIntegrates) {
  const std::vector<double> x = {0, 1, 2, 3}, y = {0, 1, 4, 9};
  const orvik::Spline<double> s(x, y, orvik::Kind::Natural, orvik::Ends::first(0, 6));
  EXPECT_NEAR(s(1.5), 2.25, 1e-12);
  EXPECT_NEAR(s.evaluate(std::vector<double>{1.5}, 1)[0], 3, 1e-12);
  EXPECT_NEAR(s.integrate(0, 3), 9, 1e-12);
  EXPECT_EQ(s.coefficients().size(), 12u);
  const auto even = orvik::Spline<double>::uniform(0, 3, 4, y, orvik::Kind::Natural, orvik::Ends::first(0, 6));
  EXPECT_NEAR(even(2.5), 6.25, 1e-12);
  EXPECT_EQ(orvik::search(x, std::vector<double>{0.5, 3, -1}), (std::vector<std::int64_t>{1, 4, 0}));
  EXPECT_EQ(thrown([&] { orvik::Spline<double>(std::vector<double>{0, 1, 1, 2}, y); }), ORVIK_ERROR_NOT_SORTED);
  EXPECT_EQ(thrown([&] { orvik::Spline<double>(x, std::vector<double>{0, 1, 1}); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([&] { orvik::Spline<double>(x, y, orvik::Kind::Hermite); }), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(thrown([&] { orvik::Spline<double>(x, y, orvik::Kind::Akima); }), DFS_BAD_BREAKPOINT_COUNT);
  std::vector<double> r(1);
  EXPECT_EQ(thrown([&] { s.evaluate(x, r); }), ORVIK_ERROR_BAD_LENGTH);
}

}  // namespace
