// Hypergeometric: inversion by a table where few numbers are possible, rejection under a table mountain elsewhere
// (Kachitvichyanukul, Schmeiser 1985, H2PE).
#include <algorithm>
#include <cmath>

#include "orvik/qor.h"
#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/cumulative.h"
#include "qor/rng/entry.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/mountain.h"
#include "qor/rng/setup.h"
#include "qor/rng/stirling.h"
#include "qor/rng/uniforms.h"
#include "qor/rng/vectors.h"
#include "qor/stream/restore.h"

namespace orvik::qor {
namespace {

constexpr int32_t kChunk = 6;
constexpr int32_t kTableWidth = 39;

// The smaller half of the lot is drawn, the rarer kind counted.
struct Reduced {
  double lot, rare, drawn;
  double common() const { return lot - rare; }
  double highest() const { return std::min(rare, drawn); }
};

struct Setup {
  struct Key {
    int32_t lot, sample, marked;
    bool operator==(const Key&) const = default;
    bool is_sane() const { return sample >= 0 && sample <= lot && marked >= 0 && marked <= lot; }
    static Key never() { return {-1, -1, -1}; }

    bool complements_sample() const { return sample > lot - sample; }
    bool complements_marked() const { return marked > lot - marked; }
    Reduced reduced() const {
      return {static_cast<double>(lot), static_cast<double>(complements_marked() ? lot - marked : marked),
              static_cast<double>(complements_sample() ? lot - sample : sample)};
    }
  };
  Key key;
  int32_t last;  // of the table
  int32_t by_table, reserved[3];
  union {
    CumulativeTable<kTableWidth> table;
    TableMountain hat;
  };
};
static_assert(sizeof(Setup) == 600);

// Logarithms of the probability of y by that of m.
class LogRatio {
 public:
  LogRatio(const Reduced& h, double m) : h_(h), m_(m) {}

  // ln of the ratio of four factorials each; their first orders cancel.
  void operator()(int32_t n, const double* y, double* r) const {
    constexpr int32_t kMost = 1024;
    using V = F64;
    double q[kMost], odds[kMost];
    for_each_vector<V>(n, [&](auto at) {
      const V k = at.load(y);
      at.store(odds, (factor(0, k) / factor(1, k)) * (factor(3, k) / factor(2, k)));
      at.store(r, V(0));
    });
    kernels::ln.call(Level::high, n, odds, odds);
    for (int part = 0; part < 4; ++part) {
      const double at_mode = factor(part, m_), rest = stirling_rest(at_mode);
      for_each_vector<V>(n, [&](auto at) { at.store(q, V(at_mode) / factor(part, at.load(y))); });
      kernels::ln.call(Level::high, n, q, q);
      for_each_vector<V>(n, [&](auto at) {
        const V beyond = V(at_mode - 0.5) * at.load(q) + V(rest) - stirling_rest(factor(part, at.load(y)));
        at.store(r, at.load(r) + beyond);
      });
    }
    for_each_vector<V>(n, [&](auto at) { at.store(r, at.load(r) + (V(m_) - at.load(y)) * at.load(odds)); });
  }
  double one(double y) const {
    double r[kWidth<F64>];
    (*this)(1, &y, r);
    return r[0];
  }

