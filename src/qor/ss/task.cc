// Making, editing and releasing a task. Setters store pointers and read nothing behind them.
#include "qor/ss/task.h"

#include <cstring>
#include <initializer_list>

#include "orvik/serv.h"
#include "serv/memory.h"

namespace orvik::ss {
namespace {

int32_t check_new(const void* p, const void* n, const void* storage, const void* x, const Task& reader) {
  if (p == nullptr || reader.integer(p) < 1) return kBadDimension;
  if (x == nullptr) return kDone;
  if (storage == nullptr) return missing_field::observationStorage;
  const int64_t code = reader.integer(storage);
  if (code != ORVIK_SS_STORAGE_ROWS && code != ORVIK_SS_STORAGE_COLUMNS) return kBadStorage;
  return n == nullptr || reader.integer(n) < 1 ? kBadCount : kDone;
}

int32_t new_task(OrvikSSTask* task, const void* p, const void* n, const void* storage, const void* x,
                 const void* weights, const void* indices, int32_t integerWidth, int32_t precision) {
  Task fields;
  memset(static_cast<void*>(&fields), 0, sizeof fields);
  fields.integerWidth = integerWidth;
  if (const int32_t status = check_new(p, n, storage, x, fields); status != kDone) return status;
  fields.layoutTag = 2;
  fields.precision = precision;
  fields.dimension = const_cast<void*>(p);
  fields.observationCount = const_cast<void*>(n);
  fields.variableIndices = const_cast<void*>(indices);
  fields.observations = const_cast<void*>(x);
  fields.weights = const_cast<void*>(weights);
  fields.observationStorage = const_cast<void*>(storage);
  void* record = orvik_serv_allocate(sizeof(Task), serv::kAlignment);
  *task = record;
  if (record == nullptr) return kNoMemory;
  memcpy(record, &fields, sizeof fields);
  return kDone;
}

int32_t edit(OrvikSSTask task, int32_t id, Kind kind, const void* value) {
  if (task == nullptr) return kNoTask;
  for (const Field& field : kFields) {
    if (field.id != id || field.kind != kind) continue;
    if (value == nullptr) return field.status;
    static_cast<Task*>(task)->*field.member = const_cast<void*>(value);
    return kDone;
  }
  return kUnknownField;
}

struct Assignment {
  void* Task::*member;
  const void* value;
};

int32_t edit_group(OrvikSSTask task, std::initializer_list<Assignment> assignments) {
  if (task == nullptr) return kNoTask;
  for (const Assignment& a : assignments) {
    if (a.value != nullptr) static_cast<Task*>(task)->*a.member = const_cast<void*>(a.value);
  }
  return kDone;
}

int32_t delete_task(OrvikSSTask* handle) {
  if (handle == nullptr) return kNoTask;
  auto* task = static_cast<Task*>(*handle);
  if (task == nullptr) return kNoTask;
  orvik_serv_deallocate(task->meanScratch);
  for (int32_t i = 0; i < task->cleanupCount; ++i) task->cleanupList[i](task);
  orvik_serv_deallocate(task);
  *handle = nullptr;
  return kDone;
}

}  // namespace
}  // namespace orvik::ss

using orvik::ss::Kind;
using orvik::ss::Task;

