// Negbinomial, a method for each region of t = (1 - p) / p:
//   mean a t from 2^31 / 200 on   Poisson numbers whose means are Gamma numbers
//   t below 100                   inversion by a walk over sums of probabilities
//   t above                       rejection under a table mountain; a up to 1 has its peak at 0 and a table of another
//   kind
#include <algorithm>
#include <cmath>
#include <limits>

#include "orvik/qor.h"
#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/cumulative.h"
#include "qor/rng/entry.h"
#include "qor/rng/gamma.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/mountain.h"
#include "qor/rng/peak.h"
#include "qor/rng/poisson_counts.h"
#include "qor/rng/setup.h"
#include "qor/rng/stirling.h"
#include "qor/rng/uniforms.h"
#include "qor/rng/vectors.h"
#include "qor/stream/restore.h"

namespace orvik::qor {
namespace {

constexpr int32_t kChunk = 4;
constexpr double kMixtureFrom = 10737418.24, kWalkBelow = 100;
constexpr int32_t kCandidates = 512;

struct Key {
  double a, p;
  bool operator==(const Key&) const = default;
  bool is_sane() const { return a > 0 && a <= std::numeric_limits<double>::max() && p > 0 && p <= 1; }
  static Key never() { return {std::numeric_limits<double>::quiet_NaN(), 0}; }

  double q() const { return 1 - p; }
  double t() const { return std::min((1 - p) / p, std::numeric_limits<double>::max()); }
  double mean() const { return a * t(); }
  double mode() const { return a > 1 ? std::floor((a - 1) * t()) : 0; }
};

// P(k + 1) / P(k)
template <class V>
V step(const Key& key, V k) {
  return V(key.q()) * (V(key.a) + k) / (k + V(1));
}

// Sums of probabilities at every `stride`-th number from `low` on, and the probabilities there.
struct Walk {
  static constexpr int32_t kEntries = 2048;
  double low, stride;
  int32_t last;
  CumulativeTable<kEntries, kEntries, uint16_t> table;
  double probability[kEntries];

  // Of at most kBlock uniforms.
  void find(const Key& key, int32_t n, const double* u, int32_t* r) const {
    using V = F64;
    double end[kBlock], sum[kBlock], f[kBlock];
    table.find(n, u, [&](int32_t i, int32_t entry) {
      const int32_t before = entry - (entry > 0);  // without a branch, which nothing would foresee
      end[i] = low + entry * stride;
      sum[i] = table.below_or_at[before];
      f[i] = probability[before];
    });
    for_each_vector<V>(n, [&](auto at) {
      const V high = at.load(end);
      V k = high;
      if (stride > 1) {  // from the entry before on
        V probability_at_k = at.load(f), below_or_at_k = at.load(sum);
        Mask<V> lanes = high > V(low);
        k = select(lanes, high - V(stride), high);
        do {
          probability_at_k = probability_at_k * step(key, k);
          below_or_at_k = below_or_at_k + probability_at_k;
          k = k + keep(lanes, V(1));
          lanes = lanes & (at.load(u) > below_or_at_k) & (k < high);
        } while (!none(lanes));
      }
      at.give(r + at.first, k);
    });
  }
};

// Rejection: what ln Gamma has beyond its first orders at a, a + 1, ... and the hat.
constexpr int32_t kRests = 16;
struct Rejection {
  double mode;
  double rest[kRests];
  union {
    TableMountain mountain;
    PowerPeak peak;
  };
};

struct Setup {
  using Key = orvik::qor::Key;
  Key key;
  union {
    Walk walk;
    Rejection rejection;
  };
};

// P(0) = p^a may be too small for its type: the walk has its unit at the mode, and begins and ends where nothing is
// lost.
void build_walk(Walk& walk, const Key& key) {
  constexpr double kNothing = 1e-22;
  const double mode = key.mode();
  double low = mode, f = 1;
  while (low > 0 && f > kNothing) f /= step(key, --low);
  const double lowest = f;
  double high = low, total = f;
  while (high < mode || f > kNothing) total += f *= step(key, high++);
  walk.low = low;
  walk.stride = std::floor((high - low) / (Walk::kEntries - 1)) + 1;
  walk.last = static_cast<int32_t>(std::ceil((high - low) / walk.stride));
  f = lowest / total;
  double k = low;
  walk.table.fill(walk.last, [&](int32_t entry) {
    double sum = 0;
    if (entry == 0) sum = f;
    for (const double end = low + entry * walk.stride; k < end; ++k) sum += f *= step(key, k);
    walk.probability[entry] = f;
    return sum;
  });
  walk.table.end_at(walk.last);
}

// What ln Gamma(x) has beyond (x - 1/2) ln x - x + ln(2 pi) / 2, for any x > 0: by that at a larger number.
double gamma_rest(double x) {
  constexpr int32_t kUp = 12;
  double product = 1, far = x;
  for (; far < kUp; ++far) product *= far;
  if (far == x) return stirling_rest(x);
  const double by_far = (far - 0.5) * kernels::ln.high(far) - far + stirling_rest(far);
  return by_far - kernels::ln.high(product) - ((x - 0.5) * kernels::ln.high(x) - x);
}

// Logarithms of the probability of y by that of the mode.
class LogRatio {
 public:
  LogRatio(const Key& key, const Rejection& rejection) : key_(key), rejection_(rejection), mode_(rejection.mode) {}

