// ARS5: five AES rounds under a Weyl key schedule (Salmon, Moraes, Dror, Shaw 2011). Built with AES instructions.
#include "lanes/aes.h"
#include "qor/brng/counter.h"
#include "qor/stream/restore.h"

namespace orvik::qor {

struct Ars5Blocks {
  static constexpr int kKeyWords = 4, kFew = 1;
  static constexpr bool kAhead = true;
  static constexpr Landing kShort = Landing::ahead, kLong = Landing::ahead;
  using Vector = Halves;

  // The float form has no test: it relies on an earlier refusal.
  static int32_t ready(bool floats) { return floats || __qorCPUisAES() ? ORVIK_QOR_OK : ORVIK_QOR_NO_AES; }

  struct Keys {
    explicit Keys(const uint32_t* key) {
      const I32Half weyl = long_pair(0x9E3779B97F4A7C15, 0xBB67AE8584CAA73B);
      k[0] = load_half(key);
      for (int r = 1; r <= 5; ++r) k[r] = add_long(k[r - 1], weyl);
    }
    I32Half k[6];
  };

  static I32Half block(I32Half counter, const Keys& keys) {
    I32Half x = counter ^ keys.k[0];
    for (int r = 1; r <= 4; ++r) x = aes_round(x, keys.k[r]);
    return aes_last_round(x, keys.k[5]);
  }

  static I32Half lanes(Counter128 c) { return long_pair(static_cast<uint64_t>(c), static_cast<uint64_t>(c >> 64)); }

  static void make(Counter128 counter, const Keys& keys, Vector (&w)[kFew]) {
    w[0] = {block(lanes(counter), keys), block(lanes(counter + 1), keys)};
  }

  struct Run {
    static constexpr int kVectors = 4;
    explicit Run(Counter128 counter) {
      for (uint64_t k = 0; k < 2 * kVectors; ++k) c[k] = add_long(lanes(counter), long_pair(k, 0));
    }
    template <class Sink>
    void deliver(const Keys& keys, const Sink& sink, ptrdiff_t i) {
      const I32Half stride = long_pair(2 * kVectors, 0);
      for (int k = 0; k < 2 * kVectors; k += 2) {
        put_one(sink, i + 4 * k, Halves{block(c[k], keys), block(c[k + 1], keys)});
        c[k] = add_long(c[k], stride);
        c[k + 1] = add_long(c[k + 1], stride);
      }
    }
    I32Half c[2 * kVectors];
  };
};

using Ars5 = CounterGenerator<Ars5Blocks>;
static_assert(record_size<Ars5::State>() == 72);

int32_t restore_ars5(OrvikStream) { return __qorCPUisAES() ? ORVIK_QOR_OK : ORVIK_QOR_NO_AES; }

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(ARS5, orvik::qor::Ars5)
