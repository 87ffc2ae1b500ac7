// The kernel skeleton, written once: control registers, blocks, special-lane test, masked remainder, strides. A family
// supplies a struct Fn over a lane type V with
//   lanes(V...)     the lane computation: inputs in, result (or Pair of results) out;
// and, where the fast path does not serve every input,
//   special(V...)   mask of the lanes that the element routine redoes;
//   element(...)    that routine (see special_elements);
//   repair(V..., V& r, V mask)   in NOERR mode: blends the commonest special results into r, returns the mask that is
//                   left.
// Optional: `lanes_stand` (the element routine may leave what the lanes computed), `vectors` (how many are in flight, 4
// by default), `filler` (of inactive and special lanes, where V's would raise a flag), `streams` (true where memory
// bandwidth is the only limit: large results bypass the caches).
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <utility>

#include "zym/frame/thread_state.h"
#include "zym/lanes/lanes.h"
#include "zym/skeleton/control.h"
#include "zym/skeleton/operands.h"
#include "zym/skeleton/special.h"

namespace orvik::zym {

template <class Fn>
concept HasSpecial = requires {
  &Fn::element;
};
template <class Fn>
concept HasRepair = requires {
  &Fn::repair;
};
template <class Fn>
concept HasVectors = requires {
  Fn::vectors;
};
template <class Fn>
concept HasFiller = requires {
  Fn::filler;
};
template <class Fn>
concept LanesStand = requires {
  Fn::lanes_stand;
};
template <class Fn>
concept Streams = requires {
  Fn::streams;
};

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
  static constexpr E kFiller = [] {
    if constexpr (HasFiller<Fn>) return E(Fn::filler);
    return V::filler;
  }();

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

