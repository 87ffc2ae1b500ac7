// Drives the fuzz target with bytes of a fixed random sequence, in every build: front_fuzz_random [INPUTS [SEED]].
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv) {
  const long inputs = argc > 1 ? std::atol(argv[1]) : 100000;
  std::mt19937_64 random(argc > 2 ? static_cast<uint64_t>(std::atoll(argv[2])) : 1);
  std::vector<uint8_t> bytes;
  for (long k = 0; k < inputs; ++k) {
    bytes.resize(random() % 600);
    for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(random());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  }
  std::printf("%ld inputs\n", inputs);
  return inputs > 0 ? 0 : 1;
}
