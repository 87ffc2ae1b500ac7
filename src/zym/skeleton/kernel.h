// The kernel skeleton, written once: control registers, blocks, special-lane test, tails. Kernel<Fn, V, S> joins a
// family struct (see family.h) to the arrays that the signature S says. Inlined are the loop over whole blocks and one
// more copy of the lanes, in run(); all else is shared by all kernels (body.h).
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

#include "serv/caches.h"
#include "zym/frame/report.h"
#include "zym/frame/thread_state.h"
#include "zym/skeleton/body.h"
#include "zym/skeleton/control.h"
#include "zym/skeleton/family.h"
#include "zym/skeleton/signature.h"

namespace orvik::zym {

// The parameters of a call, handed on by address.
struct NoParams {};
inline constexpr NoParams kNoParams;

template <class Fn, class V, Signature S, class Params = NoParams>
struct Kernel {
  using E = Element<V>;
  template <Kind K>
  using ArrayElement = std::conditional_t<K == Kind::complex || K == Kind::complex_scalar, Complex<E>, E>;
  using A = ArrayElement<S.a>;
  using B = ArrayElement<S.b>;
  using R = ArrayElement<S.r>;
  // A vector of elements: lanes, or pairs of real and imaginary parts.
  template <class T>
  using LanesOf = std::conditional_t<std::is_same_v<T, E>, V, Pair<V>>;
  using Traits = FamilyTraits<Fn>;

  static constexpr bool kBinary = S.b != Kind::none;
  static constexpr bool kScalarB = S.b == Kind::scalar || S.b == Kind::complex_scalar;
  static constexpr bool kTwoResults = S.results == 2;
  static constexpr Knobs kKnobs = Traits::knobs;
  // Of 512 bits two vectors are a whole block, and twice the registers hold what goes with them.
  static constexpr bool kWide = sizeof(V) == 64;
  static constexpr int kVectors = kWide ? 2 : kKnobs.vectors;
  static constexpr int kBlock = kVectors * kWidth<V> > kMaxBlock ? kMaxBlock : kVectors* kWidth<V>;

  using Registers = ControlRegisters<kKnobs.stray>;

  struct Inputs {
    LanesOf<A> a;
    [[no_unique_address]] std::conditional_t<kBinary, LanesOf<B>, NoParams> b;
  };
  using Result = std::conditional_t<kTwoResults, Pair<V>, LanesOf<R>>;

  // --- one vector ---------------------------------------------------------------------------------------------------

  template <class T>
  static LanesOf<T> load_lanes(const T* p) {
    if constexpr (std::is_same_v<T, E>) {
      return load<V>(p);
    } else {
      return load_pairs<V>(reinterpret_cast<const E*>(p));
    }
  }
  template <class T>
  static LanesOf<T> load_first_lanes(const T* p, int k) {
    if constexpr (kKnobs.own_filler) {
      return load_first(p, k, V(*p));
    } else if constexpr (std::is_same_v<T, E>) {
      return load_first(p, k, V(E(kKnobs.filler)));
    } else {
      return load_first_pairs(reinterpret_cast<const E*>(p), k, V(E(kKnobs.filler)));
    }
  }
  template <class T>
  static void store_lanes(T* p, LanesOf<T> x) {
    if constexpr (std::is_same_v<T, E>) {
      store(p, x);
    } else {
      store_pairs(reinterpret_cast<E*>(p), x);
    }
  }
  template <class T>
  static void store_first_lanes(T* p, int k, LanesOf<T> x) {
    if constexpr (std::is_same_v<T, E>) {
      store_first(p, k, x);
    } else {
      store_first_pairs(reinterpret_cast<E*>(p), k, x);
    }
  }
  static LanesOf<B> broadcast(const B* p) {
    if constexpr (std::is_same_v<B, E>) {
      return V(*p);
    } else {
      return {V(p->re), V(p->im)};
    }
  }

