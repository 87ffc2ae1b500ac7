// Chooses the width at load: 512 bits where the processor and the operating system have such registers and the
// environment leaves them to be used. This file is compiled for any x86-64 processor; see processor.cc.
#include "serv/registers.h"

#include <errno.h>
#include <stdint.h>
#include <stdlib.h>
#include <unistd.h>

#include "orvik/serv.h"
#include "serv/processor.h"

namespace orvik::serv {

bool wide_registers = false;
bool wide_by_halves = false;
bool wide_aes = false;

#if ORVIK_WIDE_REGISTERS
namespace {

bool same(const char* a, const char* b) {
  while (*a != '\0' && *a == *b) ++a, ++b;
  return *a == *b;
}

// What the environment should not hold is said and left aside.
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

// After the processor has been looked at, before the dispatch table is filled (zym/frame/registers.cc).
[[gnu::constructor(102)]] void choose_registers() {
  const ProcessorWords words = read_processor();
  wide_registers = allowed() && has_wide_registers(words);
  wide_by_halves = wide_registers && halves_wide_registers(words);
  wide_aes = wide_registers && has_wide_aes(words);
}

}  // namespace
#endif

}  // namespace orvik::serv

extern "C" int32_t orvik_register_bits(void) { return orvik::serv::wide_registers ? 512 : 256; }
