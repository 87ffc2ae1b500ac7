// The task record: tests of arguments in their order, edits, queries, and the asymmetries between them.
#include "df/task/task.h"

#include "df/support.h"

namespace orvik::df::test {
namespace {

template <class Real>
class TaskTest : public ::testing::Test {
 protected:
  using E = Entries<Real>;
  std::vector<Real> x = {0, 1, 2, 4, 8};
  std::vector<Real> y = random_values<Real>(15);
};
TYPED_TEST_SUITE(TaskTest, Reals);

TYPED_TEST(TaskTest, CreationTestsItsArgumentsInOrder) {
  using E = Entries<TypeParam>;
  const TypeParam* x = this->x.data();
  const TypeParam* y = this->y.data();
  OrvikDFTask task = nullptr;
  EXPECT_EQ(E::make(&task, 1, nullptr, 3, 0, y, 7, 0), DFS_BAD_BREAKPOINT_COUNT);
  EXPECT_EQ(E::make(&task, 2, nullptr, 3, 0, y, 7, 0), DFS_BAD_BREAKPOINTS);
  for (int64_t hint : {3, 5, -1}) EXPECT_EQ(E::make(&task, 2, x, hint, 0, y, 7, 0), DFS_BAD_PARTITION_HINT);
  EXPECT_EQ(E::make(&task, 2, x, 2, 0, y, 7, 0), DFS_BAD_FUNCTION_COUNT);
  EXPECT_EQ(E::make(&task, 2, x, 2, 1, nullptr, 7, 0), DFS_BAD_FUNCTIONS);
  for (int64_t hint : {1, 7, 17, 48, 64, 256, -16}) {
    EXPECT_EQ(E::make(&task, 2, x, 2, 1, y, hint, 0), DFS_BAD_FUNCTION_HINT);
  }
  EXPECT_EQ(task, nullptr);
}

TYPED_TEST(TaskTest, CreationFillsTheRecord) {
  using E = Entries<TypeParam>;
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 5, this->x.data(), 1, 3, this->y.data(), 16, 9), 0);
  const Task* record = as_task(task);
  EXPECT_EQ(record->index_width, 9);
  EXPECT_EQ(record->format_tag, 4);
  EXPECT_EQ(record->is_double, sizeof(TypeParam) == 8 ? 1 : 0);
  EXPECT_EQ(record->task_state, 1);
  for (int f = 0; f < 3; ++f) EXPECT_EQ(record->y_rows[f], this->y.data() + 5 * f);
  EXPECT_EQ(record->coeff_rows, nullptr);
  EXPECT_EQ(record->s_order, 0);
  EXPECT_EQ(record->validate_flag, 0);
}

TYPED_TEST(TaskTest, DeletingStoresNullAndRefusesNull) {
  using E = Entries<TypeParam>;
  OrvikDFTask task = nullptr;
  EXPECT_EQ(orvik_df_kernel_DeleteTask(&task), DFS_NO_TASK);
  EXPECT_EQ(orvik_df_kernel_DeleteTask(nullptr), DFS_NO_TASK);
  ASSERT_EQ(E::make(&task, 5, this->x.data(), 0, 3, this->y.data(), 0, 0), 0);
  EXPECT_EQ(orvik_df_kernel_DeleteTask(&task), 0);
  EXPECT_EQ(task, nullptr);
}

TYPED_TEST(TaskTest, NoFunctionsAtCreationSucceedsAndCoefficientsThenFail) {
  using E = Entries<TypeParam>;
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 5, this->x.data(), 1, 0, nullptr, 0, 0), 0);
  EXPECT_EQ(E::edit_pointer(task, DFP_COEFFICIENTS, this->y.data()), DFS_BAD_FUNCTION_COUNT);
  EXPECT_EQ(E::edit_pointer(task, DFP_FUNCTIONS, this->y.data()), 0);
  TypeParam* row = this->y.data();
  EXPECT_EQ(E::query_pointer(task, DFP_FUNCTIONS, &row), 0);
  EXPECT_EQ(row, nullptr);  // with no functions nothing is filled
}

