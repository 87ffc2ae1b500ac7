// hashes/FAMILY.csv: a hash of all results of every kernel over a fixed set of inputs, so that a change of bits is seen and meant.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "tools/rows/list.h"

namespace orvik::accuracy {

// Beside the hash of the results one of the approximations of 1/x and 1/sqrt(x) of the processor that made them: kernels
// that start from these have other bits where they differ.
struct Pin {
  uint64_t hash, approximations;
};
using Pins = std::map<std::string, Pin>;  // by "sExp,HA"

uint64_t hash_kernel(const rows::Row& row, int kernel, bool strided);

Pins read_pins(std::string_view family);
void write_pins(std::string_view family, const Pins& pins);
std::string hash_key(const rows::Row& row, int kernel);

}  // namespace orvik::accuracy
