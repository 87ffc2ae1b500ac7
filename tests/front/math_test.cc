// Every vector function of the front beside the kernel's own entry, over 1, 2, 3 and 7 threads: results, reports,
// status and exception flags are those of one call of the kernel, bit for bit.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>
#include <xmmintrin.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <thread>

#include "front/math_calls.h"
#include "orvik/zym.h"
#include "tools/rows/domains.h"

namespace orvik::front::test {
namespace {

using rows::kLevelNames;

// Numbers of a row's domain, a part of them special.
template <class E>
std::vector<E> inputs(size_t count, double low, double high, uint64_t seed) {
  using L = std::numeric_limits<E>;
  const E special[] = {E(0),      E(-0.0), L::infinity(), -L::infinity(), L::quiet_NaN(), L::denorm_min(), L::max(),
                       -L::max(), E(-1),   E(1)};
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<double> plain(low, high);
  std::vector<E> x(count);
  for (E& v : x) v = random() % 50 == 0 ? special[random() % std::size(special)] : static_cast<E>(plain(random));
  return x;
}

// What a call leaves behind.
template <class E>
struct Outcome {
  std::vector<E> r1, r2;
  std::vector<orvik_report> reports;
  orvik_status status = 0;
  uint32_t flags = 0;
};

std::vector<orvik_report> seen;
bool seen_complex, seen_b, seen_r2;
int32_t see(ZymErrorContext* c) {
  orvik_report r = {c->index, c->code, {c->arg1, 0}, {0, 0}, {c->result1, 0}};
  if (seen_complex) r.a[1] = c->arg1Imag, r.r[1] = c->result1Imag;
  if (seen_b) r.b[0] = c->arg2;
  if (seen_b && seen_complex) r.b[1] = c->arg2Imag;
  if (seen_r2) r.r[1] = c->result2;
  seen.push_back(r);
  return 1;
}

bool same_reports(const std::vector<orvik_report>& x, const std::vector<orvik_report>& y) {
  if (x.size() != y.size()) return false;
  for (size_t k = 0; k < x.size(); ++k) {
    if (x[k].index != y[k].index || x[k].code != y[k].code || std::memcmp(x[k].a, y[k].a, 48) != 0) return false;
  }
  return true;
}

constexpr size_t kGap = 3;  // step of strided calls

template <class E>
class Trial {
 public:
  Trial(const Row& row, const Functions& f, size_t n) : row_(row), f_(f), n_(n) {
    const rows::Domain& d = rows::domain(row);
    a_ = inputs<E>(n * kGap * size_t(row.input_parts), d.low, d.high, 1);
    b_ = inputs<E>(n * kGap * size_t(row.input_parts), d.low2, d.high2, 2);
  }

  Outcome<E> by_kernel(int level, bool strided) {
    Outcome<E> out = fresh();
    seen.clear();
    seen_complex = row_.complex() && row_.shape != Shape::from_real;
    seen_b = row_.shape == Shape::binary || row_.shape == Shape::scalar || row_.shape == Shape::fraction;
    seen_r2 = row_.outputs() == 2;
    _zymSetErrorCallBack(see);
    const uint32_t mode = _zymSetMode(ZYM_ERRMODE_CALLBACK);
    rows::Call c;
    c.a = a_.data(), c.b = b_.data(), c.r1 = out.r1.data(), c.r2 = out.r2.data();
    const auto gap = strided ? int32_t{kGap} : 1;
    c.incA = c.incB = c.incR1 = c.incR2 = gap;
    const MathCall standard;
    for (int k = 0; k < 8; ++k) c.scalars[k] = standard.scalars[k];
    _mm_setcsr(0x1F80);
    rows::with_call(row_, row_.entries[strided ? 1 : 0][level], strided, c,
                    [&](auto f) { f(static_cast<int32_t>(n_)); });
    out.flags = _mm_getcsr() & 0x3F;
    _zymSetMode(mode);
    _zymSetErrorCallBack(nullptr);
    out.reports = seen;
    for (const orvik_report& r : seen) {
      if (out.status == 0 || r.code < out.status) out.status = r.code;
    }
    return out;
  }

