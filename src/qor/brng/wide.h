// The forms of the generators' loops for registers of 512 bits: all of them in wide_generators.cc.
#pragma once

#include "serv/registers.h"

// A function of that file, or null where such registers are not used or not built for.
#if ORVIK_WIDE_REGISTERS
#define ORVIK_QOR_WIDE(function) (orvik::serv::wide_registers ? &(function) : nullptr)
#else
#define ORVIK_QOR_WIDE(function) nullptr
#endif
