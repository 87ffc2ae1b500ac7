// The parameters of MT19937, its state, and its characteristic polynomial.
#pragma once

#include <stdint.h>

#include "qor/brng/twister_rows.h"
#include "qor/brng/wide.h"

namespace orvik::qor {

struct Mt19937Parameters {
  static constexpr int kN = 624, kM = 397, kGenerations = 3;
  static constexpr uint32_t kLow = 0x7FFFFFFF, kMatrix = 0x9908B0DF;

  struct State {
    uint32_t mt[kN];
    int32_t index;  // words of the generation already delivered
  };

  static uint32_t matrix(const State&) { return kMatrix; }

  static WideTwister* wide_rows(Form) { return ORVIK_QOR_WIDE(orvik_qor_wide_mt19937); }

  static WideTempering* wide_tempering() { return ORVIK_QOR_WIDE(orvik_qor_wide_mt19937_tempering); }

  struct Tempering {
    explicit Tempering(const State&) {}
    template <int G>
    void operator()(I32 (&y)[G]) const {
      temper_right<11>(y);
      temper_left<7>(y, I32(0x9D2C5680));
      temper_left<15>(y, I32(0xEFC60000));
      temper_right<18>(y);
    }
  };
};

constexpr int kMt19937Degree = 19937, kMt19937Terms = 135;
// Exponents of the characteristic polynomial, ascending.
extern const uint32_t kMt19937Polynomial[kMt19937Terms];

}  // namespace orvik::qor
