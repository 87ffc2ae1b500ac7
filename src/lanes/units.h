// How the processor's units of arithmetic take registers of 512 bits.
#pragma once

namespace orvik {

// In two halves: an instruction of 512 bits takes them twice as long as one of 256, the divider not. False until the
// kernels have been chosen at load (zym/frame/registers.cc).
extern bool units_of_halves;

}  // namespace orvik
