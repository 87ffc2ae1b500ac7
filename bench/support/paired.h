// Paired timing. Candidates of one comparison are timed in turns of some ten microseconds, round after round, and each
// keeps its fastest turn: what disturbs the machine (other guests, changes of frequency, interrupts) meets all of them
// within the same milliseconds, and a ratio of minima repeats to about two per cent where ratios of means of separate
// runs differ by thirty. Google Benchmark times one benchmark after another, each for a half second or more, which is
// right for a quiet machine and for whole programs.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace orvik::bench {

class Paired {
 public:
  // `run` does the work to be timed `turns` times.
  void add(std::string name, std::function<void(int64_t turns)> run) {
    candidates_.push_back({std::move(name), std::move(run)});
  }

  // Nanoseconds of one turn of each candidate, in the order of add. Takes about `seconds`, never fewer than 5 rounds.
  std::vector<double> measure(double seconds) {
    using Clock = std::chrono::steady_clock;
    const auto nanoseconds = [](auto d) { return std::chrono::duration<double, std::nano>(d).count(); };
    const auto once = [&](Candidate& c) {
      const auto start = Clock::now();
      c.run(c.turns);
      return nanoseconds(Clock::now() - start);
    };
    // Warms caches and tables up, and finds the number of turns: by the least of three looks, since an interrupt within a single one
    // would leave too few turns and the clock's own time in every figure.
    for (Candidate& c : candidates_) {
      for (c.run(1); std::min({once(c), once(c), once(c)}) < kTurn && c.turns < (int64_t{1} << 30);) c.turns *= 2;
    }
    const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    for (int round = 0; round < 5 || Clock::now() < end; ++round) {
      for (Candidate& c : candidates_) c.best = std::min(c.best, once(c) / static_cast<double>(c.turns));
    }
    std::vector<double> best;
    for (const Candidate& c : candidates_) best.push_back(c.best);
    return best;
  }

 private:
  static constexpr double kTurn = 8000;  // ns

  struct Candidate {
    std::string name;
    std::function<void(int64_t)> run;
    int64_t turns = 1;
    double best = std::numeric_limits<double>::infinity();
  };
  std::vector<Candidate> candidates_;
};

}  // namespace orvik::bench
