// Points of neighbouring coordinates in base 2, in registers of either width (digital.h).
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "qor/brng/sinks.h"

namespace orvik::qor {

using DigitalFloats = FloatSink<ToFloats<Unsigned, InDouble<FromLow<Words32>>>>;
using DigitalDoubles = DoubleSink<ToDoubles<Unsigned, FromLow<Words32>>>;
using DigitalQuickDoubles = DoubleSink<ToDoublesBiased<Words32>>;

// Which row moves point `index` on.
inline int next_row(uint32_t index) { return __builtin_ctz(~index); }

// Up to 32 neighbouring coordinates: the points in hand, and the rows that move them.
struct Neighbours {
  static constexpr int kMost = 32;
  int dims;
  uint32_t* x;
  const uint32_t* rows;
  ptrdiff_t row_stride;

  const uint32_t* row(int c) const { return rows + c * row_stride; }
  I32 load(const uint32_t* p, int k) const {
    return dims - k >= kWords ? load_words(p + k) : load_some(p + k, dims - k);
  }
};

// Point after point, `width` elements of the output apart.
template <class Sink>
void deliver_plain(const Neighbours& s, uint32_t index, int32_t points, const Sink& sink, ptrdiff_t i,
                   ptrdiff_t width) {
  constexpr int kVectors = Neighbours::kMost / kWords;
  I32 x[kVectors];
  if (s.dims == Neighbours::kMost) {
    for (int k = 0; k < kVectors; ++k) x[k] = load_words(s.x + kWords * k);
    for (; points > 0; --points, ++index, i += width) {
      sink.group(i, x);
      const uint32_t* const row = s.row(next_row(index));
      unroll<kVectors>([&](auto k) __attribute__((always_inline)) { x[k] = x[k] ^ load_words(row + kWords * k); });
    }
    for (int k = 0; k < kVectors; ++k) store(s.x + kWords * k, x[k]);
    return;
  }
  const int whole = s.dims / kWords, rest = s.dims % kWords;
  for (int k = 0; k < s.dims; k += kWords) x[k / kWords] = s.load(s.x, k);
  for (; points > 0; --points, ++index, i += width) {
    const uint32_t* const row = s.row(next_row(index));
    for (int k = 0; k < whole; ++k) {
      put_one(sink, i + kWords * k, x[k]);
      x[k] = x[k] ^ load_words(row + kWords * k);
    }
    if (rest != 0) {
      sink.some(i + kWords * whole, x[whole], rest);
      x[whole] = x[whole] ^ load_some(row + kWords * whole, rest);
    }
  }
  for (int k = 0; k < whole; ++k) store(s.x + kWords * k, x[k]);
  if (rest != 0) store_some(s.x + kWords * whole, x[whole], rest);
}

// A few dimensions: sixteen points at a time. From an index that is a multiple of 16 on, point t of sixteen differs
// from the first by what depends on t alone; so the output is one pattern, the differences, combined with the first
// point laid side by side until it ends at a vector's end.
class Sixteen {
 public:
  static constexpr int kPoints = 16, kLeast = 40;  // fewer points are quicker one by one

  // The point in hand is number `place` of its sixteen.
  Sixteen(const Neighbours& s, int place) : s_(s), vectors_(kPoints * s.dims / kWords) {
    int common = s.dims & -s.dims;
    common = common < kWords ? common : kWords;
    period_ = s.dims / common;
    while (period_ < 4 && vectors_ % (2 * period_) == 0) period_ *= 2;
    for (int k = last_vector(); k >= 0; k -= kWords) {
      I32 row[4];  // those that the sixteen need, by the trailing zeros of a point's number
      for (int c = 0; c < 4; ++c) row[c] = s_.load(s_.row(c), k);
      I32 w = I32(0);
      uint32_t* to = difference_ + k;
      store(to, w);
      unroll<kPoints - 1>([&](auto t) __attribute__((always_inline)) {
        w = w ^ row[__builtin_ctz(t + 1)];
        store(to += s_.dims, w);
      });
    }
    const uint32_t* const from_first = difference_ + place * s.dims;
    lay(first_, [&](int k) { return s_.load(s_.x, k) ^ load_words(from_first + k); });
  }

