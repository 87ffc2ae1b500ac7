// Distributions of integers, and words.
#include "front/random/draws.h"

using namespace orvik::front;

namespace {

// Means of counts, which a number of 31 bits must hold.
bool sound_mean(double lambda) { return lambda > 0 && lambda < 0x1p31; }
bool sound_means(int64_t n, const double* lambda) {
  bool sound = true;
  for (int64_t i = 0; i < n; ++i) sound &= sound_mean(lambda[i]);
  return sound;
}

// Failures have a mean; where 1 - p rounds to 1 their probabilities would never end.
bool sound_failures(double a, double p) {
  return positive(a) && p > 0 && p <= 1 && 1 - p < 1 && finite(a * ((1 - p) / p));
}

// None negative, their sum 1 up to what the kernel makes good.
bool sound_outcomes(int32_t k, const double* p) {
  double sum = 0;
  for (int32_t j = 0; j < k; ++j) {
    if (!(p[j] >= 0)) return false;
    sum += p[j];
  }
  return sum >= 1 - 0.001 && sum <= 1 + 0.001;
}

bool probability(double p) { return p >= 0 && p <= 1; }

// How a generator's words of 32 good bits are made: its own, or from the high bits of uniforms.
enum class Words { kOwn, kOfOne, kOfTwo };

Words words_of(OrvikStream stream) {
  switch (__qorGetStreamStateBrng(stream) & ~0xFFFFF) {
    case ORVIK_MCG59:
      return Words::kOfOne;
    case ORVIK_MCG31M1:
    case ORVIK_MRG32K3A:
    case ORVIK_WH:
      return Words::kOfTwo;
    default:
      return Words::kOwn;
  }
}

uint32_t high_bits(double u, double scale, uint32_t last) {
  const double scaled = u * scale;
  return scaled >= last ? last : static_cast<uint32_t>(scaled);
}

// The doubles of these generators are drawn rather than their words: MCG31M1 and MCG59 keep another place for words.
orvik_status composed_words(Words kind, OrvikStream stream, int32_t n, uint32_t* r) {
  constexpr int32_t kBlock = 512;
  double u[2 * kBlock];
  const int32_t each = kind == Words::kOfTwo ? 2 : 1;
  for (int32_t done = 0; done < n;) {
    const int32_t m = n - done < kBlock ? n - done : kBlock;
    const orvik_status status = _qordRngUniform(0, stream, each * m, u, 0.0, 1.0);
    if (status < 0) return status;
    for (int32_t k = 0; k < m; ++k) {
      r[done + k] = each == 1 ? high_bits(u[k], 0x1p32, 0xFFFFFFFF)
                              : high_bits(u[2 * k], 0x1p16, 0xFFFF) << 16 | high_bits(u[2 * k + 1], 0x1p16, 0xFFFF);
    }
    done += m;
  }
  return ORVIK_SUCCESS;
}

orvik_status words(OrvikStream stream, int32_t n, uint32_t* r) {
  const Words kind = words_of(stream);
  if (kind != Words::kOwn) return composed_words(kind, stream, n, r);
  const orvik_status status = _qoriRngUniformBits32(0, stream, n, r);
  if (status != ORVIK_QOR_NO_WORDS) return status;
  RegBrngRow row;  // words of 32 bits that are not counted among the good ones: R250, points
  if (__qorGetBrngProperties(__qorGetStreamStateBrng(stream), &row) != 0 || row.WordSize != 4 || row.NBits != 32) {
    return ORVIK_ERROR_UNSUPPORTED;
  }
  return _qoriRngUniformBits(0, stream, n, r);
}

int64_t uniforms_of_word(const orvik_stream* s) {
  const OrvikStream stream = stream_of(s);
  return stream != nullptr && words_of(stream) == Words::kOfTwo ? 2 : 1;
}

}  // namespace

extern "C" {

orvik_status orvik_i_words(orvik_stream* s, int64_t n, uint32_t* r) { return draw<uint32_t>({s, n, true}, r, words); }
orvik_status orvik_i_words_threads(orvik_stream* s, int64_t n, uint32_t* r, int32_t threads) {
  return draw_split<uint32_t>({s, n, true}, r, uniforms_of_word(s), false, threads, words);
}

#define UNPACK(...) __VA_ARGS__
#define PLAIN(name, Kernel, parameters, arguments, valid)                                    \
  orvik_status orvik_i_##name(orvik_stream* s, int64_t n, int32_t* r, UNPACK parameters) {   \
    return draw<int32_t>({s, n, valid}, r, [&](OrvikStream stream, int32_t m, int32_t* to) { \
      return _qoriRng##Kernel(0, stream, m, to, UNPACK arguments);                           \
    });                                                                                      \
  }
#define SPLIT(name, Kernel, parameters, arguments, valid)                                                             \
  PLAIN(name, Kernel, parameters, arguments, valid)                                                                   \
  orvik_status orvik_i_##name##_threads(orvik_stream* s, int64_t n, int32_t* r, UNPACK parameters, int32_t threads) { \
    return draw_split<int32_t>({s, n, valid}, r, 1, false, threads, [&](OrvikStream stream, int32_t m, int32_t* to) { \
      return _qoriRng##Kernel(0, stream, m, to, UNPACK arguments);                                                    \
    });                                                                                                               \
  }

SPLIT(uniform, Uniform, (int32_t a, int32_t b), (a, b), a < b)
SPLIT(bernoulli, Bernoulli, (double p), (p), probability(p))
SPLIT(geometric, Geometric, (double p), (p), p > 0 && p < 1)
PLAIN(binomial, Binomial, (int32_t ntrial, double p), (ntrial, p), ntrial >= 0 && probability(p))
PLAIN(hypergeometric, Hypergeometric, (int32_t l, int32_t sample, int32_t marked), (l, sample, marked),
      l >= 0 && sample >= 0 && sample <= l && marked >= 0 && marked <= l)
PLAIN(negbinomial, Negbinomial, (double a, double p), (a, p), sound_failures(a, p))

orvik_status orvik_i_poisson(orvik_stream* s, int64_t n, int32_t* r, double lambda, uint32_t method) {
  return draw<int32_t>(
      {s, n, sound_mean(lambda) && method <= ORVIK_POISSON_NORMAL}, r,
      [&](OrvikStream stream, int32_t m, int32_t* to) { return _qoriRngPoisson(method, stream, m, to, lambda); });
}

orvik_status orvik_i_poissonv(orvik_stream* s, int64_t n, int32_t* r, const double* lambda) {
  const auto bytes = static_cast<int64_t>(sizeof(double));
  return draw_from<int32_t>(
      {s, n, true}, r, {{lambda, n, bytes}}, [&] { return sound_means(n, lambda); },
      [&](OrvikStream stream, int32_t m, int32_t* to) {
        return _qoriRngPoissonV(0, stream, m, to, lambda + (to - r));
      });
}

orvik_status orvik_i_multinomial(orvik_stream* s, int64_t n, int32_t* r, int32_t ntrial, int32_t k, const double* p,
                                 uint32_t method) {
  const bool valid = ntrial >= 0 && k >= 1 && method <= ORVIK_MULTINOMIAL_POISSON;
  const int64_t outcomes = valid ? k : 1, bytes = sizeof(double);
  return draw_from<int32_t>(
      {s, n, valid, outcomes}, r, {{p, outcomes, bytes}}, [&] { return sound_outcomes(k, p); },
      [&](OrvikStream stream, int32_t m, int32_t* to) {
        return _qoriRngMultinomial(method, stream, m, to, ntrial, k, p);
      });
}

}  // extern "C"
