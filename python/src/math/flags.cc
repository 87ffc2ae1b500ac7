#include "math/flags.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "lanes/control.h"

namespace orvik::python {
namespace {

constexpr int64_t kFewReports = 16;                 // that most calls have room for
constexpr int64_t kMostReports = int64_t{1} << 16;  // of a thread's own room, 5 MiB

// The flag of an exceptional element as NumPy has it: poles of powers, which the kernels count as outside the domain or
// as overflow, divide by zero; 0 / 0, a pole to them, is invalid; a NaN that an argument brought raises nothing.
uint32_t flag_of(const orvik_report& report) {
  for (int part = 0; part < 2; ++part) {
    if (std::isnan(report.a[part]) || std::isnan(report.b[part])) return 0;
  }
  const bool nan = std::isnan(report.r[0]) || std::isnan(report.r[1]);
  const bool infinite = std::isinf(report.r[0]) || std::isinf(report.r[1]);
  const bool zero = report.a[0] == 0 && report.a[1] == 0;
  switch (report.code) {
    case ORVIK_DOMAIN:
      return infinite && !nan ? kDivideByZeroFlag : kInvalidFlag;
    case ORVIK_SINGULARITY:
      return nan ? kInvalidFlag : kDivideByZeroFlag;
    case ORVIK_OVERFLOW:
      return zero ? kDivideByZeroFlag : kOverflowFlag;
    default:
      return kUnderflowFlag;
  }
}

uint32_t flags_of(const orvik_report* reports, int64_t count) {
  uint32_t flags = 0;
  for (int64_t k = 0; k < count; ++k) flags |= flag_of(reports[k]);
  return flags;
}

// A thread's room for the reports of many elements and for a copy of an argument, kept for its next call; what is not
// written takes no memory.
class Room {
 public:
  Room() = default;
  ~Room() { std::free(memory_); }
  Room(const Room&) = delete;
  Room& operator=(const Room&) = delete;

  // Grows to `wanted` elements, or as far as there is memory for: at least to a few.
  void grow(int64_t wanted) {
    if (wanted > kMostReports) wanted = kMostReports;
    if (wanted <= capacity_) return;
    std::free(memory_);
    const int64_t twice = 2 * wanted < kMostReports ? 2 * wanted : kMostReports;
    memory_ = static_cast<char*>(std::malloc(static_cast<size_t>(twice) * (sizeof(orvik_report) + kWidest)));
    capacity_ = memory_ != nullptr ? twice : kFewReports;
  }
  int64_t elements() const { return capacity_; }
  char* copy() { return memory_ != nullptr ? memory_ : few_; }
  orvik_report* reports() { return reinterpret_cast<orvik_report*>(copy() + capacity_ * kWidest); }

 private:
  static constexpr int kWidest = sizeof(ZymComplexDouble);  // the alignment of reports divides it

