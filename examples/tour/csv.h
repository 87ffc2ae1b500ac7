// Tables of numbers from CSV files: a header row, then one row a line; an empty field or NA is a missing value.
#ifndef ORVIK_EXAMPLES_TOUR_CSV_H
#define ORVIK_EXAMPLES_TOUR_CSV_H

#include <cstddef>
#include <string>
#include <vector>

namespace tour {

struct Column {
  std::string name;
  std::vector<double> values;  // a NaN where the value is missing

  size_t missing() const;
  std::vector<double> present() const;  // without the missing ones, in order
};

struct Table {
  std::string source;  // name of the file
  size_t rows = 0;
  std::vector<Column> columns;
};

// Reads `path`. On a fault returns false and says in `error` where and what, one line such as
// "file.csv:12: 'abc' is not a number (column Wind)".
bool read_csv(const std::string& path, Table* table, std::string* error);

}  // namespace tour

#endif
