// One element through every kernel of a row: all levels, in the main loop, in the remainder and strided; all must
// agree.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "orvik/zym.h"
#include "support/rows.h"

namespace orvik::test {

inline const Row& row_named(std::string_view name) {
  const Row* row = rows::find(name);
  EXPECT_NE(row, nullptr) << "no row " << name;
  return row != nullptr ? *row : rows::all().front();
}

// For typed suites over both element types: TYPED_TEST_SUITE(Name, Elements) with a class template Name of this base.
using Elements = testing::Types<float, double>;
template <class E>
class ElementTest : public testing::Test {
 protected:
  using L = std::numeric_limits<E>;
  static constexpr E inf = L::infinity();
  static constexpr E nan = L::quiet_NaN();
  static constexpr E tiny = L::denorm_min();
  static constexpr E smallest = L::min();
  static constexpr E largest = L::max();
};

template <class Out>
struct Outcome {
  Out r1{}, r2{};
  int32_t code = 0;  // of the report, 0 if none
  int32_t reports = 0;
};

template <class E>
bool same_value(E x, E y) {
  if constexpr (ElementOf<E>::parts == 2) {
    return same_value(x.re, y.re) && same_value(x.im, y.im);
  } else {
    return (x != x && y != y) || std::memcmp(&x, &y, sizeof x) == 0;
  }
}

template <class E>
std::string show(E x) {
  std::ostringstream text;
  text.precision(std::numeric_limits<Part<E>>::max_digits10);
  if constexpr (ElementOf<E>::parts == 2) {
    text << '(' << x.re << ", " << x.im << ')';
  } else {
    text << x;
  }
  return text.str();
}

inline int32_t last_code = 0;
inline int32_t report_count = 0;
inline int32_t note_report(ZymErrorContext* c) {
  last_code = c->code;
  ++report_count;
  return 0;
}

// The outcome of one level, after checking that place and stride do not matter and that neighbours stay unreported. b
// is the second element or the scalar operand, by the row's shape.
template <class In, class Out = In>
Outcome<Out> evaluate(const std::string& name, int level, In a, In b = In{}, int32_t order = 1) {
  const Row& row = row_named(name);
  const uint32_t mode = _zymSetMode(ZYM_ERRMODE_IGNORE);
  const ZymErrorCallback callback = _zymSetErrorCallBack(note_report);
  _zymSetMode(ZYM_ERRMODE_CALLBACK);
  Outcome<Out> first;
  bool have_first = false;
  constexpr int kMain = sizeof(Part<In>) == 4 ? 32 : 16;
  for (bool strided : {false, true}) {
    for (int position : {0, kMain - 1, kMain + 2}) {
      std::vector<In> x(2 * kMain, element<In>(row.function == "Acosh" ? 1.5 : 0.75)), y(2 * kMain, element<In>(0.5));
      std::vector<Out> r1(2 * kMain), r2(2 * kMain);
      x[static_cast<size_t>(position)] = a;
      y[static_cast<size_t>(position)] = b;
      Call<In, Out> c;
      c.n = kMain + 3, c.a = x.data(), c.b = y.data(), c.r1 = r1.data(), c.r2 = r2.data(), c.order = order;
      if (row.shape == Shape::scalar) c.fraction[0] = b;
      last_code = 0, report_count = 0;
      EXPECT_TRUE((call_row<In, Out>(row, level, strided, c))) << name;
      const Outcome<Out> now{r1[static_cast<size_t>(position)], r2[static_cast<size_t>(position)], last_code,
                             report_count};
      if (!have_first) {
        first = now;
        have_first = true;
      }
      EXPECT_TRUE(same_value(first.r1, now.r1)) << name << " r1 at " << position << (strided ? " strided" : "");
      EXPECT_TRUE(same_value(first.r2, now.r2)) << name << " r2 at " << position << (strided ? " strided" : "");
      EXPECT_EQ(first.code, now.code) << name << " at " << position << (strided ? " strided" : "");
      if (row.shape != Shape::scalar) {  // the same scalar may be a special case for every element
        EXPECT_LE(now.reports, 1) << name;
      }
    }
  }
  _zymSetMode(ZYM_ERRMODE_IGNORE);
  _zymSetErrorCallBack(callback);
  _zymSetMode(mode);
  return first;
}

// At every level: this value (any NaN for a NaN, the sign of a zero counts) and this code.
template <class In, class Out>
void expect_element(const std::string& name, In a, In b, Out want, int32_t code = 0, int32_t order = 1) {
  for (int level = 0; level < 3; ++level) {
    const Outcome<Out> got = evaluate<In, Out>(name, level, a, b, order);
    EXPECT_TRUE(same_value(want, got.r1)) << name << " " << kLevelNames[level] << "(" << show(a) << ", " << show(b)
                                          << "): got " << show(got.r1) << ", want " << show(want);
    EXPECT_EQ(got.code, code) << name << " " << kLevelNames[level] << "(" << show(a) << ", " << show(b) << ")";
  }
}
// With one type stated, as most rows have it.
template <class E>
void expect_element(const std::string& name, E a, E b, E want, int32_t code = 0) {
  expect_element<E, E>(name, a, b, want, code);
}

template <class E>
void expect_unary(const std::string& name, E a, E want, int32_t code = 0) {
  expect_element<E, E>(name, a, element<E>(0.5), want, code);
}

// "s" + name on floats, "d" + name on doubles.
template <class E>
std::string row_of(const std::string& function) {
  return (sizeof(E) == 4 ? "s" : "d") + function;
}

}  // namespace orvik::test
