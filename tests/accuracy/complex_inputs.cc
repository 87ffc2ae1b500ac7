#include "accuracy/complex_inputs.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "accuracy/hard_cases.h"

namespace orvik::accuracy {
namespace {

template <class E>
class Maker {
 public:
  Maker(const rows::Row& row, const rows::Domain& domain, Random& random, Inputs<E>& in)
      : domain_(domain), random_(random), in_(in), two_(row.inputs() == 2) {}

  void add(E re, E im) { add(re, im, second(), second()); }
  void add(E re, E im, E re2, E im2) {
    in_.a.push_back(re), in_.a.push_back(im);
    if (two_) in_.b.push_back(re2), in_.b.push_back(im2);
  }

  void fixed() {
    const std::vector<E> special = special_parts<E>();
    for (E x : special) {
      for (E y : special) {
        add(x, y);
        if (!two_) continue;
        for (E u : special) {  // the second argument over a table of its own: 49 pairs, and 49 the other way round
          for (E v : {-L::infinity(), E(-1.5), E(-0.0), E(0), E(1.5), L::infinity(), L::quiet_NaN()}) {
            if (is_one_of_seven(u)) add(x, y, u, v), add(u, v, x, y);
          }
        }
      }
    }
    axes();
    ends();
    circle();
  }

  void random_one() {
    const uint64_t kind = random_.word() % 16;
    if (kind < 3) {
      add(random_pattern<E>(random_), random_pattern<E>(random_), random_pattern<E>(random_),
          random_pattern<E>(random_));
    } else if (kind < 4) {
      add(random_denormal<E>(random_), random_denormal<E>(random_));
    } else if (kind < 6) {  // parts of very different size
      const E x = first(), y = first() * static_cast<E>(std::exp2(-60 * random_.unit()));
      kind == 4 ? add(x, y) : add(y, x);
    } else if (two_ && kind < 8) {  // nearly equal, nearly conjugate: products and quotients that cancel
      const E x = first(), y = first();
      add(x, y, neighbour(x, small_step()), kind == 6 ? neighbour(y, small_step()) : -neighbour(y, small_step()));
    } else {
      add(first(), first());
    }
  }

 private:
  using L = std::numeric_limits<E>;

  E first() { return from_domain<E>(random_, domain_.low, domain_.high); }
  E second() { return two_ ? from_domain<E>(random_, domain_.low2, domain_.high2) : E(0); }
  int small_step() { return static_cast<int>(random_.word() % 9) - 4; }
  static bool is_one_of_seven(E u) { return std::isnan(u) || std::isinf(u) || u == 0 || std::fabs(u) == 1; }

  // Real and imaginary axis and, on both of their sides, what is next to it: every branch cut lies on one.
  void axes() {
    std::vector<E> along;
    for (double edge : domain_.edges) {
      if (edge == 0 || !std::isfinite(static_cast<E>(edge))) continue;
      for (int step = -3; step <= 3; ++step) along.push_back(neighbour(static_cast<E>(edge), step));
    }
    for (int e = L::min_exponent - L::digits; e < L::max_exponent; e += std::abs(e) < 12 ? 1
                                                                        : sizeof(E) == 4 ? 9
                                                                                         : 71) {
      along.push_back(std::ldexp(E(1.25), e));
    }
    for (E t : along) {
      for (E x : {t, -t}) {
        for (E off : {E(0), L::denorm_min(), L::min(), L::epsilon(), static_cast<E>(std::fabs(x) * L::epsilon())}) {
          for (E y : {off, -off}) add(x, y), add(y, x);
        }
      }
    }
    for (E t : nearest_to_half_pi<E>()) {  // hard to reduce
      if (std::fabs(t) < E(1e6)) add(t, E(0.5)), add(E(0.5), t);
    }
  }

  void ends() {
    const E root = std::sqrt(L::max()), small_root = std::sqrt(L::min());
    const E sizes[] = {
        L::max(), L::max() / 2, L::max() * E(0.7071), root,        root * 2, 1, small_root, small_root / 2,
        L::min(), L::min() * 2, L::denorm_min(),      L::min() / 8};
    for (E x : sizes) {
      for (E y : sizes) {
        for (int signs = 0; signs < 4; ++signs) {
          const E re = (signs & 1) != 0 ? -x : x, im = (signs & 2) != 0 ? -y : y;
          add(re, im);
          if (two_) add(re, im, x, y), add(re, im, y, x), add(re, im, im, -re);
        }
      }
    }
  }

  void circle() {  // the logarithm's real part vanishes here
    for (int i = 0; i < 400; ++i) {
      const double angle = random_.between(-3.2, 3.2);
      add(neighbour(static_cast<E>(std::cos(angle)), small_step()),
          neighbour(static_cast<E>(std::sin(angle)), small_step()));
    }
    for (double x : {0.6, 0.8, 0.28, 0.96, 1.0}) {
      for (int step = -3; step <= 3; ++step) {
        const E re = neighbour(static_cast<E>(x), step), im = static_cast<E>(std::sqrt(1 - x * x));
        add(re, im), add(-re, -im), add(im, re);
      }
    }
  }

  const rows::Domain& domain_;
  Random& random_;
  Inputs<E>& in_;
  const bool two_;
};

}  // namespace

template <class E>
std::vector<E> special_parts() {
  using L = std::numeric_limits<E>;
  return {-L::infinity(), -L::max(), -1,       -L::denorm_min(), E(-0.0),       0,
          L::min(),       1,         L::max(), L::infinity(),    L::quiet_NaN()};
}

template <class E>
void make_complex_inputs(const rows::Row& row, const rows::Domain& domain, size_t count, Random& random, bool fixed,
                         Inputs<E>& in) {
  Maker<E> maker(row, domain, random, in);
  if (fixed) maker.fixed();
  const size_t wanted = std::max(2 * count, in.a.size() + count);  // at least half of them random
  while (in.a.size() < wanted) maker.random_one();
}

template std::vector<float> special_parts<float>();
template std::vector<double> special_parts<double>();
template void make_complex_inputs<float>(const rows::Row&, const rows::Domain&, size_t, Random&, bool, Inputs<float>&);
template void make_complex_inputs<double>(const rows::Row&, const rows::Domain&, size_t, Random&, bool,
                                          Inputs<double>&);

}  // namespace orvik::accuracy
