// NaNs through every real row: quieted, with sign and payload of the argument, at each level and stride, in whole
// blocks and alone; a signalling one raises invalid, a quiet one nothing.
#include <gtest/gtest.h>

#include <bit>
#include <cfenv>
#include <limits>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "orvik/zym.h"
#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr int kWatched = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW;

template <class E>
class NanElements : public ElementTest<E> {
 protected:
  using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
  static constexpr Bits kPayload = 0x1234, kQuiet = Bits{1} << (sizeof(E) == 4 ? 22 : 51),
                        kSign = Bits{1} << (8 * sizeof(E) - 1), kExponent = std::bit_cast<Bits>(ElementTest<E>::inf);
  void SetUp() override { _zymSetMode(ZYM_ERRMODE_IGNORE); }
  void TearDown() override { _zymSetMode(ZYM_ERRMODE_DEFAULT); }

  static std::vector<Bits> nans() {
    std::vector<Bits> all;
    for (Bits sign : {Bits{0}, kSign}) {
      for (Bits quiet : {Bits{0}, kQuiet}) all.push_back(sign | kExponent | quiet | kPayload);
    }
    return all;
  }

  // Every result of a call with n NaNs of those bits as the first operand, or the second.
  template <class Check>
  void each_call(const Row& row, Bits nan, bool second, Check check) {
    for (int level = 0; level < 3; ++level) {
      for (int n : {1, 3, 5, 33}) {
        for (bool strided : {false, true}) {
          std::vector<E> x(static_cast<size_t>(n), E(1.5)), y(x), r(x), s(x);
          for (E& e : second ? y : x) std::memcpy(&e, &nan, sizeof e);
          Call<E> c;
          c.n = n, c.a = x.data(), c.b = y.data(), c.r1 = r.data(), c.r2 = s.data();
          std::feclearexcept(FE_ALL_EXCEPT);
          ASSERT_TRUE(call_row(row, level, strided, c));
          const int flags = std::fetestexcept(kWatched);
          const std::string where = std::string(row.name) + " " + rows::kLevelNames[level] +
                                    " n = " + std::to_string(n) + (strided ? " strided" : "") +
                                    (second ? " second operand" : "");
          for (size_t i = 0; i < x.size(); ++i) {
            Bits got[2];
            std::memcpy(&got[0], &r[i], sizeof(E));
            std::memcpy(&got[1], &s[i], sizeof(E));
            for (int k = 0; k < row.outputs(); ++k) check(got[k], flags, where);
          }
        }
      }
    }
  }
};
TYPED_TEST_SUITE(NanElements, Elements);

// Rows that move bits, or that choose the number beside a NaN: their own tests say what they do.
bool computes(const Row& row) {
  static const std::set<std::string_view> others = {"Abs", "CopySign", "Fmax", "Fmin", "MaxMag", "MinMag"};
  return !others.contains(row.function);
}

template <class E>
bool real_row(const Row& row) {
  return row.precision == (sizeof(E) == 4 ? 's' : 'd') && row.built() && row.shape != Shape::pack &&
         row.shape != Shape::from_real && computes(row);
}

TYPED_TEST(NanElements, KeepTheirSignAndPayloadAndAreQuieted) {
  for (const Row& row : rows::all()) {
    if (!real_row<TypeParam>(row)) continue;
    for (bool second : {false, true}) {
      if (second && row.shape != Shape::binary) continue;
      for (auto nan : this->nans()) {
        this->each_call(row, nan, second, [&](auto got, int flags, const std::string& where) {
          EXPECT_EQ(got, nan | this->kQuiet) << where << std::hex << ' ' << nan << " gives " << got;
          EXPECT_EQ(flags, (nan & this->kQuiet) != 0 ? 0 : FE_INVALID) << where;
        });
      }
    }
  }
}

}  // namespace
}  // namespace orvik::test
