#include "accuracy/measure.h"

#include <bit>
#include <cmath>
#include <limits>

#include "accuracy/inputs.h"

namespace orvik::accuracy {
namespace {

constexpr double kWrong = std::numeric_limits<double>::infinity();

Format format_of(const rows::Row& row) { return {row.single()}; }

// The exact results of a point.
class Exact {
 public:
  Exact(const rows::Row& row, const Reference& reference) : row_(row), reference_(reference) {}

  void at(const Point& p) {
    mpfr_set_d(x_, p.arguments[0], MPFR_RNDN);
    if (reference_.binary != nullptr) {
      mpfr_set_d(y_, p.arguments[1], MPFR_RNDN);
      reference_.binary(r_[0], x_, y_, MPFR_RNDN);
    } else if (reference_.unary2 != nullptr) {
      reference_.unary2(r_[0], r_[1], x_, MPFR_RNDN);
    } else if (reference_.order != nullptr) {
      reference_.order(r_[0], p.order, x_, MPFR_RNDN);
    } else {
      reference_.unary(r_[0], x_, MPFR_RNDN);
    }
    any_zero_sign_ = reference_.any_zero_sign && p.arguments[0] != 0;
    floor_ = reference_.floor == nullptr ? 0 : reference_.floor(row_.single(), p.arguments.data(), p.order);
  }

  // Takes the error of `got` into `worst`.
  void judge(const Point& p, int result, double got, Metric metric, Worst& worst) {
    const double e = error_of(got, r_[result], metric, format_of(row_), any_zero_sign_, floor_);
    if (e <= worst.error) return;
    worst.error = e;
    worst.result = result;
    worst.point = p;
    worst.got = got;
    worst.wanted = decimal(r_[result], format_of(row_));
  }

 private:
  const rows::Row& row_;
  const Reference& reference_;
  Real x_, y_, r_[2];
  bool any_zero_sign_ = false;
  double floor_ = 0;
};

template <class E>
void judge_exact(const Reference& reference, const Point& p, const E* got, int results, Worst& worst) {
  E arguments[kMaxArguments];
  for (int i = 0; i < kMaxArguments; ++i) arguments[i] = static_cast<E>(p.arguments[i]);
  E wanted[2];
  if constexpr (sizeof(E) == 4) {
    reference.exact_s(arguments, wanted);
  } else {
    reference.exact_d(arguments, wanted);
  }
  if (worst.error < 0) worst.error = 0;
  for (int j = 0; j < results; ++j) {
    const bool both_nan = std::isnan(got[j]) && std::isnan(wanted[j]);
    if (both_nan || (got[j] == wanted[j] && std::signbit(got[j]) == std::signbit(wanted[j]))) continue;
    if (worst.error == kWrong) continue;
    worst = {.error = kWrong, .result = j, .point = p, .got = got[j], .wanted = hexadecimal(wanted[j]),
             .inputs = worst.inputs};
  }
}

template <class E>
Point point_of(const rows::Row& row, const Inputs<E>& in, const typename Inputs<E>::Segment& s, size_t i) {
  Point p;
  p.arguments[0] = in.a[i];
  if (!in.b.empty()) p.arguments[1] = in.b[i];
  if (row.shape == rows::Shape::scalar) p.arguments[1] = static_cast<E>(s.scalars[0]);
  if (row.shape == rows::Shape::fraction) {
    for (int k = 0; k < 4; ++k) p.arguments[2 + k] = static_cast<E>(s.scalars[k]);
  }
  p.order = s.order;
  return p;
}

template <class E>
std::array<Worst, rows::kLevels> measure_inputs(const rows::Row& row, const Inputs<E>& in) {
  const Reference& reference = *find_reference(row.function);
  std::array<Worst, rows::kLevels> worst;
  const std::vector<int> kernels = kernels_of(row);
  std::vector<E> r[rows::kLevels][2];
  for (int k : kernels) evaluate(row, k, false, in, r[k][0], r[k][1]);
  Exact exact(row, reference);
  for (const auto& s : in.segments) {
    for (size_t i = s.first; i < s.last; ++i) {
      const Point p = point_of(row, in, s, i);
      if (!reference.exact()) exact.at(p);
      for (int k : kernels) {
        if (reference.exact()) {
          const E got[2] = {r[k][0][i], row.outputs() == 2 ? r[k][1][i] : E(0)};
          judge_exact(reference, p, got, row.outputs(), worst[k]);
        } else {
          for (int j = 0; j < row.outputs(); ++j) {
            exact.judge(p, j, static_cast<double>(r[k][j][i]), metric_of(row, k), worst[k]);
          }
        }
      }
    }
  }
  for (int k : kernels) worst[k].inputs = in.a.size();
  return worst;
}

template <class E>
Worst measure_one(const rows::Row& row, int kernel, const Point& p, int result) {
  const Reference& reference = *find_reference(row.function);
  Inputs<E> in;
  in.a = {static_cast<E>(p.arguments[0])};
  if (row.inputs() == 2) in.b = {static_cast<E>(p.arguments[1])};
  auto& s = in.segments.emplace_back();
  s = {0, 1, {p.arguments[1], 0, 0, 0}, p.order};
  if (row.shape == rows::Shape::fraction) {
    for (int k = 0; k < 4; ++k) s.scalars[k] = p.arguments[2 + k];
  }
  std::vector<E> r[2];
  evaluate(row, kernel, false, in, r[0], r[1]);
  Worst worst;
  if (reference.exact()) {
    const E got[2] = {r[0][0], row.outputs() == 2 ? r[1][0] : E(0)};
    judge_exact(reference, p, got, row.outputs(), worst);
  } else {
    Exact exact(row, reference);
    exact.at(p);
    exact.judge(p, result, static_cast<double>(r[result][0]), metric_of(row, kernel), worst);
  }
  worst.inputs = 1;
  return worst;
}

}  // namespace

void Worst::merge(const Worst& other) {
  const uint64_t total = inputs + other.inputs;
  if (other.error > error) *this = other;
  inputs = total;
}

Metric metric_of(const rows::Row&, int kernel) { return kernel == 2 ? Metric::relative : Metric::ulp; }

double bound_of(const rows::Row& row, int kernel) {
  if (find_reference(row.function)->exact()) return 0;
  if (kernel == 2) return row.single() ? 0x1p-11 : 0x1p-26;
  return kernel == 1 ? 1 : 4;
}

bool within_bound(const rows::Row& row, int kernel, const Worst& worst) {
  const double bound = bound_of(row, kernel);
  return bound == 0 ? worst.error == 0 : worst.error < bound;
}

bool measurable(const rows::Row& row) {
  return row.built() && !row.complex() && row.shape != rows::Shape::pack && find_reference(row.function) != nullptr;
}

std::vector<int> kernels_of(const rows::Row& row) {
  std::vector<int> made;
  for (int level = 0; level < rows::kLevels; ++level) {
    if (row.kernel(level) == level) made.push_back(level);
  }
  return made;
}

std::array<Worst, rows::kLevels> measure_sampled(const rows::Row& row, size_t count, uint64_t seed, bool fixed) {
  return row.single() ? measure_inputs(row, make_inputs<float>(row, count, seed, fixed))
                      : measure_inputs(row, make_inputs<double>(row, count, seed, fixed));
}

Worst measure_point(const rows::Row& row, int kernel, const Point& point, int result) {
  return row.single() ? measure_one<float>(row, kernel, point, result)
                      : measure_one<double>(row, kernel, point, result);
}

}  // namespace orvik::accuracy
