// Every choice of lanes: brought together, and put back.
#include "lanes/compress.h"

#include <gtest/gtest.h>

namespace orvik {
namespace {

template <class V>
class Choices : public ::testing::Test {
 protected:
  using E = Element<V>;
  static constexpr int kLanes = kWidth<V>;
  E x[kLanes], r[kLanes];
  Choices() {
    for (int k = 0; k < kLanes; ++k) x[k] = static_cast<E>(k + 1);
  }
};
using Vectors = ::testing::Types<F32, F64>;
TYPED_TEST_SUITE(Choices, Vectors);

TYPED_TEST(Choices, ComeTogetherInOrder) {
  for (uint32_t bits = 0; bits < 1u << this->kLanes; ++bits) {
    store(this->r, compress(load<TypeParam>(this->x), bits));
    int32_t count = 0;
    for (int k = 0; k < this->kLanes; ++k) {
      if ((bits >> k & 1) != 0) {
        ASSERT_EQ(this->r[count++], this->x[k]) << bits;
      }
    }
    ASSERT_EQ(how_many(bits), count) << bits;
  }
}

TYPED_TEST(Choices, GoBackToTheirPlaces) {
  for (uint32_t bits = 0; bits < 1u << this->kLanes; ++bits) {
    store(this->r, expand(load<TypeParam>(this->x), bits));
    int count = 0;
    for (int k = 0; k < this->kLanes; ++k) {
      if ((bits >> k & 1) != 0) {
        ASSERT_EQ(this->r[k], this->x[count++]) << bits;
      }
    }
    ASSERT_EQ(lane_bits(chosen<TypeParam>(bits)), bits);
  }
}

}  // namespace
}  // namespace orvik
