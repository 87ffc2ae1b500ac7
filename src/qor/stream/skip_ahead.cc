// Jumps of generators that are linear over GF(2): with p the characteristic polynomial and t one step, t^n is g(t) for
// g = x^n mod p, a sum of at most `degree` stepped states (Haramoto, Matsumoto, Nishimura, Panneton, L'Ecuyer 2008).
#include "qor/stream/record.h"
#include "serv/memory.h"

namespace orvik::qor {
namespace {

struct Generator {
  OrvikQorJumpClear clear;
  OrvikQorJumpAdd add;
  OrvikQorJumpCopy copy;
  OrvikQorJumpStep step;
};

struct Polynomial {
  int64_t words, degree, nterms;
  const uint32_t* terms;
};

using Block = serv::Block<uint8_t>;

class Remainder {
 public:
  explicit Remainder(const Block& block) : word_(reinterpret_cast<const uint64_t*>(block.get())) {}
  bool bit(int64_t i) const { return word_[i / 64] >> i % 64 & 1; }
  int64_t highest(int64_t words) const {
    for (int64_t w = words - 1; w >= 0; --w)
      if (word_[w] != 0) return 64 * w + 63 - __builtin_clzll(word_[w]);
    return -1;
  }

 private:
  const uint64_t* word_;
};

int32_t find_remainder(const Block& g, uint64_t count, const Polynomial& p) {
  return __qorPolyRem(count, static_cast<uint64_t>(p.degree), static_cast<uint32_t>(p.nterms), p.terms,
                      static_cast<int32_t>(2 * p.words), reinterpret_cast<uint32_t*>(g.get()));
}

// out = g(t) state, by Horner's rule.
struct Horner {
  static constexpr int kTableStates = 0;
  static void apply(const Generator& f, const Remainder& g, int64_t top, void* state, void* out, uint8_t*, int64_t,
                    void*) {
    f.copy(out, state);
    if (top <= 0) return;  // g = 1 is no jump
    f.step(out);
    for (int64_t i = top - 1; i > 0; --i) {
      if (g.bit(i)) f.add(out, state);
      f.step(out);
    }
    if (g.bit(0)) f.add(out, state);
  }
};

// The same, eight bits at a time: entry h of the table is (t^7 + h(t)) state.
struct SlidingWindow {
  static constexpr int kTableStates = 128;
  static void apply(const Generator& f, const Remainder& g, int64_t top, void* state, void* out, uint8_t* table,
                    int64_t stride, void* power) {
    const auto entry = [table, stride](int64_t h) { return table + h * stride; };
    f.copy(power, state);
    for (int i = 0; i < 7; ++i) f.step(power);
    f.copy(entry(0), power);
    f.copy(power, state);
    for (int64_t b = 1; b < kTableStates; b *= 2) {
      for (int64_t h = 0; h < b; ++h) {
        f.copy(entry(b + h), entry(h));
        f.add(entry(b + h), power);
      }
      f.step(power);
    }
    f.clear(out);
    int64_t i = top;
    while (i >= 7) {
      f.step(out);
      if (!g.bit(i)) {
        --i;
        continue;
      }
      int64_t h = 0;
      for (int k = 1; k <= 7; ++k) {
        h = 2 * h + g.bit(i - k);
        f.step(out);
      }
      f.add(out, entry(h));
      i -= 8;
    }
    for (; i >= 0; --i) {
      f.step(out);
      if (g.bit(i)) f.add(out, state);
    }
  }
};

template <class Method>
int32_t skip_ahead(void* state, const Generator& f, OrvikQorJumpStore store, OrvikQorJumpStart start, uint64_t nskip,
                   const Polynomial& p, int64_t statesize) {
  if (nskip == 0) return ORVIK_QOR_OK;
  int32_t offset = 0;
  if (start(state, &nskip, &offset) == 0) return ORVIK_QOR_OK;
  const uint64_t stride = (static_cast<uint64_t>(statesize) + 63) / 64 * 64;
  const Block g(8 * static_cast<uint64_t>(p.words)), out(stride);
  if (!g || !out) return ORVIK_QOR_NO_MEMORY;
  Block table, power;
  if (Method::kTableStates > 0) {
    table = Block(Method::kTableStates * stride);
    power = Block(stride);
    if (!table || !power) return ORVIK_QOR_NO_MEMORY;
  }
  if (const int32_t status = find_remainder(g, nskip, p); status < 0) return status;
  const Remainder remainder(g);
  Method::apply(f, remainder, remainder.highest(p.words), state, out.get(), table.get(), static_cast<int64_t>(stride),
                power.get());
  store(state, out.get(), offset);
  return ORVIK_QOR_OK;
}

}  // namespace
}  // namespace orvik::qor

using namespace orvik::qor;

extern "C" {

int32_t __qor_SkipAheadHorner(void* state, OrvikQorJumpClear clear, OrvikQorJumpAdd add, OrvikQorJumpCopy copy,
                              OrvikQorJumpStep step, OrvikQorJumpStore store, OrvikQorJumpStart start, uint64_t nskip,
                              int64_t words, int64_t degree, int64_t statesize, int64_t nterms, const uint32_t* terms) {
  return skip_ahead<Horner>(state, {clear, add, copy, step}, store, start, nskip, {words, degree, nterms, terms},
                            statesize);
}

int32_t __qor_SkipAheadSWin(void* state, OrvikQorJumpClear clear, OrvikQorJumpAdd add, OrvikQorJumpCopy copy,
                            OrvikQorJumpStep step, OrvikQorJumpStore store, OrvikQorJumpStart start, uint64_t nskip,
                            int64_t words, int64_t degree, int64_t statesize, int64_t nterms, const uint32_t* terms) {
  return skip_ahead<SlidingWindow>(state, {clear, add, copy, step}, store, start, nskip, {words, degree, nterms, terms},
                                   statesize);
}

}  // extern "C"
