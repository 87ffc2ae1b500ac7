// Brackets around kernel calls, and the scalar fronts of the kernels.
#include "qor/rng/bracket.h"

#include <fenv.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "orvik/ss.h"
#include "qor/ss/kernels.h"

namespace orvik::qor {
namespace {

int32_t ours(ZymErrorContext*) { return 0; }
int32_t theirs(ZymErrorContext*) { return 0; }

uint16_t x87_word() {
  uint16_t word;
  asm volatile("fnstcw %0" : "=m"(word));
  return word;
}

TEST(KernelBracket, SetsFullDenormalsAndMergesTheModeBack) {
  _zymSetMode(0x280000);
  {
    const KernelBracket bracket;
    EXPECT_EQ(_zymGetMode() & 0x3C0000, 0x140000u);
  }
  EXPECT_EQ(_zymGetMode() & 0x3C0000, 0x280000u);
}

TEST(EntryBracket, PutsCallbackAndModeBack) {
  _zymSetErrorCallBack(theirs);
  _zymSetMode(ZYM_ERRMODE_CALLBACK | ZYM_ERRMODE_ERRNO);
  const uint32_t before = _zymGetMode();
  {
    const EntryBracket bracket(ours);
    EXPECT_EQ(_zymGetErrorCallBack(), ours);
    EXPECT_EQ(_zymGetMode() & 0xFF00, static_cast<uint32_t>(ZYM_ERRMODE_CALLBACK));
  }
  EXPECT_EQ(_zymGetErrorCallBack(), theirs);
  EXPECT_EQ(_zymGetMode(), before);
  _zymSetErrorCallBack(nullptr);
  _zymSetMode(ZYM_ERRMODE_DEFAULT);
}

TEST(EntryBracket, MasksExceptionsForItsDurationOnly) {
  feclearexcept(FE_ALL_EXCEPT);
  feenableexcept(FE_DIVBYZERO | FE_INVALID);
  const uint16_t x87 = x87_word();
  const uint32_t mxcsr = _mm_getcsr();
  {
    const EntryBracket bracket(ours);
    EXPECT_EQ(x87_word() & 0x3F, 0x3F);
    EXPECT_EQ(_mm_getcsr() & 0x1F80, 0x1F80u);
    volatile double zero = 0;
    EXPECT_TRUE(std::isinf(1 / zero)) << "no trap";
  }
  EXPECT_EQ(x87_word(), x87);
  EXPECT_EQ(_mm_getcsr(), mxcsr);
  fedisableexcept(FE_ALL_EXCEPT);
  feclearexcept(FE_ALL_EXCEPT);
}

TEST(EntryBracket, Nests) {
  const uint32_t before = _zymGetMode();
  {
    const EntryBracket outer(ours);
    {
      const EntryBracket inner(theirs);
      EXPECT_EQ(_zymGetErrorCallBack(), theirs);
    }
    EXPECT_EQ(_zymGetErrorCallBack(), ours);
  }
  EXPECT_EQ(_zymGetErrorCallBack(), nullptr);
  EXPECT_EQ(_zymGetMode() & 0xFF00, before & 0xFF00);
}

TEST(ScalarFronts, AreWithinOneUlp) {
  for (double x : {1e-300, 0.3, 1.0, 2.0, 12345.678, 1e300}) {
    EXPECT_NEAR(__qordLn(x), std::log(x), std::fabs(std::log(x)) * 2.3e-16);
    EXPECT_NEAR(__qordSqrt(x), std::sqrt(x), std::sqrt(x) * 2.3e-16);
    if (x > 1e-30 && x < 1e30) {
      const auto y = static_cast<float>(x);
      EXPECT_NEAR(__qorsLn(y), std::log(y), std::fabs(std::log(y)) * 1.2e-7f);
      EXPECT_NEAR(__qorsSqrt(y), std::sqrt(y), std::sqrt(y) * 1.2e-7f);
    }
  }
}

template <class T>
void expect_inverse_roots() {
  const T a[] = {4, 0, T(0.25), -1, std::numeric_limits<T>::quiet_NaN(), 100, 3};
  T r[7];
  _zymClearErrStatus();
  ss::inverse_square_roots(7, a, r);
  const T eps = std::numeric_limits<T>::epsilon();
  for (int i : {0, 2, 5, 6}) EXPECT_NEAR(r[i], 1 / std::sqrt(a[i]), 4 * eps / std::sqrt(a[i]));
  for (int i : {1, 3, 4}) EXPECT_TRUE(std::isnan(r[i])) << i;
}

TEST(InverseSquareRoots, AreNanWhereThereIsNone) {
  expect_inverse_roots<double>();
  expect_inverse_roots<float>();
}

}  // namespace
}  // namespace orvik::qor
