#include "qor/ss/incomplete.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstring>
#include <utility>

#include "qor/ss/threads.h"
#include "serv/blas.h"

namespace orvik::ss {
namespace {

constexpr int64_t kRows = 1024;  // of a block for the matrix kernels

uint64_t u(int64_t i) { return static_cast<uint64_t>(i); }

// For a pass over so many values in so many parts: what a thread does must take longer than it takes to wake.
int32_t threads_for(const OrvikThreading* threading, int64_t values, int64_t parts) {
  constexpr int64_t kWorthAThread = 32768;
  return static_cast<int32_t>(std::clamp<int64_t>(std::min(parts, values / kWorthAThread), 1, max_threads(threading)));
}

template <class T>
const T& value(const Data<T>& d, int64_t i, int64_t j) {
  return d.x[i * d.observation_step() + j * d.variable_step()];
}

}  // namespace

void Sums::set(int64_t p, const Sums& from) {
  n = from.n;
  std::copy(from.first, from.first + p, first);
  std::copy(from.second, from.second + p * p, second);
}

void Sums::add(int64_t p, const double* x, int64_t rows) {
  const auto order = static_cast<int32_t>(p);
  n += static_cast<double>(rows);
  for (int64_t i = 0; i < rows; i += kRows) {
    const int64_t m = std::min(kRows, rows - i);
    for (int64_t r = i; r < i + m; ++r) {
      for (int64_t j = 0; j < p; ++j) first[j] += x[r * p + j];
    }
    serv::blas::syrk('U', 'N', order, static_cast<int32_t>(m), 1.0, x + i * p, order, 1.0, second, order);
  }
}

// Counts, and location and scale of each variable's present values: of one variable, its missing values to lacking_.
template <class T>
int32_t IncompleteData::measure_variable(const Data<T>& d, int64_t j) {
  int64_t count = 0;
  double sum = 0, first = 0;
  for (int64_t i = 0; i < d.n; ++i) {
    const T& x = value(d, i, j);
    if (is_missing(x)) continue;
    if (!std::isfinite(x)) return kBlockSingular;
    if (count++ == 0) first = static_cast<double>(x);
    sum += static_cast<double>(x) - first;
  }
  lacking_[u(j + 1)] = d.n - count;
  if (count == 0) return kNoSpread;
  const double mean = sum / static_cast<double>(count);
  double squares = 0;
  for (int64_t i = 0; i < d.n; ++i) {
    const T& x = value(d, i, j);
    if (is_missing(x)) continue;
    const double deviation = static_cast<double>(x) - first - mean;
    squares += deviation * deviation;
  }
  centre_[u(j)] = first + mean;
  scale_[u(j)] = std::sqrt(squares / static_cast<double>(count));
  // A spread that rounding alone can make is none.
  const double least = 4 * static_cast<double>(std::numeric_limits<T>::epsilon()) * std::fabs(mean);
  return scale_[u(j)] > least && std::isfinite(scale_[u(j)]) ? int32_t{kDone} : int32_t{kNoSpread};
}

// The status of the first variable that has one is that of the data.
template <class T>
int32_t IncompleteData::measure(const Data<T>& d, const OrvikThreading* threading) {
  std::atomic<int64_t> next{0}, failed{INT64_MAX};
  const int32_t threads = threads_for(threading, d.n * p_, p_);
  const int32_t status = run_threads(threading, threads, [&](int32_t) {
    for (int64_t j; (j = next.fetch_add(1)) < p_ && j < failed.load();) {
      const int32_t own = measure_variable(d, j);
      if (own == kDone) continue;
      // Variables are begun in order, so that those before this one end as well.
      int64_t seen = failed.load();
      while (j < seen && !failed.compare_exchange_weak(seen, j)) {
      }
    }
    return int32_t{kDone};
  });
  if (status != kDone) return status;
  if (const int64_t j = failed.load(); j != INT64_MAX) return measure_variable(d, j);
  lacking_[0] = 0;
  for (int64_t j = 0; j < p_; ++j) lacking_[u(j + 1)] += lacking_[u(j)];
  missing_ = lacking_[u(p_)];
  return kDone;
}

template <class T>
int32_t IncompleteData::sort_rows(const Data<T>& d, const OrvikThreading* threading) {
  auto is_incomplete = [&](int64_t i) {
    for (int64_t j = 0; j < p_; ++j) {
      if (is_missing(value(d, i, j))) return true;
    }
    return false;
  };
  const Chunks chunks(d.n);
  int64_t before[Chunks::kMost + 1] = {};  // incomplete rows, by chunk
  int32_t status = chunks.run(threading, [&](int32_t chunk, int64_t i, int64_t end) {
    for (; i < end; ++i) before[chunk + 1] += is_incomplete(i);
  });
  if (status != kDone) return status;
  for (int32_t k = 0; k < chunks.count; ++k) before[k + 1] += before[k];
  rows_ = before[chunks.count];
  words_ = (p_ + 63) / 64;
  const int32_t threads = threads_for(threading, d.n * p_, chunks.count);
  const int64_t size = p_ + p_ * p_, room = size + kRows * p_;
  const uint64_t some = u(std::max<int64_t>(rows_, 1));
  serv::Block<uint64_t> masks(some * u(words_));
  masks_ = serv::Block<uint64_t>(some * u(words_));
  serv::Block<int64_t> row_of(u(d.n)), ranks(some), listed(some);
  values_ = serv::Block<double>(some * u(p_));
  serv::Block<double> rooms(u(threads * room));  // of a thread: the sums of a chunk, complete rows to add to them
  if (!masks || !masks_ || !row_of || !ranks || !listed || !values_ || !rooms) return kNoMemory;

  auto standardize = [&](int64_t i, double* to) {
    for (int64_t j = 0; j < p_; ++j) {
      const T& x = value(d, i, j);
      to[j] = is_missing(x) ? 0.0 : (static_cast<double>(x) - centre(j)) / scale(j);
    }
  };
  double complete[Chunks::kMost] = {};  // rows, by place
  status = chunks.run_in_order(
      threading, threads,
      [&](int32_t place, int64_t i, int64_t end) {
        double* const own = rooms.get() + place * room;
        std::fill(own, own + size, 0.0);
        Sums sums{0, own, own + p_};
        double* const block = own + size;
        int64_t held = 0;
        int32_t chunk = 0;
        while (chunks.first(chunk) != i) ++chunk;
        int64_t row = before[chunk];
        for (; i < end; ++i) {
          row_of[u(i)] = -1;
          if (!is_incomplete(i)) {
            standardize(i, block + held++ * p_);
            if (held == kRows) sums.add(p_, block, std::exchange(held, 0));
            continue;
          }
          uint64_t* mask = masks.get() + row * words_;
          memset(mask, 0, u(words_) * sizeof *mask);
          for (int64_t j = 0; j < p_; ++j) mask[j / 64] |= uint64_t{is_missing(value(d, i, j))} << (j % 64);
          ranks[u(row)] = row;
          listed[u(row++)] = i;
        }
        sums.add(p_, block, held);
        complete[place] = sums.n;
      },
      [&](int32_t place) {
        const double* const own = rooms.get() + place * room;
        complete_.n += complete[place];
        for (int64_t k = 0; k < size; ++k) sums_[u(k)] += own[k];
      });
  if (status != kDone) return status;

  // Equal masks together in the order of observations; those with nothing present have the largest mask.
  std::sort(ranks.get(), ranks.get() + rows_, [&](int64_t a, int64_t b) {
    for (int64_t w = words_ - 1; w >= 0; --w) {
      const uint64_t x = masks[u(a * words_ + w)], y = masks[u(b * words_ + w)];
      if (x != y) return x < y;
    }
    return a < b;
  });
  const int32_t sorters = threads_for(threading, rows_ * p_, rows_);
  status = run_threads(threading, sorters, [&](int32_t thread) {
    for (int64_t r = rows_ * thread / sorters; r < rows_ * (thread + 1) / sorters; ++r) {
      const int64_t from = ranks[u(r)], i = listed[u(from)];
      memcpy(masks_.get() + r * words_, masks.get() + from * words_, u(words_) * sizeof(uint64_t));
      row_of[u(i)] = r;
      standardize(i, values_.get() + r * p_);
    }
    return int32_t{kDone};
  });
  return status != kDone ? status : find_missing(d, row_of.get(), threading);
}

template <class T>
int32_t IncompleteData::find_missing(const Data<T>& d, const int64_t* row_of, const OrvikThreading* threading) {
  places_ = serv::Block<int64_t>(u(std::max<int64_t>(missing_, 1)));
  if (!places_) return kNoMemory;
  std::atomic<int64_t> next{0};
  return run_threads(threading, threads_for(threading, d.n * p_, p_), [&](int32_t) {
    for (int64_t j; (j = next.fetch_add(1)) < p_;) {
      int64_t* to = places_.get() + lacking_[u(j)];
      for (int64_t i = 0; i < d.n; ++i) {
        if (is_missing(value(d, i, j))) *to++ = row_of[i] * p_ + j;
      }
    }
    return int32_t{kDone};
  });
}

int32_t IncompleteData::find_patterns() {
  auto same = [&](int64_t a, int64_t b) {
    return memcmp(masks_.get() + a * words_, masks_.get() + b * words_, u(words_) * sizeof(uint64_t)) == 0;
  };
  pattern_count_ = 0;
  for (int64_t r = 0; r < rows_; ++r) pattern_count_ += r == 0 || !same(r - 1, r);
  patterns_ = serv::Block<Pattern>(u(std::max<int64_t>(pattern_count_, 1)));
  orders_ = serv::Block<int32_t>(u(std::max<int64_t>(pattern_count_, 1) * p_));
  if (!patterns_ || !orders_) return kNoMemory;
  empty_ = 0;
  int64_t k = 0;
  for (int64_t r = 0; r < rows_; ++k) {
    int64_t end = r + 1;
    while (end < rows_ && same(r, end)) ++end;
    int32_t* order = orders_.get() + k * p_;
    auto lacks = [&](int64_t j) { return (masks_[u(r * words_ + j / 64)] >> (j % 64) & 1) != 0; };
    int64_t present = 0, filled = 0;
    for (const bool missing : {false, true}) {
      for (int64_t j = 0; j < p_; ++j) {
        if (lacks(j) == missing) order[filled++] = static_cast<int32_t>(j);
      }
      if (!missing) present = filled;
    }
    patterns_[u(k)] = {r, end - r, present, order};
    if (present == 0) empty_ = end - r;
    r = end;
  }
  return kDone;
}

template <class T>
int32_t IncompleteData::load(const Data<T>& d, const OrvikThreading* threading) {
  p_ = d.p;
  missing_ = 0;
  centre_ = serv::Block<double>(u(p_));
  scale_ = serv::Block<double>(u(p_));
  sums_ = serv::Block<double>(u(p_ + p_ * p_));
  lacking_ = serv::Block<int64_t>(u(p_ + 1));
  if (!centre_ || !scale_ || !sums_ || !lacking_) return kNoMemory;
  std::fill(sums_.get(), sums_.get() + p_ + p_ * p_, 0.0);
  complete_ = {0, sums_.get(), sums_.get() + p_};
  if (const int32_t status = measure(d, threading); status != kDone) return status;
  if (const int32_t status = sort_rows(d, threading); status != kDone) return status;
  return find_patterns();
}

template <class T>
void IncompleteData::write_missing(const double* x, T* to) const {
  for (int64_t j = 0; j < p_; ++j) {
    for (int64_t k = lacking_[u(j)]; k < lacking_[u(j + 1)]; ++k) {
      *to++ = static_cast<T>(centre(j) + scale(j) * x[places_[u(k)]]);
    }
  }
}

#define ORVIK_INSTANTIATE(T)                                                    \
  template int32_t IncompleteData::load(const Data<T>&, const OrvikThreading*); \
  template void IncompleteData::write_missing(const double*, T*) const;
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss
