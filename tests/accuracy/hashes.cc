#include "accuracy/hashes.h"

#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <sstream>

#include "accuracy/inputs.h"
#include "accuracy/records.h"
#include "support/approximations.h"

namespace orvik::accuracy {
namespace {

using test::mix;

constexpr size_t kInputs = 20000;
constexpr uint64_t kSeed = 20;

// All NaNs alike: which payload of two survives is the compiler's choice of an operand order.
uint64_t bits(float x) { return std::isnan(x) ? 0x7FC00000u : std::bit_cast<uint32_t>(x); }
uint64_t bits(double x) { return std::isnan(x) ? 0x7FF8000000000000u : std::bit_cast<uint64_t>(x); }

template <class E>
uint64_t hash_of(const rows::Row& row, int kernel, bool strided) {
  const Inputs<E> inputs = make_inputs<E>(row, kInputs, kSeed);
  std::vector<E> r1, r2;
  evaluate(row, kernel, strided, inputs, r1, r2);
  uint64_t hash = 0xCBF29CE484222325u;
  for (E x : r1) hash = mix(hash, bits(x));
  for (E x : r2) hash = mix(hash, bits(x));
  return hash;
}

}  // namespace

uint64_t hash_kernel(const rows::Row& row, int kernel, bool strided) {
  return row.single() ? hash_of<float>(row, kernel, strided) : hash_of<double>(row, kernel, strided);
}

std::string hash_key(const rows::Row& row, int kernel) {
  return std::string(row.name) + ',' + rows::kLevelNames[kernel];
}

Pins read_pins(std::string_view family) {
  Pins pins;
  std::istringstream text(read_text(data_path("hashes", family)));
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("row,")) continue;
    const size_t last = line.rfind(','), hash = line.rfind(',', last - 1);
    if (last == line.npos || hash == line.npos) continue;
    const auto number = [&](size_t at) { return std::strtoull(line.c_str() + at + 1, nullptr, 16); };
    pins[line.substr(0, hash)] = {number(hash), number(last)};
  }
  return pins;
}

void write_pins(std::string_view family, const Pins& pins) {
  std::string text = "row,kernel,hash,approximations\n";
  for (const rows::Row& row : rows::all()) {
    if (row.family != family || !measurable(row)) continue;
    for (int k = 0; k < rows::kLevels; ++k) {
      const auto found = pins.find(hash_key(row, k));
      if (found == pins.end()) continue;
      char numbers[40];
      std::snprintf(numbers, sizeof numbers, ",%016" PRIx64 ",%016" PRIx64 "\n", found->second.hash,
                    found->second.approximations);
      text += found->first + numbers;
    }
  }
  write_text(data_path("hashes", family), text);
}

}  // namespace orvik::accuracy
