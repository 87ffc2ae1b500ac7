// The caller's thread state: mode word, callback, status, errno, control register; and the pool across fork.
#include <errno.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xmmintrin.h>

#include <cfenv>
#include <cstring>
#include <vector>

#include "orvik/front.h"
#include "orvik/zym.h"

namespace {

int32_t never(ZymErrorContext*) {
  ADD_FAILURE() << "the caller's callback must not be called";
  return 1;
}

class State : public testing::Test {
 protected:
  const uint32_t mode_at_start = _zymGetMode();
  std::vector<double> a = std::vector<double>(5000, 0.0), r = a;
  void TearDown() override {
    _zymSetErrorCallBack(nullptr);
    _zymSetMode(mode_at_start);
    _zymClearErrStatus();
  }
};

TEST_F(State, ModeCallbackStatusAndErrnoStayAsTheyWere) {
  for (const int32_t threads : {1, 3}) {
    for (const uint32_t mode : {0x1A02u, 0x102u, 0x2001u, 0x283401u, 0x141A03u, 0x1001u}) {
      _zymSetErrorCallBack(never);
      _zymSetMode(mode);
      _zymSetErrStatus(42);
      errno = 1234;
      const uint32_t before = _zymGetMode();
      orvik_math_options o = {ORVIK_HA, threads, nullptr, 0, 0};
      EXPECT_EQ(orvik_dln(5000, a.data(), r.data(), &o), ORVIK_SINGULARITY);
      EXPECT_EQ(orvik_dabs(5000, a.data(), r.data(), &o), ORVIK_SUCCESS);
      EXPECT_EQ(_zymGetMode(), before);
      EXPECT_EQ(_zymGetErrStatus(), 42);
      EXPECT_EQ(_zymGetErrorCallBack(), &never);
      EXPECT_EQ(errno, 1234);
    }
  }
}

TEST_F(State, DenormalsAreKeptAlsoWhereTheModeFlushes) {
  _zymSetMode(ZYM_FLUSH_DENORMALS);
  const double tiny = 4.9e-324;
  double result = 0;
  EXPECT_EQ(orvik_dabs(1, &tiny, &result, nullptr), ORVIK_SUCCESS);
  EXPECT_EQ(result, tiny);
  EXPECT_EQ(_zymGetMode() & 0x3C0000u, uint32_t{ZYM_FLUSH_DENORMALS});
}

TEST_F(State, AnInputVectorPointerDoesNotShiftReports) {
  _zymSetInterfInputVectorPointer(a.data() - 100);
  orvik_report report = {};
  orvik_math_options o = {ORVIK_HA, 1, &report, 1, 0};
  EXPECT_EQ(orvik_dln(1, a.data(), r.data(), &o), ORVIK_SINGULARITY);
  EXPECT_EQ(report.index, 0);
}

TEST_F(State, RoundingDirectionAndMasksStayAndDoNotReachResults) {
  const std::vector<double> x(5000, 0.7);
  std::vector<double> want(5000), got(5000);
  ASSERT_EQ(orvik_dexp(5000, x.data(), want.data(), nullptr), ORVIK_SUCCESS);
  for (const int32_t threads : {1, 3}) {
    orvik_math_options o = {ORVIK_HA, threads, nullptr, 0, 0};
    const unsigned before = _mm_getcsr();
    _mm_setcsr(0x1F80 | _MM_ROUND_UP);
    ASSERT_EQ(orvik_dexp(5000, x.data(), got.data(), &o), ORVIK_SUCCESS);
    EXPECT_EQ(_mm_getcsr(), 0x1F80u | _MM_ROUND_UP | 0x20u);  // inexact
    _mm_setcsr(before);
    EXPECT_EQ(std::memcmp(want.data(), got.data(), 5000 * sizeof(double)), 0);
  }
}

TEST_F(State, FlagsThatStoodStayAndThoseOfAllThreadsAreRaised) {
  std::vector<double> x(5000, 1.0);
  x[4999] = 1e300;  // overflows, in the last block
  orvik_math_options o = {ORVIK_HA, 3, nullptr, 0, 0};
  _mm_setcsr(0x1F80 | 0x1);
  ASSERT_EQ(orvik_dsqr(5000, x.data(), r.data(), &o), ORVIK_SUCCESS);
  EXPECT_EQ(_mm_getcsr() & 0x9u, 0x9u);
  _mm_setcsr(0x1F80);
}

#ifndef __SANITIZE_THREAD__  // which lets no thread start in the child
TEST_F(State, TheChildOfAForkMayCall) {
  orvik_math_options o = {ORVIK_HA, 3, nullptr, 0, 0};
  ASSERT_EQ(orvik_dln(5000, a.data(), r.data(), &o), ORVIK_SINGULARITY);  // the pool stands
  const pid_t child = fork();
  if (child == 0) {
    alarm(60);
    const orvik_status first = orvik_dln(5000, a.data(), r.data(), &o);
    const orvik_status second = orvik_dln(5000, a.data(), r.data(), &o);
    _exit(first == ORVIK_SINGULARITY && second == first ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  ASSERT_EQ(orvik_dln(5000, a.data(), r.data(), &o), ORVIK_SINGULARITY);
}

#endif

TEST_F(State, TheNumberOfThreadsCanBeSet) {
  const int32_t all = orvik_get_num_threads();
  EXPECT_GE(all, 1);
  EXPECT_EQ(orvik_set_num_threads(-1), ORVIK_ERROR_BAD_PARAMETER);
  EXPECT_EQ(orvik_get_num_threads(), all);
  EXPECT_EQ(orvik_set_num_threads(3), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_get_num_threads(), 3);
  EXPECT_EQ(orvik_set_num_threads(1 << 30), ORVIK_SUCCESS);
  EXPECT_LE(orvik_get_num_threads(), 1024);
  EXPECT_EQ(orvik_set_num_threads(0), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_get_num_threads(), all);
}

TEST(Version, IsTextAndNumbers) {
  EXPECT_STREQ(orvik_version(), ORVIK_VERSION_STRING);
  EXPECT_EQ(std::string(ORVIK_VERSION_STRING), std::to_string(ORVIK_VERSION_MAJOR) + "." +
                                                   std::to_string(ORVIK_VERSION_MINOR) + "." +
                                                   std::to_string(ORVIK_VERSION_PATCH));
  EXPECT_EQ(orvik_cpu_supported(), 1);
}

}  // namespace
