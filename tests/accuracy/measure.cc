#include "accuracy/measure.h"

#include <bit>
#include <cmath>
#include <limits>

#include "accuracy/inputs.h"
#include "tools/rows/domains.h"

namespace orvik::accuracy {
namespace {

constexpr double kWrong = std::numeric_limits<double>::infinity();

Format format_of(const rows::Row& row) { return {row.single()}; }

// The reference of a row: one of the two.
struct Judge {
  const Reference* real = nullptr;
  const ComplexReference* complex = nullptr;
  explicit Judge(const rows::Row& row) {
    if (row.complex()) {
      complex = find_complex_reference(row.function);
    } else {
      real = find_reference(row.function);
    }
  }
};

void take(Worst& worst, double error, int result, const Point& p, const std::string& got, const std::string& wanted) {
  worst.error = error;
  worst.result = result;
  worst.point = p;
  worst.got = got;
  worst.wanted = wanted;
}

// The exact results of a point.
class Exact {
 public:
  explicit Exact(const rows::Row& row) : row_(row), judge_(row), measures_(measures_of(row)) {}

  void at(const Point& p) {
    if (judge_.complex != nullptr) {
      at_complex(p);
    } else {
      at_real(p);
    }
  }

  // Takes the errors of `got`, all results or parts, into `worst` of each measure.
  void judge(const Point& p, const double* got, Metric metric, std::array<Worst, kMeasures>& worst) {
    if (stated_.any) return;
    const Format format = format_of(row_);
    for (Measure measure : measures_) {
      Worst& w = worst[static_cast<size_t>(index_of(measure))];
      if (measure == Measure::norm) {
        const double e = norm_error_of(got, r_[0], r_[1], metric, format, stated_.any_sign);
        if (e > w.error) {
          take(w, e, 0, p, hexadecimal(got[0]) + ' ' + hexadecimal(got[1]),
               decimal(r_[0], format) + ' ' + decimal(r_[1], format));
        }
        continue;
      }
      for (int j = 0; j < results(); ++j) judge_part(p, j, got[j], metric, w);
    }
  }

  void judge_part(const Point& p, int j, double got, Metric metric, Worst& worst) {
    if (stated_.any) return;
    const Format format = format_of(row_);
    const double e = judge_.complex != nullptr ? part_error_of(got, r_[j], metric, format, stated_.any_sign[j])
                                               : error_of(got, r_[j], metric, format, any_zero_sign_, floor_);
    if (e > worst.error) take(worst, e, j, p, hexadecimal(got), decimal(r_[j], format));
  }

 private:
  int results() const { return row_.outputs() * row_.output_parts; }

  void at_real(const Point& p) {
    const Reference& reference = *judge_.real;
    mpfr_set_d(x_, p.arguments[0], MPFR_RNDN);
    if (reference.binary != nullptr) {
      mpfr_set_d(y_, p.arguments[1], MPFR_RNDN);
      reference.binary(r_[0], x_, y_, MPFR_RNDN);
    } else if (reference.unary2 != nullptr) {
      reference.unary2(r_[0], r_[1], x_, MPFR_RNDN);
    } else if (reference.order != nullptr) {
      reference.order(r_[0], p.order, x_, MPFR_RNDN);
    } else {
      reference.unary(r_[0], x_, MPFR_RNDN);
    }
    any_zero_sign_ = reference.any_zero_sign && p.arguments[0] != 0;
    floor_ = reference.floor == nullptr ? 0 : reference.floor(row_.single(), p.arguments.data(), p.order);
  }

  void at_complex(const Point& p) {
    const ComplexReference& reference = *judge_.complex;
    mpc_set_d_d(a_, p.arguments[0], row_.input_parts == 2 ? p.arguments[1] : 0, MPC_RNDNN);
    if (reference.binary != nullptr) {
      mpc_set_d_d(b_, p.arguments[2], p.arguments[3], MPC_RNDNN);
      stated_ = reference.binary(c_, a_, b_);
    } else if (reference.to_real != nullptr) {
      stated_ = reference.to_real(r_[0], a_);
      return;
    } else if (reference.from_real != nullptr) {
      stated_ = reference.from_real(c_, mpc_realref(a_.v));
    } else {
      stated_ = reference.unary(c_, a_);
    }
    mpfr_set(r_[0], mpc_realref(c_.v), MPFR_RNDN);
    mpfr_set(r_[1], mpc_imagref(c_.v), MPFR_RNDN);
  }