  Outcome<E> by_front(int accuracy, bool strided, int32_t threads, int64_t capacity) {
    Outcome<E> out = fresh();
    out.reports.resize(static_cast<size_t>(capacity));
    MathCall c;
    c.n = static_cast<int64_t>(n_);
    c.a = a_.data(), c.b = b_.data(), c.r1 = out.r1.data(), c.r2 = out.r2.data();
    if (strided) c.inc_a = c.inc_b = c.inc_r1 = c.inc_r2 = kGap;
    orvik_math_options o = {accuracy, threads, capacity > 0 ? out.reports.data() : nullptr, capacity, -7};
    _mm_setcsr(0x1F80);
    out.status = call(row_, f_, strided, c, &o);
    out.flags = _mm_getcsr() & 0x3F;
    count = o.report_count;
    out.reports.resize(static_cast<size_t>(std::min(capacity, o.report_count)));
    return out;
  }
  int64_t count = 0;

 private:
  Outcome<E> fresh() const {
    Outcome<E> out;
    out.r1.assign(n_ * kGap * size_t(row_.output_parts), E(-77));
    out.r2 = out.r1;
    return out;
  }
  const Row& row_;
  const Functions& f_;
  size_t n_;
  std::vector<E> a_, b_;
};

template <class E>
void compare(const Row& row, const Functions& f, size_t n) {
  Trial<E> trial(row, f, n);
  constexpr int kAccuracy[] = {ORVIK_LA, ORVIK_HA, ORVIK_EP};  // by level
  for (int level = 0; level < 3; ++level) {
    for (const bool strided : {false, true}) {
      const Outcome<E> want = trial.by_kernel(level, strided);
      const auto all = static_cast<int64_t>(want.reports.size());
      for (const int32_t threads : {1, 2, 3, 7, 0}) {
        for (const int64_t capacity : {all + 5, all / 2}) {
          const Outcome<E> got = trial.by_front(kAccuracy[level], strided, threads, capacity);
          const std::string where = std::string(row.name) + " " + kLevelNames[level] + (strided ? " strided, " : ", ") +
                                    std::to_string(threads) + " threads";
          ASSERT_EQ(std::memcmp(want.r1.data(), got.r1.data(), want.r1.size() * sizeof(E)), 0) << where;
          ASSERT_EQ(std::memcmp(want.r2.data(), got.r2.data(), want.r2.size() * sizeof(E)), 0) << where;
          ASSERT_EQ(want.status, got.status) << where;
          ASSERT_EQ(want.flags, got.flags) << where;
          ASSERT_EQ(trial.count, all) << where;
          std::vector<orvik_report> head(want.reports.begin(), want.reports.begin() + std::min(capacity, all));
          ASSERT_TRUE(same_reports(head, got.reports)) << where << ", room for " << capacity;
        }
      }
    }
  }
}

class EveryRow : public testing::TestWithParam<char> {};
TEST_P(EveryRow, GivesTheBitsReportsAndFlagsOfOneKernelCallOnAnyNumberOfThreads) {
  size_t tried = 0;
  for (const Functions& f : functions()) {
    const Row* row = rows::find(f.row);
    ASSERT_NE(row, nullptr) << f.row;
    if (row->precision != GetParam()) continue;
    if (row->single()) {
      compare<float>(*row, f, 2600);
    } else {
      compare<double>(*row, f, 2600);
    }
    if (HasFatalFailure()) return;
    ++tried;
  }
  size_t rows_of_it = 0;
  for (const Row& row : rows::all())
    rows_of_it += row.precision == GetParam() && row.shape != Shape::pack && row.built();
  EXPECT_EQ(tried, rows_of_it);
}
INSTANTIATE_TEST_SUITE_P(Precisions, EveryRow, testing::Values('s', 'd', 'c', 'z'));

// Long enough that several threads do take part.
TEST(MathThreads, ALongCallIsThatOfTheKernel) {
  for (const char* name : {"sExp", "dLn", "zMul", "dSinCos"}) {
    const Row* row = rows::find(name);
    for (const Functions& f : functions()) {
      if (f.row != name) continue;
      if (row->single()) {
        compare<float>(*row, f, 100003);
      } else {
        compare<double>(*row, f, 100003);
      }
    }
  }
}

TEST(MathThreads, ManyCallersAtOnceGetTheirOwnReports) {
  constexpr size_t n = 50000;
  std::vector<double> a(n, 2.0);
  const auto one = [&](size_t k, orvik_status* status, int64_t* index) {
    std::vector<double> x = a, r(n);
    x[100 * k] = k % 2 == 0 ? 0.0 : -1.0;
    orvik_report report = {};
    orvik_math_options o = {ORVIK_HA, 3, &report, 1, 0};
    *status = orvik_dln(n, x.data(), r.data(), &o);
    *index = report.index;
  };
  std::vector<std::thread> callers;
  orvik_status status[6] = {};
  int64_t index[6] = {};
  for (size_t k = 0; k < 6; ++k)
    callers.emplace_back([&, k] {
      for (int round = 0; round < 20; ++round) one(k, &status[k], &index[k]);
    });
  for (std::thread& t : callers) t.join();
  for (size_t k = 0; k < 6; ++k) {
    EXPECT_EQ(status[k], k % 2 == 0 ? ORVIK_SINGULARITY : ORVIK_DOMAIN);
    EXPECT_EQ(index[k], static_cast<int64_t>(100 * k));
  }
}

// One file's pages many times over: arrays of 8 GB in 64 MB of memory.
class Repeated {
 public:
  static constexpr size_t kPiece = size_t{64} << 20;
  explicit Repeated(size_t bytes) : bytes_((bytes + kPiece - 1) / kPiece * kPiece) {
    const int file = memfd_create("repeated", 0);
    EXPECT_EQ(ftruncate(file, kPiece), 0);
    base_ = static_cast<char*>(mmap(nullptr, bytes_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    for (size_t at = 0; at < bytes_; at += kPiece) {
      EXPECT_NE(mmap(base_ + at, kPiece, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file, 0), MAP_FAILED);
    }
    close(file);
  }
  ~Repeated() { munmap(base_, bytes_); }
  float* floats() { return reinterpret_cast<float*>(base_); }

 private:
  size_t bytes_;
  char* base_;
};

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST(MathLengths, ACallLongerThanTheKernelsCountIsReportedByItsIndexInTheWhole) {
  constexpr int64_t n = (int64_t{1} << 31) + 100;
  constexpr int64_t period = Repeated::kPiece / sizeof(float);
  Repeated a(n * sizeof(float)), r(n * sizeof(float));
  for (int64_t k = 0; k < period; ++k) a.floats()[k] = 4.0f;
  a.floats()[50] = 0.0f;
  const int64_t count = (n + period - 51) / period;
  for (const int32_t threads : {1, 2}) {
    std::vector<orvik_report> reports(static_cast<size_t>(count) + 1);
    orvik_math_options o = {ORVIK_EP, threads, reports.data(), count + 1, 0};
    ASSERT_EQ(orvik_sinv(n, a.floats(), r.floats(), &o), ORVIK_SINGULARITY);
    ASSERT_EQ(o.report_count, count);
    for (int64_t k = 0; k < count; ++k) ASSERT_EQ(reports[size_t(k)].index, 50 + k * period);
    EXPECT_GT(reports[size_t(count - 1)].index, int64_t{1} << 31);
    EXPECT_NEAR(r.floats()[n - 1], 0.25f, 1e-3f);
  }
}
#endif

}  // namespace
}  // namespace orvik::front::test
