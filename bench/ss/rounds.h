// Timing of candidates in turns: each is run once per round and keeps its best time, so that what disturbs the machine
// meets all of them.
#pragma once

#include <chrono>
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

// One row for each peer: what, ours and the peer in ns per unit, their ratio (above 1: ours is faster). The first
// candidate is ours.
inline void compare(const std::string& what, double units, std::vector<Candidate> candidates, int count = 7) {
  rounds(candidates, count);
  const double ours = candidates[0].best / units * 1e9;
  for (size_t k = 1; k < candidates.size(); ++k) {
    const double peer = candidates[k].best / units * 1e9;
    printf("| %s | %.4g | %s | %.4g | %.2f |\n", what.c_str(), ours, candidates[k].name.c_str(), peer, peer / ours);
  }
  fflush(stdout);
}

}  // namespace orvik::bench
