// What holds for every built kernel: an element's bits do not depend on its place, its stride or its neighbours;
// nothing outside the arrays is touched; in place gives what separate arrays give. Elements are one or two numbers:
// rows of all four precisions, of every shape, with orders and scalar operands of several values. Beside the built rows
// stand plain loops of those shapes, which hold the tests themselves to what they say.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "orvik/zym.h"
#include "serv/caches.h"
#include "support/guarded.h"
#include "support/plain_rows.h"
#include "support/rows.h"

namespace orvik::test {
namespace {

template <class E>
using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;

template <class E>
Bits<E> bits(E x) {
  return std::bit_cast<Bits<E>>(x);
}

template <class E>
bool same(E x, E y) {
  return bits(x) == bits(y);
}

// The precision of a suite: E is the number that its elements are made of.
template <char Precision, class Number>
struct PrecisionOf {
  using E = Number;
  static constexpr char precision = Precision;
};
using Precisions = testing::Types<PrecisionOf<'s', float>, PrecisionOf<'d', double>, PrecisionOf<'c', float>,
                                  PrecisionOf<'z', double>>;

template <class E>
std::vector<E> mixed_inputs(size_t count, uint64_t seed) {
  using L = std::numeric_limits<E>;
  const E special[] = {E(0),          E(-0.0),        E(1),           E(-1),           E(0.5),           E(2),
                       L::infinity(), -L::infinity(), L::quiet_NaN(), L::denorm_min(), -L::denorm_min(), L::min(),
                       L::max(),      -L::max(),      L::epsilon()};
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<E> plain(E(-10), E(10));
  std::vector<E> x(count);
  for (E& v : x) {
    const uint64_t kind = random() % 8;
    v = kind == 0   ? special[random() % std::size(special)]
        : kind == 1 ? std::bit_cast<E>(static_cast<Bits<E>>(random()))
                    : plain(random);
    if (v != v) v = L::quiet_NaN();  // payloads may differ between lanes and routines
  }
  return x;
}

// Elements of a row: their numbers one after another, `parts` of them an element, elements `step` apart.
struct Form {
  int parts;
  int32_t step = 1;
  int64_t first = 0;  // number of elements before element 0, for negative steps
  size_t at(size_t i, int part) const {
    return static_cast<size_t>((first + static_cast<int64_t>(i) * step) * parts + part);
  }
};

// A call on numbers of E: pointers to element 0 of each array.
template <class E>
struct Numbers {
  int32_t n = 0;
  const E* a = nullptr;
  const E* b = nullptr;
  E* r1 = nullptr;
  E* r2 = nullptr;
  int32_t incA = 1, incB = 1, incR1 = 1, incR2 = 1;
};

// A kernel with what goes with its elements besides.
struct Tested {
  const Row& row;
  int level;
  Variant variant;

