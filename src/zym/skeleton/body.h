// What the part that all kernels share knows of one of them: the lane computation out of line, the special elements,
// the sizes of the elements. Special blocks, tails, strided arrays and element loops run through it, so that the code
// of a kernel is its hot loop and one more copy of its lanes.
#pragma once

#include <cstdint>

#include "orvik/zym_types.h"

namespace orvik::zym {

// The name of a kernel: sources are compiled once for each width of the registers.
#if ORVIK_REGISTER_BITS == 512
#define ORVIK_KERNEL(name) orvik_zym_wide_##name
#else
#define ORVIK_KERNEL(name) orvik_zym_##name
#endif

inline constexpr int kMaxBlock = 32;    // elements: the bits of a block's special lanes fit a word
inline constexpr int kRowBytes = 2048;  // that strided arrays are gathered into

// The arrays of a call, by base pointer and step in bytes. A scalar operand has a step of 0.
struct Operands {
  const char* in[2];
  int64_t in_step[2];
  char* out[2];
  int64_t out_step[2];
};

struct Call;

// Elements of a strided call that stand side by side in rows while a kernel of unit stride runs on them.
struct Piece {
  const Operands& operands;  // the call's
  int64_t first;             // the piece's first element there
  int64_t stored;            // results that have been spread already, since a report was to see them
};

struct Body {
  // A kernel of unit stride, whole.
  void (*unit)(const Body& body, int64_t n, const void* a, const void* b, void* r1, void* r2, const void* params,
               Piece* piece);
  // The lanes out of line: n elements side by side, at most kMaxBlock, with the filler in special lanes. Returns the
  // bits of the special ones.
  uint32_t (*run)(const void* a, const void* b, void* r1, void* r2, int64_t n, const void* params);
  // The special elements of a block whose lanes' results stand in r1 and r2; `index` is that of the block's first.
  void (*redo)(const Call& call, int64_t index, const void* a, const void* b, void* r1, void* r2, int count,
               uint32_t bits);
  // Families without lanes: n elements one after another, reported as they come.
  void (*elements)(const Call& call, int64_t n);

  const char* name;  // that reports; null: never
  int8_t inputs, outputs;
  int8_t in_bytes[2], out_bytes[2];
  bool scalar;   // the second input is one element for all
  bool complex;  // what reports: complex elements
  bool single;
  uint8_t stray;  // flags that lanes may raise though the results do not
  int8_t block;   // elements that are read before one is stored
  int16_t piece;  // elements in a row
};

struct Call {
  const Body& body;
  uint32_t mode;
  const Operands& operands;
  const void* params;
  uint32_t* kept;  // stray flags that element routines have raised; null where there are none
  Piece* piece;    // null: the operands are the caller's
  mutable int error_number = 0;  // errno as the caller and reports have it; library functions in routines set it too
  mutable int32_t unheard = 0;   // the last code that was reported so

  const void* input(int j, int64_t i) const { return operands.in[j] + i * operands.in_step[j]; }
  void* output(int j, int64_t i) const { return operands.out[j] + i * operands.out_step[j]; }
};

// Reports `code` for the element at `index`, whose results stand in r1 and r2: stores them where the reporter and a
// callback see them, and takes back what they leave.
void report_element(const Call& call, int32_t code, int64_t index, void* r1, void* r2);

// The cold end of a kernel of unit stride: a block, or what is left of a call, with special elements.
void run_special_block(const Call& call, int64_t index, int count);

// The elements of a call of unit stride before the first whole register of results that is aligned to so many bytes;
// none where an array of results meets one of inputs, since blocks from the first element on are an order that can be
// seen there. Returns their number.
int64_t run_to_aligned(const Call& call, int64_t n, int bytes);

// A call with any increments. Where arrays meet, a block is read whole before any of it is stored, and what is left
// behind the last block goes one element a round; apart, nobody can tell, and larger pieces are quicker.
void run_strided(const Body& body, int64_t n, const Operands& operands, const void* params);
// Elements first to n - 1, at most kMaxBlock of them, their sizes known: short calls, and special elements of others.
// Where first is not 0, the arrays are apart.
template <int In, int Out>
void run_strided_short(const Body& body, int64_t first, int64_t n, const Operands& operands, const void* params);
// Whether arrays are apart so.
bool apart(const Body& body, const Operands& operands, int64_t n);
// Whether no array is a row already: neither side by side nor one element for all.
bool scattered(const Body& body, const Operands& operands);

// A whole kernel: a loop over a scalar routine.
void run_element_loop(const Body& body, int64_t n, const Operands& operands, const void* params);

}  // namespace orvik::zym
