// Which method a search takes, and the methods behind one call. What works on blocks of sites is compiled in finder.cc
// alone.
#ifndef ORVIK_DF_SEARCH_FINDER_H
#define ORVIK_DF_SEARCH_FINDER_H

#include "df/search/cells.h"
#include "df/task/task.h"

namespace orvik::df {

// In the order of all tables of methods.
enum class Method { kUniform, kQuasiUniform, kSorted, kPeak, kHybrid, kUserDefined, kUniformUserDefined };

inline constexpr int64_t kUniformSites = 4, kSortedSites = 64;

// From 2^31 - 1 breakpoints on, cell numbers need 64-bit arithmetic.
inline bool needs_wide_index(int64_t nx) { return nx >= 2147483647; }

// 0 and the method, or the status of a bad data hint. The hint is looked at only where it could matter.
template <class Real>
int32_t choose_method(const Task& task, bool has_callback, int64_t sitehint, const Real* datahint, Method* method) {
  if (has_callback) {
    *method = task.xhint == DF_PARTITION_UNIFORM ? Method::kUniformUserDefined : Method::kUserDefined;
  } else if (task.xhint == DF_PARTITION_QUASI_UNIFORM) {
    *method = Method::kQuasiUniform;
  } else if (task.xhint == DF_PARTITION_UNIFORM) {
    *method = Method::kUniform;
  } else if (sitehint == kSortedSites) {
    *method = Method::kSorted;
  } else if (datahint != nullptr) {
    const Real flag = datahint[1];
    if (!(flag == 0 || flag == 1)) return DFS_BAD_DATA_HINT;
    *method = Method::kHybrid;
    if (flag == 1) {
      const Real peak = datahint[4];
      if (!(peak >= 0 && peak <= static_cast<Real>(task.nx))) return DFS_BAD_DATA_HINT;
      *method = Method::kPeak;
    }
  } else {
    *method = Method::kHybrid;
  }
  return 0;
}

template <class Real>
class Finder {
 public:
  Finder() = default;
  Finder(const Task& task, Method method, const Real* datahint) : method_(method) {
    const Real* x = task.breakpoints<Real>();
    lookup_ = {task.nx, x, Real(0), task.bucket_table};
    const Real steps = static_cast<Real>(task.nx - 1);
    switch (method) {
      case Method::kUniform:
      case Method::kUniformUserDefined:
        lookup_.value = steps / (x[1] - x[0]);
        break;
      case Method::kQuasiUniform:
        lookup_.value = steps / (x[task.nx - 1] - x[0]);
        break;
      case Method::kPeak:
        lookup_.value = datahint[4];
        break;
      case Method::kHybrid:
        lookup_.value = task.scale<Real>();
        break;
      default:
        break;
    }
  }
  Finder(Method method, const Lookup<Real>& lookup) : method_(method), lookup_(lookup) {}

  Method method() const { return method_; }
  const Lookup<Real>& lookup() const { return lookup_; }

  // Cells of one site. `state` as in many().
  int64_t one(Real t, int64_t* state) const {
    switch (method_) {
      case Method::kUniform:
        return uniform_cell<int64_t>(lookup_, t);
      case Method::kQuasiUniform:
        return quasi_uniform_cell<int64_t>(lookup_, t);
      case Method::kSorted:
        return sorted_cell<int64_t>(lookup_, t, state);
      case Method::kPeak:
        return peak_cell<int64_t>(lookup_, t);
      default:
        return hybrid_cell<int64_t>(lookup_, t);
    }
  }

  // Cells of n sites, with indices of type Index. `state`: where the sorted method goes on, and from then on ends.
  template <class Index, class Cell>
  void many(int64_t n, const Real* site, Cell* cell, int64_t* state) const;

  // The same with the narrowest arithmetic that nx allows.
  template <class Cell>
  void cells(int64_t n, const Real* site, Cell* cell, int64_t* state) const {
    if (needs_wide_index(lookup_.nx)) {
      many<int64_t>(n, site, cell, state);
    } else {
      many<int32_t>(n, site, cell, state);
    }
  }

 private:
  Method method_ = Method::kHybrid;
  Lookup<Real> lookup_ = {};
};

}  // namespace orvik::df

#endif
