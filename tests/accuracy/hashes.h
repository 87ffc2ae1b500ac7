// hashes/FAMILY.csv: a hash of all results of every kernel over a fixed set of inputs, so that a change of bits is seen and meant.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "tools/rows/list.h"

namespace orvik::accuracy {

struct Hashes {
  // Of the machine's approximations of 1/x and 1/sqrt(x), which differ between processors: kernels that start from them
  // have other bits elsewhere.
  uint64_t approximations = 0;
  std::map<std::string, uint64_t> kernels;  // "sExp HA"
};

uint64_t hash_kernel(const rows::Row& row, int kernel, bool strided);

Hashes read_hashes(std::string_view family);
void write_hashes(std::string_view family, const Hashes& hashes);
std::string hash_key(const rows::Row& row, int kernel);

}  // namespace orvik::accuracy
