// Entries of the distributions. Their sources are compiled for registers of 256 bits and a second time for those of
// 512, with the same results; where the process has the wider ones, an entry goes on to its second form if
// enough numbers are wanted.
#pragma once

#include <cstdint>

#include "serv/registers.h"

namespace orvik::qor {

// Fewer numbers wait longer for wide registers than these save.
inline constexpr int32_t kWideNumbers = 32;

}  // namespace orvik::qor

// The entry `name`, declared in the public header, is the call of a function of this library with all of its arguments;
// `n` of them is the number of numbers.
#if ORVIK_REGISTER_BITS == 512
#define ORVIK_QOR_ENTRY(name, function, parameters, arguments) \
  extern "C" decltype(name) orvik_qor_wide##name;              \
  extern "C" int32_t orvik_qor_wide##name parameters { return orvik::qor::function arguments; }
#elif ORVIK_WIDE_REGISTERS
#define ORVIK_QOR_ENTRY(name, function, parameters, arguments)                                               \
  extern "C" decltype(name) orvik_qor_wide##name;                                                            \
  extern "C" int32_t name parameters {                                                                       \
    if (orvik::serv::wide_registers && n >= orvik::qor::kWideNumbers) return orvik_qor_wide##name arguments; \
    return orvik::qor::function arguments;                                                                   \
  }
#else
#define ORVIK_QOR_ENTRY(name, function, parameters, arguments) \
  extern "C" int32_t name parameters { return orvik::qor::function arguments; }
#endif
