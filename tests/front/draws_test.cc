// Every distribution of the front: the kernel's numbers, on any number of threads the same and the same stream
// afterwards; bad parameters leave the stream untouched.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "orvik/front.h"
#include "orvik/qor.h"
#include "serv/memory.h"

namespace {

using orvik::serv::fail_allocation_after;
using orvik::serv::live_allocations;

constexpr double kInf = std::numeric_limits<double>::infinity(), kNan = std::numeric_limits<double>::quiet_NaN();
constexpr int32_t kGenerators[] = {ORVIK_MCG31M1,     ORVIK_R250,      ORVIK_MRG32K3A, ORVIK_MCG59,
                                   ORVIK_WH + 5,      ORVIK_SOBOL,     ORVIK_MT19937,  ORVIK_NIEDERREITER,
                                   ORVIK_MT2203 + 17, ORVIK_SFMT19937, ORVIK_ARS5,     ORVIK_PHILOX4X32X10};

struct Owned {
  orvik_stream* s = nullptr;
  explicit Owned(int32_t generator = ORVIK_PHILOX4X32X10, uint64_t seed = 7) {
    EXPECT_EQ(orvik_stream_new(&s, generator, seed), ORVIK_SUCCESS) << generator;
  }
  ~Owned() { orvik_stream_delete(s); }
  Owned(const Owned&) = delete;
  operator orvik_stream*() const { return s; }
};

std::vector<char> image(const orvik_stream* s) {
  int64_t size = 0;
  EXPECT_EQ(orvik_stream_save(s, nullptr, &size), ORVIK_SUCCESS);
  std::vector<char> bytes(static_cast<size_t>(size));
  EXPECT_EQ(orvik_stream_save(s, bytes.data(), &size), ORVIK_SUCCESS);
  return bytes;
}

// A distribution with good parameters: threads < 0 calls the form without threads. Numbers are eight bytes apart at
// most.
struct Distribution {
  const char* name;
  std::function<orvik_status(orvik_stream*, int64_t, void*, int32_t)> draw;
  bool splits = true;
};

template <class T>
struct Forms;
#define FORMS(T, d)                                               \
  template <>                                                     \
  struct Forms<T> {                                               \
    static std::vector<Distribution> all() {                      \
      const auto as = [](void* r) { return static_cast<T*>(r); }; \
      return {SPLIT(d, uniform, T(-1), T(3)),                     \
              SPLIT(d, normal, T(1), T(2)),                       \
              SPLIT(d, gaussian, T(1), T(2), 0u),                 \
              SPLIT(d, gaussian, T(1), T(2), 1u),                 \
              SPLIT(d, gaussian, T(1), T(2), 2u),                 \
              SPLIT(d, cauchy, T(1), T(2)),                       \
              SPLIT(d, exponential, T(1), T(2)),                  \
              SPLIT(d, gumbel, T(1), T(2)),                       \
              SPLIT(d, laplace, T(1), T(2)),                      \
              SPLIT(d, rayleigh, T(1), T(2)),                     \
              SPLIT(d, weibull, T(1.5), T(1), T(2)),              \
              SPLIT(d, lognormal, T(0), T(1), T(0), T(1), 0u),    \
              SPLIT(d, lognormal, T(0), T(1), T(0), T(1), 1u),    \
              PLAIN(d, gamma, T(1.5), T(0), T(1)),                \
              PLAIN(d, beta, T(1.5), T(0.5), T(0), T(1)),         \
              PLAIN(d, chisquare, 5)};                            \
    }                                                             \
  };
#define SPLIT(d, name, ...)                                                                                 \
  Distribution {                                                                                            \
#d "_" #name " " #__VA_ARGS__, [as](orvik_stream* s, int64_t n, void* r, int32_t threads) {               \
                 return threads < 0 ? orvik_##d##_##name(s, n, as(r), __VA_ARGS__)                                       \
                                    : orvik_##d##_##name##_threads(s, n, as(r), __VA_ARGS__, threads);                   \
               } \
  }
#define PLAIN(d, name, ...)                                                                                      \
  Distribution {                                                                                                 \
#d "_" #name " " #__VA_ARGS__, [as](orvik_stream * s, int64_t n, void* r,                                    \
                                        int32_t) { return orvik_##d##_##name(s, n, as(r), __VA_ARGS__); }, false \
  }
FORMS(double, d)
FORMS(float, s)