TYPED_TEST(TaskTest, IntegerEditsTestTaskThenIdThenValue) {
  using E = Entries<TypeParam>;
  EXPECT_EQ(orvik_df_kernel_iEditVal(nullptr, 99, 0), DFS_NO_TASK);
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 5, this->x.data(), 1, 3, this->y.data(), 16, 0), 0);
  for (int32_t id : {0, 1, 5, 13, 24, -1}) EXPECT_EQ(orvik_df_kernel_iEditVal(task, id, 1), DFS_BAD_PARAMETER_ID);
  struct Case {
    int32_t id;
    int64_t value;
    int32_t status;
  };
  const Case cases[] = {{14, 2, 0},      {14, 1, -1004},  {14, -7, -1004}, {15, 0, 0},      {15, 2, 0},
                        {15, 4, 0},      {15, 3, -1006},  {15, 5, -1006},  {15, -1, -1006}, {16, 1, 0},
                        {16, 0, -1007},  {17, 0, 0},      {17, 16, 0},     {17, 32, 0},     {17, 128, 0},
                        {17, 33, -1009}, {17, 64, -1009}, {18, 0, 0},      {18, 7, 0},      {18, -1, -1010},
                        {19, 0, 0},      {19, 5, 0},      {19, 9, 0},      {19, 6, -1011},  {19, 7, -1011},
                        {19, 8, -1011},  {19, 10, -1011}, {19, -1, -1011}, {20, 0, 0},      {20, 2, 0},
                        {20, 8, 0},      {20, 12, 0},     {20, 3, -1012},  {20, 4, -1012},  {20, -8, 0},
                        {21, 0, 0},      {21, 999, 0},    {21, -1, -1014}, {22, 128, 0},    {22, 1, -1017},
                        {23, 0, 0},      {23, 1, 0},      {23, 2, -1036},  {23, -1, -1036}};
  for (const Case& c : cases) {
    EXPECT_EQ(orvik_df_kernel_iEditVal(task, c.id, c.value), c.status) << c.id << " " << c.value;
    int32_t now[2] = {0x55555555, 0x55555555};
    ASSERT_EQ(orvik_df_kernel_iQueryVal(task, c.id, now), 0);
    EXPECT_EQ(now[0] == static_cast<int32_t>(c.value), c.status == 0);
    EXPECT_EQ(now[1], 0x55555555);
  }
}

TYPED_TEST(TaskTest, QueriesAre64BitsWideWithAnIndexWidth) {
  using E = Entries<TypeParam>;
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 5, this->x.data(), 4, 3, this->y.data(), 16, 1), 0);
  ASSERT_EQ(orvik_df_kernel_iEditVal(task, DFP_BREAKPOINT_COUNT, 1LL << 40), 0);
  int64_t value = -1;
  ASSERT_EQ(orvik_df_kernel_iQueryVal(task, DFP_BREAKPOINT_COUNT, &value), 0);
  EXPECT_EQ(value, 1LL << 40);
  value = -1;
  ASSERT_EQ(orvik_df_kernel_iQueryVal(task, DFP_VALIDATE_FLAG, &value), 0);
  EXPECT_EQ(value, 0);
}

TYPED_TEST(TaskTest, PointerEditsRefuseNullAndUnknownIds) {
  using E = Entries<TypeParam>;
  EXPECT_EQ(E::edit_pointer(nullptr, 99, nullptr), DFS_NO_TASK);
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 5, this->x.data(), 1, 3, this->y.data(), 16, 0), 0);
  const int32_t expected[] = {DFS_BAD_BREAKPOINTS, DFS_BAD_FUNCTIONS, DFS_BAD_INTERNAL_VALUES, DFS_BAD_BOUNDARY_VALUES,
                              DFS_BAD_COEFFICIENTS};
  for (int32_t id = 1; id <= 5; ++id) EXPECT_EQ(E::edit_pointer(task, id, nullptr), expected[id - 1]);
  for (int32_t id : {0, 6, 14, -3}) {
    EXPECT_EQ(E::edit_pointer(task, id, nullptr), DFS_BAD_PARAMETER_ID);
    TypeParam* p = nullptr;
    EXPECT_EQ(E::query_pointer(task, id, &p), DFS_BAD_PARAMETER_ID);
  }
  for (int32_t id = 1; id <= 5; ++id) {
    ASSERT_EQ(E::edit_pointer(task, id, this->y.data() + id), 0);
    TypeParam* p = nullptr;
    ASSERT_EQ(E::query_pointer(task, id, &p), 0);
    EXPECT_EQ(p, this->y.data() + id);
  }
  EXPECT_EQ(E::query_pointer(task, 1, nullptr), DFS_NO_DESTINATION);
  EXPECT_EQ(orvik_df_kernel_iQueryVal(task, 1, nullptr), DFS_NO_DESTINATION);
  EXPECT_EQ(orvik_df_kernel_iQueryVal(nullptr, 1, nullptr), DFS_NO_TASK);
}

