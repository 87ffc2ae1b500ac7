#ifndef ORVIK_EXAMPLES_TOUR_STREAM_H
#define ORVIK_EXAMPLES_TOUR_STREAM_H

#include <cstdint>
#include <orvik/front.hpp>
#include <span>

namespace tour {

// A stream of one seed word; of generators of points, the dimension.
inline orvik::Stream stream_of(orvik::Generator generator, std::uint32_t seed) {
  return orvik::Stream(generator, std::span(&seed, 1));
}

}  // namespace tour

#endif
