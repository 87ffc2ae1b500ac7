// Codes, the fields of a report, callbacks that change elements, flags.
#include <cfenv>
#include <cstring>

#include "loops.h"

namespace orvik::test {
namespace {

constexpr int32_t kDomain = 1, kSingularity = 2, kOverflow = 3;

std::vector<ZymErrorContext> contexts;
double new_re, new_im;
int32_t answer;
int32_t note_and_change(ZymErrorContext* c) {
  contexts.push_back(*c);
  c->result1 = new_re;
  c->result1Imag = new_im;
  return answer;
}

template <class C>
class LoopReports : public LoopTest<C> {
 protected:
  using typename LoopTest<C>::E;
  void SetUp() override {
    contexts.clear();
    new_re = 17, new_im = -19, answer = 0;
    mode_ = _zymSetMode(ZYM_ERRMODE_CALLBACK);
    _zymSetErrorCallBack(note_and_change);
  }
  void TearDown() override {
    _zymSetErrorCallBack(nullptr);
    _zymSetInterfInputVectorPointer(nullptr);
    _zymSetMode(mode_ | 0x140000);
  }
  static std::string short_name(const char* f) {
    std::string name = "v";
    return name += LoopTest<C>::row(f);
  }
  // Overflows in one part alone: e^|y| beyond the format, and the other part less than that.
  static C overflowing(const std::string& f) {
    const E large = sizeof(E) == 4 ? E(90.0) : E(711.0);
    return f == "Sinh" || f == "Cosh" ? C{large, E(0.0625)} : C{E(0.0625), large};
  }

