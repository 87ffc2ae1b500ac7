// Kernels of both widths side by side: every row, level, stride and variant, ordinary and special elements, arrays
// apart, in place and overlapping: the same bits, reports, status and flags.
#include <gtest/gtest.h>

#include <bit>
#include <cerrno>
#include <cfenv>
#include <cstring>
#include <limits>
#include <random>
#include <set>
#include <span>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "lanes/units.h"
#include "orvik/version.h"
#include "orvik/zym.h"
#include "serv/processor.h"
#include "support/rows.h"
#include "zym/frame/registers.h"

namespace orvik::test {
namespace {

using zym::orvik_zym_wide_rows;
using zym::WideRow;

const WideRow* wide_row(void** slots) {
  for (const WideRow* row = orvik_zym_wide_rows; row->slots != nullptr; ++row) {
    if (row->slots == slots) return row;
  }
  return nullptr;
}

// A kernel in the slot of one level while it lives.
class InPlace {
 public:
  InPlace(void** slots, int level, void* kernel) : slot_(slots[level]), former_(slot_) { slot_ = kernel; }
  ~InPlace() { slot_ = former_; }
  InPlace(const InPlace&) = delete;
  InPlace& operator=(const InPlace&) = delete;

 private:
  void*& slot_;
  void* former_;
};

std::vector<ZymErrorContext>* reports = nullptr;
int32_t keep_report(ZymErrorContext* context) {
  reports->push_back(*context);
  if (context->index % 5 == 0) {
    context->result1 = 0.5, context->result1Imag = -0.25;  // is written back
  }
  return context->index % 7 == 0;
}

// What a call leaves behind.
struct Outcome {
  std::vector<char> memory;
  std::vector<ZymErrorContext> reports;
  int32_t status, error, vector_flags, x87_flags;
};

std::string text_of(const ZymErrorContext& c) {
  const double numbers[] = {c.arg1, c.arg2, c.result1, c.result2, c.arg1Imag, c.arg2Imag, c.result1Imag, c.result2Imag};
  std::string text = std::string(c.functionName) + " " + std::to_string(c.code) + " at " + std::to_string(c.index);
  for (double x : numbers) text.append(1, ' ').append(std::to_string(std::bit_cast<uint64_t>(x)));
  return text;
}

template <class E>
std::span<const E> special_values() {
  using L = std::numeric_limits<E>;
  static const E values[] = {E(0),
                             E(-0.0),
                             E(1),
                             E(-1),
                             E(0.5),
                             E(2),
                             E(1e30),
                             E(-40),
                             L::quiet_NaN(),
                             L::denorm_min(),
                             -L::denorm_min(),
                             L::min(),
                             L::max(),
                             -L::max(),
                             L::infinity(),
                             -L::infinity(),
                             L::signaling_NaN()};
  return values;
}

// Elements of a row as raw numbers in one piece of memory, arrays behind each other.
template <class E>
std::vector<E> inputs(size_t count, uint64_t seed, int specials) {
  using L = std::numeric_limits<E>;
  const std::span<const E> special = special_values<E>();
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<E> plain(E(-10), E(10));
  std::vector<E> x(count);
  for (E& v : x) {
    v = plain(random);
    if (specials > 0 && random() % static_cast<uint64_t>(specials) == 0) v = special[random() % special.size()];
    if (specials == 2 && random() % 2 == 0) {
      using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
      v = std::bit_cast<E>(static_cast<Bits>(random()));
      if (v != v) v = L::quiet_NaN();
    }
  }
  return x;
}

// Where the arrays of a call lie in the memory, in elements, and their steps.
struct Places {
  const char* name;
  size_t a, b, r1, r2;
  int32_t steps[4];
};
constexpr size_t kArray = 1200;
constexpr Places kPlaces[] = {
    {"apart", 0, kArray, 2 * kArray, 3 * kArray, {1, 1, 1, 1}},
    {"in place of a", 0, kArray, 0, 3 * kArray, {1, 1, 1, 1}},
    {"in place of b", 0, kArray, kArray, 3 * kArray, {1, 1, 1, 1}},
    {"unaligned", 3, kArray + 1, 2 * kArray + 5, 3 * kArray + 7, {1, 1, 1, 1}},
};
constexpr Places kStridedPlaces[] = {
    {"apart", 0, kArray, 2 * kArray, 3 * kArray, {2, 1, 3, 2}},
    {"backwards", kArray - 1, 2 * kArray - 1, 3 * kArray - 1, 4 * kArray - 1, {-1, -2, -1, -3}},
    {"side by side", 0, kArray, 2 * kArray, 3 * kArray, {1, 1, 1, 1}},
    {"one element read", 0, kArray, 2 * kArray, 3 * kArray, {0, 0, 1, 1}},
    {"in place", 0, kArray, 0, 3 * kArray, {2, 1, 2, 1}},
    {"overlapping", 0, kArray, 1, 3 * kArray, {2, 1, 2, 1}},
};

// One block and the beginning of the next, in a small piece of memory.
constexpr int32_t kFew = 35;
constexpr size_t kFewArray = 2 * kFew;
constexpr Places kFewPlaces = {"few", 0, kFewArray, 2 * kFewArray, 3 * kFewArray, {1, 1, 1, 1}};
constexpr Places kFewStrided = {"few", 0, kFewArray, 2 * kFewArray, 3 * kFewArray, {2, 1, 1, 2}};

template <class E>
Outcome outcome(const Row& row, int level, bool strided, const Variant& variant, const Places& places, int32_t n,
                const std::vector<E>& memory, uint32_t mode) {
  std::vector<E> x = memory;
  const auto in = static_cast<size_t>(row.input_parts), out = static_cast<size_t>(row.output_parts);
  rows::Call call;
  call.a = &x[places.a * in], call.b = &x[places.b * in], call.r1 = &x[places.r1 * out], call.r2 = &x[places.r2 * out];
  call.incA = places.steps[0], call.incB = places.steps[1], call.incR1 = places.steps[2], call.incR2 = places.steps[3];
  std::copy(std::begin(variant.scalars), std::end(variant.scalars), call.scalars);
  call.order = variant.order;
  Outcome outcome;
  reports = &outcome.reports;
  _zymSetErrorCallBack(keep_report);
  _zymSetMode(mode);
  _zymClearErrStatus();
  errno = 0;
  std::feclearexcept(FE_ALL_EXCEPT);
  rows::with_call(row, row.entries[strided ? 1 : 0][level], strided, call, [&](auto function) { function(n); });
  uint16_t x87;
  uint32_t vector;
  asm volatile("fnstsw %0" : "=m"(x87));
  asm volatile("stmxcsr %0" : "=m"(vector));
  outcome.x87_flags = x87 & 0x3F;
  // Inexact apart: fillers of special and of inactive lanes may raise it, and where these are the width decides.
  outcome.vector_flags = static_cast<int32_t>(vector & 0x1F);
  outcome.error = errno;
  outcome.status = _zymGetErrStatus();
  _zymClearErrorCallBack();
  const char* bytes = reinterpret_cast<const char*>(x.data());
  outcome.memory.assign(bytes, bytes + x.size() * sizeof(E));
  return outcome;
}

constexpr uint32_t kModes[] = {ZYM_ERRMODE_CALLBACK | ZYM_ERRMODE_ERRNO, ZYM_ERRMODE_NOERR,
                               ZYM_ERRMODE_IGNORE | ZYM_FLUSH_DENORMALS};

// Where two outcomes differ; empty: nowhere.
template <class E>
std::string difference(const Outcome& want, const Outcome& got) {
  const auto numbers = [](const char* what, int32_t narrow, int32_t wide) {
    return std::string(what) + ' ' + std::to_string(narrow) + ", wide " + std::to_string(wide);
  };
  if (want.reports.size() != got.reports.size()) {
    return numbers("reports", static_cast<int32_t>(want.reports.size()), static_cast<int32_t>(got.reports.size()));
  }
  for (size_t i = 0; i < want.reports.size(); ++i) {
    const std::string narrow = text_of(want.reports[i]), wide = text_of(got.reports[i]);
    if (narrow != wide) return "report " + narrow + ", wide " + wide;
  }
  if (want.status != got.status) return numbers("status", want.status, got.status);
  if (want.error != got.error) return numbers("errno", want.error, got.error);
  if (want.vector_flags != got.vector_flags) return numbers("vector flags", want.vector_flags, got.vector_flags);
  if (want.x87_flags != got.x87_flags) return numbers("x87 flags", want.x87_flags, got.x87_flags);
  if (want.memory == got.memory) return "";
  size_t at = 0;
  while (std::memcmp(&want.memory[at], &got.memory[at], sizeof(E)) == 0) at += sizeof(E);
  E x, y;
  std::memcpy(&x, &want.memory[at], sizeof x), std::memcpy(&y, &got.memory[at], sizeof y);
  std::ostringstream text;
  text << std::hexfloat << "number " << at / sizeof(E) << " of the memory: " << x << ", wide " << y;
  return text.str();
}

int compared[2];  // calls of unit stride, of others

template <class E>
class Comparison {
 public:
  Comparison(const Row& row, bool strided)
      : row_(row), strided_(strided), wide_(wide_row(rows::table_row(row.index + (strided ? rows::kUnitRows : 0)))) {
    for (int specials : {0, 16, 2}) {
      memories_.push_back(inputs<E>(8 * kArray + 16, 20 + static_cast<uint64_t>(specials), specials));
    }
  }

