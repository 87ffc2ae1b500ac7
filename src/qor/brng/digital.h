// Quasi-random points in base 2: a point is moved on by the exclusive or with one row of direction numbers, which the
// Gray code of its index picks (Antonov, Saleev 1979). What Sobol and Niederreiter have in common: delivery, the choice
// of one dimension, skips.
#pragma once

#include <stdint.h>

#include "orvik/serv.h"
#include "qor/brng/entries.h"
#include "qor/brng/sinks.h"

namespace orvik::qor {

constexpr uint32_t kNoneSelected = 0xFFFFFFFF;

struct DigitalHead {
  uint32_t index;     // of the point in hand, from 1
  uint32_t dim;       // dimensions
  uint32_t selected;  // the one dimension that is delivered, or kNoneSelected
  uint32_t pending;   // coordinates of the point in hand not delivered yet; 0: it is untouched
  uint32_t reserved[8];
};

// Head, current point, direction numbers by dimension, and transposed from a 16-word border of the record on.
template <int Limit, int Row, int Filler>
struct DigitalState : DigitalHead {
  static constexpr int kLimit = Limit, kRow = Row;
  uint32_t x[Row];
  uint32_t v[Limit][33];
  uint32_t filler[Filler];
  uint32_t vt[32][Row];
};

// Where a stream has its point and its numbers: in the state or in side blocks.
struct DigitalView {
  DigitalHead* head;
  uint32_t* x;
  ptrdiff_t x_stride;  // 1, or the coordinates lie apart
  const uint32_t* v;
  ptrdiff_t v_stride;  // numbers of one dimension follow each other, those of the next lie this far on
  const uint32_t* vt;  // null where there is no transposed form
  ptrdiff_t vt_stride;
};

inline uint32_t gray(uint32_t index) { return index ^ index >> 1; }
// Which row moves point `index` on.
inline int next_row(uint32_t index) { return __builtin_ctz(~index); }

// ---- delivery ------------------------------------------------------------------------------------------------------

// Up to 32 neighbouring coordinates: the points in hand, and the rows that move them.
struct Neighbours {
  static constexpr int kMost = 32;
  int dims;
  uint32_t* x;
  const uint32_t* rows;
  ptrdiff_t row_stride;

  const uint32_t* row(int c) const { return rows + c * row_stride; }
  I32 load(const uint32_t* p, int k) const { return dims - k >= 8 ? load_words(p + k) : load_some(p + k, dims - k); }
};

// Point after point, `width` elements of the output apart.
template <class Sink>
void deliver_plain(const Neighbours& s, uint32_t index, int32_t points, const Sink& sink, ptrdiff_t i,
                   ptrdiff_t width) {
  if (s.dims == Neighbours::kMost) {
    I32 x[4];
    for (int k = 0; k < 4; ++k) x[k] = load_words(s.x + 8 * k);
    for (; points > 0; --points, ++index, i += width) {
      sink.group(i, x);
      const uint32_t* const row = s.row(next_row(index));
      unroll<4>([&](auto k) __attribute__((always_inline)) { x[k] = x[k] ^ load_words(row + 8 * k); });
    }
    for (int k = 0; k < 4; ++k) store(s.x + 8 * k, x[k]);
    return;
  }
  I32 x[4];
  const int whole = s.dims / 8, rest = s.dims % 8;
  for (int k = 0; k < s.dims; k += 8) x[k / 8] = s.load(s.x, k);
  for (; points > 0; --points, ++index, i += width) {
    const uint32_t* const row = s.row(next_row(index));
    for (int k = 0; k < whole; ++k) {
      put_one(sink, i + 8 * k, x[k]);
      x[k] = x[k] ^ load_words(row + 8 * k);
    }
    if (rest != 0) {
      sink.some(i + 8 * whole, x[whole], rest);
      x[whole] = x[whole] ^ load_some(row + 8 * whole, rest);
    }
  }
  for (int k = 0; k < whole; ++k) store(s.x + 8 * k, x[k]);
  if (rest != 0) store_some(s.x + 8 * whole, x[whole], rest);
}

// A few dimensions: sixteen points at a time. From an index that is a multiple of 16 on, point t of sixteen differs
// from the first by what depends on t alone; so the output is one pattern, the differences, combined with the first
// point laid side by side until it ends at a vector's end.
class Sixteen {
 public:
  static constexpr int kPoints = 16, kLeast = 40;  // fewer points are quicker one by one

