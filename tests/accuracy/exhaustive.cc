// Every 32-bit float through a row. The reference in double precision, one evaluation for all levels, is good to about
// 1e-15 relative, 1e-8 ulp of a float; MPFR then judges the worst inputs that it finds, and all where the class of the
// result (NaN, infinity, zero) is in question, so that the error that comes back is MPFR's. Chunks of x and -x run
// together: a function with a parity is computed once for both.
#include <algorithm>
#include <atomic>
#include <bit>
#include <cmath>
#include <limits>
#include <memory>
#include <mutex>
#include <thread>

#include "accuracy/measure.h"
#include "orvik/zym.h"

namespace orvik::accuracy {
namespace {

constexpr int kChunk = 1 << 14;
constexpr size_t kCandidates = 16;  // a result and level: MPFR decides among these

// What the distances of a result are measured by: see Reference.
struct Rules {
  bool any_zero_sign = false;
  const double* floor = nullptr;  // of each element of a chunk; null: none
};

// The distance in ulp of the exact value, or relative; infinite where the two are not of one class. Values beyond the
// largest float count as 2^128, as in error_of.
template <Metric metric>
double distance(float got, double exact, bool any_zero_sign, double floor) {
  const double infinite = std::numeric_limits<double>::infinity();
  const double top = 0x1p128;
  double value = got, wanted = exact;
  if (std::isnan(value) || std::isnan(wanted)) return std::isnan(value) == std::isnan(wanted) ? 0 : infinite;
  if (wanted == 0 && floor == 0) {
    return value == 0 && (any_zero_sign || std::signbit(value) == std::signbit(wanted)) ? 0 : infinite;
  }
  if (std::isinf(wanted)) return value == wanted ? 0 : infinite;
  value = std::clamp(value, -top, top);
  wanted = std::clamp(wanted, -top, top);
  const double size = std::max({std::fabs(wanted), 0x1p-126, floor});
  const double gap = std::fabs(value - wanted);
  if constexpr (metric == Metric::relative) return gap / size;
  const uint64_t exponent = std::min<uint64_t>(std::bit_cast<uint64_t>(size) >> 52, 1023 + 127);
  return gap * std::bit_cast<double>((2046 + 23 - exponent) << 52);
}

struct Candidate {
  double distance;
  uint32_t bits;
};

// The largest distances seen, and whether a class was in question anywhere.
struct Heap {
  std::vector<Candidate> kept;
  double least = -1;

