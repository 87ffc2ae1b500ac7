// The mode word: merge, environment.
#pragma once

#include <cstdint>

namespace orvik::zym {

// Merges `mode` into the thread's mode field by field, a zero field keeps its value. Returns the previous mode.
uint32_t merge_mode(uint32_t mode);

// The value of a list of keywords as ORVIK_ZYM_MODE holds it, all ones when any of it is faulty. `text` ends in NUL
// within 256 characters.
uint32_t parse_mode(const char* text);

}  // namespace orvik::zym
