// The list of rows at run time: what tests, benchmarks and tools loop over.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "orvik/zym_types.h"

namespace orvik::rows {

enum class Shape { unary, binary, unary2, scalar, bessel, fraction, pack };
enum class Sharing { one, la_ha, la_ep, apart };

inline constexpr int kLevels = 3;  // indices as in a dispatch table row: LA, HA, EP
inline constexpr const char* kLevelNames[kLevels] = {"LA", "HA", "EP"};

struct Row {
  char precision;  // s, d, c, z
  std::string_view function;
  std::string_view name;  // precision and function
  Shape shape;
  Sharing sharing;
  bool reports;
  std::string_view family;
  float costs[kLevels];
  void* entries[2][kLevels];  // [strided][level]; null: not exported
  int index;                  // of the unit-stride row in the table
  bool built() const { return family != "none"; }
  bool complex() const { return precision == 'c' || precision == 'z'; }
  bool single() const { return precision == 's' || precision == 'c'; }
  int inputs() const { return shape == Shape::binary || shape == Shape::fraction ? 2 : 1; }
  int outputs() const { return shape == Shape::unary2 ? 2 : 1; }
  // Bytes of an element that is read, that is written: CIS, Abs and Arg stand between real and complex.
  int input_bytes() const { return (single() ? 4 : 8) * (complex() && function != "CIS" ? 2 : 1); }
  int output_bytes() const { return (single() ? 4 : 8) * (complex() && !(function == "Abs" || function == "Arg") ? 2 : 1); }
  // The level whose name the kernel of `level` bears: levels that share one name it alike.
  int kernel(int level) const;
  // Levels that the kernel of that name serves, such as "LA, EP".
  std::string served(int kernel) const;
};

// All unit-stride rows, in table order; the first kTwins of them have a strided twin.
std::span<const Row> all();
inline constexpr int kUnitRows = 252;
inline constexpr int kTwins = 228;
inline constexpr int kTableRows = kUnitRows + kTwins;

const Row* find(std::string_view name);

// Matches a name against a comma-separated list of names with * wildcards, such as "sExp*,d*". Empty: everything.
bool matches(std::string_view filter, std::string_view name);

// The six words of a table row.
void** table_row(int index);

// The arrays and scalars of one call. Increments count elements and are used by strided calls only.
struct Call {
  const void* a = nullptr;
  const void* b = nullptr;
  void* r1 = nullptr;
  void* r2 = nullptr;
  int32_t incA = 1, incB = 1, incR1 = 1, incR2 = 1;
  double scalars[4] = {1, 0, 1, 0};  // Powx: the first (two, if complex); LinearFrac: scaleA, shiftA, scaleB, shiftB
  int32_t order = 1;
};

// Hands `use` a callable of one argument n that calls `function`, an entry of `row`; a call costs what it costs a caller
// who knows the type.
template <class Use>
void with_call(const Row& row, void* function, bool strided, const Call& c, Use use) {
  using I = int32_t;
  using In = const void*;
  using Out = void*;
  const auto as = [function]<class... T>(void (*)(T...)) { return reinterpret_cast<void (*)(T...)>(function); };
  const auto powx = [&](auto scalar) {
    using S = decltype(scalar);
    if (strided) {
      const auto f = as(static_cast<void (*)(I, In, I, S, Out, I)>(nullptr));
      use([=](I n) { f(n, c.a, c.incA, scalar, c.r1, c.incR1); });
    } else {
      const auto f = as(static_cast<void (*)(I, In, S, Out)>(nullptr));
      use([=](I n) { f(n, c.a, scalar, c.r1); });
    }
  };
  const auto fraction = [&]<class E>(E) {
    const E s[4] = {static_cast<E>(c.scalars[0]), static_cast<E>(c.scalars[1]), static_cast<E>(c.scalars[2]),
                    static_cast<E>(c.scalars[3])};
    if (strided) {
      const auto f = as(static_cast<void (*)(I, In, I, In, I, E, E, E, E, Out, I)>(nullptr));
      use([=](I n) { f(n, c.a, c.incA, c.b, c.incB, s[0], s[1], s[2], s[3], c.r1, c.incR1); });
    } else {
      const auto f = as(static_cast<void (*)(I, In, In, E, E, E, E, Out)>(nullptr));
      use([=](I n) { f(n, c.a, c.b, s[0], s[1], s[2], s[3], c.r1); });
    }
  };
  switch (row.shape) {
    case Shape::unary:
      if (strided) {
        const auto f = as(static_cast<void (*)(I, In, I, Out, I)>(nullptr));
        use([=](I n) { f(n, c.a, c.incA, c.r1, c.incR1); });
      } else {
        const auto f = as(static_cast<void (*)(I, In, Out)>(nullptr));
        use([=](I n) { f(n, c.a, c.r1); });
      }
      break;
    case Shape::binary:
      if (strided) {
        const auto f = as(static_cast<void (*)(I, In, I, In, I, Out, I)>(nullptr));
        use([=](I n) { f(n, c.a, c.incA, c.b, c.incB, c.r1, c.incR1); });
      } else {
        const auto f = as(static_cast<void (*)(I, In, In, Out)>(nullptr));
        use([=](I n) { f(n, c.a, c.b, c.r1); });
      }
      break;
    case Shape::unary2:
      if (strided) {
        const auto f = as(static_cast<void (*)(I, In, I, Out, I, Out, I)>(nullptr));
        use([=](I n) { f(n, c.a, c.incA, c.r1, c.incR1, c.r2, c.incR2); });
      } else {
        const auto f = as(static_cast<void (*)(I, In, Out, Out)>(nullptr));
        use([=](I n) { f(n, c.a, c.r1, c.r2); });
      }
      break;
    case Shape::scalar:
      if (row.precision == 's') powx(static_cast<float>(c.scalars[0]));
      if (row.precision == 'd') powx(c.scalars[0]);
      if (row.precision == 'c') {
        powx(ZymComplexFloat{static_cast<float>(c.scalars[0]), static_cast<float>(c.scalars[1])});
      }
      if (row.precision == 'z') powx(ZymComplexDouble{c.scalars[0], c.scalars[1]});
      break;
    case Shape::bessel:
      if (strided) {
        const auto f = as(static_cast<void (*)(I, I, In, I, Out, I)>(nullptr));
        use([=](I n) { f(n, c.order, c.a, c.incA, c.r1, c.incR1); });
      } else {
        const auto f = as(static_cast<void (*)(I, I, In, Out)>(nullptr));
        use([=](I n) { f(n, c.order, c.a, c.r1); });
      }
      break;
    case Shape::fraction:
      if (row.single()) {
        fraction(0.0f);
      } else {
        fraction(0.0);
      }
      break;
    case Shape::pack:
      break;  // copies of bit patterns, with argument lists of their own
  }
}

}  // namespace orvik::rows