  // The first k lanes from element i on; in the others the filler, or strided the last element again.
  static Inputs load_first_inputs(const Arrays& a, int64_t i, int k) {
    Inputs x;
    for (int j = 0; j < In; ++j) {
      if (ScalarB && j == 1) {
        x[j] = V(*a.in[1]);
      } else if constexpr (Access::strided) {
        x[j] = load_first_strided<V>(a.in[j] + i * a.in_step[j], a.in_step[j], k);
      } else {
        x[j] = load_first(a.in[j] + i, k, V(kFiller));
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

  static Results load_results(const Arrays& a, int64_t i) {
    Results r;
    for (int j = 0; j < Out; ++j) r[j] = load<V>(a.out[j] + i);
    return r;
  }

  static Results load_first_results(const Arrays& a, int64_t i, int k) {
    Results r;
    for (int j = 0; j < Out; ++j) r[j] = load_first(a.out[j] + i, k, V(kFiller));
    return r;
  }

  static void store_k_results(const Arrays& a, int64_t i, int k, const Results& r) {
    if (k == V::width) {
      store_results(a, i, r);
    } else {
      store_first_results(a, i, k, r);
    }
  }

  static Results compute(const Inputs& x, const Params&... params) {
    const auto r = [&]<size_t... J>(std::index_sequence<J...>) { return Fn::lanes(x[J]..., params...); }
    (std::make_index_sequence<In>());
    if constexpr (Out == 2) {
      return {r.first, r.second};
    } else {
      return {r};
    }
  }

  static auto special_lanes(const Inputs& x) {
    return [&]<size_t... J>(std::index_sequence<J...>) { return Fn::special(x[J]...); }
    (std::make_index_sequence<In>());
  }

  // Puts the filler into the special lanes and says which they are: what they would compute is not used, but may raise
  // flags or be slow (denormals).
  static uint32_t take_special(Inputs& x) {
    const V mask = special_lanes(x);
    if constexpr (!LanesStand<Fn>) {
      for (int j = 0; j < In; ++j) x[j] = select(mask, V(kFiller), x[j]);
    }
    return lane_bits(mask);
  }

  static V repaired(uint32_t mode, const Inputs& x, Results& r, V mask) {
    if constexpr (HasRepair<Fn>) {
      if ((mode & kErrorField) == ZYM_ERRMODE_NOERR) {
        return [&]<size_t... J>(std::index_sequence<J...>) { return Fn::repair(x[J]..., r[0], mask); }
        (std::make_index_sequence<In>());
      }
    }
    return mask;
  }

  // Inputs of a block, laid out in memory before its results are stored: the arrays may be the same.
  struct Saved {
    alignas(32) E lanes[In][kBlock];

    void keep(int v, const Inputs& x) {
      for (int j = 0; j < In; ++j) store(lanes[j] + v * V::width, x[j]);
    }
    Inputs inputs(int v) const {
      Inputs x;
      for (int j = 0; j < In; ++j) x[j] = load<V>(lanes[j] + v * V::width);
      return x;
    }
  };

  // Redoes and reports the special elements of the block at i, whose lanes' results are stored already: `bits` says
  // which. One loop over the bits of the whole block: its end is the only branch that a lone special element makes hard
  // to foresee.
  [[gnu::noinline, gnu::cold]] static void redo_special(const char* name, uint32_t mode, const Arrays& a, int64_t i,
                                                        uint32_t bits, const Saved& saved) {
    if (HasRepair<Fn> && (mode & kErrorField) == ZYM_ERRMODE_NOERR) bits = repair_block(mode, a, i, bits, saved);
    const E* xs[In];
    E* rs[Out];
    for (int j = 0; j < In; ++j) xs[j] = saved.lanes[j];
    for (int j = 0; j < Out; ++j) rs[j] = a.out[j] + i;
    special_elements<Fn, E, In, Out>(name, a, i, bits, xs, rs);
  }

  // Only elements up to the last special one are touched.
  static uint32_t repair_block(uint32_t mode, const Arrays& a, int64_t i, uint32_t bits, const Saved& saved) {
    uint32_t left = 0;
    const int count = 32 - std::countl_zero(bits);
    for (int at = 0; at < count; at += V::width) {
      const int k = count - at < V::width ? count - at : V::width;
      const Inputs x = saved.inputs(at / V::width);
      Results r = k == V::width ? load_results(a, i + at) : load_first_results(a, i + at, k);
      left |= lane_bits(repaired(mode, x, r, special_lanes(x))) << at;
      store_k_results(a, i + at, k, r);
    }
    return left & bits;
  }

  // The strided form computes as well: results are spread element by element in index order, since two elements may
  // fall on one address.
  [[gnu::noinline, gnu::cold]] static void run_special(const char* name, uint32_t mode, const Arrays& a, int64_t i,
                                                       int64_t count, const Params&... params) {
    for (const int64_t end = i + count; i < end; i += V::width) {
      const int k = static_cast<int>(end - i < V::width ? end - i : V::width);
      Saved saved;
      saved.keep(0, load_first_inputs(a, i, k));
      const Inputs x = saved.inputs(0);
      Inputs plain = x;
      take_special(plain);
      Results r = compute(plain, params...);
      const uint32_t bits = lane_bits(repaired(mode, x, r, special_lanes(x))) & ((1u << k) - 1);
      if (bits != 0) {
        alignas(32) E results[Out][V::width];
        const E* xs[In];
        E* rs[Out];
        for (int j = 0; j < In; ++j) xs[j] = saved.lanes[j];
        for (int j = 0; j < Out; ++j) {
          store(results[j], r[j]);
          rs[j] = results[j];
        }
        special_elements<Fn, E, In, Out>(name, a, i, bits, xs, rs);
        for (int j = 0; j < Out; ++j) r[j] = load<V>(results[j]);
      }
      store_first_results(a, i, k, r);
    }
  }

  // Blocks of N vectors from element i on, as many as fit; returns where it stopped. The loop over plain blocks holds
  // no call, so that the constants stay in registers; a block with a special lane leaves it and comes back.
  template <int N, class Store>
  [[gnu::always_inline]] static int64_t blocks(const char* name, uint32_t mode, int64_t n, const Arrays& a, int64_t i,
                                               Store store_at, const Params&... params) {
    constexpr int64_t kElements = N * V::width;
    const int64_t last = n - kElements;
    static_assert(kElements <= 32);
    for (;;) {
      bool plain = true;
      while (i <= last) {
        Inputs x[N];
#pragma GCC unroll 8
        for (int v = 0; v < N; ++v) x[v] = load_inputs(a, i + v * V::width);
        if constexpr (HasSpecial<Fn>) {
          auto mask = special_lanes(x[0]);
#pragma GCC unroll 8
          for (int v = 1; v < N; ++v) mask = mask | special_lanes(x[v]);
          plain = none(mask);
          if (!plain) [[unlikely]]
            break;
        }
#pragma GCC unroll 8
        for (int v = 0; v < N; ++v) store_at(i + v * V::width, compute(x[v], params...));
        i += kElements;
      }
      if (plain) return i;
      if constexpr (HasSpecial<Fn>) {
        const Arrays copy = a;  // the hot loop's pointers must not escape
        if constexpr (Access::strided) {
          run_special(name, mode, copy, i, kElements, params...);
        } else {
          Saved saved;
          uint32_t bits = 0;
          Inputs x[N];
#pragma GCC unroll 8
          for (int v = 0; v < N; ++v) {
            x[v] = load_inputs(a, i + v * V::width);
            saved.keep(v, x[v]);
            bits |= take_special(x[v]) << (v * V::width);
          }
#pragma GCC unroll 8
          for (int v = 0; v < N; ++v) store_at(i + v * V::width, compute(x[v], params...));
          redo_special(name, mode, copy, i, bits, saved);
        }
        i += kElements;
      }
    }
  }

  // The first or last k < width elements.
  [[gnu::always_inline]] static void partial(const char* name, uint32_t mode, const Arrays& a, int64_t i, int k,
                                             const Params&... params) {
    Inputs x = load_first_inputs(a, i, k);
    if constexpr (HasSpecial<Fn>) {
      // A scalar operand is special in the inactive lanes too.
      if ((lane_bits(special_lanes(x)) & ((1u << k) - 1)) != 0) [[unlikely]] {
        const Arrays copy = a;
        if constexpr (Access::strided) {
          run_special(name, mode, copy, i, k, params...);
        } else {
          Saved saved;
          saved.keep(0, x);
          const uint32_t bits = take_special(x) & ((1u << k) - 1);
          store_first_results(a, i, k, compute(x, params...));
          redo_special(name, mode, copy, i, bits, saved);
        }
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
        const Arrays copy = a;
        i = run_past_cache(name, mode, n, copy, params...);
      }
    }
    const auto store_at = [&](int64_t at, const Results& r) { store_results(a, at, r); };
    i = blocks<kVectors>(name, mode, n, a, i, store_at, params...);
    i = blocks<1>(name, mode, n, a, i, store_at, params...);
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
    i = blocks<kVectors>(name, mode, n, a, i, store_at, params...);
    _mm_sfence();
    return i;
  }
};

}  // namespace orvik::zym
