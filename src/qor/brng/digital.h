// Quasi-random points in base 2: a point is moved on by the exclusive or with one row of direction numbers, which the
// Gray code of its index picks (Antonov, Saleev 1979). What Sobol and Niederreiter have in common: delivery, the choice
// of one dimension, skips.
#pragma once

#include <stdint.h>

#include "orvik/serv.h"
#include "qor/brng/digital_points.h"
#include "qor/brng/entries.h"
#include "qor/brng/sinks.h"
#include "qor/brng/wide.h"

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

// ---- delivery ------------------------------------------------------------------------------------------------------

// By registers of either width: points with nothing between them, and points `width` elements apart. Stores bound both:
// registers that the processor takes in halves gain nothing.
template <class Sink>
void put_dense(const Neighbours& s, uint32_t index, int32_t points, const Sink& sink, ptrdiff_t i) {
  WideDense* const wide = ORVIK_QOR_WHOLE(orvik_qor_wide_dense_points);
  if (wide != nullptr && int64_t{points} * s.dims >= kWidePointWords)
    wide(Sink::kForm, s, index, points, sink.target(), i);
  else
    deliver_dense(s, index, points, sink, i);
}
template <class Sink>
void put_plain(const Neighbours& s, uint32_t index, int32_t points, const Sink& sink, ptrdiff_t i, ptrdiff_t width) {
  WidePlain* const wide = ORVIK_QOR_WHOLE(orvik_qor_wide_plain_points);
  if (wide != nullptr && int64_t{points} * s.dims >= kWidePointWords)
    wide(Sink::kForm, s, index, points, sink.target(), i, width);
  else
    deliver_plain(s, index, points, sink, i, width);
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
      put_plain(s, index_, points_, sink_, i_ + first, dim);
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
    put_plain({dims, x, rows[0], Neighbours::kMost}, index_, points_, sink_, i_ + first, dim);
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
  if (is_long(dim, points)) {
    const auto limit =
        reinterpret_cast<int32_t (*)()>(orvik_serv_load_thread_fun("orvik_qor_serv_threader_get_num_threads_limit"));
    if (limit() >= 2) {
      using Body = void (*)(int32_t, void*, void*, void*);
      const auto each = reinterpret_cast<void (*)(int32_t, int32_t, void*, Body)>(
          orvik_serv_load_thread_fun("orvik_qor_serv_threader_for"));
      Groups<Sink> all(view, index, points, sink, i);
      each(Groups<Sink>::count(view), 0, &all, Groups<Sink>::body);
      view.head->index += static_cast<uint32_t>(points);
      return;
    }
  }
  constexpr int32_t kFew = 16;  // points for which transposing the numbers does not pay
  if (!view.vt && points < kFew) {
    for (; points > 0; --points, i += dim) {
      deliver_coordinates(view, 0, static_cast<int32_t>(dim), sink, i);
      advance(view);
    }
    return;
  }
  if (view.vt && dim <= Neighbours::kMost) {
    put_dense({static_cast<int>(dim), view.x, view.vt, view.vt_stride}, index, points, sink, i);
    view.head->index += static_cast<uint32_t>(points);
    return;
  }
  const int groups = Groups<Sink>::count(view);
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
    put_dense({1, view.x + k * view.x_stride, view.v + k * view.v_stride, 1}, head.index, n, sink, 0);
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
  const bool other = head.selected != kNoneSelected;
  const bool delivered = head.pending != 0 && k < head.dim - head.pending;
  if ((other || delivered) && head.index == UINT32_MAX) return ORVIK_QOR_PERIOD_ELAPSED;  // no point lies behind it
  uint32_t& x = view.x[k * view.x_stride];
  const uint32_t* const v = view.v + k * view.v_stride;
  if (other) {
    // Only the coordinate that was selected has been kept up.
    ++head.index;
    x = 0;
    for (uint32_t code = gray(head.index); code != 0; code &= code - 1) x ^= v[__builtin_ctz(code)];
  } else if (delivered) {
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
  using Float = DigitalFloats;
  using Double = DigitalDoubles;
  using QuickDouble = DigitalQuickDoubles;

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
