// What the part that all kernels share knows of one of them: the lane computation out of line, the special elements,
// the sizes of the elements. Special blocks, tails, strided arrays and element loops run through it, so that the code
// of a kernel is its hot loop and one more copy of its lanes.
#pragma once

#include <cstdint>

#include "orvik/zym_types.h"

namespace orvik::zym {

inline constexpr int kMaxBlock = 32;  // elements: the bits of a block's special lanes fit a word

// The arrays of a call, by base pointer and step in bytes. A scalar operand has a step of 0.
struct Operands {
  const char* in[2];
  int64_t in_step[2];
  char* out[2];
  int64_t out_step[2];
};

struct Call;

struct Body {
  // Lanes over `count` elements that lie side by side, at most kMaxBlock. Stops before the first vector with a special
  // lane and returns the number of elements done; or, with a negative count, fills special lanes with the filler, goes
  // through all -count elements and returns the bits of the special ones in the upper half.
  uint64_t (*run)(const void* a, const void* b, void* r1, void* r2, int count, const void* params);
  // The special elements of a block whose lanes' results stand in r1 and r2; `index` is that of the block's first.
  void (*redo)(const Call& call, int64_t index, const void* a, const void* b, void* r1, void* r2, int count,
               uint32_t bits);
  // Element loops: the routine for one element.
  int32_t (*element)(const void* a, const void* b, void* r1, void* r2, const void* params);

  const char* name;  // that reports; null: never
  int8_t inputs, outputs;
  int8_t in_bytes[2], out_bytes[2];
  bool scalar;   // the second input is one element for all
  bool complex;  // what reports: complex elements
  bool single;
  int8_t block;  // elements that are read before one is stored
};

struct Call {
  const Body& body;
  uint32_t mode;
  const Operands& operands;
  const void* params;

  const void* input(int j, int64_t i) const { return operands.in[j] + i * operands.in_step[j]; }
  void* output(int j, int64_t i) const { return operands.out[j] + i * operands.out_step[j]; }
};

// Reports `code` for the element at `index`, whose results stand in r1 and r2: stores them where the reporter and a
// callback see them, and takes back what they leave.
void report_element(const Call& call, int32_t code, int64_t index, void* r1, void* r2);

// The cold ends of a kernel of unit stride: a block with special elements; what is left of a call behind the first
// special element of its tail.
void run_special_block(const Call& call, int64_t index, int count);

// Whole kernels: any increments; a loop over a scalar routine, any increments.
void run_strided(const Body& body, int64_t n, const Operands& operands, const void* params);
void run_element_loop(const Body& body, int64_t n, const Operands& operands, const void* params);

}  // namespace orvik::zym