constexpr int64_t kMost = 4000;  // numbers of a request
constexpr double kOutcomes[] = {0.25, 0.75};

// From small ones, each of which takes one uniform, to large ones, that take some.
const double* means() {
  static const std::vector<double> all = [] {
    std::vector<double> lambda(kMost);
    for (size_t k = 0; k < lambda.size(); ++k) lambda[k] = std::exp2(static_cast<double>(k % 40) / 2 - 4);
    return lambda;
  }();
  return all.data();
}

std::vector<Distribution> integers() {
  const auto as = [](void* r) { return static_cast<int32_t*>(r); };
  std::vector<Distribution> all = {SPLIT(i, uniform, -5, 1000),
                                   SPLIT(i, bernoulli, 0.3),
                                   SPLIT(i, geometric, 0.2),
                                   PLAIN(i, binomial, 100, 0.4),
                                   PLAIN(i, hypergeometric, 100, 30, 40),
                                   PLAIN(i, negbinomial, 2.5, 0.3),
                                   PLAIN(i, negbinomial, 3, 0.001),
                                   PLAIN(i, negbinomial, 1e5, 1e-3),
                                   PLAIN(i, poisson, 3, 0u),
                                   PLAIN(i, poisson, 300, 0u),
                                   PLAIN(i, poisson, 3, 1u),
                                   PLAIN(i, poisson, 300, 1u),
                                   PLAIN(i, poissonv, means()),
                                   PLAIN(i, multinomial, 50, 2, kOutcomes, 0u),
                                   PLAIN(i, multinomial, 50, 2, kOutcomes, 1u)};
  all.push_back({"i_words", [](orvik_stream* s, int64_t n, void* r, int32_t threads) {
                   auto* const words = static_cast<uint32_t*>(r);
                   return threads < 0 ? orvik_i_words(s, n, words) : orvik_i_words_threads(s, n, words, threads);
                 }});
  return all;
}

std::vector<Distribution> everything() {
  auto all = Forms<double>::all();
  for (auto& more : {Forms<float>::all(), integers()}) all.insert(all.end(), more.begin(), more.end());
  return all;
}

TEST(Draws, AnyNumberOfThreadsDrawsTheSameNumbersAndLeavesTheSameStream) {
  constexpr int64_t n = 3001;
  for (const int32_t generator : kGenerators) {
    for (const Distribution& d : everything()) {
      if (!d.splits) continue;
      const uint64_t seed = generator == ORVIK_SOBOL || generator == ORVIK_NIEDERREITER ? 3 : 12345;
      std::vector<double> want(n + 8, -7), got(n + 8);
      std::vector<uint32_t> after(50), after_got(50);
      Owned one(generator, seed);
      ASSERT_EQ(d.draw(one, n, want.data(), -1), ORVIK_SUCCESS) << d.name << " " << orvik_generator_name(generator);
      std::vector<double> next(50), next_got(50);
      ASSERT_EQ(orvik_d_gaussian(one, 50, next.data(), 0, 1, 1), ORVIK_SUCCESS);
      for (const int32_t threads : {1, 2, 3, 7, 0}) {
        Owned many(generator, seed);
        got.assign(n + 8, -7);
        ASSERT_EQ(d.draw(many, n, got.data(), threads), ORVIK_SUCCESS) << d.name;
        ASSERT_EQ(std::memcmp(want.data(), got.data(), want.size() * sizeof(double)), 0)
            << d.name << " of " << orvik_generator_name(generator) << ", " << threads << " threads";
        ASSERT_EQ(orvik_d_gaussian(many, 50, next_got.data(), 0, 1, 1), ORVIK_SUCCESS);
        ASSERT_EQ(next, next_got) << d.name << " of " << orvik_generator_name(generator) << ", " << threads
                                  << " threads";
      }
    }
  }
}

TEST(Draws, WithoutAFormForThreadsTheirNumberChangesNothing) {
  constexpr int64_t n = 1500;
  for (const Distribution& d : everything()) {
    std::vector<double> want, got(n);
    for (const int32_t threads : {1, 2, 3, 7}) {
      ASSERT_EQ(orvik_set_num_threads(threads), ORVIK_SUCCESS);
      Owned s;
      got.assign(n, -7);
      ASSERT_EQ(d.draw(s, n, got.data(), -1), ORVIK_SUCCESS) << d.name;
      if (threads == 1) want = got;
      ASSERT_EQ(std::memcmp(want.data(), got.data(), n * sizeof(double)), 0) << d.name << ", " << threads << " threads";
    }
  }
  orvik_set_num_threads(0);
}

