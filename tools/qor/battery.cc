#include "battery.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
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

// Equal spacings between sorted birthdays are Poisson with mean n^3 / 4k (Marsaglia 1985), for large n: of the (n - 1)
// (n - 2) / 2 pairs of spacings each is equal with a probability of n / 2k.
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
  return poisson_tail(equal, static_cast<double>(rounds) * kBirthdays * (kBirthdays - 1.0) * (kBirthdays - 2.0) /
                                 std::ldexp(4, kDayBits));
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
  enum Leap { no, yes, one };
  static const std::vector<Generator> list = {
#define ORVIK_BRNG(constant, functions, name, members, record, seeds, zero, bytes, bits, leap, ...) \
  {#functions, ORVIK_BRNG_##constant, leap == one},
#include "qor/stream/brngs.def"
  };
  return list;
}

namespace {

// What fills the rings of abstract streams.
class Feed {
 public:
  explicit Feed(uint32_t seed) {
    if (__qorNewStreamEx(&stream_, ORVIK_BRNG_PHILOX4X32X10, 1, &seed) != 0) std::abort();
  }
  ~Feed() { __qorDeleteStream(&stream_); }
  Feed(const Feed&) = delete;
  Feed& operator=(const Feed&) = delete;
  void draw(uint32_t* r) { __qoriBRngPHILOX4X32X10(stream_, 1, r); }
  void draw(double* r) { __qordBRngPHILOX4X32X10(stream_, 1, r, 0, 1); }
  void draw(float* r) { __qorsBRngPHILOX4X32X10(stream_, 1, r, 0, 1); }

 private:
  OrvikStream stream_ = nullptr;
};
thread_local Feed* feed = nullptr;  // of the reader that is drawing: callbacks have no context of their own

template <class T>
int32_t refill_ring(OrvikStream, int32_t* size, T* ring, int32_t* wanted, int32_t*, int32_t* position) {
  for (int32_t i = 0; i < *wanted; ++i) feed->draw(ring + (*position + i) % *size);
  return *wanted;
}

struct Reader {
  static constexpr int32_t kBuffer = 4096, kRing = 100;
  OrvikStream stream = nullptr;
  RegBrngRow row = {};
  uint32_t value[kBuffer];
  int32_t at = kBuffer;
  std::unique_ptr<Feed> own_feed;
  std::vector<double> ring;

  ~Reader() {
    if (stream) __qorDeleteStream(&stream);
  }

  int32_t open(int32_t brng, uint32_t seed, Form form) {
    if (brng == ORVIK_BRNG_R250) {
      uint32_t seeds[250];
      Feed words(seed);
      for (uint32_t& w : seeds) words.draw(&w);
      return __qorNewStreamEx(&stream, brng, 250, seeds);
    }
    if (brng != ORVIK_BRNG_IABSTRACT && brng != ORVIK_BRNG_DABSTRACT && brng != ORVIK_BRNG_SABSTRACT)
      return __qorNewStreamEx(&stream, brng, 1, &seed);
    own_feed = std::make_unique<Feed>(seed);
    ring.resize(kRing);
    if (brng == ORVIK_BRNG_IABSTRACT && form == Form::words)
      return __qoriNewAbstractStream(&stream, kRing, reinterpret_cast<uint32_t*>(ring.data()), refill_ring<uint32_t>);
    if (brng == ORVIK_BRNG_DABSTRACT && form == Form::doubles)
      return __qordNewAbstractStream(&stream, kRing, ring.data(), 0, 1, refill_ring<double>);
    if (brng == ORVIK_BRNG_SABSTRACT && form == Form::floats)
      return __qorsNewAbstractStream(&stream, kRing, reinterpret_cast<float*>(ring.data()), 0, 1, refill_ring<float>);
    return ORVIK_QOR_ABSTRACT_WRONG_TYPE;
  }

  static void require(int32_t status) {
    if (status < 0) std::abort();
  }
  // The top 32 bits of each word, or as many as it has, moved up.
  void words() {
    std::vector<uint64_t> raw(2 * kBuffer);  // of the widest element
    const auto* const narrow = reinterpret_cast<const uint32_t*>(raw.data());
    const int32_t per_element = row.WordSize == 16 ? 4 : 1;
    require(row.iBRng(stream, kBuffer / per_element, raw.data()));
    for (int32_t i = 0; i < kBuffer; ++i)
      value[i] = row.WordSize == 8 ? static_cast<uint32_t>(raw[static_cast<size_t>(i)] >> (row.NBits - 32))
                                   : narrow[i] << (32 - row.NBits);
  }
  template <class T, class Fill>
  void reals(int bits, Fill fill) {
    T u[kBuffer];
    require(fill(u));
    for (int32_t i = 0; i < kBuffer; ++i) {  // of [0, 1]: a float may round up to 1
      const double scaled = std::min(std::ldexp(static_cast<double>(u[i]), bits), std::ldexp(1, bits) - 1);
      value[i] = static_cast<uint32_t>(scaled) << (32 - bits);
    }
  }
  void refill(Form form, int bits) {
    feed = own_feed.get();
    if (form == Form::words)
      words();
    else if (form == Form::floats)
      reals<float>(bits, [this](float* r) { return row.sBRng(stream, kBuffer, r, 0, 1); });
    else
      reals<double>(bits, [this](double* r) { return row.dBRng(stream, kBuffer, r, 0, 1); });
    at = 0;
  }
};

}  // namespace

// Floats hold 24 bits, the last of them biased where a conversion rounds twice: a word counted from the middle of the
// interval, for one. 22 are as good as the words. Doubles of WH are sums of four fractions: finer than its words.
Source make_source(int32_t brng, uint32_t seed, Form form) {
  const auto reader = std::make_shared<Reader>();
  if (reader->open(brng, seed, form) != 0) return {0, {}};
  __qorGetBrngProperties(brng, &reader->row);
  int bits = std::min(reader->row.NBits, 32);
  if (form == Form::floats) bits = 22;
  if (form == Form::doubles && reader->row.WordSize == 16) bits = 32;
  return {bits, [=] {
            if (reader->at == Reader::kBuffer) reader->refill(form, bits);
            return reader->value[reader->at++];
          }};
}

}  // namespace orvik::battery
