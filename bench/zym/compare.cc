#include "zym/compare.h"

#include <cmath>
#include <cstring>
#include <random>

#include "tools/rows/domains.h"

namespace orvik::bench {
namespace {

constexpr size_t kAlign = 64;

void fill(const rows::Row& row, void* to, int32_t count, double low, double high, uint32_t seed) {
  std::mt19937 engine(seed);
  const int64_t parts = static_cast<int64_t>(count) * row.input_parts;
  for (int64_t i = 0; i < parts; ++i) {
    const double x = low + (high - low) * (engine() + 0.5) * 0x1p-32;
    if (row.single()) {
      static_cast<float*>(to)[i] = static_cast<float>(x);
    } else {
      static_cast<double*>(to)[i] = x;
    }
  }
}

}  // namespace

Operands::Operands(const rows::Row& row, int32_t n, int32_t step, size_t beyond) : row_(row), n_(n), step_(step) {
  const auto make = [&](int bytes) {
    auto& block = memory_.emplace_back(static_cast<size_t>(n) * step * bytes + kAlign + beyond);
    const uintptr_t address = reinterpret_cast<uintptr_t>(block.data());
    return block.data() + (kAlign - address % kAlign) % kAlign + beyond;
  };
  const rows::Domain& domain = rows::domain(row);
  unsigned char* a = make(row.input_bytes());
  fill(row, a, n * step, domain.low, domain.high, 1);
  arrays_.a = a;
  if (row.inputs() == 2) {
    unsigned char* b = make(row.input_bytes());
    fill(row, b, n * step, domain.low2, domain.high2, 2);
    arrays_.b = b;
  } else if (row.shape == rows::Shape::scalar) {
    arrays_.b = row.single() ? static_cast<const void*>(scalar_s_) : scalar_d_;
  }
  arrays_.r1 = make(row.output_bytes());
  if (row.outputs() == 2) arrays_.r2 = make(row.output_bytes());
  arrays_.incA = arrays_.incR1 = arrays_.incR2 = step;
  arrays_.incB = row.inputs() == 2 ? step : 0;
}

rows::Call Operands::call() const {
  rows::Call call{.a = arrays_.a, .b = arrays_.b, .r1 = arrays_.r1, .r2 = arrays_.r2, .incA = arrays_.incA,
                  .incB = arrays_.incB, .incR1 = arrays_.incR1, .incR2 = arrays_.incR2};
  call.order = kOrder;
  if (row_.shape == rows::Shape::scalar) {
    call.scalars[0] = kPower;
    call.scalars[1] = kPowerImaginary;
  } else {
    const double scalars[4] = {kScaleA, kShiftA, kScaleB, kShiftB};
    std::memcpy(call.scalars, scalars, sizeof scalars);
  }
  return call;
}

void Operands::plant(double value, int32_t every) {
  const int width = row_.input_parts;
  for (int32_t i = every / 2; i < n_; i += every) {
    void* a = const_cast<void*>(arrays_.a);
    const int64_t at = static_cast<int64_t>(i) * step_ * width;
    if (row_.single()) {
      static_cast<float*>(a)[at] = static_cast<float>(value);
    } else {
      static_cast<double*>(a)[at] = value;
    }
  }
}

void Operands::enlarge(double least) {
  const int lowest = std::ilogb(least);
  const int sizes = (row_.single() ? 126 : 1022) - lowest;
  for (int32_t i = 0; i < n_; ++i) {
    void* a = const_cast<void*>(arrays_.a);
    const int64_t at = static_cast<int64_t>(i) * step_;
    const double mantissa = 1 + std::fmod(0.6180339887498949 * i, 1.0);
    const double value = std::ldexp(mantissa, lowest + static_cast<int>(static_cast<int64_t>(i) * 7919 % sizes));
    if (row_.single()) {
      static_cast<float*>(a)[at] = static_cast<float>(value);
    } else {
      static_cast<double*>(a)[at] = value;
    }
  }
}

std::function<void(int64_t)> repeat_entry(const rows::Row& row, void* entry, bool strided, const Operands& operands,
                                          int32_t n) {
  std::function<void(int64_t)> made;
  rows::with_call(row, entry, strided, operands.call(), [&](auto run) {
    made = [run, n](int64_t turns) {
      for (int64_t t = 0; t < turns; ++t) run(n);
    };
  });
  return made;
}

const Point::Other* Point::rival(int level) const {
  constexpr double largest[] = {4, 1, 1e9};
  const Other* best = nullptr;
  for (const Other& other : others) {
    if (other.peer->ulp <= largest[level] && (best == nullptr || other.time < best->time)) best = &other;
  }
  return best;
}

Point compare(const rows::Row& row, bool strided, int32_t n, const std::vector<Peer>& peers, double seconds) {
  const Operands operands(row, n, strided ? 2 : 1);
  Paired paired;
  std::vector<int> kernels;
  for (int level = 0; level < rows::kLevels; ++level) {
    if (row.kernel(level) != level) continue;
    kernels.push_back(level);
    paired.add("", repeat_entry(row, row.entries[strided ? 1 : 0][level], strided, operands, n));
  }
  Point point{&row, strided, n, {}, {}};
  for (const Peer& peer : peers) {
    const PeerFunction function = strided ? peer.strided : peer.unit;
    if (peer.row != row.name || function == nullptr) continue;
    point.others.push_back({&peer, 0});
    paired.add("", [function, n, arrays = operands.arrays()](int64_t turns) {
      for (int64_t t = 0; t < turns; ++t) function(n, arrays);
    });
  }
  const std::vector<double> times = paired.measure(seconds);
  double of_kernel[rows::kLevels] = {};
  for (size_t k = 0; k < kernels.size(); ++k) of_kernel[kernels[k]] = times[k] / n;
  for (int level = 0; level < rows::kLevels; ++level) point.ours[level] = of_kernel[row.kernel(level)];
  for (size_t p = 0; p < point.others.size(); ++p) point.others[p].time = times[kernels.size() + p] / n;
  return point;
}

}  // namespace orvik::bench
