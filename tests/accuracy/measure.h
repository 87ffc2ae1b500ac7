// Worst errors of the kernels of a row over given inputs.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "accuracy/error.h"
#include "accuracy/reference.h"
#include "tools/rows/list.h"

namespace orvik::accuracy {

// One evaluation of one row: the parts of its arguments in order, all scalars behind them.
struct Point {
  std::array<double, kMaxArguments> arguments{};
  int32_t order = 0;
};

struct Worst {
  double error = -1;  // -1: nothing tried; exact rows: 0, or infinite
  int result = 0;     // index of the result, or of the part of a complex one, that has it
  Point point;
  std::string got, wanted;  // by norm: both parts
  uint64_t inputs = 0;

  void merge(const Worst& other);
};

// A complex result is judged by its parts, each by itself, or by its norm.
enum class Measure { component, norm };
inline constexpr int kMeasures = 2;
using Worsts = std::array<std::array<Worst, kMeasures>, rows::kLevels>;  // [kernel][measure]

// What a row's results are judged by; its bound holds for the first.
std::vector<Measure> measures_of(const rows::Row& row);
inline int index_of(Measure measure) { return static_cast<int>(measure); }
// The error that the bound holds for.
const Worst& promised(const rows::Row& row, int kernel, const Worsts& worsts);

// How a kernel of this name is judged: the EP kernels of rows that have one of their own by relative error.
Metric metric_of(const rows::Row& row, int kernel);
// Upper bound of the error of a kernel: 1 ulp (HA), 4 ulp (LA), 2^-11 or 2^-26 (EP); 0 for functions without
// approximation.
double bound_of(const rows::Row& row, int kernel);
bool within_bound(const rows::Row& row, int kernel, const Worst& worst);

// What the harness lacks to judge the row, a line each that names the row and the file to edit: a reference of the
// row's shape, a domain, a description. Data movers need none.
std::vector<std::string> missing_of(const rows::Row& row);
// Whether the row is built and is judged here.
bool measurable(const rows::Row& row);
// Whether the row's results are bit for bit those of its reference.
bool exact_row(const rows::Row& row);

// Names of the kernels of a row (as level indices), each once.
std::vector<int> kernels_of(const rows::Row& row);

// The kernels of a row over `count` inputs, all by MPFR.
Worsts measure_sampled(const rows::Row& row, size_t count, uint64_t seed, bool fixed = true);

// All 2^32 inputs of a row of one 32-bit float.
bool exhaustible(const rows::Row& row);
Worsts measure_exhaustive(const rows::Row& row, int threads, const std::function<void(double)>& progress);

// One point: what a kernel gives and how far off it is. The result matters for pairs of real results.
Worst measure_point(const rows::Row& row, int kernel, const Point& point, int result,
                    Measure measure = Measure::component);

}  // namespace orvik::accuracy
