// The exception flags of a call are those of its elements, one at a time, whatever stands beside them: what lanes raise
// on the way is taken back, what a special element raises stays through later blocks.
#include <gtest/gtest.h>

#include <cfenv>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "orvik/zym.h"
#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int kWatched = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW;

template <class P>
std::vector<P> parts() {
  using L = std::numeric_limits<P>;
  return {P(0),
          P(-0.0),
          P(1),
          P(-1.5),
          L::denorm_min() * 1000,
          L::min() * 4,
          L::max() / 2,
          P(100),
          L::infinity(),
          -L::infinity(),
          L::quiet_NaN(),
          P(1e5),
          P(50),
          P(0.5),
          P(0.25),
          P(-2),
          L::max(),
          L::signaling_NaN()};
}

template <class In, class Out>
int flags_of(const Row& row, int level, bool strided, const In* a, const In* b, int32_t n) {
  std::vector<Out> r1(static_cast<size_t>(n)), r2(r1);
  Call<In, Out> c;
  c.n = n, c.a = a, c.b = b, c.r1 = r1.data(), c.r2 = r2.data();
  std::feclearexcept(FE_ALL_EXCEPT);
  EXPECT_TRUE((call_row<In, Out>(row, level, strided, c)));
  return std::fetestexcept(kWatched);
}

// Usual elements with three others among them.
template <class In, class Out>
void expect_union(const Row& row) {
  using P = Part<In>;
  const std::vector<P> special = parts<P>();
  std::mt19937 random(7);
  const auto pick = [&] { return element<In>(special[random() % special.size()], special[random() % special.size()]); };
  for (int level = 0; level < 3; ++level) {
    for (int trial = 0; trial < 60; ++trial) {
      const auto n = static_cast<int32_t>(1 + random() % 70);
      const auto size = static_cast<size_t>(n);
      std::vector<In> a(size, element<In>(row.function == "Acosh" ? 1.5 : 0.5, 0.25)), b(a);
      for (int k = 0; k < 3; ++k) a[random() % size] = pick(), b[random() % size] = pick();
      int expected = 0;
      for (size_t i = 0; i < size; ++i) expected |= flags_of<In, Out>(row, level, false, &a[i], &b[i], 1);
      for (bool strided : {false, true}) {
        const int flags = flags_of<In, Out>(row, level, strided, a.data(), b.data(), n);
        ASSERT_EQ(flags, expected) << row.name << ' ' << rows::kLevelNames[level] << " n = " << n
                                   << (strided ? " strided" : "");
      }
    }
  }
}

class FlagsOfACall : public testing::TestWithParam<const Row*> {
 protected:
  void SetUp() override { _zymSetMode(ZYM_ERRMODE_IGNORE); }
  void TearDown() override { _zymSetMode(ZYM_ERRMODE_DEFAULT); }
};

TEST_P(FlagsOfACall, AreThoseOfItsElements) {
  const Row& row = *GetParam();
  bool tried = false;
  const auto with = [&]<class In, class Out>(In*, Out*) {
    if (!has_elements<In, Out>(row)) return;
    expect_union<In, Out>(row);
    tried = true;
  };
  with(static_cast<float*>(nullptr), static_cast<float*>(nullptr));
  with(static_cast<double*>(nullptr), static_cast<double*>(nullptr));
  with(static_cast<ZymComplexFloat*>(nullptr), static_cast<ZymComplexFloat*>(nullptr));
  with(static_cast<ZymComplexDouble*>(nullptr), static_cast<ZymComplexDouble*>(nullptr));
  with(static_cast<ZymComplexFloat*>(nullptr), static_cast<float*>(nullptr));
  with(static_cast<ZymComplexDouble*>(nullptr), static_cast<double*>(nullptr));
  with(static_cast<float*>(nullptr), static_cast<ZymComplexFloat*>(nullptr));
  with(static_cast<double*>(nullptr), static_cast<ZymComplexDouble*>(nullptr));
  EXPECT_TRUE(tried);
}

std::vector<const Row*> computing_rows() {
  std::vector<const Row*> all;
  for (const Row& row : rows::all()) {
    if (row.shape != Shape::pack && row.built()) all.push_back(&row);
  }
  return all;
}
INSTANTIATE_TEST_SUITE_P(Rows, FlagsOfACall, testing::ValuesIn(computing_rows()),
                         [](const auto& tested) { return std::string(tested.param->name); });

}  // namespace
}  // namespace orvik::test
