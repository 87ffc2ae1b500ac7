// approx_values ROOT STRICT < COEFFICIENTS: the numbers of all headers below ROOT that have rules, one declaration a line,
// fields separated by tabs: header, name, namespace, type, sizes, "extern" or "inline", source of an extern table, sollya
// source of a fit, worst errors of its claims, values. COEFFICIENTS: lines of a name and the coefficients of new fits.
// Run by tools/approx/approx.
#include <cstdio>
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

void print_line(const Library& library, const Declaration& d) {
  const std::string sizes = joined(d.sizes, [](size_t size) { return std::to_string(size); });
  const std::string errors =
      joined(d.claims, [&](const Claim& claim) { return error_text(library.worst_error(d, claim, d.values)); });
  const std::string values = joined(d.values, [&](Stored s) { return d.type.text(s); });
  std::printf("%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\n", d.header.c_str(), d.name.c_str(), d.name_space.c_str(),
              d.type.name.c_str(), sizes.c_str(), d.outside ? "extern" : "inline", source_path(d).c_str(), d.fit.c_str(),
              errors.c_str(), values.c_str());
}

int run(const std::string& root, const std::string& strict) {
  Library library(root, strict);
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
    if (d.ruled() && d.values.size() != d.count()) {
      throw std::runtime_error(d.header + ": " + d.name + " has " + std::to_string(d.values.size()) + " of " +
                               std::to_string(d.count()) + " values");
    }
  }
  for (const Declaration& d : library.declarations()) {
    if (d.ruled()) print_line(library, d);
  }
  return 0;
}

}  // namespace
}  // namespace orvik::approx

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: approx_values ROOT STRICT < COEFFICIENTS\n");
    return 2;
  }
  try {
    return orvik::approx::run(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
