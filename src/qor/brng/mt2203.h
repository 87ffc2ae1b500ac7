// The parameters of MT2203 and the sets of its members, its state.
#pragma once

#include <stdint.h>

#include "qor/brng/twister_rows.h"
#include "qor/brng/wide.h"

namespace orvik::qor {

struct Mt2203Set {
  uint32_t matrix_a, mask_b, mask_c;
};
constexpr int kMt2203Members = 6024;
extern const Mt2203Set Mt2203Params[kMt2203Members];

struct Mt2203Parameters {
  static constexpr int kN = 69, kM = 34, kGenerations = 29;
  static constexpr uint32_t kLow = 0x1F;

  struct State {
    uint32_t mt[kN];
    int32_t index;
    uint32_t matrix_a, mask_b, mask_c;
  };

  static uint32_t matrix(const State& state) { return state.matrix_a; }

  static WideTwister* wide_rows(Form) { return ORVIK_QOR_WIDE(orvik_qor_wide_mt2203); }

  static WideTempering* wide_tempering() { return ORVIK_QOR_WIDE(orvik_qor_wide_mt2203_tempering); }

  struct Tempering {
    explicit Tempering(const State& state) : b(I32(state.mask_b)), c(I32(state.mask_c)) {}
    template <int G>
    void operator()(I32 (&y)[G]) const {
      temper_right<12>(y);
      temper_left<7>(y, b);
      temper_left<15>(y, c);
      temper_right<18>(y);
    }
    I32 b, c;
  };
};

}  // namespace orvik::qor
