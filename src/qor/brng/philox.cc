// PHILOX4X32X10: ten rounds of Philox-4x32 (Salmon, Moraes, Dror, Shaw 2011).
#include "qor/brng/counter.h"
#include "qor/brng/philox_rounds.h"
#include "qor/brng/wide.h"

namespace orvik::qor {

struct PhiloxBlocks {
  static constexpr int kKeyWords = 2, kFew = 2;
  // A short jump to a block's end holds that block, a long one does not.
  static constexpr Landing kShort = Landing::in_block, kLong = Landing::exact;
  using Vector = I32;
  using Runs = PhiloxRuns;
  using Keys = PhiloxKeys;

  static int32_t ready(bool) { return ORVIK_QOR_OK; }

  static WideRuns* wide_runs() { return ORVIK_QOR_WIDE(orvik_qor_wide_philox); }

  static void make(Counter128 counter, const Keys& keys, Vector (&w)[kFew]) {
    const uint64_t l = static_cast<uint64_t>(counter), h = static_cast<uint64_t>(counter >> 64);
    const I64 low[1] = {I64(l) + quarter_numbers()};
    I64 high = I64(h);
    if (l >= ~uint64_t{0} - 2) [[unlikely]] {
      const auto carry = [l](uint64_t step) { return uint64_t{l + step < l}; };
      high = high + long_words(0, carry(2), carry(1), carry(3));
    }
    PhiloxWords<1> c;
    c.begin(low, high);
    c.rounds<0, kPhiloxRounds - 1>(keys);
    c.finish(keys, w);
  }
};

using Philox = CounterGenerator<PhiloxBlocks>;
static_assert(record_size<Philox::State>() == 64);

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(PHILOX4X32X10, orvik::qor::Philox)
