#include "df/interpolate/block.h"

#include "df/interpolate/wide_evaluate.h"
#include "df/pieces/steps.h"
#include "df/pieces/values.h"
#include "df/search/sites.h"

namespace orvik::df {
namespace {

template <class Real, class Index>
class BlockRun {
 public:
  BlockRun(const Request<Real>& request, int64_t first, int64_t count, BlockRoom<Real, Index>& room)
      : q_(request), task_(request.task), first_(first), count_(count), room_(room), cell_(room.cell) {}

  int32_t run(int64_t* state) {
    take_sites();
    const int32_t found = find_cells(state);
    if (found < 0) return found;
    if (q_.write_cells) store_cells();
    const int32_t status = q_.compute ? compute() : 0;
    return status < 0 ? status : found;
  }

 private:
  void take_sites() {
    site_ = q_.site + first_;
    if (!q_.uniform_sites) return;
    expand_uniform_sites(q_.site, q_.nsite, first_, count_, room_.site);
    site_ = room_.site;
  }

  int32_t find_cells(int64_t* state) {
    if (q_.cells_given) {
      if (q_.narrow_user_cells()) {
        take_cells(static_cast<const int32_t*>(q_.cell) + first_);
      } else {
        take_cells(static_cast<const int64_t*>(q_.cell) + first_);
      }
      return 0;
    }
    if (q_.user.callback == nullptr) {
      q_.finder.template many<Index>(count_, site_, cell_, state);
      return 0;
    }
    const bool uniform = q_.finder.method() == Method::kUniformUserDefined;
    const int32_t status =
        user_cells(q_.finder.lookup(), uniform, q_.user, count_, site_, room_.user_cell, room_.user_flag);
    if (status >= 0) take_cells(room_.user_cell);
    return status;
  }
  template <class Cell>
  void take_cells(const Cell* given) {
    for (int64_t j = 0; j < count_; ++j) cell_[j] = static_cast<Index>(given[j]);
  }

  void store_cells() {
    if (q_.narrow_user_cells()) {
      int32_t* out = static_cast<int32_t*>(q_.cell) + first_;
      for (int64_t j = 0; j < count_; ++j) out[j] = static_cast<int32_t>(cell_[j]);
    } else {
      int64_t* out = static_cast<int64_t*>(q_.cell) + first_;
      for (int64_t j = 0; j < count_; ++j) out[j] = cell_[j];
    }
  }

  int32_t compute() {
    if constexpr (sizeof(Index) == 4) {
      if (task_.ny == 1 && q_.polynomials_only()) {
        if (in_runs()) {
          evaluate_in_width(q_, 0, count_, RunSpots<Real>{{Partition<Real, false>(task_), site_, cell_}}, at(0));
        } else {
          with_partition<Real>(task_, [&](const auto& x) {
            using Spots = CellSpots<Real, std::decay_t<decltype(x)>::kIsEven>;
            evaluate_in_width(q_, 0, count_, Spots{x, site_, cell_}, at(0));
          });
        }
        return 0;
      }
    }
    int32_t status = with_partition<Real>(task_, [&](const auto& x) { return prepare(x); });
    for (int64_t f = 0; f < task_.ny && status >= 0; ++f) {
      if (!results(f)) continue;
      if (q_.evaluator != Evaluator::kLookUp && q_.any_supplier()) status = supply(f);
    }
    return status;
  }

  // Whether ascending sites lie in a few pieces, many in each.
  bool in_runs() const {
    constexpr int64_t kRun = 16;
    return q_.finder.method() == Method::kSorted && !q_.cells_given && (cell_[count_ - 1] - cell_[0]) * kRun <= count_;
  }

  // The place of the first site's first result.
  Real* at(int64_t function) const { return q_.r + function * q_.layout.function + first_ * q_.layout.site; }

  // What all functions and derivatives share.
  template <bool kEven>
  int32_t prepare(const Partition<Real, kEven>& x) {
    switch (q_.evaluator) {
      case Evaluator::kQuadraticKnots:
        locate(KnotPieces<Real, kEven>(task_));
        return 0;
      case Evaluator::kStepRight:
        for (int64_t j = 0; j < count_; ++j) room_.index[j] = right_step_index(x, held_cell(j), site_[j]);
        return 0;
      case Evaluator::kStepLeft:
        for (int64_t j = 0; j < count_; ++j) room_.index[j] = left_step_index(x, held_cell(j), site_[j]);
        return 0;
      case Evaluator::kLookUp:
        for (int64_t j = 0; j < count_; ++j) {
          room_.index[j] = look_up_index(x, held_cell(j), site_[j]);
          if (room_.index[j] < 0) return DFS_SITE_NOT_BREAKPOINT;
        }
        if (q_.orders.given() != 1) return DFS_BAD_ORDER_COUNT;
        return q_.orders.first_flag_set() ? 0 : DFS_BAD_ORDER_FLAG;
      default:
        if (task_.s_order > 0) locate(IntervalPieces<Real, kEven>(task_));
        return 0;
    }
  }
  int64_t held_cell(int64_t j) const { return std::min<int64_t>(cell_[j], task_.nx); }

