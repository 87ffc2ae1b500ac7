#include "zym/both_widths.h"

#include "serv/processor.h"

namespace orvik::bench {

const zym::WideRow* wide_row([[maybe_unused]] const rows::Row& row) {
#if ORVIK_WIDE_REGISTERS
  if (!serv::has_wide_registers(serv::read_processor())) return nullptr;
  for (const zym::WideRow* wide = zym::orvik_zym_wide_rows; wide->slots != nullptr; ++wide) {
    if (wide->slots == rows::table_row(row.index)) return wide;
  }
#endif
  return nullptr;
}

std::function<void(int64_t)> with_kernel(void** slot, void* kernel, std::function<void(int64_t)> entry) {
  return [=](int64_t turns) {
    *slot = kernel;
    entry(turns);
  };
}

}  // namespace orvik::bench
