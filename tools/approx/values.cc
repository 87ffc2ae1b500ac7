// approx_values ROOT STRICT [list] < COEFFICIENTS: the numbers of all headers below ROOT that have rules, one
// declaration a line, fields separated by tabs: header, name, namespace, type, sizes, "extern" or "inline", source of
// an extern table, sollya source of a fit, worst errors of its claims, values (these two not with `list`).
// COEFFICIENTS: lines of a name and the coefficients of new fits. Run by tools/approx/approx.
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <sstream>

#include "rules.h"

namespace orvik::approx {
namespace {

// The texts of a range with blanks between them.
template <class Range, class Text>
std::string joined(const Range& range, Text text) {
  std::string made;
  for (const auto& one : range) {
    if (!made.empty()) made += ' ';
    made += text(one);
  }
  return made;
}

void print_line(const Library& library, const Declaration& d, bool list) {
  const std::string sizes = joined(d.sizes, [](size_t size) { return std::to_string(size); });
  std::string errors, values;
  if (!list) {
    errors = joined(d.claims, [&](const Claim& claim) { return error_text(library.worst_error(d, claim, d.values)); });
    values = joined(d.values, [&](Stored s) { return d.type.text(s); });
  }
  std::printf("%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\n", d.header.c_str(), d.name.c_str(), d.name_space.c_str(),
              d.type.name.c_str(), sizes.c_str(), d.outside ? "extern" : "inline", source_path(d).c_str(),
              d.fit.c_str(), errors.c_str(), values.c_str());
}

// Values as the rules have them, in the order of the headers: later rules refer to earlier numbers.
void fill_in(Library& library) {
  std::map<std::string, std::vector<std::string>> fitted;
  for (std::string line; std::getline(std::cin, line);) {
    std::istringstream words(line);
    std::string name;
    words >> name;
    for (std::string word; words >> word;) fitted[name].push_back(word);
  }
  for (Declaration& d : library.declarations()) {
    if (const auto it = fitted.find(d.name); it != fitted.end() && !d.fit.empty()) {
      d.values.clear();
      for (const std::string& word : it->second) d.values.push_back(d.type.read(word));
    }
    if (!d.polynomial() && d.ruled()) d.values = library.work_out(d);
    if (d.polynomial() && d.fit == kChebyshev) d.values = library.interpolate(d);
    if (d.ruled() && d.values.size() != d.count()) {
      throw std::runtime_error(d.header + ": " + d.name + " has " + std::to_string(d.values.size()) + " of " +
                               std::to_string(d.count()) + " values");
    }
  }
}

void run(const std::string& root, const std::string& strict, bool list) {
  Library library(root, strict);
  if (!list) fill_in(library);
  for (const Declaration& d : library.declarations()) {
    if (d.ruled()) print_line(library, d, list);
  }
}

}  // namespace
}  // namespace orvik::approx

int main(int argc, char** argv) {
  const bool list = argc == 4 && std::strcmp(argv[3], "list") == 0;
  if (argc != 3 && !list) {
    std::fprintf(stderr, "usage: approx_values ROOT STRICT [list] < COEFFICIENTS\n");
    return 2;
  }
  try {
    orvik::approx::run(argv[1], argv[2], list);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
