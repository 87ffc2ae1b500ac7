#include "df/integrate/block.h"

namespace orvik::df {
namespace {

// Which stretch of a pair of limits: all that no callback serves, or what lies on one side of an inside that one does.
enum class Side { kMain, kBefore, kBehind };

template <class Real>
class LimitRun {
 public:
  LimitRun(const IntegralRequest<Real>& request, int64_t first, int64_t count, const SumLayout& layout,
           const Real* sums, LimitRoom<Real>& room)
      : q_(request), task_(request.task), first_(first), count_(count), layout_(layout), sums_(sums), room_(room) {}

  int32_t run(int64_t* states) {
    // Copies, which are put in order below.
    std::copy_n(q_.left.take(q_.count, first_, count_, room_.left), count_, room_.left);
    std::copy_n(q_.right.take(q_.count, first_, count_, room_.right), count_, room_.right);
    int32_t status = find_cells(q_.left, room_.left, room_.left_cell, states);
    if (status >= 0) status = find_cells(q_.right, room_.right, room_.right_cell, states + 1);
    if (status < 0) return status;
    put_in_order();
    const Real* x = task_.breakpoints<Real>();
    begin_ = x[0];
    end_ = x[task_.uniform() ? 1 : task_.nx - 1];
    if (!q_.reads_pieces()) return without_pieces();
    return with_pieces<Real>(task_, q_.kind,
                             [&](const auto& pieces, auto integrand) { return integrals(pieces, integrand); });
  }

 private:
  int32_t find_cells(const Limits<Real>& limits, const Real* at, int64_t* cell, int64_t* state) {
    if (q_.user.callback != nullptr) {
      return user_cells(limits.finder.lookup(), false, q_.user, count_, at, cell, room_.flag);
    }
    limits.finder.cells(count_, at, cell, state);
    return 0;
  }

  void put_in_order() {
    for (int64_t j = 0; j < count_; ++j) {
      const Real a = room_.left[j], b = room_.right[j];
      const int64_t ca = room_.left_cell[j], cb = room_.right_cell[j];
      const bool reversed = a > b;
      room_.left[j] = reversed ? b : a;
      room_.right[j] = reversed ? a : b;
      room_.left_cell[j] = reversed ? cb : ca;
      room_.right_cell[j] = reversed ? ca : cb;
      room_.reversed[j] = reversed;
    }
  }

  template <class Pieces, class IntegrandOf>
  int32_t integrals(const Pieces& pieces, IntegrandOf integrand_of) {
    const bool split = q_.inside.callback != nullptr;
    set_stretches(pieces, split ? Side::kBefore : Side::kMain, room_.inner);
    if (split) set_stretches(pieces, Side::kBehind, room_.outer);
    for (int64_t f = 0; f < task_.ny; ++f) {
      const auto integrand = integrand_of(f);
      const WholePieces<Pieces, decltype(integrand)> whole{pieces, integrand};
      const PieceSums<Real, decltype(whole)> sums(whole, layout_,
                                                  sums_ == nullptr ? nullptr : sums_ + f * layout_.size());
      integrate_outer<Pieces::kBeginsAtOrigin>(integrand, count_, room_.inner, room_.head, room_.tail);
      for (int64_t j = 0; j < count_; ++j) {
        const Real between = sums.run(room_.inner.from_piece[j] + 1, room_.inner.to_piece[j]);
        room_.sum[j] = (room_.head[j] + between) + room_.tail[j];
      }
      if (split) {  // these never leave the last piece
        integrate_outer<Pieces::kBeginsAtOrigin>(integrand, count_, room_.outer, room_.head, room_.tail);
        for (int64_t j = 0; j < count_; ++j) room_.sum[j] += room_.head[j] + room_.tail[j];
      }
      const int32_t status = supply();
      if (status < 0) return status;
      store(f);
    }
    return 0;
  }

  int32_t without_pieces() {
    for (int64_t f = 0; f < task_.ny; ++f) {
      std::fill_n(room_.sum, count_, Real(0));
      const int32_t status = supply();
      if (status < 0) return status;
      store(f);
    }
    return 0;
  }

