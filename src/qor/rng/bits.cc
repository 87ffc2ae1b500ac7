// UniformBits: words as the generator gives them, and words of 32 and 64 bits from generators whose words hold as many
// good bits.
#include "orvik/qor.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"

namespace orvik::qor {
namespace {

int32_t native(OrvikStream stream, int32_t n, void* r) { return generator_of(stream)->iBRng(stream, n, r); }

enum class Source { none, direct, repacked };

// Words of 59 bits give their bits 27 to 58; the low bits of a congruence modulo a power of two have short periods.
constexpr int kLow = 27, kBitsRepacked = 59;

// Of the rows of the library by their place, of those that callers added by their words.
Source source_of(OrvikStream stream) {
  const GeneratorRow row = generator_of(stream);
  const bool historical = row.table == __RegBrngs;
  if (row.index == 3) return Source::repacked;  // MCG59
  if (historical) return Source::none;          // others of the old ids: MCG31M1, R250, MRG32K3A, WH, points
  switch (row.index) {
    case 0:  // MCG31M1
    case 1:  // R250
    case 2:  // MRG32K3A
    case 4:  // WH
    case 5:  // Sobol
    case 6:  // Niederreiter
    case 9:  // abstract, whatever the caller's numbers are
    case 10:
    case 11:
      return Source::none;
  }
  if (row->WordSize == 4 && row->NBits == 32) return Source::direct;
  return row->WordSize == 8 && row->NBits == kBitsRepacked ? Source::repacked : Source::none;
}

// n words of 32 bits.
int32_t repack(OrvikStream stream, int32_t n, uint32_t* r) {
  constexpr int32_t kWords = 2048;
  uint64_t w[kWords];
  for (;; n -= kWords, r += kWords) {
    const int32_t count = n < kWords ? n : kWords;
    const int32_t status = native(stream, count, w);
    if (status < 0) return status;
    for (int32_t i = 0; i < count; ++i) r[i] = static_cast<uint32_t>(w[i] >> kLow);
    if (n < kWords) return status;
  }
}

int32_t words(OrvikStream stream, int32_t n, uint32_t* r) {
  switch (source_of(stream)) {
    case Source::direct:
      return native(stream, n, r);
    case Source::repacked:
      return repack(stream, n, r);
    default:
      return ORVIK_QOR_NO_WORDS;
  }
}

}  // namespace
}  // namespace orvik::qor

extern "C" {

int32_t _qoriRngUniformBits(uint32_t, OrvikStream stream, int32_t n, void* r) {
  return orvik::qor::native(stream, n, r);
}
int32_t _qoriRngUniformBits32(uint32_t, OrvikStream stream, int32_t n, uint32_t* r) {
  return orvik::qor::words(stream, n, r);
}
// The first of two words is the low half. Twice as many may be more than a count holds.
int32_t _qoriRngUniformBits64(uint32_t, OrvikStream stream, int32_t n, uint64_t* r) {
  constexpr int32_t kMost = INT32_MAX / 2;
  for (; n > kMost; n -= kMost, r += kMost)
    if (const int32_t status = orvik::qor::words(stream, 2 * kMost, reinterpret_cast<uint32_t*>(r)); status < 0)
      return status;
  return orvik::qor::words(stream, n < 1 ? n : 2 * n, reinterpret_cast<uint32_t*>(r));
}

}  // extern "C"
