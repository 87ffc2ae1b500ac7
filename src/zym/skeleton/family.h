// What a family of functions supplies: a struct Name<V, L> for every function, over the lane type V and the level L. It
// says nothing of loops, pointers, strides or modes. Its members, all static:
//
//   lanes(x..., params...)        the mathematics: inputs in, result (or Pair of results) out; or Masked, where only the
//                                 computation itself tells which lanes it does not serve. Complex inputs and results
//                                 are Pairs of lanes. Lanes that treat real and imaginary parts alike, or alternately, may
//                                 also take them as they lie in memory (Stored), which spares the loop all shuffles.
// and, where the lanes do not serve every input,
//   special(x..., params...)      which lanes they do not serve, told before the computation (not with Masked);
//   wide(x..., params...)         a second vector form, out of line, for special lanes that are not very special (large
//                                 arguments of the sine): Masked, its mask those that even it does not serve;
//   element(px..., pr..., params...)  the routine for one element that is left: pointers to inputs and results, where the
//                                 lanes' result stands already with lanes_stand; the code of the report, 0 for none;
//   repair(x, r, mask)            where nobody hears single reports: the commonest special results blended into r; returns
//                                 the mask that is left. Of the finite arguments that it serves those with infinite
//                                 results have one code, those with NaNs have one, and all others.
// and `knobs`, where one of the defaults of Knobs does not suit:
//   static constexpr Knobs knobs = {.vectors = 2};
// A family without lanes is a loop over its element routine.
//
// `params` is what goes with a whole call: nothing for most, a Fraction, an order.
#pragma once

#include <type_traits>

#include "lanes/control.h"
#include "lanes/lanes.h"

namespace orvik::zym {

enum class Level { LA, HA, EP };

// A result of lanes with the mask of the lanes that it does not serve.
template <class R, class M>
struct Masked {
  mutable R value;
  mutable M special;
};
template <class R, class M>
Masked(R, M) -> Masked<R, M>;
template <class T>
struct IsMasked : std::false_type {};
template <class R, class M>
struct IsMasked<Masked<R, M>> : std::true_type {};

// Parameters of a call. The four scalars of (a scaleA + shiftA) / (b scaleB + shiftB); the order of a Bessel function.
template <class E>
struct Fraction {
  E scaleA, shiftA, scaleB, shiftB;
};
struct Order {
  int32_t order;
};

struct Knobs {
  int vectors = 4;           // in flight: a block is as many vectors, read whole before any of it is stored
  double filler = 0.75;      // of inactive and special lanes, where 0.75 would raise a flag or leave the domain
  bool own_filler = false;   // of inactive lanes: the first element of the vector, where no number serves every call
  bool streams = false;      // memory bandwidth is the only limit: large results bypass the caches
  uint32_t stray = 0;        // flags (kUnderflowFlag ...) that lanes may raise though the results do not: squares of tiny
                             // arguments, quotients that are cut. Then only element routines raise them.
  bool lanes_stand = false;  // special lanes compute as they are, and the element routine may leave what they gave
  bool together = true;      // of 512 bits: the two vectors of a block side by side, step by step (lanes over Twice<V>),
                             // so that one goes on while the other waits, and divides while the other multiplies; false
                             // where both have too many numbers for the registers
};

// The same function over another lane type.
template <class Fn, class W>
struct Rebound;
template <template <class, Level> class Fn, class V, Level L, class W>
struct Rebound<Fn<V, L>, W> {
  using type = Fn<W, L>;
};

// What a family struct has, by the names of its members, so that an overloaded or misspelt one is an error and not
// overlooked.
template <class Fn>
struct FamilyTraits {
#define ORVIK_HAS(name)                    \
  struct Name_##name {                     \
    int name;                              \
  };                                       \
  struct Both_##name : Fn, Name_##name {}; \
  static constexpr bool has_##name = !requires { &Both_##name::name; };  // ambiguous where Fn has one
  ORVIK_HAS(lanes)
  ORVIK_HAS(special)
  ORVIK_HAS(wide)
  ORVIK_HAS(element)
  ORVIK_HAS(repair)
  ORVIK_HAS(knobs)
  ORVIK_HAS(vectors)
  ORVIK_HAS(filler)
  ORVIK_HAS(own_filler)
  ORVIK_HAS(streams)
  ORVIK_HAS(lanes_stand)
  ORVIK_HAS(together)
#undef ORVIK_HAS

  static constexpr Knobs knobs = [] {
    if constexpr (has_knobs) {
      return Fn::knobs;
    } else {
      return Knobs{};
    }
  }();

  static_assert(has_lanes || has_element, "a family has lanes, or an element routine to loop over");
  static_assert(!has_special || has_element, "special lanes need an element routine");
  static_assert(!has_wide || has_special, "the second tier serves special lanes");
  static_assert(!has_vectors && !has_filler && !has_own_filler && !has_streams && !has_lanes_stand && !has_together,
                "knobs stand in `knobs`");
};

}  // namespace orvik::zym
