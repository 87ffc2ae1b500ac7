// Two images at once: four bytes with the length of the first, the first, the second. The stream of the first gives the
// same numbers whether it is alone or drawn from in turns with the other, and deleting either leaves the other whole.
#include "qor/fuzz/pad_image.h"
#include "qor/fuzz/use_stream.h"

namespace {

using namespace orvik::fuzz;

OrvikStream load(const std::vector<uint8_t>& image) {
  OrvikStream stream = nullptr;
  require((__qorLoadStreamM(&stream, image.data()) == 0) == (stream != nullptr));
  return stream;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  uint32_t length;
  if (size < sizeof length) return 0;
  std::memcpy(&length, data, sizeof length);
  data += sizeof length;
  size -= sizeof length;
  const size_t first_size = std::min<size_t>(length, size);
  std::vector<uint8_t> first(data, data + first_size), second(data + first_size, data + size);
  if (!pad(first) || !pad(second)) return 0;

  OrvikStream alone = load(first);
  if (!alone) return 0;
  const int32_t id = __qorGetStreamStateBrng(alone);
  RegBrngRow row, other_row;
  require(__qorGetBrngProperties(id, &row) == 0);
  std::vector<std::vector<uint8_t>> want;
  for (int round = 0; round < 3; ++round) want.push_back(draw(alone, row));
  __qorDeleteStream(&alone);

  OrvikStream stream = load(first), other = load(second);
  require(stream != nullptr);
  if (other) require(__qorGetBrngProperties(__qorGetStreamStateBrng(other), &other_row) == 0);
  for (int round = 0; round < 3; ++round) {
    const std::vector<uint8_t> got = draw(stream, row);
    require(id == ORVIK_BRNG_TRNG || got == want[static_cast<size_t>(round)]);
    if (other) draw(other, other_row);
    if (other && round == 1) __qorDeleteStream(&other);
  }
  use(stream);
  return 0;
}