TYPED_TEST(TaskTest, CoefficientRowsAreLaidOutFromOrderTypeAndHintOfTheMoment) {
  using E = Entries<TypeParam>;
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 5, this->x.data(), 1, 3, this->y.data(), 16, 0), 0);
  std::vector<TypeParam> c(100);
  ASSERT_EQ(orvik_df_kernel_iEditVal(task, DFP_SPLINE_ORDER, 4), 0);
  ASSERT_EQ(E::edit_pointer(task, DFP_COEFFICIENTS, c.data()), 0);
  for (int f = 0; f < 3; ++f) EXPECT_EQ(as_task(task)->coeff_rows[f], c.data() + 16 * f);
  ASSERT_EQ(E::edit_spline(task, 3, 1, 2, nullptr, 0, nullptr, c.data(), 32), 0);
  for (int f = 0; f < 3; ++f) EXPECT_EQ(as_task(task)->coeff_rows[f], c.data() + 15 * f);  // nx intervals
  ASSERT_EQ(E::edit_spline(task, 3, 0, 2, nullptr, 0, nullptr, c.data(), 128), 0);
  EXPECT_EQ(as_task(task)->coeff_rows[0], c.data());
  EXPECT_EQ(as_task(task)->coeff_rows[1], nullptr);  // the others come one by one
  ASSERT_EQ(E::edit_row(task, DFP_COEFFICIENTS, 2, c.data() + 50), 0);
  EXPECT_EQ(as_task(task)->coeff_rows[2], c.data() + 50);
}

TYPED_TEST(TaskTest, NamingASplineTestsInOrderAndKeepsWhatItStored) {
  using E = Entries<TypeParam>;
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 5, this->x.data(), 1, 0, nullptr, 16, 1), 0);
  const TypeParam* v = this->y.data();
  EXPECT_EQ(E::edit_spline(nullptr, -1, -1, 3, nullptr, 1, nullptr, v, 0), DFS_NO_TASK);
  EXPECT_EQ(E::edit_spline(task, -1, -1, 3, nullptr, 1, nullptr, v, 0), DFS_BAD_SPLINE_ORDER);
  EXPECT_EQ(E::edit_spline(task, 4, -1, 3, nullptr, 1, nullptr, v, 0), DFS_BAD_SPLINE_TYPE);
  EXPECT_EQ(as_task(task)->s_order, 0);
  EXPECT_EQ(E::edit_spline(task, 4, 2, 3, nullptr, 1, nullptr, v, 0), DFS_BAD_BOUNDARY_VALUES);
  EXPECT_EQ(as_task(task)->s_order, 4);  // stays
  EXPECT_EQ(as_task(task)->bc_type, 0);
  EXPECT_EQ(E::edit_spline(task, 4, 2, 64, nullptr, 1, nullptr, v, 0), DFS_BAD_INTERNAL_VALUES);
  EXPECT_EQ(as_task(task)->bc_type, 64);
  EXPECT_EQ(E::edit_spline(task, 4, 2, 2, nullptr, 0, v, v, 0), DFS_BAD_INTERNAL_TYPE);
  EXPECT_EQ(E::edit_spline(task, 4, 2, 2, nullptr, 1, v, v, 16), DFS_BAD_FUNCTION_COUNT);
  EXPECT_EQ(as_task(task)->ic, v);
  EXPECT_EQ(as_task(task)->coeff_hint, 0);
  EXPECT_EQ(E::edit_spline(task, 0, 8, 2, nullptr, 1, v, nullptr, 16), 0);  // type 8 passes here only
  EXPECT_EQ(as_task(task)->s_type, 8);
  EXPECT_EQ(as_task(task)->coeff_hint, 16);
}

