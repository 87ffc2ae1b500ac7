// Element reports: status, context, callback, errno, text, x87 flag and trap, for every element type and stride.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "orvik/serv.h"
#include "orvik/zym.h"
#include "zym/frame/report.h"
#include "zym/frame/thread_state.h"

namespace orvik::zym {
namespace {

std::optional<ZymErrorContext> seen;
int32_t answer = 0;
void (*meddle)(ZymErrorContext*) = nullptr;

int32_t recording_callback(ZymErrorContext* context) {
  seen = *context;
  if (meddle != nullptr) meddle(context);
  return answer;
}

class Report : public testing::Test {
 protected:
  void SetUp() override {
    thread_block = {};
    thread_block.mode = ZYM_HA | ZYM_ERRMODE_IGNORE;
    seen.reset();
    answer = 0;
    meddle = nullptr;
    errno = 0;
    asm volatile("fninit");
  }
  void TearDown() override {
    thread_block = {};
    asm volatile("fninit");
  }
  static void set_error_field(uint32_t field) { thread_block.mode = ZYM_HA | field; }
  static uint16_t x87_status() {
    uint16_t status;
    asm volatile("fnstsw %0" : "=a"(status));
    return status;
  }
  static uint16_t x87_control() {
    uint16_t control;
    asm volatile("fnstcw %0" : "=m"(control));
    return control;
  }

  float a[4] = {1, 2, 3, 4};
  float b[4] = {5, 6, 7, 8};
  float r[4] = {10, 20, 30, 40};
  float r2[4] = {50, 60, 70, 80};
};

TEST_F(Report, NoerrAloneRecordsNothing) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_NOERR);
  zymReportFloat(1, 0, a, a, r, r, "vsX");
  EXPECT_EQ(_zymGetErrStatus(), 0);
  EXPECT_FALSE(seen);
  EXPECT_EQ(errno, 0);
}

TEST_F(Report, IgnoreRecordsTheStatusAndRunsNoCallback) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_IGNORE);
  zymReportFloat(2, 0, a, a, r, r, "vsX");
  EXPECT_EQ(_zymGetErrStatus(), 2);
  EXPECT_FALSE(seen);
  EXPECT_EQ(errno, 0);
}

TEST_F(Report, NoerrWithErrnoGoesOn) {
  set_error_field(ZYM_ERRMODE_NOERR | ZYM_ERRMODE_ERRNO);
  zymReportFloat(1, 0, a, a, r, r, "vsX");
  EXPECT_EQ(_zymGetErrStatus(), 1);
  EXPECT_EQ(errno, EDOM);
}

TEST_F(Report, LastReportWins) {
  zymReportFloat(3, 1, a, a, r, r, "vsX");
  zymReportFloat(4, 2, a, a, r, r, "vsX");
  EXPECT_EQ(_zymGetErrStatus(), 4);
}

TEST_F(Report, ContextHoldsWidenedValues) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_CALLBACK);
  zymReportFloat(3, 2, a, b, r, r2, "vsPow");
  ASSERT_TRUE(seen);
  EXPECT_EQ(seen->code, 3);
  EXPECT_EQ(seen->index, 2);
  EXPECT_EQ(seen->arg1, 3.0);
  EXPECT_EQ(seen->arg2, 7.0);
  EXPECT_EQ(seen->result1, 30.0);
  EXPECT_EQ(seen->result2, 70.0);
  EXPECT_STREQ(seen->functionName, "vsPow");
  EXPECT_EQ(seen->functionNameLength, 5);
}

TEST_F(Report, StridedElementsLieAtIndexTimesIncrement) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_CALLBACK);
  zymReportFloatStrided(1, 1, a, 3, b + 3, -2, r, 2, r2, 1, "vsDiv");
  ASSERT_TRUE(seen);
  EXPECT_EQ(seen->index, 1);
  EXPECT_EQ(seen->arg1, 4.0);
  EXPECT_EQ(seen->arg2, 6.0);
  EXPECT_EQ(seen->result1, 30.0);
  EXPECT_EQ(seen->result2, 60.0);
}

