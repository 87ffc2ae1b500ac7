// Whether the upper halves of vector registers hold numbers, as the processor keeps account of it for saving them. Code
// of 128-bit instructions that runs while they do may pay for it with every instruction.
#pragma once

#include <cpuid.h>

#include <cstdint>

namespace orvik::test {

// Forgets them.
inline void clear_upper_halves() { __asm__ volatile("vzeroupper" ::: "xmm0"); }

// The processor's account: of 256-bit registers and of what 512-bit ones have beyond them.
inline bool upper_halves_in_use() {
  uint32_t low, high;
  __asm__ volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(1));
  return (low & 0x44) != 0;
}

// Whether the processor tells, and counts what is cleared as unused.
inline bool tells_upper_halves() {
  uint32_t a, b, c, d;
  if (!__get_cpuid_count(0xD, 1, &a, &b, &c, &d) || (a & 4) == 0) return false;
  clear_upper_halves();
  const bool cleared = !upper_halves_in_use();
  __asm__ volatile("vpcmpeqb %%ymm0, %%ymm0, %%ymm0" ::: "xmm0");
  const bool used = upper_halves_in_use();
  clear_upper_halves();
  if (__builtin_cpu_supports("avx512f")) {
    __asm__ volatile("vpternlogd $0xff, %%zmm0, %%zmm0, %%zmm0" ::: "xmm0");
    clear_upper_halves();
  }
  return cleared && used && !upper_halves_in_use();
}

}  // namespace orvik::test
