#ifndef ORVIK_EXAMPLES_TOUR_ATTEMPT_H
#define ORVIK_EXAMPLES_TOUR_ATTEMPT_H

#include <cstdio>
#include <orvik/front.hpp>

namespace tour {

// Runs a part of the tour. What the library refuses, data without a spread say, is printed, and the tour goes on.
template <class Part>
bool attempt(const char* what, const Part& part) {
  try {
    part();
    return true;
  } catch (const orvik::Error& error) {
    std::printf("  %s: %s\n", what, error.what());
    return false;
  }
}

}  // namespace tour

#endif
