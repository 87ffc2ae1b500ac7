// WH: four multiplicative generators with moduli just below 2^24, their sum modulo 1 (Wichmann, Hill 1982; MacLaren
// 1989).
//
// The four members of one element are the lanes of a vector of doubles. Eight consecutive elements are in hand, each
// moved on by A^8. Products stay below 2^48; the moduli are prime and no member is 0, so that no product comes close
// enough to a multiple of its modulus for the truncated quotient to be wrong.
#include "qor/brng/wh.h"

#include "qor/brng/entries.h"
#include "qor/brng/sinks.h"
#include "qor/stream/registry.h"
#include "qor/stream/restore.h"

namespace orvik::qor {

const WhSet WhParams[kWhMembers] = {
#include "qor/brng/wh_params.inc"
};

namespace {

struct WhState {
  uint32_t x[4], a[4];
};

int member_of(OrvikStream stream) { return find_brng(header(stream)->brng).sub; }
const WhSet& set_of(OrvikStream stream) { return WhParams[member_of(stream)]; }

// Of the moduli.
struct Reciprocals {
  alignas(32) double of[kWhMembers][4];
};
constexpr Reciprocals kReciprocals = [] {
  constexpr WhSet kSets[kWhMembers] = {
#include "qor/brng/wh_params.inc"
  };
  Reciprocals r = {};
  for (int member = 0; member < kWhMembers; ++member)
    for (int j = 0; j < 4; ++j) r.of[member][j] = 1.0 / kSets[member].modulus[j];
  return r;
}();

// Four elements, and the reciprocals of the moduli that make numbers of them.
struct WhElements {
  F64 x[4], reciprocal;
};

struct WhLoader {
  using Vector = WhElements;
  struct Element {
    uint32_t word[4];
  };
  static constexpr double kDoubleScale = 1;

  static void store_four(Element* r, const Vector& w) {
    unroll<4>([&](auto k) __attribute__((always_inline)) { store(r[k].word, truncated_words(w.x[k])); });
  }
  static void store_first(Element* r, const Vector& w, int count) {
    for (int k = 0; k < count; ++k) store(r[k].word, truncated_words(w.x[k]));
  }
  static double first_double(const Vector& w) {
    const double sum = sum_in_order(w.x[0] * w.reciprocal);
    return sum - __builtin_trunc(sum);
  }
  // The fraction of the sum, whose terms are added in their order.
  template <int N>
  static void to_doubles(const Vector (&w)[N], F64 (&u)[N]) {
    unroll<N>([&](auto g) __attribute__((always_inline)) {
      F64 term[4];
      unroll<4>([&](auto k) __attribute__((always_inline)) { term[k] = w[g].x[k] * w[g].reciprocal; });
      transpose(term);
      const F64 sum = ((term[0] + term[1]) + term[2]) + term[3];
      u[g] = sum - truncated(sum);
    });
  }
};

// Residues of the four moduli.
struct Moduli {
  explicit Moduli(int member)
      : modulus(to_double(load_half(WhParams[member].modulus))), reciprocal(load_doubles(kReciprocals.of[member])) {}
  F64 multiply(F64 x, F64 a) const {
    const F64 product = x * a;
    return fnma(modulus, truncated(product * reciprocal), product);
  }
  F64 modulus, reciprocal;
};

}  // namespace

struct Wh {
  using State = WhState;
  using Vector = WhElements;
  using Raw = RawFours<WhLoader>;
  using Float = RoundedFours<WhLoader>;
  using Double = DoubleFours<WhLoader>;

  template <SinkOf<Vector> Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& target) {
    State& state = state_of<State>(stream);
    const Moduli m(member_of(stream));
    F64 x = to_double(load_half(state.x));
    const F64 a = to_double(load_half(state.a));
    if (n < 8) {
      for (ptrdiff_t i = 0; i < n; ++i, x = m.multiply(x, a)) target.first(i, WhElements{{x, x, x, x}, m.reciprocal});
      store(state.x, truncated_words(x));
      return ORVIK_QOR_OK;
    }
    const Sink sink = target;  // a copy: for all the compiler knows the results might overlap it
    const F64 a2 = m.multiply(a, a), a4 = m.multiply(a2, a2), a8 = m.multiply(a4, a4);
    const F64 x1 = m.multiply(x, a);
    WhElements w[2] = {{{x, x1, m.multiply(x, a2), m.multiply(x1, a2)}, m.reciprocal}, {{}, m.reciprocal}};
    unroll<4>([&](auto k) __attribute__((always_inline)) { w[1].x[k] = m.multiply(w[0].x[k], a4); });
    ptrdiff_t i = 0;
    for (; i + 8 <= n; i += 8) {
      sink.group(i, w);
      unroll<2>([&](auto g) __attribute__((always_inline)) {
        unroll<4>([&](auto k) __attribute__((always_inline)) { w[g].x[k] = m.multiply(w[g].x[k], a8); });
      });
    }
    const int rest = static_cast<int>(n - i);
    if (rest >= 4) put_one(sink, i, w[0]);
    if (rest % 4 != 0) sink.some(i + rest / 4 * 4, w[rest / 4], rest % 4);
    store(state.x, truncated_words(w[rest / 4].x[rest % 4]));
    return ORVIK_QOR_OK;
  }

  // Four seeds are used unless there are 0 to 3.
  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    State& state = state_of<State>(stream);
    const WhSet& set = set_of(stream);
    const int32_t count = n >= 0 && n < 4 ? n : 4;
    for (int j = 0; j < 4; ++j) {
      const uint32_t x = j < count ? seeds[j] % set.modulus[j] : 0;
      state.x[j] = x == 0 ? 1 : x;
      state.a[j] = set.multiplier[j];
    }
    return ORVIK_QOR_OK;
  }

  static int32_t leapfrog(OrvikStream stream, int32_t nstreams, int32_t k) {
    State& state = state_of<State>(stream);
    const WhSet& set = set_of(stream);
    skip(stream, static_cast<uint64_t>(k));
    for (int j = 0; j < 4; ++j) state.a[j] = __qoriPowMod(state.a[j], static_cast<uint64_t>(nstreams), set.modulus[j]);
    return ORVIK_QOR_OK;
  }

  static int32_t skip(OrvikStream stream, uint64_t count) {
    State& state = state_of<State>(stream);
    const WhSet& set = set_of(stream);
    for (int j = 0; j < 4; ++j) {
      const uint64_t power = __qoriPowMod(state.a[j], count, set.modulus[j]);
      state.x[j] = static_cast<uint32_t>(state.x[j] * power % set.modulus[j]);
    }
    return ORVIK_QOR_OK;
  }

  static int32_t skip_long(OrvikStream, int32_t, const uint64_t*) { return ORVIK_QOR_NO_SKIPAHEAD_EX; }
};
static_assert(record_size<Wh::State>() == 48);

// Members above their moduli would leave the range in which products are exact.
int32_t restore_wh(OrvikStream stream) {
  auto& state = state_of<WhState>(stream);
  const WhSet& set = set_of(stream);
  for (int j = 0; j < 4; ++j) {
    state.x[j] %= set.modulus[j];
    state.a[j] %= set.modulus[j];
  }
  return ORVIK_QOR_OK;
}

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(WH, orvik::qor::Wh)
