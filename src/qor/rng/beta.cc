// Beta by rejection, a method for each region of the shapes p and q:
//   both below 1            powers of two uniforms (Johnk 1964), or switching (Atkinson, Whittaker 1976)
//   one of them 1           a power of a uniform
//   one below, one above 1  switching (Atkinson 1979)
//   both above 1            log-logistic candidates (Cheng 1978, BB)
#include <cmath>
#include <limits>

#include "orvik/qor.h"
#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/entry.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"

namespace orvik::qor {
namespace {

constexpr int32_t kCandidates = 512;

// x / (x + y) of x = e^p, y = e^q whose sum is too small for its type.
template <class T>
T share_of_logarithms(T p, T q) {
  const T larger = p > q ? p : q;
  const T x = kernels::exp.high(p - larger), y = kernels::exp.high(q - larger);
  return x / (x + y);
}

template <class T>
void by_powers(Uniforms<T>& uniforms, int32_t n, T* r, T p, T q) {
  const T inverse_p = 1 / p, inverse_q = 1 / q;
  until_accepted(n, r, kCandidates, [&](int32_t count, T* out) {
    T w[2 * kCandidates], power[2 * kCandidates];
    if (!uniforms.draw(2 * count, w)) return -1;
    kernels::ln(2 * count, w, w);
    for (int32_t i = 0; i < count; ++i) {
      w[2 * i] *= inverse_p;
      w[2 * i + 1] *= inverse_q;
    }
    kernels::exp(2 * count, w, power);
    int32_t kept = 0;
    for (int32_t i = 0; i < count; ++i) {
      const T x = power[2 * i], sum = x + power[2 * i + 1];
      if (!(sum <= 1)) continue;
      out[kept++] = sum < std::numeric_limits<T>::min() ? share_of_logarithms(w[2 * i], w[2 * i + 1]) : x / sum;
    }
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
      t = (1 - p) / (q + 1 - p);
      left = q * t / (q * t + p * kernels::powx.high(1 - t, q));
      unit = 1;
    }
  }
};

template <class T>
void by_switching(Uniforms<T>& uniforms, int32_t n, T* r, T p, T q) {
  const Switch<T> s(p, q);
  const T inverse_p = 1 / p, inverse_q = 1 / q;
  until_accepted(n, r, kCandidates, [&](int32_t count, T* out) {
    T w[2 * kCandidates], u[kCandidates], e[kCandidates], x[kCandidates], g[kCandidates];
    bool accepted[kCandidates];
    if (!uniforms.draw(2 * count, w)) return -1;
    split(count, w, u, e);
    kernels::ln(count, e, e);
    // Both sides of each choice are computed, so that the loops run in vectors.
    for (int32_t i = 0; i < count; ++i) {
      const bool below = u[i] <= s.left;
      const T rest = 1 - u[i];
      x[i] = (below ? u[i] : rest) / (below ? s.left : 1 - s.left);
    }
    kernels::ln(count, x, x);
    for (int32_t i = 0; i < count; ++i) x[i] *= u[i] <= s.left ? inverse_p : inverse_q;
    kernels::exp(count, x, x);
    for (int32_t i = 0; i < count; ++i) {
      const bool below = u[i] <= s.left;
      const T low = s.t * x[i], high = 1 - (1 - s.t) * x[i], rest = 1 - low;
      x[i] = below ? low : high;
      g[i] = (below ? rest : high) / (below ? s.unit : s.t);
    }
    kernels::ln(count, g, g);
    for (int32_t i = 0; i < count; ++i) accepted[i] = (u[i] <= s.left ? 1 - q : 1 - p) * g[i] <= -e[i];
    return compress(count, x, accepted, out);
  });
}

template <class T>
void power_of_uniforms(Uniforms<T>& uniforms, int32_t n, T* r, T shape) {
  if (!uniforms.draw(n, r) || n < 1) return;
  const T inverse = 1 / shape;
  kernels::ln(n, r, r);
  transform(n, r, [inverse](T x) { return inverse * x; });
  kernels::exp(n, r, r);
}

// p <= q. The squeeze is ln z <= e z - 2.
template <class T>
void by_log_logistic(Uniforms<T>& uniforms, int32_t n, T* r, T p, T q, bool complement) {
  const T alpha = p + q, beta = kernels::sqrt.high((alpha - 2) / (2 * p * q - alpha)), gamma = p + 1 / beta;
  const T kLn4 = T(1.3862943611198906), kE = T(2.718281828459045);
  until_accepted(n, r, kCandidates, [&](int32_t count, T* out) {
    T w[2 * kCandidates], u[kCandidates], second[kCandidates], v[kCandidates], x[kCandidates], hard_z[kCandidates],
        hard_x[kCandidates];
    bool accepted[kCandidates];
    int32_t hard[kCandidates];
    if (!uniforms.draw(2 * count, w)) return -1;
    split(count, w, u, second);
    for (int32_t i = 0; i < count; ++i) v[i] = u[i] / (1 - u[i]);
    kernels::ln(count, v, v);
    transform(count, v, [beta](T y) { return beta * y; });
    kernels::exp(count, v, x);
    int32_t undecided = 0;
    for (int32_t i = 0; i < count; ++i) {
      const T product = p * x[i], z = u[i] * u[i] * second[i], ratio = gamma * v[i] - kLn4, s = p + ratio - product;
      const bool finite = product <= std::numeric_limits<T>::max();  // not where a uniform was rounded up to 1
      accepted[i] = (s + 2 >= kE * z) & finite;
      hard[undecided] = i;
      hard_z[undecided] = z;
      hard_x[undecided] = alpha / (q + product);
      undecided += !accepted[i] & finite;
      v[i] = ratio;
      x[i] = (complement ? q : product) / (q + product);
    }
    kernels::ln(undecided, hard_z, hard_z);
    kernels::ln(undecided, hard_x, hard_x);
    for (int32_t k = 0; k < undecided; ++k) accepted[hard[k]] = v[hard[k]] + alpha * hard_x[k] >= hard_z[k];
    return compress(count, x, accepted, out);
  });
}

template <class T>
void complement(int32_t n, T* r) {
  transform(n, r, [](T x) { return 1 - x; });
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
    power_of_uniforms(uniforms, n, r, q);
    if (uniforms.status() >= 0) complement(n, r);
  } else if (q == 1) {
    power_of_uniforms(uniforms, n, r, p);
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
