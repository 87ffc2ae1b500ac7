#include "qor/ss/incomplete.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "serv/blas.h"

namespace orvik::ss {
namespace {

constexpr int64_t kRows = 1024;  // of a block for the matrix kernels

uint64_t u(int64_t i) { return static_cast<uint64_t>(i); }

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

// Counts, and location and scale of each variable's present values.
template <class T>
int32_t IncompleteData::measure(const Data<T>& d) {
  for (int64_t j = 0; j < p_; ++j) {
    int64_t count = 0;
    double sum = 0, first = 0;
    for (int64_t i = 0; i < d.n; ++i) {
      const T& x = value(d, i, j);
      if (is_missing(x)) continue;
      if (!std::isfinite(x)) return kBlockSingular;
      if (count++ == 0) first = static_cast<double>(x);
      sum += static_cast<double>(x) - first;
    }
    missing_ += d.n - count;
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
    if (!(scale_[u(j)] > least) || !std::isfinite(scale_[u(j)])) return kNoSpread;
  }
  return kDone;
}

template <class T>
int32_t IncompleteData::sort_rows(const Data<T>& d) {
  auto is_incomplete = [&](int64_t i) {
    for (int64_t j = 0; j < p_; ++j) {
      if (is_missing(value(d, i, j))) return true;
    }
    return false;
  };
  rows_ = 0;
  for (int64_t i = 0; i < d.n; ++i) rows_ += is_incomplete(i);
  words_ = (p_ + 63) / 64;
  serv::Block<uint64_t> masks(u(std::max<int64_t>(rows_ * words_, 1)));
  masks_ = serv::Block<uint64_t>(u(std::max<int64_t>(rows_ * words_, 1)));
  sources_ = serv::Block<int64_t>(u(rows_ + d.n));
  serv::Block<int64_t> ranks(u(std::max<int64_t>(rows_, 1)));
  values_ = serv::Block<double>(u(std::max<int64_t>(rows_, 1) * p_));
  serv::Block<double> block(u(kRows * p_));
  if (!masks || !masks_ || !sources_ || !ranks || !values_ || !block) return kNoMemory;

  auto standardize = [&](int64_t i, double* to) {
    for (int64_t j = 0; j < p_; ++j) {
      const T& x = value(d, i, j);
      to[j] = is_missing(x) ? 0.0 : (static_cast<double>(x) - centre(j)) / scale(j);
    }
  };
  int64_t* const observation = sources_.get();
  int64_t* const row_of = observation + rows_;
  serv::Block<int64_t> listed(u(std::max<int64_t>(rows_, 1)));
  if (!listed) return kNoMemory;
  int64_t row = 0, held = 0;
  for (int64_t i = 0; i < d.n; ++i) {
    row_of[i] = -1;
    if (!is_incomplete(i)) {
      standardize(i, block.get() + held++ * p_);
      if (held == kRows) {
        complete_.add(p_, block.get(), held);
        held = 0;
      }
      continue;
    }
    uint64_t* mask = masks.get() + row * words_;
    memset(mask, 0, u(words_) * sizeof *mask);
    for (int64_t j = 0; j < p_; ++j) mask[j / 64] |= uint64_t{is_missing(value(d, i, j))} << (j % 64);
    ranks[u(row)] = row;
    listed[u(row++)] = i;
  }
  complete_.add(p_, block.get(), held);

  // Equal masks together in the order of observations; those with nothing present have the largest mask.
  std::sort(ranks.get(), ranks.get() + rows_, [&](int64_t a, int64_t b) {
    for (int64_t w = words_ - 1; w >= 0; --w) {
      const uint64_t x = masks[u(a * words_ + w)], y = masks[u(b * words_ + w)];
      if (x != y) return x < y;
    }
    return a < b;
  });
  for (int64_t r = 0; r < rows_; ++r) {
    const int64_t from = ranks[u(r)], i = listed[u(from)];
    memcpy(masks_.get() + r * words_, masks.get() + from * words_, u(words_) * sizeof(uint64_t));
    observation[r] = i;
    row_of[i] = r;
    standardize(i, values_.get() + r * p_);
  }
  return kDone;
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
int32_t IncompleteData::load(const Data<T>& d) {
  p_ = d.p;
  missing_ = 0;
  centre_ = serv::Block<double>(u(p_));
  scale_ = serv::Block<double>(u(p_));
  sums_ = serv::Block<double>(u(p_ + p_ * p_));
  if (!centre_ || !scale_ || !sums_) return kNoMemory;
  std::fill(sums_.get(), sums_.get() + p_ + p_ * p_, 0.0);
  complete_ = {0, sums_.get(), sums_.get() + p_};
  if (const int32_t status = measure(d); status != kDone) return status;
  if (const int32_t status = sort_rows(d); status != kDone) return status;
  return find_patterns();
}

template <class T>
void IncompleteData::write_missing(const Data<T>& d, const double* x, T* to) const {
  const int64_t* const row_of = sources_.get() + rows_;
  for (int64_t j = 0; j < p_; ++j) {
    for (int64_t i = 0; i < d.n; ++i) {
      if (is_missing(value(d, i, j))) *to++ = static_cast<T>(centre(j) + scale(j) * x[row_of[i] * p_ + j]);
    }
  }
}

#define ORVIK_INSTANTIATE(T)                             \
  template int32_t IncompleteData::load(const Data<T>&); \
  template void IncompleteData::write_missing(const Data<T>&, const double*, T*) const;
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss
