#include "rules.h"

#include <algorithm>
#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>

namespace orvik::approx {
namespace {

[[noreturn]] void fail(const std::string& header, int line, const std::string& why) {
  throw std::runtime_error(header + ":" + std::to_string(line) + ": " + why);
}

std::string strip(std::string s) {
  const auto space = [](unsigned char c) { return std::isspace(c) != 0; };
  while (!s.empty() && space(s.back())) s.pop_back();
  size_t i = 0;
  while (i < s.size() && space(s[i])) ++i;
  return s.substr(i);
}

const std::regex kDeclaration(
    R"(^(?:alignas\(\d+\) )?(extern const|inline constexpr|constexpr|static constexpr|const) )"
    R"((float|double|u?int\d+_t|int) (k\w+)((?:\[[^\]]*\])*)\s*(=|;|\{))");

// An array in any other place, such as a struct or a function: it can have no rule.
const std::regex kOtherArray(R"(\b(?:const|constexpr) (?:float|double|u?int\d+_t) (\w+)\s*\[)");

// Adds one line of a rule.
void add_rule(Declaration& d, const std::string& rule) {
  std::smatch m;
  static const std::regex kClaim(R"((.*\S)\s*=\s*(.*\S) on \[(.*),(.*)\], (relative|absolute) error (\S+))");
  static const std::regex kOption(R"((i from|precision|fit) (\S+))");
  static const std::regex kPart(R"((let )?(\w*)\s*=\s*(.*))");
  if (std::regex_match(rule, m, kClaim)) {
    d.claims.push_back({m[1], m[2], m[3], m[4], m[5] == "relative", m[6]});
  } else if (rule == "planes") {
    d.planes = true;
  } else if (std::regex_match(rule, m, kOption)) {
    if (m[1] == "fit") {
      d.fit = m[2];
    } else {
      (m[1] == "precision" ? d.precision : d.first) = std::strtol(m[2].str().c_str(), nullptr, 10);
    }
  } else if (std::regex_match(rule, m, kPart)) {
    d.parts.emplace_back(m[2], m[3]);
    d.stored.push_back(!m[1].matched);
  } else {
    fail(d.header, d.line, "no rule: " + rule);
  }
}

Declaration start(const std::smatch& m, const std::string& header, const std::string& name_space, int line) {
  Declaration d;
  d.header = header;
  d.name_space = name_space;
  d.name = m[3];
  d.line = line;
  d.outside = m[1] == "extern const";
  d.type.name = m[2];
  static const std::regex kBits(R"(u?int(\d+)_t)");
  std::smatch bits;
  const std::string type = m[2];
  d.type.bytes = std::regex_match(type, bits, kBits) ? std::atoi(bits[1].str().c_str()) / 8 : type == "double" ? 8 : 4;
  static const std::regex kSize(R"(\[([^\]]*)\])");
  const std::string sizes = m[4];
  for (std::sregex_iterator i(sizes.begin(), sizes.end(), kSize), end; i != end; ++i) {
    d.sizes.push_back(std::strtoul((*i)[1].str().c_str(), nullptr, 10));
  }
  return d;
}

// The numbers between the braces of "{...}", or the one number.
void read_values(Declaration& d, const std::string& text) {
  static const std::regex kNumber(
      R"([-+]?(0x[0-9a-fA-F.]+(p[-+]?\d+)?|\d[\d.]*(e[-+]?\d+)?|\.\d+(e[-+]?\d+)?)[fuUlL]*)");
  for (std::sregex_iterator i(text.begin(), text.end(), kNumber), end; i != end; ++i) {
    d.values.push_back(d.type.read(i->str()));
  }
  if (d.sizes.size() == 1 && d.sizes[0] == 0) d.sizes[0] = d.values.size();
}

// The largest of a function on [-pi/2, pi/2]: of a grid, and of a search about each of its peaks.
template <class Function>
Real largest_error(Function error_at, int points, int refinements) {
  std::vector<Real> errors;
  const auto place = [&](int k) {
    return (2.0 * k / (points - 1) - 1) * M_PI_2 + (k > 0 && k < points - 1 ? 1e-4 : 0);
  };
  for (int k = 0; k < points; ++k) errors.push_back(error_at(place(k)));
  Real worst;
  for (int k = 0; k < points; ++k) {
    const bool top = (k == 0 || !(errors[k] < errors[k - 1])) && (k == points - 1 || !(errors[k] < errors[k + 1]));
    if (!top) continue;
    // Golden section between the neighbours.
    double low = place(std::max(k - 1, 0));
    double high = place(std::min(k + 1, points - 1));
    Real best = errors[k];
    const double ratio = (std::sqrt(5.0) - 1) / 2;
    for (int step = 0; step < refinements; ++step) {
      const double a = high - ratio * (high - low);
      const double b = low + ratio * (high - low);
      const Real at_a = error_at(a);
      const Real at_b = error_at(b);
      if (best < at_a) best = at_a;
      if (best < at_b) best = at_b;
      if (at_a < at_b) {
        low = a;
      } else {
        high = b;
      }
    }
    if (worst < best) worst = best;
  }
  return worst;
}

}  // namespace

// --- numbers --------------------------------------------------------------------------------------------------------

Stored Type::round(const Real& x) const {
  if (name == "float") {
    const float f = mpfr_get_flt(x.get(), MPFR_RNDN);
    return {f == 0 ? 0 : std::bit_cast<uint32_t>(f)};
  }
  if (name == "double") {
    const double f = mpfr_get_d(x.get(), MPFR_RNDN);
    return {f == 0 ? 0 : std::bit_cast<uint64_t>(f)};
  }
  const bool sign = name[0] != 'u';
  const Real limit = Real(std::ldexp(1.0, 8 * bytes - (sign ? 1 : 0)));
  const Real lowest = sign ? -limit : Real(0.0);
  if (mpfr_integer_p(x.get()) == 0 || x < lowest || !(x < limit)) {
    throw std::runtime_error("no value of " + name + ": " + std::to_string(mpfr_get_d(x.get(), MPFR_RNDN)));
  }
  const uint64_t bits = sign ? static_cast<uint64_t>(mpfr_get_sj(x.get(), MPFR_RNDN)) : mpfr_get_uj(x.get(), MPFR_RNDN);
  return {bytes == 8 ? bits : bits & ((uint64_t{1} << (8 * bytes)) - 1)};
}

Real Type::value(Stored s) const {
  if (name == "float") return static_cast<double>(std::bit_cast<float>(static_cast<uint32_t>(s.bits)));
  if (name == "double") return std::bit_cast<double>(s.bits);
  const Precision exact(64);
  Real r;
  if (name[0] == 'u') {
    mpfr_set_uj(r.get(), s.bits, MPFR_RNDN);
  } else {
    const int unused = 64 - 8 * bytes;
    mpfr_set_sj(r.get(), static_cast<int64_t>(s.bits << unused) >> unused, MPFR_RNDN);
  }
  return r;
}

std::string Type::text(Stored s) const {
  char text[64];
  if (!floating()) {
    std::snprintf(text, sizeof text, "%016" PRIx64, s.bits);
    return "0x" + std::string(text).substr(16 - 2 * static_cast<size_t>(bytes));
  }
  const bool single = name == "float";
  const double x = single ? std::bit_cast<float>(static_cast<uint32_t>(s.bits)) : std::bit_cast<double>(s.bits);
  if (s.bits == 0) return single ? "0.0f" : "0.0";
  std::snprintf(text, sizeof text, "%a", x);
  std::string made = text;
  if (const size_t plus = made.find('+'); plus != std::string::npos) made.erase(plus, 1);
  return single ? made + 'f' : made;
}

Stored Type::read(const std::string& text) const {
  if (name == "float") return {std::bit_cast<uint32_t>(std::strtof(text.c_str(), nullptr))};
  if (name == "double") return {std::bit_cast<uint64_t>(std::strtod(text.c_str(), nullptr))};
  const uint64_t bits = text[0] == '-' ? static_cast<uint64_t>(std::strtoll(text.c_str(), nullptr, 0))
                                       : std::strtoull(text.c_str(), nullptr, 0);
  return {bytes == 8 ? bits : bits & ((uint64_t{1} << (8 * bytes)) - 1)};
}

size_t Declaration::count() const {
  size_t n = 1;
  for (const size_t size : sizes) n *= size;
  return n;
}

size_t Declaration::rows() const {
  if (sizes.empty()) return 1;
  if (polynomial()) return sizes.size() == 1 ? 1 : count() / sizes.back();
  const auto parts_stored = static_cast<size_t>(std::count(stored.begin(), stored.end(), true));
  return count() / std::max<size_t>(parts_stored, 1);
}

std::string error_text(const Real& error) {
  if (mpfr_zero_p(error.get()) != 0) return "0";  // exact
  const double tenths = std::floor(-10 * mpfr_get_d(apply(mpfr_log2, error.get()).get(), MPFR_RNDU));
  char text[32];
  std::snprintf(text, sizeof text, "2^-%.1f", tenths / 10);
  return text;
}

Real error_value(const std::string& text) { return Expression(text)(Names{}); }

std::string source_path(const Declaration& d) {
  std::string name;
  for (size_t i = 1; i < d.name.size(); ++i) {
    const char c = d.name[i];
    const bool upper = std::isupper(static_cast<unsigned char>(c)) != 0;
    if (upper && i > 1 && std::isupper(static_cast<unsigned char>(d.name[i - 1])) == 0) name += '_';
    name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return d.header.substr(0, d.header.size() - 2) + '/' + name + ".cc";
}

// --- reading --------------------------------------------------------------------------------------------------------

std::vector<Declaration> read_header(const std::string& path, const std::string& text) {
  std::vector<Declaration> found;
  std::vector<std::string> rule;
  std::vector<std::string> spaces;
  std::istringstream lines(text);
  int number = 0;
  static const std::regex kSpace(R"(^namespace ([\w:]+) \{)");
  for (std::string line; std::getline(lines, line);) {
    ++number;
    std::smatch m;
    if (line.rfind("//:", 0) == 0) {
      const bool goes_on = line.rfind("//:  ", 0) == 0 && !rule.empty();  // two blanks: the line above goes on
      if (goes_on) {
        rule.back() += ' ' + strip(line.substr(3));
      } else {
        rule.push_back(strip(line.substr(3)));
      }
      continue;
    }
    if (std::regex_search(line, m, kSpace)) spaces.push_back(m[1]);
    if (line.rfind("}  // namespace", 0) == 0 && !spaces.empty()) spaces.pop_back();
    if (!std::regex_search(line, m, kDeclaration)) {
      if (!rule.empty()) fail(path, number, "a rule above no declaration of numbers");
      if (std::regex_search(line, m, kOtherArray)) {
        Declaration other;
        other.header = path;
        other.name = m[1];
        other.line = number;
        found.push_back(other);
      }
      continue;
    }
    std::string name_space;
    for (const std::string& space : spaces) name_space += space + "::";
    Declaration d = start(m, path, name_space, number);
    std::string statement = line.substr(static_cast<size_t>(m.length()));
    for (; line.find(';') == std::string::npos && std::getline(lines, line); ++number) statement += ' ' + line;
    if (const size_t behind = line.find("//:"); behind != std::string::npos) {
      rule.push_back(strip(line.substr(behind + 3)));
    }
    if (rule.empty() && d.sizes.empty()) continue;
    if (!rule.empty() && !d.outside) read_values(d, statement.substr(0, statement.find(';')));
    for (const std::string& one : rule) add_rule(d, one);
    rule.clear();
    if (d.polynomial() && !d.parts.empty()) fail(path, number, d.name + " is a polynomial or a table");
    if (d.ruled() && d.count() == 0) fail(path, number, d.name + ": its sizes are numbers");
    found.push_back(d);
  }
  return found;
}

Library::Library(const std::string& root, const std::string& strict) {
  namespace fs = std::filesystem;
  std::vector<fs::path> paths;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const fs::path& path = entry.path();
    if (entry.is_regular_file() && (path.extension() == ".h" || path.extension() == ".cc")) paths.push_back(path);
  }
  // Headers first: they declare what sources hold.
  std::sort(paths.begin(), paths.end(), [](const fs::path& x, const fs::path& y) {
    return x.extension() != y.extension() ? x.extension() == ".h" : x < y;
  });
  std::set<std::string> written;
  for (const fs::path& path : paths) {
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    const std::string relative = fs::relative(path, root).generic_string();
    const bool header = path.extension() == ".h";
    if (written.contains(relative)) continue;
    if (relative.rfind(strict, 0) != 0 && (!header || text.str().find("//: ") == std::string::npos)) continue;
    for (Declaration& d : read_header(relative, text.str())) {
      if (d.ruled() && !header) fail(relative, d.line, "rules stand in headers");
      if (d.ruled() && d.outside) written.insert(source_path(d));
      declarations_.push_back(std::move(d));
    }
  }
}

Library::Library(std::vector<Declaration> declarations) : declarations_(std::move(declarations)) {}

// --- values ---------------------------------------------------------------------------------------------------------

// The one of the same header, or the only one.
const Declaration* Library::find(const Declaration& from, const std::string& name) const {
  const Declaration* found = nullptr;
  for (const Declaration& d : declarations_) {
    if (d.name != name) continue;
    if (d.header == from.header) return &d;
    if (found != nullptr) throw std::runtime_error(name + " stands in several headers");
    found = &d;
  }
  return found;
}

const Real* Library::find_value(const Declaration& from, const std::string& name) const {
  const Declaration* d = find(from, name);
  if (d == nullptr || !d->sizes.empty() || d->values.size() != 1) return nullptr;
  return &(values_[d->header + ' ' + name] = d->type.value(d->values[0]));
}

std::vector<Stored> Library::work_out(const Declaration& d, long extra) const {
  const Precision precision(d.precision + extra);
  std::vector<Expression> parts;
  for (const auto& [name, text] : d.parts) parts.emplace_back(text);
  const size_t rows = d.rows();
  const auto width = static_cast<size_t>(std::count(d.stored.begin(), d.stored.end(), true));
  if (rows * width != d.count()) throw std::runtime_error(d.name + ": its sizes do not fit the rule");
  std::vector<Stored> values(d.count());
  for (size_t row = 0; row < rows; ++row) {
    std::map<std::string, Real> local;
    local["i"] = Real(static_cast<double>(static_cast<long>(row) + d.first));
    const Names names{.value =
                          [&](const std::string& name) {
                            const auto it = local.find(name);
                            return it != local.end() ? &it->second : find_value(d, name);
                          },
                      .polynomial = {}};
    size_t column = 0;
    for (size_t i = 0; i < parts.size(); ++i) {
      Real value = parts[i](names);
      if (d.stored[i]) {
        const Stored s = d.type.round(value);
        values[d.planes ? column * rows + row : row * width + column] = s;
        value = d.type.value(s);
        ++column;
      }
      if (!d.parts[i].first.empty()) local[d.parts[i].first] = value;
    }
  }
  return values;
}

// The values of a declaration; by its rule where they stand in no header.
const std::vector<Stored>& Library::values_of(const Declaration& d) const {
  const bool interpolated = d.polynomial() && d.fit == kChebyshev;
  if (!d.values.empty() || !d.ruled() || (d.polynomial() && !interpolated)) return d.values;
  std::vector<Stored>& made = worked_out_[d.header + ' ' + d.name];
  if (made.empty()) made = interpolated ? interpolate(d) : work_out(d);
  return made;
}

// The coefficients that a name stands for in a rule of `from`: of a polynomial, or of that row of one of many rows.
const std::vector<Real>* Library::find_polynomial(const Declaration& from, const std::string& name, size_t row) const {
  const Declaration* other = find(from, name);
  if (other == nullptr || other->sizes.empty() || other->sizes.size() > 2 || values_of(*other).empty()) return nullptr;
  const size_t length = other->sizes.back();
  const size_t first = other->sizes.size() == 2 ? row * length : 0;
  if (first + length > other->count()) return nullptr;
  std::vector<Real>& made = polynomials_[other->header + ' ' + name];
  made.clear();
  for (size_t k = 0; k < length; ++k) made.push_back(other->type.value(values_of(*other)[first + k]));
  return &made;
}

// One row of a claim: both sides as functions of x, with the coefficients of p that are given.
struct Library::ClaimRow {
  ClaimRow(const Library& library, const Declaration& d, const Claim& claim, size_t row)
      : left_(claim.left), right_(claim.right), i_(static_cast<double>(static_cast<long>(row) + d.first)) {
    names_.value = [this, &library, &d](const std::string& name) {
      return name == "x" ? &x_ : name == "i" ? &i_ : library.find_value(d, name);
    };
    names_.polynomial = [this, &library, &d, row](const std::string& name) {
      return name == "p" ? &p : library.find_polynomial(d, name, row);
    };
    from = Expression(claim.from)(names_);
    to = Expression(claim.to)(names_);
  }
  ClaimRow(const ClaimRow&) = delete;
  ClaimRow& operator=(const ClaimRow&) = delete;