TEST(Draws, FailingAllocationsLeaveNothingBehind) {
  constexpr int64_t n = 700;
  for (const Distribution& d : everything()) {
    Owned s;
    std::vector<double> want(n, -7), got(n, -7);
    {
      Owned once;
      ASSERT_EQ(d.draw(once, n, want.data(), -1), ORVIK_SUCCESS) << d.name;
    }
    for (int64_t fail = 1;; ++fail) {
      ASSERT_LT(fail, 100) << d.name;
      const int64_t before = live_allocations();
      orvik_stream* again = nullptr;
      ASSERT_EQ(orvik_stream_copy(&again, s), ORVIK_SUCCESS);
      fail_allocation_after(fail);
      const orvik_status status = d.draw(again, n, got.data(), -1);
      fail_allocation_after(0);
      if (status != ORVIK_SUCCESS) {
        EXPECT_EQ(status, ORVIK_QOR_NO_MEMORY) << d.name;
        EXPECT_EQ(got, std::vector<double>(n, -7)) << d.name;
        EXPECT_EQ(d.draw(again, n, got.data(), -1), ORVIK_SUCCESS) << d.name;  // no number was lost
      }
      EXPECT_EQ(std::memcmp(want.data(), got.data(), n * sizeof(double)), 0) << d.name << ", allocation " << fail;
      got.assign(n, -7);
      orvik_stream_delete(again);
      EXPECT_EQ(live_allocations(), before) << d.name;
      if (status == ORVIK_SUCCESS) break;
    }
  }
}

TEST(Draws, AWaitingNumberOfAPairIsNotLostToThreads) {
  Owned one, many;
  std::vector<double> want(1003), got(1003);
  double first;
  for (orvik_stream* s : {one.s, many.s}) ASSERT_EQ(orvik_d_gaussian(s, 1, &first, 0, 1, 1), ORVIK_SUCCESS);
  ASSERT_EQ(orvik_d_gaussian(one, 1003, want.data(), 0, 1, 1), ORVIK_SUCCESS);
  ASSERT_EQ(orvik_d_gaussian_threads(many, 1003, got.data(), 0, 1, 1, 3), ORVIK_SUCCESS);
  EXPECT_EQ(want, got);
}

TEST(Draws, AreTheKernels) {
  Owned s(ORVIK_MT19937, 77);
  OrvikStream kernel;
  const uint32_t seeds[] = {77, 0};
  ASSERT_EQ(__qorNewStreamEx(&kernel, ORVIK_BRNG_MT19937, 2, seeds), 0);
  double want[100], got[100];
  ASSERT_EQ(_qordRngGaussian(ORVIK_GAUSSIAN_INVERSE, kernel, 100, want, 1, 2), 0);
  ASSERT_EQ(orvik_d_normal(s, 100, got, 1, 2), ORVIK_SUCCESS);
  EXPECT_EQ(std::memcmp(want, got, sizeof want), 0);
  ASSERT_EQ(_qordRngGamma(0, kernel, 100, want, 0.7, 0, 1), 0);
  ASSERT_EQ(orvik_d_gamma(s, 100, got, 0.7, 0, 1), ORVIK_SUCCESS);
  EXPECT_EQ(std::memcmp(want, got, sizeof want), 0);
  uint32_t words[100], kernel_words[100];
  ASSERT_EQ(_qoriRngUniformBits32(0, kernel, 100, kernel_words), 0);
  ASSERT_EQ(orvik_i_words(s, 100, words), ORVIK_SUCCESS);
  EXPECT_EQ(std::memcmp(words, kernel_words, sizeof words), 0);
  int32_t counts[100], kernel_counts[100];
  ASSERT_EQ(_qoriRngNegbinomial(0, kernel, 100, kernel_counts, 2.5, 0.3), 0);
  ASSERT_EQ(orvik_i_negbinomial(s, 100, counts, 2.5, 0.3), ORVIK_SUCCESS);
  EXPECT_EQ(std::memcmp(counts, kernel_counts, sizeof counts), 0);
  for (const uint32_t method : {ORVIK_POISSON_REJECTION, ORVIK_POISSON_NORMAL}) {
    ASSERT_EQ(_qoriRngPoisson(method, kernel, 100, kernel_counts, 50), 0);
    ASSERT_EQ(orvik_i_poisson(s, 100, counts, 50, method), ORVIK_SUCCESS);
    EXPECT_EQ(std::memcmp(counts, kernel_counts, sizeof counts), 0);
  }
  ASSERT_EQ(_qoriRngPoissonV(0, kernel, 100, kernel_counts, means()), 0);
  ASSERT_EQ(orvik_i_poissonv(s, 100, counts, means()), ORVIK_SUCCESS);
  EXPECT_EQ(std::memcmp(counts, kernel_counts, sizeof counts), 0);
  for (const uint32_t method : {ORVIK_MULTINOMIAL_SEQUENTIAL, ORVIK_MULTINOMIAL_POISSON}) {
    ASSERT_EQ(_qoriRngMultinomial(method, kernel, 50, kernel_counts, 30, 2, kOutcomes), 0);
    ASSERT_EQ(orvik_i_multinomial(s, 50, counts, 30, 2, kOutcomes, method), ORVIK_SUCCESS);
    EXPECT_EQ(std::memcmp(counts, kernel_counts, sizeof counts), 0);
    for (int row = 0; row < 50; ++row) ASSERT_EQ(counts[2 * row] + counts[2 * row + 1], 30);
  }
  __qorDeleteStream(&kernel);
}