  // Sixteen points, and moves on by as many.
  template <class Sink>
  void deliver(uint32_t index, const Sink& sink, ptrdiff_t i) {
    for (int v = 0; v < vectors_; v += period_)
      for (int p = 0; p < period_; ++p)
        put_one(sink, i + kWords * (v + p),
                load_words(first_ + kWords * p) ^ load_words(difference_ + kWords * (v + p)));
    move_on(index);
  }

  // Points `from` to `to` - 1 of sixteen.
  template <class Sink>
  void deliver_some(int from, int to, const Sink& sink, ptrdiff_t i) const {
    alignas(64) uint32_t words[kPoints * Neighbours::kMost + kWords];
    const int begin = from * s_.dims, end = to * s_.dims;
    for (int v = begin / kWords; kWords * v < end; ++v)
      store(words + kWords * v, load_words(first_ + kWords * (v % period_)) ^ load_words(difference_ + kWords * v));
    int k = begin;
    for (; k + kWords <= end; k += kWords) put_one(sink, i + k - begin, load_words(words + k));
    if (k < end) sink.some(i + k - begin, load_words(words + k), end - k);
  }

  void move_on(uint32_t index) {
    const int c = next_row(index / kPoints);
    if (!(built_ >> c & 1)) build(c);
    for (int p = 0; p < period_; ++p)
      store(first_ + kWords * p, load_words(first_ + kWords * p) ^ load_words(move_[c] + kWords * p));
  }

  // The point in hand becomes number `place` of its sixteen.
  void finish(int place) const {
    for (int d = 0; d < s_.dims; ++d) s_.x[d] = first_[d] ^ difference_[place * s_.dims + d];
  }

 private:
  static constexpr int kRow = kWords * Neighbours::kMost + kWords;

  // Rows of s_.dims words lie side by side. They are written from the last vector of a row to the first, so that what a
  // vector writes too much is overwritten.
  int last_vector() const { return (s_.dims - 1) / kWords * kWords; }
  // One row again and again, as long as the period.
  template <class Row>
  void lay(uint32_t* to, Row row) const {
    for (int k = last_vector(); k >= 0; k -= kWords) {
      const I32 w = row(k);
      for (int at = k; at < kWords * period_; at += s_.dims) store(to + at, w);
    }
  }
  // From one group of sixteen to the next the Gray code changes in bit 3 and in one bit above.
  void build(int c) {
    lay(move_[c], [&](int k) { return s_.load(s_.row(3), k) ^ s_.load(s_.row(4 + c), k); });
    built_ |= 1u << c;
  }

  Neighbours s_;
  int vectors_, period_;
  uint32_t built_ = 0;
  alignas(64) uint32_t difference_[kPoints * Neighbours::kMost + kWords];
  alignas(64) uint32_t first_[kRow];
  alignas(64) uint32_t move_[28][kRow];
};

// Points that follow each other in the output with nothing between them.
template <class Sink>
void deliver_dense(const Neighbours& s, uint32_t index, int32_t points, const Sink& sink, ptrdiff_t i) {
  constexpr int kPoints = Sixteen::kPoints;
  if (points < Sixteen::kLeast) {
    deliver_plain(s, index, points, sink, i, s.dims);
    return;
  }
  const Sink own = sink;  // a copy: for all the compiler knows the results might overlap it
  const int place = static_cast<int>(index % kPoints);
  Sixteen block(s, place);
  if (place != 0) {
    block.deliver_some(place, kPoints, own, i);
    block.move_on(index);
    index += static_cast<uint32_t>(kPoints - place);
    i += (kPoints - place) * static_cast<ptrdiff_t>(s.dims);
    points -= kPoints - place;
  }
  for (; points >= kPoints; points -= kPoints, index += kPoints) {
    block.deliver(index, own, i);
    i += kPoints * static_cast<ptrdiff_t>(s.dims);
  }
  block.deliver_some(0, points, own, i);
  block.finish(points);
}

// The same, compiled for registers of 512 bits.
using WideDense = void(Form form, const Neighbours& s, uint32_t index, int32_t points, const Target& target,
                       ptrdiff_t i);
using WidePlain = void(Form form, const Neighbours& s, uint32_t index, int32_t points, const Target& target,
                       ptrdiff_t i, ptrdiff_t width);
extern "C" WideDense orvik_qor_wide_dense_points;
extern "C" WidePlain orvik_qor_wide_plain_points;
// From so many words on they pay.
inline constexpr int32_t kWidePointWords = 64;

}  // namespace orvik::qor
