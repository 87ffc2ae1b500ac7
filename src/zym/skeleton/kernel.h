// The kernel skeleton, written once: control registers, blocks, special-lane test, masked remainder, strides. A family
// supplies a struct Fn over a lane type V with
//   lanes(V...)     the lane computation: inputs in, result (or Pair of results) out;
// and, where the fast path does not serve every input,
//   special(V...)   mask of the lanes that the element routine redoes;
//   element(...)    that routine (see ElementRoutine);
//   repair(V... , V& r, V mask)   in NOERR mode: blends the commonest special results into r, returns the mask that is left.
// Optional: `vectors` (how many are in flight, 4 by default), `streams` (true where memory bandwidth is the only limit: large
// results bypass the caches).
#pragma once

#include <array>
#include <cstdint>
#include <utility>

#include "zym/frame/thread_state.h"
#include "zym/lanes/lanes.h"
#include "zym/skeleton/control.h"
#include "zym/skeleton/operands.h"
#include "zym/skeleton/special.h"

namespace orvik::zym {

template <class Fn>
concept HasSpecial = requires { &Fn::element; };
template <class Fn>
concept HasRepair = requires { &Fn::repair; };
template <class Fn>
concept HasVectors = requires { Fn::vectors; };
template <class Fn>
concept Streams = requires { Fn::streams; };

// One kernel: Fn over lanes V, In input and Out output arrays; B scalar: the second input is one element for all.
template <class Fn, class V, int In, int Out, class Access, bool ScalarB, class... Params>
struct Kernel {
  using E = typename V::Element;
  using Arrays = Operands<E, In, Out>;
  using Inputs = std::array<V, In>;
  using Results = std::array<V, Out>;

  static constexpr int kVectors = [] {
    if constexpr (HasVectors<Fn>) return Fn::vectors;
    return 4;
  }();
  static constexpr int kBlock = kVectors * V::width;

  // Results this large leave the caches before they are read again (a core's share of a last-level cache is 1 to 4 MiB
  // on most machines; past it, a streaming store saves reading the line that it replaces).
  static constexpr int64_t kStreamBytes = int64_t{8} << 20;

  static V load_input(const Arrays& a, int j, int64_t i) {
    if (ScalarB && j == 1) return V(*a.in[1]);
    if constexpr (Access::strided) return load_strided<V>(a.in[j] + i * a.in_step[j], a.in_step[j]);
    return load<V>(a.in[j] + i);
  }

  static Inputs load_inputs(const Arrays& a, int64_t i) {
    Inputs x;
    for (int j = 0; j < In; ++j) x[j] = load_input(a, j, i);
    return x;
  }

  // The first k lanes from element i on, the filler in the others.
  static Inputs load_first_inputs(const Arrays& a, int64_t i, int k) {
    Inputs x;
    for (int j = 0; j < In; ++j) {
      if (ScalarB && j == 1) {
        x[j] = V(*a.in[1]);
      } else if constexpr (Access::strided) {
        alignas(32) E lanes[V::width];
        for (int lane = 0; lane < V::width; ++lane) {
          lanes[lane] = lane < k ? a.in[j][(i + lane) * a.in_step[j]] : V::filler;
        }
        x[j] = load<V>(lanes);
      } else {
        x[j] = load_first(a.in[j] + i, k, V(V::filler));
      }
    }
    return x;
  }

  static void store_results(const Arrays& a, int64_t i, const Results& r) {
    for (int j = 0; j < Out; ++j) {
      if constexpr (Access::strided) {
        alignas(32) E lanes[V::width];
        store(lanes, r[j]);
        for (int lane = 0; lane < V::width; ++lane) a.out[j][(i + lane) * a.out_step[j]] = lanes[lane];
      } else {
        store(a.out[j] + i, r[j]);
      }
    }
  }

  static void store_first_results(const Arrays& a, int64_t i, int k, const Results& r) {
    for (int j = 0; j < Out; ++j) {
      if constexpr (Access::strided) {
        alignas(32) E lanes[V::width];
        store(lanes, r[j]);
        for (int lane = 0; lane < k; ++lane) a.out[j][(i + lane) * a.out_step[j]] = lanes[lane];
      } else {
        store_first(a.out[j] + i, k, r[j]);
      }
    }
  }

  static Results compute(const Inputs& x, const Params&... params) {
    const auto r = [&]<size_t... J>(std::index_sequence<J...>) {
      return Fn::lanes(x[J]..., params...);
    }(std::make_index_sequence<In>());
    if constexpr (Out == 2) {
      return {r.first, r.second};
    } else {
      return {r};
    }
  }

  static V special_lanes(const Inputs& x) {
    return [&]<size_t... J>(std::index_sequence<J...>) { return Fn::special(x[J]...); }(std::make_index_sequence<In>());
  }

