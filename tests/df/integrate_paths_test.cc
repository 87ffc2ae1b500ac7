// Integration: results do not depend on how limits are cut into calls, blocks and threads.
#include "df/integrate.h"

namespace orvik::df::test {
namespace {

template <class Real>
class IntegratePathsTest : public ::testing::Test {};
TYPED_TEST_SUITE(IntegratePathsTest, Reals);

TYPED_TEST(IntegratePathsTest, ManyLimitsAndFewGiveTheSameBits) {
  for (const KindRow& kind : kIntegrable) {
    for (int64_t nx : {2, 3, 33, 34, 64, 65, 66, 1000}) {
      for (int64_t xhint : {1, 2, 4}) {
        auto fit = integrable<TypeParam>(kind, nx, 2, xhint);
        std::vector<TypeParam> left, right;
        spread_limits(*fit, 400, &left, &right);
        Integral<TypeParam> integral;
        integral.rhint = 32;
        const auto all = integral(fit->task, left, right);
        for (size_t share : {1, 3, 7, 100}) {  // the short ones without the sums of all pieces
          for (size_t at = 0; at < left.size(); at += share == 1 ? 13 : share) {
            const size_t end = std::min(at + share, left.size());
            const auto begin = static_cast<int64_t>(at), past = static_cast<int64_t>(end);
            const auto r = integral(fit->task, {left.begin() + begin, left.begin() + past},
                                    {right.begin() + begin, right.begin() + past});
            ASSERT_TRUE(std::equal(r.begin(), r.end(), all.begin() + 2 * begin)) << kind.name << " " << nx << " " << at;
          }
        }
      }
    }
  }
}

// Limits that lie close together in a long partition pass few pieces: the sums are not made, the bits are the same.
TYPED_TEST(IntegratePathsTest, NearLimitsInALongPartitionGiveTheBitsOfOthers) {
  auto fit = integrable<TypeParam>(kIntegrable[2], 20000, 1, 1);
  std::vector<TypeParam> left, right;
  for (size_t k = 0; k < 60; ++k) {
    left.push_back(fit->x[300 * k] + TypeParam(0.01));
    right.push_back(fit->x[300 * k + k] + TypeParam(0.02));
  }
  Integral<TypeParam> integral;
  const auto near = integral(fit->task, left, right);
  left.resize(6000, fit->x[5]), right.resize(6000, fit->x[15000]);
  const auto all = integral(fit->task, left, right);
  EXPECT_TRUE(std::equal(near.begin(), near.end(), all.begin()));
}

TYPED_TEST(IntegratePathsTest, ThreadsGiveTheBitsOfOneThread) {
  for (const KindRow& kind : kIntegrable) {
    for (int64_t xhint : {1, 4}) {
      for (int64_t ny : {1, 3}) {
        auto fit = integrable<TypeParam>(kind, 300, ny, xhint);
        std::vector<TypeParam> left, right;
        spread_limits(*fit, 5003, &left, &right);
        for (int64_t hint : {0, 64}) {
          if (hint == 64) std::sort(left.begin(), left.end());
          for (int64_t rhint : {16, 32}) {
            Integral<TypeParam> integral;
            integral.left_hint = hint;
            integral.rhint = rhint;
            const auto one = integral(fit->task, left, right);
            integral.services = &ThreadServices<3>::table;
            EXPECT_EQ(integral(fit->task, left, right), one) << kind.name;
          }
        }
      }
    }
  }
}

TYPED_TEST(IntegratePathsTest, LimitsAreDividedInBlocksOf64) {
  auto fit = integrable<TypeParam>(kIntegrable[2], 300, 1, 1);
  std::vector<TypeParam> left, right;
  spread_limits(*fit, 4100, &left, &right);
  Integral<TypeParam> integral;
  integral.services = &LoopServices<100>::table;
  LoopServices<100>::calls = 0;
  integral(fit->task, left, right);
  EXPECT_EQ(LoopServices<100>::calls, 1);
  EXPECT_EQ(LoopServices<100>::last_threads, 64);  // whole blocks
}

TYPED_TEST(IntegratePathsTest, WideIndicesIntegrateTheSame) {
  auto fit = integrable<TypeParam>(kIntegrable[2], 60, 2, 1);
  std::vector<TypeParam> left, right;
  spread_limits(*fit, 300, &left, &right);
  Integral<TypeParam> integral;
  const auto narrow = integral(fit->task, left, right);
  as_task(fit->task)->index_width = 3;
  EXPECT_EQ(integral(fit->task, left, right), narrow);
}

template <class Real>
int32_t ones(int64_t* count, const Real*, const Real*, const int64_t* cells, Real* results, void* params) {
  auto* seen = static_cast<std::vector<int64_t>*>(params);
  for (int64_t j = 0; j < *count; ++j) seen->push_back(cells[j]), results[j] = 1;
  return 0;
}

TYPED_TEST(IntegratePathsTest, CellsAround32BitIndicesReachTheCallbacks) {
  for (int64_t nx : {int64_t(2147483646), int64_t(2147483647), int64_t(5000000000)}) {
    const TypeParam ends[] = {0, 1};
    const TypeParam y = 0;
    OwnedTask task;
    ASSERT_EQ(Entries<TypeParam>::make(task.out(), nx, ends, 4, 1, &y, 128, 1), 0);
    std::vector<int64_t> seen;
    Integral<TypeParam> integral;
    integral.le = integral.re = integral.inside = ones<TypeParam>;
    integral.le_params = integral.re_params = integral.inside_params = &seen;
    EXPECT_EQ(integral(task, {TypeParam(0.5)}, {2}), std::vector<TypeParam>{2});
    EXPECT_EQ(seen,
              (std::vector<int64_t>{nx, static_cast<int64_t>(TypeParam(0.5) * static_cast<TypeParam>(nx - 1)) + 1}));
  }
}

}  // namespace
}  // namespace orvik::df::test