  // The point in hand is number `place` of its sixteen.
  Sixteen(const Neighbours& s, int place) : s_(s), vectors_(2 * s.dims) {
    int common = s.dims & -s.dims;
    common = common < 8 ? common : 8;
    period_ = s.dims / common;
    while (period_ < 4 && vectors_ % (2 * period_) == 0) period_ *= 2;
    for (int k = last_vector(); k >= 0; k -= 8) {
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
        put_one(sink, i + 8 * (v + p), load_words(first_ + 8 * p) ^ load_words(difference_ + 8 * (v + p)));
    move_on(index);
  }

  // Points `from` to `to` - 1 of sixteen.
  template <class Sink>
  void deliver_some(int from, int to, const Sink& sink, ptrdiff_t i) const {
    alignas(32) uint32_t words[kPoints * Neighbours::kMost + 8];
    const int begin = from * s_.dims, end = to * s_.dims;
    for (int v = begin / 8; 8 * v < end; ++v)
      store(words + 8 * v, load_words(first_ + 8 * (v % period_)) ^ load_words(difference_ + 8 * v));
    int k = begin;
    for (; k + 8 <= end; k += 8) put_one(sink, i + k - begin, load_words(words + k));
    if (k < end) sink.some(i + k - begin, load_words(words + k), end - k);
  }

  void move_on(uint32_t index) {
    const int c = next_row(index / kPoints);
    if (!(built_ >> c & 1)) build(c);
    for (int p = 0; p < period_; ++p) store(first_ + 8 * p, load_words(first_ + 8 * p) ^ load_words(move_[c] + 8 * p));
  }

  // The point in hand becomes number `place` of its sixteen.
  void finish(int place) const {
    for (int d = 0; d < s_.dims; ++d) s_.x[d] = first_[d] ^ difference_[place * s_.dims + d];
  }

 private:
  static constexpr int kWords = 8 * Neighbours::kMost + 8;

  // Rows of s_.dims words lie side by side. They are written from the last vector of a row to the first, so that what a
  // vector writes too much is overwritten.
  int last_vector() const { return (s_.dims - 1) / 8 * 8; }
  // One row again and again, as long as the period.
  template <class Row>
  void lay(uint32_t* to, Row row) const {
    for (int k = last_vector(); k >= 0; k -= 8) {
      const I32 w = row(k);
      for (int at = k; at < 8 * period_; at += s_.dims) store(to + at, w);
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
  alignas(32) uint32_t difference_[kPoints * Neighbours::kMost + 8];
  alignas(32) uint32_t first_[kWords];
  alignas(32) uint32_t move_[28][kWords];
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

// Many dimensions, in groups of neighbours.
template <class Sink>
class Groups {
 public:
  Groups(const DigitalView& view, uint32_t index, int32_t points, const Sink& sink, ptrdiff_t i)
      : view_(view), index_(index), points_(points), sink_(sink), i_(i) {}

  static int count(const DigitalView& view) {
    return static_cast<int>((static_cast<int64_t>(view.head->dim) + Neighbours::kMost - 1) / Neighbours::kMost);
  }

  void run(int group) const {
    const uint32_t dim = view_.head->dim, first = static_cast<uint32_t>(group) * Neighbours::kMost;
    const int dims = dim - first < Neighbours::kMost ? static_cast<int>(dim - first) : Neighbours::kMost;
    if (view_.vt) {
      const Neighbours s = {dims, view_.x + first, view_.vt + first, view_.vt_stride};
      deliver_plain(s, index_, points_, sink_, i_ + first, dim);
      return;
    }
    uint32_t x[Neighbours::kMost];
    alignas(32) uint32_t rows[32][Neighbours::kMost];
    const uint32_t* const v = view_.v + static_cast<ptrdiff_t>(first) * view_.v_stride;
    uint32_t* const home = view_.x + static_cast<ptrdiff_t>(first) * view_.x_stride;
    for (int d = 0; d < dims; ++d) {
      x[d] = home[d * view_.x_stride];
      for (int j = 0; j < 32; ++j) rows[j][d] = v[d * view_.v_stride + j];
    }
    deliver_plain({dims, x, rows[0], Neighbours::kMost}, index_, points_, sink_, i_ + first, dim);
    for (int d = 0; d < dims; ++d) home[d * view_.x_stride] = x[d];
  }

  // For the pool of threads.
  static void body(int32_t group, void*, void*, void* context) { static_cast<const Groups*>(context)->run(group); }

 private:
  DigitalView view_;
  uint32_t index_;
  int32_t points_;
  Sink sink_;
  ptrdiff_t i_;
};

// Whether that many points are worth asking for threads.
constexpr bool is_long(uint32_t dim, int32_t points) {
  if (dim < 33) return false;
  if (dim <= 63) return dim % 32 == 0 && points > 131071;
  return points > 131071 || (dim >= 250 && points > 8191) || (dim >= 500 && points > 255) ||
         (dim >= 1000 && points > 63) || (dim >= 2000 && points > 31) || (dim >= 4000 && points > 7);
}

inline void advance(const DigitalView& view) {
  const uint32_t dim = view.head->dim;
  const int c = next_row(view.head->index++);
  if (!view.vt) {
    for (uint32_t d = 0; d < dim; ++d) view.x[d * view.x_stride] ^= view.v[d * view.v_stride + c];
    return;
  }
  const uint32_t* const row = view.vt + c * view.vt_stride;
  uint32_t d = 0;
  for (; d + 8 <= dim; d += 8) store(view.x + d, load_words(view.x + d) ^ load_words(row + d));
  for (; d < dim; ++d) view.x[d] ^= row[d];
}

// Coordinates from `first` on of the point in hand.
template <class Sink>
void deliver_coordinates(const DigitalView& view, uint32_t first, int32_t count, const Sink& sink, ptrdiff_t i) {
  for (int32_t k = 0; k < count; k += 8) {
    const int some = count - k < 8 ? count - k : 8;
    const uint32_t* const from = view.x + (first + static_cast<uint32_t>(k)) * view.x_stride;
    uint32_t apart[8] = {};
    if (view.x_stride != 1)
      for (int d = 0; d < some; ++d) apart[d] = from[d * view.x_stride];
    sink.some(i + k, load_some(view.x_stride == 1 ? from : apart, some), some);
  }
}

template <class Sink>
void deliver_points(const DigitalView& view, int32_t points, const Sink& sink, ptrdiff_t i) {
  const uint32_t dim = view.head->dim, index = view.head->index;
  constexpr int32_t kFew = 16;  // points for which transposing the numbers does not pay
  if (!view.vt && points < kFew) {
    for (; points > 0; --points, i += dim) {
      deliver_coordinates(view, 0, static_cast<int32_t>(dim), sink, i);
      advance(view);
    }
    return;
  }
  if (view.vt && dim <= Neighbours::kMost) {
    deliver_dense({static_cast<int>(dim), view.x, view.vt, view.vt_stride}, index, points, sink, i);
    view.head->index += static_cast<uint32_t>(points);
    return;
  }
  const int groups = Groups<Sink>::count(view);
  if (is_long(dim, points)) {
    const auto limit =
        reinterpret_cast<int32_t (*)()>(orvik_serv_load_thread_fun("orvik_qor_serv_threader_get_num_threads_limit"));
    if (limit() >= 2) {
      using Body = void (*)(int32_t, void*, void*, void*);
      const auto each = reinterpret_cast<void (*)(int32_t, int32_t, void*, Body)>(
          orvik_serv_load_thread_fun("orvik_qor_serv_threader_for"));
      Groups<Sink> all(view, index, points, sink, i);
      each(groups, 0, &all, Groups<Sink>::body);
      view.head->index += static_cast<uint32_t>(points);
      return;
    }
  }
  // A few points at a time, so that what one group leaves of a cache line another finds there.
  const int32_t most = view.vt ? static_cast<int32_t>(1 + 4096 / dim) : points;
  while (points > 0) {
    const int32_t count = points < most ? points : most;
    const Groups<Sink> all(view, view.head->index, count, sink, i);
    for (int g = 0; g < groups; ++g) all.run(g);
    view.head->index += static_cast<uint32_t>(count);
    points -= count;
    i += count * static_cast<ptrdiff_t>(dim);
  }
}

template <SinkOf<I32> Sink>
int32_t fill_points(const DigitalView& view, int32_t n, const Sink& sink) {
  DigitalHead& head = *view.head;
  if (n <= 0) return ORVIK_QOR_OK;
  if (static_cast<uint64_t>(head.index) + static_cast<uint64_t>(n) > UINT32_MAX) return ORVIK_QOR_PERIOD_ELAPSED;
  const uint32_t dim = head.dim;
  if (head.selected != kNoneSelected) {
    const ptrdiff_t k = head.selected;
    deliver_dense({1, view.x + k * view.x_stride, view.v + k * view.v_stride, 1}, head.index, n, sink, 0);
    head.index += static_cast<uint32_t>(n);
    return ORVIK_QOR_OK;
  }
  int32_t i = 0;
  if (head.pending != 0) {
    const int32_t count = static_cast<uint32_t>(n) < head.pending ? n : static_cast<int32_t>(head.pending);
    deliver_coordinates(view, dim - head.pending, count, sink, 0);
    head.pending -= static_cast<uint32_t>(count);
    if (head.pending == 0) advance(view);
    i = count;
  }
  const uint32_t points = static_cast<uint32_t>(n - i) / dim;
  if (points > 0) {
    deliver_points(view, static_cast<int32_t>(points), sink, i);
    i += static_cast<int32_t>(points * dim);
  }
  if (i < n) {
    deliver_coordinates(view, 0, n - i, sink, i);
    head.pending = dim - static_cast<uint32_t>(n - i);
  }
  return ORVIK_QOR_OK;
}

// ---- jumps ---------------------------------------------------------------------------------------------------------

// The number that asks for one dimension in place of a count of streams.
constexpr int32_t kSelect = 0x7FFFFFFF;

inline int32_t select_dimension(const DigitalView& view, int32_t nstreams, int32_t wanted) {
  DigitalHead& head = *view.head;
  const uint32_t k = static_cast<uint32_t>(wanted);
  if (nstreams != kSelect || k >= head.dim) return ORVIK_QOR_NO_LEAPFROG;
  if (k == head.selected) return ORVIK_QOR_OK;
  uint32_t& x = view.x[k * view.x_stride];
  const uint32_t* const v = view.v + k * view.v_stride;
  if (head.selected != kNoneSelected) {
    // Only the coordinate that was selected has been kept up.
    ++head.index;
    x = 0;
    for (uint32_t code = gray(head.index); code != 0; code &= code - 1) x ^= v[__builtin_ctz(code)];
  } else if (head.pending != 0 && k < head.dim - head.pending) {
    x ^= v[next_row(head.index)];
    ++head.index;
  }
  head.pending = 0;
  head.selected = k;
  return ORVIK_QOR_OK;
}

// The count is in coordinates.
inline int32_t skip_points(const DigitalView& view, uint64_t count) {
  DigitalHead& head = *view.head;
  const uint64_t dim = head.dim;
  uint64_t points = count / dim;
  if (points > 0xFFFFFFFE || head.index + points > 0xFFFFFFFE) return ORVIK_QOR_NO_SKIPAHEAD;
  if (count < head.pending) {
    head.pending -= static_cast<uint32_t>(count);
    return ORVIK_QOR_OK;
  }
  uint64_t over = count - points * dim;
  if (head.pending != 0) {
    const uint64_t rest = count - head.pending;
    points = rest / dim + 1;
    over = rest % dim;
  }
  if (points > 0) {
    const uint32_t to = head.index + static_cast<uint32_t>(points);
    for (uint32_t change = gray(head.index) ^ gray(to); change != 0; change &= change - 1) {
      const int b = __builtin_ctz(change);
      for (uint32_t d = 0; d < dim; ++d)
        view.x[d * view.x_stride] ^= view.vt ? view.vt[b * view.vt_stride + d] : view.v[d * view.v_stride + b];
    }
    head.index = to;
  }
  head.pending = over == 0 ? 0 : static_cast<uint32_t>(dim - over);
  return ORVIK_QOR_OK;
}

// ---- the generators ------------------------------------------------------------------------------------------------

// Reads any image's head as one that leads nowhere outside the tables. False: the tables are not there.
inline bool make_sound(const DigitalView& view, bool has_tables) {
  DigitalHead& head = *view.head;
  if (!has_tables || head.dim == 0) return false;
  if (head.pending >= head.dim) head.pending = 0;
  if (head.selected >= head.dim) head.selected = kNoneSelected;
  return true;
}

// `Source` gives the state, its tables (`view`) and the seeding.
template <class Source>
struct DigitalGenerator {
  static constexpr bool kSkipReadsItsLength = true;
  using Vector = I32;
  using Raw = RawSink;
  using Float = FloatSink<ToFloats<Unsigned, InDouble<FromLow<Words32>>>>;
  using Double = DoubleSink<ToDoubles<Unsigned, FromLow<Words32>>>;
  using QuickDouble = DoubleSink<ToDoublesBiased<Words32>>;

  template <SinkOf<Vector> Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& sink) {
    DigitalView view;
    return Source::view(stream, view) ? fill_points(view, n, sink) : ORVIK_QOR_NO_MEMORY;
  }
  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) { return Source::seed(stream, n, seeds); }
  static int32_t leapfrog(OrvikStream stream, int32_t nstreams, int32_t k) {
    DigitalView view;
    return Source::view(stream, view) ? select_dimension(view, nstreams, k) : ORVIK_QOR_NO_MEMORY;
  }
  static int32_t skip(OrvikStream stream, uint64_t count) {
    DigitalView view;
    return Source::view(stream, view) ? skip_points(view, count) : ORVIK_QOR_NO_MEMORY;
  }
  static int32_t skip_long(OrvikStream, int32_t, const uint64_t*) { return ORVIK_QOR_NO_SKIPAHEAD_EX; }
};

// Before the first point: index 1, whose coordinates are the first direction numbers.
inline void begin(DigitalHead& head, uint32_t dim) { head = {1, dim, kNoneSelected, 0, {}}; }

// The degree of a polynomial in base 2; -1 for none.
constexpr int degree_of(uint32_t polynomial) { return 31 - __builtin_clz(polynomial | 1) - (polynomial == 0); }

}  // namespace orvik::qor
