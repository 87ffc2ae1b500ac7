// Multinomial: binomial numbers of what is left, outcome by outcome; or Poisson numbers corrected to the sum.
#include <algorithm>
#include <cmath>

#include "orvik/qor.h"
#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/entry.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/poisson_counts.h"
#include "qor/rng/stirling.h"
#include "qor/rng/uniforms.h"
#include "serv/memory.h"

namespace orvik::qor {
namespace {

// Probabilities sum to 1 within this much; their sum where they are sound, else a negative number.
constexpr double kTolerance = 0.001;
double sum_of(int32_t k, const double* p) {
  double sum = 0;
  for (int32_t j = 0; j < k; ++j) {
    if (!(p[j] >= 0)) return -1;
    sum += p[j];
  }
  return sum >= 1 - kTolerance && sum <= 1 + kTolerance ? sum : -1;
}

// Probabilities of the most probable numbers of successes m of `left` trials: by Stirling's series, so that neither the
// factorials nor the powers leave their type.
void highest_probabilities(int32_t n, const double* left, double p, double* m, double* f) {
  double a[kBlock], b[kBlock], c[kBlock];
  const double q = 1 - p;
  for (int32_t i = 0; i < n; ++i) {
    m[i] = std::min(std::floor((left[i] + 1) * p), left[i]);
    const double x = left[i] + 1, y = m[i] + 1, z = left[i] - m[i] + 1;
    a[i] = p * x / y;
    b[i] = q * x / z;
    c[i] = x / (y * z);
  }
  kernels::ln.call(Level::high, n, a, a);
  kernels::ln.call(Level::high, n, b, b);
  kernels::ln.call(Level::high, n, c, c);
  for (int32_t i = 0; i < n; ++i)
    f[i] = m[i] * a[i] + (left[i] - m[i]) * b[i] + 0.5 * c[i] + (1 - kHalfLnTwoPi) + stirling_rest(left[i] + 1) -
           stirling_rest(m[i] + 1) - stirling_rest(left[i] - m[i] + 1);
  kernels::exp.call(Level::high, n, f, f);
}

// Inversion from the most probable number m on, upwards and downwards in turns: every number has a piece of the unit
// interval as long as its probability.
double cut(double u, double n, double odds, double m, double f) {
  constexpr double kNothing = 1e-30;
  if (u <= f) return m;
  u -= f;
  double up = f, down = f;
  for (double higher = m, lower = m; up > kNothing || down > kNothing;) {
    up *= (n - higher) / (higher + 1) * odds;
    ++higher;
    if (u <= up && up > 0) return higher;
    u -= up;
    down *= lower / ((n - lower + 1) * odds);
    --lower;
    if (u <= down && down > 0) return lower;
    u -= down;
  }
  return m;
}

// Outcome by outcome, a uniform for each row; the last outcome of a row holds what is left for the outcomes to come.
int32_t sequential(OrvikStream stream, int32_t n, int32_t* r, int32_t trials, int32_t k, const double* p, double sum) {
  const serv::Block<double> u(static_cast<uint64_t>(n));
  if (!u) return ORVIK_QOR_NO_MEMORY;
  const EntryBracket bracket(ln_of_zero<double>);
  Uniforms<double> uniforms(stream);
  const auto row = [&](int32_t i) { return r + static_cast<int64_t>(i) * k; };
  if (k == 1)
    for (int32_t i = 0; i < n; ++i) *row(i) = trials;
  int32_t last = k - 1;  // that has a probability: it takes all, whatever sums are rounded to
  while (p[last] == 0) --last;
  for (int32_t j = 0; j + 1 < k; ++j) {
    if (!uniforms.draw(n, u.get())) return uniforms.status();
    if (j == 0)
      for (int32_t i = 0; i < n; ++i) row(i)[k - 1] = trials;
    const double share = j != last && p[j] < sum ? p[j] / sum : p[j] > 0;
    sum -= p[j];
    for_each_block(n, [&](int32_t first, int32_t count) {
      double left[kBlock], m[kBlock], f[kBlock];
      for (int32_t i = 0; i < count; ++i) left[i] = row(first + i)[k - 1];
      if (share > 0 && share < 1) highest_probabilities(count, left, share, m, f);
      for (int32_t i = 0; i < count; ++i) {
        const double taken = share > 0 && share < 1
                                 ? cut(u[static_cast<uint64_t>(first + i)], left[i], share / (1 - share), m[i], f[i])
                                 : share * left[i];
        row(first + i)[j] = static_cast<int32_t>(taken);
        row(first + i)[k - 1] = static_cast<int32_t>(left[i] - taken);
      }
      return true;
    });
  }
  return uniforms.status();
}

// Of Poisson numbers the sum is free, and given the sum they are multinomial: trials that are missing are added, those
// that are too many are taken from all alike, so that the row has exactly the distribution asked for.
bool correct(Uniforms<double>& uniforms, int32_t* row, int32_t trials, int32_t k, const double* p, double sum) {
  int64_t drawn = 0;
  for (int32_t j = 0; j < k; ++j) drawn += row[j];
  double u[kBlock];
  for (int64_t missing = trials - drawn; missing > 0;) {
    const auto count = static_cast<int32_t>(std::min<int64_t>(missing, kBlock));
    if (!uniforms.draw(count, u)) return false;
    for (int32_t i = 0; i < count; ++i) {
      double place = u[i] * sum;
      int32_t j = 0, last = 0;  // rounding may lead behind the last outcome that has a probability
      for (; j < k; place -= p[j], ++j) {
        if (p[j] > 0) last = j;
        if (place < p[j]) break;
      }
      ++row[j < k ? j : last];
    }
    missing -= count;
  }
  while (drawn > trials) {
    const auto count = static_cast<int32_t>(std::min<int64_t>(drawn - trials, kBlock));
    if (!uniforms.draw(count, u)) return false;
    for (int32_t i = 0; i < count; ++i, --drawn) {
      int64_t place = std::min(static_cast<int64_t>(u[i] * static_cast<double>(drawn)), drawn - 1);
      int32_t j = 0;
      while (place >= row[j]) place -= row[j++];
      --row[j];
    }
  }
  return true;
}

int32_t by_poisson(OrvikStream stream, int32_t n, int32_t* r, int32_t trials, int32_t k, const double* p, double sum) {
  const serv::Block<double> means(static_cast<uint64_t>(k));
  if (!means) return ORVIK_QOR_NO_MEMORY;
  for (int32_t j = 0; j < k; ++j) means[static_cast<uint64_t>(j)] = trials * p[j];
  Uniforms<double> uniforms(stream);
  for (int32_t i = 0; i < n; ++i, r += k)
    if (!uniforms.took(poisson_v(0, stream, k, r, means.get())) || !correct(uniforms, r, trials, k, p, sum)) break;
  return uniforms.status();
}

int32_t multinomial(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, int32_t trials, int32_t k,
                    const double* p) {
  if (trials == 0) {
    if (n > 0 && k > 0) std::fill_n(r, static_cast<int64_t>(n) * k, 0);
    return ORVIK_QOR_OK;
  }
  if (k < 1) return ORVIK_QOR_BAD_PROBABILITIES;
  const double sum = sum_of(k, p);
  if (sum < 0) return ORVIK_QOR_BAD_PROBABILITIES;
  if (method != ORVIK_MULTINOMIAL_SEQUENTIAL && method != ORVIK_MULTINOMIAL_POISSON) return ORVIK_QOR_BAD_METHOD;
  if (n < 1) return ORVIK_QOR_OK;
  const bool is_sequential = method == ORVIK_MULTINOMIAL_SEQUENTIAL;
  return (is_sequential ? sequential : by_poisson)(stream, n, r, trials, k, p, sum);
}

}  // namespace
}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qoriRngMultinomial, multinomial,
                (uint32_t method, OrvikStream stream, int32_t n, int32_t* r, int32_t ntrial, int32_t k,
                 const double* p),
                (method, stream, n, r, ntrial, k, p))
