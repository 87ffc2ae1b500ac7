// Speed of the streams: every figure beside its peer, measured in the same run.
//
//   bench_streams [--benchmark_filter=...]     after the usual lines, a table of ours, peer, ratio and goal
//
// Each measurement runs five times; the table takes the fastest.
#include <benchmark/benchmark.h>
#include <immintrin.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "orvik/qor.h"

namespace {

constexpr int32_t kInCache = 10000, kLong = 10000000;

class Stream {
 public:
  explicit Stream(int32_t brng) {
    const uint32_t seed = 777;
    __qorNewStreamEx(&stream_, brng, 1, &seed);
    __qorGetBrngProperties(brng, &row_);
  }
  ~Stream() { __qorDeleteStream(&stream_); }
  OrvikStream get() const { return stream_; }
  const RegBrngRow& row() const { return row_; }

 private:
  OrvikStream stream_ = nullptr;
  RegBrngRow row_;
};

// ---- the table of results ------------------------------------------------------------------------------------------

struct Comparison {
  std::string what, ours, peer, goal;
};
std::vector<Comparison> comparisons;
std::map<std::string, double> fastest;  // ns per item

class Reporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      double ns = run.GetAdjustedCPUTime();
      const auto items = run.counters.find("items");
      if (items != run.counters.end()) ns /= items->second;
      double& best = fastest.try_emplace(run.run_name.function_name, ns).first->second;
      best = std::min(best, ns);
    }
    ConsoleReporter::ReportRuns(runs);
  }
};

void print_table() {
  std::printf("\n| what | ours, ns | peer, ns | peer / ours | goal |\n|---|---|---|---|---|\n");
  for (const Comparison& c : comparisons) {
    const auto ours = fastest.find(c.ours), peer = fastest.find(c.peer);
    if (ours == fastest.end()) continue;
    if (peer == fastest.end())
      std::printf("| %s | %.3f | | | %s |\n", c.what.c_str(), ours->second, c.goal.c_str());
    else
      std::printf("| %s | %.3f | %.3f | %.2f | %s |\n", c.what.c_str(), ours->second, peer->second,
                  peer->second / ours->second, c.goal.c_str());
  }
}

// `body` makes `items` numbers.
void measure(const std::string& name, double items, std::function<void()> body) {
  benchmark::RegisterBenchmark(name.c_str(),
                               [=](benchmark::State& state) {
                                 for (auto _ : state) {
                                   body();
                                   benchmark::ClobberMemory();
                                 }
                                 state.counters["items"] = items;
                               })
      ->Repetitions(5)
      ->ReportAggregatesOnly(false)
      ->MinTime(0.05);
}

// ---- peers ---------------------------------------------------------------------------------------------------------

void plain_philox(uint32_t* r, int32_t n) {
  static uint64_t counter = 0;
  for (int32_t i = 0; i < n; i += 4, ++counter) {
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
    r[i] = c0;
    r[i + 1] = c1;
    r[i + 2] = c2;
    r[i + 3] = c3;
  }
}

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

void plain_mcg31(uint32_t* r, int32_t n) {
  static uint64_t x = 777;
  for (int32_t i = 0; i < n; ++i) {
    r[i] = static_cast<uint32_t>(x);
    const uint64_t p = x * 1132489760, s = (p & 0x7FFFFFFF) + (p >> 31);
    x = s >= 0x7FFFFFFF ? s - 0x7FFFFFFF : s;
  }
}

void plain_mcg59(uint64_t* r, int32_t n) {
  static uint64_t x = 777;
  for (int32_t i = 0; i < n; ++i) {
    r[i] = x;
    x = x * 302875106592253 & ((uint64_t{1} << 59) - 1);
  }
}

// ---- what is measured ----------------------------------------------------------------------------------------------

struct Generator {
  const char* name;
  int32_t brng;
  const char* peer;
  const char* goal;
};
const Generator kGenerators[] = {{"MT19937", ORVIK_BRNG_MT19937, "std::mt19937", ">= 4"},
                                 {"MT2203", ORVIK_BRNG_MT2203, "std::mt19937", ">= 3"},
                                 {"PHILOX4X32X10", ORVIK_BRNG_PHILOX4X32X10, "plain Philox", ">= 2.2"},
                                 {"ARS5", ORVIK_BRNG_ARS5, "five AES instructions", ">= 0.83"},
                                 {"MCG31M1", ORVIK_BRNG_MCG31M1, "plain MCG31M1", ">= 4"},
                                 {"MCG59", ORVIK_BRNG_MCG59, "plain MCG59", ">= 4"}};

