#include "math/flags.h"

#include <bit>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "lanes/control.h"

namespace orvik::python {
namespace {

constexpr int64_t kFewReports = 64;                 // that all calls have room for
constexpr int64_t kShort = 1024;                    // elements that do without more at first
constexpr int64_t kMostReports = int64_t{1} << 16;  // of a thread's own room, 5 MiB
constexpr int64_t kManyReports = int64_t{1} << 14;  // of a call of more elements: its threads may need as many each

// Zero to the power of -inf, for which kernels raise nothing. One argument may be overwritten by the result, +inf.
bool infinite_power_of_zero(const orvik_report& report) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  return report.a[0] == 0 || (report.b[0] == -kInfinity && report.r[0] == kInfinity);
}

// The flag of an exceptional element as NumPy has it, by the code and the result alone, since the argument may be gone:
// 0 / 0, a pole to the kernels, is invalid; poles of powers, which some of them count as outside the domain, divide by
// zero. Where this does not tell, the kernels' own flags do (Loop::raises).
uint32_t flag_of(const Loop& loop, const orvik_report& report) {
  const bool nan = std::isnan(report.r[0]) || std::isnan(report.r[1]);
  const bool infinite = std::isinf(report.r[0]) || std::isinf(report.r[1]);
  switch (report.code) {
    case ORVIK_DOMAIN:
      return infinite && !nan ? kDivideByZeroFlag : kInvalidFlag;
    case ORVIK_SINGULARITY:
      return !nan ? kDivideByZeroFlag : loop.raises ? 0 : kInvalidFlag;
    case ORVIK_OVERFLOW:
      if (!loop.raises) return kOverflowFlag;
      return infinite_power_of_zero(report) ? kDivideByZeroFlag : 0;
    default:
      return kUnderflowFlag;
  }
}

uint32_t flags_of(const Loop& loop, const orvik_math_options& options) {
  uint32_t flags = 0;
  for (int64_t k = 0; k < options.report_count; ++k) flags |= flag_of(loop, options.reports[k]);
  return flags;
}

// A thread's room for the reports of many elements, kept for its next call; what is not written takes no memory.
class Room {
 public:
  Room() = default;
  ~Room() { std::free(memory_); }
  Room(const Room&) = delete;
  Room& operator=(const Room&) = delete;

  // Grows to `wanted` reports, or as far as there is memory for: at least to a few.
  void grow(int64_t wanted) {
    if (wanted > kMostReports) wanted = kMostReports;
    if (wanted <= capacity_) return;
    std::free(memory_);
    const int64_t twice = 2 * wanted < kMostReports ? 2 * wanted : kMostReports;
    memory_ = static_cast<orvik_report*>(std::malloc(static_cast<size_t>(twice) * sizeof(orvik_report)));
    capacity_ = memory_ != nullptr ? twice : 0;
  }
  int64_t capacity() const { return memory_ != nullptr ? capacity_ : kLeast; }
  orvik_report* reports() { return memory_ != nullptr ? memory_ : few_; }

