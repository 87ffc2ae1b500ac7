// Dispatch table rows of the vector kernels, for calls from within the library.
#pragma once

// The row orvik_zym_kernel_<name>_ttab: kernels by level index, 0 low accuracy, 1 high accuracy, 2 enhanced
// performance. The public declarations are weak, so that programs never get a table of their own; a weak reference
// would not bring the table in from a static library, this one does.
#define ORVIK_KERNEL_ROW(name)                                                   \
  ([] {                                                                          \
    void* const* row;                                                            \
    asm("movq orvik_zym_kernel_" #name "_ttab@GOTPCREL(%%rip), %0" : "=r"(row)); \
    return row;                                                                  \
  }())
