// Beta by rejection, a method for each region of the shapes p and q:
//   both below 1            powers of two uniforms (Johnk 1964), or switching (Atkinson, Whittaker 1976)
//   one of them 1           a power of a uniform
//   one below, one above 1  switching (Atkinson 1979)
//   both above 1            log-logistic candidates (Cheng 1978, BB)
#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "orvik/qor.h"
#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/entry.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"
#include "qor/rng/vectors.h"

namespace orvik::qor {
namespace {

constexpr int32_t kCandidates = 512;

// From here on a shape takes many times what is lost next to 1: numbers near 0 are not differences from 1, and tests
// have logarithms and powers by their distance from 0 and 1.
template <class T>
constexpr T kLarge = T(0x1p-10) / std::numeric_limits<T>::epsilon();

// x / (x + y) of x = e^p, y = e^q whose sum is too small for its type.
template <class T>
T share_of_logarithms(T p, T q) {
  const T larger = p > q ? p : q;
  const T x = kernels::exp.high(p - larger), y = kernels::exp.high(q - larger);
  return x / (x + y);
}

template <class T>
void by_powers(Uniforms<T>& uniforms, int32_t n, T* r, T p, T q) {
  constexpr T kMost = std::numeric_limits<T>::max() / 1024;  // of its products with logarithms none is infinite
  const T inverse_p = std::min(1 / p, kMost), inverse_q = std::min(1 / q, kMost);
  until_accepted(n, r, kCandidates, [&](int32_t count, T* out) {
    using V = VectorOf<T>;
    T w[2 * kCandidates], power[2 * kCandidates];
    if (!uniforms.draw(2 * count, w)) return -1;
    kernels::ln(2 * count, w, w);
    for_each_vector<V>(2 * count, [&](auto at) { at.store(w, at.load(w) * by_part(V(inverse_p), V(inverse_q))); });
    kernels::exp(2 * count, w, power);
    int32_t kept = 0;
    for_each_vector<V>(count, [&](auto at) {
      const Pair<V> powers = at.load_pairs(power);
      const V sum = powers.first + powers.second;
      const Mask<V> accepted = sum <= V(1);
      T share[kWidth<V>];
      orvik::store(share, powers.first / sum);
      for (uint32_t bits = at.bits(accepted & (sum < V(std::numeric_limits<T>::min()))); bits != 0; bits &= bits - 1) {
        const int32_t k = std::countr_zero(bits), i = at.first + k;
        share[k] = share_of_logarithms(w[2 * i], w[2 * i + 1]);
      }
      kept += give_chosen(at, at.bits(accepted), orvik::load<V>(share), out + kept);
    });
    return kept;
  });
}

// Below t the density is bounded by a power of x, above it by one of 1 - x. p is below 1; q is on either side.
template <class T>
struct Switch {
  T p, q, t, left;  // left: the share of the part below t
  T unit;           // what 1 - x is measured by: its value where the factor (1 - x)^(q - 1) is largest below t