  static Inputs load_inputs(const A* a, const B* b, int64_t i) {
    Inputs x;
    x.a = load_lanes(a + i);
    if constexpr (kScalarB) {
      x.b = broadcast(b);
    } else if constexpr (kBinary) {
      x.b = load_lanes(b + i);
    }
    return x;
  }
  static Inputs load_first_inputs(const A* a, const B* b, int64_t i, int k) {
    Inputs x;
    x.a = load_first_lanes(a + i, k);
    if constexpr (kScalarB) {
      x.b = broadcast(b);
    } else if constexpr (kBinary) {
      x.b = load_first_lanes(b + i, k);
    }
    return x;
  }
  static void store_results(R* r1, R* r2, int64_t i, const Result& r) {
    if constexpr (kTwoResults) {
      store(r1 + i, r.first);
      store(r2 + i, r.second);
    } else {
      store_lanes(r1 + i, r);
    }
  }
  static void store_first_results(R* r1, R* r2, int64_t i, int k, const Result& r) {
    if constexpr (kTwoResults) {
      store_first(r1 + i, k, r.first);
      store_first(r2 + i, k, r.second);
    } else {
      store_first_lanes(r1 + i, k, r);
    }
  }

  // Calls a member of the family with the inputs, then what else it takes, then the parameters where there are some.
  template <class F, class In, class... More>
  static auto apply(F f, const In& x, const Params& params, More&&... more) {
    if constexpr (kBinary && std::is_same_v<Params, NoParams>) return f(x.a, x.b, more...);
    if constexpr (kBinary && !std::is_same_v<Params, NoParams>) return f(x.a, x.b, more..., params);
    if constexpr (!kBinary && std::is_same_v<Params, NoParams>) return f(x.a, more...);
    if constexpr (!kBinary && !std::is_same_v<Params, NoParams>) return f(x.a, more..., params);
  }
  template <class In>
  [[gnu::always_inline]] static auto lanes(const In& x, const Params& params) {
    return apply(
        [](const auto&... y) __attribute__((always_inline)) { return Fn::lanes(y...); }, x, params);
  }
  [[gnu::always_inline]] static auto special(const Inputs& x, const Params& params) {
    return apply(
        [](const auto&... y) __attribute__((always_inline)) { return Fn::special(y...); }, x, params);
  }
  static auto lanes_result() {
    if constexpr (Traits::has_lanes) {
      return lanes(Inputs{}, Params{});
    } else {
      return Result{};
    }
  }
  using LanesResult = decltype(lanes_result());
  static constexpr bool kMasked = IsMasked<LanesResult>::value;
  static constexpr bool kTested = Traits::has_special;
  static constexpr bool kSpecial = kMasked || kTested;
  static_assert(!kMasked || Traits::has_element, "lanes that leave some need an element routine");
  static_assert(kSpecial || !Traits::has_lanes || !Traits::has_element, "an element routine that nothing calls");

  template <class L>
  static const auto& value_of(const L& r) {
    if constexpr (kMasked) {
      return r.value;
    } else {
      return r;
    }
  }

  // --- complex elements in the hot loop -----------------------------------------------------------------------------

  // It needs no order: as they lie in memory, where the family has lanes for them so, or as they come apart most
  // cheaply.
  static constexpr bool kComplex = S.a == Kind::complex || S.b == Kind::complex || S.r == Kind::complex;
  static constexpr bool kStored = [] {
    if constexpr (kBinary) {
      return requires { Fn::lanes(Stored<V>{}, Stored<V>{}); };
    } else {
      return requires { Fn::lanes(Stored<V>{}); };
    }
  }();
  static_assert(!kStored || (kComplex && !kTested && !kScalarB),
                "stored parts: complex arrays, no special lanes by input");

  struct StoredInputs {
    Stored<V> a;
    [[no_unique_address]] std::conditional_t<kBinary, Stored<V>, NoParams> b;
  };
  template <class T>
  static auto load_loop_lanes(const T* p) {
    if constexpr (!kComplex) {
      return load<V>(p);
    } else if constexpr (std::is_same_v<T, E>) {
      return mixed(load<V>(p));
    } else if constexpr (kStored) {
      return load_stored<V>(reinterpret_cast<const E*>(p));
    } else {
      return load_mixed_pairs(reinterpret_cast<const E*>(p));
    }
  }
  static auto load_loop_inputs(const A* a, const B* b, int64_t i) {
    std::conditional_t<kStored, StoredInputs, Inputs> x;
    x.a = load_loop_lanes(a + i);
    if constexpr (kScalarB) {
      x.b = broadcast(b);
    } else if constexpr (kBinary) {
      x.b = load_loop_lanes(b + i);
    }
    return x;
  }
  // What goes to memory: a vector, or two.
  template <class L>
  static auto loop_result(const L& r) {
    if constexpr (!kComplex || kStored) {
      return r;
    } else if constexpr (std::is_same_v<R, E>) {
      return in_order(r);
    } else {
      return stored(r);
    }
  }
  template <class L>
  static void store_loop_results(R* r1, R* r2, int64_t i, const L& r) {
    if constexpr (kTwoResults) {
      store_results(r1, r2, i, r);
    } else {
      store(reinterpret_cast<E*>(r1 + i), loop_result(r));
    }
  }

