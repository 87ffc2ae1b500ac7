// Timing of candidates in turns: each is run once per round and keeps its best time, so that what disturbs the machine
// meets all of them.
#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace orvik::bench {

struct Candidate {
  std::string name;
  std::function<void()> run;
  double best = 1e300;  // seconds
};

inline void rounds(std::vector<Candidate>& candidates, int count) {
  for (int round = 0; round < count; ++round) {
    for (Candidate& c : candidates) {
      const auto start = std::chrono::steady_clock::now();
      c.run();
      const double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
      if (s < c.best) c.best = s;
    }
  }
}

// Geometric mean of ratios.
struct Mean {
  double sum = 0;
  int count = 0;

  void add(double ratio) { sum += std::log(ratio), ++count; }
  void print(const char* of) const {
    if (count > 0) printf("| geometric mean of %d ratios | | %s | | %.2f |\n", count, of, std::exp(sum / count));
  }
};
// Of all rows that have another library as their peer; of the fastest one for each that is measured.
inline Mean every_library, fastest_library;

inline bool is_library(const std::string& peer) {
  for (const char* name : {"Boost", "Eigen", "GSL", "std::", "dsyrk"}) {
    if (peer.starts_with(name)) return true;
  }
  return false;
}

// One row for each peer: what, ours and the peer in ns per unit, their ratio (above 1: ours is faster). The first
// candidate is ours.
inline void compare(const std::string& what, double units, std::vector<Candidate> candidates, int count = 7) {
  rounds(candidates, count);
  const double ours = candidates[0].best / units * 1e9;
  double fastest = HUGE_VAL;
  for (size_t k = 1; k < candidates.size(); ++k) {
    const double peer = candidates[k].best / units * 1e9;
    printf("| %s | %.4g | %s | %.4g | %.2f |\n", what.c_str(), ours, candidates[k].name.c_str(), peer, peer / ours);
    if (!is_library(candidates[k].name)) continue;
    every_library.add(peer / ours);
    fastest = std::min(fastest, peer / ours);
  }
  if (fastest < HUGE_VAL) fastest_library.add(fastest);
  fflush(stdout);
}

}  // namespace orvik::bench
