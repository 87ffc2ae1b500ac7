#include "battery.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "orvik/qor.h"

namespace orvik::battery {
namespace {

// ---- tails ---------------------------------------------------------------------------------------------------------

double normal_tail(double z) { return 0.5 * std::erfc(z / std::sqrt(2.0)); }

// Upper regularised incomplete gamma function, by its series and its continued fraction (Gautschi 1979).
double gamma_tail(double a, double x) {
  if (x <= 0) return 1;
  const double front = std::exp(a * std::log(x) - x - std::lgamma(a));
  if (x < a + 1) {
    double term = 1 / a, sum = term;
    for (double k = a + 1; term > sum * 1e-16; ++k) sum += term *= x / k;
    return 1 - front * sum;
  }
  double b = x + 1 - a, c = 1e300, d = 1 / b, h = d;
  for (int i = 1; i < 10000; ++i) {
    const double an = -i * (i - a);
    b += 2;
    d = 1 / (an * d + b);
    c = b + an / c;
    h *= d * c;
    if (std::fabs(d * c - 1) < 1e-15) break;
  }
  return front * h;
}

double chi_square_tail(double x, int degrees) { return gamma_tail(degrees / 2.0, x / 2); }

// Of a count with a Poisson law: half of the probability of the count itself, so that p is symmetric.
double poisson_tail(int64_t count, double mean) {
  const double k = static_cast<double>(count);
  const double at_least = count == 0 ? 1 : 1 - gamma_tail(k, mean), more = 1 - gamma_tail(k + 1, mean);
  return 0.5 * (at_least + more);
}

double chi_square(const std::vector<int64_t>& seen, const std::vector<double>& expected) {
  double x = 0;
  for (size_t i = 0; i < seen.size(); ++i) {
    const double d = static_cast<double>(seen[i]) - expected[i];
    x += d * d / expected[i];
  }
  return chi_square_tail(x, static_cast<int>(seen.size()) - 1);
}

}  // namespace

double monobit(Source& source, int64_t values) {
  int64_t ones = 0;
  for (int64_t i = 0; i < values; ++i) ones += __builtin_popcount(source.next());
  const double n = static_cast<double>(values) * source.bits;
  return normal_tail((2 * static_cast<double>(ones) - n) / std::sqrt(n));
}

// Changes from bit to bit, in the order of the values.
double runs(Source& source, int64_t values) {
  int64_t changes = 0, ones = 0;
  uint32_t last = 0;
  for (int64_t i = 0; i < values; ++i) {
    const uint32_t v = source.next() >> (32 - source.bits);
    ones += __builtin_popcount(v);
    changes += __builtin_popcount((v ^ v >> 1) & ((1u << (source.bits - 1)) - 1));
    if (i > 0) changes += (v >> (source.bits - 1) ^ last) & 1;
    last = v & 1;
  }
  const double n = static_cast<double>(values) * source.bits, p = static_cast<double>(ones) / n, v = p * (1 - p);
  return normal_tail((static_cast<double>(changes) - 2 * n * v) / (2 * std::sqrt(n) * v));
}

double serial_correlation(Source& source, int64_t values) {
  double last = 0, sum = 0;
  for (int64_t i = 0; i < values; ++i) {
    const double u = (source.next() + std::ldexp(0.5, 32 - source.bits)) * 0x1p-32 - 0.5;
    if (i > 0) sum += u * last;
    last = u;
  }
  return normal_tail(sum * 12 / std::sqrt(static_cast<double>(values - 1)));
}

// Equal spacings between sorted birthdays are Poisson with mean n^3 / 4k (Marsaglia 1985).
double birthday_spacings(Source& source, int64_t rounds) {
  constexpr int kBirthdays = 256, kDayBits = 22;
  std::array<uint32_t, kBirthdays> day;
  int64_t equal = 0;
  for (int64_t r = 0; r < rounds; ++r) {
    for (uint32_t& d : day) d = source.next() >> (32 - kDayBits);
    std::sort(day.begin(), day.end());
    for (size_t i = kBirthdays - 1; i > 0; --i) day[i] -= day[i - 1];
    std::sort(day.begin() + 1, day.end());
    for (size_t i = 2; i < kBirthdays; ++i) equal += day[i] == day[i - 1];
  }
  return poisson_tail(equal, static_cast<double>(rounds) * std::pow(kBirthdays, 3) / std::ldexp(4, kDayBits));
}

// Two values choose an urn: eleven bits of each.
double collisions(Source& source, int64_t rounds) {
  constexpr int kBalls = 4096, kHalf = 11;
  const double urns = std::ldexp(1, 2 * kHalf);
  std::vector<uint8_t> used(size_t{1} << 2 * kHalf);
  std::vector<size_t> taken;
  int64_t hits = 0;
  for (int64_t r = 0; r < rounds; ++r) {
    for (int i = 0; i < kBalls; ++i) {
      const size_t high = source.next() >> (32 - kHalf), urn = high << kHalf | source.next() >> (32 - kHalf);
      hits += used[urn];
      used[urn] = 1;
      taken.push_back(urn);
    }
    for (size_t urn : taken) used[urn] = 0;
    taken.clear();
  }
  const double mean = kBalls - urns + urns * std::exp(kBalls * std::log1p(-1 / urns));
  return poisson_tail(hits, static_cast<double>(rounds) * mean);
}

double gaps(Source& source, int64_t count) {
  constexpr size_t kLongest = 40;
  std::vector<int64_t> seen(kLongest + 1);
  std::vector<double> expected(kLongest + 1);
  for (int64_t g = 0; g < count; ++g) {
    size_t gap = 0;
    while (source.next() >= 0x20000000) ++gap;
    ++seen[std::min(gap, kLongest)];
  }
  for (size_t i = 0; i <= kLongest; ++i)
    expected[i] = static_cast<double>(count) * std::pow(0.875, static_cast<double>(i)) * (i < kLongest ? 0.125 : 1);
  return chi_square(seen, expected);
}

double matrix_rank(Source& source, int64_t matrices) {
  constexpr int kSize = 22;
  std::vector<int64_t> seen(3);
  for (int64_t m = 0; m < matrices; ++m) {
    std::array<uint32_t, kSize> row;
    for (uint32_t& r : row) r = source.next() >> (32 - kSize);
    int rank = 0;
    for (int bit = kSize - 1; bit >= 0; --bit) {
      const auto pivot = std::find_if(row.begin() + rank, row.end(), [bit](uint32_t r) { return r >> bit & 1; });
      if (pivot == row.end()) continue;
      std::swap(row[static_cast<size_t>(rank)], *pivot);
      for (size_t i = static_cast<size_t>(rank) + 1; i < kSize; ++i)
        if (row[i] >> bit & 1) row[i] ^= row[static_cast<size_t>(rank)];
      ++rank;
    }
    ++seen[static_cast<size_t>(std::min(kSize - rank, 2))];
  }
  double full = 1;  // probability of full rank
  for (int i = 1; i <= kSize; ++i) full *= 1 - std::ldexp(1, -i);
  const double one_less = 2 * full * (1 - std::ldexp(1, -kSize));
  const double n = static_cast<double>(matrices);
  return chi_square(seen, {n * full, n * one_less, n * (1 - full - one_less)});
}

const std::vector<Test>& tests() {
  static const std::vector<Test> list = {{"monobit", monobit, 200000},
                                         {"runs", runs, 200000},
                                         {"serial correlation", serial_correlation, 200000},
                                         {"birthday spacings", birthday_spacings, 400},
                                         {"collision", collisions, 50},
                                         {"gap", gaps, 20000},
                                         {"matrix rank", matrix_rank, 10000}};
  return list;
}

const char* name_of(Form form) { return form == Form::words ? "words" : form == Form::floats ? "floats" : "doubles"; }

const std::vector<Generator>& generators() {
  static const std::vector<Generator> list = {
      {"MCG31M1", ORVIK_BRNG_MCG31M1}, {"MCG59", ORVIK_BRNG_MCG59}, {"MT19937", ORVIK_BRNG_MT19937},
      {"MT2203", ORVIK_BRNG_MT2203},   {"ARS5", ORVIK_BRNG_ARS5},   {"PHILOX4X32X10", ORVIK_BRNG_PHILOX4X32X10}};
  return list;
}

namespace {

struct Reader {
  static constexpr int32_t kBuffer = 4096;
  OrvikStream stream = nullptr;
  RegBrngRow row = {};
  uint32_t value[kBuffer];
  int32_t at = kBuffer;

