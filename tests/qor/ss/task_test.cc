// The task record: creation, setters by id, group setters, release.
#include "qor/ss/task.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

#include "qor/ss/support.h"
#include "serv/memory.h"

namespace orvik::ss::test {
namespace {

const int32_t kOne = 1, kZero = 0, kRows = 0x10000, kBoth = 0x30000;
const double kData[4] = {1, 2, 3, 4};

struct Made {
  OrvikSSTask task = nullptr;
  Made() { EXPECT_EQ(__qordSSNewTask(&task, &kOne, &kOne, &kRows, kData, nullptr, nullptr, 0), 0); }
  ~Made() { __qorSSDeleteTask(&task); }
  Task& record() { return *static_cast<Task*>(task); }
};

TEST(Task, CreationTestsItsArgumentsInOrder) {
  OrvikSSTask task = nullptr;
  EXPECT_EQ(__qordSSNewTask(&task, nullptr, nullptr, nullptr, kData, nullptr, nullptr, 0), -4001);
  EXPECT_EQ(__qordSSNewTask(&task, &kZero, nullptr, nullptr, kData, nullptr, nullptr, 0), -4001);
  EXPECT_EQ(__qordSSNewTask(&task, &kOne, nullptr, nullptr, kData, nullptr, nullptr, 0), -4044);
  EXPECT_EQ(__qordSSNewTask(&task, &kOne, nullptr, &kBoth, kData, nullptr, nullptr, 0), -4003);
  EXPECT_EQ(__qordSSNewTask(&task, &kOne, nullptr, &kRows, kData, nullptr, nullptr, 0), -4002);
  EXPECT_EQ(__qordSSNewTask(&task, &kOne, &kZero, &kRows, kData, nullptr, nullptr, 0), -4002);
  EXPECT_EQ(task, nullptr);
}

TEST(Task, WithoutDataNeitherCountNorStorageIsLookedAt) {
  OrvikSSTask task = nullptr;
  EXPECT_EQ(__qordSSNewTask(&task, &kOne, nullptr, nullptr, nullptr, nullptr, nullptr, 0), 0);
  EXPECT_EQ(__qorSSDeleteTask(&task), 0);
  EXPECT_EQ(__qorsSSNewTask(&task, &kOne, &kZero, &kBoth, nullptr, nullptr, nullptr, 0), 0);
  EXPECT_EQ(__qorSSDeleteTask(&task), 0);
}

TEST(Task, ExhaustedMemoryNullsTheHandle) {
  OrvikSSTask task = &task;
  serv::fail_allocation_after(1);
  EXPECT_EQ(__qordSSNewTask(&task, &kOne, &kOne, &kRows, kData, nullptr, nullptr, 0), -4000);
  serv::fail_allocation_after(0);
  EXPECT_EQ(task, nullptr);
}

TEST(Task, HoldsWhatItWasMadeWithAndNothingElse) {
  const int64_t p = 2, n = 2, storage = 0x20000;
  const float x[4] = {}, w[2] = {1, 1};
  const int32_t flags[2] = {1, 1};
  OrvikSSTask handle = nullptr;
  ASSERT_EQ(__qorsSSNewTask(&handle, &p, &n, &storage, x, w, flags, 1), 0);
  const Task& task = *static_cast<Task*>(handle);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(handle) % 128, 0u);
  EXPECT_EQ(task.integerWidth, 1);
  EXPECT_EQ(task.layoutTag, 2);
  EXPECT_EQ(task.precision, 0);
  EXPECT_EQ(task.p(), 2);
  int set = 0;
  for (const Field& field : kFields) set += task.*field.member != nullptr;
  EXPECT_EQ(set, 6);
  EXPECT_EQ(task.observations, x);
  EXPECT_EQ(task.weights, w);
  EXPECT_EQ(task.variableIndices, flags);
  EXPECT_EQ(task.streamState, nullptr);
  EXPECT_EQ(task.cleanupCount, 0);
  EXPECT_EQ(task.meanScratch, nullptr);
  __qorSSDeleteTask(&handle);
}

TEST(Task, IntegerAndRealSettersTakeTheirOwnIdsOnly) {
  const int32_t integers[] = {1,  2,  4,  5,  20, 22, 24, 28, 29, 32, 34, 36, 37, 41,
                              44, 45, 47, 49, 50, 52, 54, 56, 58, 61, 62, 64, 75, 79};
  Made made;
  const float single = 0;
  for (int32_t id = -2; id <= 90; ++id) {
    const bool integer = std::find(std::begin(integers), std::end(integers), id) != std::end(integers);
    const bool real = !integer && id >= 3 && id <= 78;
    EXPECT_EQ(__qoriSSEditTask(made.task, id, &kOne), integer ? 0 : -3) << id;
    EXPECT_EQ(__qordSSEditTask(made.task, id, kData), real ? 0 : -3) << id;
    EXPECT_EQ(__qorsSSEditTask(made.task, id, &single), real ? 0 : -3) << id;
    EXPECT_EQ(__qoriSSEditTask(nullptr, id, &kOne), -4031);
    EXPECT_EQ(__qordSSEditTask(nullptr, id, kData), -4031);
  }
}

TEST(Task, EverySetterStoresItsFieldAndRefusesNullWithItsStatus) {
  Made made;
  for (const Field& field : kFields) {
    const bool integer = field.kind == Kind::Integer;
    auto set = [&](const void* value) {
      return integer ? __qoriSSEditTask(made.task, field.id, value)
                     : __qordSSEditTask(made.task, field.id, static_cast<const double*>(value));
    };
    EXPECT_EQ(set(kData), 0);
    EXPECT_EQ(made.record().*field.member, kData) << field.name;
    EXPECT_EQ(set(nullptr), field.status) << field.name;
    EXPECT_EQ(made.record().*field.member, kData) << field.name << " keeps its former value";
  }
}

TEST(Task, NullStatusesOfSumAndMeanAreOne) {
  Made made;
  EXPECT_EQ(__qordSSEditTask(made.task, OrvikSS_sum, nullptr), -4006);
  EXPECT_EQ(__qordSSEditTask(made.task, OrvikSS_mean, nullptr), -4006);
  EXPECT_EQ(__qordSSEditTask(made.task, OrvikSS_crossProduct, nullptr), -4081);
  EXPECT_EQ(__qoriSSEditTask(made.task, OrvikSS_sortedStorage, nullptr), -4044);
}

// Distinct addresses for the arguments of a group setter.
double* address(int k) {
  static double cells[16];
  return cells + k;
}

template <class... Members>
void expect_fields(Made& made, Members... members) {
  int k = 0;
  for (void* Task::*member : {members...}) EXPECT_EQ(made.record().*member, address(k++)) << "argument " << k;
}

TEST(Task, GroupSettersSetTheirFieldsInOrder) {
  Made m;
  auto a = address;
  EXPECT_EQ(__qordSSEditMoments(m.task, a(0), a(1), a(2), a(3), a(4), a(5), a(6)), 0);
  expect_fields(m, &Task::mean, &Task::rawMoment2, &Task::rawMoment3, &Task::rawMoment4, &Task::centralMoment2,
                &Task::centralMoment3, &Task::centralMoment4);
  EXPECT_EQ(__qordSSEditSums(m.task, a(0), a(1), a(2), a(3), a(4), a(5), a(6)), 0);
  expect_fields(m, &Task::sum, &Task::rawSum2, &Task::rawSum3, &Task::rawSum4, &Task::centralSum2, &Task::centralSum3,
                &Task::centralSum4);
  EXPECT_EQ(__qordSSEditCovCor(m.task, a(0), a(1), a(2), a(3), a(4)), 0);
  expect_fields(m, &Task::mean, &Task::covariance, &Task::covarianceStorage, &Task::correlation,
                &Task::correlationStorage);
  EXPECT_EQ(__qordSSEditCP(m.task, a(0), a(1), a(2), a(3)), 0);
  expect_fields(m, &Task::mean, &Task::sum, &Task::crossProduct, &Task::crossProductStorage);
  EXPECT_EQ(__qordSSEditPartialCovCor(m.task, a(0), a(1), a(2), a(3), a(4), a(5), a(6), a(7), a(8)), 0);
  expect_fields(m, &Task::partialCovarianceIndices, &Task::covariance, &Task::covarianceStorage, &Task::correlation,
                &Task::correlationStorage, &Task::partialCovariance, &Task::partialCovarianceStorage,
                &Task::partialCorrelation, &Task::partialCorrelationStorage);
  EXPECT_EQ(__qordSSEditQuantiles(m.task, a(0), a(1), a(2), a(3), a(4)), 0);
  expect_fields(m, &Task::quantileOrderCount, &Task::quantileOrders, &Task::quantiles, &Task::orderStatistics,
                &Task::orderStatisticsStorage);
  EXPECT_EQ(__qordSSEditStreamQuantiles(m.task, a(0), a(1), a(2), a(3), a(4)), 0);
  expect_fields(m, &Task::streamOrderCount, &Task::streamOrders, &Task::streamQuantiles, &Task::streamParameterCount,
                &Task::streamParameters);
  EXPECT_EQ(__qordSSEditPooledCovariance(m.task, a(0), a(1), a(2), a(3), a(4), a(5)), 0);
  expect_fields(m, &Task::groupIndices, &Task::pooledMean, &Task::pooledCovariance, &Task::groupCovarianceIndices,
                &Task::groupMeans, &Task::groupCovariances);
  EXPECT_EQ(__qordSSEditMissingVals(m.task, a(0), a(1), a(2), a(3), a(4), a(5), a(6), a(7), a(8), a(9)), 0);
  expect_fields(m, &Task::imputationParameterCount, &Task::imputationParameters, &Task::initialEstimateCount,
                &Task::initialEstimates, &Task::priorCount, &Task::prior, &Task::simulatedValueCount,
                &Task::simulatedValues, &Task::estimateCount, &Task::estimates);
  EXPECT_EQ(__qordSSEditOutDetect(m.task, a(0), a(1), a(2)), 0);
  expect_fields(m, &Task::outlierParameterCount, &Task::outlierParameters, &Task::outlierWeights);
  EXPECT_EQ(__qordSSEditRCov(m.task, a(0), a(1), a(2), a(3), a(4)), 0);
  expect_fields(m, &Task::robustCovarianceStorage, &Task::robustParameterCount, &Task::robustParameters,
                &Task::robustMean, &Task::robustCovariance);
  EXPECT_EQ(__qordSSEditMtxParametrz(m.task, a(0), a(1), a(2), a(3)), 0);
  expect_fields(m, &Task::correlation, &Task::correlationStorage, &Task::parametrizedCorrelation,
                &Task::parametrizedCorrelationStorage);
  EXPECT_EQ(__qordSSEditMoments(nullptr, a(0), a(1), a(2), a(3), a(4), a(5), a(6)), -4031);
}

TEST(Task, NullInAGroupSetterLeavesItsFieldAlone) {
  Made m;
  EXPECT_EQ(__qordSSEditMoments(m.task, address(3), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(__qordSSEditMoments(m.task, nullptr, address(4), nullptr, nullptr, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(m.record().mean, address(3));
  EXPECT_EQ(m.record().rawMoment2, address(4));
}

int cleaned = 0;

TEST(Task, DeletionReleasesWhatTheTaskOwnsAndNullsTheHandle) {
  EXPECT_EQ(__qorSSDeleteTask(nullptr), -4031);
  const int64_t live = serv::live_allocations();
  Made m;
  const Task::Cleanup list[] = {[](void*) { cleaned = cleaned * 10 + 1; }, [](void*) { cleaned = cleaned * 10 + 2; }};
  m.record().cleanupCount = 2;
  m.record().cleanupList = list;
  m.record().meanScratch = orvik_serv_allocate(8, 128);
  EXPECT_EQ(__qorSSDeleteTask(&m.task), 0);
  EXPECT_EQ(cleaned, 12) << "in order";
  EXPECT_EQ(m.task, nullptr);
  EXPECT_EQ(serv::live_allocations(), live);
}

TEST(Task, DeletionLeavesTheArraysThatWereNamed) {
  // Blocks of the library's own allocator: a deletion that released them would be counted.
  std::vector<double*> arrays;
  Made m;
  const int64_t live = serv::live_allocations();
  for (const Field& field : kFields) {
    if (field.kind == Kind::Integer) continue;
    arrays.push_back(static_cast<double*>(orvik_serv_allocate(sizeof(double), 128)));
    *arrays.back() = field.id;
    ASSERT_EQ(__qordSSEditTask(m.task, field.id, arrays.back()), 0) << field.name;
  }
  const int64_t count = static_cast<int64_t>(arrays.size());
  EXPECT_GT(count, 40);
  EXPECT_EQ(__qorSSDeleteTask(&m.task), 0);
  EXPECT_EQ(m.task, nullptr);
  EXPECT_EQ(serv::live_allocations(), live + count - 1) << "the record alone is gone";
  size_t k = 0;
  for (const Field& field : kFields) {
    if (field.kind == Kind::Integer) continue;
    EXPECT_EQ(*arrays[k], field.id) << field.name;
    orvik_serv_deallocate(arrays[k++]);
  }
}

// The table of fields in the user's page is the library's.
TEST(Task, DocumentationNamesEveryFieldWithItsIdAndStatus) {
  std::ifstream file(ORVIK_DOCS "/statistics.md");
  ASSERT_TRUE(file);
  std::stringstream text;
  text << file.rdbuf();
  for (const Field& field : kFields) {
    const std::string row = "| `" + std::string(field.name) + "` | " + std::to_string(field.id) + " | " +
                            (field.kind == Kind::Integer ? "integer" : "real") + " | " + std::to_string(field.status) +
                            " |";
    EXPECT_NE(text.str().find(row), std::string::npos) << row;
  }
}

}  // namespace
}  // namespace orvik::ss::test