  void add(double distance, uint32_t bits) {
    kept.push_back({distance, bits});
    if (kept.size() < 2 * kCandidates) return;
    std::nth_element(kept.begin(), kept.begin() + kCandidates, kept.end(),
                     [](const Candidate& x, const Candidate& y) { return x.distance > y.distance; });
    kept.resize(kCandidates);
    least = kept[0].distance;
    for (const Candidate& c : kept) least = std::min(least, c.distance);
  }
};

// Whether any of these results may be farther off than `least`, or be a zero out of place or a NaN; without branches,
// so that it costs little beside the reference.
constexpr int kPiece = 64;
template <Metric metric, bool has_floor>
bool worth_a_look(const float* got, const double* exact, const Rules& rules, int first, double least) {
  const double top = 0x1p128;
  const uint64_t judge_zero_sign = rules.any_zero_sign ? 0 : 1;
  uint64_t any = 0;
  for (int i = 0; i < kPiece; ++i) {
    double value = got[i], wanted = exact[i];
    value = value > top ? top : value;  // a NaN stays one
    value = value < -top ? -top : value;
    wanted = wanted > top ? top : wanted;
    wanted = wanted < -top ? -top : wanted;
    const double magnitude = std::fabs(wanted);
    double size = magnitude > 0x1p-126 ? magnitude : 0x1p-126;
    if constexpr (has_floor) size = size > rules.floor[first + i] ? size : rules.floor[first + i];
    const double gap = std::fabs(value - wanted);
    double limit = least * size;
    if constexpr (metric == Metric::ulp) {
      // One ulp of the exact value, from its exponent; 2^128 has the ulp of the largest float.
      const uint64_t field = std::bit_cast<uint64_t>(size) & 0x7FF0000000000000u;
      const uint64_t last = uint64_t{1023 + 127} << 52;
      limit = least * std::bit_cast<double>((field < last ? field : last) - (uint64_t{23} << 52));
    }
    const uint64_t signs = (std::bit_cast<uint64_t>(value) ^ std::bit_cast<uint64_t>(wanted)) >> 63;
    if constexpr (!has_floor) any |= static_cast<uint64_t>(wanted == 0) & static_cast<uint64_t>(value != 0);
    any |= static_cast<uint64_t>(!(gap <= limit)) | (signs & judge_zero_sign & static_cast<uint64_t>(value == 0));
  }
  return any != 0;
}

template <Metric metric>
void scan(const float* got, const double* exact, const Rules& rules, uint32_t first, Heap& heap,
          std::vector<uint32_t>& questions) {
  for (int piece = 0; piece < kChunk; piece += kPiece) {
    const bool worth = rules.floor != nullptr
                           ? worth_a_look<metric, true>(got + piece, exact + piece, rules, piece, heap.least)
                           : worth_a_look<metric, false>(got + piece, exact + piece, rules, piece, heap.least);
    if (!worth) continue;
    for (int i = piece; i < piece + kPiece; ++i) {
      const uint32_t bits = first + static_cast<uint32_t>(i);
      const bool any_zero_sign = rules.any_zero_sign && (bits & 0x7FFFFFFFu) != 0;
      const double d = distance<metric>(got[i], exact[i], any_zero_sign, rules.floor != nullptr ? rules.floor[i] : 0);
      if (d <= heap.least) continue;
      if (std::isinf(d)) {
        questions.push_back(bits);
      } else {
        heap.add(d, bits);
      }
    }
  }
}

struct Shared {
  std::atomic<uint32_t> next{0};
  std::mutex mutex;
  std::array<Worst, rows::kLevels> worst;  // rows of one float have no other measure than their components
  Heap heaps[rows::kLevels][2];
};

void work(const rows::Row& row, const Reference& reference, Shared& shared,
          const std::function<void(double)>& progress) {
  _zymSetMode(ZYM_ERRMODE_NOERR);  // the thread's own: billions of reports would take hours
  constexpr uint32_t pairs = static_cast<uint32_t>((uint64_t{1} << 31) / kChunk);
  const std::vector<int> kernels = kernels_of(row);
  std::vector<float> a(kChunk), r1(kChunk), r2(kChunk);
  std::vector<double> exact[2] = {std::vector<double>(kChunk), std::vector<double>(kChunk)}, floor(kChunk);
  Heap heaps[rows::kLevels][2];
  std::vector<uint32_t> questions;
  std::array<Worst, rows::kLevels> worst;
  const auto ask = [&](int k, int j, uint32_t bits) {
    Point p;
    p.arguments[0] = std::bit_cast<float>(bits);
    const uint64_t inputs = worst[k].inputs;
    worst[k].merge(measure_point(row, k, p, j));
    worst[k].inputs = inputs;
  };
  const auto run = [&](uint32_t first) {
    const bool negative = first >> 31 != 0;
    for (int i = 0; i < kChunk; ++i) a[i] = std::bit_cast<float>(first + static_cast<uint32_t>(i));
    for (int j = 0; j < row.outputs(); ++j) {
      if (reference.exact() || reference.fast[j] == nullptr) continue;
      if (negative && reference.parity[j] != Parity::none) {  // the chunk before was its opposite
        if (reference.parity[j] == Parity::odd) {
          for (double& x : exact[j]) x = -x;
        }
      } else {
        for (int i = 0; i < kChunk; ++i) exact[j][i] = reference.fast[j](a[i]);
      }
    }
    if (reference.floor != nullptr) {
      for (int i = 0; i < kChunk; ++i) {
        const double x = a[i];
        floor[i] = reference.floor(true, &x, 0);
      }
    }
    const Rules rules{reference.any_zero_sign, reference.floor != nullptr ? floor.data() : nullptr};
    for (int k : kernels) {
      rows::with_call(row, row.entries[0][k], false, {.a = a.data(), .r1 = r1.data(), .r2 = r2.data()},
                      [&](auto kernel) { kernel(kChunk); });
      for (int j = 0; j < row.outputs(); ++j) {
        const float* got = (j == 0 ? r1 : r2).data();
        questions.clear();
        if (reference.exact()) {
          for (int i = 0; i < kChunk; ++i) {
            float wanted[2];
            reference.exact_s(&a[i], wanted);
            const bool same = std::bit_cast<uint32_t>(got[i]) == std::bit_cast<uint32_t>(wanted[j]);
            if (!same && !(std::isnan(got[i]) && std::isnan(wanted[j]))) questions.push_back(first + i);
          }
          if (worst[k].error < 0) worst[k].error = 0;
        } else if (reference.fast[j] == nullptr) {
          for (int i = 0; i < kChunk; ++i) ask(k, j, first + static_cast<uint32_t>(i));
        } else if (metric_of(row, k) == Metric::ulp) {
          scan<Metric::ulp>(got, exact[j].data(), rules, first, heaps[k][j], questions);
        } else {
          scan<Metric::relative>(got, exact[j].data(), rules, first, heaps[k][j], questions);
        }
        if (worst[k].error == std::numeric_limits<double>::infinity()) questions.clear();  // wrong already
        for (uint32_t bits : questions) ask(k, j, bits);
      }
    }
  };
  for (uint32_t pair; (pair = shared.next.fetch_add(1)) < pairs;) {
    run(pair * kChunk);
    run(0x80000000u + pair * kChunk);
    if (pair % 128 == 0) progress(static_cast<double>(pair) / pairs);
  }
  const std::lock_guard lock(shared.mutex);
  for (int k : kernels) {
    shared.worst[k].merge(worst[k]);
    for (int j = 0; j < row.outputs(); ++j) {
      for (const Candidate& c : heaps[k][j].kept) shared.heaps[k][j].add(c.distance, c.bits);
    }
  }
}

}  // namespace

Worsts measure_exhaustive(const rows::Row& row, int threads, const std::function<void(double)>& progress) {
  const Reference& reference = *find_reference(row.function);
  Shared shared;
  std::vector<std::thread> pool;
  std::mutex printing;
  const auto locked = [&](double share) {
    const std::lock_guard lock(printing);
    progress(share);
  };
  for (int t = 0; t < threads; ++t) pool.emplace_back([&] { work(row, reference, shared, locked); });
  for (std::thread& t : pool) t.join();
  for (int k : kernels_of(row)) {
    for (int j = 0; j < row.outputs(); ++j) {
      for (const Candidate& c : shared.heaps[k][j].kept) {
        Point p;
        p.arguments[0] = std::bit_cast<float>(c.bits);
        shared.worst[k].merge(measure_point(row, k, p, j));
      }
    }
    shared.worst[k].inputs = uint64_t{1} << 32;
  }
  Worsts worsts;
  for (size_t k = 0; k < shared.worst.size(); ++k) worsts[k][0] = shared.worst[k];
  return worsts;
}

}  // namespace orvik::accuracy
