// The built tables, coefficients and constants, one test each, against the rules in their headers.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "rules.h"
#include "symbols.h"

namespace orvik::approx {
namespace {

Library& library() {
  static Library made(std::string(ORVIK_SOURCE_DIR) + "/src", "zym/kernels");
  return made;
}

const Declaration* declaration_of(const Symbol& symbol) {
  for (const Declaration& d : library().declarations()) {
    if (d.header == symbol.header && d.name == symbol.name) return &d;
  }
  return nullptr;
}

std::vector<Stored> read_built(const Symbol& symbol, const Declaration& d) {
  std::vector<Stored> values(d.count());
  for (size_t i = 0; i < values.size(); ++i) {
    std::memcpy(&values[i].bits, static_cast<const char*>(symbol.address) + i * static_cast<size_t>(d.type.bytes),
                static_cast<size_t>(d.type.bytes));
  }
  return values;
}

class Built : public testing::TestWithParam<size_t> {};

TEST_P(Built, follows_its_rule) {
  const Symbol& symbol = kSymbols[GetParam()];
  const Declaration* d = declaration_of(symbol);
  ASSERT_NE(d, nullptr) << symbol.name << " has no rule any more: build again";
  ASSERT_EQ(symbol.size, d->count() * static_cast<size_t>(d->type.bytes));
  const std::vector<Stored> built = read_built(symbol, *d);
  if (d->polynomial()) {
    for (const Claim& claim : d->claims) {
      const Real measured = library().worst_error(*d, claim, built);
      const Real stated = error_value(claim.error);
      EXPECT_FALSE(stated < measured) << "worst error " << error_text(measured) << ", the header says " << claim.error;
      if (mpfr_zero_p(stated.get()) != 0) continue;  // exact, and found so
      EXPECT_LT(mpfr_get_d((stated / measured).get(), MPFR_RNDU), 1.0718) << "stated more than 2^0.1 too large";
    }
  } else {
    // More precise than what wrote the files: no value hangs on the precision.
    const std::vector<Stored> wanted = library().work_out(*d, 200);
    for (size_t i = 0; i < built.size(); ++i) {
      ASSERT_EQ(d->type.text(built[i]), d->type.text(wanted[i])) << symbol.name << ", value " << i;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(all, Built, testing::Range(size_t{0}, kSymbolCount), [](const auto& info) {
  return std::string(kSymbols[info.param].name) + "_" + std::to_string(info.param);
});

TEST(Rules, every_array_of_the_kernels_has_one) {
  size_t ruled = 0;
  for (const Declaration& d : library().declarations()) {
    EXPECT_TRUE(d.ruled()) << d.header << ':' << d.line << ": " << d.name << " has no rule (tools/approx/README.md)";
    ruled += d.ruled() ? 1 : 0;
  }
  EXPECT_EQ(ruled, kSymbolCount);
  EXPECT_GT(ruled, 0U);
}

}  // namespace
}  // namespace orvik::approx
