#include "expression.h"

#include <cctype>
#include <cstring>
#include <stdexcept>

#include "cylinder.h"
#include "inverse_error.h"

namespace orvik::approx {

struct Expression::Node {
  std::string what;  // an operator, a name, a number; "call" where operands follow a name
  std::string name;
  std::vector<std::unique_ptr<Node>> operands;
};

namespace {

using Node = Expression::Node;
using NodePtr = std::unique_ptr<Node>;
using One = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
using Arguments = std::vector<Real>;

// x rounded to a multiple of the step.
Real grid(const Real& x, const Real& step) {
  Real n;
  mpfr_rint(n.get(), (x / step).get(), MPFR_RNDN);
  return n * step;
}

// x in so many bits.
Real in_bits(const Real& x, long bits, mpfr_rnd_t rounding = MPFR_RNDN) {
  const Precision precision(bits);
  Real r;
  mpfr_set(r.get(), x.get(), rounding);
  return r;
}

// x in the format of 32 or 64 bits, denormal numbers included.
Real in_format(const Real& x, bool single, mpfr_rnd_t rounding) {
  return single ? Real(static_cast<double>(mpfr_get_flt(x.get(), rounding))) : Real(mpfr_get_d(x.get(), rounding));
}

// The number of so many bits nearest to x, x from 1 to 2, whose reciprocal is one too to within 2^-extra of a last
// place.
Real with_reciprocal(const Real& x, long bits, long extra) {
  const Real step = apply(mpfr_exp2, Real(static_cast<double>(1 - bits)).get());
  const Real bound = apply(mpfr_exp2, Real(static_cast<double>(-extra)).get());
  const Real nearest = grid(x, step);
  for (double i = 0;; i = i > 0 ? -i : 1 - i) {  // 0, 1, -1, 2 ...
    const Real u = nearest + Real(i) * step;
    const Real inverse = Real(1.0) / u;
    if (abs(in_bits(inverse, bits) - inverse) * Real(2.0) / step < bound) return u;
  }
}

// Near x, in steps of some 2^-20 of it, where tanh and, times the width, its slope are floats to within 2^-bits of tanh.
Real tanh_centre(const Real& x, const Real& width, long bits) {
  const Real step = apply(mpfr_exp2, Real(static_cast<double>(mpfr_get_exp(x.get()) - 21)).get());
  const Real nearest = grid(x, step);
  for (double i = 0;; i = i > 0 ? -i : 1 - i) {
    const Real c = nearest + Real(i) * step;
    const Real value = apply(mpfr_tanh, c.get());
    const Real slope = Real(1.0) - value * value;
    const Real bound = value * apply(mpfr_exp2, Real(static_cast<double>(-bits)).get());
    if (abs(in_format(value, true, MPFR_RNDN) - value) < bound &&
        abs(in_format(slope, true, MPFR_RNDN) - slope) * width < bound)
      return c;
  }
}

Real integer_part(const Real& x, mpfr_rnd_t rounding) {
  Real r;
  mpfr_rint(r.get(), x.get(), rounding);
  return r;
}

// The last convergent of x's continued fraction, x from 0 on, of which both numbers are up to the bound.
struct Ratio {
  Real over, under;
};
Ratio convergent(Real x, const Real& bound) {
  Ratio before{Real(0.0), Real(1.0)}, last{Real(1.0), Real(0.0)};
  for (;;) {
    const Real whole = integer_part(x, MPFR_RNDD);
    Ratio next{whole * last.over + before.over, whole * last.under + before.under};
    if (bound < next.over || bound < next.under) return last;
    before = last;
    last = next;
    if (mpfr_zero_p((x - whole).get()) != 0) return last;
    x = Real(1.0) / (x - whole);
  }
}

const std::map<std::string, One> kFunctions = {
    {"abs", mpfr_abs},     {"sqrt", mpfr_sqrt},   {"cbrt", mpfr_cbrt},       {"exp", mpfr_exp},
    {"exp2", mpfr_exp2},   {"exp10", mpfr_exp10}, {"expm1", mpfr_expm1},     {"log", mpfr_log},
    {"log2", mpfr_log2},   {"log10", mpfr_log10}, {"log1p", mpfr_log1p},     {"sin", mpfr_sin},
    {"cos", mpfr_cos},     {"tan", mpfr_tan},     {"asin", mpfr_asin},       {"acos", mpfr_acos},
    {"atan", mpfr_atan},   {"sinh", mpfr_sinh},   {"cosh", mpfr_cosh},       {"tanh", mpfr_tanh},
    {"asinh", mpfr_asinh}, {"acosh", mpfr_acosh}, {"atanh", mpfr_atanh},     {"erf", mpfr_erf},
    {"erfc", mpfr_erfc},   {"gamma", mpfr_gamma}, {"lngamma", mpfr_lngamma}, {"digamma", mpfr_digamma},
    {"j0", mpfr_j0},       {"j1", mpfr_j1},       {"y0", mpfr_y0},           {"y1", mpfr_y1},
    {"eint", mpfr_eint},
};

int number(const Real& x) { return static_cast<int>(mpfr_get_si(x.get(), MPFR_RNDN)); }

using Many = std::function<Real(const Arguments&)>;
struct Special {
  size_t operands;
  Many value;
};
const std::map<std::string, Special> kSpecials = {
    {"floor", {1, [](const Arguments& a) { return integer_part(a[0], MPFR_RNDD); }}},
    {"ceil", {1, [](const Arguments& a) { return integer_part(a[0], MPFR_RNDU); }}},
    {"round", {1, [](const Arguments& a) { return integer_part(a[0], MPFR_RNDN); }}},
    {"mod", {2, [](const Arguments& a) { return a[0] - integer_part(a[0] / a[1], MPFR_RNDD) * a[1]; }}},
    {"grid", {2, [](const Arguments& a) { return grid(a[0], a[1]); }}},
    {"bits", {2, [](const Arguments& a) { return in_bits(a[0], mpfr_get_si(a[1].get(), MPFR_RNDN)); }}},
    {"trunc_bits",
     {2, [](const Arguments& a) { return in_bits(a[0], mpfr_get_si(a[1].get(), MPFR_RNDN), MPFR_RNDZ); }}},
    {"with_reciprocal", {3, [](const Arguments& a) { return with_reciprocal(a[0], number(a[1]), number(a[2])); }}},
    {"ratio_over", {2, [](const Arguments& a) { return convergent(a[0], a[1]).over; }}},
    {"ratio_under", {2, [](const Arguments& a) { return convergent(a[0], a[1]).under; }}},
    {"tanh_centre", {3, [](const Arguments& a) { return tanh_centre(a[0], a[1], number(a[2])); }}},
    {"float", {1, [](const Arguments& a) { return in_format(a[0], true, MPFR_RNDN); }}},
    {"float_down", {1, [](const Arguments& a) { return in_format(a[0], true, MPFR_RNDD); }}},
    {"float_up", {1, [](const Arguments& a) { return in_format(a[0], true, MPFR_RNDU); }}},
    {"double", {1, [](const Arguments& a) { return in_format(a[0], false, MPFR_RNDN); }}},
    {"double_down", {1, [](const Arguments& a) { return in_format(a[0], false, MPFR_RNDD); }}},
    {"double_up", {1, [](const Arguments& a) { return in_format(a[0], false, MPFR_RNDU); }}},
    {"exponent", {1, [](const Arguments& a) { return Real(static_cast<double>(mpfr_get_exp(a[0].get()) - 1)); }}},
    {"atan2", {2, [](const Arguments& a) { return apply(mpfr_atan2, a[0].get(), a[1].get()); }}},
    {"erfinv_term",
     {2, [](const Arguments& a) { return inverse_error_term(a[0], mpfr_get_si(a[1].get(), MPFR_RNDN)); }}},
    {"hypot", {2, [](const Arguments& a) { return apply(mpfr_hypot, a[0].get(), a[1].get()); }}},
    {"cylinder", {2, [](const Arguments& a) { return cylinder(number(a[0]), a[1]); }}},
    {"cylinder_slope", {2, [](const Arguments& a) { return cylinder_slope(number(a[0]), a[1]); }}},
    {"cylinder_inverse", {2, [](const Arguments& a) { return cylinder_inverse(number(a[0]), a[1]); }}},
    {"cylinder_centre", {3, [](const Arguments& a) { return cylinder_centre(number(a[0]), a[1], a[2]); }}},
    {"cylinder_rest",
     {7,
      [](const Arguments& a) {
        return cylinder_rest(number(a[0]), number(a[1]), a[2], a[3], a[4], number(a[5]), number(a[6]));
      }}},
    {"min", {2, [](const Arguments& a) { return a[0] < a[1] ? a[0] : a[1]; }}},
    {"max", {2, [](const Arguments& a) { return a[0] < a[1] ? a[1] : a[0]; }}},
};

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  NodePtr all() {
    NodePtr made = conditional();
    skip();
    if (at_ != text_.size()) fail("something is left over");
    return made;
  }

