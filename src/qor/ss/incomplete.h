// Observations with missing values as the normal model takes them: in double, scaled to about mean 0 and deviation 1,
// the incomplete ones sorted by which values they lack.
#pragma once

#include <bit>
#include <cstdint>

#include "orvik/ss.h"
#include "qor/ss/task.h"
#include "serv/memory.h"

namespace orvik::ss {

// A missing value is a quiet NaN with the sign set, as the processor makes them; another NaN is a fault of the data.
inline bool is_missing(float x) { return std::bit_cast<uint32_t>(x) >= 0xFFBFFFFF; }
inline bool is_missing(double x) { return std::bit_cast<uint64_t>(x) >= 0xFFF7FFFFFFFFFFFF; }

// Number of observations, sums and sums of products, the upper triangle.
struct Sums {
  double n = 0;
  double* first = nullptr;
  double* second = nullptr;

  void set(int64_t p, const Sums& from);
  // Adds `rows` observations of p values each.
  void add(int64_t p, const double* x, int64_t rows);
};

// The observations [first, first + rows) of the incomplete ones lack the same variables.
struct Pattern {
  int64_t first, rows;
  int64_t present;  // number of them; `order` lists these variables, then the missing ones
  const int32_t* order;
};

class IncompleteData {
 public:
  // Status of the data itself: no number among it, a variable without values or without spread.
  template <class T>
  int32_t load(const Data<T>& d, const OrvikThreading* threading);

  int64_t p() const { return p_; }
  int64_t missing() const { return missing_; }
  // Incomplete observations, those with nothing present last; `with_values`: the others.
  int64_t rows() const { return rows_; }
  int64_t rows_with_values() const { return rows_ - empty_; }
  const double* x() const { return values_.get(); }
  int64_t patterns() const { return pattern_count_; }
  const Pattern& pattern(int64_t k) const { return patterns_[static_cast<uint64_t>(k)]; }
  // Of the complete observations.
  const Sums& complete() const { return complete_; }
  double observations() const { return complete_.n + static_cast<double>(rows_with_values()); }

  double centre(int64_t j) const { return centre_[static_cast<uint64_t>(j)]; }
  double scale(int64_t j) const { return scale_[static_cast<uint64_t>(j)]; }

  // Writes what stands in `x`, completed, for the missing values: variable by variable, in the order of observations.
  template <class T>
  void write_missing(const double* x, T* to) const;

 private:
  template <class T>
  int32_t measure(const Data<T>& d, const OrvikThreading* threading);
  template <class T>
  int32_t measure_variable(const Data<T>& d, int64_t j);
  template <class T>
  int32_t sort_rows(const Data<T>& d, const OrvikThreading* threading);
  int32_t find_patterns();
  template <class T>
  int32_t find_missing(const Data<T>& d, const int64_t* row_of, const OrvikThreading* threading);

  int64_t p_ = 0, missing_ = 0, rows_ = 0, empty_ = 0, pattern_count_ = 0, words_ = 0;
  serv::Block<double> centre_, scale_, sums_, values_;
  serv::Block<uint64_t> masks_;  // of the incomplete rows as sorted, `words_` each: a bit for each missing variable
  serv::Block<int64_t>
      lacking_;                  // of each variable: the number of missing values before it, and in all behind the last
  serv::Block<int64_t> places_;  // in `x`, of the missing values in the order of write_missing
  serv::Block<Pattern> patterns_;
  serv::Block<int32_t> orders_;
  Sums complete_;
};

}  // namespace orvik::ss
