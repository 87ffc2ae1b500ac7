// What programs that time rows side by side are asked for: [--rows PATTERNS] [--seconds S] [N...].
#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace orvik::bench {

struct Options {
  std::string patterns;
  double seconds;
  std::vector<int32_t> lengths;
  std::vector<const char*> others;  // what is neither an option nor a length

  Options(int argc, char** argv, double by_default, std::vector<int32_t> default_lengths) : seconds(by_default) {
    for (int i = 1; i < argc; ++i) {
      if (std::strcmp(argv[i], "--rows") == 0 && i + 1 < argc) {
        patterns = argv[++i];
      } else if (std::strcmp(argv[i], "--seconds") == 0 && i + 1 < argc) {
        seconds = std::atof(argv[++i]);
      } else if (std::atoi(argv[i]) > 0) {
        lengths.push_back(std::atoi(argv[i]));
      } else {
        others.push_back(argv[i]);
      }
    }
    if (lengths.empty()) lengths = std::move(default_lengths);
  }
};

}  // namespace orvik::bench