 private:
  // Arguments of the gamma functions in the denominator of the probability.
  template <class V>
  V factor(int part, V y) const {
    switch (part) {
      case 0:
        return y + V(1);
      case 1:
        return V(h_.rare) - y + V(1);
      case 2:
        return V(h_.drawn) - y + V(1);
      default:
        return V(h_.common() - h_.drawn) + y + V(1);
    }
  }
  Reduced h_;
  double m_;
};

// P(0) as a product of as many fractions as the table has steps: exact to a few units in the last place.
void build_table(Setup& s, const Reduced& h) {
  const double few = h.highest(), many = std::max(h.rare, h.drawn);
  double f = 1;
  for (double i = 0; i < few; ++i) f *= (h.lot - many - i) / (h.lot - i);
  s.by_table = 1;
  s.last = static_cast<int32_t>(few);
  s.table.fill(s.last, [&](int32_t k) {
    if (k == 0) return f;
    const double before = k - 1;
    return f *= (h.rare - before) * (h.drawn - before) / (k * (h.common() - h.drawn + k));
  });
  s.table.end_at(s.last);
}

void build_hat(Setup& s, const Reduced& h) {
  TableMountain& hat = s.hat;
  hat = {};
  const double m = std::floor((h.drawn + 1) * (h.rare + 1) / (h.lot + 2));
  hat.mode = m;
  hat.highest = h.highest();
  const double variance = h.rare / h.lot * (h.common() / h.lot) * h.drawn * ((h.lot - h.drawn) / (h.lot - 1));
  const double half = std::floor(1.5 * kernels::sqrt.high(variance));
  hat.xl = std::max(m - half, 0.0);
  hat.xr = std::min(m + half, hat.highest) + 1;
  const LogRatio log_ratio(h, m);
  double left = 0, left_height = 0, right = 0, right_height = 0;
  if (const double x = hat.xl; x > 0) {  // by how much the next number beyond is less probable
    left = -kernels::ln.high(x * (h.common() - h.drawn + x) / ((h.rare - x + 1) * (h.drawn - x + 1)));
    left_height = kernels::exp.high(log_ratio.one(x));
  }
  if (const double x = hat.xr; x <= hat.highest) {
    right = -kernels::ln.high((h.rare - x + 1) * (h.drawn - x + 1) / (x * (h.common() - h.drawn + x)));
    right_height = kernels::exp.high(log_ratio.one(x - 1));
  }
  hat.set(left, left_height, right, right_height);
}

void build(Setup& s, const Setup::Key& key) {
  s = {};
  const Reduced h = key.reduced();
  if (h.highest() < kTableWidth)
    build_table(s, h);
  else
    build_hat(s, h);
}

// From the reduced case back to marked ones of the sample.
void turn_back(const Setup::Key& key, int32_t n, int32_t* r) {
  const int32_t unsampled = key.lot - key.sample;
  if (key.complements_sample() && key.complements_marked())
    transform(n, r, [&](int32_t x) { return key.marked - unsampled + x; });
  else if (key.complements_marked())
    transform(n, r, [&](int32_t x) { return key.sample - x; });
  else if (key.complements_sample())
    transform(n, r, [&](int32_t x) { return key.marked - x; });
}

int32_t by_table(OrvikStream stream, int32_t n, int32_t* r, const Setup& s) {
  Uniforms<double> uniforms(stream);
  double u[kBlock];
  for_each_block(n, [&](int32_t first, int32_t count) {
    if (!uniforms.draw(count, u)) return false;
    s.table.find(count, u, [&](int32_t i, int32_t k) { r[first + i] = k; });
    return true;
  });
  return uniforms.status();
}

int32_t by_rejection(OrvikStream stream, int32_t n, int32_t* r, const Setup& s) {
  Uniforms<float> uniforms(stream);
  using Batch = MountainBatch<float, 1024, LogRatio>;
  until_accepted(n, r, Batch::kCandidates, Batch(uniforms, s.hat, LogRatio(s.key.reduced(), s.hat.mode)));
  return uniforms.status();
}

int32_t hypergeometric(uint32_t, OrvikStream stream, int32_t n, int32_t* r, int32_t lot, int32_t sample,
                       int32_t marked) {
  const Setup::Key key = {lot, sample, marked};
  const EntryBracket bracket(ln_of_zero<double>);
  int32_t status;
  const Setup* const s = cached<Setup>(stream, kChunk, key, &status, build);
  if (!s) return status;
  status = s->by_table ? by_table(stream, n, r, *s) : by_rejection(stream, n, r, *s);
  if (status >= 0) turn_back(key, n, r);
  return status;
}

}  // namespace

int32_t restore_hypergeometric(OrvikStream stream) {
  const EntryBracket bracket(ln_of_zero<double>);
  rebuild<Setup>(stream, kChunk, build);
  return ORVIK_QOR_OK;
}

}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qoriRngHypergeometric, hypergeometric,
                (uint32_t method, OrvikStream stream, int32_t n, int32_t* r, int32_t l, int32_t s, int32_t m),
                (method, stream, n, r, l, s, m))
