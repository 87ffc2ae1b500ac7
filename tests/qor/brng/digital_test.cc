// Sobol and Niederreiter: points, seeds of every kind, the choice of one dimension, skips, side blocks, threads.
#include "qor/brng/digital.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>

#include "qor/stream/record.h"
#include "qor/stream/shared_table.h"
#include "qor/support/models.h"
#include "qor/support/stream.h"
#include "serv/memory.h"

namespace {

using orvik::testing::Stream;
using namespace orvik;
using models::Digital;
using ::testing::Each;
using Seeds = std::vector<uint32_t>;

const qor::DigitalHead& head(const Stream& s) { return *s.state<qor::DigitalHead>(); }
int32_t status_of(int32_t brng, const Seeds& seeds) {
  Stream s;
  return __qorNewStreamEx(s.out(), brng, static_cast<int32_t>(seeds.size()), seeds.data());
}

struct Kind {
  int32_t brng;
  uint32_t limit;
  Digital (*model)(uint32_t dim);
};
void PrintTo(const Kind& k, std::ostream* out) { *out << std::hex << k.brng; }

class DigitalTest : public ::testing::TestWithParam<Kind> {
 protected:
  Stream stream(uint32_t dim) const { return Stream(GetParam().brng, {dim}); }
  std::vector<uint64_t> model(uint32_t dim, size_t n) const {
    Digital m = GetParam().model(dim);
    return models::take([&] { return m(); }, n);
  }
  void expect_dimension(const Seeds& seeds, uint32_t dim) const {
    const Stream s(GetParam().brng, seeds);
    EXPECT_EQ(head(s).dim, dim);
    EXPECT_EQ(s.outputs(100), model(dim, 100));
  }
};

TEST_P(DigitalTest, EveryDimensionFollowsTheFormulaOfItsPoints) {
  for (uint32_t dim = 1; dim <= GetParam().limit; dim += dim < 70 ? 1 : 31) {
    const int32_t n = static_cast<int32_t>(dim) * 70 + 3;
    ASSERT_EQ(stream(dim).outputs(n), model(dim, static_cast<size_t>(n))) << dim;
  }
  ASSERT_EQ(stream(GetParam().limit).outputs(3000), model(GetParam().limit, 3000));
}

TEST_P(DigitalTest, PointsDoNotDependOnCuts) {
  std::mt19937 random(3);
  for (uint32_t dim : {1u, 2u, 3u, 5u, 7u, 8u, 10u, 15u, 16u, 17u, 24u, 31u, 32u, 33u, 40u, 64u, 100u, 318u}) {
    if (dim > GetParam().limit) continue;
    const std::vector<uint64_t> want = model(dim, 200 * dim);
    const Stream s = stream(dim);
    for (size_t at = 0; at < want.size();) {
      const size_t left = want.size() - at, most = random() % 3 == 0 ? 120 * dim : 3 * dim + 2;
      const size_t n = std::min(left, random() % most);
      ASSERT_EQ(s.outputs(static_cast<int32_t>(n)),
                std::vector<uint64_t>(want.begin() + static_cast<ptrdiff_t>(at),
                                      want.begin() + static_cast<ptrdiff_t>(at + n)))
          << dim << " at " << at;
      at += n;
    }
  }
}

TEST_P(DigitalTest, PointsFarOnFollowTheFormula) {
  for (uint32_t dim : {1u, 3u, 10u, 33u}) {
    const Digital m = GetParam().model(dim);
    for (uint64_t points :
         {uint64_t{1} << 20, (uint64_t{1} << 31) - 40, (uint64_t{1} << 31) + 5, uint64_t{0xFFFF0000}}) {
      const Stream s = stream(dim);
      ASSERT_EQ(s.skip(points * dim), 0);
      const std::vector<uint64_t> got = s.outputs(static_cast<int32_t>(100 * dim));
      for (uint32_t p = 0; p < 100; ++p)
        for (uint32_t d = 0; d < dim; ++d)
          ASSERT_EQ(got[p * dim + d], m.coordinate(d, static_cast<uint32_t>(points) + 1 + p)) << dim << " " << points;
    }
  }
}

TEST_P(DigitalTest, DimensionsBeyondTheLimitAndOddSeedsGiveOneDimension) {
  const uint32_t limit = GetParam().limit;
  expect_dimension({}, 1);
  expect_dimension({0}, 1);
  expect_dimension({limit}, limit);
  expect_dimension({limit + 1}, 1);
  expect_dimension({0xFFFFFFFF}, 1);
  expect_dimension({0x80000005, 5}, 1);
  expect_dimension({0, 1, 1, 7}, 1);
  expect_dimension({limit, 0, 1, 7, 7, 7}, limit);  // the second seed is not 1
  expect_dimension({limit + 1, 1, 1, 7}, 1);        // user's numbers that are too few
  expect_dimension({5, 1, 99, 7}, 5);               // no such flag
  Stream s;
  const uint32_t seed = 7;
  ASSERT_EQ(__qorNewStreamEx(s.out(), GetParam().brng, -4, &seed), 0);
  EXPECT_EQ(head(s).dim, 1u);
}

TEST_P(DigitalTest, RequestOfAPointAndOneCoordinateLeavesTheRestPending) {
  for (uint32_t dim : {2u, 9u, 40u}) {
    const Stream s = stream(dim);
    s.words(static_cast<int32_t>(dim) + 1);
    EXPECT_EQ(head(s).pending, dim - 1);
    EXPECT_EQ(head(s).index, 2u);
  }
}

TEST_P(DigitalTest, RequestBeyondTheLastIndexIsRefusedAndLeavesTheStream) {
  const Stream s = stream(3);
  ASSERT_EQ(s.skip(uint64_t{3} * 0xFFFFFF00), 0);
  s.words(1);
  const Stream before = s.copy();
  std::vector<double> r(600, 7.0);
  EXPECT_EQ(s.row().dBRng(s.get(), 600, r.data(), 0, 1), ORVIK_QOR_PERIOD_ELAPSED);
  EXPECT_EQ(s.row().sBRng(s.get(), 600, reinterpret_cast<float*>(r.data()), 0, 1), ORVIK_QOR_PERIOD_ELAPSED);
  EXPECT_EQ(s.row().iBRng(s.get(), 600, r.data()), ORVIK_QOR_PERIOD_ELAPSED);
  EXPECT_THAT(r, Each(7.0));
  EXPECT_EQ(std::memcmp(s.state<uint8_t>(), before.state<uint8_t>(), 4 * 60), 0);
  EXPECT_EQ(s.words(200), before.words(200));
}

// ---- one dimension -------------------------------------------------------------------------------------------------

constexpr int32_t kSelect = 0x7FFFFFFF;

TEST_P(DigitalTest, SelectedDimensionIsThatCoordinateOfEveryPoint) {
  for (uint32_t dim : {1u, 4u, 10u, 33u})
    for (uint32_t k : {0u, dim / 2, dim - 1}) {
      const Digital m = GetParam().model(dim);
      const Stream s = stream(dim);
      ASSERT_EQ(s.leapfrog(static_cast<int32_t>(k), kSelect), 0);
      uint32_t index = 1;
      for (int32_t n : {0, 1, 2, 5, 40, 41, 3, 200, 1}) {
        for (uint32_t w : s.words(n)) ASSERT_EQ(w, m.coordinate(k, index++)) << dim << " " << k;
      }
      for (double d : s.doubles(50)) ASSERT_EQ(d, static_cast<double>(m.coordinate(k, index++)) * 0x1p-32);
    }
}

TEST_P(DigitalTest, SelectionTellsDeliveredCoordinatesFromThoseStillToCome) {
  const Digital m = GetParam().model(6);
  for (uint32_t drawn = 0; drawn <= 12; ++drawn)
    for (uint32_t k = 0; k < 6; ++k) {
      const Stream s = stream(6);
      s.words(static_cast<int32_t>(drawn));
      ASSERT_EQ(s.leapfrog(static_cast<int32_t>(k), kSelect), 0);
      uint32_t index = 1 + drawn / 6 + (k < drawn % 6 ? 1 : 0);
      for (uint32_t w : s.words(20)) ASSERT_EQ(w, m.coordinate(k, index++)) << drawn << " " << k;
    }
}

TEST_P(DigitalTest, SelectingTheSameDimensionTwiceChangesNothing) {
  const Stream s = stream(6), t = stream(6);
  for (const Stream* each : {&s, &t}) {
    ASSERT_EQ(each->leapfrog(3, kSelect), 0);
    each->words(5);
  }
  ASSERT_EQ(s.leapfrog(3, kSelect), 0);
  EXPECT_EQ(s.words(50), t.words(50));
}

TEST_P(DigitalTest, SelectingAnotherDimensionGoesOnBehindThePointInHand) {
  const Digital m = GetParam().model(6);
  const Stream s = stream(6);
  ASSERT_EQ(s.leapfrog(3, kSelect), 0);
  s.words(5);  // points 1 to 5
  ASSERT_EQ(s.leapfrog(1, kSelect), 0);
  uint32_t index = 7;
  for (uint32_t w : s.words(20)) ASSERT_EQ(w, m.coordinate(1, index++));
}

TEST_P(DigitalTest, SelectionThatWouldPassTheLastIndexIsRefusedAndLeavesTheStream) {
  const Stream inside = stream(3), other = stream(3);
  ASSERT_EQ(inside.skip(uint64_t{3} * 0xFFFFFFFC + 2), 0);  // the last coordinate of a point waits
  ASSERT_EQ(inside.skip(5), 0);
  ASSERT_EQ(other.skip(uint64_t{3} * 0xFFFFFFFD), 0);
  ASSERT_EQ(other.leapfrog(1, kSelect), 0);
  other.words(1);
  for (const Stream* s : {&inside, &other}) {
    ASSERT_EQ(head(*s).index, UINT32_MAX);
    const Stream before = s->copy();
    EXPECT_EQ(s->leapfrog(0, kSelect), ORVIK_QOR_PERIOD_ELAPSED);
    EXPECT_EQ(std::memcmp(s->state<uint8_t>(), before.state<uint8_t>(), 4 * 60), 0);
  }
  EXPECT_EQ(inside.leapfrog(2, kSelect), 0);  // coordinates not delivered yet
  EXPECT_EQ(other.leapfrog(1, kSelect), 0);
}

TEST_P(DigitalTest, LeapfrogWithAnotherCountOrDimensionIsRefused) {
  const Stream s = stream(6);
  for (int32_t nstreams : {0, 1, 6, kSelect - 1}) EXPECT_EQ(s.leapfrog(0, nstreams), ORVIK_QOR_NO_LEAPFROG);
  EXPECT_EQ(s.leapfrog(0, -1), ORVIK_QOR_BAD_NSTREAMS);
  for (int32_t k : {6, 7, -1, INT32_MIN, INT32_MAX}) EXPECT_EQ(s.leapfrog(k, kSelect), ORVIK_QOR_NO_LEAPFROG);
  EXPECT_EQ(s.outputs(100), model(6, 100));
}

// ---- skips ---------------------------------------------------------------------------------------------------------

TEST_P(DigitalTest, SkipOfOnePointGivesTheSecond) {
  const Stream s = stream(7);
  ASSERT_EQ(s.skip(7), 0);
  EXPECT_EQ(head(s).index, 2u);
  EXPECT_EQ(head(s).pending, 0u);
}

TEST_P(DigitalTest, SkipsLandOnTheSequenceFromEveryPlaceInAPoint) {
  for (uint32_t dim : {1u, 2u, 5u, 33u}) {
    const std::vector<uint64_t> want = model(dim, 40 * dim);
    for (uint32_t before = 0; before <= 2 * dim; ++before)
      for (uint32_t count = 0; count <= 3 * dim + 1; ++count) {
        const Stream s = stream(dim);
        s.words(static_cast<int32_t>(before));
        ASSERT_EQ(s.skip(count), 0);
        const auto at = want.begin() + static_cast<ptrdiff_t>(before + count);
        ASSERT_EQ(s.outputs(static_cast<int32_t>(20 * dim)), std::vector<uint64_t>(at, at + 20 * dim))
            << before << count;
      }
  }
}

TEST_P(DigitalTest, SkipsOutOfRangeAreRefusedAndLeaveTheStream) {
  const Stream s = stream(5);
  s.words(7);
  for (uint64_t count : {uint64_t{5} * 0xFFFFFFFF, ~uint64_t{0}, uint64_t{5} * 0xFFFFFFFE})
    EXPECT_EQ(s.skip(count), ORVIK_QOR_NO_SKIPAHEAD) << count;
  const uint64_t one = 1;
  for (int32_t n : {0, -1}) EXPECT_EQ(s.row().InitStream(2, s.get(), n, &one), ORVIK_QOR_NO_SKIPAHEAD);
  const std::vector<uint64_t> want = model(5, 107);
  EXPECT_EQ(s.outputs(100), std::vector<uint64_t>(want.begin() + 7, want.end()));
}

TEST_P(DigitalTest, SkipsOfASelectedDimensionCountWholePoints) {
  const Digital m = GetParam().model(5);
  const Stream s = stream(5);
  ASSERT_EQ(s.leapfrog(2, kSelect), 0);
  s.words(10);
  ASSERT_EQ(s.skip(5 * 1000), 0);
  uint32_t index = 1011;
  for (uint32_t w : s.words(20)) ASSERT_EQ(w, m.coordinate(2, index++));
}

TEST_P(DigitalTest, FieldsOfAnImageOutsideTheirRangesAreHarmless) {
  const auto bend = [](const Stream& s) -> qor::DigitalHead& { return *s.state<qor::DigitalHead>(); };
  const Stream s = stream(5);
  for (uint32_t dim : {0u, GetParam().limit + 1, 0x80000000u, 0xFFFFFFFFu}) {
    const Stream t = s.copy();
    bend(t).dim = dim;
    uint32_t w;
    EXPECT_EQ(t.row().iBRng(t.get(), 1, &w), ORVIK_QOR_NO_MEMORY) << dim;
    EXPECT_EQ(t.skip(3), ORVIK_QOR_NO_MEMORY);
    EXPECT_EQ(t.leapfrog(0, kSelect), ORVIK_QOR_NO_MEMORY);
  }
  const Stream t = s.copy(), u = s.copy();
  bend(t).pending = 0xFFFFFFF0;
  EXPECT_EQ(t.outputs(50), model(5, 50));
  bend(u).selected = 5;
  EXPECT_EQ(u.outputs(50), model(5, 50));
}

INSTANTIATE_TEST_SUITE_P(Brng, DigitalTest,
                         ::testing::Values(Kind{ORVIK_BRNG_SOBOL, 40, models::sobol},
                                           Kind{ORVIK_BRNG_NIEDERREITER, 318, models::niederreiter}));

TEST(Sobol, FirstPointIsOneHalfInEveryDimension) {
  EXPECT_THAT(Stream(ORVIK_BRNG_SOBOL, {40}).words(40), Each(0x80000000u));
}

// ---- user's numbers ------------------------------------------------------------------------------------------------

void expect_points(const Stream& s, const Digital& want, int32_t points = 100) {
  Digital m = want;
  const size_t n = static_cast<size_t>(points) * m.v.size();
  ASSERT_EQ(s.outputs(static_cast<int32_t>(n)), models::take([&] { return m(); }, n));
}

TEST(SobolUser, Flag1TakesPolynomialsAndContinuesTheDefaultNumbers) {
  // dimensions 2 to 4: as the default, of a higher degree than the default's, of a lower one
  const Stream s(ORVIK_BRNG_SOBOL, {4, 1, 1, 3, 13, 7});
  Digital m = models::sobol(4);
  m.v[2] = models::sobol_directions(13, {1, 1, 7});  // the default goes on 1 1 7
  m.v[3] = models::sobol_directions(7, {1, 3});
  expect_points(s, m);
  EXPECT_EQ(__qorGetNumChunks(s.get()), 0);
}

TEST(SobolUser, Flag1RefusesDegreesAbove8AndPolynomialsWithoutADegree) {
  EXPECT_EQ(status_of(ORVIK_BRNG_SOBOL, {2, 1, 1, 0x1FF}), 0);
  for (uint32_t bad : {0x200u, 0xFFFFFFFFu, 0u, 1u})
    EXPECT_EQ(status_of(ORVIK_BRNG_SOBOL, {2, 1, 1, bad}), ORVIK_QOR_BAD_ABSTRACT_ARGUMENT) << bad;
}

TEST(SobolUser, Flag2TakesInitialNumbersForTheDefaultPolynomials) {
  const Stream s(ORVIK_BRNG_SOBOL, {4, 1, 2, 3, 1, 9, 9, 1, 3, 9, 1, 1, 7});
  Digital m = models::sobol(4);
  m.v[1] = models::sobol_directions(3, {1});
  m.v[2] = models::sobol_directions(7, {1, 3});
  m.v[3] = models::sobol_directions(11, {1, 1, 7});
  expect_points(s, m);
  // fewer numbers than the degree asks for
  EXPECT_EQ(status_of(ORVIK_BRNG_SOBOL, {4, 1, 2, 1, 1, 1, 1}), ORVIK_QOR_BAD_ABSTRACT_ARGUMENT);
}

TEST(SobolUser, Flag3TakesBothIntoSideBlocks) {
  const Stream s(ORVIK_BRNG_SOBOL, {3, 1, 3, 7, 19, 4, 1, 3, 0, 0, 1, 3, 5, 13});
  Digital m = models::sobol(1);
  m.v.push_back(models::sobol_directions(7, {1, 3}));
  m.v.push_back(models::sobol_directions(19, {1, 3, 5, 13}));
  expect_points(s, m);
  EXPECT_EQ(__qorGetNumChunks(s.get()), 2);
}

TEST(SobolUser, Flag11TakesTheFirstDimensionToo) {
  const Stream s(ORVIK_BRNG_SOBOL, {2, 1, 11, 11, 7, 3, 1, 1, 5, 1, 1, 0});
  Digital m;
  m.v.push_back(models::sobol_directions(11, {1, 1, 5}));
  m.v.push_back(models::sobol_directions(7, {1, 1}));
  expect_points(s, m);
  // a first dimension without a polynomial is the default's
  const Stream t(ORVIK_BRNG_SOBOL, {2, 1, 11, 1, 3, 1, 1, 1});
  expect_points(t, models::sobol(2));
}

TEST(SobolUser, DegreesAbove8AreTakenIntoSideBlocks) {
  std::vector<uint32_t> initial(13, 1);
  Seeds seeds = {2, 1, 3, 0x201B, 13};  // x^13 + x^4 + x^3 + x + 1
  seeds.insert(seeds.end(), initial.begin(), initial.end());
  Digital m = models::sobol(1);
  m.v.push_back(models::sobol_directions(0x201B, initial));
  expect_points(Stream(ORVIK_BRNG_SOBOL, seeds), m);
}

Seeds with_directions(uint32_t dim, Digital* m) {
  std::mt19937 random(dim);
  Seeds seeds = {dim, 1, 4};
  for (uint32_t d = 0; d < dim; ++d) {
    m->v.emplace_back();
    for (uint32_t j = 0; j < 32; ++j) {
      seeds.push_back(random() | 1);  // bits above number j are shifted out
      m->v.back()[j] = seeds.back() << (31 - j);
    }
  }
  return seeds;
}

TEST(SobolUser, Flag4TakesDirectionNumbersOfAnyDimension) {
  for (uint32_t dim : {1u, 2u, 15u, 16u, 17u, 41u, 100u, 333u}) {
    Digital m;
    const Seeds seeds = with_directions(dim, &m);
    const Stream s(ORVIK_BRNG_SOBOL, seeds);
    expect_points(s, m, 70);
    EXPECT_EQ(__qorGetNumChunks(s.get()), 2);
    ASSERT_EQ(s.skip(dim * uint64_t{1000} + 1), 0);
    m.index = 1071;
    m.d = 1 % dim;
    if (dim == 1) ++m.index;
    ASSERT_EQ(s.outputs(300), models::take([&] { return m(); }, 300)) << dim;
  }
}

TEST(SobolUser, SideBlocksHaveTheirSizesAndLayouts) {
  for (uint32_t dim : {3u, 15u, 16u, 50u}) {
    Digital m;
    const Stream s(ORVIK_BRNG_SOBOL, with_directions(dim, &m));
    const uint64_t size = 4 * (64 * uint64_t{dim} - 32 * ((4 * dim) & 60) + 2048);
    const auto* tables = static_cast<const uint32_t*>(qor::find_chunk(s.get(), 9, size));
    ASSERT_NE(tables, nullptr);
    EXPECT_EQ(qor::find_chunk(s.get(), 9, size + 1), nullptr);
    ASSERT_NE(qor::find_chunk(s.get(), 13, 4 * dim), nullptr);
    EXPECT_EQ(qor::find_chunk(s.get(), 13, 4 * dim + 1), nullptr);
    const size_t row = 16 * ((dim >> 4) + 1);
    for (size_t d = 0; d < dim; ++d)
      for (size_t j = 0; j < 32; ++j) {
        ASSERT_EQ(tables[32 * d + j], m.v[d][j]);
        ASSERT_EQ(tables[32 * dim + j * row + d], m.v[d][j]);
      }
  }
}

TEST(SobolUser, CopiesShareTheTablesAndNotThePoint) {
  Digital m;
  const Stream s(ORVIK_BRNG_SOBOL, with_directions(50, &m));
  const Stream copy = s.copy();
  EXPECT_EQ(__qorSearchChunk(s.get(), 9), __qorSearchChunk(copy.get(), 9));
  EXPECT_NE(__qorSearchChunk(s.get(), 13), __qorSearchChunk(copy.get(), 13));
  s.words(777);
  expect_points(copy, m, 30);
}

TEST(SobolUser, ImagesBringTheTablesBack) {
  Digital m;
  const Seeds seeds = with_directions(50, &m);
  std::vector<uint8_t> image;
  {
    const Stream s(ORVIK_BRNG_SOBOL, seeds);
    image.resize(static_cast<size_t>(__qorGetStreamSize(s.get())));
    ASSERT_EQ(__qorSaveStreamM(s.get(), image.data()), 0);
  }
  Stream loaded, again;
  ASSERT_EQ(__qorLoadStreamM(loaded.out(), image.data()), 0);
  ASSERT_EQ(__qorLoadStreamM(again.out(), image.data()), 0);
  EXPECT_EQ(__qorSearchChunk(loaded.get(), 9), __qorSearchChunk(again.get(), 9));
  expect_points(loaded, m);
  expect_points(again, m);
}

TEST(SobolUser, ArraysTooShortForTheirFlagFallBackToTheDefault) {
  const auto expect_default = [](Seeds seeds, uint32_t dim) {
    const Stream s(ORVIK_BRNG_SOBOL, seeds);
    EXPECT_EQ(__qorGetNumChunks(s.get()), 0);
    expect_points(s, models::sobol(dim), 20);
  };
  expect_default({5, 1, 1, 7, 7, 7}, 5);                  // four polynomials
  expect_default({3, 1, 2, 2, 1, 1, 1}, 3);               // (D - 1) s + 4 = 8
  expect_default({3, 1, 3, 7, 11, 3, 1, 1, 1, 1, 1}, 3);  // (s + 1)(D - 1) + 4 = 12
  expect_default({3, 1, 3, 7}, 3);                        // not even s
  expect_default({1, 1, 4, 1, 1, 1}, 1);                  // 35
  expect_default({2, 1, 11, 7, 7, 2, 1, 1, 1}, 2);        // (s + 1) D + 4 = 10
  expect_default({2, 1, 11, 7, 7, 0xFFFFFFFF, 1, 1, 1}, 2);
  expect_default({0x7FFFFFFF, 1, 4, 7, 7}, 1);
  expect_default({41, 1, 1, 7, 7}, 1);
}

TEST(SobolUser, TablesThatAreMissingOrTooSmallAreAStatus) {
  Digital m;
  const Stream s(ORVIK_BRNG_SOBOL, with_directions(50, &m));
  uint32_t w;
  qor::remove_chunks(s.get(), 13);
  EXPECT_EQ(__qoriBRngSobol(s.get(), 1, &w), ORVIK_QOR_NO_MEMORY);
  ASSERT_EQ(__qorAddChunk(s.get(), 13, nullptr, orvik_serv_allocate(4 * 49, 128), 4 * 49), 0);
  EXPECT_EQ(__qoriBRngSobol(s.get(), 1, &w), ORVIK_QOR_NO_MEMORY);
}

TEST(SobolUser, SeedingAnewForgetsTheTables) {
  Digital m;
  const Stream s(ORVIK_BRNG_SOBOL, with_directions(50, &m));
  const uint32_t dim = 6;
  ASSERT_EQ(s.row().InitStream(0, s.get(), 1, &dim), 0);
  EXPECT_EQ(__qorGetNumChunks(s.get()), 0);
  expect_points(s, models::sobol(6));
}

template <class Make>
void expect_clean_failures(Make make, int64_t allocations) {
  const int64_t live = serv::live_allocations();
  for (int64_t n = 1;; ++n) {
    OrvikStream s = nullptr;
    serv::fail_allocation_after(n);
    const int32_t status = make(&s);
    serv::fail_allocation_after(0);
    if (s && status < 0) {
      EXPECT_EQ(__qorGetNumChunks(s), 0);
    }
    if (s) __qorDeleteStream(&s);
    EXPECT_EQ(serv::live_allocations(), live);
    EXPECT_EQ(qor::shared_count(), 0);
    if (status == 0) {
      EXPECT_EQ(n, allocations + 1);
      return;
    }
    EXPECT_EQ(status, ORVIK_QOR_NO_MEMORY);
  }
}

TEST(DigitalUser, EveryFailedAllocationOfSeedingLeaksNothing) {
  Digital m;
  for (const auto& [brng, allocations] :
       std::vector<std::pair<int32_t, int64_t>>{{ORVIK_BRNG_SOBOL, 5}, {ORVIK_BRNG_NIEDERREITER, 3}}) {
    const Seeds seeds = with_directions(400, &m);
    expect_clean_failures(
        [&, brng = brng](OrvikStream* s) {
          return __qorNewStreamEx(s, brng, static_cast<int32_t>(seeds.size()), seeds.data());
        },
        allocations);
  }
}

TEST(NiederreiterUser, Flag1TakesPolynomials) {
  const Stream s(ORVIK_BRNG_NIEDERREITER, {3, 1, 1, 7, 0x11D, 2});
  Digital m;
  for (uint32_t p : {7u, 0x11Du, 2u}) m.v.push_back(models::niederreiter_directions(p));
  expect_points(s, m);
  EXPECT_EQ(__qorGetNumChunks(s.get()), 0);
  for (uint32_t bad : {0u, 1u})
    EXPECT_EQ(status_of(ORVIK_BRNG_NIEDERREITER, {2, 1, 1, 7, bad}), ORVIK_QOR_BAD_ABSTRACT_ARGUMENT);
  // polynomials of the highest degree that a seed can hold
  const Stream t(ORVIK_BRNG_NIEDERREITER, {1, 1, 1, 0x80000009});
  Digital high;
  high.v.push_back(models::niederreiter_directions(0x80000009));
  expect_points(t, high);
}

TEST(NiederreiterUser, MoreDimensionsThanTheStateLiveInASideBlock) {
  const uint32_t dim = 400;
  const std::vector<uint32_t> polynomials = models::irreducible_polynomials(dim);
  Seeds seeds = {dim, 1, 1};
  seeds.insert(seeds.end(), polynomials.begin(), polynomials.end());
  Digital m;
  for (uint32_t p : polynomials) m.v.push_back(models::niederreiter_directions(p));
  const Stream s(ORVIK_BRNG_NIEDERREITER, seeds);
  ASSERT_NE(qor::find_chunk(s.get(), 10, 132 * dim), nullptr);
  EXPECT_EQ(qor::find_chunk(s.get(), 10, 132 * dim + 1), nullptr);
  const auto* rows = static_cast<const uint32_t*>(__qorSearchChunk(s.get(), 10));
  EXPECT_EQ(rows[33 * 7 + 32], m.coordinate(7, 1));  // the point in hand is the 33rd word of each row
  for (int32_t n : {1, 399, 400, 401, 8000, 7, 5 * 400 + 3}) {
    ASSERT_EQ(s.outputs(n), models::take([&] { return m(); }, static_cast<size_t>(n))) << n;
  }
  const Stream one = s.copy();
  ASSERT_EQ(one.leapfrog(3, kSelect), 0);
  uint32_t index = m.index + (3 < m.d ? 1 : 0);
  for (uint32_t w : one.words(70)) ASSERT_EQ(w, m.coordinate(3, index++));
  ASSERT_EQ(s.skip(400 * 12345), 0);
  m.index += 12345;
  ASSERT_EQ(s.outputs(900), models::take([&] { return m(); }, 900));
}

TEST(NiederreiterUser, Flag4TakesDirectionNumbers) {
  for (uint32_t dim : {1u, 20u, 318u, 319u}) {
    Digital m;
    const Stream s(ORVIK_BRNG_NIEDERREITER, with_directions(dim, &m));
    expect_points(s, m, 40);
    EXPECT_EQ(__qorGetNumChunks(s.get()), dim > 318 ? 1 : 0);
  }
}

TEST(NiederreiterUser, ArraysTooShortForTheirFlagFallBackToTheDefault) {
  expect_points(Stream(ORVIK_BRNG_NIEDERREITER, {3, 1, 1, 7, 7}), models::niederreiter(3), 20);
  expect_points(Stream(ORVIK_BRNG_NIEDERREITER, {3, 1, 4, 7, 7}), models::niederreiter(3), 20);
  expect_points(Stream(ORVIK_BRNG_NIEDERREITER, {0x7FFFFFFF, 1, 4}), models::niederreiter(1), 20);
}

TEST(NiederreiterUser, TableThatIsMissingIsAStatus) {
  Digital m;
  const Stream s(ORVIK_BRNG_NIEDERREITER, with_directions(319, &m));
  qor::remove_chunks(s.get(), 10);
  float f;
  EXPECT_EQ(__qorsBRngNiederr(s.get(), 1, &f, 0, 1), ORVIK_QOR_NO_MEMORY);
}

// ---- threads -------------------------------------------------------------------------------------------------------

TEST(DigitalThreads, RequestsAreLongFromTheStatedSizesOn) {
  EXPECT_FALSE(qor::is_long(32, INT32_MAX));
  EXPECT_FALSE(qor::is_long(63, INT32_MAX));
  for (const auto& [dim, points] : std::vector<std::pair<uint32_t, int32_t>>{
           {64, 131072}, {249, 131072}, {250, 8192}, {499, 8192}, {500, 256}, {1000, 64}, {2000, 32}, {4000, 8}}) {
    EXPECT_TRUE(qor::is_long(dim, points)) << dim;
    EXPECT_FALSE(qor::is_long(dim, points - 1)) << dim;
  }
}

// In a process of its own: the pool's threads stay once they are there.
TEST(DigitalThreadsDeathTest, EightPointsOf4005DimensionsGoOverThePool) {
  const auto limit =
      reinterpret_cast<int32_t (*)()>(orvik_serv_load_thread_fun("orvik_qor_serv_threader_get_num_threads_limit"));
  if (limit() < 2) GTEST_SKIP() << "one thread";
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (const int32_t brng : {ORVIK_BRNG_SOBOL, ORVIK_BRNG_NIEDERREITER})
    EXPECT_EXIT(
        {
          const auto threads = [] {
            using std::filesystem::directory_iterator;
            return std::distance(directory_iterator("/proc/self/task"), directory_iterator());
          };
          Digital m;
          const Stream s(brng, with_directions(4005, &m));
          s.outputs(4005 * 7);
          const auto before = threads();
          s.outputs(4005 * 8);
          std::exit(before == 1 && threads() > 1 ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
}

TEST(DigitalThreads, LongRequestsOverThePoolGiveTheNumbersOfOneThread) {
  for (const int32_t brng : {ORVIK_BRNG_SOBOL, ORVIK_BRNG_NIEDERREITER}) {
    Digital m;
    const Stream s(brng, with_directions(4005, &m));
    const int32_t n = 4005 * 20 + 9;
    const std::vector<uint64_t> want = models::take([&] { return m(); }, static_cast<size_t>(n));
    const std::vector<double> doubles = s.copy().doubles(n);
    const std::vector<float> floats = s.copy().floats(n, -1, 1);
    const Stream copy = s.copy();
    ASSERT_EQ(copy.outputs(n), want);
    for (size_t i = 0; i < want.size(); i += 97) {
      ASSERT_EQ(doubles[i], models::to_double(brng, want[i], 0, 1));
      ASSERT_EQ(floats[i], models::to_float(brng, want[i], -1, 1));
    }
    ASSERT_EQ(copy.outputs(5000), models::take([&] { return m(); }, 5000));  // and the stream is where it should be
  }
}

}  // namespace
