// Every built row and level against its reference, over fixed inputs; the records and the page against the kernels.
#include <gtest/gtest.h>

#include <cstdlib>

#include "accuracy/hashes.h"
#include "accuracy/records.h"
#include "orvik/zym.h"
#include "support/approximations.h"

namespace orvik::accuracy {
namespace {

// ORVIK_ACCURACY_INPUTS: how many inputs of each row to try; sanitizers need fewer.
size_t sample_count() {
  const char* text = std::getenv("ORVIK_ACCURACY_INPUTS");
  return text != nullptr ? std::strtoull(text, nullptr, 10) : 16000;
}

std::vector<const rows::Row*> measurable_rows() {
  std::vector<const rows::Row*> made;
  for (const rows::Row& row : rows::all()) {
    if (measurable(row)) made.push_back(&row);
  }
  return made;
}

class AccuracyOf : public testing::TestWithParam<const rows::Row*> {
 protected:
  void SetUp() override { _zymSetMode(ZYM_ERRMODE_NOERR); }
  void TearDown() override { _zymSetMode(ZYM_ERRMODE_DEFAULT); }
};

TEST_P(AccuracyOf, EveryLevelIsWithinItsBound) {
  const rows::Row& row = *GetParam();
  const Worsts worsts = measure_sampled(row, sample_count(), 7);
  for (int k : kernels_of(row)) {
    const Worst& worst = promised(row, k, worsts);
    const Record r = make_record(row, k, measures_of(row).front(), worst, "sampled");
    std::string at;
    for (double x : worst.point.arguments) at += hexadecimal(x) + ' ';
    EXPECT_GE(worst.error, 0) << row.served(k) << ": nothing was judged";
    EXPECT_TRUE(within_bound(row, k, worst))
        << row.served(k) << ": " << r.error << ' ' << r.metric << " at " << at << "order " << worst.point.order
        << ", result " << r.result << ": got " << worst.got << ", want " << worst.wanted;
  }
}

TEST_P(AccuracyOf, StridedResultsAreThoseOfUnitStride) {
  const rows::Row& row = *GetParam();
  for (int k : kernels_of(row)) EXPECT_EQ(hash_kernel(row, k, true), hash_kernel(row, k, false)) << row.served(k);
}

// Whether the kernel's bits were pinned on a processor with other approximations.
bool of_other_processor(const Pins& pins, const rows::Row& row, int k) {
  const auto pin = pins.find(hash_key(row, k));
  return pin != pins.end() && pin->second.approximations != test::hash_approximations();
}

TEST_P(AccuracyOf, RecordedWitnessesStillHaveTheirError) {
  const rows::Row& row = *GetParam();
  static const std::vector<Record> records = read_records();
  const Pins pins = read_pins(row.family);
  for (int k : kernels_of(row)) {
    for (Measure measure : measures_of(row)) {
      const Record* r = find_record(records, row, k, measure);
      ASSERT_NE(r, nullptr) << row.served(k) << ": no record; run `accuracy sampled --rows " << row.name << "`";
      if (r->got.empty()) continue;
      const Record again = judge_again(*r);
      if (!same_statement(again, *r) && of_other_processor(pins, row, k)) {
        GTEST_SKIP() << "recorded on a processor with other approximations of 1/x";
      }
      EXPECT_TRUE(same_statement(again, *r)) << row.served(k) << ": recorded " << r->error << " got " << r->got
                                             << ", now " << again.error << " got " << again.got;
    }
  }
}

TEST_P(AccuracyOf, BitsAreThePinnedOnes) {
  const rows::Row& row = *GetParam();
  const Pins pins = read_pins(row.family);
  for (int k : kernels_of(row)) {
    const auto pinned = pins.find(hash_key(row, k));
    ASSERT_NE(pinned, pins.end()) << "not pinned yet; run `accuracy hashes --rows " << row.name << "`";
    const bool same = pinned->second.hash == hash_kernel(row, k, false);
    if (!same && !exact_row(row) && of_other_processor(pins, row, k)) {
      GTEST_SKIP() << "pinned on a processor with other approximations of 1/x";
    }
    EXPECT_TRUE(same) << row.served(k) << ": results have changed; if that is meant, run `accuracy hashes --rows "
                      << row.name << "` and measure the row again";
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, AccuracyOf, testing::ValuesIn(measurable_rows()),
                         [](const auto& tested) { return std::string(tested.param->name); });

// Of rows that are not built too, so that a new family finds everything in place.
TEST(Accuracy, EveryRowHasAReferenceADomainAndADescription) {
  for (const rows::Row& row : rows::all()) {
    for (const std::string& line : missing_of(row)) ADD_FAILURE() << line;
  }
}

TEST(Accuracy, ThePageIsCurrent) {
  EXPECT_EQ(read_text(page_path()), make_page(read_records())) << "run `accuracy page`";
}

}  // namespace
}  // namespace orvik::accuracy
