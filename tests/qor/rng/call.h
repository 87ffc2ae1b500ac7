// Draws of a distribution as a vector, between two guard elements.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "qor/support/stream.h"

namespace orvik::testing {

// draw(r) returns a status, which must be 0.
template <class T, class Draw>
std::vector<T> drawn(int32_t n, Draw draw) {
  const size_t count = static_cast<size_t>(n);
  std::vector<T> r(count + 2, T(77));
  EXPECT_EQ(draw(r.data() + 1), 0);
  EXPECT_EQ(r.front(), T(77));
  EXPECT_EQ(r.back(), T(77));
  return {r.begin() + 1, r.end() - 1};
}

template <class T>
std::vector<T> uniforms(const Stream& s, int32_t n, T a = 0, T b = 1) {
  if constexpr (sizeof(T) == 4)
    return s.floats(n, a, b);
  else
    return s.doubles(n, a, b);
}

// Bit for bit.
template <class T>
void expect_same(const std::vector<T>& got, const std::vector<T>& want, const char* what) {
  ASSERT_EQ(got.size(), want.size()) << what;
  for (size_t i = 0; i < got.size(); ++i)
    ASSERT_EQ(std::memcmp(&got[i], &want[i], sizeof(T)), 0)
        << what << ", element " << i << " of " << got.size() << ": " << got[i] << " and not " << want[i];
}

}  // namespace orvik::testing
