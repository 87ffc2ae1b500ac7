// The task record and a typed view of what its pointers hold at the time of a call.
#pragma once

#include <cstddef>
#include <cstdint>

#include "orvik/ss.h"
#include "qor/ss/missing_field.h"
#include "qor/ss/status.h"

namespace orvik::ss {

struct StreamVariable;

struct Task {
  using Cleanup = void (*)(void* task);
  using Reserved = void* [6];

  int32_t integerWidth;  // 0: the caller's integers have 32 bits, otherwise 64
  int8_t layoutTag;
  int32_t precision;  // 1 double, 0 single
#define ORVIK_SS_FIELD(name, id, kind, status) void* name;
#define ORVIK_SS_PRIVATE(type, name) type name;
#include "qor/ss/fields.inc"

  // The integer behind a pointer of this task.
  int64_t integer(const void* value) const {
    return integerWidth == 0 ? *static_cast<const int32_t*>(value) : *static_cast<const int64_t*>(value);
  }
  // Element i of an array of integers.
  int64_t integer_at(const void* values, int64_t i) const {
    return integerWidth == 0 ? static_cast<const int32_t*>(values)[i] : static_cast<const int64_t*>(values)[i];
  }
  int64_t p() const { return integer(dimension); }
};
static_assert(sizeof(Task) == 744);

enum class Kind { Integer, Real };

struct Field {
  const char* name;
  int32_t id;
  Kind kind;
  int32_t status;
  void* Task::*member;
};

inline constexpr Field kFields[] = {
#define ORVIK_SS_FIELD(name, id, kind, status) {#name, id, Kind::kind, status, &Task::name},
#define ORVIK_SS_PRIVATE(type, name)
#include "qor/ss/fields.inc"
};

#define ORVIK_SS_FIELD(name, id, kind, status) static_assert(OrvikSS_##name == id);
#define ORVIK_SS_PRIVATE(type, name)
#include "qor/ss/fields.inc"

// The data of a task: shape, storage, weights, selection.
template <class T>
struct Data {
  const T* x;
  const T* weights;      // null: every weight is 1
  const int32_t* flags;  // null: every variable is selected
  int64_t p;
  int64_t n;
  bool contiguous_variables;  // x[j * n + i], otherwise x[i * p + j]

  bool selected(int64_t j) const { return flags == nullptr || flags[j] != 0; }
  int64_t variable_step() const { return contiguous_variables ? n : 1; }
  int64_t observation_step() const { return contiguous_variables ? 1 : p; }
  bool all_selected() const {
    for (int64_t j = 0; j < p; ++j) {
      if (!selected(j)) return false;
    }
    return true;
  }
};

template <class T>
T* real(void* field) {
  return static_cast<T*>(field);
}

// Whether an observation storage code has one of the two forms.
inline bool has_form(int64_t code) { return (code & (ORVIK_SS_STORAGE_ROWS | ORVIK_SS_STORAGE_COLUMNS)) != 0; }

inline int32_t check_storage(const Task& task) {
  if (task.observationStorage == nullptr) return missing_field::observationStorage;
  return has_form(task.integer(task.observationStorage)) ? kDone : kBadStorage;
}

// n above 0, then the observations. In the order in which most estimators test them.
inline int32_t check_observations(const Task& task) {
  if (task.observationCount == nullptr || task.integer(task.observationCount) < 1) return kBadCount;
  return task.observations == nullptr ? missing_field::observations : kDone;
}

// One variable alone is contiguous in either form.
template <class T>
Data<T> data_of(const Task& task) {
  Data<T> d;
  d.x = real<T>(task.observations);
  d.weights = real<T>(task.weights);
  d.flags = static_cast<const int32_t*>(task.variableIndices);
  d.p = task.p();
  d.n = task.observationCount == nullptr ? 0 : task.integer(task.observationCount);
  d.contiguous_variables = d.p == 1 || (task.observationStorage != nullptr &&
                                        (task.integer(task.observationStorage) & ORVIK_SS_STORAGE_ROWS) != 0);
  return d;
}

// Calls body(first, last) for ranges that hold the selected variables: the maximal ones of contiguous variables; of
// contiguous observations, whose values come with the same reads, all from the first to the last one, or all of an
// observation where that is short: several observations then make a row.
template <class T, class Body>
void for_selected_ranges(const Data<T>& d, Body&& body) {
  if (!d.contiguous_variables) {
    int64_t first = 0, last = d.p;
    while (first < last && !d.selected(first)) ++first;
    while (first < last && !d.selected(last - 1)) --last;
    const bool is_short = d.p <= (d.weights == nullptr ? 16 : 4);
    if (first < last) is_short ? body(0, d.p) : body(first, last);
    return;
  }
  for (int64_t j = 0; j < d.p;) {
    if (!d.selected(j)) {
      ++j;
      continue;
    }
    int64_t end = d.flags == nullptr ? d.p : j + 1;
    while (end < d.p && d.selected(end)) ++end;
    body(j, end);
    j = end;
  }
}

}  // namespace orvik::ss
