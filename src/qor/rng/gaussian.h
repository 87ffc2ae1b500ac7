// Gaussian, for distributions that are built on it.
#pragma once

#include <cstdint>

#include "orvik/qor.h"

namespace orvik::qor {

// How normal numbers come about; values of a method word.
enum GaussianMethod : uint32_t { kBoxMuller = 0, kBoxMullerPairs = 1, kInverse = 2 };

template <class T>
int32_t gaussian(uint32_t method, OrvikStream stream, int32_t n, T* r, T a, T sigma);

}  // namespace orvik::qor
