// The denormal field of the mode word: what counts as zero, and that nothing else changes.
#include <cmath>
#include <cstring>

#include "complex_rows.h"

namespace orvik::test {
namespace {

constexpr uint32_t kKeepDenormals = 0x140000;
constexpr const char* kUnary[] = {"Exp", "Ln", "Sqrt", "Conj"};
constexpr const char* kBinary[] = {"Add", "Sub", "Mul", "MulByConj", "Div"};

template <class C>
class ComplexModes : public ComplexTest<C> {
 protected:
  using E = Part<C>;
  void TearDown() override { _zymSetMode(kKeepDenormals); }

  template <class In = C, class Out = C>
  static std::vector<Out> run(const std::string& function, int level, const std::vector<In>& a,
                              const std::vector<In>& b) {
    std::vector<Out> r(a.size());
    Call<In, Out> call;
    call.n = static_cast<int32_t>(a.size()), call.a = a.data(), call.b = b.data(), call.r1 = r.data();
    EXPECT_TRUE((call_row<In, Out>(row_named(ComplexTest<C>::row(function)), level, false, call)));
    return r;
  }
};
TYPED_TEST_SUITE(ComplexModes, ComplexElements);

TYPED_TEST(ComplexModes, FlushedDenormalsCountAsZeroAndBecomeZero) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E d = this->smallest / 4;
  const std::vector<C> a(11, C{d, -d}), one(11, C{1, 1}), half(11, C{E(0.5), 0}),
      least(11, C{this->smallest, this->smallest});
  _zymSetMode(ZYM_FLUSH_DENORMALS);
  for (int level = 0; level < 3; ++level) {
    for (const C& r : this->run("Add", level, a, a)) EXPECT_TRUE(r.re == 0 && r.im == 0);
    for (const C& r : this->run("Mul", level, least, half)) EXPECT_TRUE(r.re == 0 && r.im == 0) << show(r);
    for (const C& r : this->run("Div", level, a, one)) EXPECT_TRUE(r.re == 0 && r.im == 0) << show(r);
    for (const C& r : this->run("Sqrt", level, a, one)) EXPECT_TRUE(same_value(r, C{0, E(-0.0)})) << show(r);
    for (const C& r : this->run("Exp", level, a, one)) EXPECT_TRUE(r.re == 1 && r.im == 0) << show(r);
    for (E x : {this->inf, -this->inf, this->nan}) {
      const std::vector<C> limit(3, C{x, -d});
      for (const C& r : this->run("Exp", level, limit, one)) EXPECT_TRUE(same_value(r.im, E(-0.0))) << show(r);
    }
    for (const C& r : this->run("Ln", level, a, one)) EXPECT_EQ(r.re, -this->inf);
    for (const E& r : this->template run<C, E>("Abs", level, a, one)) EXPECT_EQ(r, 0);
    const std::vector<C> conjugate = this->run("Conj", level, a, one);  // no arithmetic: the bits stay
    _zymSetMode(kKeepDenormals);
    for (const C& r : conjugate) EXPECT_TRUE(same_value(r, C{d, d}));
    _zymSetMode(ZYM_FLUSH_DENORMALS);
  }
}

TYPED_TEST(ComplexModes, DenormalPartsOfPowersCountAsZero) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const E d = this->smallest / 4, M = this->largest / 1024;
  for (int level = 0; level < 3; ++level) {
    _zymSetMode(ZYM_FLUSH_DENORMALS);
    const std::vector<C> r = this->run("Pow", level, std::vector<C>{{d, -24}, {3, d}}, {{M, -d}, {-M, d}});
    const std::vector<C> zeros = this->run("Pow", level, std::vector<C>{{0, -24}, {3, 0}}, {{M, E(-0.0)}, {-M, 0}});
    for (size_t i = 0; i < 2; ++i) EXPECT_TRUE(same_value(r[i], zeros[i])) << show(r[i]) << show(zeros[i]);
  }
}

TYPED_TEST(ComplexModes, PlainElementsHaveTheSameBitsWithDenormalsFlushed) {
  using C = TypeParam;
  std::vector<C> a(53), b(53);
  for (int i = 0; i < 53; ++i) {
    a[static_cast<size_t>(i)] = element<C>(0.37 * i - 9.7, 5.1 - 0.21 * i);
    b[static_cast<size_t>(i)] = element<C>(3.3 - 0.4 * i, 0.11 * i + 0.3);
  }
  const auto expect_same = [&](const char* function) {
    for (int level = 0; level < 3; ++level) {
      _zymSetMode(kKeepDenormals);
      const std::vector<C> kept = this->run(function, level, a, b);
      _zymSetMode(ZYM_FLUSH_DENORMALS);
      const std::vector<C> flushed = this->run(function, level, a, b);
      _zymSetMode(kKeepDenormals);
      EXPECT_EQ(std::memcmp(kept.data(), flushed.data(), kept.size() * sizeof(C)), 0) << function << kLevelNames[level];
    }
  };
  for (const char* function : kUnary) expect_same(function);
  for (const char* function : kBinary) expect_same(function);
}

}  // namespace
}  // namespace orvik::test
