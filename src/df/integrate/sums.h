// Integrals of runs of whole pieces, each the sum of at most four numbers whatever its length.
//
// Pieces stand in blocks. For each piece there are the sums from its block's begin and to its block's end, and over the
// blocks' totals a table of levels: on level k the blocks fall into segments of 2^(k+1), and each entry is the sum from
// the middle of its segment to the block. A run is then the end of one block, the begin of another, and what lies on
// the two sides of the middle that separates the blocks between. Each of these numbers is added up, with compensation
// (Neumaier 1974), from pieces of the run alone: nothing is subtracted, so a huge or an infinite piece outside a run
// does not disturb it. Calls of few limits do without the table and add up the same numbers in the same order.
#ifndef ORVIK_DF_INTEGRATE_SUMS_H
#define ORVIK_DF_INTEGRATE_SUMS_H

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace orvik::df {

// A sum and what its roundings have lost.
template <class Real>
class Compensated {
 public:
  void add(Real v) {
    const Real sum = sum_ + v, taken = sum - sum_;
    lost_ += (sum_ - (sum - taken)) + (v - taken);
    sum_ = sum;
  }
  // An infinite sum has lost something that is not a number.
  Real value() const { return std::isfinite(sum_) ? sum_ + lost_ : sum_; }

 private:
  Real sum_ = 0, lost_ = 0;
};

inline constexpr int64_t kSumBlock = 32;  // pieces

// How the numbers of `pieces` pieces are laid out.
struct SumLayout {
  int64_t pieces, blocks, levels;

  explicit SumLayout(int64_t count)
      : pieces(count),
        blocks((count + kSumBlock - 1) / kSumBlock),
        levels(std::max<int64_t>(std::bit_width(static_cast<uint64_t>(blocks - 1)), 1)) {}
  int64_t size() const { return 2 * pieces + levels * blocks; }
};

// The sums of one function. `Whole` gives the integrals of pieces from .. to - 1 by whole(from, to, out).
template <class Real, class Whole>
class PieceSums {
 public:
  // With a null table everything is added up when it is asked for.
  PieceSums(const Whole& whole, const SumLayout& layout, const Real* table)
      : whole_(whole), layout_(layout), table_(table) {}

  // The integral of pieces from .. to - 1; 0 if there are none.
  Real run(int64_t from, int64_t to) const {
    if (from >= to) return 0;
    const int64_t first = from / kSumBlock, last = (to - 1) / kSumBlock;
    if (first == last) return forward(from, to);
    const Real head = table_ != nullptr ? table_[layout_.pieces + from] : backward(from, block_end(first));
    const Real tail = table_ != nullptr ? table_[to - 1] : forward(last * kSumBlock, to);
    const int64_t p = first + 1, q = last - 1;  // blocks between
    if (p > q) return head + tail;
    if (p == q) return (head + entry(0, p)) + tail;
    const int64_t level = std::bit_width(static_cast<uint64_t>(p ^ q)) - 1;
    return (head + entry(level, p)) + (entry(level, q) + tail);
  }

  // Makes the table.
  static void build(const Whole& whole, const SumLayout& layout, Real* table) {
    Real* begins = table;
    Real* ends = table + layout.pieces;
    Real* entries = ends + layout.pieces;
    for (int64_t b = 0; b < layout.blocks; ++b) {
      const int64_t from = b * kSumBlock, to = std::min(from + kSumBlock, layout.pieces);
      Real piece[kSumBlock];
      whole(from, to, piece);
      Compensated<Real> up, down;
      for (int64_t i = from; i < to; ++i) up.add(piece[i - from]), begins[i] = up.value();
      for (int64_t i = to - 1; i >= from; --i) down.add(piece[i - from]), ends[i] = down.value();
      entries[b] = begins[to - 1];
    }
    for (int64_t level = 1; level < layout.levels; ++level) {
      for (int64_t middle = int64_t(1) << level; middle < layout.blocks; middle += int64_t(2) << level) {
        const int64_t half = int64_t(1) << level, end = std::min(middle + half, layout.blocks);
        Real* row = entries + level * layout.blocks;
        Compensated<Real> up, down;
        for (int64_t b = middle - 1; b >= middle - half; --b) down.add(entries[b]), row[b] = down.value();
        for (int64_t b = middle; b < end; ++b) up.add(entries[b]), row[b] = up.value();
      }
    }
  }

 private:
  int64_t block_end(int64_t block) const { return std::min((block + 1) * kSumBlock, layout_.pieces); }

  // The pieces from .. to - 1 of one block, from either side.
  Real forward(int64_t from, int64_t to) const {
    Real piece[kSumBlock];
    whole_(from, to, piece);
    Compensated<Real> sum;
    for (int64_t k = 0; k < to - from; ++k) sum.add(piece[k]);
    return sum.value();
  }
  Real backward(int64_t from, int64_t to) const {
    Real piece[kSumBlock];
    whole_(from, to, piece);
    Compensated<Real> sum;
    for (int64_t k = to - from - 1; k >= 0; --k) sum.add(piece[k]);
    return sum.value();
  }
  Real total(int64_t block) const { return forward(block * kSumBlock, block_end(block)); }

  // The totals from the middle of the block's segment to the block.
  Real entry(int64_t level, int64_t block) const {
    if (table_ != nullptr) return table_[2 * layout_.pieces + level * layout_.blocks + block];
    if (level == 0) return total(block);
    Compensated<Real> sum;
    const int64_t middle = ((block >> level) | 1) << level;
    for (int64_t b = middle - 1; b >= block; --b) sum.add(total(b));
    for (int64_t b = middle; b <= block; ++b) sum.add(total(b));
    return sum.value();
  }

  const Whole& whole_;
  const SumLayout& layout_;
  const Real* table_;
};

}  // namespace orvik::df

#endif