  // From -pi/2 to pi/2: as dense at the ends as extrema of a best fit are.
  Real place(double t) const { return (from + to) * 0.5 + (to - from) * 0.5 * std::sin(t); }
  Real left(const Real& x) {
    x_ = x;
    return left_(names_);
  }
  Real right(const Real& x) {
    x_ = x;
    return right_(names_);
  }

  std::vector<Real> p;
  Real from, to;

 private:
  Expression left_, right_;
  Real x_, i_;
  Names names_;
};

Real Library::worst_error(const Declaration& d, const Claim& claim, const std::vector<Stored>& coefficients) const {
  const Precision precision(d.precision);
  const size_t length = d.sizes.back();
  const auto errors_of = [&](size_t row, int points, int refinements) {
    ClaimRow sides(*this, d, claim, row);
    for (size_t k = 0; k < length; ++k) sides.p.push_back(d.type.value(coefficients[row * length + k]));
    const auto error_at = [&](double t) {
      const Real x = sides.place(t);
      const Real wanted = sides.right(x);
      const Real difference = sides.left(x) - wanted;
      const Real error = abs(claim.relative ? difference / wanted : difference);
      if (mpfr_nan_p(error.get()) != 0) throw std::runtime_error(d.name + ": no error at " + std::to_string(t));
      return error;
    };
    return largest_error(error_at, points, refinements);
  };
  // Of very many rows only the one that has the largest error on a coarse grid is looked at closely.
  constexpr size_t kVeryMany = 100;
  const int points = 64 * static_cast<int>(length + 4) + 1;  // even steps, none of them at the middle
  constexpr int kRefinements = 24;
  size_t first = 0, last = d.rows();
  if (last > kVeryMany) {
    Real worst(-1.0);
    for (size_t row = 0; row < d.rows(); ++row) {
      const Real error = errors_of(row, 4 * static_cast<int>(length + 1) + 1, 0);
      if (worst < error) worst = error, first = row;
    }
    last = first + 1;
  }
  Real worst;
  for (size_t row = first; row < last; ++row) {
    const Real error = errors_of(row, points, kRefinements);
    if (worst < error) worst = error;
  }
  return worst;
}

std::vector<Stored> Library::interpolate(const Declaration& d) const {
  const Precision precision(d.precision);
  const Claim& claim = d.claims.front();
  const size_t length = d.sizes.back();
  std::vector<Stored> coefficients;
  for (size_t row = 0; row < d.rows(); ++row) {
    ClaimRow sides(*this, d, claim, row);
    // p at the nodes, since the left side is linear in it; then its divided differences.
    std::vector<Real> nodes, differences;
    for (size_t k = 0; k < length; ++k) {
      const double middle = (2.0 * static_cast<double>(k) + 1) / static_cast<double>(2 * length) - 0.5;
      nodes.push_back(sides.place(M_PI * middle));
      sides.p = {Real(0.0)};
      const Real without = sides.left(nodes.back());
      sides.p = {Real(1.0)};
      const Real factor = sides.left(nodes.back()) - without;
      differences.push_back((sides.right(nodes.back()) - without) / factor);
    }
    for (size_t order = 1; order < length; ++order) {
      for (size_t k = length - 1; k >= order; --k) {
        differences[k] = (differences[k] - differences[k - 1]) / (nodes[k] - nodes[k - order]);
      }
    }
    // Newton's form to powers of x, the highest first.
    std::vector<Real> powers = {differences[length - 1]};
    for (size_t k = length - 1; k-- > 0;) {
      powers.push_back(differences[k]);
      for (size_t j = powers.size() - 1; j > 0; --j) powers[j] = powers[j] - nodes[k] * powers[j - 1];
    }
    for (const Real& c : powers) coefficients.push_back(d.type.round(c));
  }
  return coefficients;
}

}  // namespace orvik::approx