TYPED_TEST(TaskTest, RowEditsAndRowQueriesTestDifferently) {
  using E = Entries<TypeParam>;
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 5, this->x.data(), 1, 3, this->y.data(), 16, 0), 0);
  TypeParam* p = this->y.data();
  EXPECT_EQ(E::edit_row(nullptr, 2, 0, p), DFS_NO_TASK);
  EXPECT_EQ(E::edit_row(task, 3, 99, nullptr), DFS_BAD_PARAMETER_ID);
  EXPECT_EQ(E::edit_row(task, 2, 3, nullptr), DFS_BAD_INDEX);
  EXPECT_EQ(E::edit_row(task, 2, -1, nullptr), DFS_BAD_INDEX);
  EXPECT_EQ(E::edit_row(task, 2, 2, nullptr), DFS_BAD_FUNCTIONS);
  EXPECT_EQ(E::edit_row(task, 5, 2, nullptr), DFS_BAD_COEFFICIENTS);
  EXPECT_EQ(E::edit_row(task, 2, 2, p + 1), 0);
  EXPECT_EQ(E::query_row(nullptr, 3, 99, nullptr), DFS_NO_TASK);
  EXPECT_EQ(E::query_row(task, 3, 99, nullptr), DFS_NO_DESTINATION);
  EXPECT_EQ(E::query_row(task, 3, 99, &p), DFS_BAD_INDEX);  // the index before the id
  EXPECT_EQ(E::query_row(task, 3, -1, &p), DFS_BAD_INDEX);
  EXPECT_EQ(E::query_row(task, 3, 0, &p), DFS_BAD_PARAMETER_ID);
  EXPECT_EQ(E::query_row(task, 2, 4, &p), DFS_BAD_INDEX);
  EXPECT_EQ(E::query_row(task, 2, 3, &p), 0);  // one wider than an edit
  EXPECT_EQ(p, nullptr);
  EXPECT_EQ(E::query_row(task, 2, 2, &p), 0);
  EXPECT_EQ(p, this->y.data() + 1);
}

TYPED_TEST(TaskTest, ColumnStorageHasNoRowsToEditOrQuery) {
  using E = Entries<TypeParam>;
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 5, this->x.data(), 1, 3, this->y.data(), 32, 0), 0);
  EXPECT_EQ(as_task(task)->y_rows[0], this->y.data());
  EXPECT_EQ(as_task(task)->y_rows[1], nullptr);  // no second entry
  TypeParam* p = this->y.data();
  EXPECT_EQ(E::edit_row(task, 2, 99, p), DFS_BAD_FUNCTION_HINT);
  EXPECT_EQ(E::query_row(task, 2, 0, &p), DFS_BAD_FUNCTION_HINT);
  EXPECT_EQ(E::query_row(task, 2, 99, &p), DFS_BAD_INDEX);
  EXPECT_EQ(E::query_pointer(task, 2, &p), 0);
  EXPECT_EQ(p, this->y.data());
}

TYPED_TEST(TaskTest, SingleRowStorageSetsRowZeroOnly) {
  using E = Entries<TypeParam>;
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 5, this->x.data(), 1, 3, this->y.data(), 128, 0), 0);
  EXPECT_EQ(as_task(task)->y_rows[0], this->y.data());
  EXPECT_EQ(as_task(task)->y_rows[1], nullptr);
  ASSERT_EQ(E::edit_row(task, 2, 1, this->y.data() + 7), 0);
  EXPECT_EQ(as_task(task)->y_rows[1], this->y.data() + 7);
}

// ---- The bucket table -------------------------------------------------------------------------------------------