 private:
  [[noreturn]] void fail(const std::string& why) const {
    throw std::runtime_error(std::string(text_) + ": " + why + " at character " + std::to_string(at_ + 1));
  }
  void skip() {
    while (at_ < text_.size() && std::isspace(static_cast<unsigned char>(text_[at_])) != 0) ++at_;
  }
  bool take(std::string_view token) {
    skip();
    if (text_.substr(at_, token.size()) != token) return false;
    at_ += token.size();
    return true;
  }
  void need(std::string_view token) {
    if (!take(token)) fail("'" + std::string(token) + "' is missing");
  }
  template <class... Operands>
  static NodePtr make(std::string what, std::string name, Operands... operands) {
    auto node = std::make_unique<Node>(Node{std::move(what), std::move(name), {}});
    (node->operands.push_back(std::move(operands)), ...);
    return node;
  }

  NodePtr conditional() {
    NodePtr condition = comparison();
    if (!take("?")) return condition;
    NodePtr yes = conditional();
    need(":");
    return make("?", "", std::move(condition), std::move(yes), conditional());
  }
  NodePtr comparison() {
    NodePtr left = sum();
    for (const char* token : {"<=", ">=", "==", "!=", "<", ">"}) {
      if (take(token)) return make(token, "", std::move(left), sum());
    }
    return left;
  }
  NodePtr sum() {
    NodePtr left = product();
    for (;;) {
      if (take("+")) {
        left = make("+", "", std::move(left), product());
      } else if (take("-")) {
        left = make("-", "", std::move(left), product());
      } else {
        return left;
      }
    }
  }
  NodePtr product() {
    NodePtr left = sign();
    for (;;) {
      if (take("*")) {
        left = make("*", "", std::move(left), sign());
      } else if (take("/")) {
        left = make("/", "", std::move(left), sign());
      } else {
        return left;
      }
    }
  }
  NodePtr sign() {
    if (take("-")) return make("negative", "", sign());
    return power();
  }
  NodePtr power() {
    NodePtr base = atom();
    if (take("^")) return make("^", "", std::move(base), sign());
    return base;
  }
  NodePtr atom() {
    if (take("(")) {
      NodePtr inner = conditional();
      need(")");
      return inner;
    }
    skip();
    if (at_ == text_.size()) fail("an operand is missing");
    const auto first = static_cast<unsigned char>(text_[at_]);
    if (std::isdigit(first) != 0 || first == '.') return number();
    if (std::isalpha(first) == 0) fail("an operand is missing");
    const size_t begin = at_;
    while (at_ < text_.size() && (std::isalnum(static_cast<unsigned char>(text_[at_])) != 0 || text_[at_] == '_'))
      ++at_;
    NodePtr node = make("name", std::string(text_.substr(begin, at_ - begin)));
    if (take("(")) {
      node->what = "call";
      do node->operands.push_back(conditional());
      while (take(","));
      need(")");
      const auto special = kSpecials.find(node->name);
      const size_t wanted = special == kSpecials.end() ? 1 : special->second.operands;
      if (node->operands.size() != wanted) fail(node->name + " takes " + std::to_string(wanted));
    }
    return node;
  }
  NodePtr number() {
    const size_t begin = at_;
    const bool hexadecimal = text_.substr(at_, 2) == "0x";
    const char exponent = hexadecimal ? 'p' : 'e';
    for (; at_ < text_.size(); ++at_) {
      const char c = text_[at_];
      const bool part = c == '.' || std::isdigit(static_cast<unsigned char>(c)) != 0 || c == exponent ||
                        (hexadecimal && (c == 'x' || std::isxdigit(static_cast<unsigned char>(c)) != 0)) ||
                        ((c == '-' || c == '+') && at_ > begin && text_[at_ - 1] == exponent);
      if (!part) break;
    }
    return make("number", std::string(text_.substr(begin, at_ - begin)));
  }

