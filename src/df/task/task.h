// The task record: a plain list of what the caller said, in one place for all operations.
#ifndef ORVIK_DF_TASK_TASK_H
#define ORVIK_DF_TASK_TASK_H

#include <cstdint>

#include "orvik/df.h"

namespace orvik::df {

// Pointers to reals are kept untyped, because edits and queries of integers and pointers serve both real types.
struct Task {
  int32_t index_width;
  int8_t format_tag;
  int32_t is_double;
  int32_t task_state;  // 1 once creation has got past the row pointers
  int64_t nx;
  const void* x;
  int64_t xhint;
  int64_t ny;
  const void** y_rows;  // owned
  int64_t yhint;
  int64_t s_order;
  int64_t s_type;
  int64_t ic_type;
  const void* ic;
  int64_t bc_type;
  const void* bc;
  const void** coeff_rows;  // owned
  int64_t coeff_hint;
  int32_t validate_flag;
  int64_t bucket_count;
  int64_t* bucket_table;  // owned, null until built
  union {
    double d;
    float s;
  } bucket_scale;

  template <class Real>
  const Real* breakpoints() const {
    return static_cast<const Real*>(x);
  }
  template <class Real>
  const Real* boundary_values() const {
    return static_cast<const Real*>(bc);
  }
  template <class Real>
  const Real* internal_values() const {
    return static_cast<const Real*>(ic);
  }
  template <class Real>
  const Real* values(int64_t function) const {
    return static_cast<const Real*>(y_rows[function]);
  }
  template <class Real>
  Real* coefficients(int64_t function) const {
    return const_cast<Real*>(static_cast<const Real*>(coeff_rows[function]));
  }
  template <class Real>
  Real scale() const {
    if constexpr (sizeof(Real) == 8) {
      return bucket_scale.d;
    } else {
      return bucket_scale.s;
    }
  }

  bool uniform() const { return (xhint & DF_PARTITION_UNIFORM) != 0; }
  bool by_columns() const { return yhint == DF_STORAGE_COLUMNS; }
};

inline Task* as_task(OrvikDFTask handle) { return static_cast<Task*>(handle); }

inline bool storage_hint_ok(int64_t hint) {
  return hint == DF_STORAGE_DEFAULT || hint == DF_STORAGE_ROWS || hint == DF_STORAGE_COLUMNS ||
         hint == DF_STORAGE_SINGLE_ROW;
}

// As an unsigned number, so that negative hints fail too.
inline bool partition_hint_ok(int64_t hint) { return static_cast<uint64_t>(hint) <= 4 && hint != 3; }

}  // namespace orvik::df

#endif
