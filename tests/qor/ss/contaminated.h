// Simulated samples with a share of observations that come from elsewhere.
#pragma once

#include <random>

#include "qor/ss/support.h"

namespace orvik::ss::test {

// Normal observations of p correlated variables (pairwise 0.5) about 10 with deviations 1, 2, 3, 1, 2, 3 ... Every
// observation with is_bad lies `far` deviations off in all variables, in a cloud of
// `spread` times the spread.
struct Contaminated {
  Sample<double> sample;
  std::vector<bool> bad;

  static double deviation(int64_t j) { return 1 + static_cast<double>(j % 3); }

  Contaminated(int64_t p, int64_t n, double share, double far, uint64_t seed, double spread = 0.1)
      : sample(make(p, n, share, far, seed, spread)), bad(n) {
    for (int64_t i = 0; i < n; ++i) bad[i] = i < static_cast<int64_t>(share * static_cast<double>(n));
  }

 private:
  static Sample<double> make(int64_t p, int64_t n, double share, double far, uint64_t seed, double spread) {
    std::mt19937_64 engine(seed);
    std::normal_distribution<double> normal;
    double common = 0;
    return Sample<double>(p, n, [&](int64_t i, int64_t j) {
      if (j == 0) common = normal(engine);
      const double z = std::sqrt(0.5) * (common + normal(engine));
      const bool off = i < static_cast<int64_t>(share * static_cast<double>(n));
      return 10 + deviation(j) * (off ? far + spread * z : z);
    });
  }
};

}  // namespace orvik::ss::test
