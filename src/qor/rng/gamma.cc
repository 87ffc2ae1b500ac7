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
    T z[kCandidates + 1], u[kCandidates], v[kCandidates], hard_u[kCandidates], hard_v[kCandidates];
    bool accepted[kCandidates];
    int32_t hard[kCandidates];
    if (!candidates.draw(count, z, u)) return -1;
    for (int32_t i = 0; i < count; ++i) {
      const T t = std::fma(c, z[i], T(1)), square = z[i] * z[i];
      v[i] = t * t * t;
      accepted[i] = (v[i] > 0) & (u[i] < std::fma(square * square, T(-0.0331), T(1)));
    }
    int32_t undecided = 0;
    for (int32_t i = 0; i < count; ++i) {
      hard[undecided] = i;
      hard_u[undecided] = u[i];
      hard_v[undecided] = v[i];
      undecided += (v[i] > 0) & !accepted[i];
    }
    if (undecided > 0) {  // as for one number: these few decide by logarithms of high accuracy
      kernels::ln.call(Level::high, undecided, hard_u, hard_u);
      kernels::ln.call(Level::high, undecided, hard_v, u);
    }
    for (int32_t k = 0; k < undecided; ++k) {
      const int32_t i = hard[k];
      accepted[i] = hard_u[k] < T(0.5) * z[i] * z[i] + d * (1 - v[i] + u[k]);
    }
    transform(count, v, [d](T x) { return d * x; });
    return compress(count, v, accepted, out);
  });
}

// x^alpha of the exponential power density: below b a power of u, above it the tail.
template <class T>
void in_two_branches(Uniforms<T>& uniforms, int32_t n, T* r, T alpha) {
  const T b = 1 - alpha, inverse = 1 / alpha;
  until_accepted(n, r, kCandidates, [&](int32_t count, T* out) {
    T w[2 * kCandidates], u[kCandidates], e[kCandidates], x[kCandidates], tail[kCandidates];
    bool accepted[kCandidates];
    int32_t at[kCandidates];
    if (!uniforms.draw(2 * count, w)) return -1;
    split(count, w, u, e);
    kernels::ln(count, e, e);
    int32_t tails = 0;
    for (int32_t i = 0; i < count; ++i) {
      x[i] = u[i];
      at[tails] = i;
      tail[tails] = (1 - u[i]) / alpha;
      tails += !(u[i] < b);
    }
    kernels::ln(tails, tail, tail);
    negate(tails, tail);
    for (int32_t k = 0; k < tails; ++k) x[at[k]] = b + alpha * tail[k];
    kernels::ln(count, x, x);
    transform(count, x, [inverse](T y) { return inverse * y; });
    kernels::exp(count, x, x);
    for (int32_t i = 0; i < count; ++i) accepted[i] = -e[i] >= x[i];
    for (int32_t k = 0; k < tails; ++k) accepted[at[k]] = -e[at[k]] >= x[at[k]] - tail[k];
    return compress(count, x, accepted, out);
  });
}

template <class T>
void from_weibull(Uniforms<T>& uniforms, int32_t n, T* r, T alpha) {
  const T c = 1 / alpha;
  const T d = kernels::exp.high(alpha / (1 - alpha) * kernels::ln.high(alpha)) * (1 - alpha);
  until_accepted(n, r, kCandidates, [&](int32_t count, T* out) {
    T w[2 * kCandidates], z[kCandidates], x[kCandidates];
    bool accepted[kCandidates];
    if (!uniforms.draw(2 * count, w)) return -1;
    kernels::ln(2 * count, w, w);
    for (int32_t i = 0; i < count; ++i) z[i] = -w[2 * i];
    kernels::ln(count, z, x);
    transform(count, x, [c](T y) { return c * y; });
    kernels::exp(count, x, x);
    for (int32_t i = 0; i < count; ++i) accepted[i] = z[i] - w[2 * i + 1] >= d + x[i];
    return compress(count, x, accepted, out);
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
