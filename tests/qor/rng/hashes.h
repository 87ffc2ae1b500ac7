// A hash of 10^5 results of every entry over every generator that has seeds.
#pragma once

#include <cstdint>
#include <cstdio>
#include <istream>
#include <map>
#include <string>
#include <vector>

#include "qor/rng/entries.h"
#include "qor/support/stream.h"
#include "support/approximations.h"

namespace orvik::testing {

inline std::string hexadecimal(uint64_t hash) {
  char text[20];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
  return text;
}

// FNV-1a, 64 bits; the status where the generator is refused.
inline std::string hash_of(const Entry& e, const Generator& g) {
  constexpr int32_t kNumbers = 100000;
  const Stream s(g.brng, g.seeds);
  if (e.name == "iUniformBits" && s.row().WordSize != 4) return "other words";
  std::vector<uint8_t> r(static_cast<size_t>(kNumbers) * static_cast<size_t>(e.bytes));
  const int32_t status = e.call(s.get(), kNumbers, r.data());
  if (status != 0) return std::to_string(status);
  uint64_t hash = 0xCBF29CE484222325;
  for (const uint8_t b : r) hash = (hash ^ b) * 0x100000001B3;
  return hexadecimal(hash);
}

// By "entry,generator". Beside the hash one of the approximations of 1/x and 1/sqrt(x) of the processor that made it.
struct Pin {
  std::string hash, approximations;
};
using Pins = std::map<std::string, Pin>;

inline Pins pins_of_now() {
  Pins pins;
  const std::string approximations = hexadecimal(test::hash_approximations());
  for (const Entry& e : entries())
    for (const Generator& g : seeded_generators()) pins[e.name + "," + g.name] = {hash_of(e, g), approximations};
  return pins;
}

// Lines "entry,generator,hash,approximations".
inline Pins read_pins(std::istream& file) {
  Pins pins;
  for (std::string line; std::getline(file, line);) {
    const size_t last = line.rfind(','), hash = last == line.npos ? last : line.rfind(',', last - 1);
    if (hash != line.npos) pins[line.substr(0, hash)] = {line.substr(hash + 1, last - hash - 1), line.substr(last + 1)};
  }
  return pins;
}

}  // namespace orvik::testing