 private:
  uint32_t mode_ = 0;
};
TYPED_TEST_SUITE(LoopReports, ComplexElements);

TYPED_TEST(LoopReports, CSinWithACodeFromItsRoutineReadsTheElementBackSoACallbacksChangeSurvives) {
  using C = TypeParam;
  for (const char* f : {"Sin", "Cos", "Sinh", "Cosh"}) {
    for (bool strided : {false, true}) {
      contexts.clear();
      const int step = strided ? 3 : 1;
      std::vector<C> a(60, C{1, 1}), r(60, C{5, 5});
      a[static_cast<size_t>(4 * step)] = this->overflowing(f);
      Call<C> c;
      c.n = 10, c.a = a.data(), c.r1 = r.data(), c.incA = c.incR1 = step;
      ASSERT_TRUE(call_row(row_named(this->row(f)), 1, strided, c));
      ASSERT_EQ(contexts.size(), 1u) << f;
      EXPECT_TRUE(same_value(r[static_cast<size_t>(4 * step)], C{17, -19})) << f;
      EXPECT_TRUE(same_value(r[static_cast<size_t>(5 * step)], r[0])) << f;
    }
  }
}

TYPED_TEST(LoopReports, ACallbackThatHandlesTheElementLeavesTheResultAsItWas) {
  using C = TypeParam;
  answer = 1;
  const C a = this->overflowing("Sin");
  C r;
  Call<C> c;
  c.n = 1, c.a = &a, c.r1 = &r;
  ASSERT_TRUE(call_row(row_named(this->row("Sin")), 1, false, c));
  EXPECT_EQ(contexts.size(), 1u);
  EXPECT_TRUE(std::isinf(r.im));
}

TYPED_TEST(LoopReports, TheContextHasRealAndImaginaryPartsAndTheNameWithoutTheFinalI) {
  using C = TypeParam;
  for (const char* f : {"Sin", "Cos", "Sinh", "Cosh"}) {
    for (bool strided : {false, true}) {
      contexts.clear();
      std::vector<C> a(8, C{1, 1}), r(8);
      a[6] = this->overflowing(f);
      Call<C> c;
      c.n = 4, c.a = a.data(), c.r1 = r.data(), c.incA = c.incR1 = 2;
      if (!strided) c.n = 8;
      ASSERT_TRUE(call_row(row_named(this->row(f)), 1, strided, c));
      ASSERT_EQ(contexts.size(), 1u);
      const ZymErrorContext& e = contexts[0];
      EXPECT_EQ(e.code, kOverflow) << f;
      EXPECT_EQ(e.index, strided ? 3 : 6) << f;
      EXPECT_EQ(e.arg1, static_cast<double>(a[6].re));
      EXPECT_EQ(e.arg1Imag, static_cast<double>(a[6].im));
      EXPECT_EQ(e.arg2, e.arg1);
      EXPECT_EQ(e.arg2Imag, e.arg1Imag);
      EXPECT_TRUE(std::isinf(e.result1) || std::isinf(e.result1Imag)) << f;
      EXPECT_EQ(e.result2, e.result1);
      EXPECT_EQ(e.result2Imag, e.result1Imag);
      EXPECT_EQ(e.functionName, this->short_name(f));
      EXPECT_EQ(e.functionNameLength, static_cast<int32_t>(std::strlen(e.functionName)));
    }
  }
}

TYPED_TEST(LoopReports, TheIndexIsShiftedByElementsFromTheWholeVector) {
  using C = TypeParam;
  std::vector<C> whole(100, C{1, 1}), r(100);
  whole[53] = this->overflowing("Cos");
  _zymSetInterfInputVectorPointer(whole.data());
  Call<C> c;
  c.n = 20, c.a = whole.data() + 50, c.r1 = r.data();
  ASSERT_TRUE(call_row(row_named(this->row("Cos")), 1, false, c));
  ASSERT_EQ(contexts.size(), 1u);
  EXPECT_EQ(contexts[0].index, 53);
  EXPECT_TRUE(same_value(r[3], C{17, -19}));
}

TYPED_TEST(LoopReports, ElementsAreReportedInAscendingOrderAndTheLastStatusStands) {
  using C = TypeParam;
  std::vector<C> a(40, C{1, 1}), r(40);
  a[5] = this->overflowing("Sinh");
  a[31] = C{this->inf, this->inf};
  Call<C> c;
  c.n = 40, c.a = a.data(), c.r1 = r.data();
  _zymSetErrStatus(0);
  ASSERT_TRUE(call_row(row_named(this->row("Sinh")), 1, false, c));
  ASSERT_EQ(contexts.size(), 2u);
  EXPECT_EQ(contexts[0].index, 5);
  EXPECT_EQ(contexts[0].code, kOverflow);
  EXPECT_EQ(contexts[1].index, 31);
  EXPECT_EQ(contexts[1].code, kDomain);
  EXPECT_EQ(_zymGetErrStatus(), kDomain);
}

TYPED_TEST(LoopReports, AnInfinityWithoutADirectionIsADomainErrorAndOneWithADirectionNone) {
  using C = TypeParam;
  answer = 1;
  const auto code = [&](const char* f, C z) {
    contexts.clear();
    C r;
    Call<C> c;
    c.n = 1, c.a = &z, c.r1 = &r;
    EXPECT_TRUE(call_row(row_named(this->row(f)), 1, false, c));
    return contexts.empty() ? 0 : contexts[0].code;
  };
  EXPECT_EQ(code("Sin", C{this->inf, 1}), kDomain);
  EXPECT_EQ(code("Cos", C{this->inf, this->inf}), kDomain);
  EXPECT_EQ(code("Cosh", C{1, this->inf}), kDomain);
  EXPECT_EQ(code("Sin", C{1, this->inf}), 0);
  EXPECT_EQ(code("Sinh", C{-this->inf, 1}), 0);
  EXPECT_EQ(code("Cosh", C{this->inf, 0}), 0);
}

TYPED_TEST(LoopReports, PowersReportBothArgumentsAndPowxItsScalarAsTheSecond) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const C big = C{this->largest, 1}, exponent = C{2, E(0.5)};
  for (bool strided : {false, true}) {
    std::vector<C> a(12, C{1, 1}), b(12, exponent), r(12);
    a[6] = big;
    for (const char* f : {"Pow", "Powx"}) {
      contexts.clear();
      Call<C> c;
      c.n = strided ? 4 : 12, c.a = a.data(), c.b = b.data(), c.r1 = r.data(), c.incA = c.incB = c.incR1 = 3;
      c.fraction[0] = exponent;
      if (strided) a[9] = big;
      ASSERT_TRUE(call_row(row_named(this->row(f)), 1, strided, c));
      ASSERT_GE(contexts.size(), 1u) << f;
      const ZymErrorContext& e = contexts[0];
      EXPECT_EQ(e.code, kOverflow) << f;
      EXPECT_EQ(e.index, strided ? 2 : 6) << f;
      EXPECT_EQ(e.arg1, static_cast<double>(big.re)) << f;
      EXPECT_EQ(e.arg1Imag, 1.0) << f;
      EXPECT_EQ(e.arg2, 2.0) << f;
      EXPECT_EQ(e.arg2Imag, 0.5) << f;
      EXPECT_EQ(e.functionName, this->short_name(f));
      EXPECT_TRUE(same_value(r[6], C{17, -19})) << f;
    }
  }
}

TYPED_TEST(LoopReports, ZeroToAPowerOfNegativeRealPartIsASingularity) {
  using C = TypeParam;
  answer = 1;
  const auto code = [&](C x, C y) {
    contexts.clear();
    C r;
    Call<C> c;
    c.n = 1, c.a = &x, c.b = &y, c.r1 = &r;
    EXPECT_TRUE(call_row(row_named(this->row("Pow")), 1, false, c));
    return contexts.empty() ? 0 : contexts[0].code;
  };
  EXPECT_EQ(code(C{0, 0}, C{-1, 0}), kSingularity);
  EXPECT_EQ(code(C{0, 0}, C{-1, 2}), kSingularity);
  EXPECT_EQ(code(C{0, 0}, C{0, 2}), kDomain);
  EXPECT_EQ(code(C{0, 0}, C{0, 0}), 0);
  EXPECT_EQ(code(C{0, 0}, C{1, 2}), 0);
  EXPECT_EQ(code(C{2, 1}, C{-4000, 0}), 0);
}

TYPED_TEST(LoopReports, TheOthersNeverReport) {
  using C = TypeParam;
  const std::vector<typename TestFixture::E> parts = {-this->inf, -this->largest, -1,        0,
                                                      1,          this->largest,  this->inf, this->nan};
  std::vector<C> z;
  for (auto x : parts) {
    for (auto y : parts) z.push_back({x, y});
  }
  for (const char* f : {"Tan", "Tanh", "Acos", "Asin", "Atan", "Acosh", "Asinh", "Atanh", "Log10"}) {
    this->values(f, z);
    EXPECT_TRUE(contexts.empty()) << f;
  }
}

TYPED_TEST(LoopReports, InPlaceGivesWhatSeparateArraysGive) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  answer = 1;
  std::vector<C> a, b;
  for (int i = 0; i < 77; ++i) a.push_back({E(i) / 10 - 3, 2 - E(i) / 20}), b.push_back({E(i) / 30 - 1, 1 - E(i) / 40});
  for (const char* f : {"Sin", "Asin", "Tan", "Atanh", "Log10", "Pow"}) {
    const std::vector<C> apart = this->values(f, a, b);
    std::vector<C> z = a, w = b;
    Call<C> c;
    c.n = 77, c.a = z.data(), c.b = w.data(), c.r1 = z.data();
    ASSERT_TRUE(call_row(row_named(this->row(f)), 1, false, c));
    for (size_t i = 0; i < z.size(); ++i) EXPECT_TRUE(same_value(z[i], apart[i])) << f << i;
  }
}

