#include "math/flags.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "lanes/control.h"

namespace orvik::python {
namespace {

constexpr int64_t kReports = 16;

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

// Those of all elements where more were reported than fitted: the call once more, with room for all of them. Its
// arguments are gone where a result took their place; then those of the first have to do.
uint32_t flags_of_all(const Loop& loop, int64_t n, char* const* at, const int64_t* increments, const void* parameters,
                      orvik_math_options options) {
  for (int k = 0; k < loop.inputs; ++k) {
    for (int r = loop.inputs; r < loop.inputs + loop.results; ++r) {
      if (at[k] == at[r]) return 0;
    }
  }
  const int64_t capacity = options.report_count;
  auto* const reports = static_cast<orvik_report*>(std::malloc(static_cast<size_t>(capacity) * sizeof(orvik_report)));
  if (reports == nullptr) return 0;
  options.reports = reports;
  options.report_capacity = capacity;
  uint32_t flags = 0;
  if (loop.call(n, at, increments, parameters, &options) > 0) flags = flags_of(reports, capacity);
  std::free(reports);
  return flags;
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
  orvik_report reports[kReports];
  orvik_math_options options = {accuracy, 0, reports, kReports, 0};
  uint32_t zeros = 0;  // found beforehand: results may take the place of divisors
  if (loop.divides) {
    const bool wide = loop.bytes[0] == sizeof(ZymComplexDouble);
    const bool found = wide ? divides_by_zero<ZymComplexDouble>(n, at, increments)
                            : divides_by_zero<ZymComplexFloat>(n, at, increments);
    zeros = found ? kDivideByZeroFlag : 0;
  }
  const uint32_t before = loop.selects ? read_control() : 0;
  const orvik_status status = loop.call(n, at, increments, parameters, &options);
  if (status > 0) [[unlikely]] {
    uint32_t flags = flags_of(reports, options.report_count < kReports ? options.report_count : kReports);
    if (options.report_count > kReports) flags |= flags_of_all(loop, n, at, increments, parameters, options);
    write_control(read_control() | flags);
  }
  if (zeros != 0) write_control(read_control() | zeros);
  if (loop.selects) write_control((read_control() & ~kInvalidFlag) | (before & kInvalidFlag));
  return status;
}

}  // namespace orvik::python
