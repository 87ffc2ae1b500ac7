// Whole blocks of counter-based generators, in registers of either width, to any of their three forms. A generator's
// `Run` has
//   Keys(key)                        what it makes of the key once per request
//   kVectors                         registers that it delivers at a time
//   Run(low, high)                   begins at this counter
//   deliver(keys, sink, i)           the next of them; the low half of the counter does not wrap
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "qor/brng/sinks.h"

namespace orvik::qor {

using CounterFloats = FloatSink<ToFloats<Signed, FromMiddle>>;
using CounterDoubles = DoubleSink<ToDoubles<Signed, FromMiddle>>;

// Fills r[i], r[i + 1] ... as far as whole deliveries go; returns the next i.
template <class Run, class Sink>
ptrdiff_t deliver_runs(const typename Run::Keys& keys, uint64_t low, uint64_t high, ptrdiff_t i, ptrdiff_t n,
                       const Sink& sink) {
  constexpr ptrdiff_t kStep = kWords * Run::kVectors;
  if (i + kStep > n) return i;
  const Sink own = sink;  // a copy: for all the compiler knows the results might overlap it
  Run run(low, high);
  for (; i + kStep <= n; i += kStep) run.deliver(keys, own, i);
  return i;
}

// The same, compiled for registers of 512 bits.
using WideRuns = ptrdiff_t(Form form, const uint32_t* key, uint64_t low, uint64_t high, ptrdiff_t i, ptrdiff_t n,
                           const Target& target);
extern "C" WideRuns orvik_qor_wide_philox, orvik_qor_wide_ars5;
// From so many words on they pay.
inline constexpr ptrdiff_t kWideRunWords = 128;

}  // namespace orvik::qor
