// The list of rows, the dispatch table and the entries that are made from it.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "orvik/version.h"
#include "orvik/zym.h"
#include "serv/processor.h"
#include "tools/rows/list.h"

namespace orvik::rows {
namespace {

TEST(Rows, ThereAre252FunctionsAnd228StridedTwins) {
  EXPECT_EQ(all().size(), static_cast<size_t>(kUnitRows));
  int twins = 0;
  for (const Row& row : all()) twins += row.shape != Shape::pack;
  EXPECT_EQ(twins, kTwins);
  for (int i = 0; i < kUnitRows; ++i) EXPECT_EQ(all()[i].shape == Shape::pack, i >= kTwins) << all()[i].name;
}

TEST(Rows, NamesAreDistinct) {
  std::set<std::string_view> names;
  for (const Row& row : all()) names.insert(row.name);
  EXPECT_EQ(names.size(), all().size());
}

// Names of a list, each behind every one of the precisions.
std::vector<std::string> names_of(std::string_view precisions, std::string_view functions) {
  std::vector<std::string> names;
  for (const char precision : precisions) {
    for (size_t at = 0; at < functions.size();) {
      const size_t end = std::min(functions.find(' ', at), functions.size());
      names.push_back(precision + std::string(functions.substr(at, end - at)));
      at = end + 1;
    }
  }
  return names;
}
std::set<std::string> set_of(std::initializer_list<std::vector<std::string>> lists) {
  std::set<std::string> all;
  for (const auto& list : lists) all.insert(list.begin(), list.end());
  return all;
}

constexpr std::string_view kReal =
    "Ceil Floor Frac NearbyInt Rint Round Trunc Abs Inv Sqrt InvSqrt Cbrt InvCbrt Exp Ln Log10 Cos "
    "Sin Tan Acos Acosh Asin Asinh Atan Atanh Cosh Sinh Tanh Erf Erfc ErfInv Sqr Expm1 Log1p Pow3o2 "
    "Pow2o3 ErfcInv CdfNorm CdfNormInv LGamma TGamma ExpInt1 Sinpi Cospi Tanpi Acospi Asinpi Atanpi "
    "Exp2 Exp10 Log2 Sind Cosd Tand Logb Erfcx I0 I1 J0 J1 Y0 Y1";
constexpr std::string_view kComplex =
    "Cos Sin Tan Cosh Sinh Tanh Acos Asin Atan Acosh Asinh Atanh Exp Ln Log10 Sqrt Conj";
constexpr std::string_view kBinary =
    "Div Pow Atan2 Hypot Add Sub Mul Atan2pi CopySign NextAfter Fdim Fmax Fmin MaxMag MinMag Powr "
    "Remainder Fmod";

// Tables of callers are laid out in this order.
TEST(Rows, StandInTheirOrder) {
  std::vector<std::string> want;
  for (const auto& [precisions, functions] : std::initializer_list<std::pair<std::string_view, std::string_view>>{
           {"sd", kReal},
           {"sd", "Jn Yn"},
           {"cz", kComplex},
           {"cz", "CIS"},
           {"cz", "Abs Arg"},
           {"sd", kBinary},
           {"cz", "Div Pow Add Sub Mul MulByConj"},
           {"cz", "Powx"},
           {"sd", "Powx"},
           {"sd", "SinCos Modf SinCospi"},
           {"sd", "LinearFrac"},
           {"sdcz", "PackI"},
           {"sdcz", "PackM"},
           {"sdcz", "PackV"},
           {"sdcz", "UnpackI"},
           {"sdcz", "UnpackM"},
           {"sdcz", "UnpackV"}}) {
    for (std::string& name : names_of(precisions, functions)) want.push_back(std::move(name));
  }
  ASSERT_EQ(want.size(), all().size());
  for (size_t i = 0; i < want.size(); ++i) EXPECT_EQ(all()[i].name, want[i]) << i;
}

// Which levels have a kernel of their own decides what results they have.
TEST(Rows, ShareKernelsAmongTheirLevelsAsRequired) {
  const std::set<std::string> one = set_of(
      {names_of("s", "Ceil Round Trunc TGamma Add"), names_of("d", "Rint LGamma Mul"), names_of("s", "Modf"),
       names_of("sd", "Floor Frac NearbyInt Abs Sqr Exp2 Exp10 Logb Erfcx I0 I1 J0 J1 Y0 Y1 Jn Yn Sub CopySign "
                      "NextAfter Fdim Fmax Fmin MaxMag MinMag Remainder Fmod SinCospi LinearFrac"),
       names_of("cz", "Cos Sin Tan Cosh Sinh Tanh Acos Asin Atan Acosh Asinh Atanh Log10 Conj Pow Powx"),
       names_of("sdcz", "PackI PackM PackV UnpackI UnpackM UnpackV")});
  const std::set<std::string> la_ha =
      set_of({names_of("sd", "ExpInt1"), names_of("d", "Ceil InvSqrt Div"), names_of("c", "Div Mul"),
              names_of("z", "Sub Mul MulByConj")});
  const std::set<std::string> la_ep =
      set_of({names_of("s", "Rint InvSqrt Mul"), names_of("d", "Round Trunc Cosh Tanh TGamma Add Modf"),
              names_of("cz", "Exp Sqrt")});
  std::map<Sharing, int> counts;
  for (const Row& row : all()) {
    const std::string name(row.name);
    EXPECT_EQ(row.sharing, one.contains(name)     ? Sharing::one
                           : la_ha.contains(name) ? Sharing::la_ha
                           : la_ep.contains(name) ? Sharing::la_ep
                                                  : Sharing::apart)
        << name;
    counts[row.sharing] += row.shape == Shape::pack ? 1 : 2;
  }
  EXPECT_EQ(counts[Sharing::one], 222);
  EXPECT_EQ(counts[Sharing::la_ha], 20);
  EXPECT_EQ(counts[Sharing::la_ep], 28);
  EXPECT_EQ(counts[Sharing::apart], 210);
}

TEST(Rows, ThoseThatReportAreTheNamedOnes) {
  const std::set<std::string> reporting = set_of(
      {names_of("sd", "Inv Sqrt InvSqrt InvCbrt Exp Ln Log10 Cos Sin Tan Acos Acosh Asin Atanh Cosh Sinh Erfc ErfInv "
                      "Expm1 Log1p Pow3o2 ErfcInv CdfNorm CdfNormInv LGamma TGamma ExpInt1 Tanpi Acospi Asinpi Exp2 "
                      "Exp10 Log2 Sind Cosd Tand Logb I0 I1"),
       names_of("sd", "Div Pow Atan2pi NextAfter Powr Remainder Fmod Powx SinCos"),
       names_of("cz", "Cos Sin Cosh Sinh Exp Div Pow Add Sub Mul MulByConj Powx")});
  for (const Row& row : all()) EXPECT_EQ(row.reports, reporting.contains(std::string(row.name))) << row.name;
}

void* slot(const Row& row, bool strided, int level) { return table_row(row.index + (strided ? kUnitRows : 0))[level]; }

TEST(Table, LevelsShareKernelsAsTheListSays) {
  for (const Row& row : all()) {
    if (!row.built()) continue;
    for (bool strided : {false, true}) {
      if (strided && row.shape == Shape::pack) continue;
      for (int i = 0; i < kLevels; ++i) {
        for (int j = 0; j < i; ++j) {
          EXPECT_EQ(slot(row, strided, i) == slot(row, strided, j), row.kernel(i) == row.kernel(j)) << row.name;
        }
      }
    }
  }
}

TEST(Table, NoTwoRowsShareAKernel) {
  std::map<void*, int> owners;
  for (int i = 0; i < kTableRows; ++i) {
    for (int level = 0; level < kLevels; ++level) {
      void* kernel = table_row(i)[level];
      if (kernel == nullptr) continue;
      EXPECT_EQ(owners.try_emplace(kernel, i).first->second, i) << all()[i % kUnitRows].name;
    }
  }
}

TEST(Table, RowsThatAreNotBuiltHaveEmptySlotsAndNoEntry) {
  for (const Row& row : all()) {
    for (int level = 0; level < kLevels; ++level) {
      EXPECT_EQ(slot(row, false, level) != nullptr, row.built()) << row.name;
      EXPECT_EQ(row.entries[0][level] != nullptr, row.built()) << row.name;
      if (row.shape == Shape::pack) continue;
      EXPECT_EQ(slot(row, true, level) != nullptr, row.built()) << row.name << 'I';
      EXPECT_EQ(row.entries[1][level] != nullptr, row.built()) << row.name << 'I';
    }
  }
}

TEST(Table, CostsStandAtOffset24AndZeroesBehindThem) {
  for (const Row& row : all()) {
    for (bool strided : {false, true}) {
      if (strided && row.shape == Shape::pack) continue;
      const auto* bytes = reinterpret_cast<const char*>(table_row(row.index + (strided ? kUnitRows : 0)));
      float costs[kLevels];
      std::memcpy(costs, bytes + 24, sizeof costs);
      const bool wide = orvik_register_bits() == 512;
      // Which of the two kernels a processor has that takes wide registers in halves, zym_widths_test looks at.
      const bool either = wide && serv::halves_wide_registers(serv::read_processor());
      for (int level = 0; level < kLevels; ++level) {
        if (either && costs[level] == row.costs[level]) continue;
        EXPECT_EQ(costs[level], wide ? row.wide_costs[level] : row.costs[level]) << row.name;
      }
      const std::array<char, 12> zero{};
      EXPECT_EQ(std::memcmp(bytes + 36, zero.data(), zero.size()), 0) << row.name;
    }
  }
}

TEST(Table, CostsOfLevelsThatShareAKernelAreEqual) {
  for (const Row& row : all()) {
    for (int level = 0; level < kLevels; ++level) {
      EXPECT_EQ(row.costs[level], row.costs[row.kernel(level)]) << row.name;
      EXPECT_EQ(row.wide_costs[level], row.wide_costs[row.kernel(level)]) << row.name;
    }
  }
}

TEST(Table, PlaceholderCostsStandWhereTheyAreFixed) {
  for (const Row& row : all()) {
    static const std::set<std::string_view> placeholders = {"Erfcx", "I0", "I1", "J0", "J1", "Y0", "Y1", "Jn", "Yn", "SinCospi"};
    for (float cost : row.costs) {
      if (row.shape == Shape::pack) {
        EXPECT_EQ(cost, 1111.0f) << row.name;
      } else if (placeholders.contains(row.function) || row.name == "zConj") {
        EXPECT_EQ(cost, 1.0f) << row.name;
      }
    }
  }
}

TEST(Table, ExportsOfARowAreTheTableItself) {
  EXPECT_EQ(orvik_zym_kernel_sCeil_ttab, table_row(0));
  EXPECT_EQ(orvik_zym_kernel_sAdd_ttab, table_row(find("sAdd")->index));
  EXPECT_EQ(orvik_zym_kernel_sAddI_ttab, table_row(find("sAdd")->index + kUnitRows));
  EXPECT_EQ(reinterpret_cast<char*>(orvik_zym_kernel_dMul_ctab) - reinterpret_cast<char*>(orvik_zym_kernel_dMul_ttab), 24);
}

// Compilers take two names for two addresses unless they cannot see where an address comes from.
template <class F>
uintptr_t address(F* entry) {
  asm volatile("" : "+r"(entry));
  return reinterpret_cast<uintptr_t>(entry);
}

TEST(Entries, DefaultNameAndHaAreOneAddress) {
  EXPECT_EQ(address(&_zymsExp), address(&_zymsExp_HA));
  EXPECT_NE(address(&_zymsExp), address(&_zymsExp_21));
  EXPECT_EQ(address(&_zymsAbs), address(&_zymsAbs_HA));
  EXPECT_EQ(address(&_zymdFloorI), address(&_zymdFloorI_HA));
  EXPECT_NE(address(&_zymsAbs), address(&_zymsAbs_21));
  EXPECT_NE(address(&_zymsAbs_21), address(&_zymsAbs_11));
}

TEST(Entries, AllLevelsOfAbsReachOneKernel) {
  const Row& row = *find("sAbs");
  EXPECT_EQ(slot(row, false, 0), slot(row, false, 1));
  EXPECT_EQ(slot(row, false, 1), slot(row, false, 2));
}

TEST(Entries, LevelsOfExpReachKernelsOfTheirOwn) {
  for (const char* name : {"sExp", "dExp"}) {
    for (bool strided : {false, true}) {
      const Row& row = *find(name);
      EXPECT_NE(slot(row, strided, 0), slot(row, strided, 2)) << name;
      EXPECT_NE(slot(row, strided, 0), slot(row, strided, 1)) << name;
      EXPECT_NE(slot(row, strided, 1), slot(row, strided, 2)) << name;
    }
  }
}

// A stand-in kernel of any shape: only notes that it was reached.
int reached = 0;
void note() { ++reached; }

TEST(Entries, EveryEntryGoesThroughItsOwnSlot) {
  alignas(32) double a[8] = {}, b[8] = {}, r1[8] = {}, r2[8] = {};
  for (const Row& row : all()) {
    if (!row.built() || row.shape == Shape::pack) continue;
    for (bool strided : {false, true}) {
      for (int level = 0; level < kLevels; ++level) {
        void*& place = table_row(row.index + (strided ? kUnitRows : 0))[level];
        void* const kernel = place;
        place = reinterpret_cast<void*>(&note);
        reached = 0;
        with_call(row, row.entries[strided][level], strided, {.a = a, .b = b, .r1 = r1, .r2 = r2}, [](auto run) { run(1); });
        place = kernel;
        EXPECT_EQ(reached, 1) << row.name << (strided ? "I " : " ") << kLevelNames[level];
      }
    }
  }
}

int32_t seen_form = 0;
void note_form(int64_t, const void*, const void*, const void*, int32_t form) { seen_form = form; }

TEST(Entries, DataMoversPassTheConstantOneAsFifthArgument) {
  double a[4] = {}, y[4] = {};
  for (const Row& row : all()) {
    if (row.shape != Shape::pack || !row.built()) continue;
    for (int level = 0; level < kLevels; ++level) {
      void*& place = table_row(row.index)[level];
      void* const kernel = place;
      place = reinterpret_cast<void*>(&note_form);
      seen_form = 0;
      reinterpret_cast<void (*)(int64_t, const void*, const void*, const void*)>(row.entries[0][level])(1, a, a, y);
      place = kernel;
      EXPECT_EQ(seen_form, 1) << row.name;
    }
  }
}

TEST(Entries, ModeSelectsNoKernel) {
  const uint32_t mode = _zymGetMode();
  const Row& row = *find("sExp");
  const float a[1] = {2};
  float r[1] = {};
  for (uint32_t set : {ZYM_LA, ZYM_HA, ZYM_EP}) {
    _zymSetMode(set);
    for (int level = 0; level < kLevels; ++level) {
      void*& place = table_row(row.index)[level];
      void* const kernel = place;
      place = reinterpret_cast<void*>(&note);
      reached = 0;
      void (*const entries[])(int32_t, const float*, float*) = {_zymsExp_21, _zymsExp, _zymsExp_11};
      for (int i = 0; i < kLevels; ++i) {
        entries[i](1, a, r);
        EXPECT_EQ(reached, i < level ? 0 : 1) << set << " " << level << " " << i;
      }
      place = kernel;
    }
  }
  _zymSetMode(mode);
}

}  // namespace
}  // namespace orvik::rows
