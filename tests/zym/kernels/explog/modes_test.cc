// The mode word: results without error handling are those with it; denormals read as zero where the mode says so.
#include <cmath>
#include <limits>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

constexpr const char* kFunctions[] = {"Exp", "Exp2", "Exp10", "Expm1", "Ln", "Log2", "Log10", "Log1p"};

// Every kind of special element between plain ones.
template <class E>
std::vector<E> assorted() {
  using L = std::numeric_limits<E>;
  const E big = L::max_exponent, low = L::min_exponent;
  std::vector<E> x;
  for (E special :
       {L::infinity(),   -L::infinity(),   L::quiet_NaN(), L::max(), -L::max(), E(0),      E(-0.0),
        L::denorm_min(), -L::denorm_min(), E(-1),          E(-2),    big,       big - 1,   std::nextafter(big, E(0)),
        low - 10,        low - 30,         low * 2,        E(88.5),  E(-88.5),  E(-104.5), E(38.4),
        E(-38.4),        E(39.5),          E(-47),         E(709.5), E(-709.5), E(-746),   E(308.2),
        E(-308.5),       E(-324.5),        E(89.5)}) {
    x.push_back(special);
    x.push_back(E(0.75));
    x.push_back(E(1.5));
  }
  return x;
}

template <class E>
std::vector<E> run(const std::string& name, int level, uint32_t mode, const std::vector<E>& x) {
  const uint32_t old = _zymSetMode(mode);
  std::vector<E> r(x.size());
  Call<E> c;
  c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
  EXPECT_TRUE(call_row(row_named(name), level, false, c));
  _zymSetMode(old | 0x140000);
  return r;
}

template <class E>
void expect_repair_agrees() {
  const std::vector<E> x = assorted<E>();
  for (const char* f : kFunctions) {
    for (int level = 0; level < 3; ++level) {
      const auto with = run<E>(row_of<E>(f), level, ZYM_ERRMODE_IGNORE, x);
      const auto without = run<E>(row_of<E>(f), level, ZYM_ERRMODE_NOERR, x);
      for (size_t i = 0; i < x.size(); ++i) {
        EXPECT_TRUE(same_value(with[i], without[i]))
            << row_of<E>(f) << " " << kLevelNames[level] << "(" << x[i] << ") " << with[i] << " " << without[i];
      }
    }
  }
}

TEST(ExponentialModes, ResultsWithoutErrorHandlingAreThoseWithIt) {
  expect_repair_agrees<float>();
  expect_repair_agrees<double>();
}

TEST(ExponentialModes, LogarithmOfADenormalReadAsZeroIsMinusInfinityWithCode2) {
  const uint32_t old = _zymSetMode(ZYM_FLUSH_DENORMALS);
  for (const char* f : {"Ln", "Log2", "Log10"}) {
    expect_unary<float>(row_of<float>(f), 1e-40f, -std::numeric_limits<float>::infinity(), zymErrorSingularity);
    expect_unary<double>(row_of<double>(f), 1e-310, -std::numeric_limits<double>::infinity(), zymErrorSingularity);
  }
  _zymSetMode(old | 0x140000);
}

TEST(ExponentialModes, DenormalResultsAreFlushedToZeroWithCode4WhereTheModeSaysSo) {
  const uint32_t old = _zymSetMode(ZYM_FLUSH_DENORMALS);
  for (const char* f : {"Exp", "Exp2", "Exp10"}) {
    const float x = f[3] == '1' ? -40.0f : f[3] == '2' ? -130.0f : -90.0f;
    const double y = f[3] == '1' ? -310.0 : f[3] == '2' ? -1030.0 : -720.0;
    expect_unary<float>(row_of<float>(f), x, 0.0f, zymErrorUnderflow);
    expect_unary<double>(row_of<double>(f), y, 0.0, zymErrorUnderflow);
  }
  // +0 also where the lower of two parts is negative.
  expect_unary<double>("dExp", -709.7827128933841, 0.0, zymErrorUnderflow);
  expect_unary<double>("dExp2", -1023.0000000000001, 0.0, zymErrorUnderflow);
  expect_unary<double>("dExp10", -308.25471555991675, 0.0, zymErrorUnderflow);
  _zymSetMode(old | 0x140000);
}

}  // namespace
}  // namespace orvik::test
