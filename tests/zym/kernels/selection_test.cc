#include <immintrin.h>

#include <limits>
#include <utility>
#include <vector>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

template <class E>
class Selection : public ElementTest<E> {};
TYPED_TEST_SUITE(Selection, Elements);

TYPED_TEST(Selection, ASingleNanLoses) {
  using E = TypeParam;
  for (const char* f : {"Fmax", "Fmin", "MaxMag", "MinMag"}) {
    expect_element<E>(row_of<E>(f), this->nan, E(1), E(1));
    expect_element<E>(row_of<E>(f), E(1), this->nan, E(1));
    expect_element<E>(row_of<E>(f), this->nan, -this->inf, -this->inf);
    expect_element<E>(row_of<E>(f), this->nan, this->nan, this->nan);
  }
}

TYPED_TEST(Selection, FmaxAndFminOfNumbers) {
  using E = TypeParam;
  expect_element<E>(row_of<E>("Fmax"), E(-2), E(1), E(1));
  expect_element<E>(row_of<E>("Fmin"), E(-2), E(1), E(-2));
  expect_element<E>(row_of<E>("Fmax"), this->inf, E(1), this->inf);
  expect_element<E>(row_of<E>("Fmin"), this->inf, E(1), E(1));
}

TYPED_TEST(Selection, MagnitudesDecideAndEqualOnesFallBack) {
  using E = TypeParam;
  expect_element<E>(row_of<E>("MaxMag"), E(-2), E(1), E(-2));
  expect_element<E>(row_of<E>("MinMag"), E(-2), E(1), E(1));
  expect_element<E>(row_of<E>("MaxMag"), E(-2), E(2), E(2));
  expect_element<E>(row_of<E>("MinMag"), E(-2), E(2), E(-2));
  expect_element<E>(row_of<E>("MaxMag"), -this->inf, E(5), -this->inf);
}

TYPED_TEST(Selection, FdimIsThePositiveDifference) {
  using E = TypeParam;
  expect_element<E>(row_of<E>("Fdim"), E(5), E(3), E(2));
  expect_element<E>(row_of<E>("Fdim"), E(3), E(5), E(0));
  expect_element<E>(row_of<E>("Fdim"), E(3), E(3), E(0));
  expect_element<E>(row_of<E>("Fdim"), this->inf, this->inf, E(0));
  expect_element<E>(row_of<E>("Fdim"), this->inf, E(1), this->inf);
  expect_element<E>(row_of<E>("Fdim"), E(1), this->nan, this->nan);
  expect_element<E>(row_of<E>("Fdim"), this->nan, E(1), this->nan);
}

TYPED_TEST(Selection, FdimTakesTheSecondNan) {
  using E = TypeParam;
  using B = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
  const B base = std::bit_cast<B>(this->nan);
  E a = std::bit_cast<E>(static_cast<B>(base | 1)), b = std::bit_cast<E>(static_cast<B>(base | 2)), r = 0;
  Call<E> c;
  c.n = 1, c.a = &a, c.b = &b, c.r1 = &r;
  call_row(row_named(row_of<E>("Fdim")), 1, false, c);
  EXPECT_EQ(std::bit_cast<B>(r), base | 2);
  call_row(row_named(row_of<E>("Fmax")), 1, false, c);
  EXPECT_EQ(std::bit_cast<B>(r), base | 2);
}

TYPED_TEST(Selection, EqualInfinitiesRaiseNoFlag) {
  using E = TypeParam;
  E a = this->inf, r = 0;
  Call<E> c;
  c.n = 1, c.a = &a, c.b = &a, c.r1 = &r;
  _mm_setcsr(0x1F80);
  call_row(row_named(row_of<E>("Fdim")), 1, false, c);
  EXPECT_EQ(_mm_getcsr() & 0x3F, 0u);
}

TYPED_TEST(Selection, SignallingNanIsQuietedWithInvalid) {
  using E = TypeParam;
  using B = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
  const B signalling = sizeof(E) == 4 ? static_cast<B>(0x7F800001) : static_cast<B>(0x7FF0000000000001);
  E a = std::bit_cast<E>(signalling), one = 1, r = 0;
  Call<E> c;
  c.n = 1, c.r1 = &r;
  for (const char* f : {"Fmax", "Fmin", "MaxMag", "MinMag", "Fdim"}) {
    for (const auto& [x, y] : {std::pair{&a, &a}, {&a, &one}, {&one, &a}}) {
      c.a = x, c.b = y;
      _mm_setcsr(0x1F80);
      call_row(row_named(row_of<E>(f)), 1, false, c);
      EXPECT_NE(_mm_getcsr() & _MM_EXCEPT_INVALID, 0u) << f;
      EXPECT_NE(std::bit_cast<B>(r), signalling) << f;
    }
  }
  _mm_setcsr(0x1F80);
}

TYPED_TEST(Selection, QuietNansRaiseNothing) {
  using E = TypeParam;
  for (int n : {1, 7, 70}) {
    std::vector<E> a(static_cast<size_t>(n), E(2)), b(a), r(a);
    a[0] = b.back() = this->nan;
    b[b.size() / 2] = -this->inf;
    Call<E> c;
    c.n = n, c.a = a.data(), c.b = b.data(), c.r1 = r.data();
    for (const char* f : {"Fmax", "Fmin", "MaxMag", "MinMag", "Fdim"}) {
      for (bool strided : {false, true}) {
        _mm_setcsr(0x1F80);
        call_row(row_named(row_of<E>(f)), 1, strided, c);
        EXPECT_EQ(_mm_getcsr() & _MM_EXCEPT_INVALID, 0u) << f << n << strided;
      }
    }
  }
  _mm_setcsr(0x1F80);
}

TYPED_TEST(Selection, CopySignTakesOnlyTheSign) {
  using E = TypeParam;
  expect_element<E>(row_of<E>("CopySign"), E(3), E(-0.0), E(-3));
  expect_element<E>(row_of<E>("CopySign"), E(-3), E(7), E(3));
  expect_element<E>(row_of<E>("CopySign"), this->inf, E(-1), -this->inf);
}

}  // namespace
}  // namespace orvik::test
