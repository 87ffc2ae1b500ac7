// Runs of blocks of counter-based generators, in registers of either width, to any of their three forms. A generator's
// `Runs` has
//   Keys(key)             what it makes of the key once per request
//   Long, Short           runs of many registers for long requests, of few for what is left of one
//   kAhead                whether a block is always made ahead
//   kWideWords            from so many words on registers of 512 bits pay
// and a run
//   kVectors              registers of words that it makes at a time
//   Run(keys, low, high)  begins at this counter
//   make(words)           the next of them; the low half of the counter does not wrap
//   deliver(sink, i)
#pragma once

#include <stddef.h>
#include <stdint.h>
#include <string.h>

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
  Run run(keys, low, high);
  for (; i + kStep <= n; i += kStep) run.deliver(own, i);
  return i;
}

// Fewer words than a run makes, and the block that follows the whole ones of them where it is asked for.
template <class Run, class Sink>
void deliver_part(const typename Run::Keys& keys, uint64_t low, uint64_t high, ptrdiff_t i, int count, const Sink& sink,
                  bool keep, uint32_t* block) {
  typename Run::Vector w[Run::kVectors];
  Run(keys, low, high).make(w);
  if (keep) {
    alignas(64) uint32_t words[kWords * Run::kVectors];
    RawSink(words).group(0, w);
    memcpy(block, words + count / 4 * 4, 16);
  }
  unroll<Run::kVectors>([&](auto k) __attribute__((always_inline)) {
    const int left = count - kWords * k;
    if (left >= kWords)
      put_one(sink, i + kWords * k, w[k]);
    else if (left > 0)
      sink.some(i + kWords * k, w[k], left);
  });
}

// All words of a request. `block` becomes the block that the last of them is cut from, or that is made ahead.
template <class Runs, class Sink>
void deliver_all(const uint32_t* key, uint64_t low, uint64_t high, ptrdiff_t i, ptrdiff_t n, const Sink& sink,
                 uint32_t* block) {
  using Long = typename Runs::Long;
  using Short = typename Runs::Short;
  const typename Runs::Keys keys(key);
  const ptrdiff_t next = deliver_runs<Long>(keys, low, high, i, n, sink);
  low += static_cast<uint64_t>(next - i) / 4;
  const int rest = static_cast<int>(n - next);
  const bool keep = Runs::kAhead || rest % 4 != 0;
  if (rest == 0 && !keep) return;
  const int made = rest + (Runs::kAhead ? 1 : 0);  // at least, with the block ahead
  if (made > kWords * Short::kVectors)
    deliver_part<Long>(keys, low, high, next, rest, sink, keep, block);
  else
    deliver_part<Short>(keys, low, high, next, rest, sink, keep, block);
}

// The same, compiled for registers of 512 bits.
using WideRuns = void(Form form, const uint32_t* key, uint64_t low, uint64_t high, ptrdiff_t i, ptrdiff_t n,
                      const Target& target, uint32_t* block);
extern "C" WideRuns orvik_qor_wide_philox, orvik_qor_wide_ars5;

}  // namespace orvik::qor
