// Poisson: inversion by a table where the mean is below 27, rejection under a hat elsewhere (Schmeiser,
// Kachitvichyanukul 1981, PTPE); or normal numbers and a polynomial.
#include <algorithm>
#include <cmath>
#include <limits>

#include "orvik/qor.h"
#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/cumulative.h"
#include "qor/rng/entry.h"
#include "qor/rng/gaussian.h"
#include "qor/rng/hat.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/poisson_counts.h"
#include "qor/rng/setup.h"
#include "qor/rng/stirling.h"
#include "qor/rng/uniforms.h"
#include "qor/rng/vectors.h"
#include "qor/stream/restore.h"

namespace orvik::qor {
namespace {

constexpr int32_t kChunk = 3;
constexpr double kTableBelow = 27;
constexpr int32_t kTableEnd = 110;  // P(X > 110) is below 10^-28 where the mean is below 27

struct Setup {
  struct Key {
    double lambda;
    bool operator==(const Key&) const = default;
    bool is_sane() const { return lambda > 0 && lambda <= std::numeric_limits<int32_t>::max(); }
    static Key never() { return {std::numeric_limits<double>::quiet_NaN()}; }
  };
  Key key;
  union {
    CumulativeTable<kTableEnd + 1> table;
    TriangleHat hat;
  };
};

void build(Setup& s, const Setup::Key& key) {
  s = {};
  const double lambda = key.lambda;
  if (lambda < kTableBelow) {
    double f = kernels::exp.high(-lambda);
    s.table.fill(kTableEnd, [&](int32_t k) { return k == 0 ? f : f *= lambda / k; });
    s.table.end_at(kTableEnd);
    return;
  }
  const double m = std::floor(lambda), half = std::floor(2.195 * kernels::sqrt.high(lambda) - 2.2) + 0.5;
  const double xl = m + 0.5 - half, xr = m + 0.5 + half, c = 0.133 + 8.56 / (6.83 + lambda);
  const double left = (lambda - xl) / lambda, right = (xr - lambda) / xr;
  s.hat.set(m, half, c, left * (1 + 0.5 * left), right * (1 + 0.5 * right), 0.109 + 8.25 / (10.86 + lambda), c);
  s.hat.set_near([&](double k) { return lambda / (k + 1); });
}

bool by_table(Uniforms<double>& uniforms, const Setup& s, int32_t n, int32_t* r) {
  double u[kBlock];
  return for_each_block(n, [&](int32_t first, int32_t count) {
    if (!uniforms.draw(count, u)) return false;
    s.table.find(count, u, [&](int32_t i, int32_t k) { r[first + i] = k; });
    return true;
  });
}

struct Target {
  double lambda, m, highest = std::numeric_limits<double>::infinity(), variance;
  explicit Target(const Setup& s) : lambda(s.key.lambda), m(s.hat.mode), variance(lambda) {}

  template <class X>
  X cut(X y) const {
    return min(X(std::numeric_limits<int32_t>::max()), y);
  }

  // ln of m! / y! lambda^(y - m)
  void log_ratio(int32_t count, const double* y, double* r) const {
    constexpr int32_t kMost = 1024;
    using V = F64;
    double a[kMost], b[kMost];
    for_each_vector<V>(count, [&](auto at) {
      const V next = at.load(y) + V(1);
      at.store(a, V(m + 1) / next);
      at.store(b, V(lambda) / next);
    });
    kernels::ln.call(Level::high, count, a, a);
    kernels::ln.call(Level::high, count, b, b);
    const double rest = stirling_rest(m + 1);
    for_each_vector<V>(count, [&](auto at) {
      const V k = at.load(y), sum = V(m + 0.5) * at.load(a) + (k - V(m)) * (at.load(b) + V(1)) + V(rest);
      at.store(r, sum - stirling_rest(k + V(1)));
    });
  }
};

int32_t by_rejection(OrvikStream stream, const Setup& s, int32_t n, int32_t* r) {
  Uniforms<float> uniforms(stream);
  const Target target(s);
  until_accepted(n, r, HatBatch<Target>::kCandidates, HatBatch<Target>(uniforms, s.hat, target));
  return uniforms.status();
}

// Normal numbers back to uniforms, for the table.
bool by_normals_and_table(Uniforms<double>& uniforms, const Setup& s, int32_t n, int32_t* r) {
  float z[kBlock];
  double u[kBlock];
  return for_each_block(n, [&](int32_t first, int32_t count) {
    if (!uniforms.took(gaussian<float>(kInverse, uniforms.stream(), count, z, 0, 1))) return false;
    for (int32_t i = 0; i < count; ++i) u[i] = static_cast<double>(z[i]) / Precision<double>::kSqrtTwo;
    kernels::erf.call(Level::low, count, u, u);
    transform(count, u, [](double x) { return 0.5 + 0.5 * x; });
    s.table.find(count, u, [&](int32_t i, int32_t k) { r[first + i] = k; });
    return true;
  });
}

bool by_normals(Uniforms<double>& uniforms, double mean, int32_t n, int32_t* r) {
  double means[kCounts], counts[kCounts];
  std::fill_n(means, std::clamp(n, 0, kCounts), mean);
  return for_each_block<kCounts>(n, [&](int32_t first, int32_t count) {
    if (!counts_of_drawn_normals(uniforms, count, means, counts)) return false;
    for_each_vector<F64>(count, [&](auto at) { at.give(r + first + at.first, at.load(counts)); });
    return true;
  });
}

int32_t poisson(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, double lambda) {
  if (method != ORVIK_POISSON_REJECTION && method != ORVIK_POISSON_NORMAL) return ORVIK_QOR_BAD_METHOD;
  const EntryBracket bracket(gaussian_limits<double>);
  Uniforms<double> uniforms(stream);
  const bool normal = method == ORVIK_POISSON_NORMAL;
  if (normal && !(lambda < kTableBelow)) {
    static_cast<void>(by_normals(uniforms, lambda, n, r));
    return uniforms.status();
  }
  int32_t status;
  const Setup* const s = cached<Setup>(stream, kChunk, {lambda}, &status, build);
  if (!s) return status;
  if (!(lambda < kTableBelow)) return by_rejection(stream, *s, n, r);
  static_cast<void>(normal ? by_normals_and_table(uniforms, *s, n, r) : by_table(uniforms, *s, n, r));
  return uniforms.status();
}

}  // namespace

int32_t restore_poisson(OrvikStream stream) {
  const EntryBracket bracket(gaussian_limits<double>);
  rebuild<Setup>(stream, kChunk, build);
  return ORVIK_QOR_OK;
}

}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qoriRngPoisson, poisson, (uint32_t method, OrvikStream stream, int32_t n, int32_t* r, double lambda),
                (method, stream, n, r, lambda))
