// Dispatch table rows of the vector kernels, for calls from within the library.
#pragma once

#include <string_view>

namespace orvik::qor::built {

// Which rows have kernels: one constant each, named after the row. The slots of the others are null.
#define ROW(precision, function, shape, sharing, reporting, family, ...) \
  inline constexpr bool precision##function = std::string_view(#family) != "none";
#include "zym/frame/rows.def"
#undef ROW

}  // namespace orvik::qor::built

// The row orvik_zym_kernel_<name>_ttab: kernels by level index, 0 low accuracy, 1 high accuracy, 2 enhanced
// performance. The public declarations are weak, so that programs never get a table of their own; a weak reference
// would not bring the table in from a static library, this one does. A row that is not built does not compile.
#define ORVIK_KERNEL_ROW(name)                                                   \
  ([] {                                                                          \
    static_assert(::orvik::qor::built::name, #name " has no kernels yet");       \
    void* const* row;                                                            \
    asm("movq orvik_zym_kernel_" #name "_ttab@GOTPCREL(%%rip), %0" : "=r"(row)); \
    return row;                                                                  \
  }())