  std::string_view text_;
  size_t at_ = 0;
};

Real truth(bool holds) { return holds ? 1.0 : 0.0; }

Real evaluate(const Node& node, const Names& names);

Real call(const Node& node, const Names& names) {
  Arguments a;
  for (const NodePtr& operand : node.operands) a.push_back(evaluate(*operand, names));
  if (const auto one = kFunctions.find(node.name); one != kFunctions.end()) return apply(one->second, a[0].get());
  if (const auto special = kSpecials.find(node.name); special != kSpecials.end()) return special->second.value(a);
  const std::vector<Real>* coefficients = names.polynomial ? names.polynomial(node.name) : nullptr;
  if (coefficients == nullptr) throw std::runtime_error("no function and no polynomial is called " + node.name);
  Real sum;
  for (const Real& c : *coefficients) sum = sum * a[0] + c;
  return sum;
}

Real evaluate(const Node& node, const Names& names) {
  const auto operand = [&](size_t i) { return evaluate(*node.operands[i], names); };
  if (node.what == "number") {
    Real r;
    if (mpfr_set_str(r.get(), node.name.c_str(), 0, MPFR_RNDN) != 0)
      throw std::runtime_error("no number: " + node.name);
    return r;
  }
  if (node.what == "name") {
    if (node.name == "pi") {
      Real r;
      mpfr_const_pi(r.get(), MPFR_RNDN);
      return r;
    }
    const Real* value = names.value ? names.value(node.name) : nullptr;
    if (value == nullptr) throw std::runtime_error("nothing is called " + node.name);
    return *value;
  }
  if (node.what == "call") return call(node, names);
  if (node.what == "negative") return -operand(0);
  if (node.what == "?") return mpfr_zero_p(operand(0).get()) != 0 ? operand(2) : operand(1);
  const Real x = operand(0);
  const Real y = operand(1);
  if (node.what == "+") return x + y;
  if (node.what == "-") return x - y;
  if (node.what == "*") return x * y;
  if (node.what == "/") return x / y;
  if (node.what == "^") return apply(mpfr_pow, x.get(), y.get());
  const int order = mpfr_cmp(x.get(), y.get());
  if (node.what == "<") return truth(order < 0);
  if (node.what == ">") return truth(order > 0);
  if (node.what == "<=") return truth(order <= 0);
  if (node.what == ">=") return truth(order >= 0);
  if (node.what == "==") return truth(order == 0);
  return truth(order != 0);
}

}  // namespace

Expression::Expression(std::string_view text) : root_(Parser(text).all()), text_(text) {}
Expression::Expression(Expression&&) noexcept = default;
Expression::~Expression() = default;

Real Expression::operator()(const Names& names) const {
  try {
    return evaluate(*root_, names);
  } catch (const std::runtime_error& error) {
    throw std::runtime_error(text_ + ": " + error.what());
  }
}

}  // namespace orvik::approx
