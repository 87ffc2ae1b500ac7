#include "peers.h"

#include <immintrin.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <random>

#ifdef ORVIK_BENCH_BOOST
#include <boost/random/mersenne_twister.hpp>
#include <boost/random/niederreiter_base2.hpp>
#include <boost/random/sobol.hpp>
#endif
#ifdef ORVIK_BENCH_GSL
#include <gsl/gsl_qrng.h>
#include <gsl/gsl_rng.h>
#endif

namespace orvik::bench {
namespace {

// A peer from one that gives a number at a time; `kUnit` times a word is a number of [0, 1).
template <class G>
StreamPeer one_by_one(std::string name, G source) {
  const auto g = std::make_shared<G>(std::move(source));
  StreamPeer p;
  p.name = std::move(name);
  // Copies of the state in registers and on the stack: the loop would otherwise reload it for fear of overlap.
  p.words = [g](uint32_t* r, int32_t n) {
    G own = *g;
    for (int32_t i = 0; i < n; ++i) r[i] = static_cast<uint32_t>(own());
    *g = own;
  };
  p.floats = [g](float* r, int32_t n) {
    G own = *g;
    for (int32_t i = 0; i < n; ++i) r[i] = static_cast<float>(own()) * static_cast<float>(G::kUnit);
    *g = own;
  };
  p.doubles = [g](double* r, int32_t n) {
    G own = *g;
    for (int32_t i = 0; i < n; ++i) r[i] = static_cast<double>(own()) * G::kUnit;
    *g = own;
  };
  return p;
}

// As above, where copying the state would cost more than it saves.
template <class G>
StreamPeer in_place(std::string name, G source) {
  const auto g = std::make_shared<G>(std::move(source));
  StreamPeer p;
  p.name = std::move(name);
  p.words = [g](uint32_t* r, int32_t n) {
    for (int32_t i = 0; i < n; ++i) r[i] = static_cast<uint32_t>((*g)());
  };
  p.floats = [g](float* r, int32_t n) {
    for (int32_t i = 0; i < n; ++i) r[i] = static_cast<float>((*g)()) * 0x1p-32f;
  };
  p.doubles = [g](double* r, int32_t n) {
    for (int32_t i = 0; i < n; ++i) r[i] = static_cast<double>((*g)()) * 0x1p-32;
  };
  return p;
}

struct Mcg31 {
  static constexpr double kUnit = 1 / 2147483647.0;
  uint64_t x = 777;
  uint64_t operator()() {
    const uint64_t out = x, p = x * 1132489760, s = (p & 0x7FFFFFFF) + (p >> 31);
    x = s >= 0x7FFFFFFF ? s - 0x7FFFFFFF : s;
    return out;
  }
};

struct Mcg59 {
  static constexpr double kUnit = 0x1p-59;
  uint64_t x = 777;
  uint64_t operator()() {
    const uint64_t out = x;
    x = x * 302875106592253 & ((uint64_t{1} << 59) - 1);
    return out;
  }
};

struct Mrg32k3a {
  static constexpr double kUnit = 1 / 4294967087.0;
  static constexpr uint64_t m1 = 4294967087, m2 = 4294944443;
  uint64_t x0 = 7, x1 = 7, x2 = 7, y0 = 7, y1 = 7, y2 = 7;
  uint64_t operator()() {
    const uint64_t x = (1403580 * x1 + 810728 * (m1 - x0)) % m1, y = (527612 * y2 + 1370589 * (m2 - y0)) % m2;
    x0 = x1, x1 = x2, x2 = x;
    y0 = y1, y1 = y2, y2 = y;
    return x > y ? x - y : x + m1 - y;
  }
};

struct R250 {
  uint32_t r[250];
  int p = 0, q = 103;
  R250() {
    uint32_t s = 777;
    for (uint32_t& w : r) w = s *= 69069;
  }
  uint32_t operator()() {
    const uint32_t w = r[p] ^= r[q];
    p = p == 249 ? 0 : p + 1;
    q = q == 249 ? 0 : q + 1;
    return w;
  }
};

// Four residues an element; the moduli are constants, so that remainders are multiplications.
struct Wh {
  uint64_t x[4] = {1, 2, 3, 4};
  void step() {
    x[0] = x[0] * 125 % 16770647;
    x[1] = x[1] * 117 % 16770643;
    x[2] = x[2] * 127 % 16770623;
    x[3] = x[3] * 126 % 16770617;
  }
  double real() {
    const double t = static_cast<double>(x[0]) * (1 / 16770647.0) + static_cast<double>(x[1]) * (1 / 16770643.0) +
                     static_cast<double>(x[2]) * (1 / 16770623.0) + static_cast<double>(x[3]) * (1 / 16770617.0);
    step();
    return t - static_cast<double>(static_cast<int>(t));
  }
};
StreamPeer wh() {
  const auto g = std::make_shared<Wh>();
  return {"scalar loop",
          [g](uint32_t* r, int32_t n) {
            Wh own = *g;
            for (int32_t i = 0; i < n; ++i, own.step())
              for (int j = 0; j < 4; ++j) r[4 * i + j] = static_cast<uint32_t>(own.x[j]);
            *g = own;
          },
          [g](float* r, int32_t n) {
            Wh own = *g;
            for (int32_t i = 0; i < n; ++i) r[i] = static_cast<float>(own.real());
            *g = own;
          },
          [g](double* r, int32_t n) {
            Wh own = *g;
            for (int32_t i = 0; i < n; ++i) r[i] = own.real();
            *g = own;
          }};
}

struct Philox {
  static constexpr double kUnit = 0x1p-32;
  uint64_t counter = 0;
  uint32_t block[4];
  int used = 4;
  uint64_t operator()() {
    if (used == 4) {
      uint32_t c0 = static_cast<uint32_t>(counter), c1 = static_cast<uint32_t>(counter >> 32), c2 = 0, c3 = 0;
      uint32_t k0 = 777, k1 = 0;
      for (int round = 0; round < 10; ++round) {
        const uint64_t p0 = 0xD2511F53ull * c0, p1 = 0xCD9E8D57ull * c2;
        c0 = static_cast<uint32_t>(p1 >> 32) ^ c1 ^ k0;
        c1 = static_cast<uint32_t>(p1);
        c2 = static_cast<uint32_t>(p0 >> 32) ^ c3 ^ k1;
        c3 = static_cast<uint32_t>(p0);
        k0 += 0x9E3779B9;
        k1 += 0xBB67AE85;
      }
      block[0] = c0, block[1] = c1, block[2] = c2, block[3] = c3;
      ++counter;
      used = 0;
    }
    return block[used++];
  }
};

// Nothing but five AES instructions a block, eight blocks in flight, stored.
void five_aes(uint32_t* r, int32_t n) {
  __m128i x[8], key = _mm_set1_epi32(77);
  for (int k = 0; k < 8; ++k) x[k] = _mm_set1_epi32(k);
  for (int32_t i = 0; i + 32 <= n; i += 32)
    for (int k = 0; k < 8; ++k) {
      __m128i y = x[k];
      for (int round = 0; round < 4; ++round) y = _mm_aesenc_si128(y, key);
      _mm_storeu_si128(reinterpret_cast<__m128i*>(r + i + 4 * k), _mm_aesenclast_si128(y, key));
      x[k] = _mm_add_epi64(x[k], key);
    }
}

// The published block fill at 128 bits (Saito, Matsumoto 2008): the array is its own ring.
struct Sfmt {
  __m128i state[156];
  Sfmt() {
    std::mt19937 seed(5);
    for (__m128i& w : state)
      w = _mm_set_epi32(static_cast<int>(seed()), static_cast<int>(seed()), static_cast<int>(seed()),
                        static_cast<int>(seed()));
  }
  static __m128i next(__m128i a, __m128i b, __m128i c, __m128i d, __m128i mask) {
    __m128i y = _mm_srli_epi32(b, 11), z = _mm_srli_si128(c, 1), v = _mm_slli_epi32(d, 18);
    z = _mm_xor_si128(z, a);
    z = _mm_xor_si128(z, v);
    const __m128i x = _mm_slli_si128(a, 1);
    y = _mm_and_si128(y, mask);
    z = _mm_xor_si128(z, x);
    return _mm_xor_si128(z, y);
  }
  void fill(uint32_t* r, int32_t n) {
    const __m128i mask = _mm_set_epi32(static_cast<int>(0xBFFFFFF6), static_cast<int>(0xBFFAFFFF),
                                       static_cast<int>(0xDDFECB7F), static_cast<int>(0xDFFFFFEF));
    __m128i* const out = reinterpret_cast<__m128i*>(r);
    const int size = n / 4;
    const auto put = [out](int i, __m128i w) { _mm_storeu_si128(out + i, w); };
    const auto get = [out](int i) { return _mm_loadu_si128(out + i); };
    __m128i c = state[154], d = state[155];
    int i = 0;
    for (; i < 156 - 122; ++i) {
      const __m128i w = next(state[i], state[i + 122], c, d, mask);
      put(i, w);
      c = d, d = w;
    }
    for (; i < 156; ++i) {
      const __m128i w = next(state[i], get(i + 122 - 156), c, d, mask);
      put(i, w);
      c = d, d = w;
    }
    for (; i < size; ++i) {
      const __m128i w = next(get(i - 156), get(i + 122 - 156), c, d, mask);
      put(i, w);
      c = d, d = w;
    }
    for (int k = 0; k < 156; ++k) state[k] = get(size - 156 + k);
  }
};

#ifdef ORVIK_BENCH_BOOST
template <class G>
StreamPeer boost_points(const char* name, uint32_t dim) {
  return in_place(name, [g = G(dim)]() mutable { return static_cast<uint32_t>(g()); });
}
#endif

#ifdef ORVIK_BENCH_GSL
StreamPeer gsl(const char* name, const gsl_rng_type* type) {
  const std::shared_ptr<gsl_rng> g(gsl_rng_alloc(type), gsl_rng_free);
  return {name,
          [g](uint32_t* r, int32_t n) {
            for (int32_t i = 0; i < n; ++i) r[i] = static_cast<uint32_t>(gsl_rng_get(g.get()));
          },
          [g](float* r, int32_t n) {
            for (int32_t i = 0; i < n; ++i) r[i] = static_cast<float>(gsl_rng_uniform(g.get()));
          },
          [g](double* r, int32_t n) {
            for (int32_t i = 0; i < n; ++i) r[i] = gsl_rng_uniform(g.get());
          }};
}
StreamPeer gsl_points(const char* name, const gsl_qrng_type* type, uint32_t dim) {
  const std::shared_ptr<gsl_qrng> g(gsl_qrng_alloc(type, dim), gsl_qrng_free);
  StreamPeer p;
  p.name = name;
  p.doubles = [g, dim](double* r, int32_t n) {
    for (int32_t i = 0; i + static_cast<int32_t>(dim) <= n; i += static_cast<int32_t>(dim))
      gsl_qrng_get(g.get(), r + i);
  };
  return p;
}
#endif

}  // namespace

std::vector<StreamPeer> peers_of(const std::string& generator, uint32_t dim) {
  std::vector<StreamPeer> peers;
  if (generator == "MCG31M1") peers.push_back(one_by_one("scalar loop", Mcg31()));
  if (generator == "MCG59") peers.push_back(one_by_one("scalar loop", Mcg59()));
  if (generator == "MRG32K3A") peers.push_back(one_by_one("scalar loop", Mrg32k3a()));
  if (generator == "R250") peers.push_back(in_place("scalar loop", R250()));
  if (generator == "WH") peers.push_back(wh());
  if (generator == "PHILOX4X32X10") peers.push_back(one_by_one("scalar loop", Philox()));
  if (generator == "ARS5") peers.push_back({"five AES instructions", five_aes, {}, {}});
  if (generator == "SFMT19937") {
    const auto g = std::make_shared<Sfmt>();
    peers.push_back({"published block fill", [g](uint32_t* r, int32_t n) { g->fill(r, n); }, {}, {}});
  }
  if (generator == "MT19937" || generator == "MT2203" || generator == "SFMT19937") {
    peers.push_back(in_place("std::mt19937", std::mt19937(777)));
#ifdef ORVIK_BENCH_BOOST
    peers.push_back(in_place("boost::mt19937", boost::random::mt19937(777)));
#endif
#ifdef ORVIK_BENCH_GSL
    peers.push_back(gsl("GSL mt19937", gsl_rng_mt19937));
#endif
  }
#ifdef ORVIK_BENCH_BOOST
  if (generator == "Sobol") peers.push_back(boost_points<boost::random::sobol>("Boost sobol", dim));
  if (generator == "Niederr")
    peers.push_back(boost_points<boost::random::niederreiter_base2>("Boost niederreiter_base2", dim));
#endif
#ifdef ORVIK_BENCH_GSL
  if (generator == "R250") peers.push_back(gsl("GSL r250", gsl_rng_r250));
  if (generator == "Sobol") peers.push_back(gsl_points("GSL sobol", gsl_qrng_sobol, dim));
  if (generator == "Niederr") peers.push_back(gsl_points("GSL niederreiter_2", gsl_qrng_niederreiter_2, dim));
#endif
  static_cast<void>(dim);
  return peers;
}

}  // namespace orvik::bench