TEST_F(Report, ComplexReportersFillImaginaryParts) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_CALLBACK);
  const ZymComplexDouble za[2] = {{1, 2}, {3, 4}};
  const ZymComplexDouble zb[2] = {{5, 6}, {7, 8}};
  ZymComplexDouble zr[2] = {{9, 10}, {11, 12}};
  zymReportComplexDouble(3, 1, za, zb, zr, zr, "vzMul");
  ASSERT_TRUE(seen);
  EXPECT_EQ(seen->arg1, 3.0);
  EXPECT_EQ(seen->arg1Imag, 4.0);
  EXPECT_EQ(seen->arg2Imag, 8.0);
  EXPECT_EQ(seen->result1, 11.0);
  EXPECT_EQ(seen->result2Imag, 12.0);
  const ZymComplexFloat ca[3] = {{1, 2}, {3, 4}, {5, 6}};
  ZymComplexFloat cr[3] = {{1, 1}, {2, 2}, {-7, -8}};
  zymReportComplexFloatStrided(1, 1, ca, 2, ca, 2, cr, 2, cr, 2, "vcExp");
  EXPECT_EQ(seen->arg1Imag, 6.0);
  EXPECT_EQ(seen->result1, -7.0);
}

TEST_F(Report, CallbackThatReturnsZeroChangesTheResult) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_CALLBACK);
  meddle = [](ZymErrorContext* c) { c->result1 = 99.0; };
  zymReportFloat(1, 3, a, a, r, r, "vsLn");
  EXPECT_EQ(r[3], 99.0f);
}

TEST_F(Report, CallbackThatReturnsOneDoesNot) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_CALLBACK | ZYM_ERRMODE_ERRNO);
  meddle = [](ZymErrorContext* c) { c->result1 = 99.0; };
  answer = 1;
  zymReportFloat(1, 3, a, a, r, r, "vsLn");
  EXPECT_EQ(r[3], 40.0f);
  EXPECT_EQ(errno, 0);  // the standard handling is skipped
}

TEST_F(Report, ResultOneDecidesWhereBothAreOneArray) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_CALLBACK);
  meddle = [](ZymErrorContext* c) { c->result2 = 7.0; };
  zymReportFloat(1, 0, a, a, r, r, "vsLn");
  EXPECT_EQ(r[0], 10.0f);
  zymReportFloat(1, 0, a, a, r, r2, "vsSinCos");
  EXPECT_EQ(r[0], 10.0f);
  EXPECT_EQ(r2[0], 7.0f);
}

TEST_F(Report, NameOf48CharactersIsCutTo47) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_CALLBACK);
  const std::string name(48, 'n');
  zymReportFloat(1, 0, a, a, r, r, name.c_str());
  ASSERT_TRUE(seen);
  EXPECT_EQ(seen->functionNameLength, 47);
  EXPECT_EQ(std::string(seen->functionName), name.substr(0, 47));
}

TEST_F(Report, IndexIsShiftedByTheDistanceFromTheVectorStart) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_CALLBACK);
  std::vector<double> whole(1010, 1.0);
  std::vector<double> result(10, 2.0);
  thread_block.inputVectorPointer = whole.data();
  zymReportDouble(2, 3, whole.data() + 1000, whole.data() + 1000, result.data(), result.data(), "vdLn");
  ASSERT_TRUE(seen);
  EXPECT_EQ(seen->index, 1003);
  EXPECT_EQ(seen->result1, 2.0);  // elements keep the unshifted index
}

TEST_F(Report, IndexShiftCountsWholeElementsOfEveryType) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_CALLBACK);
  std::vector<ZymComplexDouble> z(30);
  std::vector<ZymComplexFloat> c(30);
  std::vector<float> s(30);
  thread_block.inputVectorPointer = z.data();
  zymReportComplexDouble(1, 1, &z[20], &z[20], &z[20], &z[20], "vzX");
  EXPECT_EQ(seen->index, 21);
  thread_block.inputVectorPointer = c.data();
  zymReportComplexFloat(1, 1, &c[20], &c[20], &c[20], &c[20], "vcX");
  EXPECT_EQ(seen->index, 21);
  thread_block.inputVectorPointer = &s[25];
  zymReportFloatStrided(1, 1, &s[20], 2, &s[20], 2, &s[0], 1, &s[0], 1, "vsX");
  EXPECT_EQ(seen->index, -4);  // increments do not enter the shift
}

TEST_F(Report, ErrnoFollowsTheCode) {
  set_error_field(ZYM_ERRMODE_ERRNO);
  const std::pair<int32_t, int> expected[] = {{-2, EACCES}, {-1, EINVAL}, {1, EDOM},   {2, ERANGE},
                                              {3, ERANGE},  {4, ERANGE},  {5, EFAULT}, {-3, EFAULT}};
  for (const auto& [code, number] : expected) {
    errno = 0;
    zymReportFloat(code, 0, a, a, r, r, "vsX");
    EXPECT_EQ(errno, number) << code;
    EXPECT_EQ(_zymGetErrStatus(), code);
  }
  errno = 5;
  zymReportFloat(0, 0, a, a, r, r, "vsX");
  EXPECT_EQ(errno, 0);  // written
}

