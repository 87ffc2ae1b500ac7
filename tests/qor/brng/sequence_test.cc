// Every generator against its plain recurrence, word for word, whatever the cuts; the float and double forms against
// the one-element conversions.
#include <gtest/gtest.h>

#include "qor/support/models.h"
#include "qor/support/stream.h"

namespace {

using orvik::testing::Generator;
using orvik::testing::Stream;
using namespace orvik;

class SequenceTest : public ::testing::TestWithParam<Generator> {
 protected:
  Stream stream() const { return Stream(GetParam().brng, GetParam().seeds); }
  // Of n elements.
  std::vector<uint64_t> expected(size_t n) const {
    return models::take(models::make(GetParam().brng, GetParam().seeds), n * parts());
  }
  size_t parts() const { return static_cast<size_t>(models::parts(GetParam().brng)); }
  template <class T>
  T real(const std::vector<uint64_t>& words, size_t element, T a, T b) const {
    return models::to_real(GetParam().brng, words.data() + element * parts(), a, b);
  }

  // Takes the cuts one after the other and compares with the uncut model.
  void expect_integers(const std::vector<int32_t>& cuts) const {
    size_t total = 0;
    for (int32_t c : cuts) total += static_cast<size_t>(c);
    const std::vector<uint64_t> want = expected(total);
    const Stream s = stream();
    size_t at = 0;
    for (int32_t c : cuts)
      for (uint64_t got : s.outputs(c)) ASSERT_EQ(got, want[at++]) << "output " << at - 1 << ", cut of " << c;
  }
};

TEST_P(SequenceTest, IntegersFollowTheRecurrenceAtEveryCutUpTo64) {
  for (int32_t first = 0; first <= 64; ++first)
    for (int32_t second : {0, 1, 5, 31, 32, 33, 64}) expect_integers({first, second, 70});
}

TEST_P(SequenceTest, IntegersFollowTheRecurrenceAroundBlockBorders) {
  for (int32_t border : {4, 8, 16, 32, 64, 69, 138, 624, 1248, 1872, 2001, 2070, 2496, 3 * 2001})
    for (int32_t n = border - 2; n <= border + 2; ++n) {
      expect_integers({n, 100});
      expect_integers({3, n, 9});
    }
}

TEST_P(SequenceTest, LongRequestEqualsManyShortOnes) {
  std::vector<int32_t> cuts;
  for (int32_t i = 0; i < 200; ++i) cuts.push_back((i * i * 7 + i) % 533);
  cuts.push_back(20011);
  expect_integers(cuts);
}

TEST_P(SequenceTest, FloatsAndDoublesConvertTheSameWords) {
  const std::vector<uint64_t> want = expected(3000);
  for (const auto& [a, b] : std::vector<std::pair<double, double>>{{0, 1},
                                                                   {-1, 1},
                                                                   {3.25, 1e6},
                                                                   {1e-3, 1e-2},
                                                                   {5, -5},
                                                                   {0.1, 0.7},
                                                                   {-0.0, 3},
                                                                   {1e17, 1.0000001e17},
                                                                   {0, 1e-300},
                                                                   {2e-310, 3e-310}}) {
    const float fa = static_cast<float>(a), fb = static_cast<float>(b);
    for (int32_t head : {0, 1, 2, 3, 4, 7, 33}) {
      const Stream s = stream(), d = stream();
      s.floats(head, fa, fb);
      d.doubles(head, a, b);
      const std::vector<float> floats = s.floats(2500, fa, fb);
      const std::vector<double> doubles = d.doubles(2500, a, b);
      for (size_t i = 0; i < floats.size(); ++i) {
        const size_t at = i + static_cast<size_t>(head);
        ASSERT_EQ(floats[i], real(want, at, fa, fb)) << i;
        ASSERT_EQ(doubles[i], real(want, at, a, b)) << i;
      }
    }
  }
}

TEST_P(SequenceTest, FloatsAndDoublesDoNotDependOnCuts) {
  const std::vector<float> floats = stream().floats(800);
  const std::vector<double> doubles = stream().doubles(800);
  for (int32_t cut = 0; cut <= 64; ++cut) {
    const Stream s = stream(), d = stream();
    size_t at = 0;
    for (int32_t c : {cut, 3, cut, 150}) {
      for (float got : s.floats(c)) ASSERT_EQ(got, floats[at++]) << "cut " << cut;
      at -= static_cast<size_t>(c);
      for (double got : d.doubles(c)) ASSERT_EQ(got, doubles[at++]) << "cut " << cut;
    }
  }
}

// Of the generators that keep one place for all forms.
using AlternatingTest = SequenceTest;

TEST_P(AlternatingTest, FormsTakeTheirWordsFromOneSequence) {
  const std::vector<uint64_t> want = expected(600);
  const Stream s = stream();
  size_t at = 0, word = 0;
  for (int round = 0; round < 12; ++round) {
    for (float got : s.floats(11)) ASSERT_EQ(got, real(want, at++, 0.0f, 1.0f));
    word = at * parts();
    for (uint64_t got : s.outputs(13)) ASSERT_EQ(got, want[word++]);
    at += 13;
    for (double got : s.doubles(17)) ASSERT_EQ(got, real(want, at++, 0.0, 1.0));
  }
}

TEST_P(SequenceTest, MethodAboveThreeIsRefused) {
  const Stream s = stream();
  for (uint32_t method : {4u, 5u, 0x80000000u, 0xFFFFFFFFu})
    EXPECT_EQ(s.row().InitStream(method, s.get(), 1, GetParam().seeds.data()), ORVIK_QOR_BAD_METHOD);
  EXPECT_EQ(s.outputs(50), expected(50));
}

TEST_P(SequenceTest, NoSeedsGiveTheModelsDefault) {
  EXPECT_EQ(Stream(GetParam().brng, {}).outputs(100), models::take(models::make(GetParam().brng, {}), 100 * parts()));
}

INSTANTIATE_TEST_SUITE_P(Brng, SequenceTest, ::testing::ValuesIn(orvik::testing::seeded_generators()),
                         orvik::testing::name_of);
INSTANTIATE_TEST_SUITE_P(Brng, AlternatingTest, ::testing::ValuesIn(orvik::testing::one_place_generators()),
                         orvik::testing::name_of);

}  // namespace
