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

// One evaluation of one row: its arguments, all scalars included.
struct Point {
  std::array<double, kMaxArguments> arguments{};
  int32_t order = 0;
};

struct Worst {
  double error = -1;  // -1: nothing tried; exact rows: 0, or infinite
  int result = 0;     // index of the result that has it
  Point point;
  double got = 0;
  std::string wanted;
  uint64_t inputs = 0;

  void merge(const Worst& other);
};

// How a kernel of this name is judged: the EP kernels of rows that have one of their own by relative error.
Metric metric_of(const rows::Row& row, int kernel);
// Upper bound of the error of a kernel: 1 ulp (HA), 4 ulp (LA), 2^-11 or 2^-26 (EP); 0 for functions without approximation.
double bound_of(const rows::Row& row, int kernel);
bool within_bound(const rows::Row& row, int kernel, const Worst& worst);

// Whether this program can judge the row: it needs a reference, and real elements.
bool measurable(const rows::Row& row);

// Names of the kernels of a row (as level indices), each once.
std::vector<int> kernels_of(const rows::Row& row);

// The kernels of a row over `count` inputs, all by MPFR. Functions with a fast reference use it as a filter in 32 bits.
std::array<Worst, rows::kLevels> measure_sampled(const rows::Row& row, size_t count, uint64_t seed, bool fixed = true);

// All 2^32 inputs of a one-argument row of 32-bit floats. `progress` is called with the share done, now and then.
std::array<Worst, rows::kLevels> measure_exhaustive(const rows::Row& row, int threads,
                                                    const std::function<void(double)>& progress);

// One point: what a kernel gives and how far off it is.
Worst measure_point(const rows::Row& row, int kernel, const Point& point, int result);

}  // namespace orvik::accuracy
