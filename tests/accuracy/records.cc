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

int argument_count(const rows::Row& row) {  // parts, scalars included
  const int scalars = row.shape == rows::Shape::fraction ? 4 : row.shape == rows::Shape::scalar ? row.input_parts : 0;
  return row.inputs() * row.input_parts + scalars;
}

// The value of a statement, to compare two: larger is worse.
double badness(const Record& r) {
  if (r.error == "wrong") return INFINITY;
  const double value = std::strtod(r.error.c_str(), nullptr);
  return r.metric.starts_with("bits") ? -value : value;
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
    return ((row == nullptr ? 1000 : row->index) * 3 + kernel_index(r.kernel)) * 2 + (measure_of(r) == Measure::norm ? 0 : 1);
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

Record make_record(const rows::Row& row, int kernel, Measure measure, const Worst& worst, const std::string& method) {
  Record r{.row = std::string(row.name), .kernel = rows::kLevelNames[kernel], .metric = "exact", .error = "0",
           .result = 0, .point = {}, .got = "", .wanted = "", .inputs = worst.inputs, .method = method};
  const bool exact = exact_row(row);
  const Metric metric = metric_of(row, kernel);
  if (!exact) r.metric = std::string(metric == Metric::ulp ? "ulp" : "bits") + (measure == Measure::norm ? " norm" : "");
  if (!exact || worst.error != 0) {
    r.error = state_error(worst.error, metric);
    r.result = worst.result;
    r.point = worst.point;
    r.got = worst.got;
    r.wanted = worst.wanted;
  }
  return r;
}

Measure measure_of(const Record& record) { return record.metric.ends_with(" norm") ? Measure::norm : Measure::component; }

Record judge_again(const Record& record) {
  const rows::Row& row = *rows::find(record.row);
  const int kernel = kernel_index(record.kernel);
  const Measure measure = measure_of(record);
  Record again =
      make_record(row, kernel, measure, measure_point(row, kernel, record.point, record.result, measure), record.method);
  again.inputs = record.inputs;
  return again;
}

bool same_statement(const Record& x, const Record& y) {
  return x.metric == y.metric && x.error == y.error && x.got == y.got && x.wanted == y.wanted;
}

const Record* find_record(const std::vector<Record>& records, const rows::Row& row, int kernel, Measure measure) {
  for (const Record& r : records) {
    if (r.row == row.name && r.kernel == rows::kLevelNames[kernel] && measure_of(r) == measure) return &r;
  }
  return nullptr;
}

void merge_record(std::vector<Record>& records, const Record& found) {
  for (Record& old : records) {
    if (old.row != found.row || old.kernel != found.kernel || measure_of(old) != measure_of(found)) continue;
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

namespace {

constexpr const char* kNormText =
    "\nComplex results: `norm` is the length of the difference against the length of the exact value. Where a row has two lines\n"
    "its bound holds for the norm, and the error of the worse part by itself stands beside it (`wrong`: an exact zero was missed).\n";

std::string page_line(const std::vector<Record>& records, const rows::Row& row, int k, Measure measure) {
  const Record* r = find_record(records, row, k, measure);
  if (r == nullptr) return {};
  const std::string tried = r->method == "all" ? "all" : std::to_string(r->inputs);
  const std::string error = r->metric == "exact" && r->error == "0" ? "exact" : r->error + ' ' + r->metric;
  std::string where = r->got.empty() ? "" : arguments_text(row, r->point);
  if (row.shape == rows::Shape::bessel) where = std::to_string(r->point.order) + ", " + where;
  if (r->result == 1) where += row.output_parts == 2 ? " (imaginary part)" : " (second result)";
  return "| `" + r->row + "` | " + row.served(k) + " | " + error + " | " + where + " | " + r->got + " | " + r->wanted + " | " +
         tried + " |\n";
}

}  // namespace

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
  bool complex = false;
  for (const rows::Row& row : rows::all()) {
    if (!measurable(row)) continue;
    std::string lines;
    for (int k : kernels_of(row)) {
      for (Measure measure : measures_of(row)) lines += page_line(records, row, k, measure);
    }
    if (lines.empty()) continue;
    // Rows of a family do not stand together in the table order; a heading tells the kind of the rows instead.
    if (row.complex() && !complex) page += kNormText;
    complex |= row.complex();
    const std::string kind = std::string(row.complex() ? "complex, " : "") + (row.single() ? "32-bit floats" : "64-bit floats") +
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