  void all_levels() {
    for (int level = 0; wide_ != nullptr && level < 3; ++level) {
      if (row_.kernel(level) != level || wide_->wide[level] == wide_->narrow[level]) continue;
      for (const Variant& variant : variants_of(row_)) {
        if (!many_elements(level, variant) || !every_special_in_every_place(level, variant)) break;
      }
    }
  }

 private:
  bool many_elements(int level, const Variant& variant) {
    for (const Places& places : strided_ ? std::span<const Places>(kStridedPlaces) : std::span<const Places>(kPlaces)) {
      const bool meet = places.r1 < kArray || places.r1 == places.b;
      if (meet && row_.input_parts != row_.output_parts) continue;  // no array is of both
      for (const std::vector<E>& memory : memories_) {
        for (uint32_t mode : kModes) {
          for (int32_t n : {31, 33, 77, 300}) {
            if (&memory != &memories_[2] && mode != kModes[0] && n != 77) continue;
            if (!same(level, variant, places, n, memory, mode)) return false;
          }
        }
      }
    }
    return true;
  }

  // Beside an ordinary second argument, and a special one.
  bool every_special_in_every_place(int level, const Variant& variant) {
    const std::vector<E> ordinary = inputs<E>(8 * kFewArray, 3, 0);
    const Places& places = strided_ ? kFewStrided : kFewPlaces;
    const auto parts = static_cast<size_t>(row_.input_parts);
    const std::span<const E> special = special_values<E>();
    for (size_t place = 0; place < static_cast<size_t>(kFew); ++place) {
      for (size_t v = 0; v < special.size(); ++v) {
        std::vector<E> memory = ordinary;
        const auto set = [&](size_t array, int32_t step, E value) {
          memory[(array + place * static_cast<size_t>(step)) * parts + (parts == 2 && v % 2 == 1 ? 1 : 0)] = value;
        };
        set(places.a, places.steps[0], special[v]);
        if ((place + v) % 2 == 1) set(places.b, places.steps[1], special[(place + 3 * v) % special.size()]);
        if (!same(level, variant, places, kFew, memory, kModes[v % 2])) return false;
      }
    }
    return true;
  }