  const rows::Row& row_;
  const Judge judge_;
  const std::vector<Measure> measures_;
  Real x_, y_, r_[2];
  Complex a_, b_, c_;
  Stated stated_;
  bool any_zero_sign_ = false;
  double floor_ = 0;
};

template <class E, class R>
void exact_results(const R& reference, const E* arguments, E* results) {
  if constexpr (sizeof(E) == 4) {
    reference.exact_s(arguments, results);
  } else {
    reference.exact_d(arguments, results);
  }
}

template <class E>
void judge_exact(const rows::Row& row, const Point& p, const E* got, Worst& worst) {
  E arguments[kMaxArguments];
  for (int i = 0; i < kMaxArguments; ++i) arguments[i] = static_cast<E>(p.arguments[static_cast<size_t>(i)]);
  E wanted[2];
  const Judge judge(row);
  if (judge.complex != nullptr) {
    exact_results(*judge.complex, arguments, wanted);
  } else {
    exact_results(*judge.real, arguments, wanted);
  }
  if (worst.error < 0) worst.error = 0;
  for (int j = 0; j < row.outputs() * row.output_parts; ++j) {
    const bool both_nan = std::isnan(got[j]) && std::isnan(wanted[j]);
    if (both_nan || (got[j] == wanted[j] && std::signbit(got[j]) == std::signbit(wanted[j]))) continue;
    if (worst.error != kWrong) take(worst, kWrong, j, p, hexadecimal(got[j]), hexadecimal(wanted[j]));
  }
}

int scalar_parts(const rows::Row& row) {
  return row.shape == rows::Shape::fraction ? 4 : row.shape == rows::Shape::scalar ? row.input_parts : 0;
}

template <class E>
Point point_of(const rows::Row& row, const Inputs<E>& in, const typename Inputs<E>::Segment& s, size_t i) {
  Point p;
  size_t at = 0;
  const auto parts = static_cast<size_t>(row.input_parts);
  for (size_t k = 0; k < parts; ++k) p.arguments[at++] = in.a[i * parts + k];
  for (size_t k = 0; k < parts && !in.b.empty(); ++k) p.arguments[at++] = in.b[i * parts + k];
  for (int k = 0; k < scalar_parts(row); ++k) p.arguments[at++] = static_cast<E>(s.scalars[k]);
  p.order = s.order;
  return p;
}

// All results of an element, in order.
template <class E>
void results_of(const rows::Row& row, const std::vector<E>* r, size_t i, E* results) {
  const auto parts = static_cast<size_t>(row.output_parts);
  for (size_t k = 0; k < parts; ++k) results[k] = r[0][i * parts + k];
  if (row.outputs() == 2) results[1] = r[1][i];
}

template <class E>
Worsts measure_inputs(const rows::Row& row, const Inputs<E>& in) {
  Worsts worst;
  const std::vector<int> kernels = kernels_of(row);
  std::vector<E> r[rows::kLevels][2];
  for (int k : kernels) evaluate(row, k, false, in, r[k][0], r[k][1]);
  Exact exact(row);
  const bool every_bit = exact_row(row);
  for (const auto& s : in.segments) {
    for (size_t i = s.first; i < s.last; ++i) {
      const Point p = point_of(row, in, s, i);
      if (!every_bit) exact.at(p);
      for (int k : kernels) {
        E got[2];
        results_of(row, r[k], i, got);
        auto& w = worst[static_cast<size_t>(k)];
        if (every_bit) {
          judge_exact(row, p, got, w[0]);
        } else {
          const double results[2] = {static_cast<double>(got[0]), static_cast<double>(got[1])};
          exact.judge(p, results, metric_of(row, k), w);
        }
      }
    }
  }
  for (int k : kernels) {
    for (Measure measure : measures_of(row)) {
      worst[static_cast<size_t>(k)][static_cast<size_t>(index_of(measure))].inputs = in.count(row);
    }
  }
  return worst;
}

template <class E>
Worst measure_one(const rows::Row& row, int kernel, const Point& p, int result, Measure measure) {
  Inputs<E> in;
  size_t at = 0;
  for (int k = 0; k < row.input_parts; ++k) in.a.push_back(static_cast<E>(p.arguments[at++]));
  for (int k = 0; k < row.input_parts && row.inputs() == 2; ++k) in.b.push_back(static_cast<E>(p.arguments[at++]));
  auto& s = in.segments.emplace_back();
  s = {0, 1, {}, p.order};
  for (int k = 0; k < scalar_parts(row); ++k) s.scalars[k] = p.arguments[at++];
  std::vector<E> r[2];
  evaluate(row, kernel, false, in, r[0], r[1]);
  E got[2];
  results_of(row, r, 0, got);
  std::array<Worst, kMeasures> worst;
  Worst& w = worst[static_cast<size_t>(index_of(measure))];
  if (exact_row(row)) {
    judge_exact(row, p, got, w);
  } else {
    Exact exact(row);
    exact.at(p);
    const double results[2] = {static_cast<double>(got[0]), static_cast<double>(got[1])};
    if (measure == Measure::norm) {
      exact.judge(p, results, metric_of(row, kernel), worst);
    } else {
      exact.judge_part(p, result, results[result], metric_of(row, kernel), w);
    }
  }
  w.inputs = 1;
  return w;
}

bool has_reference(const rows::Row& row) {
  using rows::Shape;
  const Judge judge(row);
  const auto serves = [&](const auto* r) {
    if (r == nullptr) return false;
    if (r->exact()) return true;
    if (row.shape == Shape::binary || row.shape == Shape::scalar) return r->binary != nullptr;
    return r->unary != nullptr && row.shape == Shape::unary;
  };
  if (judge.complex != nullptr) {
    if (row.shape == Shape::to_real) return judge.complex->to_real != nullptr;
    if (row.shape == Shape::from_real) return judge.complex->from_real != nullptr;
    return serves(judge.complex);
  }
  if (judge.real == nullptr) return false;
  if (row.shape == Shape::unary2) return judge.real->exact() || judge.real->unary2 != nullptr;
  if (row.shape == Shape::bessel) return judge.real->order != nullptr;
  return serves(judge.real);
}

}  // namespace

void Worst::merge(const Worst& other) {
  const uint64_t total = inputs + other.inputs;
  if (other.error > error) *this = other;
  inputs = total;
}

std::vector<Measure> measures_of(const rows::Row& row) {
  const Judge judge(row);
  if (judge.complex == nullptr || judge.complex->by_component || row.output_parts == 1) return {Measure::component};
  return {Measure::norm, Measure::component};
}

const Worst& promised(const rows::Row& row, int kernel, const Worsts& worsts) {
  return worsts[static_cast<size_t>(kernel)][static_cast<size_t>(index_of(measures_of(row).front()))];
}

Metric metric_of(const rows::Row&, int kernel) { return kernel == 2 ? Metric::relative : Metric::ulp; }

double bound_of(const rows::Row& row, int kernel) {
  if (exact_row(row)) return 0;
  if (kernel == 2) return row.single() ? 0x1p-11 : 0x1p-26;
  return kernel == 1 ? 1 : 4;
}

bool within_bound(const rows::Row& row, int kernel, const Worst& worst) {
  const double bound = bound_of(row, kernel);
  return bound == 0 ? worst.error == 0 : worst.error < bound;
}

std::vector<std::string> missing_of(const rows::Row& row) {
  std::vector<std::string> lines;
  if (row.shape == rows::Shape::pack) return lines;
  const std::string name(row.name), function(row.function);
  if (!has_reference(row)) {
    lines.push_back(name + ": no reference of " + function + " for its shape; add a line to tests/accuracy/" +
                    (row.complex() ? "complex_reference.cc" : "reference.cc"));
  }
  if (const std::string domain = rows::missing_domain(row); !domain.empty()) lines.push_back(domain);
  if (row.description.empty())
    lines.push_back(name + ": no description of " + function + "; add it to TEXT in tools/rows/rows.py");
  return lines;
}

bool measurable(const rows::Row& row) { return row.built() && row.shape != rows::Shape::pack; }

bool exact_row(const rows::Row& row) {
  const Judge judge(row);
  return judge.complex != nullptr ? judge.complex->exact() : judge.real->exact();
}

std::vector<int> kernels_of(const rows::Row& row) {
  std::vector<int> made;
  for (int level = 0; level < rows::kLevels; ++level) {
    if (row.kernel(level) == level) made.push_back(level);
  }
  return made;
}

bool exhaustible(const rows::Row& row) {
  return row.precision == 's' && (row.shape == rows::Shape::unary || row.shape == rows::Shape::unary2);
}

Worsts measure_sampled(const rows::Row& row, size_t count, uint64_t seed, bool fixed) {
  return row.single() ? measure_inputs(row, make_inputs<float>(row, count, seed, fixed))
                      : measure_inputs(row, make_inputs<double>(row, count, seed, fixed));
}

Worst measure_point(const rows::Row& row, int kernel, const Point& point, int result, Measure measure) {
  return row.single() ? measure_one<float>(row, kernel, point, result, measure)
                      : measure_one<double>(row, kernel, point, result, measure);
}

}  // namespace orvik::accuracy
