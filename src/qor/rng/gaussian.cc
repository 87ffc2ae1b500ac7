// Gaussian: by one half of the pairs of Box and Muller (1958), by both halves, by the inverse of the distribution
// function.
#include "qor/rng/gaussian.h"

#include <cmath>

#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/entry.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/setup.h"
#include "qor/rng/uniforms.h"
#include "qor/rng/vectors.h"

namespace orvik::qor {
namespace {

// r = sqrt(-2 ln u), in another array: a report of an array in place finds the result where the argument was, and the
// callback must know zeros.
template <class T>
void radii(int32_t n, const T* u, T* r) {
  kernels::ln(n, u, r);
  transform(n, r, [](T x) { return -2 * x; });
  kernels::sqrt(n, r, r);
}

// Pairs of uniforms apart, the second ones as angles.
template <class T>
void split_angles(int32_t pairs, const T* w, T* u, T* angles) {
  using V = VectorOf<T>;
  for_each_vector<V>(pairs, [&](auto at) {
    const Pair<V> both = at.load_pairs(w);
    at.store(u, both.first);
    at.store(angles, V(Precision<T>::kTwoPi) * both.second);
  });
}

template <class T>
int32_t box_muller(OrvikStream stream, int32_t n, T* r, T a, T sigma) {
  Uniforms<T> uniforms(stream);
  T w[2 * kBlock], u[kBlock], v[kBlock];
  T* const rho = w;
  for_each_block(n, [&](int32_t first, int32_t count) {
    if (!uniforms.draw(2 * count, w)) return false;
    split_angles(count, w, u, v);
    kernels::sin(count, v, v);
    radii(count, u, rho);
    using V = VectorOf<T>;
    for_each_vector<V>(count,
                       [&](auto at) { at.give(r + first + at.first, fma(V(sigma) * at.load(rho), at.load(v), V(a))); });
    return true;
  });
  return uniforms.status();
}

// Both numbers of `pairs` pairs, at most kBlock / 2.
template <class T>
bool both_halves(Uniforms<T>& uniforms, int32_t pairs, T* r, T a, T sigma) {
  T w[kBlock], u[kBlock / 2], s[kBlock / 2], c[kBlock / 2];
  T* const rho = w;
  if (!uniforms.draw(2 * pairs, w)) return false;
  split_angles(pairs, w, u, s);
  kernels::sin_cos(pairs, s, s, c);
  radii(pairs, u, rho);
  using V = VectorOf<T>;
  for_each_vector<V>(pairs, [&](auto at) {
    const V radius = at.load(rho), sine = at.load(s), cosine = at.load(c);
    at.give_pairs(r + 2 * at.first, {fma(radius * sine, V(sigma), V(a)), fma(radius * cosine, V(sigma), V(a))});
  });
  return true;
}

// One number of a pair; wave: sine for the first, cosine for the second.
template <class T, class Wave>
T one_half(PendingPair<T> pair, Wave wave) {
  pair.second *= Precision<T>::kTwoPi;
  wave(1, &pair.second, &pair.second);
  T rho;
  radii(1, &pair.first, &rho);
  return pair.second * rho;
}

// A pair of which a call takes one number stays with the stream as uniforms, so that numbers do not depend on how they
// are asked for. A pending pair is taken before n is looked at. When the generator fails, the pending pair stays.
template <class T>
int32_t box_muller_pairs(OrvikStream stream, int32_t n, T* r, T a, T sigma) {
  Uniforms<T> uniforms(stream);
  int32_t status;
  PendingPair<T>* const pending = pending_pair<T>(stream, Precision<T>::kGaussianPair, &status);
  if (!pending) return status;
  int32_t done = 0;
  if (!(pending->first == -1)) r[done++] = std::fma(one_half(*pending, kernels::cos), sigma, a);
  if (n < done) return uniforms.status();
  const int32_t pairs = (n - done) / 2;
  const bool drawn = for_each_block<kBlock / 2>(pairs, [&](int32_t first, int32_t count) {
    return both_halves(uniforms, count, r + done + 2 * first, a, sigma);
  });
  if (!drawn) return uniforms.status();
  PendingPair<T> left = {-1, -1};
  if ((n - done) % 2 > 0) {
    T w[2];
    if (!uniforms.draw(2, w)) return uniforms.status();
    left = {w[0], w[1]};
    r[n - 1] = std::fma(one_half(left, kernels::sin), sigma, a);
  }
  *pending = left;
  return uniforms.status();
}

template <class T>
int32_t inverse(OrvikStream stream, int32_t n, T* r, T a, T sigma) {
  Uniforms<T> uniforms(stream);
  if (uniforms.draw(n, r, -1, 1))
    in_passes(n, r, [=](int32_t count, T* x) {
      kernels::erf_inv(count, x, x);
      scale_and_shift(count, x, sigma * Precision<T>::kSqrtTwo, a);
    });
  return uniforms.status();
}

}  // namespace

template <class T>
int32_t gaussian(uint32_t method, OrvikStream stream, int32_t n, T* r, T a, T sigma) {
  const EntryBracket bracket(gaussian_limits<T>);
  switch (method) {
    case kBoxMuller:
      return box_muller(stream, n, r, a, sigma);
    case kBoxMullerPairs:
      return box_muller_pairs(stream, n, r, a, sigma);
    case kInverse:
      return inverse(stream, n, r, a, sigma);
    default:
      return ORVIK_QOR_BAD_METHOD;
  }
}
template int32_t gaussian(uint32_t, OrvikStream, int32_t, double*, double, double);
template int32_t gaussian(uint32_t, OrvikStream, int32_t, float*, float, float);

}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qordRngGaussian, gaussian,
                (uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double sigma),
                (method, stream, n, r, a, sigma))
ORVIK_QOR_ENTRY(_qorsRngGaussian, gaussian,
                (uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float sigma),
                (method, stream, n, r, a, sigma))
