// Tells at load, before anything else of the library runs, that the processor cannot run it. This file is compiled for
// any x86-64 processor. It uses no inline function of a header: the linker might take the copy that another file
// compiled.
#include "serv/processor.h"

#include <cpuid.h>
#include <errno.h>
#include <unistd.h>

#include "orvik/serv.h"

namespace orvik::serv {
namespace {

struct Feature {
  const char* name;
  uint32_t ProcessorWords::*word;
  uint32_t bits;
};

// Everything that the library is compiled with (ORVIK_INSTRUCTIONS of cmake/OrvikModule.cmake); then what the operating
// system does, where bits 1 and 2 of the control register stand for the lower and the upper halves of the vector
// registers.
constexpr Feature kFeatures[] = {
    {"AVX", &ProcessorWords::leaf1_ecx, 1u << 28},
    {"AVX2", &ProcessorWords::leaf7_ebx, 1u << 5},
    {"FMA", &ProcessorWords::leaf1_ecx, 1u << 12},
    {"BMI1", &ProcessorWords::leaf7_ebx, 1u << 3},
    {"BMI2", &ProcessorWords::leaf7_ebx, 1u << 8},
    {"LZCNT", &ProcessorWords::extended_leaf1_ecx, 1u << 5},
    {"POPCNT", &ProcessorWords::leaf1_ecx, 1u << 23},
    {"an operating system that saves the AVX state", &ProcessorWords::xcr0, 6},
};

constexpr uint32_t kCount = sizeof kFeatures / sizeof kFeatures[0];
constexpr uint32_t kNoAvx = 1u << 0;  // the first line
constexpr uint32_t kNoSaving = 1u << (kCount - 1);

constexpr uint32_t kOsxsave = 1u << 27;  // leaf 1, ECX: XGETBV may be used

char* append(char* end, const char* text) {
  while (*text != '\0') *end++ = *text++;
  *end = '\0';
  return end;
}

// -1: not asked yet. Two threads that ask at the same time find the same answer.
int32_t supported = -1;

uint32_t ask() {
  const uint32_t missing = missing_features(read_processor());
  __atomic_store_n(&supported, missing == 0, __ATOMIC_RELAXED);
  return missing;
}

// 101: the first priority that is free for programs, before every other start-up code of the library.
[[gnu::constructor(101)]] void warn_at_load() {
  const uint32_t missing = ask();
  if (missing == 0) return;
  char line[kMissingLineSize];
  const int32_t length = describe_missing(missing, line);
  const int saved_errno = errno;
  // A line that cannot be written is lost; there is nobody else to tell.
  if (write(STDERR_FILENO, line, static_cast<size_t>(length)) < 0) errno = saved_errno;
}

}  // namespace

ProcessorWords read_processor() {
  ProcessorWords words = {0, 0, 0, 0, 0, 0, 0, 0};
  uint32_t a, b, c, d;
  if (__get_cpuid(1, &a, &b, &c, &d) != 0) words.leaf1_ecx = c;
  if (__get_cpuid_count(7, 0, &a, &b, &c, &d) != 0) words.leaf7_ebx = b, words.leaf7_ecx = c;
  if (__get_cpuid(0x80000001u, &a, &b, &c, &d) != 0) words.extended_leaf1_ecx = c;
  if (__get_cpuid(0x8000001Au, &a, &b, &c, &d) != 0) words.extended_leaf1a_eax = a;
  if (__get_cpuid_count(0x8000001Du, 3, &a, &b, &c, &d) != 0 && (a & 0x1F) != 0) {
    words.extended_leaf1d_ebx = b, words.extended_leaf1d_ecx = c;
  }
  if ((words.leaf1_ecx & kOsxsave) != 0) {
    uint32_t low, high;
    __asm__ volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    words.xcr0 = low;
  }
  return words;
}

uint32_t missing_features(const ProcessorWords& words) {
  uint32_t missing = 0;
  for (uint32_t i = 0; i < kCount; ++i) {
    const Feature& feature = kFeatures[i];
    if ((words.*feature.word & feature.bits) != feature.bits) missing |= 1u << i;
  }
  return missing;
}

bool has_wide_registers(const ProcessorWords& words) {
  constexpr uint32_t kInstructions = 1u << 16 | 1u << 17 | 1u << 30 | 1u << 31;  // AVX-512 F, DQ, BW, VL
  // Beside the two of AVX: mask registers, upper halves of the first sixteen registers, the second sixteen.
  constexpr uint32_t kSaved = 0xE6;
  return missing_features(words) == 0 && (words.leaf7_ebx & kInstructions) == kInstructions &&
         (words.xcr0 & kSaved) == kSaved;
}

bool halves_wide_registers(const ProcessorWords& words) {
  // The width of its units, as the processor tells it: one bit for 256 bits, one for 512. Others tell none, and have
  // whole ones.
  constexpr uint32_t kUnitsOf256 = 1u << 2, kUnitsOf512 = 1u << 3;
  return (words.extended_leaf1a_eax & (kUnitsOf256 | kUnitsOf512)) == kUnitsOf256;
}

int64_t near_outer_cache(const ProcessorWords& words) {
  const uint32_t shape = words.extended_leaf1d_ebx;
  if (shape == 0) return 0;
  const int64_t line = (shape & 0xFFF) + 1, partitions = (shape >> 12 & 0x3FF) + 1, ways = (shape >> 22) + 1;
  return line * partitions * ways * (int64_t{words.extended_leaf1d_ecx} + 1);
}

bool has_wide_aes(const ProcessorWords& words) {
  return has_wide_registers(words) && (words.leaf7_ecx & 1u << 9) != 0;  // VAES
}

int32_t describe_missing(uint32_t missing, char line[kMissingLineSize]) {
  if ((missing & kNoAvx) != 0) missing &= ~kNoSaving;  // there is nothing to save
  char* end = append(line, "orvik_kernel: this machine lacks ");
  const char* separator = "";
  for (uint32_t i = 0; i < kCount; ++i) {
    if ((missing & 1u << i) == 0) continue;
    end = append(append(end, separator), kFeatures[i].name);
    separator = ", ";
  }
  end = append(end, "; calls of the library may end in an illegal instruction\n");
  return static_cast<int32_t>(end - line);
}

}  // namespace orvik::serv

extern "C" int32_t orvik_cpu_supported(void) {
  const int32_t known = __atomic_load_n(&orvik::serv::supported, __ATOMIC_RELAXED);
  return known >= 0 ? known : orvik::serv::ask() == 0;
}

extern "C" const char* orvik_version(void) { return ORVIK_VERSION_STRING; }