  void operator()(int32_t n, const double* y, double* r) const {
    using V = F64;
    double x[kCandidates], k[kCandidates];
    const double a = key_.a, x0 = mode_ + a, k0 = mode_ + 1;
    const bool far = a <= 1;  // numbers of a long tail take many times the logarithm of what is next to 1
    for_each_vector<V>(n, [&](auto at) {
      const V number = at.load(y), beyond = number + V(a), next = number + V(1);
      at.store(x, beyond / V(x0));
      at.store(k, next / V(k0));
      at.store(r, (far ? V(a - 1) - V(key_.p) * beyond : V(key_.q()) * beyond) / next);
    });
    kernels::ln.call(Level::high, n, x, x);
    kernels::ln.call(Level::high, n, k, k);
    if (far)
      kernels::log1p.call(Level::high, n, r, r);
    else
      kernels::ln.call(Level::high, n, r, r);
    const double at_mode = first_lane(rest(F64(mode_))) - stirling_rest(k0);
    for_each_vector<V>(n, [&](auto at) {
      const V number = at.load(y), sum = V(x0 - 0.5) * at.load(x) - V(k0 - 0.5) * at.load(k) +
                                         (number - V(mode_)) * at.load(r) + rest(number);
      at.store(r, sum - stirling_rest(number + V(1)) - V(at_mode));
    });
  }
  double one(double y) const {
    double r[kWidth<F64>];
    (*this)(1, &y, r);
    return r[0];
  }

