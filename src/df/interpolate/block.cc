#include "df/interpolate/block.h"

#include "df/construct/problem.h"
#include "df/interpolate/direct.h"
#include "df/interpolate/steps.h"
#include "df/search/sites.h"

namespace orvik::df {
namespace {

template <class Real, class Index>
class BlockRun {
 public:
  BlockRun(const Request<Real>& request, int64_t first, int64_t count, BlockRoom<Real, Index>& room)
      : q_(request),
        task_(request.task),
        first_(first),
        count_(count),
        room_(room),
        cell_(room.cell),
        index_(room.index) {}

  int32_t run(int64_t* state) {
    take_sites();
    int32_t status = find_cells(state);
    if (status < 0) return status;
    if (q_.write_cells) store_cells();
    if (!q_.compute) return 0;
    if constexpr (sizeof(Index) == 4) {
      if (one_result_each(q_) && evaluate_sites(q_, first_, count_, site_, StoredCells<Real>(task_, cell_))) return 0;
    }
    status = prepare();
    if (status < 0) return status;
    for (int64_t f = 0; f < task_.ny; ++f) {
      int64_t place = 0;
      for (int64_t k = 0; k < q_.orders.size(); ++k) {
        if (!q_.orders[k]) continue;
        status = results(f, k, place++);
        if (status < 0) return status;
      }
    }
    return 0;
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
        const int32_t* given = static_cast<const int32_t*>(q_.cell) + first_;
        for (int64_t j = 0; j < count_; ++j) cell_[j] = given[j];
      } else {
        const int64_t* given = static_cast<const int64_t*>(q_.cell) + first_;
        for (int64_t j = 0; j < count_; ++j) cell_[j] = static_cast<Index>(given[j]);
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
    for (int64_t j = 0; j < count_; ++j) cell_[j] = static_cast<Index>(room_.user_cell[j]);
    return status;
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

  // What all functions and derivatives share.
  int32_t prepare() {
    switch (q_.evaluator) {
      case Evaluator::kQuadraticKnots:
        locate_by_knots(task_, count_, site_, cell_, index_, room_.t);
        return 0;
      case Evaluator::kStepRight:
      case Evaluator::kStepLeft:
      case Evaluator::kLookUp:
        return prepare_values();
      default:
        if (task_.s_order > 0) locate(task_, count_, site_, cell_, index_, room_.t);
        return 0;
    }
  }

  int32_t prepare_values() {
    const Breakpoints<Real> x(task_);
    for (int64_t j = 0; j < count_; ++j) {
      const int64_t cell = std::min<int64_t>(cell_[j], task_.nx);
      int64_t i;
      if (q_.evaluator == Evaluator::kStepLeft) {
        i = left_step_index(x, cell, site_[j]);
      } else if (q_.evaluator == Evaluator::kStepRight) {
        i = right_step_index(x, cell, site_[j]);
      } else {
        i = look_up_index(x, cell, site_[j]);
        if (i < 0) return DFS_SITE_NOT_BREAKPOINT;
      }
      index_[j] = static_cast<Index>(i);
    }
    if (q_.evaluator != Evaluator::kLookUp) return 0;
    if (q_.orders.given() != 1) return DFS_BAD_ORDER_COUNT;
    return q_.orders.first_flag_set() ? 0 : DFS_BAD_ORDER_FLAG;
  }

  // Derivative k of function f, the `place`-th result of a site.
  int32_t results(int64_t f, int64_t k, int64_t place) {
    Real* r = q_.r + f * q_.layout.function + first_ * q_.layout.site + place * q_.layout.derivative;
    const bool direct = q_.layout.site == 1;
    Real* out = direct ? r : room_.out;
    if (!evaluate(f, k, out)) return 0;
    if (q_.evaluator != Evaluator::kLookUp && q_.any_supplier()) {
      const int32_t status = supplied(out);
      if (status < 0) return status;
    }
    if (!direct) {
      for (int64_t j = 0; j < count_; ++j) r[j * q_.layout.site] = out[j];
    }
    return 0;
  }

  // False when there is nothing to compute.
  bool evaluate(int64_t f, int64_t k, Real* out) {
    switch (q_.evaluator) {
      case Evaluator::kLinear:
        evaluate_polynomial<2>(task_.coefficients<Real>(f), k, count_, index_, room_.t, out);
        return true;
      case Evaluator::kQuadratic:
      case Evaluator::kQuadraticKnots:
        evaluate_polynomial<3>(task_.coefficients<Real>(f), k, count_, index_, room_.t, out);
        return true;
      case Evaluator::kCubic:
        evaluate_polynomial<4>(task_.coefficients<Real>(f), k, count_, index_, room_.t, out);
        return true;
      case Evaluator::kGeneral: {
        const int64_t order = task_.s_order;
        if (order == 0) return true;  // the callbacks give everything
        const Real* c = task_.coefficients<Real>(f);
        for (int64_t j = 0; j < count_; ++j) out[j] = evaluate_general(c + order * index_[j], order, k, room_.t[j]);
        return true;
      }
      default: {
        if (!q_.orders[0]) return false;
        const Values<Real> y(task_, f);
        for (int64_t j = 0; j < count_; ++j) out[j] = k == 0 ? y[index_[j]] : Real(0);
        return true;
      }
    }
  }

  int32_t supplied(Real* out) {
    const Index nx = static_cast<Index>(task_.nx);
    int32_t status = supplied_where(q_.left, out, [](Index cell) { return cell < 1; });
    if (status >= 0) status = supplied_where(q_.right, out, [=](Index cell) { return cell >= nx; });
    if (status >= 0) status = supplied_where(q_.inside, out, [=](Index cell) { return cell >= 1 && cell < nx; });
    return status;
  }

  // Hands the sites whose cell fits to a callback, if there are any.
  template <class Fits>
  int32_t supplied_where(const Supplier<Real>& supplier, Real* out, Fits fits) {
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
    for (int64_t j = 0; j < n; ++j) out[room_.user_place[j]] = room_.user_result[j];
    return 0;
  }

  const Request<Real>& q_;
  const Task& task_;
  const int64_t first_, count_;
  BlockRoom<Real, Index>& room_;
  Index* cell_;
  Index* index_;
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
