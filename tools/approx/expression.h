// Expressions in which the rules of tables and the claims of polynomials are written: + - * / ^ (right to left, above
// the sign), comparisons, c ? a : b, numbers, names, functions. README.md lists the functions.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "real.h"

namespace orvik::approx {

// What names mean: values, and coefficients from the highest power down.
struct Names {
  std::function<const Real*(const std::string&)> value;
  std::function<const std::vector<Real>*(const std::string&)> polynomial;
};

class Expression {
 public:
  // Throws std::runtime_error with the text and the place.
  explicit Expression(std::string_view text);
  Expression(Expression&&) noexcept;
  ~Expression();
  Real operator()(const Names& names) const;

  struct Node;

 private:
  std::unique_ptr<Node> root_;
  std::string text_;
};

}  // namespace orvik::approx
