#include "qor/stream/registry.h"

#include "qor/stream/record.h"

namespace {

using namespace orvik::qor;

// ---- rows of generators that this version lacks

int32_t pending_init(uint32_t, OrvikStream, int32_t, const void*) { return ORVIK_QOR_BAD_BRNG; }
int32_t pending_s(OrvikStream, int32_t, float*, float, float) { return ORVIK_QOR_BAD_BRNG; }
int32_t pending_d(OrvikStream, int32_t, double*, double, double) { return ORVIK_QOR_BAD_BRNG; }
int32_t pending_i(OrvikStream, int32_t, void*) { return ORVIK_QOR_BAD_BRNG; }

#define FUNCTIONS(G) __qorBRng##G##InitStream, __qorsBRng##G, __qordBRng##G, __qoriBRng##G
#define PENDING pending_init, pending_s, pending_d, pending_i

// state size, seeds, zero among the outputs, word size, bits
constexpr RegBrngRow kMcg31m1 = {24, 1, 0, 4, 31, FUNCTIONS(MCG31M1)};
constexpr RegBrngRow kR250 = {1024, 252, 1, 4, 32, PENDING};
constexpr RegBrngRow kMrg32k3a = {40, 6, 1, 4, 32, PENDING};
constexpr RegBrngRow kMcg59 = {32, 1, 0, 8, 59, FUNCTIONS(MCG59)};
constexpr RegBrngRow kWh = {48, 4, 1, 16, 24, PENDING};
constexpr RegBrngRow kSobol = {11712, 2604, 0, 4, 32, PENDING};
constexpr RegBrngRow kNiederreiter = {84288, 10498, 0, 4, 32, PENDING};
constexpr RegBrngRow kMt19937 = {2520, 625, 1, 4, 32, FUNCTIONS(MT19937)};
constexpr RegBrngRow kMt2203 = {312, 70, 1, 4, 32, FUNCTIONS(MT2203)};
constexpr RegBrngRow kIAbstract = {48, 0, 1, 4, 32, PENDING};
constexpr RegBrngRow kDAbstract = {64, 0, 1, 4, 32, PENDING};
constexpr RegBrngRow kSAbstract = {56, 0, 1, 4, 32, PENDING};
constexpr RegBrngRow kSfmt19937 = {2536, 625, 1, 4, 32, PENDING};
constexpr RegBrngRow kTrng = {24, 1, 1, 4, 32, PENDING};
constexpr RegBrngRow kArs5 = {72, 8, 1, 4, 32, FUNCTIONS(ARS5)};
constexpr RegBrngRow kPhilox = {64, 8, 1, 4, 32, FUNCTIONS(PHILOX4X32X10)};

constexpr RegBrngRow kEmpty = {};

int32_t reg_brng_count = kBuiltInRows;
int32_t reg_brng_sub_count[kTableRows] = {1, 1, 1, 1, 273, 1, 1, 1, 6024, 1, 1, 1, 1, 1, 1, 1};

int32_t row_count() { return __atomic_load_n(&reg_brng_count, __ATOMIC_ACQUIRE); }

}  // namespace

#define SIXTEEN(x) x, x, x, x, x, x, x, x, x, x, x, x, x, x, x, x
#define SIXTEEN_OF(list) list, list, list, list, list, list, list, list, list, list, list, list, list, list, list, list

extern "C" {

RegBrngRow __RegBrngs[kTableRows] = {kMcg31m1,     kR250, kMrg32k3a, kMcg59,       SIXTEEN_OF(SIXTEEN(kWh)),
                                     SIXTEEN(kWh), kWh,   kSobol,    kNiederreiter};

RegBrngRow __RegBrngsNew[kTableRows] = {kMcg31m1,      kR250,    kMrg32k3a, kMcg59,     kWh,        kSobol,
                                        kNiederreiter, kMt19937, kMt2203,   kIAbstract, kDAbstract, kSAbstract,
                                        kSfmt19937,    kTrng,    kArs5,     kPhilox};

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

bool is_pending(const RegBrngRow& row) { return row.InitStream == pending_init; }

}  // namespace orvik::qor
