// The list of rows at run time: what tests, benchmarks and tools loop over.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "orvik/zym_types.h"
#include "zym_row_types.h"  // generated

namespace orvik::rows {

inline constexpr int kLevels = 3;  // indices as in a dispatch table row: LA, HA, EP
inline constexpr const char* kLevelNames[kLevels] = {"LA", "HA", "EP"};

struct Row {
  char precision;  // s, d, c, z
  std::string_view function;
  std::string_view name;  // precision and function
  Shape shape;
  Sharing sharing;
  int kernels[kLevels];  // the level whose name the kernel of each level bears: levels that share one name it alike
  bool reports;
  std::string_view family;       // folder under src/zym/kernels/; none: not built
  std::string_view description;  // what it computes
  float costs[kLevels], wide_costs[kLevels];  // in registers of 256 and of 512 bits
  int input_arrays, output_arrays;
  int input_parts, output_parts;  // real numbers that an element is made of: 2 if complex
  void* entries[2][kLevels];      // [strided][level]; null: not exported
  int index = 0;                  // of the unit-stride row in the table

  bool built() const { return family != "none"; }
  bool complex() const { return precision == 'c' || precision == 'z'; }
  bool single() const { return precision == 's' || precision == 'c'; }
  int inputs() const { return input_arrays; }
  int outputs() const { return output_arrays; }
  // Bytes of an element that is read, that is written.
  int input_bytes() const { return (single() ? 4 : 8) * input_parts; }
  int output_bytes() const { return (single() ? 4 : 8) * output_parts; }
  int kernel(int level) const { return kernels[level]; }
  // Levels that the kernel of that name serves, such as "LA, EP".
  std::string served(int kernel) const;
};

// All kUnitRows unit-stride rows, in table order; the first kTwins of them have a strided twin.
std::span<const Row> all();
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
  // In the order of the argument list, of complex ones both parts. Powx: one; LinearFrac: scaleA, shiftA, scaleB,
  // shiftB.
  double scalars[8] = {1, 0, 1, 0};
  int32_t order = 1;
};

// The k-th scalar of a call as a row's element.
template <class T>
T scalar_of(const Call& c, int k) {
  if constexpr (requires(T t) { t.re; }) {
    return {static_cast<decltype(T::re)>(c.scalars[2 * k]), static_cast<decltype(T::im)>(c.scalars[2 * k + 1])};
  } else {
    return static_cast<T>(c.scalars[k]);
  }
}

// Hands `use` a callable of one argument n that calls `function`, an entry of `row`; a call costs what it costs a
// caller who knows the type. Data movers, copies of bit patterns with argument lists of their own, are not called.
template <class Use>
void with_call(const Row& row, void* function, bool strided, const Call& c, Use use) {
  using I = int32_t;
  using In = const void*;
  using Out = void*;
  const auto as = [function]<class... T>(void (*)(T...)) { return reinterpret_cast<void (*)(T...)>(function); };
  const auto with_scalar_type = [&row](auto body) {
    switch (row.precision) {
      case 's':
        return body(0.0f);
      case 'd':
        return body(0.0);
      case 'c':
        return body(ZymComplexFloat{});
      case 'z':
        return body(ZymComplexDouble{});
    }
  };
  switch (row.shape) {
#include "zym_row_calls.inc"  // generated
    case Shape::pack:
      break;
  }
}

}  // namespace orvik::rows