std::vector<uint64_t> buffer(kLong);  // of every element type
template <class T>
T* as() {
  return reinterpret_cast<T*>(buffer.data());
}

void register_peers() {
  measure("std::mt19937", kInCache, [] {
    static std::mt19937 engine(777);
    for (int32_t i = 0; i < kInCache; ++i) as<uint32_t>()[i] = static_cast<uint32_t>(engine());
  });
  measure("plain Philox", kInCache, [] { plain_philox(as<uint32_t>(), kInCache); });
  measure("five AES instructions", kInCache, [] { five_aes(as<uint32_t>(), kInCache); });
  measure("plain MCG31M1", kInCache, [] { plain_mcg31(as<uint32_t>(), kInCache); });
  measure("plain MCG59", kInCache, [] { plain_mcg59(as<uint64_t>(), kInCache); });
  measure("memset of floats", kLong, [] { std::memset(buffer.data(), 0, 4 * size_t{kLong}); });
  measure("memset of doubles", kLong, [] { std::memset(buffer.data(), 0, 8 * size_t{kLong}); });
}

void register_generator(const Generator& g) {
  const auto stream = std::make_shared<Stream>(g.brng);
  const std::string name = g.name;
  const auto words = [=](int32_t n) { stream->row().iBRng(stream->get(), n, buffer.data()); };
  const auto floats = [=](int32_t n) { stream->row().sBRng(stream->get(), n, as<float>(), 0, 1); };
  const auto doubles = [=](int32_t n) { stream->row().dBRng(stream->get(), n, as<double>(), 0, 1); };
  measure(name + " words", kInCache, [=] { words(kInCache); });
  measure(name + " floats", kInCache, [=] { floats(kInCache); });
  measure(name + " doubles", kInCache, [=] { doubles(kInCache); });
  measure(name + " floats, long", kLong, [=] { floats(kLong); });
  measure(name + " doubles, long", kLong, [=] { doubles(kLong); });
  measure(name + " one word", 1, [=] { words(1); });
  measure(name + " one float", 1, [=] { floats(1); });
  measure(name + " one double", 1, [=] { doubles(1); });
  comparisons.push_back({name + ", words, n = 10^4, beside " + g.peer, name + " words", g.peer, g.goal});
  comparisons.push_back({name + ", floats beside words", name + " floats", name + " words", ">= 0.67"});
  comparisons.push_back({name + ", doubles beside words", name + " doubles", name + " words", ">= 0.67"});
  comparisons.push_back(
      {name + ", floats, n = 10^7, beside memset", name + " floats, long", "memset of floats", "near 1"});
  comparisons.push_back(
      {name + ", doubles, n = 10^7, beside memset", name + " doubles, long", "memset of doubles", "near 1"});
  comparisons.push_back({name + ", call for one word", name + " one word", "", "<= 20 ns"});
  comparisons.push_back({name + ", call for one float", name + " one float", "", "<= 20 ns"});
  comparisons.push_back({name + ", call for one double", name + " one double", "", "<= 20 ns"});
}

void register_skip(const std::string& name, int32_t brng, const char* goal) {
  const auto stream = std::make_shared<Stream>(brng);
  measure(name + " skip", 1, [=] { __qorSkipAheadStream(stream->get(), uint64_t{1} << 63); });
  comparisons.push_back({name + ", skip of 2^63", name + " skip", "", goal});
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  register_peers();
  for (const Generator& g : kGenerators) register_generator(g);
  register_skip("MT19937", ORVIK_BRNG_MT19937, "<= 10 ms");
  register_skip("PHILOX4X32X10", ORVIK_BRNG_PHILOX4X32X10, "< 50 ns");
  register_skip("ARS5", ORVIK_BRNG_ARS5, "< 50 ns");
  register_skip("MCG31M1", ORVIK_BRNG_MCG31M1, "< 1000 ns");
  register_skip("MCG59", ORVIK_BRNG_MCG59, "< 1000 ns");
  Reporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  print_table();
  return 0;
}