  template <class E>
  void call(bool strided, const Numbers<E>& c) const {
    rows::Call call{
        .a = c.a, .b = c.b, .r1 = c.r1, .r2 = c.r2, .incA = c.incA, .incB = c.incB, .incR1 = c.incR1, .incR2 = c.incR2};
    std::copy(std::begin(variant.scalars), std::end(variant.scalars), call.scalars);
    call.order = variant.order;
    rows::with_call(row, row.entries[strided ? 1 : 0][level], strided, call, [&](auto function) { function(c.n); });
  }
  int in() const { return row.input_parts; }
  int out() const { return row.output_parts; }
};

// Runs over every built row, level and variant of a precision, and over the plain rows.
template <class P, class Function>
void for_each_kernel(Function function) {
  _zymSetMode(ZYM_ERRMODE_IGNORE);
  static const std::vector<Row> plain = plain_rows();
  std::vector<const Row*> tested;
  for (const Row& row : rows::all()) tested.push_back(&row);
  for (const Row& row : plain) tested.push_back(&row);
  int kernels = 0;
  for (const Row* row : tested) {
    if (!row->built() || row->precision != P::precision || row->shape == Shape::pack) continue;
    for (int level = 0; level < 3; ++level) {
      for (const Variant& variant : variants_of(*row)) {
        SCOPED_TRACE(std::string(row->name) + " " + kLevelNames[level] + " order " + std::to_string(variant.order) +
                     " scalar " + std::to_string(variant.scalars[0]));
        function(Tested{*row, level, variant});
        ++kernels;
        if (testing::Test::HasFailure()) return;
      }
    }
  }
  _zymSetMode(ZYM_ERRMODE_DEFAULT);
  EXPECT_GE(kernels, 15);
}

template <class P>
class EveryRow : public testing::Test {};
TYPED_TEST_SUITE(EveryRow, Precisions);

constexpr size_t kMost = 150;  // elements of a test, two numbers each

template <class E>
struct Result {
  std::vector<E> r1, r2;
};

// Each element alone: the reference that all other calls must meet bit for bit.
template <class E>
Result<E> one_by_one(const Tested& tested, const std::vector<E>& a, const std::vector<E>& b, size_t count) {
  Result<E> result{std::vector<E>(2 * count), std::vector<E>(2 * count)};
  for (size_t i = 0; i < count; ++i) {
    const Form in{tested.in()}, out{tested.out()};
    tested.call(false, Numbers<E>{.n = 1,
                                  .a = &a[in.at(i, 0)],
                                  .b = &b[in.at(i, 0)],
                                  .r1 = &result.r1[out.at(i, 0)],
                                  .r2 = &result.r2[out.at(i, 0)]});
  }
  return result;
}

template <class E>
void expect_same(const std::vector<E>& want, const E* got, int parts, int64_t step, size_t n, const char* what) {
  for (size_t i = 0; i < n; ++i) {
    for (int part = 0; part < parts; ++part) {
      const E x = want[i * static_cast<size_t>(parts) + static_cast<size_t>(part)];
      const E y = got[static_cast<int64_t>(i) * step * parts + part];
      ASSERT_TRUE(same(x, y)) << what << " element " << i << " of " << n << ": " << x << ", " << y;
    }
  }
}

// Both results of a call; steps as the call had them.
template <class E>
void expect_results(const Tested& tested, const Result<E>& want, const Numbers<E>& c, bool strided, size_t n,
                    const char* what) {
  expect_same(want.r1, c.r1, tested.out(), strided ? c.incR1 : 1, n, what);
  if (tested.row.outputs() == 2) expect_same(want.r2, c.r2, tested.out(), strided ? c.incR2 : 1, n, what);
}

TYPED_TEST(EveryRow, BitsDoNotDependOnThePosition) {
  using E = typename TypeParam::E;
  const auto a = mixed_inputs<E>(2 * kMost, 1), b = mixed_inputs<E>(2 * kMost, 2);
  for_each_kernel<TypeParam>([&](const Tested& tested) {
    const Result<E> want = one_by_one(tested, a, b, kMost);
    for (int n : {2, 4, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 150}) {
      Result<E> got{std::vector<E>(2 * kMost), std::vector<E>(2 * kMost)};
      const Numbers<E> c{.n = n, .a = a.data(), .b = b.data(), .r1 = got.r1.data(), .r2 = got.r2.data()};
      tested.call(false, c);
      expect_results(tested, want, c, false, static_cast<size_t>(n), "unit stride");
    }
  });
}

// Of lanes that hold the filler and of elements that are none of the call's, whatever the family.
TYPED_TEST(EveryRow, NanInTheRemainderReportsNothing) {
  using E = typename TypeParam::E;
  static int reports;
  const ZymErrorCallback before = _zymSetErrorCallBack([](ZymErrorContext*) { return ++reports, 0; });
  const std::vector<E> a(2 * kMost, std::numeric_limits<E>::quiet_NaN());
  for_each_kernel<TypeParam>([&](const Tested& tested) {
    _zymSetMode(ZYM_ERRMODE_CALLBACK);
    for (int n : {1, 2, 3, 5, 7, 8, 9, 13, 15, 17, 31, 33, 63, 65}) {
      for (bool strided : {false, true}) {
        Result<E> got{std::vector<E>(2 * kMost), std::vector<E>(2 * kMost)};
        reports = 0;
        const E* const x = a.data();
        tested.call(strided, Numbers<E>{.n = n, .a = x, .b = x, .r1 = got.r1.data(), .r2 = got.r2.data()});
        EXPECT_EQ(reports, 0) << n << (strided ? " strided" : "");
      }
    }
    _zymSetMode(ZYM_ERRMODE_IGNORE);
  });
  _zymSetErrorCallBack(before);
}

TYPED_TEST(EveryRow, StridedTwinGivesTheSameBits) {
  using E = typename TypeParam::E;
  const size_t count = 75;
  const auto a = mixed_inputs<E>(2 * count, 3), b = mixed_inputs<E>(2 * count, 4);
  for_each_kernel<TypeParam>([&](const Tested& tested) {
    const Result<E> want = one_by_one(tested, a, b, count);
    for (const std::array<int32_t, 4>& inc :
         {std::array{1, 1, 1, 1}, std::array{2, 3, 1, 4}, std::array{-1, 2, -3, 1}}) {
      const auto form_of = [&](int parts, int32_t step) {
        return Form{parts, step, step < 0 ? -step * static_cast<int64_t>(count - 1) : 0};
      };
      const auto spread = [&](const std::vector<E>& x, const Form& form) {
        std::vector<E> out(count * 4 * 2);
        for (size_t i = 0; i < count; ++i) {
          for (int k = 0; k < form.parts; ++k) out[form.at(i, k)] = x[Form{form.parts}.at(i, k)];
        }
        return out;
      };
      const Form fa = form_of(tested.in(), inc[0]), fb = form_of(tested.in(), inc[1]);
      const Form f1 = form_of(tested.out(), inc[2]), f2 = form_of(tested.out(), inc[3]);
      const auto sa = spread(a, fa), sb = spread(b, fb);
      std::vector<E> r1(count * 8), r2(count * 8);
      const Numbers<E> c{.n = static_cast<int32_t>(count),
                         .a = &sa[fa.at(0, 0)],
                         .b = &sb[fb.at(0, 0)],
                         .r1 = &r1[f1.at(0, 0)],
                         .r2 = &r2[f2.at(0, 0)],
                         .incA = inc[0],
                         .incB = inc[1],
                         .incR1 = inc[2],
                         .incR2 = inc[3]};
      tested.call(true, c);
      expect_results(tested, want, c, true, count, "strided");
    }
  });
}

TYPED_TEST(EveryRow, InputIncrementOfZeroRepeatsTheElement) {
  using E = typename TypeParam::E;
  const std::vector<E> a = {E(0.625), E(-0.25)}, b = {E(1.75), E(0.5)};
  for_each_kernel<TypeParam>([&](const Tested& tested) {
    const Result<E> want = one_by_one(tested, a, b, 1);
    std::vector<E> r1(80), r2(80);
    tested.call(
        true,
        Numbers<E>{.n = 40, .a = a.data(), .b = b.data(), .r1 = r1.data(), .r2 = r2.data(), .incA = 0, .incB = 0});
    for (size_t i = 0; i < 40; ++i)
      expect_results(tested, want,
                     Numbers<E>{.r1 = &r1[i * static_cast<size_t>(tested.out())],
                                .r2 = &r2[i * static_cast<size_t>(tested.out())]},
                     true, 1, "repeated");
  });
}

TYPED_TEST(EveryRow, ResultIncrementOfZeroKeepsTheLastElement) {
  using E = typename TypeParam::E;
  auto a = mixed_inputs<E>(2 * 37, 5), b = mixed_inputs<E>(2 * 37, 6);
  a[36] = a[72] = E(0.25), b[36] = b[72] = E(0.75);
  a[34] = std::numeric_limits<E>::quiet_NaN();
  for_each_kernel<TypeParam>([&](const Tested& tested) {
    const Result<E> want = one_by_one(tested, a, b, 37);
    for (int32_t n : {37, 35}) {
      E r1[2] = {}, r2[2] = {};
      tested.call(true, Numbers<E>{.n = n, .a = a.data(), .b = b.data(), .r1 = r1, .r2 = r2, .incR1 = 0, .incR2 = 0});
      for (int part = 0; part < tested.out(); ++part) {
        ASSERT_TRUE(same(r1[part], want.r1[Form{tested.out()}.at(static_cast<size_t>(n - 1), part)])) << n;
      }
    }
  });
}

TYPED_TEST(EveryRow, InPlaceGivesTheSameBits) {
  using E = typename TypeParam::E;
  const auto a = mixed_inputs<E>(2 * 101, 7), b = mixed_inputs<E>(2 * 101, 8);
  for_each_kernel<TypeParam>([&](const Tested& tested) {
    if (tested.in() != tested.out()) return;  // an element does not fit where it came from
    const Result<E> want = one_by_one(tested, a, b, 101);
    for (bool strided : {false, true}) {
      std::vector<E> x = a, y = b, other(a.size());
      Numbers<E> c{.n = 101, .a = x.data(), .b = y.data(), .r1 = x.data(), .r2 = other.data()};
      tested.call(strided, c);
      expect_same(want.r1, x.data(), tested.out(), 1, 101, "r1 over a");
      if (tested.row.outputs() == 2) {
        expect_same(want.r2, other.data(), tested.out(), 1, 101, "r2 beside r1 over a");
        x = a;
        c.r1 = other.data();
        c.r2 = x.data();
        tested.call(strided, c);
        expect_same(want.r1, other.data(), tested.out(), 1, 101, "r1 beside r2 over a");
        expect_same(want.r2, x.data(), tested.out(), 1, 101, "r2 over a");
      }
      if (tested.row.inputs() == 2) {
        x = a;
        y = b;
        c.r1 = y.data();
        tested.call(strided, c);
        expect_same(want.r1, y.data(), tested.out(), 1, 101, "r1 over b");
      }
    }
  });
}

TYPED_TEST(EveryRow, TouchesNothingOutsideTheArrays) {
  using E = typename TypeParam::E;
  for_each_kernel<TypeParam>([&](const Tested& tested) {
    const auto in = static_cast<size_t>(tested.in()), out = static_cast<size_t>(tested.out());
    for (int32_t n = 0; n <= 40; ++n) {
      const size_t count = static_cast<size_t>(n);
      Guarded<E> a(count * in), b(count * in), r1(count * out), r2(count * out);
      for (bool back : {false, true}) {
        const auto place = [&](Guarded<E>& g) { return back ? g.at_back() : g.at_front(); };
        for (size_t i = 0; i < count * in; ++i) place(a)[i] = E(0.5), place(b)[i] = E(0.25);
        if (count > 0) place(a)[count * in - 1] = std::numeric_limits<E>::quiet_NaN();
        Numbers<E> c{.n = n, .a = place(a), .b = place(b), .r1 = place(r1), .r2 = place(r2)};
        tested.call(false, c);
        tested.call(true, c);
        if (n > 0) {  // backwards through the same elements
          c.a += (count - 1) * in, c.b += (count - 1) * in, c.r1 += (count - 1) * out, c.r2 += (count - 1) * out;
          c.incA = c.incB = c.incR1 = c.incR2 = -1;
          tested.call(true, c);
        }
      }
    }
  });
}

// Reports set it, and only where the mode says so.
TYPED_TEST(EveryRow, ErrnoStaysAsItWas) {
  using E = typename TypeParam::E;
  constexpr size_t kCount = 600;
  auto a = mixed_inputs<E>(2 * kCount, 16), b = mixed_inputs<E>(2 * kCount, 17);
  for (size_t i = 0; i < kCount; ++i) {  // towards the ends of the range, where results and what leads to them leave it
    a[2 * i] *= std::ldexp(E(1), static_cast<int>(i % 64) * std::numeric_limits<E>::max_exponent / 64);
    b[2 * i + 1] *= std::ldexp(E(1), -static_cast<int>(i % 61) * std::numeric_limits<E>::max_exponent / 61);
  }
  for_each_kernel<TypeParam>([&](const Tested& tested) {
    if (rows::find(tested.row.name) != &tested.row) return;  // a plain loop over the standard library
    std::vector<E> r1(2 * kCount), r2(2 * kCount);
    for (bool strided : {false, true}) {
      errno = EILSEQ;
      tested.call(strided, Numbers<E>{.n = kCount, .a = a.data(), .b = b.data(), .r1 = r1.data(), .r2 = r2.data()});
      ASSERT_EQ(errno, EILSEQ) << (strided ? "strided" : "unit stride");
    }
  });
  errno = 0;
}

TYPED_TEST(EveryRow, WritesOnlyItsElements) {
  using E = typename TypeParam::E;
  const auto a = mixed_inputs<E>(128, 9), b = mixed_inputs<E>(128, 10);
  for_each_kernel<TypeParam>([&](const Tested& tested) {
    const auto out = static_cast<size_t>(tested.out());
    for (int32_t n : {0, 1, 7, 20, 33}) {
      std::vector<E> r1(128, E(-77)), r2(128, E(-77));
      Numbers<E> c{.n = n, .a = a.data(), .b = b.data(), .r1 = r1.data(), .r2 = r2.data()};
      tested.call(false, c);
      for (size_t i = static_cast<size_t>(n) * out; i < 128; ++i) ASSERT_EQ(r1[i], E(-77)) << i;
      c.incR1 = 3, c.n = n / 3;
      std::fill(r1.begin(), r1.end(), E(-77));
      tested.call(true, c);
      for (size_t i = 0; i < 128; ++i) {
        if (i / out % 3 != 0 || i / out >= 3 * static_cast<size_t>(c.n)) {
          ASSERT_EQ(r1[i], E(-77)) << i;
        }
      }
    }
  });
}

TYPED_TEST(EveryRow, UnalignedArraysGiveTheSameBits) {
  using E = typename TypeParam::E;
  const auto a = mixed_inputs<E>(140, 11), b = mixed_inputs<E>(140, 12);
  for_each_kernel<TypeParam>([&](const Tested& tested) {
    const Result<E> want = one_by_one(tested, a, b, 70);
    for (int shift = 1; shift < 8; shift += 3) {
      std::vector<E> x(160), y(160), r1(160), r2(160);
      std::copy(a.begin(), a.end(), x.begin() + shift);
      std::copy(b.begin(), b.end(), y.begin() + shift + 1);
      const Numbers<E> c{
          .n = 70, .a = x.data() + shift, .b = y.data() + shift + 1, .r1 = r1.data() + 3, .r2 = r2.data() + 1};
      tested.call(false, c);
      expect_results(tested, want, c, false, 70, "unaligned");
    }
  });
}

// Long calls begin with the elements before the first aligned store, where there are some and the arrays do not meet.
TYPED_TEST(EveryRow, LongCallsGiveTheSameBitsAtEveryPlace) {
  using E = typename TypeParam::E;
  constexpr int32_t kLong = 4200, kShort = 75;  // above and below what begins so
  constexpr size_t kNumbers = 2 * kLong, kAround = 48;
  const auto a = mixed_inputs<E>(kNumbers, 13), b = mixed_inputs<E>(kNumbers, 14);
  for_each_kernel<TypeParam>([&](const Tested& tested) {
    const Form in{tested.in()}, out{tested.out()};
    Result<E> want{std::vector<E>(kNumbers), std::vector<E>(kNumbers)};
    for (int32_t i = 0; i < kLong; i += kShort) {
      const auto at = static_cast<size_t>(i);
      tested.call(false, Numbers<E>{.n = kShort,
                                    .a = &a[in.at(at, 0)],
                                    .b = &b[in.at(at, 0)],
                                    .r1 = &want.r1[out.at(at, 0)],
                                    .r2 = &want.r2[out.at(at, 0)]});
    }
    const auto aligned = [](std::vector<E>& x) {
      void* p = x.data();
      size_t space = x.size() * sizeof(E);
      return static_cast<E*>(std::align(64, 1, p, space));
    };
    for (size_t shift : {0, 1, 4, 7}) {
      Result<E> memory{std::vector<E>(kNumbers + kAround, E(7)), std::vector<E>(kNumbers + kAround, E(7))};
      E* const r1 = aligned(memory.r1) + shift;
      const Numbers<E> c{.n = kLong, .a = a.data(), .b = b.data(), .r1 = r1, .r2 = aligned(memory.r2) + 3};
      tested.call(false, c);
      expect_results(tested, want, c, false, kLong, "apart");
      for (const E* x = memory.r1.data(); x < r1; ++x) ASSERT_EQ(*x, E(7)) << "before the results";
      for (const E* x = r1 + out.at(kLong, 0); x <= &memory.r1.back(); ++x) ASSERT_EQ(*x, E(7)) << "behind the results";
      if (tested.in() != tested.out()) continue;
      std::copy(a.begin(), a.end(), r1);
      const Numbers<E> same{.n = kLong, .a = r1, .b = b.data(), .r1 = r1, .r2 = c.r2};
      tested.call(false, same);
      expect_results(tested, want, same, false, kLong, "in place");
    }
  });
}

// Rows that memory limits store large results past the caches, where the arrays do not meet.
TYPED_TEST(EveryRow, CallsPastTheCachesGiveTheSameBits) {
  using E = typename TypeParam::E;
  // As where no cache is near: otherwise rows of one argument keep results of this size in it.
  const struct FarCaches {
    const int64_t here = serv::kept_result_bytes;
    FarCaches() { serv::kept_result_bytes = 0; }
    ~FarCaches() { serv::kept_result_bytes = here; }
  } far;
  constexpr int32_t kPiece = 1000;
  constexpr const char* kSimple[] = {"Abs",  "Sqr",        "Add",  "Sub",      "Mul",
                                     "Conj", "LinearFrac", "Ceil", "CopySign", "Fmax"};
  const auto some = mixed_inputs<E>(1 << 17, 15);
  int kernels = 0;
  for_each_kernel<TypeParam>([&](const Tested& tested) {
    if (std::none_of(std::begin(kSimple), std::end(kSimple),
                     [&](const char* x) { return x == std::string(tested.row.name).substr(1); }))
      return;
    ++kernels;
    const Form in{tested.in()}, out{tested.out()};
    constexpr size_t kBytes = (size_t{7} << 20) + 5000;
    const auto n = static_cast<int32_t>(kBytes / (sizeof(E) * static_cast<size_t>(tested.out())));
    const size_t numbers = in.at(static_cast<size_t>(n), 0);
    std::vector<E> a(numbers), b(numbers);
    for (size_t i = 0; i < numbers; ++i) a[i] = some[i % some.size()], b[i] = some[(i + 12345) % some.size()];
    std::vector<E> want(out.at(static_cast<size_t>(n), 0)), memory(want.size() + 64, E(7));
    for (int32_t i = 0; i < n; i += kPiece) {
      const auto at = static_cast<size_t>(i);
      tested.call(
          false,
          Numbers<E>{
              .n = std::min(kPiece, n - i), .a = &a[in.at(at, 0)], .b = &b[in.at(at, 0)], .r1 = &want[out.at(at, 0)]});
    }
    const auto expect_wanted = [&](const E* r, const char* how) {
      ASSERT_EQ(std::memcmp(r, want.data(), want.size() * sizeof(E)), 0) << n << ' ' << how;
    };
    for (const size_t shift : {size_t{1}, size_t{16}, size_t{17}}) {
      std::fill(memory.begin(), memory.end(), E(7));
      E* const r = memory.data() + shift;
      tested.call(false, Numbers<E>{.n = n, .a = a.data(), .b = b.data(), .r1 = r});
      expect_wanted(r, "apart");
      for (size_t i = 0; i < shift; ++i) ASSERT_EQ(memory[i], E(7)) << "before the results";
      for (size_t i = shift + want.size(); i < memory.size(); ++i) ASSERT_EQ(memory[i], E(7)) << "behind the results";
    }
    if (tested.in() != tested.out()) return;
    std::copy(a.begin(), a.end(), memory.begin() + 1);
    E* const r = memory.data() + 1;
    tested.call(false, Numbers<E>{.n = n, .a = r, .b = b.data(), .r1 = r});
    expect_wanted(r, "in place");
  });
  EXPECT_GE(kernels, 4);
}

std::vector<int32_t> reported;
int32_t keep_index(ZymErrorContext* context) {
  reported.push_back(context->index);
  return 0;
}

TEST(LongCalls, ReportsCountFromTheFirstElement) {
  constexpr int32_t kLong = 5000;
  std::vector<double> a(kLong, 2.0), r(kLong + 16);
  for (size_t i : {0, 1, 2, 3, 4000, 4999}) a[i] = -1;
  _zymSetMode(ZYM_ERRMODE_CALLBACK);
  _zymSetErrorCallBack(keep_index);
  for (size_t shift = 0; shift < 8; ++shift) {
    reported.clear();
    _zymdLn(kLong, a.data(), r.data() + shift);
    EXPECT_EQ(reported, (std::vector<int32_t>{0, 1, 2, 3, 4000, 4999})) << shift;
  }
  _zymClearErrorCallBack();
  _zymSetMode(ZYM_ERRMODE_DEFAULT);
}

}  // namespace
}  // namespace orvik::test