  template <class Pieces>
  void locate(const Pieces& pieces) {
    for (int64_t j = 0; j < count_; ++j) room_.index[j] = pieces.of(cell_[j], site_[j]);
    for (int64_t j = 0; j < count_; ++j) room_.t[j] = site_[j] - pieces.origin(room_.index[j]);
  }

  // The results of a function; false where there is nothing to compute.
  bool results(int64_t f) {
    switch (q_.evaluator) {
      case Evaluator::kGeneral: {
        const int64_t order = task_.s_order;
        if (order == 0) return true;  // the callbacks give everything
        const Real* c = task_.coefficients<Real>(f);
        return one_by_one(f, [&](int64_t j, int64_t k) {
          return evaluate_general(c + order * room_.index[j], order, k, room_.t[j]);
        });
      }
      case Evaluator::kStepRight:
      case Evaluator::kStepLeft:
      case Evaluator::kLookUp: {
        if (!q_.orders[0]) return false;
        const Values<Real> y(task_, f);
        return one_by_one(f, [&](int64_t j, int64_t k) { return k == 0 ? y[room_.index[j]] : Real(0); });
      }
      default:
        evaluate_in_width(q_, f, count_, StoredSpots<Real>{room_.index, room_.t}, at(f));
        return true;
    }
  }

  // result(j, k): derivative k of site j.
  template <class Result>
  bool one_by_one(int64_t f, Result result) {
    Real* r = at(f);
    for (int64_t k = 0; k < q_.orders.size(); ++k) {
      if (!q_.orders[k]) continue;
      for (int64_t j = 0; j < count_; ++j) r[j * q_.layout.site] = result(j, k);
      r += q_.layout.derivative;
    }
    return true;
  }

  // What the callbacks put in place of the results of a function, one derivative after the other.
  int32_t supply(int64_t f) {
    const Index nx = static_cast<Index>(task_.nx);
    int32_t status = 0;
    for (int64_t k = 0; k < q_.orders.asked() && status >= 0; ++k) {
      Real* r = at(f) + k * q_.layout.derivative;
      status = supply_where(q_.left, r, [](Index cell) { return cell < 1; });
      if (status >= 0) status = supply_where(q_.right, r, [=](Index cell) { return cell >= nx; });
      if (status >= 0) status = supply_where(q_.inside, r, [=](Index cell) { return cell >= 1 && cell < nx; });
    }
    return status;
  }

  // Hands the sites whose cell fits to a callback, if there are any.
  template <class Fits>
  int32_t supply_where(const Supplier<Real>& supplier, Real* r, Fits fits) {
    if (supplier.callback == nullptr) return 0;
    int64_t n = 0;
    for (int64_t j = 0; j < count_; ++j) {
      if (!fits(cell_[j])) continue;
      room_.user_site[n] = site_[j];
      room_.user_cell[n] = cell_[j];
      room_.user_place[n++] = static_cast<int32_t>(j);
    }
    if (n == 0) return 0;
    int64_t count = n;
    const int32_t status =
        supplier.callback(&count, room_.user_site, room_.user_cell, room_.user_result, supplier.params);
    if (status < 0) return status;
    for (int64_t j = 0; j < n; ++j) r[room_.user_place[j] * q_.layout.site] = room_.user_result[j];
    return 0;
  }

  const Request<Real>& q_;
  const Task& task_;
  const int64_t first_, count_;
  BlockRoom<Real, Index>& room_;
  Index* cell_;
  const Real* site_ = nullptr;
};

}  // namespace

template <class Real, class Index>
int32_t run_block(const Request<Real>& request, int64_t first, int64_t count, int64_t* state,
                  BlockRoom<Real, Index>& room) {
  return BlockRun<Real, Index>(request, first, count, room).run(state);
}

#define ORVIK_DF_RUN_BLOCK(Real, Index) \
  template int32_t run_block(const Request<Real>&, int64_t, int64_t, int64_t*, BlockRoom<Real, Index>&);
ORVIK_DF_RUN_BLOCK(double, int32_t)
ORVIK_DF_RUN_BLOCK(double, int64_t)
ORVIK_DF_RUN_BLOCK(float, int32_t)
ORVIK_DF_RUN_BLOCK(float, int64_t)

}  // namespace orvik::df
