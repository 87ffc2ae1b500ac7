// Control registers around a kernel.
#include <gtest/gtest.h>
#include <immintrin.h>

#include <bit>
#include <cfloat>
#include <vector>

#include "orvik/zym.h"
#include "support/thread.h"

namespace orvik::zym {
namespace {

constexpr uint32_t kFlags = 0x3F;
constexpr uint32_t kRoundUp = 0x4000;
constexpr uint32_t kFlushToZero = 0x8000;
constexpr uint32_t kDenormalsAreZero = 0x40;

class Control : public testing::Test {
 protected:
  void TearDown() override {
    _mm_setcsr(0x1F80);
    asm volatile("fninit");
  }
  static uint16_t x87_control() {
    uint16_t control;
    asm volatile("fnstcw %0" : "=m"(control));
    return control;
  }
  static uint16_t x87_status() {
    uint16_t status;
    asm volatile("fnstsw %0" : "=a"(status));
    return status;
  }
};

TEST_F(Control, CallersRoundingDirectionDoesNotReachTheResults) {
  std::vector<double> a(37, 1.0), b(37, 0x1p-60), r(37);
  _mm_setcsr(0x1F80 | kRoundUp);
  _zymdAdd(37, a.data(), b.data(), r.data());
  const uint32_t after = _mm_getcsr();
  _mm_setcsr(0x1F80);
  EXPECT_EQ(after & 0xFFC0, 0x1F80 | kRoundUp);
  for (double x : r) EXPECT_EQ(x, 1.0);
  std::vector<float> s(37, 2.5f), t(37);
  _mm_setcsr(0x1F80 | kRoundUp);
  _zymsRint(37, s.data(), t.data());
  _zymsNearbyInt(37, s.data(), s.data());
  _mm_setcsr(0x1F80);
  for (float x : t) EXPECT_EQ(x, 2.0f);
  for (float x : s) EXPECT_EQ(x, 2.0f);
}

TEST_F(Control, FlushBitIsAsBeforeAndTheKernelRunsWithoutIt) {
  std::vector<float> a(37, FLT_MIN), b(37, FLT_MIN * 0.75f), r(37);
  _mm_setcsr(0x1F80 | kFlushToZero | kDenormalsAreZero);
  _zymsSub(37, a.data(), b.data(), r.data());
  const uint32_t after = _mm_getcsr();
  _mm_setcsr(0x1F80);
  EXPECT_EQ(after & 0xFFC0, 0x1F80 | kFlushToZero | kDenormalsAreZero);
  for (float x : r) EXPECT_EQ(x, FLT_MIN * 0.25f);
}

TEST_F(Control, InexactFlagRaisedByTheKernelStays) {
  const double a = 1.0, b = 0x1p-60;
  double r;
  for (uint32_t control : {0x1F80u, 0x1F80u | kRoundUp, 0x9FC0u}) {
    _mm_setcsr(control);
    _zymdAdd(1, &a, &b, &r);
    EXPECT_EQ(_mm_getcsr() & kFlags, uint32_t{_MM_EXCEPT_INEXACT}) << control;
  }
}

TEST_F(Control, FlagsOfTheCallerStay) {
  const float a = 1, b = 2;
  float r;
  _mm_setcsr(0x1F80 | kRoundUp | _MM_EXCEPT_DIV_ZERO);
  _zymsAdd(1, &a, &b, &r);
  EXPECT_EQ(_mm_getcsr() & kFlags, uint32_t{_MM_EXCEPT_DIV_ZERO});
}

TEST_F(Control, UnmaskedVectorExceptionsDoNotTrapInside) {
  const double a = DBL_MAX;
  double r;
  _mm_setcsr(0x1F80 & ~uint32_t{_MM_MASK_OVERFLOW});
  _zymdSqr(1, &a, &r);
  const uint32_t after = _mm_getcsr();
  _mm_setcsr(0x1F80);
  EXPECT_TRUE(r > DBL_MAX);
  EXPECT_EQ(after & 0xFFC0, 0x1F80 & ~uint32_t{_MM_MASK_OVERFLOW});
}

TEST_F(Control, X87WordIsPutBackAndItsPendingFlagsAreCleared) {
  // Raise inexact in the x87 unit while masked, then unmask overflow only: nothing waits, the kernel must still clear.
  volatile long double quotient = 1.0L;
  quotient = quotient / 3.0L;
  ASSERT_NE(x87_status() & 0x20, 0);
  const uint16_t open = static_cast<uint16_t>(x87_control() & ~0x08);
  asm volatile("fldcw %0" : : "m"(open));
  const float a = 1;
  float r;
  _zymsAbs(1, &a, &r);
  EXPECT_EQ(x87_control(), open);
  EXPECT_EQ(x87_status() & 0x3F, 0);
}

TEST_F(Control, UnmaskedX87ExceptionsAreMaskedWhileTheKernelRuns) {
  static uint16_t inside;
  inside = 0;
  test::on_fresh_thread([] {
    _zymSetMode(ZYM_ERRMODE_IGNORE);
    _zymSetErrorCallBack([](ZymErrorContext*) {
      inside = x87_control();
      return 1;
    });
    _zymSetMode(ZYM_ERRMODE_CALLBACK);
    for (uint16_t open : {0x340, 0x37E, 0x37B, 0x377, 0x36F, 0x35F}) {  // all unmasked, then one each
      asm volatile("fldcw %0" : : "m"(open));
      inside = 0;
      std::vector<float> a(40, 1.0f), r(40);
      a[38] = -1;
      _zymsLn(40, a.data(), r.data());  // reports from the remainder
      EXPECT_EQ(inside, open | 0x3F);
      EXPECT_EQ(x87_control(), open);
    }
  });
}

TEST_F(Control, MaskedX87FlagsAreLeftAlone) {
  volatile long double quotient = 1.0L;
  quotient = quotient / 3.0L;
  const uint16_t before = x87_status();
  const float a = 1;
  float r;
  _zymsAbs(1, &a, &r);
  EXPECT_EQ(x87_status(), before);
}

TEST_F(Control, FlushingModeReadsDenormalsAsZero) {
  test::on_fresh_thread([] {
    _zymSetMode(ZYM_FLUSH_DENORMALS);
    std::vector<double> a(21, DBL_MIN / 2), b(21, 1.0), r(21);
    _zymdMul(21, a.data(), b.data(), r.data());
    for (double x : r) EXPECT_EQ(x, 0.0);
    a.assign(21, DBL_MIN);
    b.assign(21, 0.5);
    _zymdMul_26(21, a.data(), b.data(), r.data());
    for (double x : r) EXPECT_EQ(std::bit_cast<uint64_t>(x), 0u);
    EXPECT_EQ(_mm_getcsr() & 0xFFC0, 0x1F80u);
  });
}

TEST_F(Control, OtherDenormalFieldsRunWithDenormals) {
  for (uint32_t field : {0x40000u, 0x80000u, 0x140000u, 0x240000u, 0x3C0000u}) {
    test::on_fresh_thread([field] {
      _zymSetMode(field);
      const double a = DBL_MIN, b = 0.5;
      double r;
      _zymdMul(1, &a, &b, &r);
      EXPECT_EQ(r, DBL_MIN / 2) << field;
    });
  }
}

TEST_F(Control, CountOfZeroComputesNothing) {
  _mm_setcsr(0x1F80 | kRoundUp);
  _zymsAdd(0, nullptr, nullptr, nullptr);
  _zymdAbsI(0, nullptr, 1, nullptr, 1);
  EXPECT_EQ(_mm_getcsr(), 0x1F80 | kRoundUp);
}

}  // namespace
}  // namespace orvik::zym
