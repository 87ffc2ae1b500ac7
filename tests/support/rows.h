// The rows of the dispatch table as tests see them, from the list of rows; and calls through a row's slots by shape.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "orvik/zym_types.h"

extern "C" {
#define ROW(p, Function, shape, sharing, reporting, family, la, ha, ep) \
  extern void* orvik_zym_kernel_##p##Function##_ttab[];
#include "zym/frame/rows.def"
#undef ROW
#define ORVIK_TWIN_pack(p, Function)
#define ORVIK_TWIN_unary(p, Function) extern void* orvik_zym_kernel_##p##Function##I_ttab[];
#define ORVIK_TWIN_binary ORVIK_TWIN_unary
#define ORVIK_TWIN_unary2 ORVIK_TWIN_unary
#define ORVIK_TWIN_scalar ORVIK_TWIN_unary
#define ORVIK_TWIN_bessel ORVIK_TWIN_unary
#define ORVIK_TWIN_fraction ORVIK_TWIN_unary
#define ROW(p, Function, shape, sharing, reporting, family, la, ha, ep) ORVIK_TWIN_##shape(p, Function)
#include "zym/frame/rows.def"
#undef ROW
#undef ORVIK_TWIN_pack
#undef ORVIK_TWIN_unary
}

namespace orvik::test {

struct Row {
  std::string name;      // with the precision letter, without I
  char precision;
  std::string function;
  std::string shape;
  std::string sharing;
  bool reports;
  std::string family;    // "none": not built
  void** table;          // slots of LA, HA, EP
  void** strided_table;  // null: no strided twin
};

inline const std::vector<Row>& rows() {
  static const std::vector<Row> all = [] {
    std::vector<Row> list;
#define ORVIK_TWIN_pack(p, Function) nullptr
#define ORVIK_TWIN_unary(p, Function) orvik_zym_kernel_##p##Function##I_ttab
#define ROW(p, Function, shape, sharing, reporting, family, la, ha, ep)                                             \
  list.push_back({#p #Function, #p[0], #Function, #shape, #sharing, std::string(#reporting) == "reports", #family, \
                  orvik_zym_kernel_##p##Function##_ttab, ORVIK_TWIN_##shape(p, Function)});
#include "zym/frame/rows.def"
#undef ROW
#undef ORVIK_TWIN_pack
#undef ORVIK_TWIN_unary
    return list;
  }();
  return all;
}

inline bool built(const Row& row) { return row.family != "none"; }

inline const char* const kLevelNames[] = {"LA", "HA", "EP"};

// The arrays of a call. Steps count for strided calls only; b, r2 where the shape has them.
template <class E>
struct Call {
  int32_t n = 0;
  const E* a = nullptr;
  const E* b = nullptr;
  E* r1 = nullptr;
  E* r2 = nullptr;
  int32_t incA = 1, incB = 1, incR1 = 1, incR2 = 1;
  E scalar = E(1.5);                                         // Powx
  E fraction[4] = {E(1.25), E(-0.5), E(0.75), E(2.0)};       // LinearFrac: scaleA, shiftA, scaleB, shiftB
  int32_t order = 3;                                         // Jn, Yn
};

// Calls the kernel of a level; false where the shape is not one of arrays of E (data movers, complex rows).
template <class E>
bool call_row(const Row& row, int level, bool strided, const Call<E>& c) {
  if (row.precision != (std::is_same_v<E, float> ? 's' : 'd')) return false;
  void* slot = (strided ? row.strided_table : row.table)[level];
  const auto as = [&]<class F>(F*) { return reinterpret_cast<F*>(slot); };
  using I = int32_t;
  if (row.shape == "unary") {
    if (strided) {
      as(static_cast<void (*)(I, const E*, I, E*, I)>(nullptr))(c.n, c.a, c.incA, c.r1, c.incR1);
    } else {
      as(static_cast<void (*)(I, const E*, E*)>(nullptr))(c.n, c.a, c.r1);
    }
  } else if (row.shape == "binary") {
    if (strided) {
      as(static_cast<void (*)(I, const E*, I, const E*, I, E*, I)>(nullptr))(c.n, c.a, c.incA, c.b, c.incB, c.r1, c.incR1);
    } else {
      as(static_cast<void (*)(I, const E*, const E*, E*)>(nullptr))(c.n, c.a, c.b, c.r1);
    }
  } else if (row.shape == "unary2") {
    if (strided) {
      as(static_cast<void (*)(I, const E*, I, E*, I, E*, I)>(nullptr))(c.n, c.a, c.incA, c.r1, c.incR1, c.r2, c.incR2);
    } else {
      as(static_cast<void (*)(I, const E*, E*, E*)>(nullptr))(c.n, c.a, c.r1, c.r2);
    }
  } else if (row.shape == "scalar") {
    if (strided) {
      as(static_cast<void (*)(I, const E*, I, E, E*, I)>(nullptr))(c.n, c.a, c.incA, c.scalar, c.r1, c.incR1);
    } else {
      as(static_cast<void (*)(I, const E*, E, E*)>(nullptr))(c.n, c.a, c.scalar, c.r1);
    }
  } else if (row.shape == "bessel") {
    if (strided) {
      as(static_cast<void (*)(I, I, const E*, I, E*, I)>(nullptr))(c.n, c.order, c.a, c.incA, c.r1, c.incR1);
    } else {
      as(static_cast<void (*)(I, I, const E*, E*)>(nullptr))(c.n, c.order, c.a, c.r1);
    }
  } else if (row.shape == "fraction") {
    const E* f = c.fraction;
    if (strided) {
      as(static_cast<void (*)(I, const E*, I, const E*, I, E, E, E, E, E*, I)>(nullptr))(
          c.n, c.a, c.incA, c.b, c.incB, f[0], f[1], f[2], f[3], c.r1, c.incR1);
    } else {
      as(static_cast<void (*)(I, const E*, const E*, E, E, E, E, E*)>(nullptr))(c.n, c.a, c.b, f[0], f[1], f[2], f[3],
                                                                                c.r1);
    }
  } else {
    return false;
  }
  return true;
}

}  // namespace orvik::test