  char* memory_ = nullptr;
  int64_t capacity_ = 0;
  alignas(orvik_report) char few_[kFewReports * (sizeof(orvik_report) + kWidest)];
};

void pack(int bytes, int64_t n, char* to, const char* from, int64_t step) {
  if (step == bytes) {
    std::memcpy(to, from, static_cast<size_t>(n * bytes));
    return;
  }
  for (int64_t i = 0; i < n; ++i) std::memcpy(to + i * bytes, from + i * step, static_cast<size_t>(bytes));
}

// The argument whose place a result takes element by element, -1: none does. When the exceptional elements are known it
// is gone, and their reports have results where arguments should be.
int overwritten(const Loop& loop, char* const* at, const int64_t* increments) {
  for (int k = 0; k < loop.inputs; ++k) {
    for (int r = loop.inputs; r < loop.inputs + loop.results; ++r) {
      const bool same_step =
          loop.bytes[k] == loop.bytes[r] && (increments == nullptr || increments[k] == increments[r]);
      if (at[k] == at[r] && same_step) return k;
    }
  }
  return -1;
}

// The call in parts, none of which can have more exceptional elements than there is room for, with a copy of the
// argument that is overwritten.
orvik_status call_in_parts(const Loop& loop, int64_t n, char* const* at, const int64_t* increments,
                           const void* parameters, int gone, uint32_t* flags) {
  static thread_local Room room;
  room.grow(n);
  const int64_t most = room.elements();
  orvik_math_options options = {accuracy, 0, room.reports(), most, 0};
  const auto step = [&](int k) { return increments != nullptr ? increments[k] : 1; };
  int64_t part_increments[kMostArrays];
  bool copied[kMostArrays] = {};  // of two arguments in one place both are
  for (int k = 0; k < loop.inputs + loop.results; ++k) {
    copied[k] = gone >= 0 && k < loop.inputs && at[k] == at[gone] && step(k) == step(gone);
    part_increments[k] = copied[k] ? 1 : step(k);
  }
  char* part_at[kMostArrays];
  orvik_status least = 0;
  for (int64_t first = 0; first < n; first += most) {
    const int64_t part = n - first < most ? n - first : most;
    for (int k = 0; k < loop.inputs + loop.results; ++k) {
      char* const from = at[k] + first * step(k) * loop.bytes[k];
      part_at[k] = copied[k] ? room.copy() : from;
      if (k == gone) pack(loop.bytes[k], part, room.copy(), from, step(k) * loop.bytes[k]);
    }
    const int64_t* const inc = increments != nullptr ? part_increments : nullptr;
    const orvik_status status = loop.call(part, part_at, inc, parameters, &options);
    if (status < 0) return status;
    if (status > 0) {
      *flags |= flags_of(options.reports, options.report_count);
      if (least == 0 || status < least) least = status;
    }
  }
  return least;
}

// All flags of a call's reports: at once where the few first are all, else once more in parts.
orvik_status call_and_classify(const Loop& loop, int64_t n, char* const* at, const int64_t* increments,
                               const void* parameters, uint32_t* flags) {
  if (const int gone = loop.reports ? overwritten(loop, at, increments) : -1; gone >= 0) {
    return call_in_parts(loop, n, at, increments, parameters, gone, flags);
  }
  orvik_report reports[kFewReports];
  orvik_math_options options = {accuracy, 0, reports, kFewReports, 0};
  const orvik_status status = loop.call(n, at, increments, parameters, &options);
  if (status <= 0) [[likely]]
    return status;
  if (options.report_count > kFewReports) return call_in_parts(loop, n, at, increments, parameters, -1, flags);
  *flags = flags_of(reports, options.report_count);
  return status;
}

template <class E>
bool any_part_is_zero(const E* parts, int64_t count) {
  typedef E Pack __attribute__((vector_size(16)));
  constexpr int64_t kWidth = 16 / sizeof(E);
  decltype(Pack{} == Pack{}) some = {};
  int64_t i = 0;
  for (; i + kWidth <= count; i += kWidth) {
    Pack pack;
    std::memcpy(&pack, parts + i, sizeof pack);
    some |= pack == E(0);
  }
  bool found = false;
  for (int64_t k = 0; k < kWidth; ++k) found = found || some[k] != 0;
  for (; i < count; ++i) found = found || parts[i] == 0;
  return found;
}

// Whether a number that is not 0 is divided by 0.
template <class C>
bool divides_by_zero(int64_t n, char* const* at, const int64_t* increments) {
  const auto *a = reinterpret_cast<const C*>(at[0]), *b = reinterpret_cast<const C*>(at[1]);
  const int64_t inc_a = increments == nullptr ? 1 : increments[0], inc_b = increments == nullptr ? 1 : increments[1];
  if (increments == nullptr) {  // mostly no part of any divisor is 0, which is soon seen
    if (!any_part_is_zero(&b[0].re, 2 * n)) return false;
  }
  for (int64_t i = 0; i < n; ++i) {
    const C &x = a[i * inc_a], &y = b[i * inc_b];
    if (y.re == 0 && y.im == 0 && (std::fabs(x.re) > 0 || std::fabs(x.im) > 0)) return true;
  }
  return false;
}

}  // namespace

orvik_status call_with_flags(const Loop& loop, int64_t n, char* const* at, const int64_t* increments,
                             const void* parameters) {
  uint32_t zeros = 0;  // found beforehand: results may take the place of divisors
  if (loop.divides) {
    const bool wide = loop.bytes[0] == sizeof(ZymComplexDouble);
    const bool found = wide ? divides_by_zero<ZymComplexDouble>(n, at, increments)
                            : divides_by_zero<ZymComplexFloat>(n, at, increments);
    zeros = found ? kDivideByZeroFlag : 0;
  }
  const uint32_t before = loop.selects ? read_control() : 0;
  uint32_t flags = 0;
  const orvik_status status = call_and_classify(loop, n, at, increments, parameters, &flags);
  if (flags != 0) [[unlikely]]
    write_control(read_control() | flags);
  if (zeros != 0) write_control(read_control() | zeros);
  if (loop.selects) write_control((read_control() & ~kInvalidFlag) | (before & kInvalidFlag));
  return status;
}

}  // namespace orvik::python
