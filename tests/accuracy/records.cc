#include "accuracy/records.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace orvik::accuracy {
namespace {

constexpr const char* kHead = "row,kernel,metric,error,result,arguments,order,got,wanted,inputs,method\n";

int kernel_index(const std::string& name) { return name == "LA" ? 0 : name == "HA" ? 1 : 2; }

std::vector<std::string> split(const std::string& line, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(line);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

int argument_count(const rows::Row& row) {
  switch (row.shape) {
    case rows::Shape::binary:
    case rows::Shape::scalar: return 2;
    case rows::Shape::fraction: return 6;
    default: return 1;
  }
}

// The value of a statement, to compare two: larger is worse.
double badness(const Record& r) {
  if (r.error == "wrong") return INFINITY;
  const double value = std::strtod(r.error.c_str(), nullptr);
  return r.metric == "bits" ? -value : value;
}

std::string arguments_text(const rows::Row& row, const Point& p) {
  std::string text;
  for (int i = 0; i < argument_count(row); ++i) text += (i == 0 ? "" : " ") + hexadecimal(p.arguments[i]);
  return text;
}

}  // namespace

std::string data_path(const std::string& what, std::string_view family) {
  return std::string(ORVIK_SOURCE_DIR) + "/tests/accuracy/" + what + '/' + std::string(family) + ".csv";
}
std::string page_path() { return std::string(ORVIK_SOURCE_DIR) + "/docs/accuracy.md"; }

std::string read_text(const std::string& path) {
  std::ifstream file(path);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

void write_text(const std::string& path, const std::string& text) {
  std::ofstream file(path);
  file << text;
  file.close();
  if (!file) {
    std::fprintf(stderr, "cannot write %s\n", path.c_str());
    std::exit(1);
  }
}

std::vector<std::string> measurable_families() {
  std::vector<std::string> made;
  for (const rows::Row& row : rows::all()) {
    const std::string family(row.family);
    if (measurable(row) && std::find(made.begin(), made.end(), family) == made.end()) made.push_back(family);
  }
  return made;
}

std::vector<Record> read_records() {
  std::vector<Record> records;
  std::vector<std::string> lines;
  for (const std::string& family : measurable_families()) {
    for (const std::string& line : split(read_text(data_path("recorded", family)), '\n')) lines.push_back(line);
  }
  for (const std::string& line : lines) {
    const std::vector<std::string> p = split(line, ',');
    if (p.size() != 11 || rows::find(p[0]) == nullptr) continue;
    Record r{.row = p[0], .kernel = p[1], .metric = p[2], .error = p[3], .result = std::atoi(p[4].c_str()), .point = {},
             .got = p[7], .wanted = p[8], .inputs = std::strtoull(p[9].c_str(), nullptr, 10), .method = p[10]};
    const std::vector<std::string> arguments = split(p[5], ' ');
    for (size_t i = 0; i < arguments.size() && i < kMaxArguments; ++i) {
      r.point.arguments[i] = std::strtod(arguments[i].c_str(), nullptr);
    }
    r.point.order = std::atoi(p[6].c_str());
    records.push_back(r);
  }
  return records;
}

void write_records(std::string_view family, std::vector<Record> records) {
  const auto place = [](const Record& r) {
    const rows::Row* row = rows::find(r.row);
    return (row == nullptr ? 1000 : row->index) * 3 + kernel_index(r.kernel);
  };
  std::sort(records.begin(), records.end(), [&](const Record& x, const Record& y) { return place(x) < place(y); });
  std::string text = kHead;
  for (const Record& r : records) {
    const rows::Row* row = rows::find(r.row);
    if (row == nullptr || !measurable(*row) || row->family != family) continue;
    text += r.row + ',' + r.kernel + ',' + r.metric + ',' + r.error + ',' + std::to_string(r.result) + ',' +
            (r.got.empty() ? "" : arguments_text(*row, r.point)) + ',' + std::to_string(r.point.order) + ',' + r.got +
            ',' + r.wanted + ',' + std::to_string(r.inputs) + ',' + r.method + '\n';
  }
  write_text(data_path("recorded", family), text);
}

Record make_record(const rows::Row& row, int kernel, const Worst& worst, const std::string& method) {
  Record r{.row = std::string(row.name), .kernel = rows::kLevelNames[kernel], .metric = "exact", .error = "0",
           .result = 0, .point = {}, .got = "", .wanted = "", .inputs = worst.inputs, .method = method};
  const bool exact = find_reference(row.function)->exact();
  const Metric metric = metric_of(row, kernel);
  if (!exact) r.metric = metric == Metric::ulp ? "ulp" : "bits";
  if (!exact || worst.error != 0) {
    r.error = state_error(worst.error, metric);
    r.result = worst.result;
    r.point = worst.point;
    r.got = hexadecimal(worst.got);
    r.wanted = worst.wanted;
  }
  return r;
}

Record judge_again(const Record& record) {
  const rows::Row& row = *rows::find(record.row);
  const int kernel = kernel_index(record.kernel);
  Record again = make_record(row, kernel, measure_point(row, kernel, record.point, record.result), record.method);
  again.inputs = record.inputs;
  return again;
}

bool same_statement(const Record& x, const Record& y) {
  return x.metric == y.metric && x.error == y.error && x.got == y.got && x.wanted == y.wanted;
}

const Record* find_record(const std::vector<Record>& records, const rows::Row& row, int kernel) {
  for (const Record& r : records) {
    if (r.row == row.name && r.kernel == rows::kLevelNames[kernel]) return &r;
  }
  return nullptr;
}

void merge_record(std::vector<Record>& records, const Record& found) {
  for (Record& old : records) {
    if (old.row != found.row || old.kernel != found.kernel) continue;
    const Record again = judge_again(old);
    const bool holds = same_statement(again, old) && old.metric == found.metric;
    // Runs over the same fixed inputs do not add up: the larger count stands. All inputs are all inputs.
    const std::string method = holds && old.method == "all" ? "all" : found.method;
    const uint64_t inputs = holds ? std::max(old.inputs, found.inputs) : found.inputs;
    Record merged = badness(again) > badness(found) && again.metric == found.metric ? again : found;
    merged.inputs = inputs;
    merged.method = method;
    old = merged;
    return;
  }
  records.push_back(found);
}

std::string make_page(const std::vector<Record>& records) {
  std::string page =
      "# Accuracy of the vector functions\n\n"
      "Generated by `accuracy page` from `tests/accuracy/recorded/`; do not edit. Each line is the worst error that was\n"
      "found of one kernel against MPFR, and the input that has it; a test judges every witness again.\n\n"
      "- ulp: units of the last place of the exact value in the result's format, never below that of the denormal range.\n"
      "  An infinite result counts as 2^128 or 2^1024, exact values beyond that count as it.\n"
      "- bits (level EP): -log2 of the worst relative error; the smallest normal number stands for exact values below it.\n"
      "- exact: every bit as the definition has it, signed zeros included.\n"
      "- inputs: `all` is every 32-bit float; otherwise special values, neighbourhoods of powers of two and of thresholds,\n"
      "  random bit patterns and values of the usual domain, seeds fixed. Specials and NaN classes are always met.\n"
      "- Bounds: HA below 1 ulp, LA below 4 ulp, EP at least 11 bits (32-bit) or 26 bits (64-bit).\n";
  std::string family;
  for (const rows::Row& row : rows::all()) {
    if (!measurable(row)) continue;
    std::string lines;
    for (int k : kernels_of(row)) {
      const Record* r = find_record(records, row, k);
      if (r == nullptr) continue;
      const std::string tried = r->method == "all" ? "all" : std::to_string(r->inputs);
      const std::string error = r->metric == "exact" && r->error == "0" ? "exact" : r->error + ' ' + r->metric;
      std::string where = r->got.empty() ? "" : arguments_text(row, r->point);
      if (row.shape == rows::Shape::bessel) where = std::to_string(r->point.order) + ", " + where;
      if (r->result == 1) where += " (second result)";
      lines += "| `" + r->row + "` | " + row.served(k) + " | " + error + " | " + where + " | " + r->got + " | " + r->wanted +
               " | " + tried + " |\n";
    }
    if (lines.empty()) continue;
    // Rows of a family do not stand together in the table order; a heading tells the kind of the rows instead.
    const std::string kind = std::string(row.single() ? "32-bit floats" : "64-bit floats") +
                             (row.inputs() == 2 || row.shape == rows::Shape::scalar ? ", two arguments" : "") +
                             (row.shape == rows::Shape::bessel ? ", with an order" : "") +
                             (row.outputs() == 2 ? ", two results" : "");
    if (kind != family) {
      page += "\n## " + kind + "\n\n| row | levels | worst error | at | got | exact | inputs |\n|---|---|---|---|---|---|---|\n";
      family = kind;
    }
    page += lines;
  }
  return page;
}

}  // namespace orvik::accuracy
