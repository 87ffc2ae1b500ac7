#include "qor/ss/plan.h"

#include <algorithm>
#include <bit>
#include <iterator>

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

// Statuses at compute time of results without a field; that of `sum` is its own here.
constexpr int32_t kMissing[] = {missing_field::mean,
                                missing_field::rawMoment2,
                                missing_field::rawMoment3,
                                missing_field::rawMoment4,
                                missing_field::centralMoment2,
                                missing_field::centralMoment3,
                                missing_field::centralMoment4,
                                missing_field::covariance,
                                missing_field::correlation,
                                missing_field::kurtosis,
                                missing_field::skewness,
                                missing_field::variation,
                                kNoSum,
                                missing_field::rawSum2,
                                missing_field::rawSum3,
                                missing_field::rawSum4,
                                missing_field::centralSum2,
                                missing_field::centralSum3,
                                missing_field::centralSum4,
                                missing_field::crossProduct};
static_assert(std::size(kMissing) == std::size(kOutputs));

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

// The rows' sets by the number of the estimate's bit.
struct Needs {
  uint64_t known = 0;
  uint32_t of[64] = {};

  constexpr explicit Needs(uint32_t Row::*set) {
    for (const Row& row : kRows) known |= row.estimate, of[std::countr_zero(row.estimate)] = row.*set;
  }
};
constexpr Needs kRunning(&Row::running), kFast(&Row::fast), kFinish(&Row::finish);

uint32_t work_list(uint64_t estimates, Method method) {
  const Needs& needs = method == Method::Fast ? kFast : method == Method::Finish ? kFinish : kRunning;
  uint32_t work = 0;
  for (estimates &= needs.known; estimates != 0; estimates &= estimates - 1) {
    work |= needs.of[std::countr_zero(estimates)];
  }
  return work;
}

int32_t check_outputs(const Task& task, uint32_t work) {
  for (; work != 0; work &= work - 1) {
    const int bit = std::countr_zero(work);
    if (bit == kNotAllowed) return kBadMethod;
    if (output(task, bit) == nullptr) return kMissing[bit];
  }
  return kDone;
}

int32_t check_data(const Task& task) {
  if (const int32_t status = check_observations(task); status != kDone) return status;
  if (const int32_t status = check_storage(task); status != kDone) return status;
  return task.weights != nullptr && task.accumulatedWeights == nullptr ? missing_field::accumulatedWeights : kDone;
}

int32_t check_sums(const Task& task) {
  return task.accumulatedWeights == nullptr && task.observationCount == nullptr ? missing_field::accumulatedWeights
                                                                                : kDone;
}

int32_t check_matrix_storages(const Task& task, const Plan& plan) {
  if (!plan.matrix()) return kDone;
  constexpr std::pair<int, void * Task::*> kMatrices[] = {{kCovariance, &Task::covarianceStorage},
                                                          {kCorrelation, &Task::correlationStorage},
                                                          {kCrossProduct, &Task::crossProductStorage}};
  for (const auto& [bit, storage] : kMatrices) {
    if (!plan.has(bit)) continue;
    if (const int32_t status = check_matrix_storage(task, task.*storage); status != kDone) return status;
  }
  return kDone;
}

// Of three orders whose bits follow each other.
int highest(const Plan& plan, int first_bit) {
  const uint32_t orders = plan.work >> first_bit & 7;
  return orders == 0 ? 0 : 1 + std::bit_width(orders);
}

int central_order(const Plan& plan) {
  if (plan.method != Method::OnePass) return 0;
  return std::max({plan.has(kMean) ? 1 : 0, highest(plan, kCentral2), highest(plan, kCentralSum2)});
}

// Whether what is asked for tells the central sums of orders 2 to `order` of the blocks before.
bool keeps_central_sums(const Plan& plan, int order) {
  bool raw = true;
  for (int k = 2; k <= order; ++k) {
    raw = raw && plan.has(kRaw2 + k - 2);
    if (!raw && !plan.has(kCentral2 + k - 2) && !plan.has(kCentralSum2 + k - 2)) return false;
  }
  return true;
}

int power_order(const Plan& plan) {
  const int sums = std::max(plan.has(kSum) ? 1 : 0, highest(plan, kRawSum2));
  int order = std::max(sums, highest(plan, kRaw2));
  if (plan.method == Method::Fast && plan.has(kMean)) order = std::max(order, 1);
  if (plan.method == Method::UserMean) {
    order = std::max({order, highest(plan, kCentral2), highest(plan, kCentralSum2)});
  }
  // Running central sums give the raw moments too, where the run keeps all that it takes.
  return sums != 0 || order > plan.central || !keeps_central_sums(plan, order) ? order : 0;
}

}  // namespace

int32_t make_plan(const Task& task, uint64_t estimates, uint64_t method, Plan* plan) {
  if (!find_method(method, &plan->method)) return kBadMethod;
  plan->work = work_list(estimates, plan->method);
  if (const int32_t status = check_outputs(task, plan->work); status != kDone) return status;
  plan->central = central_order(*plan);
  plan->power = power_order(*plan);
  const int32_t status = plan->method == Method::Finish ? check_sums(task) : check_data(task);
  if (status != kDone) return status;
  if (task.p() < 1) return kBadDimension;  // less than when the task was made
  return check_matrix_storages(task, *plan);
}

}  // namespace orvik::ss