// --- flags ----------------------------------------------------------------------------------------------------------

template <class C>
class LoopFlags : public LoopTest<C> {
 protected:
  static int flags(const char* f, C z, C w = {}) {
    const uint32_t mode = _zymSetMode(ZYM_ERRMODE_NOERR);
    C r;
    Call<C> c;
    c.n = 1, c.a = &z, c.b = &w, c.r1 = &r;
    const Row& row = row_named(LoopTest<C>::row(f));
    std::feclearexcept(FE_ALL_EXCEPT);
    EXPECT_TRUE(call_row(row, 1, false, c));
    const int raised = std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW);
    std::feclearexcept(FE_ALL_EXCEPT);
    _zymSetMode(mode | 0x140000);
    return raised;
  }
};
TYPED_TEST_SUITE(LoopFlags, ComplexElements);

TYPED_TEST(LoopFlags, FiniteResultsRaiseNone) {
  using E = typename TestFixture::E;
  for (const char* f : kUnaryLoops) {
    for (E x : {E(0), E(0.3), E(-2.5), E(30), this->smallest, this->tiny}) {
      for (E y : {E(0.2), E(-1.1), E(40), this->smallest * 8, -this->tiny}) {
        EXPECT_EQ(this->flags(f, {x, y}), 0) << f << x << " " << y;
        EXPECT_EQ(this->flags(f, {y, x}), 0) << f << y << " " << x;
      }
    }
  }
  for (E x : {E(0.3), E(-2.5), E(30), this->smallest}) {
    EXPECT_EQ(this->flags("Pow", {x, E(1.5)}, {E(0.5), x}), 0) << x;
    EXPECT_EQ(this->flags("Pow", {E(0.6), E(0.8)}, {E(100000), x}), 0) << x;
  }
}

TYPED_TEST(LoopFlags, LargeArgumentsOfInverseFunctionsRaiseNone) {
  using E = typename TestFixture::E;
  for (const char* f : {"Tan", "Tanh", "Acos", "Asin", "Atan", "Acosh", "Asinh", "Atanh", "Log10"}) {
    for (E x : {this->largest, -this->largest / 3, E(1)}) {
      for (E y : {this->largest, E(0.5), -this->smallest}) {
        EXPECT_EQ(this->flags(f, {x, y}), 0) << f << x << " " << y;
        EXPECT_EQ(this->flags(f, {y, x}), 0) << f << y << " " << x;
      }
    }
  }
}

TYPED_TEST(LoopFlags, AnOverflowRaisesOverflowAndAPoleDivideByZero) {
  using E = typename TestFixture::E;
  const E large = sizeof(E) == 4 ? E(90) : E(720);
  EXPECT_EQ(this->flags("Sinh", {large, 1}), FE_OVERFLOW);
  EXPECT_EQ(this->flags("Cos", {1, large}), FE_OVERFLOW);
  EXPECT_EQ(this->flags("Pow", {this->largest, 1}, {3, 0}), FE_OVERFLOW);
  EXPECT_EQ(this->flags("Log10", {0, 0}), FE_DIVBYZERO);
  EXPECT_EQ(this->flags("Atanh", {1, 0}), FE_DIVBYZERO);
  EXPECT_EQ(this->flags("Atan", {0, -1}), FE_DIVBYZERO);
  EXPECT_EQ(this->flags("Pow", {0, 0}, {-1, 0}), FE_DIVBYZERO);
}

TYPED_TEST(LoopFlags, QuietNansRaiseNoneSignallingOnesAndLostDirectionsInvalid) {
  using E = typename TestFixture::E;
  const E signalling = std::numeric_limits<E>::signaling_NaN();
  for (const char* f : kUnaryLoops) {
    EXPECT_EQ(this->flags(f, {this->nan, 1}), 0) << f;
    EXPECT_EQ(this->flags(f, {this->nan, this->nan}), 0) << f;
    EXPECT_EQ(this->flags(f, {signalling, 1}), FE_INVALID) << f;
    EXPECT_EQ(this->flags(f, {1, signalling}), FE_INVALID) << f;
  }
  EXPECT_EQ(this->flags("Sin", {this->inf, 1}), FE_INVALID);
  EXPECT_EQ(this->flags("Tan", {this->inf, 1}), FE_INVALID);
  EXPECT_EQ(this->flags("Sin", {1, this->inf}), 0);
  EXPECT_EQ(this->flags("Pow", {this->nan, 1}, {2, 1}), 0);
}

}  // namespace
}  // namespace orvik::test