 private:
  F64 rest(F64 y) const {
    const M64 few = y < F64(kRests);
    const F64 far = stirling_rest(y + F64(key_.a));
    return none(few) ? far : select(few, gather(rejection_.rest, Indices(to_integer(keep(few, y)))), far);
  }
  const Key& key_;
  const Rejection& rejection_;
  double mode_;
};

// Above a = 1 the ratio of neighbours falls towards q.
void build_mountain(Rejection& rejection, const Key& key) {
  TableMountain& hat = rejection.mountain = {};
  hat.mode = rejection.mode;
  hat.highest = std::numeric_limits<int32_t>::max();
  const LogRatio log_ratio(key, rejection);
  const double half = std::floor(1.5 * kernels::sqrt.high(key.mean() / key.p));
  hat.xl = std::max(hat.mode - half, 0.0);
  hat.xr = hat.mode + half + 1;
  double left = 0, left_height = 0;
  if (hat.xl > 0) {
    left = kernels::ln.high(step(key, hat.xl - 1));
    left_height = kernels::exp.high(log_ratio.one(hat.xl));
  }
  const double right = -kernels::ln.high(step(key, hat.xr - 1));
  hat.set(left, left_height, right, kernels::exp.high(log_ratio.one(hat.xr - 1)));
}

// Up to a = 1 it rises towards q, and k!/Gamma(a + k) is above k^(1 - a) (Gautschi 1959), so that a power bounds the
// probabilities from 1 on. The table ends next to where the areas of table and tail together are least.
// Of a p that 1 - p hides the tail still falls.
void build_peak(Rejection& rejection, const Key& key) {
  constexpr double kMost = 0x1p1000;
  const double end = std::clamp(std::floor(0.8 * kernels::sqrt.high(1 - key.a) / key.p), 1.0, kMost);
  rejection.peak = {};
  rejection.peak.set(key.a, end, key.a * key.q(), -kernels::lgamma.high(key.a + 1), -kernels::log1p.high(-key.p));
}

void build_rejection(Rejection& rejection, const Key& key) {
  rejection.mode = key.mode();
  for (int32_t k = 0; k < kRests; ++k) rejection.rest[k] = gamma_rest(key.a + k);
  if (key.a > 1)
    build_mountain(rejection, key);
  else
    build_peak(rejection, key);
}

enum class Region { mixture, walk, mountain };
Region region(const Key& key) {
  if (!(key.mean() < kMixtureFrom)) return Region::mixture;
  return key.t() < kWalkBelow ? Region::walk : Region::mountain;
}

void build(Setup& s, const Key& key) {
  s = {};
  s.key = key;
  switch (region(key)) {
    case Region::mixture:
      return;
    case Region::walk:
      return build_walk(s.walk, key);
    case Region::mountain:
      return build_rejection(s.rejection, key);
  }
}

int32_t by_walk(OrvikStream stream, int32_t n, int32_t* r, const Setup& s) {
  Uniforms<double> uniforms(stream);
  double u[kBlock];
  for_each_block(n, [&](int32_t first, int32_t count) {
    if (!uniforms.draw(count, u)) return false;
    s.walk.find(s.key, count, u, r + first);
    return true;
  });
  return uniforms.status();
}

int32_t by_rejection(OrvikStream stream, int32_t n, int32_t* r, const Setup& s) {
  Uniforms<double> uniforms(stream);  // floats are coarser than a wide mountain
  const LogRatio log_ratio(s.key, s.rejection);
  if (s.key.a > 1)
    until_accepted(n, r, kCandidates,
                   MountainBatch<double, kCandidates, LogRatio>(uniforms, s.rejection.mountain, log_ratio));
  else
    until_accepted(n, r, kCandidates, PeakBatch<kCandidates, LogRatio>(uniforms, s.rejection.peak, log_ratio));
  return uniforms.status();
}

int32_t by_mixture(OrvikStream stream, int32_t n, int32_t* r, const Key& key) {
  Uniforms<double> uniforms(stream);
  double lambda[kBlock];
  for_each_block(n, [&](int32_t first, int32_t count) {
    return uniforms.took(gamma<double>(0, stream, count, lambda, key.a, 0, key.t())) &&
           uniforms.took(poisson_v(0, stream, count, r + first, lambda));
  });
  return uniforms.status();
}

int32_t negbinomial(uint32_t, OrvikStream stream, int32_t n, int32_t* r, double a, double p) {
  const Key key = {a, p};
  const EntryBracket bracket(ln_of_zero<double>);
  int32_t status;
  const Setup* const s = cached<Setup>(stream, kChunk, key, &status, build);
  if (!s) return status;
  switch (region(key)) {
    case Region::mixture:
      return by_mixture(stream, n, r, key);
    case Region::walk:
      return by_walk(stream, n, r, *s);
    default:
      return by_rejection(stream, n, r, *s);
  }
}

}  // namespace

int32_t restore_negbinomial(OrvikStream stream) {
  const EntryBracket bracket(ln_of_zero<double>);
  rebuild<Setup>(stream, kChunk, build);
  return ORVIK_QOR_OK;
}

}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qoriRngNegbinomial, negbinomial,
                (uint32_t method, OrvikStream stream, int32_t n, int32_t* r, double a, double p),
                (method, stream, n, r, a, p))