TYPED_TEST(TaskTest, BucketCountIsASixteenthOfTheBreakpointsWithin16And1024) {
  using E = Entries<TypeParam>;
  const std::pair<int64_t, int64_t> cases[] = {{2, 16},       {271, 16},     {272, 17},
                                               {16383, 1023}, {16384, 1024}, {50000, 1024}};
  for (auto [nx, buckets] : cases) {
    const auto x = ragged_partition<TypeParam>(nx);
    OwnedTask task;
    ASSERT_EQ(E::make(task.out(), nx, x.data(), 0, 0, nullptr, 0, 0), 0);
    EXPECT_EQ(as_task(task)->bucket_count, buckets) << nx;
    EXPECT_EQ(as_task(task)->template scale<TypeParam>(), static_cast<TypeParam>(buckets) / (x.back() - x.front()));
  }
}

TYPED_TEST(TaskTest, TwoBreakpointsShareThePairZeroOne) {
  using E = Entries<TypeParam>;
  const TypeParam x[] = {-1, 3};
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 2, x, 1, 0, nullptr, 0, 0), 0);
  for (int b = 0; b <= 16; ++b) {
    EXPECT_EQ(as_task(task)->bucket_table[2 * b], 0);
    EXPECT_EQ(as_task(task)->bucket_table[2 * b + 1], 1);
  }
}

TYPED_TEST(TaskTest, EveryBucketPairBracketsItsBucket) {
  using E = Entries<TypeParam>;
  for (int64_t nx : {3, 17, 100, 1000, 20000}) {
    auto x = ragged_partition<TypeParam>(nx);
    if (nx > 50) x[static_cast<size_t>(nx) - 1] += 100;  // empty buckets at the end
    OwnedTask task;
    ASSERT_EQ(E::make(task.out(), nx, x.data(), 1, 0, nullptr, 0, 0), 0);
    const Task* record = as_task(task);
    const TypeParam scale = record->template scale<TypeParam>();
    const int64_t* table = record->bucket_table;
    const auto bucket = [&](TypeParam t) { return static_cast<int64_t>((t - x[0]) * scale); };
    for (int64_t b = 0; b <= record->bucket_count; ++b) {
      const int64_t lo = table[2 * b], hi = table[2 * b + 1];
      ASSERT_TRUE(0 <= lo && lo < hi && hi <= nx - 1) << b;
      if (lo > 0) {
        ASSERT_LT(bucket(x[static_cast<size_t>(lo)]), b);
      }
      if (hi < nx - 1) {
        ASSERT_GT(bucket(x[static_cast<size_t>(hi)]), b);
      }
      // Tight: the next breakpoint inward lies in the bucket. Not so behind bucket 0, whose points leave no mark, and
      // in the last pair, a copy of its neighbour.
      if (b < record->bucket_count && lo > 0 && lo + 1 < nx - 1) {
        ASSERT_GE(bucket(x[static_cast<size_t>(lo + 1)]), b);
      }
    }
  }
}

TYPED_TEST(TaskTest, TableHasTheLastPointOfTheBucketBeforeAndTheFirstOfTheBucketBehind) {
  using E = Entries<TypeParam>;
  for (int64_t nx : {2, 3, 17, 100, 1000, 20000}) {
    for (bool crowded : {false, true}) {
      auto x = ragged_partition<TypeParam>(nx);
      if (crowded) x.back() += 100;  // empty buckets at the end
      OwnedTask task;
      ASSERT_EQ(E::make(task.out(), nx, x.data(), 1, 0, nullptr, 0, 0), 0);
      const int64_t buckets = as_task(task)->bucket_count;
      const TypeParam scale = as_task(task)->template scale<TypeParam>();
      std::vector<int64_t> bucket(static_cast<size_t>(nx));
      for (size_t i = 0; i < x.size(); ++i) bucket[i] = static_cast<int64_t>((x[i] - x[0]) * scale);
      const int64_t* table = as_task(task)->bucket_table;
      for (int64_t b = 0; b < buckets; ++b) {
        // Points of bucket 0 leave no mark, the last point is behind every bucket.
        const auto before = std::lower_bound(bucket.begin(), bucket.end(), b) - bucket.begin() - 1;
        const int64_t low = before > 0 && bucket[static_cast<size_t>(before)] > 0 ? before : 0;
        const auto behind = std::upper_bound(bucket.begin(), bucket.end(), b) - bucket.begin();
        ASSERT_EQ(table[2 * b], low) << nx << " " << b;
        ASSERT_EQ(table[2 * b + 1], b == buckets - 1 ? nx - 1 : std::min<int64_t>(behind, nx - 1)) << nx << " " << b;
      }
      // What rounds into a bucket more has the pair of the last.
      EXPECT_EQ(table[2 * buckets], table[2 * buckets - 2]);
      EXPECT_EQ(table[2 * buckets + 1], table[2 * buckets - 1]);
    }
  }
}