  // --- two vectors side by side -------------------------------------------------------------------------------------

  static constexpr bool kTogether = kWide && kKnobs.together && !kStored;
  static Twice<V> together(const V& low, const V& high) { return {low, high}; }
  static Pair<Twice<V>> together(const Pair<V>& low, const Pair<V>& high) {
    return {{low.first, high.first}, {low.second, high.second}};
  }
  [[gnu::always_inline]] static auto lanes_together(const Inputs& low, const Inputs& high, const Params& params) {
    const auto both = [&](const auto&... y) __attribute__((always_inline)) {
      return Rebound<Fn, Twice<V>>::type::lanes(y...);
    };
    if constexpr (kBinary) {
      struct {
        decltype(together(low.a, high.a)) a;
        decltype(together(low.b, high.b)) b;
      } const x = {together(low.a, high.a), together(low.b, high.b)};
      return apply(both, x, params);
    } else {
      struct {
        decltype(together(low.a, high.a)) a;
      } const x = {together(low.a, high.a)};
      return apply(both, x, params);
    }
  }
  static V low_of(const Twice<V>& x) { return x.low; }
  static V high_of(const Twice<V>& x) { return x.high; }
  static Pair<V> low_of(const Pair<Twice<V>>& x) { return {x.first.low, x.second.low}; }
  static Pair<V> high_of(const Pair<Twice<V>>& x) { return {x.first.high, x.second.high}; }

  template <class L>
  static L filled(Mask<V> mask, const L& x) {
    const V filler = V(E(kKnobs.filler));
    if constexpr (std::is_same_v<L, V>) {
      return select(mask, filler, x);
    } else {
      return {select(mask, filler, x.first), select(mask, filler, x.second)};
    }
  }
  // What special lanes would compute is not used, but may raise flags or be slow (denormals).
  static void fill(Mask<V> mask, Inputs& x) {
    if constexpr (!kKnobs.lanes_stand) {
      x.a = filled(mask, x.a);
      if constexpr (kBinary) x.b = filled(mask, x.b);
    }
  }

  static constexpr uint32_t first_bits(int k) { return static_cast<uint32_t>((uint64_t{1} << k) - 1); }
  static constexpr uint32_t kAllLanes = static_cast<uint32_t>((uint64_t{1} << kWidth<V>)-1);

  // --- the lanes out of line (see Body) -----------------------------------------------------------------------------

  [[gnu::noinline]] static uint32_t run(const void* pa, const void* pb, void* pr1, void* pr2, int64_t n,
                                        const void* pparams) {
    const auto* a = static_cast<const A*>(pa);
    const auto* b = static_cast<const B*>(pb);
    auto* r1 = static_cast<R*>(pr1);
    auto* r2 = static_cast<R*>(pr2);
    const Params& params = *static_cast<const Params*>(pparams);
    uint32_t all = 0;
#pragma GCC unroll 1
    for (int64_t i = 0; i < n; i += kWidth<V>) {
      const int k = static_cast<int>(n - i);
      Inputs x = k >= kWidth<V> ? load_inputs(a, b, i) : load_first_inputs(a, b, i, k);
      const uint32_t here = k >= kWidth<V> ? kAllLanes : first_bits(k);
      uint32_t bits = 0;
      if constexpr (kTested) {
        const auto mask = special(x, params);
        bits = lane_bits(mask) & here;
        if constexpr (Traits::has_wide) {  // nothing here for the first tier
          if (bits == kAllLanes) {
            all |= bits << i;
            continue;
          }
        }
        fill(Mask<V>(mask), x);
      }
      const LanesResult r = lanes(x, params);
      if constexpr (kMasked) bits |= lane_bits(r.special) & here;
      if (k >= kWidth<V>) {
        store_results(r1, r2, i, value_of(r));
      } else {
        store_first_results(r1, r2, i, k, value_of(r));
      }
      all |= bits << i;
    }
    return all;
  }

  // --- special elements (see Body) ----------------------------------------------------------------------------------

