// Special lanes of a kernel: which elements are reported, in which order, with which index; what a callback may change.
// NextAfter shows it: a step beyond the largest float is code 3, onto a denormal code 4.
#include <gtest/gtest.h>
#include <immintrin.h>

#include <cerrno>
#include <cfloat>
#include <cmath>
#include <limits>
#include <vector>

#include "orvik/zym.h"
#include "zym/frame/thread_state.h"

namespace orvik::zym {
namespace {

struct Seen {
  int32_t code, index;
  double arg1, arg2, result1;
};
std::vector<Seen> reports;
bool handled = false;

int32_t collect(ZymErrorContext* c) {
  reports.push_back({c->code, c->index, c->arg1, c->arg2, c->result1});
  c->result1 = 1000.0 + c->index;
  return handled ? 1 : 0;
}

class Special : public testing::Test {
 protected:
  void SetUp() override {
    thread_block = {};
    reports.clear();
    handled = false;
    _zymSetMode(ZYM_ERRMODE_IGNORE);
    _zymSetErrorCallBack(collect);
    _zymSetMode(ZYM_ERRMODE_CALLBACK);
  }
  void TearDown() override { thread_block = {}; }
};

TEST_F(Special, ReportsComeInIndexOrderThroughLoopAndRemainder) {
  std::vector<float> a(77, 1.0f), b(77, 2.0f), r(77);
  const std::vector<int32_t> special = {0, 5, 8, 31, 32, 63, 64, 71, 72, 76};
  for (int32_t i : special) a[static_cast<size_t>(i)] = FLT_MAX, b[static_cast<size_t>(i)] = INFINITY;
  _zymsNextAfter(77, a.data(), b.data(), r.data());
  ASSERT_EQ(reports.size(), special.size());
  for (size_t k = 0; k < special.size(); ++k) {
    EXPECT_EQ(reports[k].index, special[k]);
    EXPECT_EQ(reports[k].code, zymErrorOverflow);
    EXPECT_EQ(reports[k].arg1, static_cast<double>(FLT_MAX));
    EXPECT_EQ(reports[k].arg2, INFINITY);
    EXPECT_EQ(reports[k].result1, INFINITY);
    EXPECT_EQ(r[static_cast<size_t>(special[k])], 1000.0f + static_cast<float>(special[k]));
  }
  for (size_t i = 0; i < 77; ++i) {
    if (a[i] == 1.0f) {
      EXPECT_EQ(r[i], std::nextafter(1.0f, 2.0f)) << i;
    }
  }
}

TEST_F(Special, StridedReportsUseTheIncrements) {
  std::vector<double> a(100, 1.0), b(100, 2.0), r(100);
  a[2 * 3] = DBL_MAX, b[99 - 3] = INFINITY;  // element 3
  a[2 * 21] = DBL_MIN, b[99 - 21] = 0.0;     // element 21
  _zymdNextAfterI(23, a.data(), 2, b.data() + 99, -1, r.data(), 4);
  ASSERT_EQ(reports.size(), 2u);
  EXPECT_EQ(reports[0].index, 3);
  EXPECT_EQ(reports[0].arg1, DBL_MAX);
  EXPECT_EQ(reports[0].code, zymErrorOverflow);
  EXPECT_EQ(reports[1].index, 21);
  EXPECT_EQ(reports[1].code, zymErrorUnderflow);
  EXPECT_EQ(r[12], 1003.0);
  EXPECT_EQ(r[84], 1021.0);
}

// Short calls, calls of whole vectors with a rest, and calls of several pieces: what stands before the reported element
// is where the caller will read it, the callbacks' own changes among it.
template <class E>
void expect_earlier_results_stored(void (*entry)(int32_t, const E*, int32_t, const E*, int32_t, E*, int32_t)) {
  static std::vector<E> r;
  static constexpr int32_t kStep = 3;
  static size_t seen;
  _zymSetErrorCallBack([](ZymErrorContext* c) {
    for (int32_t i = 0; i < c->index; ++i) {
      const E expected = i % 5 == 1 ? E(1000 + i) : std::nextafter(E(1), E(2));
      EXPECT_EQ(r[static_cast<size_t>(i * kStep)], expected) << i << " before " << c->index;
    }
    ++seen;
    c->result1 = 1000.0 + c->index;
    return 0;
  });
  for (int32_t n : {2, 5, 8, 12, 16, 33, 70, 1300}) {
    const auto size = static_cast<size_t>(n);
    std::vector<E> a(2 * size, E(1)), b(size, E(2));
    for (size_t i = 1; i < size; i += 5) a[2 * i] = std::numeric_limits<E>::max(), b[i] = INFINITY;
    r.assign(kStep * size, E(-1));
    seen = 0;
    entry(n, a.data(), 2, b.data(), 1, r.data(), kStep);
    EXPECT_EQ(seen, (size + 3) / 5);
    for (size_t i = 0; i < size; ++i) {
      EXPECT_EQ(r[kStep * i], i % 5 == 1 ? E(1000 + i) : std::nextafter(E(1), E(2))) << i;
      EXPECT_EQ(r[kStep * i + 1], E(-1)) << i;
    }
  }
}
TEST_F(Special, AStridedReportsCallbackSeesEarlierResultsStored) {
  expect_earlier_results_stored<float>(_zymsNextAfterI);
  expect_earlier_results_stored<double>(_zymdNextAfterI);
}

TEST_F(Special, HandledElementsKeepTheKernelsResult) {
  handled = true;
  const float a = FLT_MAX, b = INFINITY;
  float r = 0;
  _zymsNextAfter(1, &a, &b, &r);
  EXPECT_EQ(r, INFINITY);
  ASSERT_EQ(reports.size(), 1u);
}

TEST_F(Special, CallbackChangeSurvivesInPlace) {
  std::vector<double> a(19, 1.0), b(19, 2.0);
  a[0] = a[17] = DBL_MAX, b[0] = b[17] = INFINITY;
  _zymdNextAfter(19, a.data(), b.data(), a.data());
  EXPECT_EQ(a[0], 1000.0);
  EXPECT_EQ(a[17], 1017.0);
  EXPECT_EQ(a[1], std::nextafter(1.0, 2.0));
}

// What element routines make of errno is not seen, in a callback and behind the call.
TEST_F(Special, ErrnoIsTheCallersAndTheReports) {
  static int seen;
  _zymSetErrorCallBack([](ZymErrorContext*) {
    seen = errno;
    errno = EDOM;
    return 1;
  });
  std::vector<ZymComplexDouble> a(21, {1, 1}), r(21);
  a[2] = a[7] = {-2000, 1};  // underflows without a report
  for (int32_t stride : {1, 2}) {
    errno = EILSEQ;
    _zymzExpI(20 / stride, a.data(), stride, r.data(), 1);
    EXPECT_EQ(errno, EILSEQ);
  }
  a[3] = a[6] = {2000, 1};  // overflow
  for (bool strided : {false, true}) {
    errno = EILSEQ;
    seen = 0;
    strided ? _zymzExpI(4, a.data(), 1, r.data(), 2) : _zymzExp(4, a.data(), r.data());
    EXPECT_EQ(seen, EILSEQ);
    strided ? _zymzExpI(20, a.data(), 1, r.data(), 1) : _zymzExp(20, a.data(), r.data());
    EXPECT_EQ(seen, EDOM);
    EXPECT_EQ(errno, EDOM);
  }
  errno = 0;
}

TEST_F(Special, FillersReportNothing) {
  std::vector<float> a(3, NAN), b(3, 1.0f), r(3);
  _zymsNextAfter(3, a.data(), b.data(), r.data());
  EXPECT_TRUE(reports.empty());
  for (float x : r) EXPECT_TRUE(std::isnan(x));
}

TEST_F(Special, LastReportOfACallDecidesTheStatus) {
  std::vector<float> a(12, 1.0f), b(12, 2.0f), r(12);
  a[5] = FLT_MAX, b[5] = INFINITY;
  a[9] = FLT_MIN, b[9] = 0.0f;
  _zymsNextAfter(12, a.data(), b.data(), r.data());
  EXPECT_EQ(_zymGetErrStatus(), zymErrorUnderflow);
}

TEST_F(Special, BlockOfAVectorReportsTheWholeVectorsIndex) {
  std::vector<float> a(1010, 1.0f), b(1010, 2.0f), r(1010);
  a[1003] = FLT_MAX, b[1003] = INFINITY;
  _zymSetInterfInputVectorPointer(a.data());
  _zymsNextAfter(10, a.data() + 1000, b.data() + 1000, r.data());
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_EQ(reports[0].index, 1003);
}

TEST_F(Special, ABlockIsReadWholeBeforeItIsStored) {
  for (float sixth : {4.0f, std::numeric_limits<float>::infinity()}) {
    std::vector<float> x(33, 4.0f);
    x[5] = sixth;
    _zymsSqrt(32, x.data(), x.data() + 1);
    for (size_t i = 0; i < 32; ++i) EXPECT_EQ(x[i + 1], i == 5 ? std::sqrt(sixth) : 2.0f) << i;
  }
}

// What the lanes would make of an infinity (infinity times zero) is not computed.
TEST_F(Special, SpecialLanesRaiseNoFlagOfTheLaneComputation) {
  std::vector<float> a(75, 2.0f), r(75);
  std::vector<double> b(75, 2.0), s(75);
  for (size_t i : {5, 39, 70, 74}) {
    a[i] = std::numeric_limits<float>::infinity();
    b[i] = std::numeric_limits<double>::infinity();
  }
  const auto flags = [](auto entry, auto& in, auto& out) {
    _mm_setcsr(0x1F80);
    entry(75, in.data(), out.data());
    const uint32_t raised = _mm_getcsr() & 0x3F;
    _mm_setcsr(0x1F80);
    return raised & ~uint32_t{_MM_EXCEPT_INEXACT};
  };
  for (auto entry : {_zymsInv, _zymsInv_21, _zymsInv_11, _zymsSqrt, _zymsSqrt_21, _zymsInvSqrt, _zymsExp_11, _zymsLn,
                     _zymsExp2, _zymsCbrt})
    EXPECT_EQ(flags(entry, a, r), 0u);
  for (auto entry : {_zymdInv, _zymdInv_50, _zymdSqrt, _zymdInvSqrt_26, _zymdExp, _zymdLn_50, _zymdExp10, _zymdCbrt})
    EXPECT_EQ(flags(entry, b, s), 0u);
  const auto every_second = [](int32_t, const float* in, float* out) { _zymsInvI_11(37, in, 2, out, 2); };
  a[6] = a[40] = std::numeric_limits<float>::infinity();
  EXPECT_EQ(flags(every_second, a, r), 0u);
  EXPECT_EQ(r[40], 0.0f);
}

TEST_F(Special, NoerrModeReportsNothingAndDeliversTheSameValues) {
  thread_block.mode = ZYM_HA | ZYM_ERRMODE_NOERR;
  const float a = FLT_MAX, b = INFINITY;
  float r = 0;
  _zymsNextAfter(1, &a, &b, &r);
  EXPECT_EQ(r, INFINITY);
  EXPECT_TRUE(reports.empty());
  EXPECT_EQ(_zymGetErrStatus(), 0);
}

TEST_F(Special, ACallbackMayCallKernels) {
  static float inner[40];
  _zymSetErrorCallBack([](ZymErrorContext* c) {
    float one[40];
    for (float& x : one) x = -1.5f;
    _zymsAbs(40, one, inner);
    c->result1 = static_cast<double>(inner[39]);
    return 0;
  });
  std::vector<float> a(9, 1.0f), b(9, 2.0f), r(9);
  a[4] = FLT_MAX, b[4] = INFINITY;
  _zymsNextAfter(9, a.data(), b.data(), r.data());
  EXPECT_EQ(r[4], 1.5f);
}

}  // namespace
}  // namespace orvik::zym