  template <class Pieces>
  void set_stretches(const Pieces& pieces, Side side, Stretches<Real>& s) const {
    const Real infinity = std::numeric_limits<Real>::infinity();
    // What a callback serves is cut off: the two limits meet where they lie in such a part both.
    const Real least = side == Side::kBehind ? end_ : q_.before.callback != nullptr ? begin_ : -infinity;
    const Real most = side == Side::kBefore ? begin_ : q_.behind.callback != nullptr ? end_ : infinity;
    for (int64_t j = 0; j < count_; ++j) {
      const Real a = held(room_.left[j], least, most), b = held(room_.right[j], least, most);
      int64_t i = pieces.of(room_.left_cell[j], a), k = pieces.of(room_.right_cell[j], b);
      if (side == Side::kBefore) i = k = pieces.first();
      if (side == Side::kBehind) i = k = pieces.last();
      s.set(pieces, j, i, a, k, b);
    }
  }
  // A not-a-number stays one.
  static Real held(Real t, Real least, Real most) {
    t = t < least ? least : t;
    return t > most ? most : t;
  }

  // Adds what the callbacks give for the parts of the stretches that are theirs.
  int32_t supply() {
    if (!q_.any_supplier()) return 0;
    const Real infinity = std::numeric_limits<Real>::infinity();
    int32_t status = supply_between(q_.before, -infinity, begin_);
    if (status >= 0) status = supply_between(q_.behind, end_, infinity);
    if (status >= 0) status = supply_between(q_.inside, begin_, end_);
    return status;
  }

  int32_t supply_between(const IntegralSupplier<Real>& supplier, Real least, Real most) {
    if (supplier.callback == nullptr) return 0;
    int64_t n = 0;
    for (int64_t j = 0; j < count_; ++j) {
      const Real a = std::max(room_.left[j], least), b = std::min(room_.right[j], most);
      if (!(room_.left[j] < room_.right[j]) || !(a < b)) continue;
      room_.from[n] = a;
      room_.to[n] = b;
      room_.cell[n] = b <= begin_ ? 0 : a >= end_ ? task_.nx : std::clamp<int64_t>(room_.left_cell[j], 1, task_.nx - 1);
      room_.place[n++] = static_cast<int32_t>(j);
    }
    if (n == 0) return 0;
    int64_t count = n;
    const int32_t status = supplier.callback(&count, room_.from, room_.to, room_.cell, room_.result, supplier.params);
    if (status < 0) return status;
    for (int64_t j = 0; j < n; ++j) room_.sum[room_.place[j]] += room_.result[j];
    return 0;
  }

  void store(int64_t f) {
    Real* r = q_.r + f * q_.function_stride + first_ * q_.limit_stride;
    for (int64_t j = 0; j < count_; ++j) {
      const Real a = room_.left[j], b = room_.right[j];
      const Real sum = room_.reversed[j] ? -room_.sum[j] : room_.sum[j];
      r[j * q_.limit_stride] = a < b ? sum : a == b ? Real(0) : std::numeric_limits<Real>::quiet_NaN();
    }
  }

  const IntegralRequest<Real>& q_;
  const Task& task_;
  const int64_t first_, count_;
  const SumLayout& layout_;
  const Real* sums_;
  LimitRoom<Real>& room_;
  Real begin_ = 0, end_ = 0;  // of the partition
};

}  // namespace

template <class Real>
int32_t integrate_block(const IntegralRequest<Real>& request, int64_t first, int64_t count, int64_t* states,
                        const SumLayout& layout, const Real* sums, LimitRoom<Real>& room) {
  return LimitRun<Real>(request, first, count, layout, sums, room).run(states);
}

template int32_t integrate_block(const IntegralRequest<double>&, int64_t, int64_t, int64_t*, const SumLayout&,
                                 const double*, LimitRoom<double>&);
template int32_t integrate_block(const IntegralRequest<float>&, int64_t, int64_t, int64_t*, const SumLayout&,
                                 const float*, LimitRoom<float>&);

}  // namespace orvik::df