  Switch(T p, T q) : p(p), q(q) {
    if (q < 1) {
      const T root_p = kernels::sqrt.high(p * (1 - p)), root_q = kernels::sqrt.high(q * (1 - q));
      t = root_p / (root_p + root_q);
      left = q * t / (q * t + p * (1 - t));
      unit = 1 - t;
    } else {
      t = std::max((1 - p) / (q + 1 - p), std::numeric_limits<T>::min());  // any t serves, but 0 never accepts
      const T power = q > kLarge<T> ? kernels::exp.high(q * kernels::log1p.high(-t)) : kernels::powx.high(1 - t, q);
      left = q * t / (q * t + p * power);
      unit = 1;
    }
  }
};

template <class T>
void by_switching(Uniforms<T>& uniforms, int32_t n, T* r, T p, T q) {
  const Switch<T> s(p, q);
  const T inverse_p = 1 / p, inverse_q = 1 / q;
  const bool large = q > kLarge<T>;
  until_accepted(n, r, kCandidates, [&](int32_t count, T* out) {
    using V = VectorOf<T>;
    T w[2 * kCandidates], u[kCandidates], e[kCandidates], x[kCandidates], g[kCandidates];
    if (!uniforms.draw(2 * count, w)) return -1;
    split(count, w, u, e);
    kernels::ln(count, e, e);
    const auto is_below = [&](auto at) { return at.load(u) <= V(s.left); };
    for_each_vector<V>(count, [&](auto at) {
      const Mask<V> below = is_below(at);
      const V part = select(below, at.load(u), V(1) - at.load(u));
      at.store(x, part / select(below, V(s.left), V(1 - s.left)));
    });
    kernels::ln(count, x, x);
    for_each_vector<V>(count,
                       [&](auto at) { at.store(x, at.load(x) * select(is_below(at), V(inverse_p), V(inverse_q))); });
    if (large) {
      kernels::expm1(count, x, g);
      kernels::exp(count, x, x);
      for_each_vector<V>(count, [&](auto at) {
        const Mask<V> below = is_below(at);
        const V low = V(s.t) * at.load(x), high = V(s.t) - V(1 - s.t) * at.load(g);
        at.store(x, select(below, low, high));
        at.store(g, select(below, V(0) - low, high / V(s.t) - V(1)));
      });
      kernels::log1p(count, g, g);
    } else {
      kernels::exp(count, x, x);
      for_each_vector<V>(count, [&](auto at) {
        const Mask<V> below = is_below(at);
        const V low = V(s.t) * at.load(x), high = V(1) - V(1 - s.t) * at.load(x);
        at.store(x, select(below, low, high));
        at.store(g, select(below, V(1) - low, high) / select(below, V(s.unit), V(s.t)));
      });
      kernels::ln(count, g, g);
    }
    return accept<V>(count, x, out, [&](auto at, V) {
      return select(is_below(at), V(1 - q), V(1 - p)) * at.load(g) <= (at.load(e) ^ sign_mask<V>());
    });
  });
}

template <class T>
void complement(int32_t n, T* r) {
  transform(n, r, [](T x) { return 1 - x; });
}

// Powers, or what they are less than 1.
template <class T>
void power_of_uniforms(Uniforms<T>& uniforms, int32_t n, T* r, T shape, bool complements) {
  if (!uniforms.draw(n, r) || n < 1) return;
  const T inverse = 1 / shape;
  kernels::ln(n, r, r);
  transform(n, r, [inverse](T x) { return inverse * x; });
  if (complements && shape > kLarge<T>) {
    kernels::expm1(n, r, r);
    negate(n, r);
  } else {
    kernels::exp(n, r, r);
    if (complements) complement(n, r);
  }
}

// p <= q. The squeeze is ln z <= e z - 2.
template <class T>
void by_log_logistic(Uniforms<T>& uniforms, int32_t n, T* r, T p, T q, bool complement) {
  if (p + q > std::numeric_limits<T>::max()) {  // only their ratio counts there
    p /= 2;
    q /= 2;
  }
  // Where the product leaves its type, what is taken from it counts for nothing.
  const T alpha = p + q, product = 2 * p * q;
  const bool huge = product > std::numeric_limits<T>::max();
  const T beta = kernels::sqrt.high(huge ? (1 / p + 1 / q) / 2 : (alpha - 2) / (product - alpha)), gamma = p + 1 / beta;
  const T kLn4 = T(1.3862943611198906), kE = T(2.718281828459045);
  const bool large = q > kLarge<T>;
  until_accepted(n, r, kCandidates, [&](int32_t count, T* out) {
    using V = VectorOf<T>;
    T w[2 * kCandidates], u[kCandidates], second[kCandidates], v[kCandidates], x[kCandidates];
    T open_z[kCandidates + kBehind<V>], open_x[kCandidates], open_v[kCandidates];
    Decision<V, kCandidates> decision;
    if (!uniforms.draw(2 * count, w)) return -1;
    split(count, w, u, second);
    transform(count, u, v, [](T y) { return y / (1 - y); });
    kernels::ln(count, v, v);
    transform(count, v, [beta](T y) { return beta * y; });
    large ? kernels::expm1(count, v, x) : kernels::exp(count, v, x);
    int32_t opened = 0;
    for_each_vector<V>(count, [&](auto at) {
      const V grown = V(p) * at.load(x), z = at.load(u) * at.load(u) * at.load(second);
      const V product = large ? V(p) + grown : grown, sum = V(q) + product;
      const V ratio = V(gamma) * at.load(v) - V(kLn4), s = large ? ratio - grown : V(p) + ratio - product;
      // Not finite where a uniform was rounded up to 1.
      const Mask<V> finite = product <= V(std::numeric_limits<T>::max());
      const Mask<V> accepted = finite & (s + V(2) >= V(kE) * z);
      const uint32_t open = at.bits(andnot(accepted, finite));
      decision.set(at, accepted, open);
      at.store(x, (complement ? V(q) : product) / sum);
      gather_chosen(open, z, open_z + opened);
      gather_chosen(open, large ? grown / V(alpha) : V(alpha) / sum, open_x + opened);
      opened += gather_chosen(open, ratio, open_v + opened);
    });
    kernels::ln(opened, open_z, open_z);
    large ? kernels::log1p(opened, open_x, open_x) : kernels::ln(opened, open_x, open_x);
    const V weight = V(large ? -alpha : alpha);
    for_each_vector<V>(opened, [&](auto at) {
      at.store(open_z, as_answer<V>(at.load(open_v) + weight * at.load(open_x) >= at.load(open_z)));
    });
    return decision.compress(count, x, open_z, out);
  });
}

// Beyond this line in the square of the shapes below 1 switching rejects less than powers do.
template <class T>
bool switching_is_better(T p, T q) {
  return std::fma(p * p, T(0.8522552176537243), q - T(0.9562409713408151)) > 0;
}

template <class T>
void unit_beta(Uniforms<T>& uniforms, int32_t n, T* r, T p, T q) {
  if (p < 1 && q < 1) {
    if (switching_is_better(p, q))
      by_switching(uniforms, n, r, p, q);
    else
      by_powers(uniforms, n, r, p, q);
  } else if (p == 1 && q == 1) {
    static_cast<void>(uniforms.draw(n, r));
  } else if (p == 1) {
    power_of_uniforms(uniforms, n, r, q, true);
  } else if (q == 1) {
    power_of_uniforms(uniforms, n, r, p, false);
  } else if (p < 1) {
    by_switching(uniforms, n, r, p, q);
  } else if (q < 1) {
    by_switching(uniforms, n, r, q, p);
    if (uniforms.status() >= 0) complement(n, r);
  } else if (p <= q) {
    by_log_logistic(uniforms, n, r, p, q, false);
  } else {
    by_log_logistic(uniforms, n, r, q, p, true);
  }
}

template <class T>
int32_t beta(uint32_t method, OrvikStream stream, int32_t n, T* r, T p, T q, T a, T scale) {
  const EntryBracket bracket(ln_of_zero<T>);
  Uniforms<T> uniforms(stream);
  unit_beta(uniforms, n, r, p, q);
  if (uniforms.status() < 0) return uniforms.status();
  scale_and_shift(method, n, r, scale, a);
  const T high = a + scale;
  if ((method & kClamp) != 0) transform(n, r, [high](T x) { return x > high ? high : x; });
  return uniforms.status();
}

}  // namespace
}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qordRngBeta, beta,
                (uint32_t method, OrvikStream stream, int32_t n, double* r, double p, double q, double a, double beta),
                (method, stream, n, r, p, q, a, beta))
ORVIK_QOR_ENTRY(_qorsRngBeta, beta,
                (uint32_t method, OrvikStream stream, int32_t n, float* r, float p, float q, float a, float beta),
                (method, stream, n, r, p, q, a, beta))
