// What the library asks of the process: environment, end, processor.
#include <cpuid.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <atomic>
#include <limits>

#include "orvik/serv.h"

extern "C" int32_t orvik_serv_getenv(const char* name, char* buffer, int32_t size) {
  const char* value = getenv(name);
  if (value == nullptr) value = "";
  const size_t length = strlen(value);
  if (size > 0) {
    const size_t kept = std::min(length, static_cast<size_t>(size) - 1);
    memcpy(buffer, value, kept);
    buffer[kept] = '\0';
  }
  return static_cast<int32_t>(std::min<size_t>(length, std::numeric_limits<int32_t>::max()));
}

extern "C" void orvik_serv_exit(int32_t status) { exit(status); }

extern "C" int32_t orvik_serv_cpuisicx(void) {
  // Asked once: under a hypervisor each CPUID costs a trap. Two threads asking at the same time find the same answer.
  static std::atomic<int32_t> known{-1};
  int32_t answer = known.load(std::memory_order_relaxed);
  if (answer < 0) {
    constexpr unsigned kVaes = 1u << 9;  // leaf 7, subleaf 0, ECX
    unsigned a = 0, b = 0, c = 0, d = 0;
    answer = __get_cpuid_count(7, 0, &a, &b, &c, &d) != 0 && (c & kVaes) != 0;
    known.store(answer, std::memory_order_relaxed);
  }
  return answer;
}
