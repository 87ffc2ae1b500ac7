// The kernels that the dispatch table holds, and their costs: of 256 bits as it is linked, of 512 from the load on where these are chosen
// (serv/registers.h). What lists both (registers.h) refers to this file, so that it comes with the table also out of a static
// library. This file is compiled for any x86-64 processor; see serv/processor.cc.
#include "zym/frame/registers.h"

#include "lanes/units.h"
#include "serv/registers.h"

bool orvik::units_of_halves = false;

#if ORVIK_WIDE_REGISTERS
// Before the program's own start-up code.
extern "C" [[gnu::constructor(103)]] void orvik_zym_choose_kernels() {
  if (!orvik::serv::wide_registers) return;
  orvik::units_of_halves = orvik::serv::wide_by_halves;
  for (const auto* row = orvik::zym::orvik_zym_wide_rows; row->slots != nullptr; ++row) {
    auto* costs = reinterpret_cast<float*>(row->slots + 3);
    for (int level = 0; level < 3; ++level) {
      row->slots[level] = orvik::serv::wide_by_halves ? row->halves[level] : row->wide[level];
      if (row->slots[level] != row->narrow[level]) costs[level] = row->costs[level];
    }
  }
}
#endif
