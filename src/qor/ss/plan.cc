#include "qor/ss/plan.h"

#include <algorithm>

#include "qor/ss/matrix.h"

namespace orvik::ss {
namespace {

struct Row {
  uint64_t estimate;
  uint32_t running;  // one pass and user mean
  uint32_t fast;
  uint32_t finish;
};

// What each estimate needs, by method, as sets of `Work` bits.
constexpr Row kRows[] = {
    {ORVIK_SS_MEAN, 0x1, 0x1, 0x1001},
    {ORVIK_SS_RAW_MOMENT2, 0x2, 0x2, 0x2002},
    {ORVIK_SS_RAW_MOMENT3, 0x4, 0x4, 0x4004},
    {ORVIK_SS_RAW_MOMENT4, 0x8, 0x8, 0x8008},
    {ORVIK_SS_CENTRAL_MOMENT2, 0x13, 0x13, 0x10010},
    {ORVIK_SS_CENTRAL_MOMENT3, 0x27, 0x27, 0x20020},
    {ORVIK_SS_CENTRAL_MOMENT4, 0x4F, 0x4F, 0x40040},
    {ORVIK_SS_COVARIANCE, 0x81, 0x81, 0x80080},
    {ORVIK_SS_CORRELATION, 0x101, 0x101, 0x80100},
    {ORVIK_SS_KURTOSIS, 0x25F, 0x25F, 0x251},
    {ORVIK_SS_SKEWNESS, 0x437, 0x437, 0x431},
    {ORVIK_SS_VARIATION, 0x813, 0x813, 0x811},
    {ORVIK_SS_SUM, 0x1000, 0x1000, 0x100000},
    {ORVIK_SS_RAW_SUM2, 0x2000, 0x2000, 0x100000},
    {ORVIK_SS_RAW_SUM3, 0x4000, 0x4000, 0x100000},
    {ORVIK_SS_RAW_SUM4, 0x8000, 0x8000, 0x100000},
    {ORVIK_SS_CENTRAL_SUM2, 0x10001, 0x10003, 0x100000},
    {ORVIK_SS_CENTRAL_SUM3, 0x20001, 0x20007, 0x100000},
    {ORVIK_SS_CENTRAL_SUM4, 0x40001, 0x4000F, 0x100000},
    {ORVIK_SS_CROSS_PRODUCT, 0x80001, 0x80001, 0x100000},
};

struct Output {
  void* Task::*field;
  int32_t missing;  // status at compute time; that of `sum` is its own here
};

constexpr Output kOutputs[] = {
    {&Task::mean, -4006},
    {&Task::rawMoment2, -4007},
    {&Task::rawMoment3, -4008},
    {&Task::rawMoment4, -4009},
    {&Task::centralMoment2, -4010},
    {&Task::centralMoment3, -4011},
    {&Task::centralMoment4, -4012},
    {&Task::covariance, -4018},
    {&Task::correlation, -4019},
    {&Task::kurtosis, -4013},
    {&Task::skewness, -4014},
    {&Task::variation, -4017},
    {&Task::sum, -4074},
    {&Task::rawSum2, -4075},
    {&Task::rawSum3, -4076},
    {&Task::rawSum4, -4077},
    {&Task::centralSum2, -4078},
    {&Task::centralSum3, -4079},
    {&Task::centralSum4, -4080},
    {&Task::crossProduct, -4081},
};

bool find_method(uint64_t word, Method* method) {
  switch (word & (ORVIK_SS_METHOD_FAST | ORVIK_SS_METHOD_ONE_PASS | ORVIK_SS_METHOD_USER_MEAN)) {
    case ORVIK_SS_METHOD_FAST:
      *method = Method::Fast;
      return true;
    case ORVIK_SS_METHOD_ONE_PASS:
      *method = Method::OnePass;
      return true;
    case ORVIK_SS_METHOD_USER_MEAN:
      *method = Method::UserMean;
      return true;
    case 0:
      *method = Method::Finish;
      break;
    default:
      return false;
  }
  return (word & (ORVIK_SS_METHOD_FROM_CROSS_PRODUCT | ORVIK_SS_METHOD_FROM_SUMS)) != 0;
}

uint32_t work_list(uint64_t estimates, Method method) {
  uint32_t work = 0;
  for (const Row& row : kRows) {
    if ((estimates & row.estimate) == 0) continue;
    work |= method == Method::Fast ? row.fast : method == Method::Finish ? row.finish : row.running;
  }
  return work;
}

int32_t check_outputs(const Task& task, const Plan& plan) {
  for (int bit = 0; bit < kNotAllowed; ++bit) {
    if (plan.has(bit) && output(task, bit) == nullptr) return kOutputs[bit].missing;
  }
  return plan.has(kNotAllowed) ? kBadMethod : kDone;
}

int32_t check_data(const Task& task) {
  if (const int32_t status = check_observations(task); status != kDone) return status;
  if (const int32_t status = check_storage(task); status != kDone) return status;
  return task.weights != nullptr && task.accumulatedWeights == nullptr ? kNoAccumulatedWeights : kDone;
}

int32_t check_sums(const Task& task) {
  return task.accumulatedWeights == nullptr && task.observationCount == nullptr ? kNoAccumulatedWeights : kDone;
}

int32_t check_matrix_storage(const Task& task, const Plan& plan) {
  constexpr std::pair<int, void * Task::*> kMatrices[] = {{kCovariance, &Task::covarianceStorage},
                                                          {kCorrelation, &Task::correlationStorage},
                                                          {kCrossProduct, &Task::crossProductStorage}};
  for (const auto& [bit, storage] : kMatrices) {
    if (!plan.has(bit)) continue;
    if (const int32_t status = check_matrix_storage(task, task.*storage); status != kDone) return status;
  }
  return kDone;
}

int highest(const Plan& plan, int order, int first_bit) {
  for (int k = 2; k <= 4; ++k) {
    if (plan.has(first_bit + k - 2)) order = std::max(order, k);
  }
  return order;
}

}  // namespace

void* output(const Task& task, int bit) { return task.*kOutputs[bit].field; }

int Plan::power_order() const {
  int order = has(kSum) || (method == Method::Fast && has(kMean)) ? 1 : 0;
  order = highest(*this, order, kRaw2);
  order = highest(*this, order, kRawSum2);
  if (method == Method::UserMean) {
    order = highest(*this, order, kCentral2);
    order = highest(*this, order, kCentralSum2);
  }
  const bool sums = has(kSum) || highest(*this, 0, kRawSum2) != 0;
  // Running central sums give the raw moments too.
  return sums || order > central_order() ? order : 0;
}

int Plan::central_order() const {
  if (method != Method::OnePass) return 0;
  return highest(*this, highest(*this, has(kMean) ? 1 : 0, kCentral2), kCentralSum2);
}

int32_t make_plan(const Task& task, uint64_t estimates, uint64_t method, Plan* plan) {
  if (!find_method(method, &plan->method)) return kBadMethod;
  plan->work = work_list(estimates, plan->method);
  if (const int32_t status = check_outputs(task, *plan); status != kDone) return status;
  const int32_t status = plan->method == Method::Finish ? check_sums(task) : check_data(task);
  return status != kDone ? status : check_matrix_storage(task, *plan);
}

}  // namespace orvik::ss
