// What a request for moments needs: the work list, the orders of the passes, and the checks that come before any write.
#pragma once

#include <cstdint>

#include "qor/ss/task.h"

namespace orvik::ss {

// The internal estimates, in the order in which their outputs are tested.
enum Work : int {
  kMean,
  kRaw2,
  kRaw3,
  kRaw4,
  kCentral2,
  kCentral3,
  kCentral4,
  kCovariance,
  kCorrelation,
  kKurtosis,
  kSkewness,
  kVariation,
  kSum,
  kRawSum2,
  kRawSum3,
  kRawSum4,
  kCentralSum2,
  kCentralSum3,
  kCentralSum4,
  kCrossProduct,
  kNotAllowed,
};

enum class Method { Fast, OnePass, UserMean, Finish };

struct Plan {
  Method method;
  uint32_t work;
  int power = 0;    // highest power of x, or of deviations from the user's mean, to sum
  int central = 0;  // highest running central sum; the running mean alone has order 1

  bool has(int bit) const { return (work >> bit & 1) != 0; }
  bool matrix() const { return (work & (1u << kCovariance | 1u << kCorrelation | 1u << kCrossProduct)) != 0; }
  int order() const { return power > central ? power : central; }
};

// Fills the plan and makes every check of the task, in order.
int32_t make_plan(const Task& task, uint64_t estimates, uint64_t method, Plan* plan);

// The fields of the results, by internal estimate.
inline constexpr void* Task::*kOutputs[] = {
    &Task::mean,           &Task::rawMoment2,     &Task::rawMoment3,  &Task::rawMoment4,  &Task::centralMoment2,
    &Task::centralMoment3, &Task::centralMoment4, &Task::covariance,  &Task::correlation, &Task::kurtosis,
    &Task::skewness,       &Task::variation,      &Task::sum,         &Task::rawSum2,     &Task::rawSum3,
    &Task::rawSum4,        &Task::centralSum2,    &Task::centralSum3, &Task::centralSum4, &Task::crossProduct};
inline void* output(const Task& task, int bit) { return task.*kOutputs[bit]; }

// The sums of weights so far, zero for a fresh run. `observations` tells none (0) and one (1) that has weight from
// several, and no more.
struct Weights {
  double sum = 0;
  double squares = 0;
  int64_t observations = 0;

  void add(const Weights& other) {
    sum += other.sum;
    squares += other.squares;
    observations += other.observations;
  }
};

}  // namespace orvik::ss