TEST_F(Report, NegativeCodesReadNoElements) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_CALLBACK);
  zymReportDouble(-1, 7, nullptr, nullptr, nullptr, nullptr, "vdX");
  ASSERT_TRUE(seen);
  EXPECT_EQ(seen->code, -1);
  EXPECT_EQ(seen->index, 7);
}

TEST_F(Report, EveryTypeReportsAndWritesBack) {
  thread_block.errorCallback = recording_callback;
  set_error_field(ZYM_ERRMODE_CALLBACK);
  meddle = [](ZymErrorContext* c) { c->result1 = -5.0, c->result1Imag = -6.0; };
  double d[2] = {1, 2};
  zymReportDoubleStrided(1, 1, d, 1, d, 1, d, 1, d, 1, "vdX");
  EXPECT_EQ(d[1], -5.0);
  ZymComplexFloat c[2] = {{1, 2}, {3, 4}};
  zymReportComplexFloat(1, 1, c, c, c, c, "vcX");
  EXPECT_EQ(c[1].re, -5.0f);
  EXPECT_EQ(c[1].im, -6.0f);
  ZymComplexDouble z[4] = {};
  zymReportComplexDoubleStrided(1, 1, z, 3, z, 3, z, 3, z, 3, "vzX");
  EXPECT_EQ(z[3].im, -6.0);
}

// --- text -----------------------------------------------------------------------------------------------------------

std::string print_of(int32_t code, double arg1, double arg2, double result1, double result2) {
  const double a[1] = {arg1}, b[1] = {arg2};
  double r1[1] = {result1}, r2[1] = {result2};
  thread_block.mode = ZYM_HA | ZYM_ERRMODE_STDERR;
  testing::internal::CaptureStderr();
  zymReportDouble(code, 0, a, b, r1, r2, "vdName");
  return testing::internal::GetCapturedStderr();
}

size_t lines(const std::string& text) { return static_cast<size_t>(std::count(text.begin(), text.end(), '\n')); }

TEST_F(Report, TextHasALinePerValueThatIsPresent) {
  EXPECT_EQ(lines(print_of(1, 3, 3, 5, 5)), 3u);
  EXPECT_EQ(lines(print_of(1, 3, 3, 5, 6)), 4u);
  EXPECT_EQ(lines(print_of(1, 3, 4, 5, 5)), 4u);
  EXPECT_EQ(lines(print_of(1, 3, 4, 5, 6)), 5u);
}

// Which messages, in which order and of which values.
TEST_F(Report, TextIsTheMessagesOfTheCodeAndOfItsValues) {
  using Lines = std::vector<std::pair<int32_t, double>>;
  const auto messages = [](int32_t of_code, const Lines& values) {
    testing::internal::CaptureStderr();
    of_code == 748 ? orvik_serv_print(1, of_code, 2, "vdName", int32_t{0}) : orvik_serv_print(1, of_code, 1, "vdName");
    for (const auto& [number, value] : values) orvik_serv_print(1, number, 2, int32_t{0}, value);
    return testing::internal::GetCapturedStderr();
  };
  const std::pair<int32_t, int32_t> codes[] = {{1, 750}, {2, 751}, {3, 752}, {4, 753}, {5, 754}, {-3, 754}};
  for (const auto& [code, number] : codes) {
    EXPECT_EQ(print_of(code, 3, 3, 5, 5), messages(number, {{755, 3}, {756, 5}})) << code;
    EXPECT_EQ(print_of(code, 3, 3, 5, 6), messages(number, {{757, 3}, {758, 5}, {759, 6}})) << code;
    EXPECT_EQ(print_of(code, 3, 4, 5, 5), messages(number, {{760, 3}, {761, 4}, {762, 5}})) << code;
    EXPECT_EQ(print_of(code, 3, 4, 5, 6), messages(number, {{763, 3}, {764, 4}, {765, 5}, {766, 6}})) << code;
  }
  EXPECT_EQ(print_of(-1, 3, 4, 5, 6), messages(748, {}));
  EXPECT_EQ(print_of(-2, 3, 4, 5, 6), messages(749, {}));
}

TEST_F(Report, TextNamesTheFunction) { EXPECT_NE(print_of(2, 3, 3, 5, 5).find("vdName"), std::string::npos); }

