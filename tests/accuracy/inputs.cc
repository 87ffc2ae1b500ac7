#include "accuracy/inputs.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

#include "tools/rows/domains.h"

namespace orvik::accuracy {
namespace {

// std's distributions differ between libraries; these do not.
class Random {
 public:
  explicit Random(uint64_t seed) : engine_(seed) {}
  uint64_t word() { return engine_(); }
  double unit() { return static_cast<double>(word() >> 11) * 0x1p-53; }
  double between(double low, double high) { return low + (high - low) * unit(); }

 private:
  std::mt19937_64 engine_;
};

template <class E>
using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;

template <class E>
constexpr int kMantissa = std::numeric_limits<E>::digits - 1;

template <class E>
E random_pattern(Random& random) {
  return std::bit_cast<E>(static_cast<Bits<E>>(random.word() >> (64 - 8 * sizeof(E))));
}

template <class E>
E random_denormal(Random& random) {
  const auto bits = static_cast<Bits<E>>(random.word());
  const Bits<E> sign = bits & (Bits<E>{1} << (8 * sizeof(E) - 1));
  const int shift = static_cast<int>(random.word() % kMantissa<E>);
  return std::bit_cast<E>(static_cast<Bits<E>>(((bits & ((Bits<E>{1} << kMantissa<E>)-1)) >> shift) | sign));
}

// Uniform in the interval, or spread over its magnitudes down to 2^-40 of its ends.
template <class E>
E from_domain(Random& random, double low, double high) {
  if (random.word() % 4 != 0) return static_cast<E>(random.between(low, high));
  const double end = random.word() % 2 != 0 ? low : high;
  const double near = random.word() % 4 == 0 ? end * (1 - std::exp2(-40 * random.unit())) : end * std::exp2(-40 * random.unit());
  return static_cast<E>(near);
}

// A base of a power, as often next to 1 as not, and an exponent that takes it anywhere in the format: by then the error
// of the logarithm is as large as it gets.
template <class E>
void power_pair(Random& random, const rows::Domain& domain, E& base, E& exponent) {
  using L = std::numeric_limits<E>;
  base = random.word() % 2 != 0 ? from_domain<E>(random, domain.low, domain.high)
                                : static_cast<E>(1 + random.between(-0.25, 0.25) * std::exp2(-L::digits * random.unit()));
  const double bits = random.between(L::min_exponent - L::digits, L::max_exponent);
  exponent = base == 1 ? static_cast<E>(bits) : static_cast<E>(bits / std::log2(static_cast<double>(base)));
}

template <class E>
E neighbour(E x, int steps) {
  return std::bit_cast<E>(static_cast<Bits<E>>(std::bit_cast<Bits<E>>(x) + static_cast<Bits<E>>(steps)));
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
    for (double power : {2.5, -1.5, 0.5, 3.0, 2.0, -1.0, 0.0, 1.0 / 3, 1e-3, 20.0, 1.0}) sets.push_back({{power}, 0});
  } else if (row.shape == rows::Shape::bessel) {
    sets.clear();
    for (int order : {0, 1, 2, 3, 5, 10, 40, -1, -2, -5}) sets.push_back({{1, 0, 1, 0}, order});
  } else if (row.shape == rows::Shape::fraction) {
    sets = {{{1, 0, 1, 0}, 0}, {{2.5, -1, 0.5, 3}, 0}, {{0, 1, 1, 1e-3}, 0}, {{-1e30, 1e-30, 1, -2}, 0}};
  }
  const size_t n = inputs.a.size();
  for (size_t s = 0; s < sets.size(); ++s) {
    auto& made = inputs.segments.emplace_back();
    made.first = n * s / sets.size();
    made.last = n * (s + 1) / sets.size();
    std::copy(std::begin(sets[s].values), std::end(sets[s].values), made.scalars);
    made.order = sets[s].order;
  }
  if (sets.size() > 1) {  // every set meets every kind of input: deal them out
    std::vector<E> a(n), b(inputs.b.size());
    size_t to = 0;
    for (size_t s = 0; s < sets.size(); ++s) {
      for (size_t i = s; i < n && to < n; i += sets.size(), ++to) {
        a[to] = inputs.a[i];
        if (!b.empty()) b[to] = inputs.b[i];
      }
    }
    inputs.a = a, inputs.b = b;
  }
}

}  // namespace

template <class E>
Inputs<E> make_inputs(const rows::Row& row, size_t count, uint64_t seed, bool fixed) {
  const rows::Domain domain = rows::domain(row.function, row.single());
  Random random(seed);
  Inputs<E> in;
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
  const size_t n = inputs.a.size();
  r1.assign(n, E(0));
  r2.assign(row.outputs() == 2 ? n : 0, E(0));
  void* const function = row.entries[strided ? 1 : 0][level];
  if (!strided) {
    for (const auto& s : inputs.segments) {
      rows::Call call{.a = inputs.a.data() + s.first, .b = inputs.b.empty() ? nullptr : inputs.b.data() + s.first,
                      .r1 = r1.data() + s.first, .r2 = r2.empty() ? nullptr : r2.data() + s.first};
      std::copy(std::begin(s.scalars), std::end(s.scalars), call.scalars);
      call.order = s.order;
      rows::with_call(row, function, false, call, [&](auto run) { run(static_cast<int32_t>(s.last - s.first)); });
    }
    return;
  }
  constexpr int32_t incA = 3, incB = 2, incR1 = 2, incR2 = 3;
  const auto spread = [](const std::vector<E>& x, int32_t inc) {
    std::vector<E> y(x.size() * inc);
    for (size_t i = 0; i < x.size(); ++i) y[i * inc] = x[i];
    return y;
  };
  const std::vector<E> a = spread(inputs.a, incA), b = spread(inputs.b, incB);
  std::vector<E> out1(n * incR1), out2(r2.size() * incR2);
  for (const auto& s : inputs.segments) {
    rows::Call call{.a = a.data() + s.first * incA, .b = b.empty() ? nullptr : b.data() + s.first * incB,
                    .r1 = out1.data() + s.first * incR1, .r2 = out2.empty() ? nullptr : out2.data() + s.first * incR2,
                    .incA = incA, .incB = incB, .incR1 = incR1, .incR2 = incR2};
    std::copy(std::begin(s.scalars), std::end(s.scalars), call.scalars);
    call.order = s.order;
    rows::with_call(row, function, true, call, [&](auto run) { run(static_cast<int32_t>(s.last - s.first)); });
  }
  for (size_t i = 0; i < n; ++i) r1[i] = out1[i * incR1];
  for (size_t i = 0; i < r2.size(); ++i) r2[i] = out2[i * incR2];
}

template Inputs<float> make_inputs<float>(const rows::Row&, size_t, uint64_t, bool);
template Inputs<double> make_inputs<double>(const rows::Row&, size_t, uint64_t, bool);
template void evaluate<float>(const rows::Row&, int, bool, const Inputs<float>&, std::vector<float>&,
                              std::vector<float>&);
template void evaluate<double>(const rows::Row&, int, bool, const Inputs<double>&, std::vector<double>&,
                               std::vector<double>&);

}  // namespace orvik::accuracy
