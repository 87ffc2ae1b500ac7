// The memory loader, which trusts its block to be whole: the input is walked as the loader would and padded with zeros
// to where the last chunk ends. Inputs that ask for more than a megabyte or a hundred chunks are left out.
#include <algorithm>

#include "qor/fuzz/use_stream.h"

namespace {

constexpr size_t kMost = 1 << 20, kMostChunks = 100;

template <class T>
T read(std::vector<uint8_t>& image, size_t at) {
  if (image.size() < at + sizeof(T)) image.resize(at + sizeof(T));
  T value;
  std::memcpy(&value, image.data() + at, sizeof value);
  return value;
}

// False when the image is too large to be padded.
bool pad(std::vector<uint8_t>& image) {
  const uint8_t version = read<uint8_t>(image, 0);
  const bool current = version == 2;
  const int32_t brng = read<int32_t>(image, current ? 20 : 16);
  const size_t chunks = read<uint16_t>(image, current ? 16 : 12);
  if (chunks > kMostChunks) return false;
  RegBrngRow row;
  if (__qorGetBrngProperties(brng, &row) != 0) return true;
  size_t at = (current ? 24 : 20) + static_cast<size_t>(std::max(row.StreamStateSize - 16, 0));
  for (size_t i = 0; i < chunks && version <= 2; ++i) {
    const size_t to_size = version == 0 ? 4 : 20;
    at += to_size + 4 + read<uint32_t>(image, at + to_size);
    if (at > kMost) return false;
  }
  if (image.size() < at) image.resize(at);
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::vector<uint8_t> image(data, data + size);
  if (!pad(image)) return 0;
  image.shrink_to_fit();
  OrvikStream stream = nullptr;
  const int32_t status = __qorLoadStreamM(&stream, image.data());
  orvik::fuzz::require((status == 0) == (stream != nullptr));
  if (stream) orvik::fuzz::use(stream);
  return 0;
}
