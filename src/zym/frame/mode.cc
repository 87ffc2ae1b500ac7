#include "zym/frame/mode.h"

#include <cstring>
#include <initializer_list>

#include "orvik/serv.h"
#include "orvik/zym.h"
#include "zym/frame/thread_state.h"

namespace orvik::zym {
namespace {

constexpr uint32_t kNoOverride = 0xFFFFFFFF;
constexpr int32_t kBufferSize = 256;

struct Keyword {
  const char* name;
  int32_t length;
  uint64_t value;
};

// In matching order: the first keyword that fits is taken. DOUBLE_CONSISTEN is 16 characters long, a final T is
// refused.
constexpr Keyword kKeywords[] = {
    {"LA", 2, 0x1},
    {"HA", 2, 0x2},
    {"EP", 2, 0x3},
    {"DEFAULT_PRECISION", 17, 0x0},
    {"FLOAT_CONSISTENT", 16, 0x10},
    {"DOUBLE_CONSISTEN", 16, 0x20},
    {"RESTORE", 7, 0x30},
    {"ERRMODE_IGNORE", 14, 0x100},
    {"ERRMODE_ERRNO", 13, 0x200},
    {"ERRMODE_STDERR", 14, 0x400},
    {"ERRMODE_EXCEPT", 14, 0x800},
    {"ERRMODE_CALLBACK", 16, 0x1000},
    {"ERRMODE_NOERR", 13, 0x2000},
    {"ERRMODE_DEFAULT", 15, 0x1A00},
    {"TRAP_INVALID", 12, 0x1000000},
    {"TRAP_DIVBYZERO", 14, 0x2000000},
    {"TRAP_OVERFLOW", 13, 0x4000000},
    {"TRAP_UNDERFLOW", 14, 0x8000000},
};

// The keyword that the text at `position` begins with, null if none.
const Keyword* match(const char* text, int32_t position) {
  for (const Keyword& keyword : kKeywords) {
    if (position + keyword.length <= kBufferSize - 1 &&
        std::strncmp(text + position, keyword.name, static_cast<size_t>(keyword.length)) == 0) {
      return &keyword;
    }
  }
  return nullptr;
}

uint64_t environment_lock = 0;

uint32_t environment_mode() {
  char text[kBufferSize];
  orvik_serv_lock(&environment_lock);
  const int32_t length = orvik_serv_getenv("ORVIK_ZYM_MODE", text, kBufferSize);
  orvik_serv_unlock(&environment_lock);
  return length < 1 ? kNoOverride : parse_mode(text);
}

}  // namespace

uint32_t parse_mode(const char* text) {
  uint64_t value = 0;
  for (int32_t position = 0;;) {
    if (std::strncmp(text + position, "ZYM_", 4) != 0) return kNoOverride;
    const Keyword* keyword = match(text, position + 4);
    if (keyword == nullptr) return kNoOverride;
    value |= keyword->value;
    const int32_t end = position + 4 + keyword->length;
    if (text[end] == '\0') return static_cast<uint32_t>(value);
    if (text[end] != ',') return kNoOverride;
    position = end + 1;
  }
}

uint32_t initialise_mode() {
  uint32_t mode = environment_mode();
  if (mode == kNoOverride) {
    mode = kDefaultMode;
  } else {
    if ((mode & kAccuracyField) == 0) mode += ZYM_HA;
    if ((mode & kErrorField) == 0) mode += ZYM_ERRMODE_DEFAULT;
  }
  return thread_block.mode = mode;
}

uint32_t merge_mode(uint32_t mode) {
  const uint32_t previous = current_mode();
  uint32_t merged = previous;
  for (const uint32_t field : {kAccuracyField, kErrorField, kDenormalField, kTrapField, kReservedField}) {
    if ((mode & field) != 0) merged = (merged & ~field) | (mode & field);
  }
  thread_block.mode = merged;
  return previous;
}

}  // namespace orvik::zym

using namespace orvik::zym;

extern "C" {

uint32_t _zymGetMode() { return current_mode(); }
uint32_t _zymSetMode(uint32_t mode) { return merge_mode(mode); }

int32_t orvik_zym_kernel_GetTTableIndexM(uint32_t, uint32_t mode) {
  return static_cast<int32_t>(mode & kAccuracyField) - 1;
}
int32_t orvik_zym_kernel_GetTTableIndex() { return orvik_zym_kernel_GetTTableIndexM(0, current_mode()); }

uint32_t orvik_zym_kernel_GetMode() __attribute__((alias("_zymGetMode")));
uint32_t orvik_zym_kernel_SetMode(uint32_t) __attribute__((alias("_zymSetMode")));
}
