// The recurrences of the generators, one word at a time, as plainly as they can be written.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

#include "orvik/qor.h"
#include "qor/brng/mt2203.h"
#include "qor/brng/wh.h"
#include "qor/support/sfmt.h"

namespace orvik::models {

using Seeds = std::vector<uint32_t>;

struct Mcg31m1 {
  uint64_t x, a = 1132489760;
  explicit Mcg31m1(const Seeds& s) : x(s.empty() ? 1 : s[0] % 2147483647u) { x += x == 0; }
  uint64_t operator()() {
    const uint64_t out = x;
    x = x * a % 2147483647u;
    return out;
  }
};

struct Mcg59 {
  uint64_t x, a = 302875106592253;
  explicit Mcg59(const Seeds& s)
      : x(s.empty()       ? 1
          : s.size() == 1 ? s[0]
                          : (s[0] + (uint64_t{s[1]} << 32)) % (1ull << 59)) {
    x += x == 0;
  }
  uint64_t operator()() {
    const uint64_t out = x;
    x = x * a % (1ull << 59);
    return out;
  }
};

struct Twister {
  size_t n, m;
  uint32_t low, matrix, b, c;
  int first_shift;
  std::vector<uint32_t> mt;
  size_t k = 0;

  void seed(Seeds key) {
    if (key.empty()) key = {1};
    mt.assign(n, 0);
    mt[0] = 19650218;
    for (size_t i = 1; i < n; ++i) mt[i] = 1812433253u * (mt[i - 1] ^ (mt[i - 1] >> 30)) + static_cast<uint32_t>(i);
    size_t i = 1, j = 0;
    for (size_t left = std::max(n, key.size()); left > 0; --left) {
      mt[i] = (mt[i] ^ ((mt[i - 1] ^ (mt[i - 1] >> 30)) * 1664525u)) + key[j] + static_cast<uint32_t>(j);
      if (++i == n) mt[0] = mt[n - 1], i = 1;
      if (++j == key.size()) j = 0;
    }
    for (size_t left = n - 1; left > 0; --left) {
      mt[i] = (mt[i] ^ ((mt[i - 1] ^ (mt[i - 1] >> 30)) * 1566083941u)) - static_cast<uint32_t>(i);
      if (++i == n) mt[0] = mt[n - 1], i = 1;
    }
    mt[0] = 0x80000000u;
  }
  uint64_t operator()() {
    const uint32_t y = (mt[k] & ~low) | (mt[(k + 1) % n] & low);
    mt[k] = mt[(k + m) % n] ^ (y >> 1) ^ (y % 2 ? matrix : 0);
    uint32_t out = mt[k];
    k = (k + 1) % n;
    out ^= out >> first_shift;
    out ^= (out << 7) & b;
    out ^= (out << 15) & c;
    return out ^ (out >> 18);
  }
};

inline Twister mt19937(const Seeds& s) {
  Twister t{624, 397, 0x7FFFFFFF, 0x9908B0DF, 0x9D2C5680, 0xEFC60000, 11, {}};
  t.seed(s);
  return t;
}
inline Twister mt2203(int member, const Seeds& s) {
  const qor::Mt2203Set& p = qor::Mt2203Params[member];
  Twister t{69, 34, 0x1F, p.matrix_a, p.mask_b, p.mask_c, 12, {}};
  t.seed(s);
  return t;
}

using Block = std::array<uint32_t, 4>;

inline Block philox_block(Block c, uint32_t k0, uint32_t k1) {
  for (int round = 0; round < 10; ++round) {
    const uint64_t p0 = 0xD2511F53ull * c[0], p1 = 0xCD9E8D57ull * c[2];
    c = {static_cast<uint32_t>(p1 >> 32) ^ c[1] ^ k0, static_cast<uint32_t>(p1),
         static_cast<uint32_t>(p0 >> 32) ^ c[3] ^ k1, static_cast<uint32_t>(p0)};
    k0 += 0x9E3779B9;
    k1 += 0xBB67AE85;
  }
  return c;
}

inline uint8_t aes_times2(uint8_t v) { return static_cast<uint8_t>(v << 1 ^ (v & 0x80 ? 0x1B : 0)); }

inline std::array<uint8_t, 256> make_aes_box() {
  const auto product = [](uint8_t a, uint8_t b) {
    uint8_t r = 0;
    for (; b; b >>= 1, a = aes_times2(a))
      if (b & 1) r ^= a;
    return r;
  };
  std::array<uint8_t, 256> box{};
  for (int v = 0; v < 256; ++v) {
    uint8_t inverse = 1;
    for (int i = 0; i < 254; ++i) inverse = product(inverse, static_cast<uint8_t>(v));
    uint8_t r = 0x63;
    for (int s = 0; s < 5; ++s) r ^= static_cast<uint8_t>(inverse << s | inverse >> (8 - s));
    box[v] = r;
  }
  return box;
}

// One AES round in software (FIPS 197), state and round key as 16 bytes.
inline std::array<uint8_t, 16> aes_round(const std::array<uint8_t, 16>& in, const std::array<uint8_t, 16>& key,
                                         bool mix) {
  static const std::array<uint8_t, 256> box = make_aes_box();
  std::array<uint8_t, 16> s{}, out{};
  for (int column = 0; column < 4; ++column)
    for (int row = 0; row < 4; ++row) s[4 * column + row] = box[in[(4 * (column + row) + row) % 16]];
  for (int i = 0; i < 16; ++i) {
    const int column = i / 4 * 4, row = i % 4;
    const auto at = [&](int k) { return s[column + (row + k) % 4]; };
    out[i] = mix ? aes_times2(at(0)) ^ aes_times2(at(1)) ^ at(1) ^ at(2) ^ at(3) : s[i];
    out[i] ^= key[i];
  }
  return out;
}

inline Block ars5_block(const Block& c, const Block& key) {
  uint64_t low = key[0] | uint64_t{key[1]} << 32, high = key[2] | uint64_t{key[3]} << 32;
  std::array<uint8_t, 16> x;
  for (int i = 0; i < 16; ++i) x[i] = static_cast<uint8_t>((c[i / 4] ^ key[i / 4]) >> (8 * (i % 4)));
  for (int round = 1; round <= 5; ++round) {
    low += 0x9E3779B97F4A7C15;
    high += 0xBB67AE8584CAA73B;
    std::array<uint8_t, 16> k;
    for (int i = 0; i < 16; ++i) k[i] = static_cast<uint8_t>((i < 8 ? low : high) >> (8 * (i % 8)));
    x = aes_round(x, k, round < 5);
  }
  Block out{};
  for (int i = 0; i < 16; ++i) out[i / 4] |= uint32_t{x[i]} << (8 * (i % 4));
  return out;
}

// Words of blocks whose counter moves on by one with carry through all its words.
struct Counting {
  Block counter{};
  std::function<Block(const Block&)> block;
  Block hand{};
  int used = 4;
  uint64_t operator()() {
    if (used == 4) {
      hand = block(counter);
      for (uint32_t& w : counter)
        if (++w != 0) break;
      used = 0;
    }
    return hand[used++];
  }
};

inline uint32_t at(const Seeds& s, size_t i) { return i < s.size() ? s[i] : 0; }

inline Counting philox(const Seeds& s) {
  const uint32_t k0 = at(s, 0), k1 = at(s, 1);
  return {{at(s, 2), at(s, 3), at(s, 4), at(s, 5)}, [=](const Block& c) { return philox_block(c, k0, k1); }};
}
inline Counting ars5(const Seeds& s) {
  const Block key = {at(s, 0), at(s, 1), at(s, 2), at(s, 3)};
  return {{at(s, 4), at(s, 5), at(s, 6), at(s, 7)}, [=](const Block& c) { return ars5_block(c, key); }};
}

struct R250 {
  std::vector<uint32_t> r;
  size_t p = 0, q = 103;
  explicit R250(const Seeds& s) : r(250) {
    if (s.size() >= 250) {
      std::copy(s.begin(), s.begin() + 250, r.begin());
      return;
    }
    uint32_t word = s.empty() || s[0] == 0 ? 1 : s[0];
    for (uint32_t& w : r) w = word *= 69069;
    for (uint32_t k = 0; k < 32; ++k) {
      uint32_t& w = r[3 + 7 * k];
      w &= 0xFFFFFFFF >> k;  // nothing above bit 31 - k
      w |= 1u << (31 - k);
    }
  }
  uint64_t operator()() {
    r[p] ^= r[q];
    const uint32_t out = r[p];
    p = (p + 1) % 250;
    q = (q + 1) % 250;
    return out;
  }
};

struct Mrg32k3a {
  static constexpr uint64_t m1 = 4294967087, m2 = 4294944443;
  uint64_t x[3] = {1, 1, 1}, y[3] = {1, 1, 1};
  explicit Mrg32k3a(const Seeds& s) {
    for (size_t i = 0; i < 3; ++i) {
      if (i < s.size()) x[i] = s[i];
      if (i + 3 < s.size()) y[i] = s[i + 3];
    }
    for (uint64_t& v : x) v -= v >= m1 ? m1 : 0;
    for (uint64_t& v : y) v -= v >= m2 ? m2 : 0;
    if (x[0] + x[1] + x[2] == 0) x[0] = 1;
    if (y[0] + y[1] + y[2] == 0) y[0] = 1;
  }
  uint64_t operator()() {
    const uint64_t nx = (1403580 * x[1] + (m1 - 810728) * x[0] % m1) % m1;
    const uint64_t ny = (527612 * y[2] + (m2 - 1370589) * y[0] % m2) % m2;
    x[0] = x[1], x[1] = x[2], x[2] = nx;
    y[0] = y[1], y[1] = y[2], y[2] = ny;
    return nx > ny ? nx - ny : nx + m1 - ny;
  }
};

// Four words an element, one after the other.
struct Wh {
  uint64_t x[4], a[4], m[4];
  int part = 0;
  Wh(int member, const Seeds& s) {
    const qor::WhSet& set = qor::WhParams[member];
    for (size_t j = 0; j < 4; ++j) {
      m[j] = set.modulus[j];
      a[j] = set.multiplier[j];
      x[j] = j < s.size() ? s[j] % m[j] : 1;
      if (x[j] == 0) x[j] = 1;
    }
  }
  uint64_t operator()() {
    const uint64_t out = x[part];
    if (++part == 4) {
      for (int j = 0; j < 4; ++j) x[j] = x[j] * a[j] % m[j];
      part = 0;
    }
    return out;
  }
};

// A point's coordinates from its index alone, point after point.
struct Digital {
  std::vector<std::array<uint32_t, 32>> v;
  uint32_t index = 1;
  size_t d = 0;
  uint32_t coordinate(size_t dimension, uint32_t at) const {
    uint32_t x = 0;
    for (int b = 0; b < 32; ++b)
      if ((at ^ at >> 1) >> b & 1) x ^= v[dimension][static_cast<size_t>(b)];
    return x;
  }
  uint64_t operator()() {
    const uint32_t out = coordinate(d, index);
    if (++d == v.size()) d = 0, ++index;
    return out;
  }
};

// Direction numbers of a polynomial, its coefficients from the lowest, and its first odd numbers.
inline std::array<uint32_t, 32> sobol_directions(uint32_t polynomial, const std::vector<uint32_t>& initial) {
  const size_t degree = 31 - static_cast<size_t>(__builtin_clz(polynomial));
  std::vector<uint64_t> m(initial.begin(), initial.begin() + static_cast<std::ptrdiff_t>(degree));
  for (size_t j = degree; j < 32; ++j) {
    uint64_t next = m[j - degree];
    for (size_t back = 1; back <= degree; ++back)
      if (polynomial >> (degree - back) & 1) next ^= m[j - back] << back;
    m.push_back(next);
  }
  std::array<uint32_t, 32> v;
  for (size_t j = 0; j < 32; ++j) v[j] = static_cast<uint32_t>(m[j] << (31 - j));
  return v;
}

struct SobolRow {
  size_t degree;
  uint32_t polynomial;
  std::vector<uint32_t> initial;
};
inline const std::vector<SobolRow>& sobol_rows() {
  static const std::vector<SobolRow> rows = {
#include "qor/brng/sobol_numbers.inc"
  };
  return rows;
}

inline Digital sobol(uint32_t dim) {
  Digital points;
  points.v.emplace_back();
  for (size_t j = 0; j < 32; ++j) points.v[0][j] = 0x80000000u >> j;
  for (uint32_t d = 1; d < dim; ++d) {
    const SobolRow& row = sobol_rows()[d - 1];
    points.v.push_back(sobol_directions(row.polynomial, row.initial));
  }
  return points;
}

using Bits = std::vector<bool>;  // a polynomial, lowest coefficient first
inline Bits product(const Bits& a, const Bits& b) {
  Bits r(a.size() + b.size() - 1);
  for (size_t i = 0; i < a.size(); ++i)
    for (size_t j = 0; j < b.size(); ++j) r[i + j] = r[i + j] != (a[i] && b[j]);
  return r;
}
inline Bits bits_of(uint32_t mask) {
  Bits r;
  for (; mask != 0; mask /= 2) r.push_back(mask % 2 != 0);
  return r;
}

inline std::array<uint32_t, 32> niederreiter_directions(uint32_t polynomial) {
  const Bits p = bits_of(polynomial);
  const size_t e = p.size() - 1;
  std::array<uint32_t, 32> v{};
  Bits power = {true};
  std::vector<bool> s;
  for (size_t r = 0; r < 32; ++r) {
    if (r % e == 0) {
      power = product(power, p);
      const size_t m = power.size() - 1;
      s.assign(m - e, false);
      s.resize(m, true);
      while (s.size() < m + e + 32) {
        bool next = false;
        for (size_t k = 0; k < m; ++k) next = next != (power[k] && s[s.size() - m + k]);
        s.push_back(next);
      }
    }
    for (size_t c = 0; c < 32; ++c) v[c] |= uint32_t{s[r % e + c]} << (31 - r);
  }
  return v;
}

// By trial division.
inline std::vector<uint32_t> irreducible_polynomials(size_t count) {
  std::vector<uint32_t> found;
  for (uint32_t p = 2; found.size() < count; ++p) {
    bool has_factor = false;
    for (uint32_t q : found) {
      uint32_t rest = p;
      while (rest != 0 && __builtin_clz(rest) <= __builtin_clz(q))
        rest ^= q << (__builtin_clz(q) - __builtin_clz(rest));
      if (rest == 0) has_factor = true;
    }
    if (!has_factor) found.push_back(p);
  }
  return found;
}

inline Digital niederreiter(uint32_t dim) {
  static const std::vector<uint32_t> polynomials = irreducible_polynomials(318);
  Digital points;
  for (uint32_t d = 0; d < dim; ++d) points.v.push_back(niederreiter_directions(polynomials[d]));
  return points;
}

inline uint32_t dimensions(const Seeds& s, uint32_t limit) { return s.empty() || s[0] < 1 || s[0] > limit ? 1 : s[0]; }

using Model = std::function<uint64_t()>;

// ---- by generator: the model, and how its words become numbers. One of each for every line of the list. -------------

// Words of one element, as a model gives them.
inline int parts(int32_t brng) { return brng >> 20 == ORVIK_BRNG_WH >> 20 ? 4 : 1; }

struct ModelMCG31M1 {
  static Model make(int, const Seeds& s) { return Mcg31m1(s); }
  static float real(const uint64_t* w, float a, float b) {
    return __builtin_fmaf((b - a) * 0x1p-31f, static_cast<float>(static_cast<double>(*w)), a);
  }
  static double real(const uint64_t* w, double a, double b) {
    return __builtin_fma((b - a) * 4.656612875245797e-10, static_cast<double>(*w), a);
  }
};
struct ModelMCG59 {
  static Model make(int, const Seeds& s) { return Mcg59(s); }
  static float real(const uint64_t* w, float a, float b) {
    return __builtin_fmaf((b - a) * 0x1p-59f, static_cast<float>(static_cast<double>(*w)), a);
  }
  static double real(const uint64_t* w, double a, double b) {
    return __builtin_fma((b - a) * 0x1p-59, static_cast<double>(*w), a);
  }
};
struct FromLow {  // in the type of the result
  static float real(const uint64_t* w, float a, float b) {
    return __builtin_fmaf((b - a) * 0x1p-32f, static_cast<float>(*w), a);
  }
  static double real(const uint64_t* w, double a, double b) {
    return __builtin_fma((b - a) * 0x1p-32, static_cast<double>(*w), a);
  }
};
struct FromMiddle {
  static float real(const uint64_t* w, float a, float b) {
    return __builtin_fmaf((b - a) * 0x1p-32f, static_cast<float>(static_cast<int32_t>(*w)), (a + b) * 0.5f);
  }
  static double real(const uint64_t* w, double a, double b) {
    return __builtin_fma((b - a) * 0x1p-32, static_cast<double>(static_cast<int32_t>(*w)), (a + b) * 0.5);
  }
};
struct ScaledInDouble {  // the scale rounded to float
  static float real(const uint64_t* w, float a, float b) {
    const float scale = static_cast<float>((static_cast<double>(b) - static_cast<double>(a)) * 0x1p-32);
    return __builtin_fmaf(scale, static_cast<float>(*w), a);
  }
  static double real(const uint64_t* w, double a, double b) { return FromLow::real(w, a, b); }
};
struct ModelR250 : FromLow {
  static Model make(int, const Seeds& s) { return R250(s); }
  using FromLow::real;
  static float real(const uint64_t* w, float a, float b) {
    return static_cast<float>(FromLow::real(w, static_cast<double>(a), static_cast<double>(b)));
  }
};
struct ModelMRG32K3A {
  static Model make(int, const Seeds& s) { return Mrg32k3a(s); }
  static float real(const uint64_t* w, float a, float b) {
    const float scale = static_cast<float>((static_cast<double>(b) - static_cast<double>(a)) * (1 / 4294967087.0));
    return __builtin_fmaf(scale, static_cast<float>(*w), a);
  }
  static double real(const uint64_t* w, double a, double b) {
    return __builtin_fma((b - a) * (1 / 4294967087.0), static_cast<double>(*w), a);
  }
};
// The reciprocals depend on the member: whoever needs them asks for make_real below.
struct ModelWH {
  static Model make(int member, const Seeds& s) { return Wh(member, s); }
  static double real(const uint64_t* w, double a, double b, int member) {
    double t = 0;
    for (int j = 0; j < 4; ++j) t += static_cast<double>(w[j]) * (1.0 / qor::WhParams[member].modulus[j]);
    return __builtin_fma(b - a, t - static_cast<double>(static_cast<int64_t>(t)), a);
  }
  static float real(const uint64_t* w, float a, float b, int member) {
    return static_cast<float>(real(w, static_cast<double>(a), static_cast<double>(b), member));
  }
};
struct ModelSobol : ScaledInDouble {
  static Model make(int, const Seeds& s) { return sobol(dimensions(s, 40)); }
};
struct ModelNiederr : ScaledInDouble {
  static Model make(int, const Seeds& s) { return niederreiter(dimensions(s, 318)); }
};
struct ModelMT19937 : FromLow {
  static Model make(int, const Seeds& s) { return mt19937(s); }
};
struct ModelMT2203 : FromLow {
  static Model make(int member, const Seeds& s) { return mt2203(member, s); }
};
struct NoModel : FromLow {
  static Model make(int, const Seeds&) { return {}; }
};
// A caller's numbers, and the processor's, follow no recurrence.
struct ModeliAbstract : NoModel {};
struct ModeldAbstract : NoModel {};
struct ModelsAbstract : NoModel {};
struct ModelTRNG : NoModel {};
struct ModelSFMT19937 {
  static Model make(int, const Seeds& s) { return Sfmt(s); }
  static float real(const uint64_t* w, float a, float b) {
    const double low = a, high = b;
    return __builtin_fmaf(static_cast<float>((high - low) * 0x1p-32), static_cast<float>(static_cast<int32_t>(*w)),
                          static_cast<float>((low + high) * 0.5));
  }
  static double real(const uint64_t* w, double a, double b) { return FromMiddle::real(w, a, b); }
};
struct ModelARS5 : FromMiddle {
  static Model make(int, const Seeds& s) { return ars5(s); }
};
struct ModelPHILOX4X32X10 : FromMiddle {
  static Model make(int, const Seeds& s) { return philox(s); }
};

template <class M, class T>
T model_real(const uint64_t* w, T a, T b, int member) {
  if constexpr (requires { M::real(w, a, b, member); })
    return M::real(w, a, b, member);
  else
    return M::real(w, a, b);
}

// Calls use(model) with an object of the generator's model class.
template <class Use>
auto with_model(int32_t brng, Use use) {
  switch (brng >> 20) {
#define ORVIK_BRNG(constant, functions, ...) \
  case ORVIK_BRNG_##constant >> 20:          \
    return use(Model##functions());
#include "qor/stream/brngs.def"
  }
  std::abort();
}

inline Model make(int32_t brng, const Seeds& seeds) {
  return with_model(brng, [&](auto m) { return decltype(m)::make(brng & 0xFFFFF, seeds); });
}

inline std::vector<uint64_t> take(const Model& model, size_t n) {
  std::vector<uint64_t> r(n);
  for (uint64_t& w : r) w = model();
  return r;
}

// The number that an element becomes; w: its parts.
template <class T>
T to_real(int32_t brng, const uint64_t* w, T a, T b) {
  return with_model(brng, [&](auto m) { return model_real<decltype(m)>(w, a, b, brng & 0xFFFFF); });
}
inline float to_float(int32_t brng, uint64_t w, float a, float b) { return to_real(brng, &w, a, b); }
inline double to_double(int32_t brng, uint64_t w, double a, double b) { return to_real(brng, &w, a, b); }

}  // namespace orvik::models
