// Times rows of the table against their peers.
#pragma once

#include <string>
#include <vector>

#include "support/paired.h"
#include "tools/rows/list.h"
#include "zym/peers.h"

namespace orvik::bench {

// Arrays of a row, `beyond` bytes behind multiples of 64, inputs drawn from the function's domain.
class Operands {
 public:
  Operands(const rows::Row& row, int32_t n, int32_t step, size_t beyond = 0);
  Arrays arrays() const { return arrays_; }
  rows::Call call() const;
  // Puts `value` into every `every`-th element of the first input.
  void plant(double value, int32_t every);
  // Spreads the first input over the sizes from `least` to the largest finite one.
  void enlarge(double least);

 private:
  const rows::Row& row_;
  int32_t n_, step_;
  std::vector<std::vector<unsigned char>> memory_;
  Arrays arrays_{};
  double scalar_d_[2] = {kPower, kPowerImaginary};
  float scalar_s_[2] = {static_cast<float>(kPower), static_cast<float>(kPowerImaginary)};
};

// A function that calls an entry `turns` times.
std::function<void(int64_t)> repeat_entry(const rows::Row& row, void* entry, bool strided, const Operands& operands,
                                          int32_t n);

// The kernels and the peers of a row side by side at one length, nanoseconds per element.
struct Point {
  const rows::Row* row;
  bool strided;
  int32_t n;
  double ours[rows::kLevels];
  struct Other {
    const Peer* peer;
    double time;
  };
  std::vector<Other> others;

  // The fastest peer that is at least as accurate as the level asks for: 1 ulp (HA), 4 ulp (LA), any (EP). Null: none.
  const Other* rival(int level) const;
};

Point compare(const rows::Row& row, bool strided, int32_t n, const std::vector<Peer>& peers, double seconds);

}  // namespace orvik::bench
