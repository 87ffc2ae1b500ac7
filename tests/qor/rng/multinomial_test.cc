// Multinomial, against plain forms: binomial numbers cut out of the unit interval, and Poisson numbers corrected one
// trial at a time.
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "qor/rng/call.h"
#include "qor/rng/scripted.h"
#include "qor/rng/sums.h"
#include "serv/memory.h"

namespace orvik::testing {
namespace {

using Probabilities = std::vector<double>;
constexpr uint32_t kSequential = ORVIK_MULTINOMIAL_SEQUENTIAL, kPoisson = ORVIK_MULTINOMIAL_POISSON;

int32_t call(uint32_t method, OrvikStream s, int32_t n, int32_t* r, int32_t trials, const Probabilities& p) {
  return _qoriRngMultinomial(method, s, n, r, trials, static_cast<int32_t>(p.size()), p.data());
}
std::vector<int32_t> draw(uint32_t method, const Stream& s, int32_t n, int32_t trials, const Probabilities& p) {
  return drawn<int32_t>(n * static_cast<int32_t>(p.size()),
                        [&](int32_t* r) { return call(method, s.get(), n, r, trials, p); });
}

// From the most probable number upwards and downwards in turns.
int32_t cut(long double u, int32_t n, long double p) {
  if (p >= 1) return n;
  if (p <= 0) return 0;
  const auto probability = [=](int32_t k) -> long double {
    if (k < 0 || k > n) return 0;
    return std::exp(log_gamma(n + 1.0L) - log_gamma(k + 1.0L) - log_gamma(n - k + 1.0L) + k * std::log(p) +
                    (n - k) * std::log1p(-p));
  };
  const auto m = static_cast<int32_t>(std::min(std::floor(static_cast<double>((n + 1) * p)), static_cast<double>(n)));
  if (u <= probability(m)) return m;
  u -= probability(m);
  for (int32_t away = 1; away <= n; ++away)
    for (const int32_t k : {m + away, m - away}) {
      const long double f = probability(k);
      if (u <= f && f > 0) return k;
      u -= f;
    }
  return m;
}

const std::vector<Probabilities> kSets = {{0.125, 0.5, 0.0625, 0.3125}, {0.1, 0.2, 0.7, 0}, {0, 0, 1}, {1}, {0.3, 0.7},
                                          {0.5, 0.2501, 0.2502}};

TEST(Multinomial, SequentialIsABinomialNumberOfWhatIsLeftForEachOutcome) {
  for (const Probabilities& p : kSets)
    for (const int32_t trials : {1, 7, 1000, 300000}) {
      const int32_t count = trials > 10000 ? 150 : 1500;  // both below and above a block
      const size_t k = p.size();
      const Stream s(ORVIK_BRNG_MT19937, {777}), source = s.copy();
      const auto rows = static_cast<size_t>(count);
      std::vector<int32_t> expected(rows * k), left(rows, trials);
      double sum = std::accumulate(p.begin(), p.end(), 0.0);
      for (size_t j = 0; j + 1 < k; ++j) {
        const std::vector<double> u = source.doubles(count);
        const bool is_last =
            std::all_of(p.begin() + static_cast<std::ptrdiff_t>(j) + 1, p.end(), [](double x) { return x == 0; });
        const double share = is_last ? 1 : p[j] / sum;
        for (size_t i = 0; i < rows; ++i) {
          expected[i * k + j] = cut(static_cast<long double>(u[i]), left[i], static_cast<long double>(share));
          left[i] -= expected[i * k + j];
        }
        sum -= p[j];
      }
      for (size_t i = 0; i < rows; ++i) expected[i * k + k - 1] += left[i];
      ASSERT_EQ(draw(kSequential, s, count, trials, p), expected) << trials << " of " << k;
      EXPECT_EQ(s.words(3), source.words(3));
    }
}

TEST(Multinomial, ByPoissonIsPoissonNumbersCorrectedTrialByTrial) {
  for (const Probabilities& p : kSets)
    for (const int32_t trials : {1, 7, 1000, 300000}) {
      constexpr int32_t kRows = 300;
      const size_t k = p.size();
      const Stream s(ORVIK_BRNG_MT19937, {777}), source = s.copy();
      const std::vector<int32_t> got = draw(kPoisson, s, kRows, trials, p);
      Probabilities means = p;
      for (double& mean : means) mean *= trials;
      const double sum = std::accumulate(p.begin(), p.end(), 0.0);
      for (size_t i = 0; i < kRows; ++i) {
        std::vector<int32_t> row(k);
        ASSERT_EQ(_qoriRngPoissonV(0, source.get(), static_cast<int32_t>(k), row.data(), means.data()), 0);
        int64_t total = std::accumulate(row.begin(), row.end(), int64_t{0});
        const int64_t off = std::abs(total - trials);
        const std::vector<double> u = off > 0 ? source.doubles(static_cast<int32_t>(off)) : std::vector<double>();
        for (const double x : u) {
          size_t j = 0;
          if (total < trials) {
            for (double place = x * sum; j + 1 < k && place >= p[j]; ++j) place -= p[j];
            ++row[j];
          } else {
            for (auto place = static_cast<int64_t>(x * static_cast<double>(total)); place >= row[j]; ++j)
              place -= row[j];
            --row[j];
            --total;
          }
        }
        ASSERT_EQ(std::vector<int32_t>(got.begin() + static_cast<std::ptrdiff_t>(i * k),
                                       got.begin() + static_cast<std::ptrdiff_t>((i + 1) * k)),
                  row)
            << trials << ", row " << i;
      }
      EXPECT_EQ(s.words(3), source.words(3));
    }
}

TEST(Multinomial, RowsSumToTheTrialsAndOutcomesOfNoProbabilityDoNotOccur) {
  for (const uint32_t method : {kSequential, kPoisson})
    for (const int32_t trials : {1, 50, 2000000000})
      for (const Probabilities& p : kSets) {
        const Stream s(ORVIK_BRNG_MT19937, {777});
        constexpr int32_t kRows = 5;
        const std::vector<int32_t> r = draw(method, s, kRows, trials, p);
        for (size_t i = 0; i < r.size(); i += p.size()) {
          int64_t sum = 0;
          for (size_t j = 0; j < p.size(); ++j) {
            EXPECT_GE(r[i + j], 0);
            if (p[j] == 0) {
              EXPECT_EQ(r[i + j], 0);
            }
            sum += r[i + j];
          }
          EXPECT_EQ(sum, trials) << method;
        }
      }
}

TEST(Multinomial, OfNoTrialsIsZeroAndDrawsNothingWhateverElseIsAsked) {
  Scripted s;
  const double bad[2] = {-1, 7};
  for (const uint32_t method : {kSequential, kPoisson, 9u}) {
    std::vector<int32_t> r(5, 7);
    EXPECT_EQ(_qoriRngMultinomial(method, s.get(), 2, r.data(), 0, 2, bad), 0);
    EXPECT_EQ(r, (std::vector<int32_t>{0, 0, 0, 0, 7}));
    EXPECT_EQ(_qoriRngMultinomial(method, s.get(), 2, r.data() + 4, 0, 0, bad), 0);
    EXPECT_EQ(r[4], 7);
  }
  EXPECT_TRUE(s->requests.empty());
}

TEST(Multinomial, RefusesBadProbabilities) {
  Scripted s;
  int32_t r[3] = {7, 7, 7};
  const double nan = std::nan("");
  for (const uint32_t method : {kSequential, kPoisson, 9u}) {
    for (const Probabilities& p : {Probabilities{0.5, -0.1, 0.6},
                                   {0.5, nan, 0.5},
                                   {0.3, 0.3, 0.3},
                                   {0.4, 0.4, 0.4},
                                   {0.5, 0.25, 0.24899},
                                   {0.5, 0.25, 0.25101}})
      EXPECT_EQ(call(method, s.get(), 1, r, 5, p), ORVIK_QOR_BAD_PROBABILITIES);
    for (const int32_t k : {0, -1})
      EXPECT_EQ(_qoriRngMultinomial(method, s.get(), 1, r, 5, k, &nan), ORVIK_QOR_BAD_PROBABILITIES);
  }
  EXPECT_EQ(ORVIK_QOR_BAD_PROBABILITIES, -1150);
  for (const int32_t x : r) EXPECT_EQ(x, 7);
  EXPECT_TRUE(s->requests.empty());
}

TEST(Multinomial, TakesProbabilitiesWhoseSumIsWithinAThousandth) {
  for (const Probabilities& p : {Probabilities{0.5, 0.499}, {0.5, 0.501}}) {
    ASSERT_NE(p[0] + p[1], 1);
    const Stream s(ORVIK_BRNG_MT19937, {777});
    draw(kSequential, s, 5, 10, p);
  }
}

TEST(Multinomial, RefusesOtherMethods) {
  Scripted s;
  int32_t r[3] = {7, 7, 7};
  EXPECT_EQ(call(2, s.get(), 1, r, 5, {0.5, 0.25, 0.25}), ORVIK_QOR_BAD_METHOD);
  EXPECT_EQ(r[0], 7);
}

TEST(Multinomial, AnswersMinus4WhenMemoryIsExhausted) {
  for (const uint32_t method : {kSequential, kPoisson}) {
    Scripted s;
    int32_t r[2] = {7, 7};
    const int64_t before = serv::live_allocations();
    serv::fail_allocation_after(1);
    EXPECT_EQ(call(method, s.get(), 1, r, 5, {0.5, 0.5}), -4);
    serv::fail_allocation_after(0);
    EXPECT_EQ(serv::live_allocations(), before);
    EXPECT_EQ(r[0], 7);
    EXPECT_TRUE(s->requests.empty());
    EXPECT_EQ(call(method, s.get(), 1, r, 5, {0.5, 0.5}), 0);
    EXPECT_EQ(serv::live_allocations(), before) << "nothing is kept";
  }
}

TEST(Multinomial, SequentialDrawsOneUniformARowAndOutcome) {
  Scripted s;
  s.spread();
  std::vector<int32_t> r(9000);
  ASSERT_EQ(call(kSequential, s.get(), 3000, r.data(), 5, {0.5, 0.25, 0.25}), 0);
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{3000, 3000}));
}

TEST(Multinomial, EndsForUniformsAtTheirEnds) {
  for (const uint32_t method : {kSequential, kPoisson})
    for (const double u : {0.0, 1.0, 0.5, 1 - 0x1p-53, 1 - 0x1p-24})
      for (const Probabilities& p : kSets) {
        Scripted s;
        s->number = [u](int64_t) { return u; };
        std::vector<int32_t> r(2 * p.size());
        ASSERT_EQ(call(method, s.get(), 2, r.data(), 1000, p), 0);
        for (size_t i = 0; i < 2; ++i) {
          const auto row = r.begin() + static_cast<std::ptrdiff_t>(i * p.size());
          EXPECT_EQ(std::accumulate(row, row + static_cast<std::ptrdiff_t>(p.size()), 0), 1000);
          for (size_t j = 0; j < p.size(); ++j)
            if (p[j] == 0) {
              EXPECT_EQ(row[static_cast<std::ptrdiff_t>(j)], 0);
            }
        }
      }
}

}  // namespace
}  // namespace orvik::testing
