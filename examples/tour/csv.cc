#include "csv.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>
#include <sstream>
#include <string_view>
#include <system_error>

#include <sys/stat.h>

namespace tour {
namespace {

// Splits text into records of fields (RFC 4180: quoted fields may hold commas, line ends and doubled quotes).
class Records {
 public:
  explicit Records(std::string_view text) : text_(text) {
    if (text_.substr(0, 3) == "\xEF\xBB\xBF") at_ = 3;  // byte order mark
  }

  // The next record that is not an empty line; false at the end or at a fault.
  bool next(std::vector<std::string>* fields) {
    while (at_ < text_.size() && skip_line_end()) {
    }
    if (at_ == text_.size()) return false;
    first_line_ = line_;
    fields->clear();
    for (;;) {
      if (!field(&fields->emplace_back())) return false;
      if (at_ == text_.size() || skip_line_end()) return true;
      ++at_;  // the comma
    }
  }

  size_t line() const { return first_line_; }          // where the record starts
  const std::string& fault() const { return fault_; }  // empty: none

 private:
  bool skip_line_end() {
    const size_t length = text_.substr(at_, 2) == "\r\n" ? 2 : text_[at_] == '\n' || text_[at_] == '\r' ? 1 : 0;
    at_ += length;
    line_ += length != 0;
    return length != 0;
  }

  bool at_field_end() const {
    return at_ == text_.size() || text_[at_] == ',' || text_[at_] == '\n' || text_[at_] == '\r';
  }

  bool field(std::string* field) {
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t')) ++at_;
    if (at_ < text_.size() && text_[at_] == '"') return quoted_field(field);
    const size_t start = at_;
    while (!at_field_end()) ++at_;
    size_t end = at_;
    while (end > start && (text_[end - 1] == ' ' || text_[end - 1] == '\t')) --end;
    *field = text_.substr(start, end - start);
    return true;
  }

  bool quoted_field(std::string* field) {
    for (++at_;; ++at_) {
      if (at_ == text_.size()) return set_fault("a quoted field has no end");
      if (text_[at_] == '"') {
        if (text_.substr(at_, 2) != "\"\"") break;
        ++at_;
      }
      line_ += text_[at_] == '\n';
      *field += text_[at_];
    }
    ++at_;
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t')) ++at_;
    return at_field_end() || set_fault("text behind the closing quote of a field");
  }

  bool set_fault(const char* what) {
    fault_ = what;
    return false;
  }

  std::string_view text_;
  size_t at_ = 0;
  size_t line_ = 1;
  size_t first_line_ = 1;
  std::string fault_;
};

bool is_missing(const std::string& field) { return field.empty() || field == "NA"; }

// For a message of one line, whatever the field holds.
std::string quoted(const std::string& text) {
  constexpr size_t kShown = 40;
  std::string shown = text.substr(0, kShown);
  for (char& c : shown) {
    if (static_cast<unsigned char>(c) < ' ' || c == 127) c = '?';
  }
  return "'" + shown + (text.size() > kShown ? "...'" : "'");
}

// Decimal numbers whatever the locale, infinities included; a written NaN is no number.
bool to_number(std::string_view text, double* value) {
  if (text.substr(0, 1) == "+") text.remove_prefix(1);
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), *value);
  return fault == std::errc() && end == text.data() + text.size() && !std::isnan(*value);
}

bool read_file(const std::string& path, std::string* text) {
  struct stat status;
  if (stat(path.c_str(), &status) != 0 || S_ISDIR(status.st_mode))
    return false;  // a directory opens, and reads as empty
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  if (!file || (file.peek() != EOF && !(content << file.rdbuf()))) return false;
  *text = content.str();
  return true;
}

}  // namespace

size_t Column::missing() const { return values.size() - present().size(); }

std::vector<double> Column::present() const {
  std::vector<double> kept;
  for (double value : values) {
    if (!std::isnan(value)) kept.push_back(value);
  }
  return kept;
}

bool read_csv(const std::string& path, Table* table, std::string* error) {
  std::string text;
  if (!read_file(path, &text)) {
    *error = path + ": cannot be read";
    return false;
  }
  Records records(text);
  const auto fault = [&](const std::string& what) {
    *error = path + ":" + std::to_string(records.line()) + ": " + what;
    return false;
  };

  *table = Table{};
  table->source = path;
  std::vector<std::string> fields;
  if (!records.next(&fields)) {
    if (!records.fault().empty()) return fault(records.fault());
    *error = path + ": empty file, no header row";
    return false;
  }
  for (const std::string& field : fields) {
    if (field.empty()) return fault("a column without a name in the header row");
    table->columns.push_back({field, {}});
  }
  while (records.next(&fields)) {
    if (fields.size() != table->columns.size()) {
      return fault(std::to_string(fields.size()) + " fields where the header has " +
                   std::to_string(table->columns.size()));
    }
    for (size_t c = 0; c < fields.size(); ++c) {
      double value = std::numeric_limits<double>::quiet_NaN();
      if (!is_missing(fields[c]) && !to_number(fields[c], &value)) {
        return fault(quoted(fields[c]) + " is not a number (column " + table->columns[c].name + ")");
      }
      table->columns[c].values.push_back(value);
    }
    ++table->rows;
  }
  if (!records.fault().empty()) return fault(records.fault());
  if (table->rows == 0) {
    *error = path + ": no row behind the header";
    return false;
  }
  return true;
}

}  // namespace tour
