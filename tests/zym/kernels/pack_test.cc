// The data movers, in every element type, through their entries (32-bit form) and through the table (64-bit form).
#include <gtest/gtest.h>

#include <bit>
#include <vector>

#include "orvik/zym.h"

namespace orvik::zym {
namespace {

TEST(Pack, StridedGatherWithNegativeIncrementReverses) {
  const double a[5] = {1, 2, 3, 4, 5};
  double y[5] = {};
  _zymdPackI(5, a + 4, -1, y);
  EXPECT_EQ(std::vector<double>(y, y + 5), (std::vector<double>{5, 4, 3, 2, 1}));
}

TEST(Pack, UnpackWithIncrementZeroKeepsTheLastElement) {
  const float a[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  float y[2] = {-1, -1};
  _zymsUnpackI_21(9, a, y, 0);
  EXPECT_EQ(y[0], 9.0f);
  EXPECT_EQ(y[1], -1.0f);
}

TEST(Pack, IndexGatherAndScatter) {
  const ZymComplexFloat a[4] = {{1, 2}, {3, 4}, {5, 6}, {7, 8}};
  const int32_t index[3] = {3, 0, 2};
  ZymComplexFloat y[3] = {};
  _zymcPackV(3, a, index, y);
  EXPECT_EQ(y[0].re, 7.0f);
  EXPECT_EQ(y[1].im, 2.0f);
  EXPECT_EQ(y[2].re, 5.0f);
  ZymComplexFloat back[4] = {};
  _zymcUnpackV_11(3, y, back, index);
  EXPECT_EQ(back[3].im, 8.0f);
  EXPECT_EQ(back[0].re, 1.0f);
  EXPECT_EQ(back[1].re, 0.0f);
  EXPECT_EQ(back[2].re, 5.0f);
}

TEST(Pack, RepeatedIndexKeepsTheLaterElement) {
  const double a[3] = {1, 2, 3};
  const int32_t index[3] = {1, 1, 0};
  double y[2] = {};
  _zymdUnpackV_26(3, a, y, index);
  EXPECT_EQ(y[1], 2.0);
  EXPECT_EQ(y[0], 3.0);
}

TEST(Pack, MaskGathersAndSpreadsNonZeroEntries) {
  const ZymComplexDouble a[6] = {{1, -1}, {2, -2}, {3, -3}, {4, -4}, {5, -5}, {6, -6}};
  const int32_t mask[6] = {0, 7, -1, 0, 0, 1 << 30};
  ZymComplexDouble y[4] = {};
  _zymzPackM_50(6, a, mask, y);
  EXPECT_EQ(y[0].im, -2.0);
  EXPECT_EQ(y[1].re, 3.0);
  EXPECT_EQ(y[2].re, 6.0);
  EXPECT_EQ(y[3].re, 0.0);
  ZymComplexDouble back[6] = {{9, 9}, {9, 9}, {9, 9}, {9, 9}, {9, 9}, {9, 9}};
  _zymzUnpackM(6, y, back, mask);
  EXPECT_EQ(back[0].re, 9.0);  // untouched where the mask is zero
  EXPECT_EQ(back[1].re, 2.0);
  EXPECT_EQ(back[5].im, -6.0);
}

TEST(Pack, AllZeroMaskWritesNothing) {
  const ZymComplexDouble a[10] = {};
  const int32_t mask[10] = {};
  for (int n : {1, 3, 4, 10}) {  // of the null pointer nothing can be written
    _zymsPackM(n, reinterpret_cast<const float*>(a), mask, nullptr);
    _zymdPackM(n, reinterpret_cast<const double*>(a), mask, nullptr);
    _zymcPackM(n, reinterpret_cast<const ZymComplexFloat*>(a), mask, nullptr);
    _zymzPackM(n, a, mask, nullptr);
  }
}

TEST(Pack, NanPayloadsSurviveBitForBit) {
  const uint32_t signalling = 0x7F812345u;
  const uint64_t wide = 0xFFF0000000054321u;
  const float a[2] = {std::bit_cast<float>(signalling), 1.0f};
  const double d[2] = {1.0, std::bit_cast<double>(wide)};
  const int32_t index[2] = {1, 0};
  float y[2], z[2];
  double yd[2], zd[2];
  _zymsPackV(2, a, index, y);
  _zymsUnpackV(2, y, z, index);
  EXPECT_EQ(std::bit_cast<uint32_t>(y[1]), signalling);
  EXPECT_EQ(std::bit_cast<uint32_t>(z[0]), signalling);
  _zymdPackV(2, d, index, yd);
  _zymdUnpackV(2, yd, zd, index);
  EXPECT_EQ(std::bit_cast<uint64_t>(yd[0]), wide);
  EXPECT_EQ(std::bit_cast<uint64_t>(zd[1]), wide);
}

TEST(Pack, EntriesSeeTheLow32BitsOfTheCount) {
  const float a[3] = {1, 2, 3};
  float y[3] = {};
  _zymsPackI((int64_t{1} << 32) + 2, a, 1, y);
  EXPECT_EQ(y[1], 2.0f);
  EXPECT_EQ(y[2], 0.0f);
  _zymsPackI(int64_t{1} << 33, a, 1, nullptr);  // 0 elements
}

TEST(Pack, CountBelowOneReturnsAtOnce) {
  _zymdPackI(0, nullptr, 1, nullptr);
  _zymdPackI(-5, nullptr, 1, nullptr);
  _zymdUnpackM(-1, nullptr, nullptr, nullptr);
}

TEST(Pack, TheTableFormTakes64BitIndicesMasksAndIncrements) {
  const double a[5] = {1, 2, 3, 4, 5};
  double y[5] = {};
  using Mask = void (*)(int64_t, const double*, const int64_t*, double*, int32_t);
  using Strided = void (*)(int64_t, const double*, int64_t, double*, int32_t);
  using Spread = void (*)(int64_t, const double*, double*, const int64_t*, int32_t);
  const int64_t mask[5] = {0, int64_t{1} << 40, 0, 0, -1};
  reinterpret_cast<Mask>(orvik_zym_kernel_dPackM_ttab[0])(5, a, mask, y, 0);
  EXPECT_EQ(y[0], 2.0);
  EXPECT_EQ(y[1], 5.0);
  EXPECT_EQ(y[2], 0.0);
  const int64_t index[2] = {4, 1};
  reinterpret_cast<Mask>(orvik_zym_kernel_dPackV_ttab[2])(2, a, index, y, 64);
  EXPECT_EQ(y[0], 5.0);
  EXPECT_EQ(y[1], 2.0);
  reinterpret_cast<Strided>(orvik_zym_kernel_dPackI_ttab[1])(3, a, 2, y, 2);
  EXPECT_EQ(y[2], 5.0);
  double back[5] = {};
  reinterpret_cast<Spread>(orvik_zym_kernel_dUnpackM_ttab[1])(5, a, back, mask, -1);
  EXPECT_EQ(back[1], 1.0);
  EXPECT_EQ(back[4], 2.0);
  reinterpret_cast<Mask>(orvik_zym_kernel_dPackM_ttab[0])(-1, nullptr, nullptr, nullptr, 0);
}

TEST(Pack, EveryElementTypeMovesByIncrement) {
  const float s[6] = {0, 1, 2, 3, 4, 5};
  float sy[3];
  _zymsPackI_11(3, s, 2, sy);
  EXPECT_EQ(sy[2], 4.0f);
  const ZymComplexFloat c[4] = {{0, 1}, {2, 3}, {4, 5}, {6, 7}};
  ZymComplexFloat cy[4] = {};
  _zymcUnpackI(2, c, cy, 3);
  EXPECT_EQ(cy[3].im, 3.0f);
  const ZymComplexDouble z[4] = {{0, 1}, {2, 3}, {4, 5}, {6, 7}};
  ZymComplexDouble zy[2];
  _zymzPackI(2, z, 3, zy);
  EXPECT_EQ(zy[1].re, 6.0);
  const int32_t mask[4] = {1, 0, 0, 1};
  ZymComplexFloat packed[2];
  _zymcPackM(4, c, mask, packed);
  EXPECT_EQ(packed[1].re, 6.0f);
}

}  // namespace
}  // namespace orvik::zym
