#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "qor/stream/matrix3.h"
#include "qor/support/models.h"
#include "qor/support/stream.h"
#include "serv/memory.h"

namespace {

using namespace orvik;
using orvik::testing::Stream;

// ---- powers --------------------------------------------------------------------------------------------------------

TEST(PowMod, PowerZeroIsOne) {
  EXPECT_EQ(__qoriPowMod(5, 0, 7), 1u);
  EXPECT_EQ(__qoriPowMod(0, 0, 7), 1u);
  EXPECT_EQ(__qoriPowMod2P31M1(5, 0), 1u);
  EXPECT_EQ(__qoriPowMod2P59(5, 0), 1u);
}

TEST(PowMod, AgreesWithRepeatedMultiplication) {
  for (uint32_t m : {2u, 7u, 65537u, 0x7FFFFFFFu, 0xFFFFFFFFu})
    for (uint32_t a : {0u, 1u, 2u, 12345u, 0xFFFFFFFEu}) {
      uint64_t want = 1;
      for (uint64_t n = 0; n < 70; ++n, want = want * (a % m) % m)
        ASSERT_EQ(__qoriPowMod(a, n, m), n ? want : 1) << a << m;
    }
  uint64_t p31 = 1, p59 = 1;
  for (uint64_t n = 0; n < 200; ++n) {
    ASSERT_EQ(__qoriPowMod2P31M1(1132489760, n), p31);
    ASSERT_EQ(__qoriPowMod2P59(302875106592253, n), p59);
    p31 = p31 * 1132489760 % 0x7FFFFFFF;
    p59 = p59 * 302875106592253 % (1ull << 59);
  }
}

TEST(PowMod, FermatsTheorem) {
  for (uint32_t a : {2u, 3u, 1132489760u}) EXPECT_EQ(__qoriPowMod2P31M1(a, 0x7FFFFFFE), 1u);
  EXPECT_EQ(__qoriPowMod(3, 4294967290u, 4294967291u), 1u);
}

// ---- third-order recurrences ---------------------------------------------------------------------------------------

struct Recurrence {
  uint32_t modulus, c[3];
};
const Recurrence kFirst = {qor::kMrgModulus1, {0, 1403580, qor::kMrgModulus1 - 810728}};
const Recurrence kSecond = {qor::kMrgModulus2, {527612, 0, qor::kMrgModulus2 - 1370589}};

std::vector<uint32_t> stepped(const Recurrence& r, std::vector<uint32_t> v, int n) {
  for (int i = 0; i < n; ++i) {
    const uint64_t next = (uint64_t{r.c[0]} * v[2] % r.modulus + uint64_t{r.c[1]} * v[1] % r.modulus +
                           uint64_t{r.c[2]} * v[0] % r.modulus) %
                          r.modulus;
    v = {v[1], v[2], static_cast<uint32_t>(next)};
  }
  return v;
}

class Vect3Test : public ::testing::TestWithParam<int> {
 protected:
  const Recurrence& r() const { return GetParam() == 1 ? kFirst : kSecond; }
  void with_table(std::vector<uint32_t>& v, const std::vector<uint64_t>& n) const {
    static const qor::PowerTable first = qor::make_powers(kFirst.c, kFirst.modulus);
    static const qor::PowerTable second = qor::make_powers(kSecond.c, kSecond.modulus);
    const int32_t words = static_cast<int32_t>(n.size());
    if (GetParam() == 1)
      __qoriVect3PowArrayMod_M1(v.data(), words, n.data(), first.data());
    else
      __qoriVect3PowArrayMod_M2(v.data(), words, n.data(), second.data());
  }
};

TEST_P(Vect3Test, MovesByTheGivenSteps) {
  const std::vector<uint32_t> start = {12345, 999, 4294944442u};
  for (int n = 0; n < 300; n += n < 20 ? 1 : 37) {
    const std::vector<uint32_t> want = stepped(r(), start, n);
    std::vector<uint32_t> v = start, w = start, t = start;
    const uint64_t count = static_cast<uint64_t>(n);
    __qoriVect3PowMod(v.data(), r().c, r().modulus, count);
    EXPECT_EQ(v, want) << n;
    __qoriVect3PowArrayMod(w.data(), r().c, r().modulus, 1, &count);
    EXPECT_EQ(w, want) << n;
    with_table(t, {count});
    EXPECT_EQ(t, want) << n;
  }
}

TEST_P(Vect3Test, ZeroStepsLeaveEvenUnreducedMembersAlone) {
  std::vector<uint32_t> v = {0xFFFFFFFF, 1, 2};
  __qoriVect3PowMod(v.data(), r().c, r().modulus, 0);
  with_table(v, {0, 0, 0});
  EXPECT_EQ(v, (std::vector<uint32_t>{0xFFFFFFFF, 1, 2}));
}

TEST_P(Vect3Test, LongCountsAgreeWithAndWithoutTheTable) {
  for (const std::vector<uint64_t>& n : std::vector<std::vector<uint64_t>>{
           {~0ull}, {0, 1}, {5, 0, 1}, {0x123456789ABCDEF0, 0xFEDCBA9876543210, 0x8000000000000001}}) {
    std::vector<uint32_t> v = {1, 2, 3}, w = v;
    with_table(v, n);
    __qoriVect3PowArrayMod(w.data(), r().c, r().modulus, static_cast<int32_t>(n.size()), n.data());
    EXPECT_EQ(v, w);
  }
}

TEST_P(Vect3Test, CountsOver192BitsCarryOnFromThere) {
  // 2^192 steps, once as a count of four words and once as 2 times 2^191
  const uint64_t whole[4] = {0, 0, 0, 1}, half[3] = {0, 0, 1ull << 63};
  std::vector<uint32_t> v = {1, 2, 3}, w = v;
  __qoriVect3PowArrayMod(v.data(), r().c, r().modulus, 4, whole);
  with_table(w, {half[0], half[1], half[2]});
  with_table(w, {half[0], half[1], half[2]});
  EXPECT_EQ(v, w);
}

INSTANTIATE_TEST_SUITE_P(Jump, Vect3Test, ::testing::Values(1, 2));

// L'Ecuyer 1999, 2002: the state of the combined generator after a jump of 2^127 from six seeds 12345.
TEST(Vect3, PublishedJumpOfTwoToThe127) {
  uint32_t x[3] = {12345, 12345, 12345}, y[3] = {12345, 12345, 12345};
  const uint64_t n[2] = {0, 1ull << 63};
  __qoriVect3PowArrayMod(x, kFirst.c, kFirst.modulus, 2, n);
  __qoriVect3PowArrayMod(y, kSecond.c, kSecond.modulus, 2, n);
  EXPECT_EQ(std::vector<uint32_t>(x, x + 3), (std::vector<uint32_t>{3692455944u, 1366884236u, 2968912127u}));
  EXPECT_EQ(std::vector<uint32_t>(y, y + 3), (std::vector<uint32_t>{335948734u, 4161675175u, 475798818u}));
}

// ---- polynomials ---------------------------------------------------------------------------------------------------

using Bits = std::vector<bool>;

Bits poly_rem(uint64_t n, const std::vector<uint32_t>& terms) {
  const uint32_t degree = terms.back();
  std::vector<uint32_t> out(degree / 32 + 3, 0xFFFFFFFF);
  EXPECT_EQ(__qorPolyRem(n, degree, static_cast<uint32_t>(terms.size()), terms.data(), static_cast<int32_t>(out.size()),
                         out.data()),
            0);
  Bits bits(32 * out.size());
  for (size_t i = 0; i < bits.size(); ++i) bits[i] = out[i / 32] >> (i % 32) & 1;
  return bits;
}

// x times a, reduced.
void times_x(Bits& a, const std::vector<uint32_t>& terms) {
  const bool top = a[terms.back() - 1];
  for (size_t i = terms.back() - 1; i > 0; --i) a[i] = a[i - 1];
  a[0] = false;
  if (top)
    for (uint32_t e : terms)
      if (e != terms.back()) a[e] = !a[e];
}

const std::vector<std::vector<uint32_t>> kPolynomials = {{0, 1},
                                                         {1},
                                                         {0, 1, 2},
                                                         {0, 1, 3},
                                                         {0, 5, 7, 31},
                                                         {0, 3, 32},
                                                         {1, 2, 3, 63},
                                                         {0, 1, 3, 4, 64},
                                                         {0, 65},
                                                         {0, 1, 126, 127},
                                                         {0, 7, 121, 128},
                                                         {3, 100, 250, 256},
                                                         {0, 5, 999, 1000, 1023},
                                                         {0, 273, 607, 1201, 1279}};

TEST(PolyRem, AgreesWithRepeatedMultiplicationByX) {
  for (const auto& terms : kPolynomials) {
    Bits want(32 * (terms.back() / 32 + 3));
    want[0] = true;
    for (uint64_t n = 1; n < 700; ++n) {
      times_x(want, terms);
      if (n % 29 == 0 || n < 8 || (n >= terms.back() && n < terms.back() + 5)) {
        ASSERT_EQ(poly_rem(n, terms), want) << "x^" << n << " mod degree " << terms.back();
      }
    }
  }
}

TEST(PolyRem, DegreeAsExponentGivesThePolynomialWithoutItsTopTerm) {
  for (const auto& terms : kPolynomials) {
    Bits want(32 * (terms.back() / 32 + 3));
    for (uint32_t e : terms) want[e] = e != terms.back();
    EXPECT_EQ(poly_rem(terms.back(), terms), want);
  }
}

TEST(PolyRem, SmallerExponentSetsOneBit) {
  const Bits r = poly_rem(1000, {0, 273, 607, 1201, 1279});
  for (size_t i = 0; i < r.size(); ++i) EXPECT_EQ(r[i], i == 1000);
}

TEST(PolyRem, LongExponentsAgreeWithPlainSquaring) {
  // x^607 + x^105 + 1 is irreducible; any long exponent serves
  const std::vector<uint32_t> terms = {0, 105, 607};
  std::mt19937_64 random(1);
  for (int round = 0; round < 10; ++round) {
    const uint64_t n = random();
    Bits want(32 * (607 / 32 + 3));
    want[0] = true;
    for (int bit = 63; bit >= 0; --bit) {
      const Bits a = want;
      std::fill(want.begin(), want.end(), false);
      for (size_t i = 607; i-- > 0;) {  // want = a * a by shift and add
        times_x(want, terms);
        if (a[i])
          for (size_t j = 0; j < 607; ++j) want[j] = want[j] != a[j];
      }
      if (n >> bit & 1) times_x(want, terms);
    }
    ASSERT_EQ(poly_rem(n, terms), want) << n;
  }
}

TEST(PolyRem, PeriodOfAPrimitivePolynomial) {
  // x^127 + x + 1 is primitive: x^(2^64 - 1) times x is x^(2^64)
  Bits a = poly_rem(~0ull, {0, 1, 127});
  times_x(a, {0, 1, 127});
  Bits b = poly_rem(1ull << 63, {0, 1, 127});
  // squared by spreading
  Bits c(b.size());
  for (size_t i = 127; i-- > 0;) {
    times_x(c, {0, 1, 127});
    if (b[i])
      for (size_t j = 0; j < 127; ++j) c[j] = c[j] != b[j];
  }
  EXPECT_EQ(a, c);
}

TEST(PolyRem, OutputIsCutToItsWords) {
  const uint32_t terms[] = {0, 1, 127};
  uint32_t out[3] = {9, 9, 9};
  ASSERT_EQ(__qorPolyRem(200, 127, 3, terms, 2, out), 0);
  EXPECT_EQ(out[2], 9u);
  ASSERT_EQ(__qorPolyRem(100, 127, 3, terms, 2, out), 0);
  EXPECT_EQ(out[0] | out[1], 0u);
  EXPECT_EQ(out[2], 9u);
}

TEST(PolyRem, RefusedWorkBlock) {
  const uint32_t terms[] = {0, 1, 127};
  uint32_t out[4];
  serv::fail_allocation_after(1);
  EXPECT_EQ(__qorPolyRem(500, 127, 3, terms, 4, out), ORVIK_QOR_NO_MEMORY);
  serv::fail_allocation_after(0);
}

// ---- jumps of a small shift register: x(n + 31) = x(n + 3) ^ x(n), one word a step --------------------------------

struct Register {
  uint64_t header[2];
  uint32_t word[31];
  int32_t index;
};
constexpr uint32_t kTerms[] = {0, 3, 31};

Register& at(void* p) { return *static_cast<Register*>(p); }
const Register& at(const void* p) { return *static_cast<const Register*>(p); }
void clear(void* s) {
  std::memset(at(s).word, 0, sizeof at(s).word);
  at(s).index = 0;
}
void copy(void* t, const void* s) { at(t) = at(s); }
void add(void* t, const void* s) {
  for (int i = 0; i < 31; ++i) at(t).word[(at(t).index + i) % 31] ^= at(s).word[(at(s).index + i) % 31];
}
void step(void* s) {
  Register& r = at(s);
  r.word[r.index] ^= r.word[(r.index + 3) % 31];
  r.index = (r.index + 1) % 31;
}
void store(void* stream, void* s, int32_t offset) {
  for (int i = 0; i < 31; ++i) at(stream).word[i] = at(s).word[(at(s).index + i) % 31];
  at(stream).index = offset;
}
int32_t start(void*, uint64_t*, int32_t*) { return 1; }
int32_t start_done(void*, uint64_t*, int32_t*) { return 0; }
int32_t start_offset(void*, uint64_t* count, int32_t* offset) {
  *count -= 10;
  *offset = 10;
  return 1;
}

Register fresh() {
  Register r = {};
  std::mt19937 random(3);
  for (uint32_t& w : r.word) w = random();
  return r;
}
bool same(const Register& x, const Register& y) {
  for (int i = 0; i < 31; ++i)
    if (x.word[(x.index + i) % 31] != y.word[(y.index + i) % 31]) return false;
  return true;
}

using Jump = decltype(&__qor_SkipAheadHorner);
class JumpTest : public ::testing::TestWithParam<Jump> {
 protected:
  int32_t jump(Register& r, uint64_t n, OrvikQorJumpStart first = start) const {
    return GetParam()(&r, clear, add, copy, step, store, first, n, 1, 31, sizeof r, 3, kTerms);
  }
};

TEST_P(JumpTest, EqualsStepping) {
  Register walked = fresh();
  for (uint64_t n = 0; n < 500; ++n, step(&walked)) {
    Register r = fresh();
    ASSERT_EQ(jump(r, n), 0);
    ASSERT_TRUE(same(r, walked)) << n;
  }
}

TEST_P(JumpTest, WholePeriodIsNoJump) {
  Register r = fresh();  // x^31 + x^3 + 1 is primitive: g = 1
  ASSERT_EQ(jump(r, 0x7FFFFFFF), 0);
  EXPECT_TRUE(same(r, fresh()));
  ASSERT_EQ(jump(r, 0x80000000), 0);
  Register one = fresh();
  step(&one);
  EXPECT_TRUE(same(r, one));
}

TEST_P(JumpTest, ZeroAndWhatStartCanDoNeedNoWork) {
  Register r = fresh();
  const int64_t live = serv::live_allocations();
  serv::fail_allocation_after(1);
  EXPECT_EQ(jump(r, 0), 0);
  EXPECT_EQ(jump(r, 1000, start_done), 0);
  serv::fail_allocation_after(0);
  EXPECT_EQ(serv::live_allocations(), live);
  EXPECT_TRUE(same(r, fresh()));
}

TEST_P(JumpTest, OffsetOfStartReachesStore) {
  Register r = fresh(), walked = fresh();
  ASSERT_EQ(jump(r, 110, start_offset), 0);
  EXPECT_EQ(r.index, 10);
  for (int i = 0; i < 100; ++i) step(&walked);
  r.index = 0;
  EXPECT_TRUE(same(r, walked));
}

TEST_P(JumpTest, RefusedWorkBlocksLeaveTheStateUnchanged) {
  for (int64_t n = 1;; ++n) {
    Register r = fresh();
    const int64_t live = serv::live_allocations();
    serv::fail_allocation_after(n);
    const int32_t status = jump(r, 12345);
    serv::fail_allocation_after(0);
    EXPECT_EQ(serv::live_allocations(), live);
    if (status == 0) {
      EXPECT_EQ(n, GetParam() == __qor_SkipAheadHorner ? 4 : 6);
      break;
    }
    EXPECT_EQ(status, ORVIK_QOR_NO_MEMORY);
    EXPECT_TRUE(same(r, fresh()));
  }
}

INSTANTIATE_TEST_SUITE_P(Jump, JumpTest, ::testing::Values(__qor_SkipAheadHorner, __qor_SkipAheadSWin));

// ---- routing -------------------------------------------------------------------------------------------------------

TEST(JumpCalls, WhatEachGeneratorSupports) {
  for (const auto& g : orvik::testing::seeded_generators()) {
    const Stream s(g.brng, g.seeds);
    EXPECT_EQ(s.leapfrog(1, 3), g.leapfrogs ? 0 : ORVIK_QOR_NO_LEAPFROG) << g.name;
    EXPECT_EQ(s.skip(5), g.skips ? 0 : ORVIK_QOR_NO_SKIPAHEAD) << g.name;
    EXPECT_EQ(s.skip_ex({5}), g.skips_long ? 0 : ORVIK_QOR_NO_SKIPAHEAD_EX) << g.name;
    EXPECT_EQ(s.leapfrog(1, -1), ORVIK_QOR_BAD_NSTREAMS) << g.name;
  }
  const Stream trng(ORVIK_BRNG_TRNG);
  EXPECT_EQ(trng.leapfrog(1, 3), ORVIK_QOR_NO_LEAPFROG);
  EXPECT_EQ(trng.skip(5), ORVIK_QOR_NO_SKIPAHEAD);
  EXPECT_EQ(trng.skip_ex({5}), ORVIK_QOR_NO_SKIPAHEAD_EX);
}

// Jumps land where drawing lands, from every place that a request may leave a stream in.
TEST(JumpCalls, SkipsLandOnTheSequence) {
  for (const auto& g : orvik::testing::seeded_generators()) {
    if (!g.skips) continue;
    const size_t parts = static_cast<size_t>(orvik::models::parts(g.brng));
    const std::vector<uint64_t> want = orvik::models::take(orvik::models::make(g.brng, g.seeds), 9000 * parts);
    for (int32_t before : {0, 1, 2, 3, 5, 8, 11, 623, 624, 625, 700})
      for (int32_t count : {0, 1, 2, 3, 4, 7, 10, 29, 624, 1000, 7000}) {
        const Stream s(g.brng, g.seeds);
        s.outputs(before);
        ASSERT_EQ(s.skip(static_cast<uint64_t>(count)), 0);
        const auto at = want.begin() + static_cast<ptrdiff_t>(parts) * (before + count);
        ASSERT_EQ(s.outputs(50), std::vector<uint64_t>(at, at + static_cast<ptrdiff_t>(50 * parts)))
            << g.name << ": " << before << " + " << count;
      }
  }
}

// What is dealt out by leapfrog and cut into parts by skip-ahead, drawn in turns, is the sequence.
TEST(JumpCalls, StreamsByLeapfrogAndSkipAheadDrawnInTurnsAreTheSequence) {
  for (const auto& g : orvik::testing::seeded_generators()) {
    if (!g.skips) continue;
    const size_t parts = static_cast<size_t>(orvik::models::parts(g.brng));
    const int32_t streams = g.leapfrogs ? 3 : 1, cuts = 4, length = 60;
    const std::vector<uint64_t> want =
        orvik::models::take(orvik::models::make(g.brng, g.seeds), static_cast<size_t>(streams * cuts * length) * parts);
    std::vector<Stream> all;
    for (int32_t k = 0; k < streams; ++k)
      for (int32_t c = 0; c < cuts; ++c) {
        all.emplace_back(g.brng, g.seeds);
        if (g.leapfrogs) {
          ASSERT_EQ(all.back().leapfrog(k, streams), 0);
        }
        ASSERT_EQ(all.back().skip(static_cast<uint64_t>(c * length)), 0);
      }
    std::vector<uint64_t> got(want.size());
    for (int32_t at = 0; at < length; at += 5)  // five numbers of each in turn
      for (int32_t k = 0; k < streams; ++k)
        for (int32_t c = 0; c < cuts; ++c) {
          const std::vector<uint64_t> five = all[static_cast<size_t>(k * cuts + c)].outputs(5);
          for (int32_t i = 0; i < 5; ++i)
            for (size_t p = 0; p < parts; ++p)
              got[static_cast<size_t>((c * length + at + i) * streams + k) * parts + p] =
                  five[static_cast<size_t>(i) * parts + p];
        }
    EXPECT_EQ(got, want) << g.name;
  }
}

TEST(JumpCalls, LongSkipOfOneWordGivesTheNumbersOfTheShortSkip) {
  for (const auto& g : orvik::testing::seeded_generators()) {
    if (!g.skips_long) continue;
    for (uint64_t count : {uint64_t{0}, uint64_t{1}, uint64_t{12345}, ~uint64_t{0}}) {
      const Stream s(g.brng, g.seeds), t(g.brng, g.seeds);
      ASSERT_EQ(s.skip(count), 0);
      ASSERT_EQ(t.skip_ex({count}), 0);
      EXPECT_EQ(s.outputs(100), t.outputs(100)) << g.name;
    }
  }
}

TEST(JumpCalls, LeapfrogOfZeroStreamsReachesTheGenerator) {
  EXPECT_EQ(Stream(ORVIK_BRNG_MT19937).leapfrog(0, 0), ORVIK_QOR_NO_LEAPFROG);
  EXPECT_EQ(Stream(ORVIK_BRNG_MCG59).leapfrog(0, 0), 0);
}

TEST(JumpCalls, SkipOfZeroLeavesAnyGeneratorAsItIs) {
  for (const auto& g : orvik::testing::seeded_generators()) {
    if (!g.skips) continue;
    const Stream s(g.brng, g.seeds), t(g.brng, g.seeds);
    s.doubles(11);
    t.doubles(11);
    EXPECT_EQ(s.skip(0), 0);
    const size_t size = static_cast<size_t>(s.row().StreamStateSize) - 16;
    EXPECT_EQ(std::memcmp(s.state<uint8_t>(), t.state<uint8_t>(), size), 0) << g.name;
    EXPECT_EQ(s.doubles(100), t.doubles(100)) << g.name;
  }
}

}  // namespace
