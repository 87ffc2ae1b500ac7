// Runs a fuzz target over the files of a directory: the seed corpus stays clean in ordinary builds too.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "qor/fuzz/use_stream.h"

int main(int argc, char** argv) {
  int files = 0;
  for (int i = 1; i < argc; ++i)
    for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
      std::ifstream in(entry.path(), std::ios::binary);
      const std::vector<char> whole{std::istreambuf_iterator<char>(in), {}};
      // and every shorter form of it, and each byte of its head turned over
      const auto run = [](const std::vector<char>& bytes) {
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
      };
      for (size_t size = 0; size <= whole.size(); ++size)
        if (size < 64 || size + 64 > whole.size()) run({whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size)});
      for (size_t at = 0; at < whole.size() && at < 64; ++at) {
        std::vector<char> bent = whole;
        bent[at] = static_cast<char>(~bent[at]);
        run(bent);
      }
      ++files;
    }
  std::printf("%d files\n", files);
  return files > 0 ? 0 : 1;
}