TEST(Draws, WordsOfEveryGeneratorHaveThirtyTwoGoodBits) {
  for (const int32_t generator : kGenerators) {
    const bool points = generator == ORVIK_SOBOL || generator == ORVIK_NIEDERREITER;
    Owned s(generator, points ? 1 : 99991);
    std::vector<uint32_t> words(4096);
    ASSERT_EQ(orvik_i_words(s, 4096, words.data()), ORVIK_SUCCESS) << orvik_generator_name(generator);
    for (int bit = points ? 21 : 0; bit < 32; ++bit) {
      int ones = 0;
      for (const uint32_t w : words) ones += static_cast<int>(w >> bit & 1);
      EXPECT_NEAR(ones, 2048, 230) << orvik_generator_name(generator) << " bit " << bit;  // 7 sigma
    }
  }
}

#define EXPECT_REFUSED(...)                                    \
  do {                                                         \
    EXPECT_EQ(__VA_ARGS__, ORVIK_ERROR_BAD_PARAMETER);         \
    EXPECT_EQ(image(s), before) << "the stream must not move"; \
    EXPECT_EQ(r[0], -7);                                       \
  } while (0)

TEST(Draws, BadParametersLeaveTheStreamUntouched) {
  Owned s;
  const std::vector<char> before = image(s);
  double r[4] = {-7};
  const double bad_scale[] = {0, -1, kNan, kInf, -kInf};
  const double bad_place[] = {kNan, kInf, -kInf};
  EXPECT_REFUSED(orvik_d_uniform(s, 4, r, 1, 1));
  EXPECT_REFUSED(orvik_d_uniform(s, 4, r, 2, 1));
  EXPECT_REFUSED(orvik_d_uniform(s, 4, r, -1.7e308, 1.7e308));
  EXPECT_REFUSED(orvik_d_uniform(s, 4, r, -kInf, 0));
  EXPECT_REFUSED(orvik_d_uniform(s, 4, r, 0, kInf));
  EXPECT_REFUSED(orvik_d_uniform(s, 4, r, kNan, 1));
  EXPECT_REFUSED(orvik_d_uniform_threads(s, 4, r, 2, 1, 2));
  for (const double scale : bad_scale) {
    EXPECT_REFUSED(orvik_d_normal(s, 4, r, 0, scale));
    EXPECT_REFUSED(orvik_d_normal_threads(s, 4, r, 0, scale, 2));
    EXPECT_REFUSED(orvik_d_gaussian(s, 4, r, 0, scale, 0));
    EXPECT_REFUSED(orvik_d_cauchy(s, 4, r, 0, scale));
    EXPECT_REFUSED(orvik_d_exponential(s, 4, r, 0, scale));
    EXPECT_REFUSED(orvik_d_gumbel(s, 4, r, 0, scale));
    EXPECT_REFUSED(orvik_d_laplace(s, 4, r, 0, scale));
    EXPECT_REFUSED(orvik_d_rayleigh(s, 4, r, 0, scale));
    EXPECT_REFUSED(orvik_d_weibull(s, 4, r, scale, 0, 1));
    EXPECT_REFUSED(orvik_d_weibull(s, 4, r, 1, 0, scale));
    EXPECT_REFUSED(orvik_d_lognormal(s, 4, r, 0, scale, 0, 1, 0));
    EXPECT_REFUSED(orvik_d_lognormal(s, 4, r, 0, 1, 0, scale, 0));
    EXPECT_REFUSED(orvik_d_gamma(s, 4, r, scale, 0, 1));
    EXPECT_REFUSED(orvik_d_gamma(s, 4, r, 1, 0, scale));
    EXPECT_REFUSED(orvik_d_beta(s, 4, r, scale, 1, 0, 1));
    EXPECT_REFUSED(orvik_d_beta(s, 4, r, 1, scale, 0, 1));
    EXPECT_REFUSED(orvik_d_beta(s, 4, r, 1, 1, 0, scale));
  }
  for (const double place : bad_place) {
    EXPECT_REFUSED(orvik_d_normal(s, 4, r, place, 1));
    EXPECT_REFUSED(orvik_d_cauchy(s, 4, r, place, 1));
    EXPECT_REFUSED(orvik_d_exponential(s, 4, r, place, 1));
    EXPECT_REFUSED(orvik_d_lognormal(s, 4, r, place, 1, 0, 1, 0));
    EXPECT_REFUSED(orvik_d_lognormal(s, 4, r, 0, 1, place, 1, 0));
    EXPECT_REFUSED(orvik_d_gamma(s, 4, r, 1, place, 1));
    EXPECT_REFUSED(orvik_d_beta(s, 4, r, 1, 1, place, 1));
  }
  EXPECT_REFUSED(orvik_d_gaussian(s, 4, r, 0, 1, 3));
  EXPECT_REFUSED(orvik_d_lognormal(s, 4, r, 0, 1, 0, 1, 2));
  EXPECT_REFUSED(orvik_d_chisquare(s, 4, r, 0));
  EXPECT_REFUSED(orvik_d_chisquare(s, 4, r, -3));
  EXPECT_REFUSED(orvik_d_normal_threads(s, 4, r, 0, 1, -1));
  auto* const i = reinterpret_cast<int32_t*>(r);
  EXPECT_REFUSED(orvik_i_uniform(s, 4, i, 3, 3));
  EXPECT_REFUSED(orvik_i_uniform(s, 4, i, 4, 3));
  for (const double p : {-0.1, 1.1, kNan, kInf}) {
    EXPECT_REFUSED(orvik_i_bernoulli(s, 4, i, p));
    EXPECT_REFUSED(orvik_i_geometric(s, 4, i, p));
    EXPECT_REFUSED(orvik_i_binomial(s, 4, i, 10, p));
  }
  EXPECT_REFUSED(orvik_i_geometric(s, 4, i, 0));
  EXPECT_REFUSED(orvik_i_geometric(s, 4, i, 1));
  EXPECT_REFUSED(orvik_i_binomial(s, 4, i, -1, 0.5));
  EXPECT_REFUSED(orvik_i_hypergeometric(s, 4, i, -1, 0, 0));
  EXPECT_REFUSED(orvik_i_hypergeometric(s, 4, i, 10, 11, 0));
  EXPECT_REFUSED(orvik_i_hypergeometric(s, 4, i, 10, 0, 11));
  EXPECT_REFUSED(orvik_i_hypergeometric(s, 4, i, 10, -1, 0));
  for (const double a : bad_scale) EXPECT_REFUSED(orvik_i_negbinomial(s, 4, i, a, 0.5));
  for (const double p : {-0.1, 0.0, 0x1p-54, 1.1, kNan, kInf}) EXPECT_REFUSED(orvik_i_negbinomial(s, 4, i, 1, p));
  EXPECT_REFUSED(orvik_i_negbinomial(s, 4, i, 1e300, 1e-10));  // its mean has no number
  for (const double lambda : {0.0, -1.0, 0x1p31, kNan, kInf}) {
    const double lambdas[] = {1, 2, 3, lambda};
    EXPECT_REFUSED(orvik_i_poisson(s, 4, i, lambda, 0));
    EXPECT_REFUSED(orvik_i_poissonv(s, 4, i, lambdas));
  }
  EXPECT_REFUSED(orvik_i_poisson(s, 4, i, 1, 2));
  for (const double p : {-0.1, 0.247, 0.253, kNan, kInf}) {
    const double outcomes[] = {0.5, 0.25, p};
    EXPECT_REFUSED(orvik_i_multinomial(s, 1, i, 10, 3, outcomes, 0));
  }
  EXPECT_REFUSED(orvik_i_multinomial(s, 1, i, -1, 2, kOutcomes, 0));
  EXPECT_REFUSED(orvik_i_multinomial(s, 1, i, 10, 0, kOutcomes, 0));
  EXPECT_REFUSED(orvik_i_multinomial(s, 1, i, 10, -1, kOutcomes, 0));
  EXPECT_REFUSED(orvik_i_multinomial(s, 1, i, 10, 2, kOutcomes, 2));
  const double mean[] = {0, 0}, factor[] = {1, 0, kNan, 1}, good[] = {1, 0, 0.5, 1};
  EXPECT_REFUSED(orvik_d_multivariate_normal(s, 2, r, 2, ORVIK_FACTOR_FULL, mean, factor, 0));
  EXPECT_REFUSED(orvik_d_multivariate_normal(s, 2, r, 2, 3, mean, good, 0));
  EXPECT_REFUSED(orvik_d_multivariate_normal(s, 2, r, 0, 0, mean, good, 0));
  EXPECT_REFUSED(orvik_d_multivariate_normal(s, 2, r, 2, 0, bad_place, good, 0));
  EXPECT_REFUSED(orvik_d_multivariate_normal(s, 2, r, 2, 0, mean, good, 3));
}