  // `count` elements from i on of which some are special: computed vector by vector, special lanes redone and reported.
  [[gnu::noinline, gnu::cold]] static void run_special(const char* name, uint32_t mode, const Arrays& a, int64_t i,
                                                       int64_t count, const Params&... params) {
    for (const int64_t end = i + count; i < end; i += V::width) {
      const int k = static_cast<int>(end - i < V::width ? end - i : V::width);
      const Inputs x = load_first_inputs(a, i, k);
      Results r = compute(x, params...);
      V mask = special_lanes(x);
      if constexpr (HasRepair<Fn>) {
        if ((mode & kErrorField) == ZYM_ERRMODE_NOERR) {
          mask = [&]<size_t... J>(std::index_sequence<J...>) {
            return Fn::repair(x[J]..., r[0], mask);
          }(std::make_index_sequence<In>());
        }
      }
      const uint32_t bits = lane_bits(mask) & ((1u << k) - 1);  // a scalar operand is special in the inactive lanes too
      if (bits != 0) {
        alignas(32) E inputs[In][V::width];
        alignas(32) E results[Out][V::width];
        const E* xs[In];
        E* rs[Out];
        for (int j = 0; j < In; ++j) store(inputs[j], x[j]), xs[j] = inputs[j];
        for (int j = 0; j < Out; ++j) store(results[j], r[j]), rs[j] = results[j];
        special_elements<E, In, Out>(&Fn::element, name, a, i, bits, xs, rs);
        for (int j = 0; j < Out; ++j) r[j] = load<V>(results[j]);
      }
      store_first_results(a, i, k, r);
    }
  }

  // One block of N vectors at element i.
  template <int N, class Store>
  [[gnu::always_inline]] static void block(const char* name, uint32_t mode, const Arrays& a, int64_t i, Store store_at,
                                           const Params&... params) {
    Inputs x[N];
#pragma GCC unroll 8
    for (int v = 0; v < N; ++v) x[v] = load_inputs(a, i + v * V::width);
    if constexpr (HasSpecial<Fn>) {
      V mask = special_lanes(x[0]);
#pragma GCC unroll 8
      for (int v = 1; v < N; ++v) mask = mask | special_lanes(x[v]);
      if (!none(mask)) [[unlikely]] {
        run_special(name, mode, a, i, N * V::width, params...);
        return;
      }
    }
#pragma GCC unroll 8
    for (int v = 0; v < N; ++v) store_at(i + v * V::width, compute(x[v], params...));
  }

  // The first or last k < width elements.
  [[gnu::always_inline]] static void partial(const char* name, uint32_t mode, const Arrays& a, int64_t i, int k,
                                             const Params&... params) {
    const Inputs x = load_first_inputs(a, i, k);
    if constexpr (HasSpecial<Fn>) {
      if ((lane_bits(special_lanes(x)) & ((1u << k) - 1)) != 0) [[unlikely]] {
        run_special(name, mode, a, i, k, params...);
        return;
      }
    }
    store_first_results(a, i, k, compute(x, params...));
  }

  [[gnu::always_inline]] static void run(const char* name, int64_t n, const Arrays& a, const Params&... params) {
    const uint32_t mode = current_mode();
    const ControlRegisters registers(mode);
    int64_t i = 0;
    if constexpr (Streams<Fn> && !Access::strided && Out == 1) {
      if (n >= kStreamBytes / static_cast<int64_t>(sizeof(E)) && disjoint(n, a)) [[unlikely]] {
        i = run_past_cache(name, mode, n, a, params...);
      }
    }
    const auto store_at = [&](int64_t at, const Results& r) { store_results(a, at, r); };
    for (; n - i >= kBlock; i += kBlock) block<kVectors>(name, mode, a, i, store_at, params...);
    for (; n - i >= V::width; i += V::width) block<1>(name, mode, a, i, store_at, params...);
    if (i < n) partial(name, mode, a, i, static_cast<int>(n - i), params...);
  }

 private:
  // Whether the result shares no memory with an input: in place, its lines are in the cache already.
  static bool disjoint(int64_t n, const Arrays& a) {
    for (int j = 0; j < In; ++j) {
      const intptr_t distance = reinterpret_cast<intptr_t>(a.in[j]) - reinterpret_cast<intptr_t>(a.out[0]);
      const intptr_t bytes = n * static_cast<intptr_t>(sizeof(E));
      if (distance > -bytes && distance < bytes && !(ScalarB && j == 1)) return false;
    }
    return true;
  }

  [[gnu::noinline]] static int64_t run_past_cache(const char* name, uint32_t mode, int64_t n, const Arrays& a,
                                                  const Params&... params) {
    const uintptr_t misaligned = reinterpret_cast<uintptr_t>(a.out[0]) % sizeof(V);
    if (misaligned % sizeof(E) != 0) return 0;
    int64_t i = 0;
    if (misaligned != 0) {
      i = static_cast<int64_t>((sizeof(V) - misaligned) / sizeof(E));
      partial(name, mode, a, 0, static_cast<int>(i), params...);
    }
    const auto store_at = [&](int64_t at, const Results& r) { store_past_cache(a.out[0] + at, r[0]); };
    for (; n - i >= kBlock; i += kBlock) block<kVectors>(name, mode, a, i, store_at, params...);
    _mm_sfence();
    return i;
  }
};

}  // namespace orvik::zym
