#include "accuracy/inputs.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

#include "accuracy/complex_inputs.h"
#include "accuracy/hard_cases.h"
#include "accuracy/random.h"
#include "tools/rows/domains.h"

namespace orvik::accuracy {
namespace {

// A base of a power, as often next to 1 as not, and an exponent that takes it anywhere in the format: the error of the
// logarithm counts as often as the result has exponents.
template <class E>
void power_pair(Random& random, const rows::Domain& domain, E& base, E& exponent) {
  using L = std::numeric_limits<E>;
  base = random.word() % 2 != 0 ? from_domain<E>(random, domain.low, domain.high)
                                : static_cast<E>(1 + random.between(-0.25, 0.25) * std::exp2(-L::digits * random.unit()));
  const double bits = random.between(L::min_exponent - L::digits, L::max_exponent);
  exponent = static_cast<E>(base == 1 ? bits : bits / std::log2(static_cast<double>(base)));
}

template <class E>
std::vector<E> special_values() {
  using L = std::numeric_limits<E>;
  std::vector<E> values = {0, L::denorm_min(), L::min() / 2, std::nextafter(L::min(), E(0)), L::min(), E(0.5), 1,
                           E(1.5), 2, E(2.5), 3, L::max() / 2, L::max(), L::infinity(), L::quiet_NaN()};
  values.push_back(neighbour(L::infinity(), 1));  // a signalling NaN
  const size_t positive = values.size();
  for (size_t i = 0; i < positive; ++i) values.push_back(-values[i]);
  return values;
}

template <class E>
void neighbourhoods(const rows::Domain& domain, std::vector<E>& a) {
  for (double edge : domain.edges) {
    if (edge == 0) continue;
    for (int sign : {1, -1}) {
      const E x = static_cast<E>(sign * edge);
      if (!std::isfinite(x)) continue;
      for (int step = -24; step <= 24; ++step) a.push_back(neighbour(x, step));
    }
  }
  const int last = std::numeric_limits<E>::max_exponent;
  const int first = std::numeric_limits<E>::min_exponent - std::numeric_limits<E>::digits;
  for (int e = first; e < last; e += std::abs(e) < 70 ? 1 : sizeof(E) == 4 ? 1 : 7) {
    for (int sign : {1, -1}) {
      const E x = std::ldexp(static_cast<E>(sign), e);
      for (int step = -1; step <= 1; ++step) a.push_back(neighbour(x, step));
    }
  }
}

// Scalars that go with the elements, one segment each.
template <class E>
void cut_segments(const rows::Row& row, Inputs<E>& inputs) {
  struct Scalars {
    double values[4];
    int32_t order;
  };
  std::vector<Scalars> sets = {{{1, 0, 1, 0}, 0}};
  if (row.shape == rows::Shape::scalar) {
    sets.clear();
    const double inf = std::numeric_limits<double>::infinity(), nan = std::numeric_limits<double>::quiet_NaN();
    for (double power : {2.5, -1.5, 0.5, 3.0, 2.0, -1.0, 0.0, 1.0 / 3, 1e-3, 20.0, 1.0, -0.0, inf, -inf, nan, -1e6, 16777217.0,
                         1e300, 1e-40}) {
      sets.push_back({{power, row.complex() ? std::fabs(power) < 30 ? -0.75 * power : 0 : 0}, 0});
    }
  } else if (row.shape == rows::Shape::bessel) {
    sets.clear();
    for (int order : {0, 1, 2, 3, 5, 10, 40, -1, -2, -5, 100, -40, -3}) sets.push_back({{1, 0, 1, 0}, order});
  } else if (row.shape == rows::Shape::fraction) {
    sets = {{{1, 0, 1, 0}, 0}, {{2.5, -1, 0.5, 3}, 0}, {{0, 1, 1, 1e-3}, 0}, {{-1e30, 1e-30, 1, -2}, 0}};
  }
  const auto parts = static_cast<size_t>(row.input_parts);
  const size_t n = inputs.a.size() / parts;
  for (size_t s = 0; s < sets.size(); ++s) {
    auto& made = inputs.segments.emplace_back();
    made.first = n * s / sets.size();
    made.last = n * (s + 1) / sets.size();
    std::copy(std::begin(sets[s].values), std::end(sets[s].values), made.scalars);
    made.order = sets[s].order;
  }
  if (sets.size() > 1) {  // every set meets every kind of input: deal them out
    std::vector<E> a(inputs.a.size()), b(inputs.b.size());
    size_t to = 0;
    for (size_t s = 0; s < sets.size(); ++s) {
      for (size_t i = s; i < n && to < n; i += sets.size(), ++to) {
        for (size_t k = 0; k < parts; ++k) {
          a[to * parts + k] = inputs.a[i * parts + k];
          if (!b.empty()) b[to * parts + k] = inputs.b[i * parts + k];
        }
      }
    }
    inputs.a = a, inputs.b = b;
  }
}

}  // namespace

template <class E>
Inputs<E> make_inputs(const rows::Row& row, size_t count, uint64_t seed, bool fixed) {
  const rows::Domain& domain = rows::domain(row);
  Random random(seed);
  Inputs<E> in;
  if (row.input_parts == 2) {
    make_complex_inputs(row, domain, count, random, fixed, in);
    cut_segments(row, in);
    return in;
  }
  const bool two = row.inputs() == 2;
  const bool power = row.function == "Pow" || row.function == "Powr";
  const std::vector<E> special = special_values<E>();
  if (fixed) {
    if (!two) {
      in.a = special;
      neighbourhoods(domain, in.a);
    } else {
      for (E a : special) {
        for (E b : special) in.a.push_back(a), in.b.push_back(b);
      }
      std::vector<E> near;
      neighbourhoods(domain, near);
      for (E x : near) {
        const bool first = random.word() % 2 != 0;
        const E other = first ? from_domain<E>(random, domain.low2, domain.high2)
                              : from_domain<E>(random, domain.low, domain.high);
        in.a.push_back(first ? x : other), in.b.push_back(first ? other : x);
      }
    }
    add_hard_cases(row.function, in.a, in.b);
  }
  while (in.a.size() < count) {
    const uint64_t kind = random.word() % 16;
    E a, b;
    if (kind < 4) {
      a = random_pattern<E>(random), b = random_pattern<E>(random);
    } else if (kind < 5) {
      a = random_denormal<E>(random), b = random_denormal<E>(random);
      if (two && kind == 4 && random.word() % 2 != 0) b = from_domain<E>(random, domain.low2, domain.high2);
    } else if (two && kind < 7) {  // nearly equal, or of the same size
      a = random_pattern<E>(random);
      b = kind == 5 ? neighbour(a, static_cast<int>(random.word() % 9) - 4) : a * static_cast<E>(random.between(-2, 2));
    } else if (two && kind < 8) {
      a = std::trunc(static_cast<E>(random.between(-64, 64))), b = std::trunc(static_cast<E>(random.between(-16, 16)));
    } else if (power && kind < 12) {
      power_pair(random, domain, a, b);
    } else {
      a = from_domain<E>(random, domain.low, domain.high);
      b = from_domain<E>(random, domain.low2, domain.high2);
    }
    in.a.push_back(a);
    if (two) in.b.push_back(b);
  }
  cut_segments(row, in);
  return in;
}

template <class E>
void evaluate(const rows::Row& row, int level, bool strided, const Inputs<E>& inputs, std::vector<E>& r1,
              std::vector<E>& r2) {
  const int in = row.input_parts, out = row.output_parts;
  const size_t n = inputs.count(row);
  const int32_t incA = strided ? 3 : 1, incB = strided ? 2 : 1, incR1 = strided ? 2 : 1, incR2 = strided ? 3 : 1;
  // Elements of `parts` numbers, `inc` elements apart.
  const auto spread = [](const std::vector<E>& x, int32_t inc, int parts) {
    if (inc == 1) return x;
    std::vector<E> y(x.size() * static_cast<size_t>(inc));
    for (size_t i = 0; i < x.size(); ++i) y[i / parts * parts * inc + i % parts] = x[i];
    return y;
  };
  const std::vector<E> a = spread(inputs.a, incA, in), b = spread(inputs.b, incB, in);
  const size_t results2 = row.outputs() == 2 ? n : 0;
  std::vector<E> out1(n * incR1 * out), out2(results2 * incR2 * out);
  for (const auto& s : inputs.segments) {
    rows::Call call{.a = a.data() + s.first * incA * in, .b = b.empty() ? nullptr : b.data() + s.first * incB * in,
                    .r1 = out1.data() + s.first * incR1 * out,
                    .r2 = out2.empty() ? nullptr : out2.data() + s.first * incR2 * out,
                    .incA = incA, .incB = incB, .incR1 = incR1, .incR2 = incR2};
    std::copy(std::begin(s.scalars), std::end(s.scalars), call.scalars);
    call.order = s.order;
    rows::with_call(row, row.entries[strided ? 1 : 0][level], strided, call,
                    [&](auto run) { run(static_cast<int32_t>(s.last - s.first)); });
  }
  const auto gather = [&](const std::vector<E>& x, int32_t inc, size_t count) {
    std::vector<E> y(count * out);
    for (size_t i = 0; i < y.size(); ++i) y[i] = x[i / out * out * inc + i % out];
    return y;
  };
  r1 = gather(out1, incR1, n);
  r2 = gather(out2, incR2, results2);
}

template Inputs<float> make_inputs<float>(const rows::Row&, size_t, uint64_t, bool);
template Inputs<double> make_inputs<double>(const rows::Row&, size_t, uint64_t, bool);
template void evaluate<float>(const rows::Row&, int, bool, const Inputs<float>&, std::vector<float>&,
                              std::vector<float>&);
template void evaluate<double>(const rows::Row&, int, bool, const Inputs<double>&, std::vector<double>&,
                               std::vector<double>&);

}  // namespace orvik::accuracy