  // The second vector tier over the vectors that hold special lanes: what it serves is blended into the results.
  // The same for the cheap repair. Both return the bits that are left.
  template <class Serve>
  static uint32_t over_special_vectors(const A* a, const B* b, R* r1, R* r2, int count, uint32_t bits, Serve serve) {
    uint32_t left = 0;
    for (int i = 0; i < count; i += kWidth<V>) {
      const uint32_t here = bits >> i & kAllLanes;
      if (here == 0) continue;
      const int k = count - i < kWidth<V> ? count - i : kWidth<V>;
      const Inputs x = k == kWidth<V> ? load_inputs(a, b, i) : load_first_inputs(a, b, i, k);
      Result r{};
      if (here == kAllLanes) {
        // Nothing to keep.
      } else if constexpr (kTwoResults) {
        r = {load_first(r1 + i, k, V(E(0))), load_first(r2 + i, k, V(E(0)))};
      } else {
        r = load_first_lanes(static_cast<const R*>(r1 + i), k);
      }
      left |= (serve(i, x, mask_of_bits<V>(here), r) & here) << i;
      if (k == kWidth<V>) {
        store_results(r1, r2, i, r);
      } else {
        store_first_results(r1, r2, i, k, r);
      }
    }
    return left;
  }

  // Hot: an array of large arguments spends its time here. (What only cold functions call is compiled for size.)
  [[gnu::noinline, gnu::hot]] static uint32_t run_wide(const A* a, const B* b, R* r1, R* r2, int count, uint32_t bits,
                                                       const Params& params) {
    return over_special_vectors(a, b, r1, r2, count, bits, [&](int, Inputs x, Mask<V> mask, Result& r) {
      const bool all = lane_bits(mask) == kAllLanes;
      if (!all) fill(complement(mask), x);
      const auto w = apply(
          [](const auto&... y) __attribute__((always_inline)) { return Fn::wide(y...); }, x, params);
      if (all) {  // what is not served is written by the element routine
        r = w.value;
        return lane_bits(Mask<V>(w.special));
      }
      const Mask<V> served = andnot(Mask<V>(w.special), mask);
      if constexpr (std::is_same_v<Result, V>) {
        r = select(served, w.value, r);
      } else {
        r = {select(served, w.value.first, r.first), select(served, w.value.second, r.second)};
      }
      return lane_bits(Mask<V>(w.special));
    });
  }
  // With reports that count, the last element of each code is left too, in whose place the routine reports.
  [[gnu::noinline, gnu::hot]] static uint32_t run_repair(const A* a, const B* b, R* r1, R* r2, int count, uint32_t bits,
                                                         bool reports) {
    const V largest = V(std::numeric_limits<E>::max());
    uint32_t infinite = 0, no_number = 0, others = 0;
    const uint32_t left = over_special_vectors(a, b, r1, r2, count, bits, [&](int i, const Inputs& x, Mask<V> mask, V& r) {
      const Mask<V> rest = Fn::repair(x.a, r, mask);
      if (reports) {
        const uint32_t of_finite = lane_bits(andnot(rest, (magnitude(x.a) <= largest) & mask));
        const uint32_t large = lane_bits(magnitude(r) > largest), nan = lane_bits(unordered(r, r));
        infinite |= (of_finite & large) << i, no_number |= (of_finite & nan) << i;
        others |= (of_finite & ~(large | nan)) << i;
      }
      return lane_bits(rest);
    });
    return left | std::bit_floor(infinite) | std::bit_floor(no_number) | std::bit_floor(others);
  }

  static int32_t run_element(const A* a, const B* b, R* r1, R* r2, const Params& params) {
    const auto with_results = [&](auto... inputs) {
      if constexpr (kTwoResults && std::is_same_v<Params, NoParams>) return Fn::element(inputs..., r1, r2);
      if constexpr (kTwoResults && !std::is_same_v<Params, NoParams>) return Fn::element(inputs..., r1, r2, params);
      if constexpr (!kTwoResults && std::is_same_v<Params, NoParams>) return Fn::element(inputs..., r1);
      if constexpr (!kTwoResults && !std::is_same_v<Params, NoParams>) return Fn::element(inputs..., r1, params);
    };
    if constexpr (kBinary) {
      return with_results(a, b);
    } else {
      return with_results(a);
    }
  }

