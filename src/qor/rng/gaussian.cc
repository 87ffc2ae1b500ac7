// Gaussian: by one half of the pairs of Box and Muller (1958), by both halves, by the inverse of the distribution
// function.
#include "qor/rng/gaussian.h"

#include <algorithm>
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

// Both numbers of each pair, the sine's first. A pair of which a call takes one number stays with the stream as
// uniforms, so that numbers do not depend on how they are asked for; that number has a wave of its own and shares the
// radii of a block. A pending pair is taken before n is looked at. When the generator fails, what has been drawn is
// delivered, and the pending pair stays.
template <class T>
int32_t box_muller_pairs(OrvikStream stream, int32_t n, T* r, T a, T sigma) {
  constexpr int32_t kPairs = kBlock / 2, kRoom = kPairs + 2;  // one number before them, one behind
  Uniforms<T> uniforms(stream);
  int32_t status;
  PendingPair<T>* const pending = pending_pair<T>(stream, Precision<T>::kGaussianPair, &status);
  if (!pending) return status;
  PendingPair<T> left = {-1, -1};
  constexpr int32_t kStored = kRoom + 2 * kBehind<VectorOf<T>> - 2;  // by whole vectors
  alignas(64) T w[2 * kStored], u[kStored], s[kStored], c[kPairs];
  T* const rho = w;
  int32_t done = 0, before = pending->first == -1 ? 0 : 1;
  for (bool drawn = true; before > 0 || (drawn && done < n); before = 0) {
    const int32_t wanted = std::max(n - done - before, 0);
    int32_t pairs = std::min(wanted / 2, kPairs), behind = wanted == 2 * pairs + 1 ? 1 : 0;
    T* const fresh = w + 2 * before;
    if (before > 0) {
      w[0] = pending->first;
      w[1] = pending->second;
    }
    if (pairs > 0) drawn = uniforms.draw(2 * pairs, fresh);
    if (!drawn) pairs = 0;
    T* const last = fresh + 2 * pairs;
    if (drawn && behind > 0) drawn = uniforms.draw(2, last);
    if (!drawn) behind = 0;
    if (behind > 0) left = {last[0], last[1]};
    const int32_t all = before + pairs + behind;
    if (all == 0) break;
    split_angles(all, w, u, s);
    if (before > 0) kernels::cos(1, s, s);
    T* const sines = s + before;
    if (pairs > 0) kernels::sin_cos(pairs, sines, sines, c);
    if (behind > 0) kernels::sin(1, sines + pairs, sines + pairs);
    radii(all, u, rho);
    const auto one = [&](int32_t k) { return std::fma(rho[k] * s[k], sigma, a); };
    if (before > 0) r[done] = one(0);
    done += before;
    using V = VectorOf<T>;
    for_each_vector<V>(pairs, [&](auto at) {
      const V radius = at.load(rho + before), sine = at.load(sines), cosine = at.load(c);
      at.give_pairs(r + done + 2 * at.first,
                    {fma(radius * sine, V(sigma), V(a)), fma(radius * cosine, V(sigma), V(a))});
    });
    done += 2 * pairs;
    if (behind > 0) r[done] = one(all - 1);
    done += behind;
    if (!drawn) return uniforms.status();
  }
  if (done == std::max(n, 0)) *pending = left;
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
