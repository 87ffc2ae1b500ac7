// The kernels that the dispatch table holds: of 256 bits as it is linked, of 512 from the load on where the processor and
// the operating system have such registers. What lists both (registers.h) refers to this file, so that it comes with the table
// also out of a static library. This file is compiled for any x86-64 processor; see serv/processor.cc.
#include <errno.h>
#include <stdint.h>
#include <stdlib.h>
#include <unistd.h>

#include "orvik/serv.h"
#include "serv/processor.h"
#include "zym/frame/registers.h"

namespace {

int32_t register_bits = 256;

#if ORVIK_WIDE_REGISTERS
bool same(const char* a, const char* b) {
  while (*a != '\0' && *a == *b) ++a, ++b;
  return *a == *b;
}

// Whether the environment leaves wide registers to be used. What it should not hold is said and left aside.
bool allowed() {
  const char* const asked = getenv("ORVIK_REGISTERS");
  if (asked == nullptr || same(asked, "512")) return true;
  if (same(asked, "256")) return false;
  constexpr char kLine[] = "orvik_kernel: ORVIK_REGISTERS is neither 256 nor 512 and is ignored\n";
  const int saved_errno = errno;
  // A line that cannot be written is lost; there is nobody else to tell.
  if (write(STDERR_FILENO, kLine, sizeof kLine - 1) < 0) errno = saved_errno;
  return true;
}
#endif

}  // namespace

#if ORVIK_WIDE_REGISTERS
// After the processor has been looked at, before the program's own start-up code.
extern "C" [[gnu::constructor(102)]] void orvik_zym_choose_kernels() {
  if (!allowed() || !orvik::serv::has_wide_registers(orvik::serv::read_processor())) return;
  for (const auto* row = orvik::zym::orvik_zym_wide_rows; row->slots != nullptr; ++row) {
    for (int level = 0; level < 3; ++level) row->slots[level] = row->wide[level];
  }
  register_bits = 512;
}
#endif

extern "C" int32_t orvik_register_bits(void) { return register_bits; }
