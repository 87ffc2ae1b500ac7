// Every combination of eleven special real and imaginary parts, of one argument and of two: results by C99 Annex G
// where a part is infinite or a NaN, by MPC elsewhere, and the codes.
#include <cmath>

#include "accuracy/complex_inputs.h"
#include "accuracy/measure.h"
#include "complex_rows.h"

namespace orvik::test {
namespace {

using accuracy::Point;

constexpr const char* kUnary[] = {"Exp", "Ln", "Sqrt"};
constexpr const char* kToReal[] = {"Abs", "Arg"};
constexpr const char* kBinary[] = {"Mul", "MulByConj", "Div"};

template <class C>
class AnnexG : public ComplexTest<C> {
 protected:
  using E = Part<C>;

  static int kernel_count(const Row& row) { return static_cast<int>(accuracy::kernels_of(row).size()); }

  static void expect_within_bound(const Row& row, std::initializer_list<E> parts) {
    Point point;
    size_t i = 0;
    for (E part : parts) point.arguments[i++] = part;
    const accuracy::Measure measure = accuracy::measures_of(row).front();
    for (int kernel : accuracy::kernels_of(row)) {
      const accuracy::Worst worst = accuracy::measure_point(row, kernel, point, 0, measure);
      EXPECT_TRUE(accuracy::within_bound(row, kernel, worst))
          << row.name << ' ' << kLevelNames[kernel] << " of " << parts.begin()[0] << ", " << parts.begin()[1]
          << (parts.size() == 4 ? ", " + std::to_string(parts.begin()[2]) + ", " + std::to_string(parts.begin()[3])
                                : "")
          << ": got " << worst.got << ", want " << worst.wanted;
    }
  }
};
TYPED_TEST_SUITE(AnnexG, ComplexElements);

TYPED_TEST(AnnexG, OneArgumentOfElevenByElevenParts) {
  using E = typename TestFixture::E;
  for (const auto& functions : {std::vector<const char*>(std::begin(kUnary), std::end(kUnary)),
                                std::vector<const char*>(std::begin(kToReal), std::end(kToReal))}) {
    for (const char* function : functions) {
      const Row& row = row_named(this->row(function));
      for (E x : accuracy::special_parts<E>()) {
        for (E y : accuracy::special_parts<E>()) this->expect_within_bound(row, {x, y});
      }
    }
  }
}

TYPED_TEST(AnnexG, TwoArgumentsOfElevenByElevenPartsEach) {
  using E = typename TestFixture::E;
  const std::vector<E> parts = accuracy::special_parts<E>();
  for (const char* function : kBinary) {
    const Row& row = row_named(this->row(function));
    for (E a : parts) {
      for (E b : parts) {
        for (E c : parts) {
          for (E d : parts) this->expect_within_bound(row, {a, b, c, d});
        }
      }
    }
  }
}

TYPED_TEST(AnnexG, SumsAndConjugatesOfSpecialPartsAreThoseOfTheParts) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const std::vector<E> parts = accuracy::special_parts<E>();
  for (E a : parts) {
    for (E b : parts) {
      this->expect("Conj", C{a, b}, C{a, -b});
      for (E c : {this->inf, this->largest, E(-1), E(0)}) {
        const C x = {a, c}, y = {b, -c};
        const auto code = [&](C r) {
          const bool finite = std::isfinite(a) && std::isfinite(b) && std::isfinite(c);
          return finite && (std::isinf(r.re) || std::isinf(r.im)) ? kOverflowCode : 0;
        };
        const C sum = {a + b, c - c}, difference = {a - b, c + c};
        this->expect("Add", x, y, sum, code(sum));
        this->expect("Sub", x, y, difference, code(difference));
      }
    }
  }
}

// Which combinations are reported: finite operands with an infinite part, in the rows that report at all.
TYPED_TEST(AnnexG, CodeThreeExactlyWhereFiniteArgumentsGiveAnInfinitePart) {
  using C = TypeParam;
  using E = typename TestFixture::E;
  const std::vector<E> parts = accuracy::special_parts<E>();
  const auto finite = [](C z) { return std::isfinite(z.re) && std::isfinite(z.im); };
  const auto expect = [&](const char* function, C a, C b, bool reports, bool pole) {
    for (int level : {0, 1, 2}) {
      const Outcome<C> got = evaluate<C, C>(this->row(function), level, a, b);
      const bool infinite = std::isinf(got.r1.re) || std::isinf(got.r1.im);
      EXPECT_EQ(got.code, reports && infinite && finite(a) && finite(b) && !pole ? kOverflowCode : 0)
          << this->row(function) << kLevelNames[level] << show(a) << show(b);
    }
  };
  for (E a : parts) {
    for (E b : parts) {
      for (const char* function : kUnary) {
        expect(function, C{a, b}, C{1, 0}, std::string(function) == "Exp", false);
      }
      for (C y : {C{1, 1}, C{this->largest, -2}, C{0, 0}, C{0, this->tiny}, C{this->inf, 1}}) {
        expect("Mul", C{a, b}, y, true, false);
        expect("MulByConj", C{a, b}, y, true, false);
        expect("Div", C{a, b}, y, true, y.re == 0 && y.im == 0);
      }
    }
  }
}

}  // namespace
}  // namespace orvik::test
