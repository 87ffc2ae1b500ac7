// The exception flags of a call are those of its elements, one at a time, whatever stands beside them: what lanes raise
// on the way is taken back, what a special element raises stays through later blocks. And what reports leave behind is what
// the elements' reports leave one after another, although one stands for many where nobody hears each.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cfenv>
#include <cstring>
#include <limits>
#include <ostream>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "lanes/control.h"
#include "orvik/zym.h"
#include "support/row_calls.h"

namespace orvik::test {
namespace {

// With the flag of denormal arguments, which the C library does not know. Real rows may raise the inexact flag by what
// fills up their lanes, and are watched without it.
constexpr int kDenormal = 0x2;
constexpr int kOfReals = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW | kDenormal;
template <class In>
constexpr int kWatched = std::is_arithmetic_v<In> ? kOfReals : kOfReals | FE_INEXACT;
constexpr uint32_t kClear = 0x1F80;

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
  write_control(kClear);
  EXPECT_TRUE((call_row<In, Out>(row, level, strided, c)));
  return (std::fetestexcept(FE_ALL_EXCEPT) | static_cast<int>(read_control())) & kWatched<In>;
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

// What reports leave where no callback hears them.
struct State {
  int32_t status;
  int error_number;
  uint16_t sticky;
  bool operator==(const State&) const = default;
};
std::ostream& operator<<(std::ostream& out, const State& s) {
  return out << "status " << s.status << ", errno " << s.error_number << ", sticky " << s.sticky;
}

// Of elements in calls of `most` at a time.
template <class In, class Out>
State state_after(const Row& row, int level, bool strided, const std::vector<In>& a, const std::vector<In>& b, size_t most,
                  std::vector<Out>& r) {
  r.assign(a.size(), Out{});
  std::vector<Out> r2(r);
  _zymClearErrStatus();
  errno = 0;
  asm volatile("fnclex");
  for (size_t i = 0; i < a.size(); i += most) {
    Call<In, Out> c;
    c.n = static_cast<int32_t>(std::min(most, a.size() - i)), c.a = &a[i], c.b = &b[i], c.r1 = &r[i], c.r2 = &r2[i];
    EXPECT_TRUE((call_row<In, Out>(row, level, strided, c)));
  }
  uint16_t x87;
  asm volatile("fnstsw %0" : "=a"(x87));
  return {_zymGetErrStatus(), errno, static_cast<uint16_t>(x87 & 0x3F)};
}

// Half the elements special, a part of them beyond both ends of what exponentials give.
template <class In, class Out>
void expect_state(const Row& row) {
  using P = Part<In>;
  std::vector<P> special = parts<P>();
  for (P x : {P(-1000), P(1000), P(-1e5), P(-30), P(200), P(-800), P(710)}) special.push_back(x);
  std::mt19937 random(11);
  const auto pick = [&] { return element<In>(special[random() % special.size()], special[random() % special.size()]); };
  for (uint32_t handling : {ZYM_ERRMODE_IGNORE, ZYM_ERRMODE_DEFAULT, ZYM_ERRMODE_ERRNO, ZYM_ERRMODE_NOERR}) {
    _zymSetMode(handling);
    for (int level = 0; level < 3; ++level) {
      for (int trial = 0; trial < 20; ++trial) {
        const size_t n = 1 + random() % 100;
        std::vector<In> a(n, element<In>(row.function == "Acosh" ? 1.5 : 0.5, 0.25)), b(a);
        for (size_t k = 0; k < n; ++k) {
          if (random() % 2 == 0) a[k] = pick(), b[k] = pick();
        }
        std::vector<Out> wanted, got;
        const State expected = state_after<In, Out>(row, level, false, a, b, 1, wanted);
        for (bool strided : {false, true}) {
          const State state = state_after<In, Out>(row, level, strided, a, b, n, got);
          ASSERT_EQ(state, expected) << row.name << ' ' << rows::kLevelNames[level] << " n = " << n
                                     << (strided ? " strided" : "") << " mode " << handling;
          ASSERT_EQ(std::memcmp(got.data(), wanted.data(), n * sizeof(Out)), 0)
              << row.name << ' ' << rows::kLevelNames[level] << " n = " << n << (strided ? " strided" : "") << " mode "
              << handling;
        }
      }
    }
  }
}

template <class Function>
bool with_types_of(const Row& row, Function function) {
  bool tried = false;
  const auto with = [&]<class In, class Out>(In* in, Out* out) {
    if (!has_elements<In, Out>(row)) return;
    function(in, out);
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
  return tried;
}

class FlagsOfACall : public testing::TestWithParam<const Row*> {
 protected:
  void SetUp() override { _zymSetMode(ZYM_ERRMODE_IGNORE); }
  void TearDown() override { _zymSetMode(ZYM_ERRMODE_DEFAULT); }
};

TEST_P(FlagsOfACall, AreThoseOfItsElements) {
  const Row& row = *GetParam();
  EXPECT_TRUE(with_types_of(row, [&]<class In, class Out>(In*, Out*) { expect_union<In, Out>(row); }));
}

TEST_P(FlagsOfACall, AndWhatReportsLeaveIsThatOfItsElementsInTheirOrder) {
  const Row& row = *GetParam();
  EXPECT_TRUE(with_types_of(row, [&]<class In, class Out>(In*, Out*) { expect_state<In, Out>(row); }));
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
