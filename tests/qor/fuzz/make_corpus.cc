// Writes the seed corpus of the image loaders into a directory: an image of each generator of the list, with side
// blocks, and in the two older forms; streams with tables of their own; and pairs of images into the folder `pairs`
// beside it.
#include <cstdio>
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

OrvikStream make(int32_t brng, const std::vector<uint32_t>& seeds) {
  OrvikStream stream = nullptr;
  static uint32_t ring[4];
  static double dring[4];
  static float sring[4];
  int32_t status;
  switch (brng) {
    case ORVIK_BRNG_IABSTRACT:
      status = __qoriNewAbstractStream(
          &stream, 4, ring, [](OrvikStream, int32_t*, uint32_t*, int32_t* n, int32_t*, int32_t*) { return *n; });
      break;
    case ORVIK_BRNG_DABSTRACT:
      status = __qordNewAbstractStream(
          &stream, 4, dring, 0, 1, [](OrvikStream, int32_t*, double*, int32_t* n, int32_t*, int32_t*) { return *n; });
      break;
    case ORVIK_BRNG_SABSTRACT:
      status = __qorsNewAbstractStream(
          &stream, 4, sring, 0, 1, [](OrvikStream, int32_t*, float*, int32_t* n, int32_t*, int32_t*) { return *n; });
      break;
    default:
      status = __qorNewStreamEx(&stream, brng, static_cast<int32_t>(seeds.size()), seeds.data());
  }
  orvik::fuzz::require(status == 0);
  RegBrngRow row;
  __qorGetBrngProperties(brng, &row);
  float f[3];
  row.sBRng(stream, 3, f, 0, 1);
  return stream;
}

void write_all(const std::string& name, int32_t brng, const std::vector<uint32_t>& seeds) {
  OrvikStream stream = make(brng, seeds);
  const std::vector<uint8_t> image = orvik::fuzz::save(stream);
  write(name, image);
  if (image.size() < 20000) {  // the older forms hold no larger state
    write(name + "_v1", older(image, 1));
    write(name + "_v0", older(image, 0));
    const uint64_t key[2] = {7, 7};
    for (int32_t id : {5, 9, 20}) {
      void* const data = orvik_serv_allocate(24, 128);
      std::memset(data, id, 24);
      __qorAddChunk(stream, id, id == 5 ? nullptr : key, data, 24);
      if (__qorSearchChunk(stream, static_cast<uint32_t>(id)) != data) orvik_serv_deallocate(data);
    }
    write(name + "_chunks", orvik::fuzz::save(stream));
  }
  __qorDeleteStream(&stream);
}

void write_pair(const std::string& name, const std::vector<uint8_t>& first, const std::vector<uint8_t>& second) {
  const uint32_t length = static_cast<uint32_t>(first.size());
  std::vector<uint8_t> both(sizeof length);
  std::memcpy(both.data(), &length, sizeof length);
  both.insert(both.end(), first.begin(), first.end());
  both.insert(both.end(), second.begin(), second.end());
  write(name, both);
}

std::vector<uint8_t> image_of(int32_t brng, const std::vector<uint32_t>& seeds) {
  OrvikStream stream = make(brng, seeds);
  const std::vector<uint8_t> image = orvik::fuzz::save(stream);
  __qorDeleteStream(&stream);
  return image;
}

// An image without state or chunks, of an id whose row is empty.
std::vector<uint8_t> image_without_state(int32_t id) {
  std::vector<uint8_t> image(24);
  const uint32_t body = 0xFFFFFFF0;
  image[0] = 2;
  std::memcpy(image.data() + 4, "RNG", 3);
  image[8] = 24;
  std::memcpy(image.data() + 12, &body, 4);
  std::memcpy(image.data() + 20, &id, 4);
  return image;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: qor_fuzz_make_corpus FOLDER FOLDER_OF_PAIRS\n");
    return 2;
  }
  const std::string folder = std::string(argv[1]) + "/", pairs = std::string(argv[2]) + "/";
#define ORVIK_BRNG(constant, functions, ...) write_all(folder + #functions, ORVIK_BRNG_##constant, {5});
#include "qor/stream/brngs.def"
  for (int32_t id : {0, 1, 2, 3, 4, 276, 277}) write_all(folder + "id" + std::to_string(id), id, {5});
  for (int32_t id : {279, 280, -1, -77}) write(folder + "id" + std::to_string(id), image_without_state(id));
  std::vector<uint32_t> table = {3, 1, 4};
  for (uint32_t j = 0; j < 3 * 32; ++j) table.push_back(2 * j + 1);
  write(folder + "Sobol_table", image_of(ORVIK_BRNG_SOBOL, table));
  table[0] = 319;
  for (uint32_t j = 0; j < 316 * 32; ++j) table.push_back(2 * j + 1);
  write(folder + "Niederr_table", image_of(ORVIK_BRNG_NIEDERREITER, table));

  table[0] = 3;
  table.resize(3 + 3 * 32);
  std::vector<uint8_t> tables = image_of(ORVIK_BRNG_SOBOL, table), lanes = image_of(ORVIK_BRNG_MCG31M1, {5}),
                       other_lanes = image_of(ORVIK_BRNG_MCG31M1, {6});
  write_pair(pairs + "same_tables", tables, tables);
  for (std::vector<uint8_t>* image : {&lanes, &other_lanes}) (*image)[24 + 8 + 4] = 99;  // one key
  write_pair(pairs + "lanes_of_one_key", lanes, other_lanes);
  write_pair(pairs + "tables_and_lanes", tables, lanes);
  write_pair(pairs + "no_functions", image_without_state(-1), image_without_state(279));
  write_pair(pairs + "SFMT19937_and_ARS5", image_of(ORVIK_BRNG_SFMT19937, {5}), image_of(ORVIK_BRNG_ARS5, {5}));
  write_pair(pairs + "WH_and_MRG32K3A", image_of(ORVIK_BRNG_WH, {5}), image_of(ORVIK_BRNG_MRG32K3A, {5}));
  return 0;
}
