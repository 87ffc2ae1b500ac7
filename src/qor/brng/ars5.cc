// ARS5: five AES rounds under a Weyl key schedule (Salmon, Moraes, Dror, Shaw 2011). Built with AES instructions.
#include "qor/brng/ars5_rounds.h"
#include "qor/brng/counter.h"
#include "qor/brng/wide.h"
#include "qor/stream/restore.h"

namespace orvik::qor {

struct Ars5Blocks {
  static constexpr int kKeyWords = 4, kFew = 1;
  static constexpr Landing kShort = Landing::ahead, kLong = Landing::ahead;
  using Vector = Halves;
  using Runs = Ars5Runs;
  using Keys = Ars5Keys;

  // The float form has no test: it relies on an earlier refusal.
  static int32_t ready(bool floats) { return floats || __qorCPUisAES() ? ORVIK_QOR_OK : ORVIK_QOR_NO_AES; }

  static WideRuns* wide_runs() { return serv::wide_aes ? ORVIK_QOR_WIDE(orvik_qor_wide_ars5) : nullptr; }

  static Blocks lanes(Counter128 c) { return in_blocks(static_cast<uint64_t>(c), static_cast<uint64_t>(c >> 64)); }

  static void make(Counter128 counter, const Keys& keys, Vector (&w)[kFew]) {
    w[0] = {ars5_blocks(lanes(counter), keys), ars5_blocks(lanes(counter + 1), keys)};
  }
};

using Ars5 = CounterGenerator<Ars5Blocks>;
static_assert(record_size<Ars5::State>() == 72);

int32_t restore_ars5(OrvikStream) { return __qorCPUisAES() ? ORVIK_QOR_OK : ORVIK_QOR_NO_AES; }

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(ARS5, orvik::qor::Ars5)