  [[gnu::cold]] static void redo(const Call& call, int64_t index, const void* pa, const void* pb, void* pr1, void* pr2,
                                 int count, uint32_t bits) {
    const auto* a = static_cast<const A*>(pa);
    const auto* b = static_cast<const B*>(pb);
    auto* r1 = static_cast<R*>(pr1);
    auto* r2 = static_cast<R*>(pr2);
    const Params& params = *static_cast<const Params*>(call.params);
    if constexpr (Traits::has_wide) {
      bits = run_wide(a, b, r1, r2, count, bits, params);
      if constexpr (kKnobs.stray != 0) clear_stray(kKnobs.stray & ~*call.kept);
    }
    if constexpr (Traits::has_repair) {
      static_assert(!kBinary && !kTwoResults && std::is_same_v<Params, NoParams>);
      const bool reports = (call.mode & kErrorField) != ZYM_ERRMODE_NOERR;
      if (!reports || reports_unheard()) bits = run_repair(a, b, r1, r2, count, bits, reports);
    }
    // One loop over the bits of the whole block: its end is the only branch that a lone special element makes hard to
    // foresee.
    for (; bits != 0; bits &= bits - 1) {
      const int lane = std::countr_zero(bits);
      const B* at = kBinary && !kScalarB ? b + lane : b;
      const int32_t code = run_element(a + lane, at, r1 + lane, kTwoResults ? r2 + lane : nullptr, params);
      if constexpr (S.reports) {
        if (code != 0) report_element(call, code, index + lane, r1 + lane, kTwoResults ? r2 + lane : nullptr);
      }
    }
  }

  // The loop of a family without lanes, in line with its routine: the constants of one element serve the next.
  [[gnu::noinline]] static void elements(const Call& call, int64_t n) {
    const Params& params = *static_cast<const Params*>(call.params);
    for (int64_t i = 0; i < n; ++i) {
      const A a = *static_cast<const A*>(call.input(0, i));  // read before the results, which may stand in its place
      B b{};
      if constexpr (kBinary) b = *static_cast<const B*>(call.input(1, i));
      R* const r1 = static_cast<R*>(call.output(0, i));
      R* const r2 = kTwoResults ? static_cast<R*>(call.output(1, i)) : nullptr;
      const int32_t code = run_element(&a, &b, r1, r2, params);
      if constexpr (S.reports) {
        if (code != 0) [[unlikely]]
          report_element(call, code, i, r1, r2);
      }
    }
  }

  static constexpr Body make_body(const char* name) {
    Body body = {};
    if constexpr (Traits::has_lanes) {
      body.unit = unit_piece;
      body.run = run;
      if constexpr (kSpecial) body.redo = redo;
    } else {
      body.elements = elements;
    }
    body.name = S.reports ? name : nullptr;
    body.inputs = kBinary ? 2 : 1;
    body.outputs = kTwoResults ? 2 : 1;
    body.in_bytes[0] = sizeof(A);
    body.in_bytes[1] = sizeof(B);
    body.out_bytes[0] = body.out_bytes[1] = sizeof(R);
    body.scalar = kScalarB;
    body.complex = S.a == Kind::complex;
    body.stray = kKnobs.stray;
    body.single = Single<V>;
    body.block = kBlock;
    body.piece = kRowBytes / std::max({sizeof(A), sizeof(B), sizeof(R)});
    return body;
  }

  // Nothing is handed on by the address of a constant, so that a call needs no memory for it.
  static const void* address_of(const Params& params) {
    if constexpr (std::is_same_v<Params, NoParams>) return &kNoParams;
    return &params;
  }

  // --- whole calls --------------------------------------------------------------------------------------------------

  // Calls that the narrow kernel serves in place of the wide one: no shorter call takes wide registers into use.
  static constexpr bool is_short(int64_t n) { return kWide && n < kBlock; }
  static constexpr bool is_short_strided(int64_t n) { return kWide && n <= kMaxBlock; }

  static Operands unit_operands(const A* a, const B* b, R* r1, R* r2) {
    return {{reinterpret_cast<const char*>(a), kBinary ? reinterpret_cast<const char*>(b) : nullptr},
            {sizeof(A), kScalarB ? 0 : sizeof(B)},
            {reinterpret_cast<char*>(r1), kTwoResults ? reinterpret_cast<char*>(r2) : nullptr},
            {sizeof(R), sizeof(R)}};
  }