TEST_F(Report, SecondArgumentZeroShowsTheOneArgumentLines) {
  EXPECT_EQ(print_of(1, 3, 0.0, 5, 5), print_of(1, 3, 3, 5, 5));
  EXPECT_EQ(print_of(1, 3, -0.0, 5, 0.0), print_of(1, 3, 3, 5, 5));
}

TEST_F(Report, AKernelsReportOfTwoArgumentsShowsOneWhereTheSecondIsZero) {
  const auto printed = [](auto entry, double b) {
    const double a = 2;
    double r = 0;
    thread_block.mode = ZYM_HA | ZYM_ERRMODE_STDERR;
    testing::internal::CaptureStderr();
    entry(1, &a, &b, &r);
    return testing::internal::GetCapturedStderr();
  };
  EXPECT_EQ(lines(printed(_zymdDiv, 0.0)), 3u);
  EXPECT_EQ(lines(printed(_zymdPow, 5000.0)), 4u);
}

TEST_F(Report, NanThatRepeatsCountsAsOneValue) {
  const double nan = __builtin_nan("");
  EXPECT_EQ(lines(print_of(1, nan, nan, nan, nan)), 3u);
}

TEST_F(Report, CodeZeroPrintsNothing) { EXPECT_EQ(print_of(0, 3, 4, 5, 6), ""); }

TEST_F(Report, NegativeCodesPrintTheirLineOnly) {
  EXPECT_EQ(lines(print_of(-1, 3, 4, 5, 6)), 1u);
  EXPECT_EQ(lines(print_of(-2, 3, 4, 5, 6)), 1u);
}

TEST_F(Report, UnknownCodePrintsItsLineAndTheValues) { EXPECT_EQ(lines(print_of(77, 3, 4, 5, 6)), 5u); }

// --- x87 flags and traps ----------------------------------------------------------------------------------------------

TEST_F(Report, ExceptLeavesTheStickyFlagAndMasksAll) {
  const std::pair<int32_t, uint16_t> expected[] = {{1, 0x1}, {2, 0x4}, {3, 0x8}, {4, 0x10}};
  for (const auto& [code, flag] : expected) {
    asm volatile("fninit");
    set_error_field(ZYM_ERRMODE_EXCEPT);
    zymReportFloat(code, 0, a, a, r, r, "vsX");
    EXPECT_EQ(x87_status() & 0x3F, flag) << code;
    EXPECT_EQ(x87_control() & 0x3F, 0x3F);
  }
}

TEST_F(Report, FlagsOfEarlierReportsStay) {
  set_error_field(ZYM_ERRMODE_EXCEPT);
  zymReportFloat(1, 0, a, a, r, r, "vsX");
  zymReportFloat(3, 0, a, a, r, r, "vsX");
  zymReportFloat(3, 0, a, a, r, r, "vsX");
  EXPECT_EQ(x87_status() & 0x3F, 0x9);
}

TEST_F(Report, WithoutTheExceptBitNoFlagIsRaised) {
  set_error_field(ZYM_ERRMODE_ERRNO);
  zymReportFloat(1, 0, a, a, r, r, "vsX");
  EXPECT_EQ(x87_status() & 0x3F, 0);
}

// The signal that a report with these traps ends a child process with, 0 if it lives.
int signal_of(int32_t code, uint32_t traps) {
  const pid_t child = fork();
  if (child == 0) {
    signal(SIGFPE, SIG_DFL);
    float x[1] = {1};
    thread_block.mode = ZYM_HA | ZYM_ERRMODE_EXCEPT | traps;
    zymReportFloat(code, 0, x, x, x, x, "vsX");
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

TEST_F(Report, TrapDeliversAnException) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "the sanitizer's signal handlers stand between";
#endif
  EXPECT_EQ(signal_of(1, ZYM_TRAP_INVALID), SIGFPE);
  EXPECT_EQ(signal_of(2, ZYM_TRAP_DIVBYZERO), SIGFPE);
  EXPECT_EQ(signal_of(3, ZYM_TRAP_OVERFLOW), SIGFPE);
  EXPECT_EQ(signal_of(4, ZYM_TRAP_UNDERFLOW), SIGFPE);
  EXPECT_EQ(signal_of(1, ZYM_TRAP_OVERFLOW), 0);
  EXPECT_EQ(signal_of(4, ZYM_TRAP_INVALID), 0);
}

}  // namespace
}  // namespace orvik::zym
