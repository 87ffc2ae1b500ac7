// Runs of R250 in a linear buffer, in registers of either width.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "qor/brng/sinks.h"

namespace orvik::qor {

inline constexpr int kR250Words = 250, kR250Distance = 103;

using R250Floats = FloatSink<ToFloatsByDoubles<Unsigned, FromLow<Words32>>>;
using R250Doubles = DoubleSink<ToDoubles<Unsigned, FromLow<Words32>>>;
using R250QuickDoubles = DoubleSink<ToDoublesBiased<Words32>>;

// Appends `count` words to the 250 at x, and up to a register more, and hands them on from index i.
template <class Sink>
void run_r250(uint32_t* x, int count, const Sink& target, ptrdiff_t i) {
  constexpr int kGroup = 4;
  static_assert(kR250Distance + kWords * kGroup <= kR250Words);
  const Sink sink = target;  // a copy: for all the compiler knows the results might overlap it
  const auto next = [x](int k) __attribute__((always_inline)) {
    const I32 w = load_words(x + k) ^ load_words(x + k + kR250Distance);
    store(x + k + kR250Words, w);
    return w;
  };
  int k = 0;
  for (; k + kWords * kGroup <= count; k += kWords * kGroup) {
    I32 w[kGroup];
    unroll<kGroup>([&](auto g) __attribute__((always_inline)) { w[g] = next(k + kWords * g); });
    sink.group(i + k, w);
  }
  for (; k + kWords <= count; k += kWords) put_one(sink, i + k, next(k));
  if (k < count) sink.some(i + k, next(k), count - k);
}

// The same, compiled for registers of 512 bits.
using WideR250 = void(Form form, uint32_t* x, int count, const Target& target, ptrdiff_t i);
extern "C" WideR250 orvik_qor_wide_r250;

}  // namespace orvik::qor