  // Whole blocks, as many as fit, up to the first with a special lane; returns the number of elements done. The loop
  // holds no call, so that the constants stay in registers. A block is read whole before any of it is stored.
  template <class Load, class Store>
  [[gnu::always_inline]] static int64_t plain_blocks(int64_t n, Params params, Load load_at, Store store_at) {
    constexpr int N = kBlock / kWidth<V>;
    int64_t i = 0;
    for (const int64_t last = n - kBlock; i <= last; i += kBlock) {
      decltype(load_at(i)) x[N];
#pragma GCC unroll 8
      for (int v = 0; v < N; ++v) x[v] = load_at(i + v * kWidth<V>);
      if constexpr (kTested) {
        auto mask = special(x[0], params);
#pragma GCC unroll 8
        for (int v = 1; v < N; ++v) mask = mask | special(x[v], params);
        if (!none(mask)) [[unlikely]]
          return i;
      }
      if constexpr (kTogether) {
        const auto r = lanes_together(x[0], x[1], params);
        if constexpr (kMasked) {
          if (!none(r.special)) [[unlikely]]
            return i;
        }
        store_at(i, low_of(value_of(r)));
        store_at(i + kWidth<V>, high_of(value_of(r)));
      } else {
        decltype(lanes(x[0], params)) r[N];
#pragma GCC unroll 8
        for (int v = 0; v < N; ++v) r[v] = lanes(x[v], params);
        if constexpr (kMasked) {
          auto mask = r[0].special;
#pragma GCC unroll 8
          for (int v = 1; v < N; ++v) mask = mask | r[v].special;
          if (!none(mask)) [[unlikely]]
            return i;
        }
#pragma GCC unroll 8
        for (int v = 0; v < N; ++v) store_at(i + v * kWidth<V>, value_of(r[v]));
      }
    }
    return i;
  }

  // Out of line: the hot loop's pointers must not escape.
  [[gnu::noinline, gnu::cold]] static void special_block(const Body& body, uint32_t mode, const A* a, const B* b, R* r1,
                                                         R* r2, int64_t i, int count, Params params, uint32_t* kept,
                                                         Piece* piece) {
    const Operands operands = unit_operands(a, b, r1, r2);
    run_special_block({body, mode, operands, address_of(params), kept, piece}, i, count);
  }

  // Both ways are calls in last place: what a short call saves of registers is its own.
  [[gnu::always_inline]] static void unit(const Body& body, int64_t n, const A* a, const B* b, R* r1, R* r2,
                                          Params params, Piece* piece = nullptr) {
    if constexpr (!Traits::has_lanes) {
      run_element_loop(body, n, unit_operands(a, b, r1, r2), address_of(params));
    } else if (n >= kBlock) {
      unit_blocks(body, n, a, b, r1, r2, params, piece);
    } else {
      unit_short(body, n, a, b, r1, r2, params, piece);
    }
  }
  static void unit_piece(const Body& body, int64_t n, const void* a, const void* b, void* r1, void* r2,
                         const void* params, Piece* piece) {
    unit(body, n, static_cast<const A*>(a), static_cast<const B*>(b), static_cast<R*>(r1), static_cast<R*>(r2),
         *static_cast<const Params*>(params), piece);
  }

  [[gnu::noinline]] static void unit_short(const Body& body, int64_t n, const A* a, const B* b, R* r1, R* r2,
                                           Params params, Piece* piece) {
    const uint32_t mode = current_mode();
    Registers registers(mode);
    tail(body, mode, n, a, b, r1, r2, 0, params, registers.kept(), piece);
  }

  [[gnu::noinline]] static void unit_blocks(const Body& body, int64_t n, const A* a, const B* b, R* r1, R* r2,
                                            Params params, Piece* piece) {
    const uint32_t mode = current_mode();
    Registers registers(mode);
    int64_t i = 0;
    if (begins_apart(n, r1)) [[unlikely]] {
      if constexpr (kSpecial) {
        i = first_elements(body, n, a, b, r1, r2, params, mode, registers.kept(), piece);
      } else {
        i = first_elements(body, n, a, b, r1, r2, params);
      }
      if constexpr (kMayPassCaches) {
        if (past_caches(n)) i += past_cache(n - i, a + i, kBinary && !kScalarB ? b + i : b, r1 + i, params);
      }
    }
    for (;;) {
      const int64_t from = i;
      i += plain_blocks(
          n - i, params, [&](int64_t at) { return load_loop_inputs(a, b, from + at); },
          [&](int64_t at, const auto& r) { store_loop_results(r1, r2, from + at, r); });
      if (n - i < kBlock) break;
      if constexpr (kSpecial) {
        special_block(body, mode, a, b, r1, r2, i, kBlock, params, registers.kept(), piece);
        i += kBlock;
      }
    }
    tail(body, mode, n, a, b, r1, r2, i, params, registers.kept(), piece);
  }