  ~Reader() {
    if (stream) __qorDeleteStream(&stream);
  }
  void refill(Form form, int bits) {
    alignas(32) uint64_t raw[kBuffer];
    const int unused = 32 - bits;
    const auto cut = [&](double u) {  // of [0, 1]: a float may round up to 1
      const double scaled = std::min(std::ldexp(u, bits), std::ldexp(1, bits) - 1);
      return static_cast<uint32_t>(scaled) << unused;
    };
    if (form == Form::words) {
      row.iBRng(stream, kBuffer, raw);
      for (int32_t i = 0; i < kBuffer; ++i)
        value[i] = row.WordSize == 8 ? static_cast<uint32_t>(raw[i] >> (row.NBits - 32))
                                     : reinterpret_cast<const uint32_t*>(raw)[i] << unused;
    } else if (form == Form::floats) {
      float* const f = reinterpret_cast<float*>(raw);
      row.sBRng(stream, kBuffer, f, 0, 1);
      for (int32_t i = 0; i < kBuffer; ++i) value[i] = cut(static_cast<double>(f[i]));
    } else {
      double* const d = reinterpret_cast<double*>(raw);
      row.dBRng(stream, kBuffer, d, 0, 1);
      for (int32_t i = 0; i < kBuffer; ++i) value[i] = cut(d[i]);
    }
    at = 0;
  }
};

}  // namespace

// Floats hold 24 bits, the last of them biased where a conversion rounds twice: a word counted from the middle of the
// interval, for one. 22 are as good as the words.
Source make_source(int32_t brng, uint32_t seed, Form form) {
  const auto reader = std::make_shared<Reader>();
  if (__qorNewStreamEx(&reader->stream, brng, 1, &seed) != 0) return {0, {}};
  __qorGetBrngProperties(brng, &reader->row);
  const int word_bits = std::min(reader->row.NBits, 32), bits = form == Form::floats ? 22 : word_bits;
  return {bits, [=] {
            if (reader->at == Reader::kBuffer) reader->refill(form, bits);
            return reader->value[reader->at++];
          }};
}

}  // namespace orvik::battery
