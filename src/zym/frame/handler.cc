#include "zym/frame/handler.h"

#include <bit>
#include <cerrno>

#include "orvik/serv.h"
#include "zym/frame/thread_state.h"

namespace orvik::zym {
namespace {

struct CodeRow {
  int32_t code;
  int32_t error_number;
  int32_t message;
  uint16_t flag;  // in the x87 status word
};

constexpr CodeRow kCodes[] = {
    {zymErrorBadAccess, EACCES, 749, 0},
    {zymErrorBadArgument, EINVAL, 748, 0},
    {0, 0, 0, 0},
    {zymErrorDomain, EDOM, 750, 0x1},
    {zymErrorSingularity, ERANGE, 751, 0x4},
    {zymErrorOverflow, ERANGE, 752, 0x8},
    {zymErrorUnderflow, ERANGE, 753, 0x10},
};
constexpr CodeRow kUnknownCode = {0, EFAULT, 754, 0};

const CodeRow& row_of(int32_t code) {
  for (const CodeRow& row : kCodes) {
    if (row.code == code) return row;
  }
  return kUnknownCode;
}

void print_value(int32_t number, const ZymErrorContext& context, double value) {
  orvik_serv_print(1, number, 2, context.index, value);
}

// A second value that repeats the first, or is zero, counts as absent.
bool absent(double first, double second) {
  return std::bit_cast<uint64_t>(first) == std::bit_cast<uint64_t>(second) || second == 0.0;
}

void print_report(const CodeRow& row, const ZymErrorContext& context) {
  if (row.message == 0) return;
  if (context.code == zymErrorBadArgument) {
    orvik_serv_print(1, row.message, 2, context.functionName, context.index);
    return;
  }
  orvik_serv_print(1, row.message, 1, context.functionName);
  if (context.code == zymErrorBadAccess) return;

  // Four layouts, one after another in the catalogue: arguments first, then results.
  const bool one_argument = absent(context.arg1, context.arg2);
  const bool one_result = absent(context.result1, context.result2);
  int32_t number = one_argument ? (one_result ? 755 : 757) : (one_result ? 760 : 763);
  print_value(number++, context, context.arg1);
  if (!one_argument) print_value(number++, context, context.arg2);
  print_value(number++, context, context.result1);
  if (!one_result) print_value(number++, context, context.result2);
}

// The x87 environment in its 28-byte protected-mode form.
struct X87Environment {
  uint16_t control, unused0;
  uint16_t status, unused1;
  uint32_t rest[5];
};
static_assert(sizeof(X87Environment) == 28);

constexpr uint16_t kX87Exceptions = 0x3F;

// Leaves the flag in the x87 status word with all exceptions masked; traps if the mode asks for it.
void raise_exception(uint16_t flag, uint32_t mode) {
  uint16_t control;
  uint16_t status;
  asm volatile("fnstcw %0" : "=m"(control));
  asm volatile("fnstsw %0" : "=a"(status));
  const uint16_t traps = static_cast<uint16_t>(((mode >> 24) & 1) | ((mode >> 23) & 0x1C));
  // Loading an environment costs a hundred cycles: nothing to do where the flag stands already and cannot trap.
  if (traps == 0 && (control & kX87Exceptions) == kX87Exceptions && (status & flag) == flag) return;

  X87Environment trapping;
  asm volatile("fnstenv %0" : "=m"(trapping));
  X87Environment sticky = trapping;
  trapping.control = static_cast<uint16_t>(trapping.control & ~traps);
  trapping.status = static_cast<uint16_t>((trapping.status & ~kX87Exceptions) | flag);
  sticky.control |= kX87Exceptions;
  sticky.status |= flag;
  asm volatile("fldenv %0" : : "m"(trapping));
  asm volatile("fldenv %0" : : "m"(sticky));  // delivers the exception that waits, if one does
}

}  // namespace

void handle_report(const ZymErrorContext& context) {
  const uint32_t mode = current_mode();
  const CodeRow& row = row_of(context.code);
  if ((mode & ZYM_ERRMODE_ERRNO) != 0) errno = row.error_number;
  if ((mode & ZYM_ERRMODE_STDERR) != 0) print_report(row, context);
  if ((mode & ZYM_ERRMODE_EXCEPT) != 0) raise_exception(row.flag, mode);
}

}  // namespace orvik::zym
