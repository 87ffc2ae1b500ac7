// recorded/FAMILY.csv: the worst error found of every kernel of a family, with its witness.
#pragma once

#include <string>
#include <vector>

#include "accuracy/measure.h"

namespace orvik::accuracy {

struct Record {
  std::string row;
  std::string kernel;  // LA, HA, EP
  std::string metric;  // ulp, bits, exact; ulp norm, bits norm
  std::string error;   // as state_error gives it; 0 for exact
  int result = 0;
  Point point;
  std::string got, wanted;
  uint64_t inputs = 0;
  std::string method;  // all, random, sampled
};

// Recorded files (what: recorded, hashes), and the generated page.
std::string data_path(const std::string& what, std::string_view family);
std::string page_path();
std::vector<std::string> measurable_families();

// Of all families.
std::vector<Record> read_records();
// The file of one family.
void write_records(std::string_view family, std::vector<Record> records);

Record make_record(const rows::Row& row, int kernel, Measure measure, const Worst& worst, const std::string& method);
Measure measure_of(const Record& record);

// Judges the record's witness again with the kernels as they are. Its statement still holds if the new record's error, got
// and wanted are the same.
Record judge_again(const Record& record);
bool same_statement(const Record& x, const Record& y);

// Takes a finding into the records: the worse of old and new, the old one judged again first. Counts add up as long as
// the old statement still holds; where it does not, the kernel has changed and the old count is void.
void merge_record(std::vector<Record>& records, const Record& found);

const Record* find_record(const std::vector<Record>& records, const rows::Row& row, int kernel, Measure measure);

// docs/accuracy.md.
std::string make_page(const std::vector<Record>& records);

std::string read_text(const std::string& path);
void write_text(const std::string& path, const std::string& text);

}  // namespace orvik::accuracy
