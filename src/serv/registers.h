// The width of the registers that this process computes with, chosen when the library is loaded.
#pragma once

namespace orvik::serv {

// False until the load-time code of priority 102 has run.
extern bool wide_registers;
// They go through the units of arithmetic in two halves.
extern bool wide_by_halves;
// Rounds of AES on four blocks at a time besides.
extern bool wide_aes;

}  // namespace orvik::serv
