#include "math/loops.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

#include "lanes/control.h"
#include "math/error.h"
#include "math/flags.h"

namespace orvik::python {

thread_local int32_t accuracy = ORVIK_HA;

namespace {

constexpr int64_t kBlock = 256;  // elements that go through memory of our own at a time
constexpr int64_t kShort = 16;   // that take no longer in order than by a call
constexpr int kWidest = sizeof(ZymComplexDouble);

int count_of(const Loop& loop) { return loop.inputs + loop.results; }

struct Range {
  const char *first, *last;
};
Range range_of(const Loop& loop, int64_t n, const Arrays& x, int k) {
  const int64_t way = (n - 1) * x.step[k];
  return {x.at[k] + std::min<int64_t>(way, 0), x.at[k] + std::max<int64_t>(way, 0) + loop.bytes[k]};
}

// Whether blocks may be read whole before any of their results is written: no result of an element lies where a later
// element is read. Of arrays of one step that is seen: columns of a table lie beside each other, and results may lie
// behind what is read.
bool blocks_do(const Loop& loop, int64_t n, const Arrays& x, int result, int input) {
  const Range written = range_of(loop, n, x, result), read = range_of(loop, n, x, input);
  if (read.first >= written.last || written.first >= read.last) return true;
  const int64_t step = x.step[input], size = step < 0 ? -step : step;
  if (step != x.step[result] || size < loop.bytes[result] || size < loop.bytes[input]) return false;
  const int64_t ahead = x.at[input] - x.at[result];
  const int64_t beside = (ahead % size + size) % size;
  return (step > 0 ? ahead >= 0 : ahead <= 0) || (beside >= loop.bytes[result] && size - beside >= loop.bytes[input]);
}
bool blocks_do(const Loop& loop, int64_t n, const Arrays& x) {
  for (int r = loop.inputs; r < count_of(loop); ++r) {
    for (int k = 0; k < loop.inputs; ++k) {
      if (!blocks_do(loop, n, x, r, k)) return false;
    }
  }
  return true;
}

template <int bytes>
void copy(int64_t n, char* to, int64_t to_step, const char* from, int64_t from_step) {
  for (int64_t i = 0; i < n; ++i) std::memcpy(to + i * to_step, from + i * from_step, bytes);
}
// n elements of any size, step by step.
void copy(int bytes, int64_t n, char* to, int64_t to_step, const char* from, int64_t from_step) {
  bytes == 4   ? copy<4>(n, to, to_step, from, from_step)
  : bytes == 8 ? copy<8>(n, to, to_step, from, from_step)
               : copy<16>(n, to, to_step, from, from_step);
}

// Through memory of our own, `block` elements at a time: steps that are no multiple of an element, as of complex
// numbers in records. With blocks of one each element sees what earlier ones wrote, as in reductions, running results,
// and arrays that lie across each other.
orvik_status through_memory(const Loop& loop, int64_t n, Arrays x, const void* parameters, int64_t block) {
  alignas(64) char memory[kMostArrays][kBlock * kWidest];
  char* at[kMostArrays];
  for (int k = 0; k < kMostArrays; ++k) at[k] = memory[k];
  while (n > 0) {
    const int64_t part = std::min(n, block);
    for (int k = 0; k < loop.inputs; ++k) copy(loop.bytes[k], part, at[k], loop.bytes[k], x.at[k], x.step[k]);
    if (const orvik_status status = call_with_flags(loop, part, at, nullptr, parameters); status < 0) return status;
    for (int k = loop.inputs; k < count_of(loop); ++k)
      copy(loop.bytes[k], part, x.at[k], x.step[k], at[k], loop.bytes[k]);
    for (int k = 0; k < count_of(loop); ++k) x.at[k] += part * x.step[k];
    n -= part;
  }
  return ORVIK_SUCCESS;
}

// The processor while a loop computes in order, which it may where it is set as the kernels set it. The flags of a
// function that hands numbers on leave as they came.
class InOrderCalls {
 public:
  explicit InOrderCalls(const Loop& loop) : loop_(loop) {
    constexpr uint32_t kFlags = 0x3F, kPlain = 0x1F80;
    before_ = loop.in_order != nullptr ? read_control() : 0;
    may_ = (before_ & ~kFlags) == kPlain;
  }
  ~InOrderCalls() {
    if (may_ && loop_.selects) write_control((read_control() & ~kInvalidFlag) | (before_ & kInvalidFlag));
  }
  InOrderCalls(const InOrderCalls&) = delete;
  InOrderCalls& operator=(const InOrderCalls&) = delete;

