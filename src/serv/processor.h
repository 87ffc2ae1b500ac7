// Whether the processor serves: judged from the words that it describes itself with, so that a test can make them up.
#pragma once

#include <stdint.h>

namespace orvik::serv {

// Output of CPUID, and the extended control register 0 where it can be read; zero where the processor has no such leaf.
struct ProcessorWords {
  uint32_t leaf1_ecx;
  uint32_t leaf7_ebx;           // subleaf 0
  uint32_t extended_leaf1_ecx;  // leaf 0x80000001
  uint32_t xcr0;
  uint32_t leaf7_ecx;
  uint32_t extended_leaf1a_eax;  // leaf 0x8000001A, of AMD's processors
  uint32_t extended_leaf1d_ebx;  // leaf 0x8000001D, subleaf 3, of AMD's processors: the outer cache's lines,
                                 // partitions, ways
  uint32_t extended_leaf1d_ecx;  // its sets less 1
};

ProcessorWords read_processor();

// One bit for each thing that is missing; 0: the processor serves.
uint32_t missing_features(const ProcessorWords& words);

// Whether registers of 512 bits may be used: the instructions of ORVIK_WIDE_INSTRUCTIONS (cmake/OrvikModule.cmake), and
// an operating system that saves these registers.
bool has_wide_registers(const ProcessorWords& words);
// Whether the units of arithmetic take registers of 512 bits in two halves, so that the gain is in fewer instructions
// alone.
bool halves_wide_registers(const ProcessorWords& words);
// Bytes of the cache of the third level that a processor of AMD's shares among a few cores near it; 0: has none, or
// another maker's.
int64_t near_outer_cache(const ProcessorWords& words);
// Whether these registers hold four blocks for rounds of AES.
bool has_wide_aes(const ProcessorWords& words);

// The line that a program sees at load, with its newline and a final NUL. Returns its length.
constexpr int32_t kMissingLineSize = 256;
int32_t describe_missing(uint32_t missing, char line[kMissingLineSize]);

}  // namespace orvik::serv
