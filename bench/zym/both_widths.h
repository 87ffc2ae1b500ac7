// Kernels of both widths of a row, for programs over the library's objects: its shared form keeps the list to itself.
#pragma once

#include <cstdint>
#include <functional>

#include "tools/rows/list.h"
#include "zym/frame/registers.h"

namespace orvik::bench {

// Null where the row has kernels of 256 bits alone, or the processor no wider registers.
const zym::WideRow* wide_row(const rows::Row& row);

// What calls an entry with this kernel in its slot.
std::function<void(int64_t)> with_kernel(void** slot, void* kernel, std::function<void(int64_t)> entry);

}  // namespace orvik::bench