TEST(Draws, BadLengthsNullArraysAndStreams) {
  Owned s;
  double r[2] = {-7};
  EXPECT_EQ(orvik_d_uniform(s, -1, r, 0, 1), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_uniform(s, INT64_MAX, r, 0, 1), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_uniform(s, 2, nullptr, 0, 1), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_uniform(s, 0, nullptr, 0, 1), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_d_uniform_threads(s, 0, nullptr, 0, 1, 3), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_d_uniform(nullptr, 2, r, 0, 1), ORVIK_ERROR_BAD_STREAM);
  const double mean[] = {0, 0};
  EXPECT_EQ(orvik_d_multivariate_normal(s, 1, r, 2, 0, mean, nullptr, 0), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_multivariate_normal(s, 1, r, 2, 0, nullptr, mean, 0), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_multivariate_normal(s, 1, r, 2, 0, mean, r, 0), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_d_multivariate_normal(s, 1, r, 2, 2, r + 1, mean, 0), ORVIK_ERROR_OVERLAP);
  auto* const i = reinterpret_cast<int32_t*>(r);
  EXPECT_EQ(orvik_i_poissonv(s, 2, i, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_i_poissonv(s, 0, i, nullptr), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_i_poissonv(s, INT64_MAX, i, mean), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_i_poissonv(s, 2, i, r), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_i_multinomial(s, 1, i, 5, 2, nullptr, 0), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_i_multinomial(s, 1, i, 5, 2, r, 0), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_i_multinomial(s, INT64_MAX / 2, i, 5, 2, kOutcomes, 0), ORVIK_ERROR_BAD_LENGTH);
  for (const Distribution& d : everything()) {
    for (const int32_t threads : {-1, 2}) {
      EXPECT_EQ(d.draw(nullptr, 2, r, threads), ORVIK_ERROR_BAD_STREAM) << d.name;
      EXPECT_EQ(d.draw(s, -2, r, threads), ORVIK_ERROR_BAD_LENGTH) << d.name;
      EXPECT_EQ(d.draw(s, 2, nullptr, threads), ORVIK_ERROR_NULL_POINTER) << d.name;
      EXPECT_EQ(d.draw(s, 0, nullptr, threads), ORVIK_SUCCESS) << d.name;
    }
  }
  EXPECT_EQ(r[0], -7);
}

TEST(Draws, ASequenceThatWouldEndIsRefusedUnchanged) {
  Owned s(ORVIK_SOBOL, 1);
  ASSERT_EQ(orvik_stream_skip(s, 0xFFFFFFF0u), ORVIK_SUCCESS);
  std::vector<double> r(4096, -7);
  EXPECT_EQ(orvik_d_uniform_threads(s, 4096, r.data(), 0, 1, 3), ORVIK_QOR_PERIOD_ELAPSED);
  EXPECT_EQ(r, std::vector<double>(4096, -7));
  EXPECT_EQ(orvik_d_uniform(s, 5, r.data(), 0, 1), ORVIK_SUCCESS);
}

}  // namespace
