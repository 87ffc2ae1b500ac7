#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "qor/support/models.h"
#include "qor/support/stream.h"

namespace {

using orvik::testing::Stream;
using ::testing::ElementsAre;

// Salmon, Moraes, Dror, Shaw 2011.
TEST(Philox, PublishedAnswers) {
  EXPECT_THAT(Stream(ORVIK_BRNG_PHILOX4X32X10, {}).words(4),
              ElementsAre(0x6627e8d5, 0xe169c58d, 0xbc57ac4c, 0x9b00dbd8));
  EXPECT_THAT(Stream(ORVIK_BRNG_PHILOX4X32X10, std::vector<uint32_t>(6, 0xFFFFFFFF)).words(4),
              ElementsAre(0x408f276d, 0x41c83b0e, 0xa20bc7c6, 0x6d5451fd));
  EXPECT_THAT(Stream(ORVIK_BRNG_PHILOX4X32X10, {0xa4093822, 0x299f31d0, 0x243f6a88, 0x85a308d3, 0x13198a2e, 0x03707344})
                  .words(4),
              ElementsAre(0xd16cfe09, 0x94fdcceb, 0x5001e420, 0x24126ea1));
}

TEST(Ars5, PublishedAnswers) {
  EXPECT_THAT(Stream(ORVIK_BRNG_ARS5, {}).words(4), ElementsAre(0x7ecce06f, 0x7cdc3bca, 0x15513c87, 0x29d24c9b));
  EXPECT_THAT(Stream(ORVIK_BRNG_ARS5, std::vector<uint32_t>(8, 0xFFFFFFFF)).words(4),
              ElementsAre(0x524f3d4c, 0x870acd82, 0x835b5954, 0x915b1320));
  EXPECT_THAT(Stream(ORVIK_BRNG_ARS5,
                     {0xa4093822, 0x299f31d0, 0x082efa98, 0xec4e6c89, 0x243f6a88, 0x85a308d3, 0x13198a2e, 0x03707344})
                  .words(4),
              ElementsAre(0x9150862d, 0x525af535, 0x6612f4fa, 0xe2a60648));
}

// Matsumoto, Nishimura 1998.
TEST(Mt19937, PublishedAnswers) {
  const std::vector<uint32_t> w = Stream(ORVIK_BRNG_MT19937, {0x123, 0x234, 0x345, 0x456}).words(1000);
  EXPECT_THAT(std::vector<uint32_t>(w.begin(), w.begin() + 5),
              ElementsAre(1067595299, 955945823, 477289528, 4107218783, 4228976476));
  EXPECT_EQ(w[999], 3460025646);
}

// The standard's engine names its 10000th word for the one-word seeding 5489; here its recurrence checks the model.
TEST(Mt19937, ModelAgreesWithTheStandardEngine) {
  std::mt19937 engine(5489);
  orvik::models::Twister model{624,        397,        0x7FFFFFFF, 0x9908B0DF,
                               0x9D2C5680, 0xEFC60000, 11,         std::vector<uint32_t>(624)};
  model.mt[0] = 5489;
  for (uint32_t i = 1; i < 624; ++i) model.mt[i] = 1812433253u * (model.mt[i - 1] ^ (model.mt[i - 1] >> 30)) + i;
  uint64_t last = 0;
  for (int i = 0; i < 10000; ++i) ASSERT_EQ(last = model(), engine());
  EXPECT_EQ(last, 4123659995u);
}

// Saito, Matsumoto 2008.
TEST(Sfmt19937, PublishedAnswers) {
  EXPECT_THAT(Stream(ORVIK_BRNG_SFMT19937, {0x1234, 0x5678, 0x9abc, 0xdef0}).words(6),
              ElementsAre(2920711183, 3885745737, 3501893680, 856470934, 1421864068, 277361036));
}

// L'Ecuyer 1999, 2002.
TEST(Mrg32k3a, PublishedAnswers) {
  const Stream s(ORVIK_BRNG_MRG32K3A, std::vector<uint32_t>(6, 12345));
  const std::vector<uint32_t> w = s.words(1000);
  EXPECT_EQ(w[0], 545508589u);
  EXPECT_EQ(w[1], 1368065410u);
  EXPECT_EQ(w[2], 1327943761u);
  EXPECT_EQ(w[999], 4235174647u);
  EXPECT_EQ(s.words(999000).back(), 1613998622u);
}

TEST(Mrg32k3a, PublishedStateAfterAJumpOfTwoToThe127) {
  const Stream s(ORVIK_BRNG_MRG32K3A, std::vector<uint32_t>(6, 12345));
  ASSERT_EQ(s.skip_ex({0, 1ull << 63}), 0);
  const uint32_t* x = s.state<uint32_t>();
  EXPECT_THAT(std::vector<uint32_t>(x, x + 6),
              ElementsAre(3692455944, 1366884236, 2968912127, 335948734, 4161675175, 475798818));
}

// Bratley, Fox 1988; Bratley, Fox, Niederreiter 1992.
TEST(Sobol, PublishedPoints) {
  EXPECT_THAT(Stream(ORVIK_BRNG_SOBOL, {3}).doubles(12),
              ElementsAre(.5, .5, .5, .75, .25, .75, .25, .75, .25, .375, .375, .625));
}
TEST(Niederreiter, PublishedPoints) {
  EXPECT_THAT(Stream(ORVIK_BRNG_NIEDERREITER, {4}).doubles(12),
              ElementsAre(.5, .5, .75, .875, .75, .25, .3125, .140625, .25, .75, .5625, .765625));
}

// a^4 ... a^32 modulo 2^31 - 1 and a^2, a^3 modulo 2^59, as published with the generators' multipliers.
TEST(Mcg, PowersOfTheMultipliers) {
  const uint32_t powers[] = {0x1CA964D9, 0x4CA73C3C, 0x320F853B, 0x725BA016,
                             0x6A54ACBD, 0x01D47D91, 0x4F4CFB5F, 0x31EAF8A2};
  for (uint64_t j = 0; j < 8; ++j) EXPECT_EQ(__qoriPowMod2P31M1(1132489760, 4 * (j + 1)), powers[j]);
  EXPECT_EQ(__qoriPowMod2P31M1(1132489760, 2), 826537482u);
  EXPECT_EQ(__qoriPowMod2P31M1(1132489760, 3), 289798557u);
  EXPECT_EQ(__qoriPowMod2P59(302875106592253, 2), 0x065C69FC1A4D5C09u);
  EXPECT_EQ(__qoriPowMod2P59(302875106592253, 3), 0x01CE44D68E81E1E5u);
}

}  // namespace
