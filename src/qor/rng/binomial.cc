// Binomial: inversion where the mean of the rarer outcome is below 30, rejection under a hat elsewhere
// (Kachitvichyanukul, Schmeiser 1988, BINV and BTPE).
#include <cmath>
#include <limits>

#include "orvik/qor.h"
#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/cumulative.h"
#include "qor/rng/entry.h"
#include "qor/rng/hat.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/setup.h"
#include "qor/rng/stirling.h"
#include "qor/rng/uniforms.h"
#include "qor/rng/vectors.h"
#include "qor/stream/restore.h"

namespace orvik::qor {
namespace {

constexpr int32_t kChunk = 5;
constexpr double kInversionBelow = 30;
constexpr int32_t kWalkEnd = 110;  // P(X > 110) is below 10^-24 where the mean is below 30

struct Setup {
  struct Key {
    double trials, p;
    bool operator==(const Key&) const = default;
    bool is_sane() const { return trials >= 0 && trials <= std::numeric_limits<int32_t>::max() && p >= 0 && p <= 1; }
    static Key never() { return {std::numeric_limits<double>::quiet_NaN(), 0}; }
  };
  Key key;
  double p, q;  // of the rarer outcome, and of the other one
  // Inversion: probabilities f0, f0 (g / 1 - r), ... by a walk, and their table.
  double f0, r, g;
  int32_t last;
  CumulativeTable<kWalkEnd + 2> table;
  TriangleHat hat;

  bool by_inversion() const { return key.trials * p < kInversionBelow; }
};

void build(Setup& s, const Setup::Key& key) {
  s = {};
  const double n = key.trials, p = key.p <= 0.5 ? key.p : 1 - key.p, q = 1 - p;
  s.p = p;
  s.q = q;
  if (n * p < kInversionBelow) {
    s.f0 = kernels::powx.high(q, n);
    s.r = p / q;
    s.g = s.r * (n + 1);
    s.last = n < kWalkEnd ? static_cast<int32_t>(n) : kWalkEnd;
    double f = s.f0;
    s.table.fill(s.last, [&](int32_t k) { return k == 0 ? f : f *= s.g / k - s.r; });
    s.table.end_at(s.last + 1);
    return;
  }
  const double ffm = n * p + p, m = std::floor(ffm), variance = n * p * q;
  const double half = std::floor(2.195 * kernels::sqrt.high(variance) - 4.6 * q) + 0.5;
  const double xl = m + 0.5 - half, xr = m + 0.5 + half, c = 0.134 + 20.5 / (15.3 + m);
  const double left = (ffm - xl) / (ffm - xl * p), right = (xr - ffm) / (xr * q);
  s.hat.set(m, half, c, left * (1 + 0.5 * left), right * (1 + 0.5 * right), c, c);
  s.hat.set_near([&](double k) { return k < n ? (n - k) / (k + 1) * (p / q) : 0; });
}

// The walk from 0: u less the probabilities until one is not below what is left. last + 1: past the end.
int32_t walk(const Setup& s, double u) {
  double f = s.f0;
  int32_t k = 0;
  while (k <= s.last && u > f) {
    u -= f;
    ++k;
    f *= s.g / k - s.r;
  }
  return k;
}

// The same by the table: found(i, k). Where u is within the walk's rounding errors of an entry the walk itself decides.
template <class Found>
void invert(const Setup& s, int32_t n, const double* u, Found found) {
  constexpr double kNear = 1e-13;
  s.table.find(n, u, [&](int32_t i, int32_t k) {
    const double* const c = s.table.below_or_at;
    // Without a branch on k: of few trials nothing foresees whether it is 0.
    const int32_t before = k > 0;
    const int32_t near = (c[k] - u[i] < kNear) | (before & (u[i] - c[k - before] < kNear));
    found(i, near ? walk(s, u[i]) : k);
  });
}

void inversion(Uniforms<float>& uniforms, const Setup& s, int32_t n, int32_t* r) {
  float w[kBlock];
  double u[kBlock];
  int32_t k[kBlock];
  for_each_block(n, [&](int32_t first, int32_t count) {
    if (!uniforms.draw(count, w)) return false;
    for (int32_t i = 0; i < count; ++i) u[i] = static_cast<double>(w[i]);
    invert(s, count, u, [&](int32_t i, int32_t found) { k[i] = found; });
    for (int32_t i = 0; i < count; ++i) {
      while (k[i] > s.last) {
        double again;
        if (!uniforms.took(fill_uniform(uniforms.stream(), 1, &again, 0.0, 1.0))) return false;
        invert(s, 1, &again, [&](int32_t, int32_t found) { k[i] = found; });
      }
      r[first + i] = k[i];
    }
    return true;
  });
}

struct Target {
  double n, m, odds, highest, variance;
  explicit Target(const Setup& s)
      : n(s.key.trials), m(s.hat.mode), odds(s.p / s.q), highest(s.key.trials), variance(n * s.p * s.q) {}

  template <class X>
  X cut(X y) const {
    return y;
  }

  // ln of m! (n - m)! / (y! (n - y)!) odds^(y - m)
  void log_ratio(int32_t count, const double* y, double* r) const {
    constexpr int32_t kMost = 1024;
    using V = F64;
    double a[kMost], b[kMost], c[kMost];
    const double f1 = m + 1, z1 = n - m + 1;
    for_each_vector<V>(count, [&](auto at) {
      const V x1 = at.load(y) + V(1), w1 = V(n) - at.load(y) + V(1);
      at.store(a, V(f1) / x1);
      at.store(b, V(z1) / w1);
      at.store(c, w1 * V(odds) / x1);
    });
    kernels::ln.call(Level::high, count, a, a);
    kernels::ln.call(Level::high, count, b, b);
    kernels::ln.call(Level::high, count, c, c);
    const double rest = stirling_rest(f1) + stirling_rest(z1);
    for_each_vector<V>(count, [&](auto at) {
      const V k = at.load(y);
      const V sum = V(m + 0.5) * at.load(a) + V(n - m + 0.5) * at.load(b) + (k - V(m)) * at.load(c) + V(rest);
      at.store(r, sum - stirling_rest(k + V(1)) - stirling_rest(V(n) - k + V(1)));
    });
  }
};

int32_t binomial(uint32_t, OrvikStream stream, int32_t n, int32_t* r, int32_t trials, double p) {
  if (trials == 0) {
    std::fill_n(r, n > 0 ? n : 0, 0);
    return ORVIK_QOR_OK;
  }
  const EntryBracket bracket(ln_of_zero<double>);
  int32_t status;
  const Setup* const s = cached<Setup>(stream, kChunk, {static_cast<double>(trials), p}, &status, build);
  if (!s) return status;
  Uniforms<float> uniforms(stream);
  if (s->by_inversion()) {
    inversion(uniforms, *s, n, r);
  } else {
    const Target target(*s);
    until_accepted(n, r, HatBatch<Target>::kCandidates, HatBatch<Target>(uniforms, s->hat, target));
  }
  if (p > 0.5 && uniforms.status() >= 0) transform(n, r, [trials](int32_t k) { return trials - k; });
  return uniforms.status();
}

}  // namespace

int32_t restore_binomial(OrvikStream stream) {
  const EntryBracket bracket(ln_of_zero<double>);
  rebuild<Setup>(stream, kChunk, build);
  return ORVIK_QOR_OK;
}

}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qoriRngBinomial, binomial,
                (uint32_t method, OrvikStream stream, int32_t n, int32_t* r, int32_t ntrial, double p),
                (method, stream, n, r, ntrial, p))