  // What is left behind the last whole block: single vectors, then the first lanes of one.
  [[gnu::always_inline]] static void tail(const Body& body, uint32_t mode, int64_t n, const A* a, const B* b, R* r1,
                                          R* r2, int64_t i, Params params, uint32_t* kept, Piece* piece) {
#pragma GCC unroll 1
    for (; i < n; i += kWidth<V>) {
      const int64_t k = n - i;
      const Inputs x = k >= kWidth<V> ? load_inputs(a, b, i) : load_first_inputs(a, b, i, static_cast<int>(k));
      const uint32_t here = k >= kWidth<V> ? kAllLanes : first_bits(static_cast<int>(k));
      if constexpr (kTested) {
        // A scalar operand is special in the inactive lanes too.
        if ((lane_bits(special(x, params)) & here) != 0) [[unlikely]] {
          return special_block(body, mode, a, b, r1, r2, i, static_cast<int>(k), params, kept, piece);
        }
      }
      const LanesResult r = lanes(x, params);
      if constexpr (kMasked) {
        if ((lane_bits(r.special) & here) != 0) [[unlikely]] {
          return special_block(body, mode, a, b, r1, r2, i, static_cast<int>(k), params, kept, piece);
        }
      }
      if (k >= kWidth<V>) {
        store_results(r1, r2, i, value_of(r));
      } else {
        store_first_results(r1, r2, i, static_cast<int>(k), value_of(r));
      }
    }
  }

  // Any increments: gathered, computed as above, spread (body.cc). Scattered doubles, of which few fit a vector, go from
  // array to array without the rows between, but for special and last ones.
  static void strided(const Body& body, int64_t n, const A* a, int64_t incA, const B* b, int64_t incB, R* r1,
                      int64_t incR1, R* r2, int64_t incR2, Params params) {
    const Operands operands = {{reinterpret_cast<const char*>(a), reinterpret_cast<const char*>(b)},
                               {incA * static_cast<int64_t>(sizeof(A)), incB * static_cast<int64_t>(sizeof(B))},
                               {reinterpret_cast<char*>(r1), reinterpret_cast<char*>(r2)},
                               {incR1 * static_cast<int64_t>(sizeof(R)), incR2 * static_cast<int64_t>(sizeof(R))}};
    if constexpr (!Traits::has_lanes) {
      run_element_loop(body, n, operands, address_of(params));
    } else if (n <= 1) {
      unit(body, n, a, b, r1, r2, params);
    } else {
      int64_t done = 0;
      if constexpr (Double<V> && S.a == Kind::real && S.r == Kind::real) {
        done = direct(body, n, a, incA, b, incB, r1, incR1, r2, incR2, operands, params);
        if (done == n) return;
      }
      if (n - done <= kMaxBlock) {
        run_strided_short<sizeof(A), sizeof(R)>(body, done, n, operands, address_of(params));
      } else {
        run_strided(body, n, operands, address_of(params));
      }
    }
  }

  // Two vectors at a time, as many as fit; none where arrays meet. Returns the number of elements done.
  [[gnu::always_inline]] static int64_t direct(const Body& body, int64_t n, const A* a, int64_t incA, const B* b,
                                               int64_t incB, R* r1, int64_t incR1, R* r2, int64_t incR2,
                                               const Operands& operands, Params params) {
    constexpr int N = kVectors > 1 ? 2 : 1;
    constexpr int64_t kStep = N * kWidth<V>;
    if (n < kStep || !scattered(body, operands) || !apart(body, operands, n)) return 0;
    const uint32_t mode = current_mode();
    Registers registers(mode);
    const int64_t last = n - kStep;
    int64_t i = 0;
    for (; i <= last; i += kStep) {
      Inputs x[N];
#pragma GCC unroll 2
      for (int v = 0; v < N; ++v) {
        x[v].a = load_strided<V>(a, incA);
        a += kWidth<V> * incA;
        if constexpr (kScalarB) {
          x[v].b = broadcast(b);
        } else if constexpr (kBinary) {
          x[v].b = load_strided<V>(b, incB);
          b += kWidth<V> * incB;
        }
      }
      bool plain = true;
      if constexpr (kTested) {
        auto mask = special(x[0], params);
        if constexpr (N == 2) mask = mask | special(x[N - 1], params);
        plain = none(mask);
      }
      if (plain) [[likely]] {
        LanesResult r[N];
#pragma GCC unroll 2
        for (int v = 0; v < N; ++v) r[v] = lanes(x[v], params);
        if constexpr (kMasked) {
          auto mask = r[0].special;
          if constexpr (N == 2) mask = mask | r[N - 1].special;
          plain = none(mask);
        }
        if (plain) [[likely]] {
#pragma GCC unroll 2
          for (int v = 0; v < N; ++v) {
            const int64_t at = v * kWidth<V>;
            if constexpr (kTwoResults) {
              store_strided(r1 + at * incR1, incR1, value_of(r[v]).first);
              store_strided(r2 + at * incR2, incR2, value_of(r[v]).second);
            } else {
              store_strided(r1 + at * incR1, incR1, value_of(r[v]));
            }
          }
        }
      }
      if (!plain) [[unlikely]] {
        // A call of its own, whose flags are of its results: those of the lanes before it are out of its way, and what
        // it leaves stays.
        if constexpr (kKnobs.stray != 0) clear_stray(kKnobs.stray & ~*registers.kept());
        run_strided_short<sizeof(A), sizeof(R)>(body, i, i + kStep, operands, address_of(params));
        if constexpr (kKnobs.stray != 0) keep_stray(kKnobs.stray, registers.kept());
      }
      r1 += kStep * incR1;
      if constexpr (kTwoResults) r2 += kStep * incR2;
    }
    return i;
  }

