// Construction: forms of storage, threads, failing memory.
#include "df/fit.h"
#include "serv/memory.h"

namespace orvik::df::test {
namespace {

template <class Real>
class ConstructFormsTest : public ::testing::Test {};
TYPED_TEST_SUITE(ConstructFormsTest, Reals);

TYPED_TEST(ConstructFormsTest, RowsColumnsAndSingleRowsGiveTheSameBits) {
  using E = Entries<TypeParam>;
  auto kinds = cubic_kinds<TypeParam>();
  kinds.push_back({"Linear", E::linear, 2, 0});
  for (const auto& kind : kinds) {
    for (int64_t xhint : {1, 4}) {
      // One column, pairs of columns, an odd one behind them, more than a group; more than a chunk.
      for (auto [nx, ny] : {std::pair<int64_t, int64_t>{9, 1},
                            {9, 2},
                            {9, 3},
                            {9, 4},
                            {10, 5},
                            {17, 6},
                            {700, 5},
                            {1025, 3},
                            {1026, 7},
                            {2500, 2}}) {
        auto rows = legal_fit(kind, nx, ny, 2, xhint);
        auto columns = legal_fit(kind, nx, ny, 2, xhint);
        auto single = legal_fit(kind, nx, ny, 2, xhint);
        columns->y = transposed(rows->y, nx, ny);
        columns->yhint = 32;
        single->yhint = 128;
        single->make();
        for (int64_t f = 0; f < ny; ++f)
          ASSERT_EQ(E::edit_row(single->task, DFP_FUNCTIONS, f, &single->y[size_t(f * nx)]), 0);
        ASSERT_EQ(rows->construct(kind.construct), 0);
        ASSERT_EQ(columns->construct(kind.construct), 0);
        ASSERT_EQ(single->construct(kind.construct), 0);
        EXPECT_EQ(rows->c, columns->c) << kind.name;
        EXPECT_EQ(rows->c, single->c) << kind.name;
      }
    }
  }
}

TYPED_TEST(ConstructFormsTest, ColumnsOnThreadsGiveTheBitsOfRows) {
  using E = Entries<TypeParam>;
  auto kinds = cubic_kinds<TypeParam>();
  kinds.push_back({"Linear", E::linear, 2, 0});
  for (const auto& kind : kinds) {
    for (int64_t bc_type : {2, 64}) {
      for (auto [nx, ny] : {std::pair<int64_t, int64_t>{600, 9}, {5000, 5}, {2 * 2048 + 3, 2}}) {
        auto rows = legal_fit(kind, nx, ny, bc_type, 1);
        auto columns = legal_fit(kind, nx, ny, bc_type, 1);
        columns->y = transposed(rows->y, nx, ny);
        columns->yhint = 32;
        ASSERT_EQ(rows->construct(kind.construct), 0);
        ASSERT_EQ(columns->construct(kind.construct, &ThreadServices<3>::table), 0);
        EXPECT_EQ(rows->c, columns->c) << kind.name;
      }
    }
  }
}

TYPED_TEST(ConstructFormsTest, ThreadsGiveTheBitsOfOneThread) {
  using E = Entries<TypeParam>;
  auto kinds = cubic_kinds<TypeParam>();
  kinds.push_back({"Linear", E::linear, 2, 0});
  for (const auto& kind : kinds) {
    for (int64_t xhint : {1, 4}) {
      for (int64_t bc_type : {2, 64}) {
        for (auto [nx, ny] : {std::pair<int64_t, int64_t>{600, 9}, {9000, 3}, {2 * 2048 + 3, 1}, {5, 200}}) {
          auto one = legal_fit(kind, nx, ny, bc_type, xhint);
          auto loop = legal_fit(kind, nx, ny, bc_type, xhint);
          auto threads = legal_fit(kind, nx, ny, bc_type, xhint);
          ASSERT_EQ(one->construct(kind.construct), 0);
          ASSERT_EQ(loop->construct(kind.construct, &LoopServices<8>::table), 0);
          ASSERT_EQ(threads->construct(kind.construct, &ThreadServices<3>::table), 0);
          EXPECT_EQ(one->c, loop->c) << kind.name;
          EXPECT_EQ(one->c, threads->c) << kind.name;
        }
      }
    }
  }
}

TYPED_TEST(ConstructFormsTest, LocalGridHasBlocksOf2048PointsByFourFunctions) {
  using E = Entries<TypeParam>;
  using Loop = LoopServices<4>;
  struct Row {
    Kind<TypeParam> kind;
    int64_t nx, ny, tasks;
  };
  const auto local = local_kinds<TypeParam>();
  const Row rows[] = {{local[1], 511, 1, -1},
                      {local[1], 512, 1, 1},
                      {local[1], 2 + 2049, 1, 1},
                      {local[1], 2 + 2050, 1, 2},
                      {local[2], 4 + 2049, 1, 1},
                      {local[2], 4 + 2050, 1, 2},
                      {local[0], 2 + 3 * 2048, 9, 9},
                      {{"Linear", E::linear, 2, 0}, 128, 1, -1},
                      {{"Linear", E::linear, 2, 0}, 129, 5, 2},
                      {{"Linear", E::linear, 2, 0}, 1026, 1, 2}};
  for (const Row& row : rows) {
    auto fit = legal_fit(row.kind, row.nx, row.ny, 2, 1);
    Loop::calls = 0;
    ASSERT_EQ(fit->construct(row.kind.construct, &Loop::table), 0);
    if (row.tasks < 0) {
      EXPECT_EQ(Loop::calls, 0) << row.kind.name << row.nx;
    } else {
      EXPECT_EQ(Loop::calls, 1);
      EXPECT_EQ(Loop::last_count, row.tasks) << row.kind.name << row.nx;
      EXPECT_EQ(Loop::last_threads, std::min<int64_t>(4, row.tasks));
    }
  }
}

TYPED_TEST(ConstructFormsTest, NaturalUsesThreadsForSeveralLongFunctionsOnly) {
  using E = Entries<TypeParam>;
  const Kind<TypeParam> kind = {"Natural", E::natural, 4, 2};
  const auto calls = [&](int64_t nx, int64_t ny, auto loop) {
    using Loop = decltype(loop);
    auto fit = legal_fit(kind, nx, ny, 2, 1);
    Loop::calls = 0;
    EXPECT_EQ(fit->construct(E::natural, &Loop::table), 0);
    return Loop::calls;
  };
  EXPECT_EQ(calls(1000, 1, LoopServices<4>()), 0);
  EXPECT_EQ(calls(599, 2, LoopServices<4>()), 0);
  EXPECT_EQ(calls(600, 2, LoopServices<4>()), 1);
  EXPECT_EQ(LoopServices<4>::last_count, 2);
  EXPECT_EQ(calls(600, 2, LoopServices<1>()), 0);
  EXPECT_EQ(calls(299, 9, LoopServices<8>()), 0);
  EXPECT_EQ(calls(300, 9, LoopServices<8>()), 1);
  EXPECT_EQ(calls(300, 7, LoopServices<8>()), 0);  // seven functions, seven threads
}

TYPED_TEST(ConstructFormsTest, FailingMemoryIsReportedAndWritesNothing) {
  using E = Entries<TypeParam>;
  std::vector<Kind<TypeParam>> kinds = local_kinds<TypeParam>();
  kinds.push_back({"Natural", E::natural, 4, 2});
  kinds.push_back({"Quadratic", E::quadratic, 3, 0});
  kinds.push_back({"Quadratic", E::quadratic, 3, 1});
  for (const auto& kind : kinds) {
    for (int64_t bc_type : {2, 64}) {
      const bool quadratic = kind.order == 3;
      if (quadratic && bc_type == 64) continue;
      auto fit = legal_fit(kind, 5000, 2, quadratic && kind.type == 0 ? 128 : bc_type, 1);
      fit->ic_type = 8;
      if (quadratic) fit->ic.clear();
      fit->make();
      const int64_t before = serv::live_allocations();
      serv::fail_allocation_after(1);
      EXPECT_EQ(fit->construct(kind.construct), DFS_NO_MEMORY) << kind.name;
      serv::fail_allocation_after(0);
      EXPECT_EQ(fit->c, std::vector<TypeParam>(fit->c.size(), TypeParam(77))) << kind.name;
      EXPECT_EQ(fit->construct(kind.construct), 0) << kind.name;
      EXPECT_EQ(serv::live_allocations(), before) << kind.name;
    }
  }
}

TYPED_TEST(ConstructFormsTest, ShortLocalConstructionsTakeNoMemory) {
  for (const auto& kind : local_kinds<TypeParam>()) {
    auto fit = legal_fit(kind, 255, 2, 2, 1);
    fit->make();
    serv::fail_allocation_after(1);
    EXPECT_EQ(fit->construct(kind.construct), 0);
    serv::fail_allocation_after(0);
  }
}

TYPED_TEST(ConstructFormsTest, FailingMemoryWhileATaskIsMadeLeavesARecordToDelete) {
  using E = Entries<TypeParam>;
  const auto x = ragged_partition<TypeParam>(8);
  const auto y = random_values<TypeParam>(8);
  const int64_t before = serv::live_allocations();
  for (int64_t n = 1; n <= 3; ++n) {
    OrvikDFTask task = &task;
    serv::fail_allocation_after(n);
    EXPECT_EQ(E::make(&task, 8, x.data(), 1, 1, y.data(), 16, 0), DFS_NO_MEMORY);
    serv::fail_allocation_after(0);
    EXPECT_EQ(task == nullptr, n == 1);
    if (task == nullptr) continue;
    EXPECT_EQ(as_task(task)->task_state, n == 2 ? 0 : 1);
    EXPECT_EQ(as_task(task)->bucket_table, nullptr);
    if (n == 2) {  // edits and queries of half a record do nothing
      TypeParam* p = nullptr;
      int32_t v = 5;
      EXPECT_EQ(orvik_df_kernel_iEditVal(task, 99, 0), 0);
      EXPECT_EQ(orvik_df_kernel_iQueryVal(task, 14, &v), 0);
      EXPECT_EQ(v, 5);
      EXPECT_EQ(E::edit_pointer(task, 99, nullptr), 0);
      EXPECT_EQ(E::edit_row(task, 99, 0, nullptr), 0);
      EXPECT_EQ(E::query_pointer(task, 1, &p), 0);
      EXPECT_EQ(E::query_row(task, 2, 0, &p), 0);
      EXPECT_EQ(p, nullptr);
      EXPECT_EQ(E::query_row(task, 2, 1, &p), DFS_BAD_INDEX);
      EXPECT_EQ(E::edit_spline(task, -1, 0, 0, nullptr, 0, nullptr, nullptr, 0), DFS_BAD_SPLINE_ORDER);
    }
    EXPECT_EQ(orvik_df_kernel_DeleteTask(&task), 0);
  }
  EXPECT_EQ(serv::live_allocations(), before);
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 8, x.data(), 1, 1, y.data(), 16, 0), 0);
  serv::fail_allocation_after(1);
  EXPECT_EQ(orvik_df_kernel_iEditVal(task, DFP_PARTITION_HINT, 1), DFS_NO_MEMORY);
  serv::fail_allocation_after(1);
  EXPECT_EQ(E::edit_pointer(task, DFP_FUNCTIONS, y.data()), DFS_NO_MEMORY);
  serv::fail_allocation_after(1);
  EXPECT_EQ(E::edit_pointer(task, DFP_COEFFICIENTS, y.data()), DFS_NO_MEMORY);
  serv::fail_allocation_after(0);
  TypeParam* p = nullptr;
  EXPECT_EQ(E::query_pointer(task, DFP_FUNCTIONS, &p), 0);
}

TYPED_TEST(ConstructFormsTest, NoFunctionsCountAsOneForTheThreadsAndWriteNothing) {
  using E = Entries<TypeParam>;
  for (const auto& kind : local_kinds<TypeParam>()) {
    const auto x = ragged_partition<TypeParam>(5000);
    OwnedTask task;
    ASSERT_EQ(E::make(task.out(), 5000, x.data(), 1, 0, nullptr, 0, 0), 0);
    as_task(task)->bc_type = 2;
    LoopServices<8>::last_count = 0;
    EXPECT_EQ(kind.construct(task, 0, 0, &LoopServices<8>::table), 0);
    EXPECT_EQ(LoopServices<8>::last_count, 3);  // blocks of one group
  }
}

}  // namespace
}  // namespace orvik::df::test
