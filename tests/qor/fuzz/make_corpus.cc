// Writes the seed corpus of the image loaders into a directory: an image of each built generator, fresh and used, with
// side blocks, and in the two older forms.
#include <fstream>
#include <string>

#include "orvik/serv.h"
#include "qor/fuzz/use_stream.h"

namespace {

void write(const std::string& name, const std::vector<uint8_t>& image) {
  std::ofstream(name, std::ios::binary)
      .write(reinterpret_cast<const char*>(image.data()), static_cast<std::streamsize>(image.size()));
}

// The same stream in the layout of version 1 (with keys) or 0 (without).
std::vector<uint8_t> older(const std::vector<uint8_t>& image, uint8_t version) {
  std::vector<uint8_t> old;
  const auto add = [&old](const uint8_t* from, size_t size) {
    for (size_t i = 0; i < size; ++i) old.push_back(from[i]);
  };
  const uint8_t* const in = image.data();
  const uint8_t head[] = {version, 0,      0,      0,      'R', 'N', 'G',    0,      20,     0,
                          in[12],  in[13], in[16], in[17], 0,   0,   in[20], in[21], in[22], in[23]};
  add(head, sizeof head);
  const size_t state = 24 + (in[12] | size_t{in[13]} << 8);
  add(in + 24, state - 24);
  for (size_t at = state; at < image.size();) {
    uint32_t size;
    std::memcpy(&size, in + at + 20, 4);
    add(in + at, 4);
    if (version == 1) add(in + at + 4, 16);
    add(in + at + 20, 4 + size);
    at += 24 + size;
  }
  return old;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string folder = std::string(argv[1]) + "/";
  for (const int32_t brng : {0, 3, 0x100000, 0x400000, 0x800000, 0x900005, 0xF00000, 0x1000000}) {
    const std::string name = folder + std::to_string(brng);
    const uint32_t seed = 5;
    OrvikStream stream = nullptr;
    orvik::fuzz::require(__qorNewStreamEx(&stream, brng, 1, &seed) == 0);
    RegBrngRow row;
    __qorGetBrngProperties(brng, &row);
    float f[3];
    row.sBRng(stream, 3, f, 0, 1);
    const std::vector<uint8_t> image = orvik::fuzz::save(stream);
    write(name, image);
    write(name + "_v1", older(image, 1));
    write(name + "_v0", older(image, 0));
    const uint64_t key[2] = {7, 7};
    for (int32_t id : {5, 9}) {
      void* const data = orvik_serv_allocate(24, 128);
      std::memset(data, id, 24);
      __qorAddChunk(stream, id, id == 9 ? key : nullptr, data, 24);
    }
    write(name + "_chunks", orvik::fuzz::save(stream));
    __qorDeleteStream(&stream);
  }
  return 0;
}