 private:
  // Results this large leave the caches before they are read again (a core's share of a last-level cache is 1 to 4 MiB
  // on most machines; past it, a streaming store saves reading the line that it replaces). Three arrays of as many
  // bytes, each the next one's input, take as long either way where that share is much larger.
  static constexpr int64_t kStreamBytes = int64_t{7} << 20;

  static constexpr bool kMayPassCaches = kKnobs.streams && !kTwoResults;
  // Where a cache of the last level is near, it holds more of two arrays as large as each other.
  static constexpr bool kTwoArrays = sizeof(A) + (kBinary && !kScalarB ? sizeof(B) : 0) <= sizeof(R);
  static bool past_caches(int64_t n) {
    if constexpr (!kMayPassCaches) return false;
    const int64_t bytes = n * static_cast<int64_t>(sizeof(R));
    return bytes >= kStreamBytes && (!kTwoArrays || bytes >= serv::kept_result_bytes);
  }

  // A store that crosses a cache line costs as much as two; fewer blocks than these do not repay what aligns them.
  static constexpr int64_t kAlignedBlocks = kKnobs.streams && !kSpecial ? 8 : 128;

  static bool begins_apart(int64_t n, const R* r1) {
    return n >= kAlignedBlocks * kBlock && (reinterpret_cast<uintptr_t>(r1) % sizeof(V) != 0 || past_caches(n));
  }

  // Out of line, as special_block. Where no element is special, nothing of the call is needed but its arrays.
  template <class... OfCall>
  [[gnu::noinline, gnu::cold]] static int64_t first_elements(const Body& body, int64_t n, const A* a, const B* b, R* r1,
                                                             R* r2, Params params, OfCall... of_call) {
    const Operands operands = unit_operands(a, b, r1, r2);
    if constexpr (kSpecial) {
      const auto with = [&](uint32_t mode, uint32_t* kept, Piece* piece) {
        return run_to_aligned({body, mode, operands, address_of(params), kept, piece}, n, sizeof(V));
      };
      return with(of_call...);
    } else {
      return run_to_aligned({body, 0, operands, address_of(params), nullptr, nullptr}, n, sizeof(V));
    }
  }

  // Whether the result shares no memory with an input: in place, its lines are in the cache already.
  static bool disjoint(int64_t n, const A* a, const B* b, const R* r) {
    const auto apart = [&](const void* p) {
      const intptr_t distance = reinterpret_cast<intptr_t>(p) - reinterpret_cast<intptr_t>(r);
      const intptr_t bytes = n * static_cast<intptr_t>(sizeof(R));
      return distance <= -bytes || distance >= bytes;
    };
    return apart(a) && (!kBinary || kScalarB || apart(b));
  }

  [[gnu::noinline]] static int64_t past_cache(int64_t n, const A* a, const B* b, R* r, Params params) {
    if (reinterpret_cast<uintptr_t>(r) % sizeof(V) != 0 || !disjoint(n, a, b, r)) return 0;
    const int64_t done = plain_blocks(
        n, params, [&](int64_t at) { return load_loop_inputs(a, b, at); },
        [&](int64_t at, const auto& x) { store_past_cache(reinterpret_cast<E*>(r + at), loop_result(x)); });
    finish_past_cache();
    return done;
  }
};

}  // namespace orvik::zym
