// Headers whose numbers follow rules. A rule stands in the comment lines that begin with "//:" above a declaration (or,
// of a single number, behind it); README.md has the forms. Reading, working out the values, measuring a polynomial's
// error.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "expression.h"
#include "real.h"

namespace orvik::approx {

// One number as it is stored: its bits at the low end.
struct Stored {
  uint64_t bits = 0;
  bool operator==(const Stored&) const = default;
};

struct Type {
  std::string name;  // float, double, int32_t, uint64_t ...
  int bytes = 0;
  bool floating() const { return name == "float" || name == "double"; }
  Stored round(const Real& x) const;  // throws where an integer type does not hold x
  Real value(Stored s) const;
  std::string text(Stored s) const;  // as C++ writes it, exact
  Stored read(const std::string& text) const;
};

// What a polynomial is said to be: left = right on an interval, within the error.
struct Claim {
  std::string left, right, from, to;
  bool relative = true;
  std::string error;  // "2^-24.7", or "?" where it is still to be measured
};

struct Declaration {
  std::string header, name_space, name;
  Type type;
  std::vector<size_t> sizes;  // none: a single number
  bool outside = false;       // extern: the values stand in a source of their own
  int line = 0;

  // Of the rule.
  std::string fit;                                         // the sollya source that makes the coefficients, or
                                                           // "chebyshev": interpolate() does
  std::vector<Claim> claims;                               // of a polynomial
  std::vector<std::pair<std::string, std::string>> parts;  // of a table: name, expression; "let" names are not stored
  std::vector<bool> stored;
  long first = 0;       // of i
  bool planes = false;  // all first parts, then all second ones
  long precision = 400;

  std::vector<Stored> values;  // those of the header, where they stand there

  size_t count() const;
  bool polynomial() const { return !claims.empty(); }
  bool ruled() const { return !claims.empty() || !parts.empty(); }
  // Rows of one polynomial or of one value of i.
  size_t rows() const;
};

// All declarations of numbers of one file: those with a rule, and the arrays without one.
std::vector<Declaration> read_header(const std::string& path, const std::string& text);

// Everything that is declared; what expressions refer to by name.
inline constexpr const char* kChebyshev = "chebyshev";

class Library {
 public:
  // Reads all headers below the folder that hold a rule, and all files below its part `strict`.
  Library(const std::string& root, const std::string& strict);
  explicit Library(std::vector<Declaration> declarations);

  std::vector<Declaration>& declarations() { return declarations_; }

  // The values by the rule of a table or a number, `extra` bits more precise.
  std::vector<Stored> work_out(const Declaration& d, long extra = 0) const;
  // The coefficients of a polynomial that meets its first claim at the Chebyshev nodes of each row's interval. The left
  // side is linear in p and refers to it at x alone.
  std::vector<Stored> interpolate(const Declaration& d) const;
  // The worst error of one claim of a polynomial with these coefficients; of all rows, where it has several.
  Real worst_error(const Declaration& d, const Claim& claim, const std::vector<Stored>& coefficients) const;

 private:
  const Real* find_value(const Declaration& from, const std::string& name) const;
  const Declaration* find(const Declaration& from, const std::string& name) const;
  const std::vector<Real>* find_polynomial(const Declaration& from, const std::string& name, size_t row) const;
  const std::vector<Stored>& values_of(const Declaration& d) const;
  struct ClaimRow;

  std::vector<Declaration> declarations_;
  mutable std::map<std::string, Real> values_;
  mutable std::map<std::string, std::vector<Real>> polynomials_;
  mutable std::map<std::string, std::vector<Stored>> worked_out_;
};

// An error as headers state it: 2^-k with one decimal of k, towards the larger error; and the value of such a text.
std::string error_text(const Real& error);
Real error_value(const std::string& text);

// File that holds the values of a table that is declared `extern`, from its header: tables.h, kExp2Frac64 ->
// tables/exp2_frac64.cc.
std::string source_path(const Declaration& d);

}  // namespace orvik::approx
