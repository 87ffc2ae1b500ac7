// Gamma by rejection, a method for each region of the shape alpha:
//   above 1      from normal numbers (Marsaglia, Tsang 2000)
//   1            Exponential
//   0.6 to 1     from Weibull numbers (Vaduva 1977)
//   below 0.6    from the exponential power distribution, in two branches
#include "qor/rng/gamma.h"

#include <cmath>

#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/entry.h"
#include "qor/rng/exponential.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/setup.h"
#include "qor/rng/uniforms.h"
#include "qor/rng/vectors.h"

namespace orvik::qor {
namespace {

constexpr int32_t kCandidates = 512;

// Two candidates take four uniforms, in order: a pair that Box and Muller turn into two normal numbers, and one for the
// test of each. When a batch ends between the two, the pair waits in the stream, so that the uniform for the second
// test is drawn by the batch that makes it and candidates do not depend on cuts.
template <class T>
class NormalCandidates {
 public:
  NormalCandidates(Uniforms<T>& uniforms, PendingPair<T>& pending) : uniforms_(uniforms), pending_(pending) {}

  // z and u of `count` candidates; z has room for one more.
  bool draw(int32_t count, T* z, T* u) {
    T w[2 * kCandidates + 2], first[kCandidates / 2 + 1], second[kCandidates / 2 + 1], sine[kCandidates / 2 + 1];
    const int32_t held = pending_.first >= 0 ? 1 : 0, fresh = count - held;
    if (!uniforms_.draw(held + 2 * fresh + fresh % 2, w)) return false;
    if (held) {
      first[0] = pending_.first;
      second[0] = pending_.second;
      u[0] = w[0];
    }
    const T* const groups = w + held;
    for (int32_t j = 0; 2 * j < fresh; ++j) {
      first[held + j] = groups[4 * j];
      second[held + j] = groups[4 * j + 1];
    }
    for (int32_t j = 0; 2 * j + 1 < fresh; ++j) {
      u[held + 2 * j] = groups[4 * j + 2];
      u[held + 2 * j + 1] = groups[4 * j + 3];
    }
    if (fresh % 2 != 0) u[count - 1] = groups[2 * fresh];
    const int32_t pairs = held + (fresh + 1) / 2;
    pending_ = {-1, -1};
    if (fresh % 2 != 0) pending_ = {first[pairs - 1], second[pairs - 1]};

    kernels::ln(pairs, first, first);
    transform(pairs, first, [](T x) { return -2 * x; });
    kernels::sqrt(pairs, first, first);
    transform(pairs, second, [](T x) { return Precision<T>::kTwoPi * x; });
    kernels::sin_cos(pairs, second, sine, second);
    if (held) z[0] = first[0] * second[0];
    for (int32_t j = held; j < pairs; ++j) {
      z[2 * j - held] = first[j] * sine[j];
      z[2 * j - held + 1] = first[j] * second[j];
    }
    return true;
  }

