#include "qor/stream/registry.h"

#include "qor/stream/record.h"
#include "qor/stream/restore.h"

namespace {

using namespace orvik::qor;

#define ORVIK_BRNG(constant, functions, name, members, record, seeds, zero, bytes, bits, ...) \
  constexpr RegBrngRow k##constant = {record,                                                 \
                                      seeds,                                                  \
                                      zero,                                                   \
                                      bytes,                                                  \
                                      bits,                                                   \
                                      __qorBRng##functions##InitStream,                       \
                                      __qorsBRng##functions,                                  \
                                      __qordBRng##functions,                                  \
                                      __qoriBRng##functions};
#include "qor/stream/brngs.def"

constexpr RegBrngRow kEmpty = {};

int32_t reg_brng_count = kBuiltInRows;
int32_t reg_brng_sub_count[kTableRows] = {
#define ORVIK_BRNG(constant, functions, name, members, ...) members,
#include "qor/stream/brngs.def"
};

constexpr RestoreHook kHooks[] = {
#define ORVIK_BRNG(constant, functions, name, members, record, seeds, zero, bytes, bits, leap, skip, skip_long, hook) \
  restore_##hook,
#include "qor/stream/brngs.def"
};
static_assert(sizeof kHooks / sizeof kHooks[0] == kBuiltInRows);

int32_t row_count() { return __atomic_load_n(&reg_brng_count, __ATOMIC_ACQUIRE); }

}  // namespace

#define SIXTEEN(x) x, x, x, x, x, x, x, x, x, x, x, x, x, x, x, x
#define SIXTEEN_OF(list) list, list, list, list, list, list, list, list, list, list, list, list, list, list, list, list

extern "C" {

RegBrngRow __RegBrngs[kTableRows] = {kMCG31M1,     kR250, kMRG32K3A, kMCG59,       SIXTEEN_OF(SIXTEEN(kWH)),
                                     SIXTEEN(kWH), kWH,   kSOBOL,    kNIEDERREITER};

RegBrngRow __RegBrngsNew[kTableRows] = {
#define ORVIK_BRNG(constant, ...) k##constant,
#include "qor/stream/brngs.def"
};

void* __qorGetBrngBaseOffset(int32_t id, uint32_t* index, uint32_t* sub) {
  if (id >= 0x100000) {
    *index = (static_cast<uint32_t>(id) >> 20) - 1;
    *sub = static_cast<uint32_t>(id) & 0xFFFFF;
    return __RegBrngsNew;
  }
  const bool wh = id >= 4 && id <= 276;
  *index = static_cast<uint32_t>(wh ? 4 : id);
  *sub = static_cast<uint32_t>(wh ? id - 4 : 0);
  return __RegBrngs;
}

int32_t __qorIsBrngValid(const void* table, int32_t index, int32_t sub) {
  if (table == __RegBrngs) return index < kHistoricalRows ? ORVIK_QOR_OK : ORVIK_QOR_BAD_BRNG;
  if (index < 0 || index >= row_count()) return ORVIK_QOR_BAD_BRNG;
  return sub < reg_brng_sub_count[index] ? ORVIK_QOR_OK : ORVIK_QOR_BAD_BRNG;
}

int32_t __qorGetBrngProperties(int32_t id, RegBrngRow* properties) {
  const BrngPlace place = find_brng(id);
  if (const int32_t status = place.check(); status < 0) return status;
  *properties = place.row();
  return ORVIK_QOR_OK;
}

int32_t __qorRegisterBrng(const RegBrngRow* properties) {
  const RegBrngRow& row = *properties;
  if (row.StreamStateSize < 0) return ORVIK_QOR_REG_BAD_STATE_SIZE;
  if (row.WordSize != 4 && row.WordSize != 8 && row.WordSize != 16) return ORVIK_QOR_REG_BAD_WORD_SIZE;
  if (row.NSeeds < 1) return ORVIK_QOR_REG_BAD_NSEEDS;
  if (row.NBits < 1) return ORVIK_QOR_REG_BAD_NBITS;
  if (!row.dBRng || !row.sBRng || !row.iBRng || !row.InitStream) return ORVIK_QOR_NULL_POINTER;
  const int32_t index = reg_brng_count;
  if (index >= kTableRows) return ORVIK_QOR_NO_MEMORY;
  reg_brng_sub_count[index] = 1;
  __RegBrngsNew[index] = row;
  // Readers take no lock: the row is there before the count says so.
  __atomic_store_n(&reg_brng_count, index + 1, __ATOMIC_RELEASE);
  return (index << 20) + 0x100000;
}

int32_t __qorGetNumRegBrngs(void) { return row_count(); }

}  // extern "C"

namespace orvik::qor {

const RegBrngRow& BrngPlace::row() const { return index < 0 ? kEmpty : table[index]; }

// Of a built-in generator by either of its ids.
RestoreHook restore_hook(int32_t brng) {
  const BrngPlace place = find_brng(brng);
  int32_t line = place.index;
  if (place.table == __RegBrngs) {
    if (line > 4) line = line >= 277 && line <= 278 ? line - 272 : -1;
  }
  return line >= 0 && line < kBuiltInRows ? kHooks[line] : restore_nothing;
}

RestoreHook chunk_restore_hook(uint32_t id) {
  switch (id) {
#define ORVIK_CHUNK(id, hook) \
  case id:                    \
    return restore_##hook;
#include "qor/stream/brngs.def"
    default:
      return restore_nothing;
  }
}

}  // namespace orvik::qor