TYPED_TEST(TaskTest, UniformPartitionHasNoTableUntilTheHintIsSetToOne) {
  using E = Entries<TypeParam>;
  const auto x = ragged_partition<TypeParam>(40);
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 40, x.data(), 4, 0, nullptr, 0, 0), 0);
  EXPECT_EQ(as_task(task)->bucket_table, nullptr);
  EXPECT_EQ(as_task(task)->bucket_count, 0);
  for (int64_t hint : {0, 2, 4}) {
    ASSERT_EQ(orvik_df_kernel_iEditVal(task, DFP_PARTITION_HINT, hint), 0);
    EXPECT_EQ(as_task(task)->bucket_table, nullptr);
  }
  ASSERT_EQ(orvik_df_kernel_iEditVal(task, DFP_PARTITION_HINT, 1), 0);
  EXPECT_NE(as_task(task)->bucket_table, nullptr);
  EXPECT_EQ(as_task(task)->bucket_count, 16);
}

TYPED_TEST(TaskTest, TableFollowsThePartitionOnlyWhenTheHintIsSetAgain) {
  using E = Entries<TypeParam>;
  const auto x = ragged_partition<TypeParam>(40), longer = ragged_partition<TypeParam>(2000);
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 40, x.data(), 1, 0, nullptr, 0, 0), 0);
  ASSERT_EQ(E::edit_pointer(task, DFP_BREAKPOINTS, longer.data()), 0);
  ASSERT_EQ(orvik_df_kernel_iEditVal(task, DFP_BREAKPOINT_COUNT, 2000), 0);
  ASSERT_EQ(orvik_df_kernel_iEditVal(task, DFP_PARTITION_HINT, 0), 0);
  EXPECT_EQ(as_task(task)->bucket_count, 16);
  ASSERT_EQ(orvik_df_kernel_iEditVal(task, DFP_PARTITION_HINT, 1), 0);
  EXPECT_EQ(as_task(task)->bucket_count, 125);
}

TYPED_TEST(TaskTest, UnsortedOrConstantPartitionsStayInsideTheTable) {
  using E = Entries<TypeParam>;
  std::vector<TypeParam> x = {0, -5, 100, std::numeric_limits<TypeParam>::quiet_NaN(), 1};
  OwnedTask unsorted, constant;
  EXPECT_EQ(E::make(unsorted.out(), 5, x.data(), 1, 0, nullptr, 0, 0), 0);
  x.assign(5, 1);
  EXPECT_EQ(E::make(constant.out(), 5, x.data(), 1, 0, nullptr, 0, 0), 0);
}

TYPED_TEST(TaskTest, FunctionCountIsCutTo32BitsWhereRowsAreLaidOut) {
  using E = Entries<TypeParam>;
  const auto x = ragged_partition<TypeParam>(5);
  const auto y = random_values<TypeParam>(10);
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 5, x.data(), 1, (int64_t(1) << 32) + 2, y.data(), 16, 0), 0);
  EXPECT_EQ(as_task(task)->ny, (int64_t(1) << 32) + 2);
  EXPECT_EQ(as_task(task)->y_rows[0], y.data());
  EXPECT_EQ(as_task(task)->y_rows[1], y.data() + 5);
}

}  // namespace
}  // namespace orvik::df::test
