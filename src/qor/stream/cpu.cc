#include "qor/stream/cpu.h"

#include <cpuid.h>

#include "orvik/qor.h"
#include "orvik/serv.h"

namespace orvik::qor {
HiddenFeatures hidden_features;
}

using orvik::qor::hidden_features;

extern "C" {

// The word that the compiler's runtime read at start: the instruction itself leaves a virtual machine and costs more
// than a short request for numbers.
int32_t __qorCPUisAES(void) { return __builtin_cpu_supports("aes") && !hidden_features.aes; }

// The compiler's word lacks this feature: read at the first question.
int32_t __qorCPUisRDRAND(void) {
  static const bool there = [] {
    uint32_t a, b, c, d;
    return __get_cpuid(1, &a, &b, &c, &d) && (c & bit_RDRND) != 0;
  }();
  return there && !hidden_features.rdrand;
}

int32_t __qorCPUisVAES(void) { return orvik_serv_cpuisicx(); }

}  // extern "C"