  // False: nothing was done.
  bool run(int64_t n, char* const* at, const int64_t* steps) const {
    if (may_) loop_.in_order(n, at, steps);
    return may_;
  }

 private:
  const Loop& loop_;
  uint32_t before_;
  bool may_;
};

// NumPy's reduction of n elements, whose first argument is its result: as many running results as a block has elements,
// and these in halves; of a few elements one after another.
orvik_status reduce(const Loop& loop, int64_t n, const Arrays& x) {
  constexpr int64_t kFew = 8;
  const InOrderCalls in_order(loop);
  if (n < kFew && in_order.run(n, x.at, x.step)) return ORVIK_SUCCESS;
  const int bytes = loop.bytes[0];
  const int64_t block = std::min(n, kBlock);
  alignas(64) char memory[2][kBlock * kWidest];
  char *const running = memory[0], *const next = memory[1];
  const auto join = [&](char* a, char* b, int64_t count, char* to) {
    char* const at[] = {a, b, to};
    const int64_t steps[] = {bytes, bytes, bytes};
    if (count <= 2 * kShort && in_order.run(count, at, steps)) return orvik_status{ORVIK_SUCCESS};
    return call_with_flags(loop, count, at, nullptr, nullptr);
  };
  copy(bytes, block, running, bytes, x.at[1], x.step[1]);
  orvik_status status = ORVIK_SUCCESS;
  for (int64_t first = block; first < n && status >= 0; first += block) {
    const int64_t count = std::min(block, n - first);
    char* more = x.at[1] + first * x.step[1];
    if (x.step[1] != bytes) {
      copy(bytes, count, next, bytes, more, x.step[1]);
      more = next;
    }
    status = join(running, more, count, running);
  }
  for (int64_t left = block; left > 1 && status >= 0; left -= left / 2) {
    const int64_t half = left / 2;
    status = join(running, running + (left - half) * bytes, half, running);
  }
  return status < 0 ? status : join(x.at[2], running, 1, x.at[2]);
}

orvik_status run_all(const Loop& loop, int64_t n, const Arrays& x, const void* parameters) {
  if (n <= kShort && InOrderCalls(loop).run(n, x.at, x.step)) return ORVIK_SUCCESS;
  bool unit = true;
  for (int k = 0; k < count_of(loop); ++k) unit = unit && x.step[k] == loop.bytes[k];
  orvik_status status = ORVIK_ERROR_OVERLAP;
  if (unit || n == 1) {
    status = call_with_flags(loop, n, x.at, nullptr, parameters);
  } else {
    bool whole = true;
    int64_t increments[kMostArrays] = {};
    for (int k = 0; k < count_of(loop); ++k) {
      const int shift = __builtin_ctz(loop.bytes[k]);  // sizes are powers of two
      increments[k] = x.step[k] >> shift;
      whole = whole && increments[k] << shift == x.step[k];
    }
    if (whole) {
      status = call_with_flags(loop, n, x.at, increments, parameters);
    }
  }
  if (status != ORVIK_ERROR_OVERLAP) return status;
  const bool blocks = blocks_do(loop, n, x);
  if (!blocks && InOrderCalls(loop).run(n, x.at, x.step)) return ORVIK_SUCCESS;
  return through_memory(loop, n, x, parameters, blocks ? kBlock : 1);
}

Arrays from(const Loop& loop, Arrays x, int64_t i) {
  for (int k = 0; k < count_of(loop); ++k) x.at[k] += i * x.step[k];
  return x;
}

template <int bytes>
void copy_chosen(int count, const uint8_t* chosen, char* to, int64_t to_step, const char* from, int64_t from_step,
                 bool spread) {
  for (int i = 0; i < count; ++i) {
    const int64_t there = spread ? chosen[i] : i, here = spread ? i : chosen[i];
    std::memcpy(to + there * to_step, from + here * from_step, bytes);
  }
}
void copy_chosen(int bytes, int count, const uint8_t* chosen, char* to, int64_t to_step, const char* from,
                 int64_t from_step, bool spread) {
  bytes == 4   ? copy_chosen<4>(count, chosen, to, to_step, from, from_step, spread)
  : bytes == 8 ? copy_chosen<8>(count, chosen, to, to_step, from, from_step, spread)
               : copy_chosen<16>(count, chosen, to, to_step, from, from_step, spread);
}

// The elements of a mask: a block's side by side through memory of our own, whole stretches of them where they are.
orvik_status run_chosen(const Loop& loop, int64_t n, const Arrays& all, const char* mask) {
  static_assert(kBlock <= 256);  // a place in a block fits a byte
  alignas(64) char memory[kMostArrays][kBlock * kWidest];
  uint8_t chosen[kBlock];
  char* at[kMostArrays];
  for (int k = 0; k < kMostArrays; ++k) at[k] = memory[k];
  for (int64_t i = 0; i < n;) {
    const auto* const end = static_cast<const char*>(std::memchr(mask + i, 0, static_cast<size_t>(n - i)));
    const int64_t stretch = (end != nullptr ? end - mask : n) - i;
    if (stretch >= kBlock) {
      if (const orvik_status status = run_all(loop, stretch, from(loop, all, i), nullptr); status < 0) return status;
      i += stretch;
      continue;
    }
    const int64_t part = std::min(n - i, kBlock);
    int count = 0;
    for (int64_t k = 0; k < part; ++k) {
      chosen[count] = static_cast<uint8_t>(k);
      count += mask[i + k] != 0;
    }
    const Arrays x = from(loop, all, i);
    i += part;
    if (count == 0) continue;
    for (int k = 0; k < loop.inputs; ++k)
      copy_chosen(loop.bytes[k], count, chosen, at[k], loop.bytes[k], x.at[k], x.step[k], false);
    if (const orvik_status status = call_with_flags(loop, count, at, nullptr, nullptr); status < 0) return status;
    for (int k = loop.inputs; k < count_of(loop); ++k)
      copy_chosen(loop.bytes[k], count, chosen, x.at[k], x.step[k], at[k], loop.bytes[k], true);
  }
  return ORVIK_SUCCESS;
}

// The element's order; false where it is none that a function takes.
bool read_order(const Loop& loop, const char* at, int32_t* order) {
  if (loop.parameters == Parameters::kOrder) {
    int64_t k;
    std::memcpy(&k, at, sizeof k);
    *order = static_cast<int32_t>(k);
    return k == *order;
  }
  double k;
  if (loop.types[0] == 'f') {
    float narrow;
    std::memcpy(&narrow, at, sizeof narrow);
    k = double{narrow};
  } else {
    std::memcpy(&k, at, sizeof k);
  }
  if (!(k >= -2147483648.0 && k <= 2147483647.0)) return false;
  *order = static_cast<int32_t>(k);
  return k == *order;
}

void fill_nan(const Loop& loop, int64_t n, char* at, int64_t step) {
  for (; n > 0; --n, at += step) {
    if (loop.bytes[1] == sizeof(float)) {
      constexpr float nan = std::numeric_limits<float>::quiet_NaN();
      std::memcpy(at, &nan, sizeof nan);
    } else {
      constexpr double nan = std::numeric_limits<double>::quiet_NaN();
      std::memcpy(at, &nan, sizeof nan);
    }
  }
  write_control(read_control() | kInvalidFlag);
}

// Equal parameters that follow each other make one call.
template <class Same, class Run>
orvik_status by_runs(int64_t n, Same same, Run run) {
  for (int64_t first = 0; first < n;) {
    int64_t end = first + 1;
    while (end < n && same(first, end)) ++end;
    if (const orvik_status status = run(first, end - first); status < 0) return status;
    first = end;
  }
  return ORVIK_SUCCESS;
}

orvik_status with_orders(const Loop& loop, int64_t n, char* const* operands, const ptrdiff_t* steps) {
  const size_t bytes = loop.types[0] == 'f' ? sizeof(float) : sizeof(int64_t);
  const auto order_at = [&](int64_t i) { return operands[0] + i * steps[0]; };
  const auto same = [&](int64_t i, int64_t k) {
    return steps[0] == 0 || !std::memcmp(order_at(i), order_at(k), bytes);
  };
  return by_runs(n, same, [&](int64_t first, int64_t count) {
    const Arrays x = {{operands[1] + first * steps[1], operands[2] + first * steps[2]}, {steps[1], steps[2]}};
    int32_t order;
    if (read_order(loop, order_at(first), &order)) return run_all(loop, count, x, &order);
    fill_nan(loop, count, x.at[1], x.step[1]);
    return orvik_status{ORVIK_SUCCESS};
  });
}

orvik_status with_fraction(const Loop& loop, int64_t n, char* const* operands, const ptrdiff_t* steps) {
  const size_t bytes = loop.bytes[0];
  const auto same = [&](int64_t i, int64_t k) {
    for (int p = 2; p < 6; ++p) {
      if (steps[p] != 0 && std::memcmp(operands[p] + i * steps[p], operands[p] + k * steps[p], bytes) != 0)
        return false;
    }
    return true;
  };
  return by_runs(n, same, [&](int64_t first, int64_t count) {
    Arrays x;
    static constexpr int kOperand[] = {0, 1, 6};
    for (int k = 0; k < 3; ++k) {
      x.at[k] = operands[kOperand[k]] + first * steps[kOperand[k]];
      x.step[k] = steps[kOperand[k]];
    }
    alignas(double) char parameters[4 * sizeof(double)];
    for (int p = 0; p < 4; ++p) std::memcpy(parameters + p * bytes, operands[2 + p] + first * steps[2 + p], bytes);
    return run_all(loop, count, x, parameters);
  });
}

}  // namespace

orvik_status run(const Loop& loop, int64_t n, const Arrays& x, const char* mask) {
  return mask == nullptr ? run_all(loop, n, x, nullptr) : run_chosen(loop, n, x, mask);
}

void run_loop(char** operands, const ptrdiff_t* dimensions, const ptrdiff_t* steps, void* data) {
  const Loop& loop = *static_cast<const Loop*>(data);
  const int64_t n = dimensions[0];
  if (n <= 0) return;
  orvik_status status;
  if (loop.parameters == Parameters::kNone) {
    Arrays x;
    for (int k = 0; k < count_of(loop); ++k) {
      x.at[k] = operands[k];
      x.step[k] = steps[k];
    }
    if (loop.swapped) {
      std::swap(x.at[1], x.at[2]);
      std::swap(x.step[1], x.step[2]);
    }
    const bool reduces = loop.reorders && n > 1 && x.at[0] == x.at[2] && x.step[0] == 0 && x.step[2] == 0;
    status = reduces ? reduce(loop, n, x) : run_all(loop, n, x, nullptr);
  } else if (loop.parameters == Parameters::kFraction) {
    status = with_fraction(loop, n, operands, steps);
  } else {
    status = with_orders(loop, n, operands, steps);
  }
  if (status < 0) raise_from_loop(status);
}

}  // namespace orvik::python
