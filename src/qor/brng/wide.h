// The forms of the generators' loops for registers of 512 bits: all of them in wide_generators.cc.
#pragma once

#include "serv/registers.h"

// A function of that file, or null where such registers are not used or not built for.
// WHOLE: null where the processor takes these registers in two halves too, which gives the narrow loop its speed.
#if ORVIK_WIDE_REGISTERS
#define ORVIK_QOR_WIDE(function) (orvik::serv::wide_registers ? &(function) : nullptr)
#define ORVIK_QOR_WHOLE(function) (orvik::serv::wide_registers && !orvik::serv::wide_by_halves ? &(function) : nullptr)
#else
#define ORVIK_QOR_WIDE(function) nullptr
#define ORVIK_QOR_WHOLE(function) nullptr
#endif
