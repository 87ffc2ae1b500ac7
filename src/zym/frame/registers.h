// Rows with kernels of both widths, as the generated table lists them (ORVIK_WIDE_REGISTERS).
#pragma once

namespace orvik::zym {

struct WideRow {
  void** slots;  // of the dispatch table; null behind the last row
  void* narrow[3];
  void* wide[3];    // the narrow one where wider registers gain nothing
  void* halves[3];  // what serves where the processor takes these registers in two halves: either of them
  float costs[3];   // of the wide ones
};
extern "C" const WideRow orvik_zym_wide_rows[];

}  // namespace orvik::zym