extern "C" {

int32_t __qoriSSEditTask(OrvikSSTask task, int32_t id, const void* value) {
  return orvik::ss::edit(task, id, Kind::Integer, value);
}

int32_t __qorSSDeleteTask(OrvikSSTask* task) { return orvik::ss::delete_task(task); }

#define ORVIK_SET(name) \
  { &Task::name, name }
#define ORVIK_SS_SETTERS(d, real, precision)                                                                          \
  int32_t __qor##d##SSNewTask(OrvikSSTask* task, const void* p, const void* n, const void* storage, const real* x,    \
                              const real* weights, const void* indices, int32_t integerWidth) {                       \
    return orvik::ss::new_task(task, p, n, storage, x, weights, indices, integerWidth, precision);                    \
  }                                                                                                                   \
  int32_t __qor##d##SSEditTask(OrvikSSTask task, int32_t id, const real* value) {                                     \
    return orvik::ss::edit(task, id, Kind::Real, value);                                                              \
  }                                                                                                                   \
  int32_t __qor##d##SSEditMoments(OrvikSSTask task, real* mean, real* rawMoment2, real* rawMoment3, real* rawMoment4, \
                                  real* centralMoment2, real* centralMoment3, real* centralMoment4) {                 \
    return orvik::ss::edit_group(                                                                                     \
        task, {ORVIK_SET(mean), ORVIK_SET(rawMoment2), ORVIK_SET(rawMoment3), ORVIK_SET(rawMoment4),                  \
               ORVIK_SET(centralMoment2), ORVIK_SET(centralMoment3), ORVIK_SET(centralMoment4)});                     \
  }                                                                                                                   \
  int32_t __qor##d##SSEditSums(OrvikSSTask task, real* sum, real* rawSum2, real* rawSum3, real* rawSum4,              \
                               real* centralSum2, real* centralSum3, real* centralSum4) {                             \
    return orvik::ss::edit_group(task, {ORVIK_SET(sum), ORVIK_SET(rawSum2), ORVIK_SET(rawSum3), ORVIK_SET(rawSum4),   \
                                        ORVIK_SET(centralSum2), ORVIK_SET(centralSum3), ORVIK_SET(centralSum4)});     \
  }                                                                                                                   \
  int32_t __qor##d##SSEditCovCor(OrvikSSTask task, real* mean, real* covariance, const void* covarianceStorage,       \
                                 real* correlation, const void* correlationStorage) {                                 \
    return orvik::ss::edit_group(task, {ORVIK_SET(mean), ORVIK_SET(covariance), ORVIK_SET(covarianceStorage),         \
                                        ORVIK_SET(correlation), ORVIK_SET(correlationStorage)});                      \
  }                                                                                                                   \
  int32_t __qor##d##SSEditCP(OrvikSSTask task, real* mean, real* sum, real* crossProduct,                             \
                             const void* crossProductStorage) {                                                       \
    return orvik::ss::edit_group(                                                                                     \
        task, {ORVIK_SET(mean), ORVIK_SET(sum), ORVIK_SET(crossProduct), ORVIK_SET(crossProductStorage)});            \
  }                                                                                                                   \
  int32_t __qor##d##SSEditPartialCovCor(                                                                              \
      OrvikSSTask task, const void* partialCovarianceIndices, real* covariance, const void* covarianceStorage,        \
      real* correlation, const void* correlationStorage, real* partialCovariance,                                     \
      const void* partialCovarianceStorage, real* partialCorrelation, const void* partialCorrelationStorage) {        \
    return orvik::ss::edit_group(                                                                                     \
        task,                                                                                                         \
        {ORVIK_SET(partialCovarianceIndices), ORVIK_SET(covariance), ORVIK_SET(covarianceStorage),                    \
         ORVIK_SET(correlation), ORVIK_SET(correlationStorage), ORVIK_SET(partialCovariance),                         \
         ORVIK_SET(partialCovarianceStorage), ORVIK_SET(partialCorrelation), ORVIK_SET(partialCorrelationStorage)});  \
  }                                                                                                                   \
  int32_t __qor##d##SSEditQuantiles(OrvikSSTask task, const void* quantileOrderCount, const real* quantileOrders,     \
                                    real* quantiles, real* orderStatistics, const void* orderStatisticsStorage) {     \
    return orvik::ss::edit_group(task,                                                                                \
                                 {ORVIK_SET(quantileOrderCount), ORVIK_SET(quantileOrders), ORVIK_SET(quantiles),     \
                                  ORVIK_SET(orderStatistics), ORVIK_SET(orderStatisticsStorage)});                    \
  }                                                                                                                   \
  int32_t __qor##d##SSEditStreamQuantiles(OrvikSSTask task, const void* streamOrderCount, const real* streamOrders,   \
                                          real* streamQuantiles, const void* streamParameterCount,                    \
                                          const real* streamParameters) {                                             \
    return orvik::ss::edit_group(task,                                                                                \
                                 {ORVIK_SET(streamOrderCount), ORVIK_SET(streamOrders), ORVIK_SET(streamQuantiles),   \
                                  ORVIK_SET(streamParameterCount), ORVIK_SET(streamParameters)});                     \
  }                                                                                                                   \
  int32_t __qor##d##SSEditPooledCovariance(OrvikSSTask task, const void* groupIndices, real* pooledMean,              \
                                           real* pooledCovariance, const void* groupCovarianceIndices,                \
                                           real* groupMeans, real* groupCovariances) {                                \
    return orvik::ss::edit_group(                                                                                     \
        task, {ORVIK_SET(groupIndices), ORVIK_SET(pooledMean), ORVIK_SET(pooledCovariance),                           \
               ORVIK_SET(groupCovarianceIndices), ORVIK_SET(groupMeans), ORVIK_SET(groupCovariances)});               \
  }                                                                                                                   \
  int32_t __qor##d##SSEditMissingVals(                                                                                \
      OrvikSSTask task, const void* imputationParameterCount, const real* imputationParameters,                       \
      const void* initialEstimateCount, const real* initialEstimates, const void* priorCount, const real* prior,      \
      const void* simulatedValueCount, real* simulatedValues, const void* estimateCount, real* estimates) {           \
    return orvik::ss::edit_group(                                                                                     \
        task, {ORVIK_SET(imputationParameterCount), ORVIK_SET(imputationParameters), ORVIK_SET(initialEstimateCount), \
               ORVIK_SET(initialEstimates), ORVIK_SET(priorCount), ORVIK_SET(prior), ORVIK_SET(simulatedValueCount),  \
               ORVIK_SET(simulatedValues), ORVIK_SET(estimateCount), ORVIK_SET(estimates)});                          \
  }                                                                                                                   \
  int32_t __qor##d##SSEditOutDetect(OrvikSSTask task, const void* outlierParameterCount,                              \
                                    const real* outlierParameters, real* outlierWeights) {                            \
    return orvik::ss::edit_group(                                                                                     \
        task, {ORVIK_SET(outlierParameterCount), ORVIK_SET(outlierParameters), ORVIK_SET(outlierWeights)});           \
  }                                                                                                                   \
  int32_t __qor##d##SSEditRCov(OrvikSSTask task, const void* robustCovarianceStorage,                                 \
                               const void* robustParameterCount, const real* robustParameters, real* robustMean,      \
                               real* robustCovariance) {                                                              \
    return orvik::ss::edit_group(                                                                                     \
        task, {ORVIK_SET(robustCovarianceStorage), ORVIK_SET(robustParameterCount), ORVIK_SET(robustParameters),      \
               ORVIK_SET(robustMean), ORVIK_SET(robustCovariance)});                                                  \
  }                                                                                                                   \
  int32_t __qor##d##SSEditMtxParametrz(OrvikSSTask task, real* correlation, const void* correlationStorage,           \
                                       real* parametrizedCorrelation, const void* parametrizedCorrelationStorage) {   \
    return orvik::ss::edit_group(                                                                                     \
        task, {ORVIK_SET(correlation), ORVIK_SET(correlationStorage), ORVIK_SET(parametrizedCorrelation),             \
               ORVIK_SET(parametrizedCorrelationStorage)});                                                           \
  }

ORVIK_SS_SETTERS(d, double, 1)
ORVIK_SS_SETTERS(s, float, 0)

}  // extern "C"