 private:
  Uniforms<T>& uniforms_;
  PendingPair<T>& pending_;
};

template <class T>
void from_normals(Uniforms<T>& uniforms, int32_t n, T* r, T alpha, PendingPair<T>& pending) {
  const T d = alpha - T(1.0 / 3), c = 1 / kernels::sqrt.high(std::fma(T(9), alpha, T(-3)));
  NormalCandidates<T> candidates(uniforms, pending);
  until_accepted(n, r, kCandidates, [&](int32_t count, T* out) {
    using V = VectorOf<T>;
    T z[kCandidates + 1], u[kCandidates], x[kCandidates];
    T open_z[kCandidates], open_v[kCandidates], open_ln_v[kCandidates], open_u[kCandidates + kBehind<V>];
    Decision<V, kCandidates> decision;
    int32_t opened = 0;
    if (!candidates.draw(count, z, u)) return -1;
    for_each_vector<V>(count, [&](auto at) {
      const V normal = at.load(z), t = fma(V(c), normal, V(1)), square = normal * normal, v = t * t * t;
      const Mask<V> possible = v > V(0);
      const Mask<V> accepted = possible & (at.load(u) < fma(square * square, V(T(-0.0331)), V(1)));
      const uint32_t open = at.bits(andnot(accepted, possible));
      decision.set(at, accepted, open);
      at.store(x, V(d) * v);
      gather_chosen(open, normal, open_z + opened);
      gather_chosen(open, at.load(u), open_u + opened);
      opened += gather_chosen(open, v, open_v + opened);
    });
    if (opened > 0) {  // as for one number: these few decide by logarithms of high accuracy
      kernels::ln.call(Level::high, opened, open_u, open_u);
      kernels::ln.call(Level::high, opened, open_v, open_ln_v);
    }
    for_each_vector<V>(opened, [&](auto at) {
      const V normal = at.load(open_z), rest = V(d) * (V(1) - at.load(open_v) + at.load(open_ln_v));
      at.store(open_u, as_answer<V>(at.load(open_u) < V(T(0.5)) * normal * normal + rest));
    });
    return decision.compress(count, x, open_u, out);
  });
}

// x^alpha of the exponential power density: below b a power of u, above it the tail.
template <class T>
void in_two_branches(Uniforms<T>& uniforms, int32_t n, T* r, T alpha) {
  const T b = 1 - alpha, inverse = 1 / alpha;
  until_accepted(n, r, kCandidates, [&](int32_t count, T* out) {
    using V = VectorOf<T>;
    T w[2 * kCandidates], e[kCandidates], x[kCandidates], tail[kCandidates], tails[kCandidates + kBehind<V>];
    Chosen<V, kCandidates> in_tail;
    int32_t in_tails = 0;
    if (!uniforms.draw(2 * count, w)) return -1;
    split(count, w, x, e);
    kernels::ln(count, e, e);
    for_each_vector<V>(count, [&](auto at) {
      const V u = at.load(x);
      const uint32_t bits = at.bits(complement(u < V(b)));
      in_tail.set(at, bits);
      in_tails += gather_chosen(bits, (V(1) - u) / V(alpha), tails + in_tails);
    });
    kernels::ln(in_tails, tails, tails);
    negate(in_tails, tails);
    Expander<V> expanded(tails);
    for_each_vector<V>(count, [&](auto at) {
      const uint32_t bits = in_tail(at);
      const Mask<V> mask = chosen<V>(bits);
      const V t = expanded(bits);
      at.store(tail, select(mask, t, V(0)));
      at.store(x, select(mask, V(b) + V(alpha) * t, at.load(x)));
    });
    kernels::ln(count, x, x);
    transform(count, x, [inverse](T y) { return inverse * y; });
    kernels::exp(count, x, x);
    return accept<V>(count, x, out, [&](auto at, V y) { return (at.load(e) ^ sign_mask<V>()) >= y - at.load(tail); });
  });
}

template <class T>
void from_weibull(Uniforms<T>& uniforms, int32_t n, T* r, T alpha) {
  const T c = 1 / alpha;
  const T d = kernels::exp.high(alpha / (1 - alpha) * kernels::ln.high(alpha)) * (1 - alpha);
  until_accepted(n, r, kCandidates, [&](int32_t count, T* out) {
    using V = VectorOf<T>;
    T w[2 * kCandidates], z[kCandidates], e[kCandidates], x[kCandidates];
    if (!uniforms.draw(2 * count, w)) return -1;
    kernels::ln(2 * count, w, w);
    split(count, w, z, e);
    negate(count, z);
    kernels::ln(count, z, x);
    transform(count, x, [c](T y) { return c * y; });
    kernels::exp(count, x, x);
    return accept<V>(count, x, out, [&](auto at, V y) { return at.load(z) - at.load(e) >= V(d) + y; });
  });
}

}  // namespace

template <class T>
int32_t gamma(uint32_t method, OrvikStream stream, int32_t n, T* r, T alpha, T a, T beta) {
  const EntryBracket bracket(ln_of_zero<T>);
  Uniforms<T> uniforms(stream);
  if (alpha > 1) {
    int32_t status;
    PendingPair<T>* const pending = pending_pair<T>(stream, Precision<T>::kGammaPair, &status);
    if (!pending) return status;
    from_normals(uniforms, n, r, alpha, *pending);
  } else if (alpha == 1) {
    static_cast<void>(uniforms.took(exponential<T>(0, stream, n, r, 0, 1)));
  } else if (static_cast<double>(alpha) < 0.6) {
    in_two_branches(uniforms, n, r, alpha);
  } else {
    from_weibull(uniforms, n, r, alpha);
  }
  if (uniforms.status() >= 0) scale_and_shift(method, n, r, beta, a);
  return uniforms.status();
}
template int32_t gamma(uint32_t, OrvikStream, int32_t, double*, double, double, double);
template int32_t gamma(uint32_t, OrvikStream, int32_t, float*, float, float, float);

}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qordRngGamma, gamma,
                (uint32_t method, OrvikStream stream, int32_t n, double* r, double alpha, double a, double beta),
                (method, stream, n, r, alpha, a, beta))
ORVIK_QOR_ENTRY(_qorsRngGamma, gamma,
                (uint32_t method, OrvikStream stream, int32_t n, float* r, float alpha, float a, float beta),
                (method, stream, n, r, alpha, a, beta))