 private:
  orvik_report* memory_ = nullptr;
  int64_t capacity_ = 0;
  static constexpr int64_t kLeast = 16;
  orvik_report few_[kLeast];
};

// Whether a result takes the place of an argument, so that the call cannot be made a second time.
bool overwrites(const Loop& loop, char* const* at, const int64_t* increments) {
  for (int k = 0; k < loop.inputs; ++k) {
    for (int r = loop.inputs; r < loop.inputs + loop.results; ++r) {
      if (at[k] == at[r] && (increments == nullptr || increments[k] == increments[r])) return true;
    }
  }
  return false;
}

// The call in parts, none of which can have more exceptional elements than there is room for.
orvik_status call_in_parts(const Loop& loop, int64_t n, char* const* at, const int64_t* increments,
                           const void* parameters, Room& room, uint32_t* flags) {
  const int64_t most = room.capacity();
  orvik_math_options options = {accuracy, 0, room.reports(), most, 0};
  char* part_at[kMostArrays];
  orvik_status least = 0;
  for (int64_t first = 0; first < n; first += most) {
    const int64_t part = n - first < most ? n - first : most;
    for (int k = 0; k < loop.inputs + loop.results; ++k) {
      part_at[k] = at[k] + first * (increments != nullptr ? increments[k] : 1) * loop.bytes[k];
    }
    const orvik_status status = loop.call(part, part_at, increments, parameters, &options);
    if (status < 0) return status;
    if (status > 0) {
      *flags |= flags_of(loop, options);
      if (least == 0 || status < least) least = status;
    }
  }
  return least;
}

// A call with room for so many reports; how many there were, in the end.
orvik_status call_once(const Loop& loop, int64_t n, char* const* at, const int64_t* increments, const void* parameters,
                       orvik_report* reports, int64_t capacity, uint32_t* flags, int64_t* count) {
  orvik_math_options options = {accuracy, 0, reports, capacity, 0};
  const orvik_status status = loop.call(n, at, increments, parameters, &options);
  *count = status > 0 ? options.report_count : 0;
  if (*count > 0 && *count <= capacity) *flags = flags_of(loop, options);
  return status;
}

// All flags of a call's reports: in one part where there is room for all elements, or must be, since arguments go; else
// at once where not too many are exceptional, and once more in parts where they are.
orvik_status call_and_classify(const Loop& loop, int64_t n, char* const* at, const int64_t* increments,
                               const void* parameters, uint32_t* flags) {
  int64_t count;
  const bool once = n > kFewReports && loop.reports && overwrites(loop, at, increments);
  if (!loop.reports || (n <= kShort && !once)) {
    orvik_report reports[kFewReports];
    const orvik_status status =
        call_once(loop, n, at, increments, parameters, reports, kFewReports, flags, &count);
    if (count <= kFewReports) [[likely]]
      return status;
  }
  static thread_local Room room;
  room.grow(n);
  const int64_t many = room.capacity() < kManyReports ? room.capacity() : kManyReports;
  if (!once && n > kMostReports) {
    const orvik_status status =
        call_once(loop, n, at, increments, parameters, room.reports(), many, flags, &count);
    if (count <= many) return status;
  }
  return call_in_parts(loop, n, at, increments, parameters, room, flags);
}

// Whether some part's magnitude is less than `limit`.
template <class E>
bool any_part_is_below(E limit, const E* parts, int64_t count) {
  typedef E Pack __attribute__((vector_size(16)));
  using Bits = decltype(Pack{} == Pack{});
  constexpr int64_t kWidth = 16 / sizeof(E);
  const Bits signs = std::bit_cast<Bits>(-Pack{});
  const Pack limits = Pack{} + limit;
  Bits some = {};
  int64_t i = 0;
  for (; i + kWidth <= count; i += kWidth) {
    Bits bits;
    std::memcpy(&bits, parts + i, sizeof bits);
    some |= std::bit_cast<Pack>(bits & ~signs) < limits;
  }
  bool found = false;
  for (int64_t k = 0; k < kWidth; ++k) found = found || some[k] != 0;
  for (; i < count; ++i) found = found || std::fabs(parts[i]) < limit;
  return found;
}

// Whether a result is 0 or below the normal numbers. E: the type of its parts.
template <class E>
bool any_result_is_tiny(const Loop& loop, int64_t n, char* const* at, const int64_t* increments) {
  constexpr E kLeast = std::numeric_limits<E>::min();
  for (int r = loop.inputs; r < loop.inputs + loop.results; ++r) {
    const auto* const parts = reinterpret_cast<const E*>(at[r]);
    const int64_t width = loop.bytes[r] / int64_t{sizeof(E)}, inc = increments == nullptr ? 1 : increments[r];
    if (inc == 1 && any_part_is_below(kLeast, parts, width * n)) return true;
    for (int64_t i = 0; inc != 1 && i < n; ++i) {
      if (any_part_is_below(kLeast, parts + i * inc * width, width)) return true;
    }
  }
  return false;
}
bool any_result_is_tiny(const Loop& loop, int64_t n, char* const* at, const int64_t* increments) {
  const int behind = loop.parameters == Parameters::kNone ? 0 : loop.parameters == Parameters::kFraction ? 4 : 1;
  const char type = loop.types[loop.inputs + loop.results + behind - 1];
  return type == 'f' || type == 'F' ? any_result_is_tiny<float>(loop, n, at, increments)
                                    : any_result_is_tiny<double>(loop, n, at, increments);
}

// Whether a number that is not 0 is divided by 0.
template <class C>
bool divides_by_zero(int64_t n, char* const* at, const int64_t* increments) {
  const auto *a = reinterpret_cast<const C*>(at[0]), *b = reinterpret_cast<const C*>(at[1]);
  const int64_t inc_a = increments == nullptr ? 1 : increments[0], inc_b = increments == nullptr ? 1 : increments[1];
  if (increments == nullptr) {  // mostly no part of any divisor is 0, which is soon seen
    using Part = decltype(b[0].re + 0);
    if (!any_part_is_below(std::numeric_limits<Part>::denorm_min(), &b[0].re, 2 * n)) return false;
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
  const uint32_t before = read_control();
  uint32_t flags = 0;
  const orvik_status status = call_and_classify(loop, n, at, increments, parameters, &flags);
  // Squares and corrections of small numbers may underflow on the way to results that do not.
  if (const uint32_t now = read_control(); (now & ~before & kUnderflowFlag) != 0) [[unlikely]] {
    if (status >= 0 && !any_result_is_tiny(loop, n, at, increments)) write_control(now & ~kUnderflowFlag);
  }
  if (flags != 0) [[unlikely]]
    write_control(read_control() | flags);
  if (zeros != 0) write_control(read_control() | zeros);
  if (loop.selects) write_control((read_control() & ~kInvalidFlag) | (before & kInvalidFlag));
  return status;
}

}  // namespace orvik::python
