#include "csv.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <numeric>
#include <string>

namespace {

using tour::Table;

// A file that is gone at the end of the test.
class Csv : public testing::Test {
 protected:
  void TearDown() override { std::remove(path_.c_str()); }
  bool read(const std::string& text) {
    std::ofstream(path_, std::ios::binary) << text;
    return tour::read_csv(path_, &table_, &error_);
  }
  std::string path_ = testing::TempDir() + "orvik_tour_csv_test.csv";
  Table table_;
  std::string error_;
};

TEST_F(Csv, ReadsHeaderAndNumbers) {
  ASSERT_TRUE(read("x,y\n1,2.5\n-3e2,+4\n")) << error_;
  EXPECT_EQ(table_.rows, 2u);
  ASSERT_EQ(table_.columns.size(), 2u);
  EXPECT_EQ(table_.columns[0].name, "x");
  EXPECT_EQ(table_.columns[1].name, "y");
  EXPECT_EQ(table_.columns[0].values, (std::vector<double>{1, -300}));
  EXPECT_EQ(table_.columns[1].values, (std::vector<double>{2.5, 4}));
}

TEST_F(Csv, EmptyFieldsAndNaAreMissing) {
  ASSERT_TRUE(read("x,y,z\n,NA,1\n2,\"\",\n")) << error_;
  EXPECT_EQ(table_.columns[0].missing(), 1u);
  EXPECT_EQ(table_.columns[1].missing(), 2u);
  EXPECT_EQ(table_.columns[2].missing(), 1u);
  EXPECT_TRUE(std::isnan(table_.columns[0].values[0]));
  EXPECT_EQ(table_.columns[0].present(), std::vector<double>{2});
  EXPECT_TRUE(table_.columns[1].present().empty());
}

TEST_F(Csv, QuotedFieldsHoldCommasQuotesAndLineEnds) {
  ASSERT_TRUE(read("\"a,b\",\"say \"\"c\"\"\",\"two\nlines\"\n\"1\",2,\"3\"\n")) << error_;
  EXPECT_EQ(table_.columns[0].name, "a,b");
  EXPECT_EQ(table_.columns[1].name, "say \"c\"");
  EXPECT_EQ(table_.columns[2].name, "two\nlines");
  EXPECT_EQ(table_.columns[2].values, std::vector<double>{3});
}

TEST_F(Csv, AQuotedLineEndCountsAsALine) {
  EXPECT_FALSE(read("\"two\nlines\",b\n1,2\n3\n"));
  EXPECT_EQ(error_, path_ + ":4: 1 fields where the header has 2");
}

TEST_F(Csv, LineEndsOfAllSystemsBlankLinesAndNoFinalLineEnd) {
  ASSERT_TRUE(read("x,y\r\n1,2\r\n\r\n3,4\n\n5,6")) << error_;
  EXPECT_EQ(table_.columns[1].values, (std::vector<double>{2, 4, 6}));
}

TEST_F(Csv, BlanksAroundFieldsAndAByteOrderMarkAreSkipped) {
  ASSERT_TRUE(read("\xEF\xBB\xBF x ,\ty\n 1 , \"2\" \n")) << error_;
  EXPECT_EQ(table_.columns[0].name, "x");
  EXPECT_EQ(table_.columns[1].name, "y");
  EXPECT_EQ(table_.columns[1].values, std::vector<double>{2});
}

TEST_F(Csv, InfinitiesAreNumbersNansAreNot) {
  ASSERT_TRUE(read("x\ninf\n-inf\n")) << error_;
  EXPECT_EQ(table_.columns[0].values[0], INFINITY);
  EXPECT_FALSE(read("x\n1\nnan\n"));
}

TEST_F(Csv, FaultsSayFileLineAndColumn) {
  EXPECT_FALSE(read("x,y\n1,2\n3,4,5\n"));
  EXPECT_EQ(error_, path_ + ":3: 3 fields where the header has 2");
  EXPECT_FALSE(read("x,y\n1,2\n3,1.5m\n"));
  EXPECT_EQ(error_, path_ + ":3: '1.5m' is not a number (column y)");
  EXPECT_FALSE(read("x,y\n1,\"2\n"));
  EXPECT_EQ(error_, path_ + ":2: a quoted field has no end");
  EXPECT_FALSE(read("x,y\n1,\"2\"3\n"));
  EXPECT_EQ(error_, path_ + ":2: text behind the closing quote of a field");
  EXPECT_FALSE(read(""));
  EXPECT_EQ(error_, path_ + ": empty file, no header row");
  EXPECT_FALSE(read("x,y\n"));
  EXPECT_EQ(error_, path_ + ": no row behind the header");
}

TEST_F(Csv, LongFieldsAreCutInTheMessage) {
  EXPECT_FALSE(read("x\n" + std::string(1000, 'w') + "\n"));
  EXPECT_EQ(error_, path_ + ":2: '" + std::string(40, 'w') + "...' is not a number (column x)");
}

TEST_F(Csv, NumbersOutsideTheRangeAreRefused) {
  EXPECT_FALSE(read("x\n1e999\n"));
  EXPECT_EQ(error_, path_ + ":2: '1e999' is not a number (column x)");
}

TEST(CsvFiles, UnreadableFilesAreSaidToBeSo) {
  Table table;
  std::string error;
  EXPECT_FALSE(tour::read_csv("/no/such/file.csv", &table, &error));
  EXPECT_EQ(error, "/no/such/file.csv: cannot be read");
  EXPECT_FALSE(tour::read_csv("/", &table, &error));
  EXPECT_EQ(error, "/: cannot be read");
}

TEST(CsvFiles, AirQualityHasTheKnownShapeAndMissingValues) {
  Table table;
  std::string error;
  ASSERT_TRUE(tour::read_csv(ORVIK_EXAMPLES_DATA "/airquality.csv", &table, &error)) << error;
  EXPECT_EQ(table.rows, 153u);
  ASSERT_EQ(table.columns.size(), 6u);
  EXPECT_EQ(table.columns[0].name, "Ozone");
  EXPECT_EQ(table.columns[0].missing(), 37u);
  EXPECT_EQ(table.columns[1].name, "Solar.R");
  EXPECT_EQ(table.columns[1].missing(), 7u);
  for (size_t c = 2; c < 6; ++c) EXPECT_EQ(table.columns[c].missing(), 0u);
}

TEST(CsvFiles, NileHasTheKnownMean) {
  Table table;
  std::string error;
  ASSERT_TRUE(tour::read_csv(ORVIK_EXAMPLES_DATA "/nile.csv", &table, &error)) << error;
  ASSERT_EQ(table.columns.size(), 2u);
  const auto& flow = table.columns[1].values;
  ASSERT_EQ(flow.size(), 100u);
  EXPECT_DOUBLE_EQ(std::accumulate(flow.begin(), flow.end(), 0.0) / 100, 919.35);
}

}  // namespace
