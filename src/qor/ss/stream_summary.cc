#include "qor/ss/stream_summary.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "qor/ss/kernels.h"

namespace orvik::ss {
namespace {

int64_t begin_of(double inverse, int64_t level) {
  if (level == 0) return 0;  // also of an inverse that is infinite
  const double begin = inverse * (std::exp2(static_cast<double>(level)) - 1);
  return begin < 9e18 ? static_cast<int64_t>(begin) : INT64_MAX;
}

// Cuts a summary of n entries to at most `keep`: for evenly spaced ranks the entries with the least rank error.
template <class T>
int64_t cut(const Ranked<T>* from, int64_t n, int64_t keep, Ranked<T>* to) {
  if (n <= keep) {
    std::copy(from, from + n, to);
    return n;
  }
  const double total = static_cast<double>(from[n - 1].max);
  int64_t used = 0, i = 0, last = -1;
  for (int64_t k = 0; k < keep; ++k) {
    const double rank = 1 + (total - 1) * static_cast<double>(k) / static_cast<double>(keep - 1);
    auto error = [&](int64_t e) {
      return std::max(rank - static_cast<double>(from[e].min), static_cast<double>(from[e].max) - rank);
    };
    while (i + 1 < n && error(i + 1) <= error(i)) ++i;
    if (k == 0) i = 0;
    if (k == keep - 1) i = n - 1;
    if (i != last) to[used++] = from[i];
    last = i;
  }
  return used;
}

// The same for n sorted values, each at its own rank.
template <class T>
int64_t cut(const T* sorted, int64_t n, int64_t keep, Ranked<T>* to) {
  const auto put = [&](int64_t i) { *to++ = {sorted[i], i + 1, i + 1}; };
  if (n <= keep) {
    for (int64_t i = 0; i < n; ++i) put(i);
    return n;
  }
  // n is above keep: the ranks are more than one apart.
  put(0);
  const double step = static_cast<double>(n - 1) / static_cast<double>(keep - 1);
  for (int64_t k = 1; k < keep - 1; ++k) put(static_cast<int64_t>(static_cast<double>(k) * step + 0.5));
  put(n - 1);
  return keep;
}

// Merges two summaries in value order. An entry's bounds are its own and those of its neighbours in the other summary.
template <class T>
void merge(const Ranked<T>* a, int64_t n, const Ranked<T>* b, int64_t m, Ranked<T>* out) {
  const int64_t a_total = a[n - 1].max, b_total = b[m - 1].max;
  int64_t i = 0, j = 0;
  while (i < n || j < m) {
    const bool from_a = j == m || (i < n && !(b[j] < a[i]));
    const Ranked<T>& own = from_a ? a[i] : b[j];
    const Ranked<T>* other = from_a ? b : a;
    const int64_t next = from_a ? j : i, count = from_a ? m : n, total = from_a ? b_total : a_total;
    out->value = own.value;
    out->min = own.min + (next > 0 ? other[next - 1].min : 0);
    out->max = own.max + (next < count ? other[next].max - 1 : total);
    ++out;
    from_a ? ++i : ++j;
  }
}

}  // namespace

LevelShape::LevelShape(double epsilon, int64_t level) {
  constexpr double kLog2E = 1.4426950408889634;
  const double inverse = 1 / epsilon;
  begin = begin_of(inverse, level);
  end = begin_of(inverse, level + 1);
  const double length = static_cast<double>(end - begin);
  const double parts = std::max(kernel_ln(epsilon * length) * kLog2E, 0.0) + 2;
  capacity = static_cast<int64_t>(std::min(parts / epsilon, 0x1p45));
  keep = (capacity + 1) / 2 + 1;
  if (capacity > end - begin) {
    capacity = end - begin + 1;  // never full
    return;
  }
  heights = 2;
  for (double covered = static_cast<double>(capacity); covered < length; covered *= 2) ++heights;
}

int64_t level_of(double epsilon, int64_t observation) {
  int64_t level = 0;
  while (begin_of(1 / epsilon, level + 1) <= observation) ++level;
  return level;
}

LevelRoom::LevelRoom(const LevelShape& shape, int64_t values)
    : values(values), buffer(std::min(values, shape.capacity)) {
  // Of f full buffers as many summaries are left as f has bits.
  for (int64_t full = values / shape.capacity; full > 0; full /= 2) ++heights;
}

namespace {

int64_t scratch_entries(const LevelShape& shape, const LevelRoom& room) {
  return std::max(room.entries(shape), room.heights > 0 ? 3 * shape.keep : 0);
}

}  // namespace

uint64_t LevelRoom::bytes(const LevelShape& shape, uint64_t value_size) const {
  const auto summaries = static_cast<uint64_t>(heights * shape.keep + scratch_entries(shape, *this));
  return 8 * static_cast<uint64_t>(1 + heights) + sizeof(Ranked<double>) * summaries +
         value_size * static_cast<uint64_t>(buffer);
}

template <class T>
LevelWork<T>::LevelWork(const LevelShape& shape, const LevelRoom& room, void* area) : shape_(shape), room_(room) {
  static_assert(sizeof(Ranked<T>) == sizeof(Ranked<double>));
  filled_ = static_cast<int64_t*>(area);
  used_ = filled_ + 1;
  summaries_ = reinterpret_cast<Ranked<T>*>(used_ + room.heights);
  scratch_ = summaries_ + room.heights * shape.keep;
  buffer_ = reinterpret_cast<T*>(scratch_ + scratch_entries(shape, room));
}

template <class T>
void LevelWork<T>::clear() {
  std::fill(filled_, filled_ + 1 + room_.heights, int64_t{0});
}

template <class T>
void LevelWork<T>::copy_from(const LevelWork& other) {
  clear();
  *filled_ = *other.filled_;
  std::copy(other.buffer_, other.buffer_ + *filled_, buffer_);
  for (int64_t height = 0; height < other.room_.heights; ++height) {
    used_[height] = other.used_[height];
    std::copy(other.summary(height), other.summary(height) + used_[height], summary(height));
  }
}

template <class T>
void LevelWork<T>::feed(int64_t n, const T* x, int64_t step) {
  while (n > 0) {
    const int64_t m = std::min(n, shape_.capacity - *filled_);
    for (int64_t i = 0; i < m; ++i) buffer_[*filled_ + i] = x[i * step];
    *filled_ += m;
    x += m * step;
    n -= m;
    if (*filled_ == shape_.capacity) flush();
  }
}

// A full buffer becomes a summary, which is carried up as far as the heights are taken.
template <class T>
void LevelWork<T>::flush() {
  sort_with_scratch(*filled_, buffer_, reinterpret_cast<T*>(scratch_));
  Ranked<T>* carry = scratch_ + scratch_entries(shape_, room_) - shape_.keep;
  int64_t used = cut(buffer_, *filled_, shape_.keep, carry), height = 0;
  *filled_ = 0;
  for (; used_[height] != 0; ++height) {
    merge(summary(height), used_[height], carry, used, scratch_);
    const int64_t count = used_[height] + used;
    used_[height] = 0;
    used = cut(scratch_, count, shape_.keep, carry);
  }
  std::copy(carry, carry + used, summary(height));
  used_[height] = used;
}

template <class T>
int64_t LevelWork<T>::gather(Ranked<T>* out) const {
  quicksort(buffer_, move_nans(buffer_, *filled_));
  int64_t n = 0;
  for (; n < *filled_; ++n) out[n] = {buffer_[n], 1, 1};
  for (int64_t height = 0; height < room_.heights; ++height) {
    if (used_[height] == 0) continue;
    const Ranked<T>* s = summary(height);
    n += append_pieces(s, used_[height], s[used_[height] - 1].max, out + n);
  }
  return n;
}

template <class T>
int64_t LevelWork<T>::finish(Ranked<T>* out) {
  const int64_t n = gather(scratch_);
  rank_entries(n, scratch_);
  return cut(scratch_, n, shape_.keep, out);
}

template <class T>
int64_t append_pieces(const Ranked<T>* summary, int64_t used, int64_t total, Ranked<T>* out) {
  for (int64_t i = 0; i < used; ++i) {
    out[i].value = summary[i].value;
    out[i].min = summary[i].min - (i > 0 ? summary[i - 1].min : 0);
    out[i].max = (i + 1 < used ? summary[i + 1].max : total + 1) - summary[i].max;
  }
  return used;
}

template <class T>
void rank_entries(int64_t n, Ranked<T>* pieces) {
  quicksort(pieces, n);
  int64_t min = 0, above = 0;  // the least rank so far, the values that may stand before the next entry
  for (int64_t i = 0; i < n; ++i) {
    min += pieces[i].min;
    const int64_t next = above + pieces[i].max;
    pieces[i].min = min;
    pieces[i].max = above + 1;
    above = next;
  }
}

template <class T>
const Ranked<T>& nearest(const Ranked<T>* summary, int64_t used, double rank) {
  // Both bounds grow: the best entry is next to where their mean passes the rank.
  const Ranked<T>* it = std::partition_point(summary, summary + used, [&](const Ranked<T>& e) {
    return static_cast<double>(e.min) + static_cast<double>(e.max) < 2 * rank;
  });
  if (it == summary + used) return summary[used - 1];
  if (it == summary) return *it;
  auto error = [&](const Ranked<T>& e) {
    return std::max(rank - static_cast<double>(e.min), static_cast<double>(e.max) - rank);
  };
  return error(it[-1]) < error(*it) ? it[-1] : *it;
}

#define ORVIK_INSTANTIATE(T)                                                      \
  template class LevelWork<T>;                                                    \
  template int64_t append_pieces(const Ranked<T>*, int64_t, int64_t, Ranked<T>*); \
  template void rank_entries(int64_t, Ranked<T>*);                                \
  template const Ranked<T>& nearest(const Ranked<T>*, int64_t, double);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss
