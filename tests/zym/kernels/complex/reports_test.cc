// Reports of complex elements: the context's fields, names, shifts by elements, what a callback changes.
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "complex_rows.h"

namespace orvik::test {
namespace {

ZymErrorContext seen;
int seen_count;
int32_t keep_context(ZymErrorContext* c) {
  seen = *c;
  ++seen_count;
  return 0;
}
int32_t change_result(ZymErrorContext* c) {
  c->result1 = 42, c->result1Imag = -43;
  return 0;
}
int32_t change_and_handle(ZymErrorContext* c) {
  c->result1 = 42, c->result1Imag = -43;
  return 1;
}

template <class C>
class ComplexReports : public ComplexTest<C> {
 protected:
  using E = Part<C>;
  void SetUp() override {
    seen = {};
    seen_count = 0;
    _zymSetMode(ZYM_ERRMODE_CALLBACK);
    _zymClearErrStatus();
  }
  void TearDown() override {
    _zymSetErrorCallBack(nullptr);
    _zymSetMode(ZYM_ERRMODE_DEFAULT);
    orvik_zym_kernel_SetInterfInputVectorPointer(nullptr);
  }

  // n elements, one of which overflows.
  std::vector<C> run(const std::string& function, int level, bool strided, int32_t n, int32_t at) {
    std::vector<C> a(static_cast<size_t>(2 * n), C{1, 2}), b(static_cast<size_t>(2 * n), C{3, 4}),
        r(static_cast<size_t>(2 * n));
    const auto place = static_cast<size_t>(strided ? 2 * at : at);
    const E M = std::numeric_limits<E>::max();
    a[place] = function == "Exp" ? C{E(2000), E(0.5)} : C{M, -M};
    b[place] = function == "Sub" ? C{-M, E(5)} : function == "Div" ? C{E(0.25), 0} : C{M, E(5)};
    Call<C> call;
    call.n = n, call.a = a.data(), call.b = b.data(), call.r1 = r.data();
    call.incA = call.incB = call.incR1 = strided ? 2 : 1;
    kept_a = a[place], kept_b = b[place];
    call_row(row_named(this->row(function)), level, strided, call);
    return {r[place], r[place + 1]};
  }
  C kept_a, kept_b;
};
TYPED_TEST_SUITE(ComplexReports, ComplexElements);

TYPED_TEST(ComplexReports, ContextHoldsBothPartsOfArgumentsAndResult) {
  _zymSetErrorCallBack(keep_context);
  for (const char* function : {"Add", "Sub", "Mul", "MulByConj", "Div", "Exp"}) {
    for (int level = 0; level < 3; ++level) {
      for (bool strided : {false, true}) {
        for (int32_t at : {0, 17, 40}) {
          seen_count = 0;
          const auto r = this->run(function, level, strided, 41, at);
          ASSERT_EQ(seen_count, 1) << function << kLevelNames[level] << strided << at;
          EXPECT_EQ(seen.code, kOverflowCode);
          EXPECT_EQ(seen.index, at);
          EXPECT_EQ(seen.arg1, this->kept_a.re);
          EXPECT_EQ(seen.arg1Imag, this->kept_a.im);
          const bool unary = std::string(function) == "Exp";  // passes its argument again
          EXPECT_EQ(seen.arg2, unary ? this->kept_a.re : this->kept_b.re);
          EXPECT_EQ(seen.arg2Imag, unary ? this->kept_a.im : this->kept_b.im);
          EXPECT_TRUE(std::isinf(seen.result1) || std::isinf(seen.result1Imag)) << function;
          EXPECT_EQ(seen.result1, r[0].re) << function;
          EXPECT_EQ(seen.result1Imag, r[0].im) << function;
          EXPECT_EQ(seen.result2, seen.result1);
          EXPECT_EQ(seen.result2Imag, seen.result1Imag);
          EXPECT_EQ(_zymGetErrStatus(), kOverflowCode);
        }
      }
    }
  }
}

// All strided kernels pass their twin's name, but the highest level of the strided zExp.
TYPED_TEST(ComplexReports, ShortNames) {
  _zymSetErrorCallBack(keep_context);
  for (const char* function : {"Add", "Sub", "Mul", "MulByConj", "Div", "Exp"}) {
    for (int level = 0; level < 3; ++level) {
      for (bool strided : {false, true}) {
        this->run(function, level, strided, 5, 3);
        std::string plain("v");
        plain += this->row(function);
        const std::string want = plain == "vzExp" && strided && level == 1 ? "vzExpI" : plain;
        EXPECT_STREQ(seen.functionName, want.c_str()) << level << strided;
        EXPECT_EQ(seen.functionNameLength, static_cast<int32_t>(want.size()));
      }
    }
  }
}

TYPED_TEST(ComplexReports, TheIndexIsShiftedByWholeElements) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  _zymSetErrorCallBack(keep_context);
  const E M = this->largest;
  std::vector<C> a(1100, C{1, 1}), r(1100);
  a[1003] = C{M, 0};
  orvik_zym_kernel_SetInterfInputVectorPointer(a.data());
  Call<C> call;
  call.n = 60, call.a = call.b = a.data() + 1000, call.r1 = r.data() + 1000;
  call_row(row_named(this->row("Add")), 1, false, call);
  EXPECT_EQ(seen.index, 1003);
  EXPECT_EQ(seen.arg1, M);
  EXPECT_EQ(seen.result1, this->inf);
}

TYPED_TEST(ComplexReports, ACallbacksChangeOfAReportedElementSurvives) {
  _zymSetErrorCallBack(change_result);
  for (const char* function : {"Add", "Sub", "Mul", "MulByConj", "Div", "Exp"}) {
    for (int level = 0; level < 3; ++level) {
      for (bool strided : {false, true}) {
        for (int32_t at : {0, 17, 40}) {
          const auto r = this->run(function, level, strided, 41, at);
          EXPECT_EQ(r[0].re, 42) << function << level << strided << at;
          EXPECT_EQ(r[0].im, -43);
        }
      }
    }
  }
}

TYPED_TEST(ComplexReports, ACallbackThatHandledTheElementChangesNothing) {
  _zymSetErrorCallBack(change_and_handle);
  for (const char* function : {"Add", "Mul", "Div", "Exp"}) {
    const auto r = this->run(function, 1, false, 41, 17);
    EXPECT_TRUE(std::isinf(r[0].re)) << function;
  }
}

TYPED_TEST(ComplexReports, NothingIsReportedWithErrorsOff) {
  _zymSetErrorCallBack(keep_context);
  _zymSetMode(ZYM_ERRMODE_NOERR);
  for (const char* function : {"Add", "Mul", "Div", "Exp"}) {
    const auto r = this->run(function, 1, false, 41, 17);
    EXPECT_TRUE(std::isinf(r[0].re) || std::isinf(r[0].im)) << function;
  }
  EXPECT_EQ(seen_count, 0);
  EXPECT_EQ(_zymGetErrStatus(), 0);
}

}  // namespace
}  // namespace orvik::test