  bool same(int level, const Variant& variant, const Places& places, int32_t n, const std::vector<E>& memory,
            uint32_t mode) {
    const auto with = [&](void* kernel) {
      const InPlace in_place(wide_->slots, level, kernel);
      return outcome(row_, level, strided_, variant, places, n, memory, mode);
    };
    const Outcome narrow = with(wide_->narrow[level]);
    ++compared[strided_ ? 1 : 0];
    for (void* kernel : std::set{wide_->wide[level], wide_->halves[level]}) {  // one, mostly
      if (kernel == wide_->narrow[level]) continue;
      const std::string found = difference<E>(narrow, with(kernel));
      if (found.empty()) continue;
      ADD_FAILURE() << row_.name << (strided_ ? "I " : " ") << kLevelNames[level]
                    << (kernel == wide_->wide[level] ? " wide" : " halves") << " n " << n << ' ' << places.name
                    << " mode " << mode << " order " << variant.order << " scalar " << variant.scalars[0] << ": "
                    << found;
      return false;
    }
    return true;
  }

  const Row& row_;
  bool strided_;
  const WideRow* wide_;
  std::vector<std::vector<E>> memories_;
};

// Rows of a precision, on this processor's units of arithmetic, or as on others.
class Widths : public testing::TestWithParam<std::pair<char, bool>> {};

TEST_P(Widths, GiveTheSameBitsReportsAndFlags) {
  const auto [precision, as_here] = GetParam();
  const bool here = units_of_halves;
  if (!as_here) units_of_halves = !here;
  compared[0] = compared[1] = 0;
  for (const Row& row : rows::all()) {
    if (row.precision != precision || row.shape == Shape::pack) continue;
    for (bool strided : {false, true}) {
      row.single() ? Comparison<float>(row, strided).all_levels() : Comparison<double>(row, strided).all_levels();
    }
  }
  _zymSetMode(ZYM_ERRMODE_DEFAULT);
  units_of_halves = here;
  for (int calls : compared) EXPECT_GE(calls, 1000);
}
INSTANTIATE_TEST_SUITE_P(Precisions, Widths,
                         testing::Values(std::pair{'s', true}, std::pair{'d', true}, std::pair{'c', true},
                                         std::pair{'z', true}, std::pair{'d', false}, std::pair{'z', false}));

TEST(Widths, EveryRowWithLanesHasBoth) {
  int wide = 0;
  for (const WideRow* row = orvik_zym_wide_rows; row->slots != nullptr; ++row) ++wide;
  EXPECT_GE(wide, 300);
}

// The kernels that the load chose: what this processor is served best with.
TEST(Widths, SlotsHoldTheKernelsOfThisProcessor) {
  const bool halves = serv::halves_wide_registers(serv::read_processor());
  for (const WideRow* row = orvik_zym_wide_rows; row->slots != nullptr; ++row) {
    for (int level = 0; level < 3; ++level) {
      void* const wide = halves ? row->halves[level] : row->wide[level];
      EXPECT_EQ(row->slots[level], orvik_register_bits() == 512 ? wide : row->narrow[level]);
      float cost;
      std::memcpy(&cost, reinterpret_cast<const char*>(row->slots + 3) + 4 * level, sizeof cost);
      EXPECT_TRUE(row->slots[level] == row->narrow[level] || cost == row->costs[level]);
    }
  }
}

}  // namespace
}  // namespace orvik::test
