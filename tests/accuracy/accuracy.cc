// Measures the accuracy of the vector functions against MPFR and keeps the records.
#include <atomic>
#include <chrono>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>

#include "accuracy/hashes.h"
#include "accuracy/records.h"
#include "orvik/zym.h"
#include "support/approximations.h"

namespace {

using namespace orvik;
using namespace orvik::accuracy;

constexpr const char* kUsage = R"(accuracy MODE [--rows FILTER] [--threads N] [--seed N] [--dry]

  sampled [N]    N inputs of each row (default 100000), special values and thresholds among them
  random N       N inputs of each row from the seed, on all threads
  exhaustive     all 2^32 inputs of one-argument rows of 32-bit floats
  page           writes docs/accuracy.md from tests/accuracy/recorded/
  hashes         writes tests/accuracy/hashes/
  list           rows that can be measured

The first three merge what they find into tests/accuracy/recorded/ and then write the page; --dry leaves both alone.
FILTER is a list of row names with wildcards, such as "sExp*,dLn". Exit status 1: a bound is broken.
)";

struct Options {
  std::string mode, filter;
  uint64_t count = 0;
  int threads = static_cast<int>(std::thread::hardware_concurrency());
  uint64_t seed = 1;
  bool dry = false;
};

Options parse(int argc, char** argv) {
  Options o;
  if (argc < 2) {
    std::fputs(kUsage, stderr);
    std::exit(2);
  }
  o.mode = argv[1];
  for (int i = 2; i < argc; ++i) {
    const std::string arg = argv[i];
    const bool more = i + 1 < argc;
    if (arg == "--rows" && more) {
      o.filter = argv[++i];
    } else if (arg == "--threads" && more) {
      o.threads = std::atoi(argv[++i]);
    } else if (arg == "--seed" && more) {
      o.seed = std::strtoull(argv[++i], nullptr, 10);
    } else if (arg == "--dry") {
      o.dry = true;
    } else if (arg[0] >= '0' && arg[0] <= '9') {
      o.count = static_cast<uint64_t>(std::strtod(arg.c_str(), nullptr));
    } else {
      std::fputs(kUsage, stderr);
      std::exit(2);
    }
  }
  if (o.threads < 1) o.threads = 1;
  return o;
}

void merge(const rows::Row& row, Worsts& all, const Worsts& made) {
  for (int k : kernels_of(row)) {
    for (int m = 0; m < kMeasures; ++m) all[k][m].merge(made[k][m]);
  }
}

Worsts measure_random(const rows::Row& row, const Options& o) {
  constexpr uint64_t piece = 50000;
  const uint64_t pieces = (o.count + piece - 1) / piece;
  Worsts worst;
  std::vector<Worsts> found(o.threads);
  std::vector<std::thread> pool;
  std::atomic<uint64_t> next{0};
  const auto work = [&](int t) {
    _zymSetMode(ZYM_ERRMODE_NOERR);
    for (uint64_t p; (p = next.fetch_add(1)) < pieces;) {
      const auto made = measure_sampled(row, std::min(piece, o.count - p * piece), o.seed * 1000003 + p, p == 0);
      merge(row, found[t], made);
      if (p % 8 == 0)
        std::fprintf(stderr, "\r%-12.*s %5.1f %%", static_cast<int>(row.name.size()), row.name.data(),
                     100.0 * p / pieces);
    }
  };
  for (int t = 0; t < o.threads; ++t) pool.emplace_back(work, t);
  for (std::thread& t : pool) t.join();
  for (const Worsts& made : found) merge(row, worst, made);
  return worst;
}

// Ends the program where a row that was asked for cannot be judged.
void refuse_incomplete_rows(const Options& o) {
  bool refused = false;
  for (const rows::Row& row : rows::all()) {
    if (!rows::matches(o.filter, row.name) || !measurable(row)) continue;
    for (const std::string& line : missing_of(row)) {
      std::fprintf(stderr, "%s\n", line.c_str());
      refused = true;
    }
  }
  if (refused) std::exit(2);
}

// Takes what was found of one kernel into the records and prints it; false if its bound is broken.
bool note(const rows::Row& row, int k, Measure measure, const Worst& worst, const Options& o, double seconds,
          std::vector<Record>& records) {
  const Record found = make_record(row, k, measure, worst, o.mode == "exhaustive" ? "all" : o.mode);
  const bool good = measure != measures_of(row).front() || within_bound(row, k, worst);
  std::string at;
  for (int i = 0; i < kMaxArguments; ++i) {
    if (i == 0 || worst.point.arguments[i] != 0) at += ' ' + hexadecimal(worst.point.arguments[i]);
  }
  if (row.shape == rows::Shape::bessel) at += " order " + std::to_string(worst.point.order);
  const std::string witness = found.got.empty() ? "" : " at" + at + " got " + found.got + " want " + found.wanted;
  std::printf("%-12s %-10s %8s %-5s%s (%" PRIu64 " inputs, %.1f s)%s\n", found.row.c_str(), row.served(k).c_str(),
              found.error.c_str(), found.metric.c_str(), witness.c_str(), found.inputs, seconds,
              good ? "" : "  BOUND BROKEN");
  std::fflush(stdout);
  merge_record(records, found);
  return good;
}

int measure(const Options& o) {
  _zymSetMode(ZYM_ERRMODE_NOERR);
  bool broken = false;
  refuse_incomplete_rows(o);
  for (const rows::Row& row : rows::all()) {
    if (!measurable(row) || !rows::matches(o.filter, row.name) || (o.mode == "exhaustive" && !exhaustible(row)))
      continue;
    const auto start = std::chrono::steady_clock::now();
    Worsts worst;
    if (o.mode == "sampled") worst = measure_sampled(row, o.count == 0 ? 100000 : o.count, o.seed);
    if (o.mode == "random") worst = measure_random(row, o);
    if (o.mode == "exhaustive") {
      worst = measure_exhaustive(row, o.threads, [&](double share) {
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        std::fprintf(stderr, "\r%-12.*s %5.1f %%, %.0f s left ", static_cast<int>(row.name.size()), row.name.data(),
                     100 * share, share > 0 ? seconds * (1 - share) / share : 0);
      });
    }
    if (o.mode != "sampled") std::fprintf(stderr, "\r%40s\r", "");
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::vector<Record> records = read_records();
    for (int k : kernels_of(row)) {
      for (Measure measure : measures_of(row)) {
        broken |= !note(row, k, measure, worst[k][index_of(measure)], o, seconds, records);
      }
    }
    if (!o.dry) write_records(row.family, records);
  }
  if (!o.dry) write_text(page_path(), make_page(read_records()));
  return broken ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv) {
  const Options o = parse(argc, argv);
  if (o.mode == "sampled" || o.mode == "exhaustive" || (o.mode == "random" && o.count > 0)) return measure(o);
  if (o.mode == "page") {
    write_text(page_path(), make_page(read_records()));
    return 0;
  }
  if (o.mode == "list") {
    for (const rows::Row& row : rows::all()) {
      if (measurable(row)) std::printf("%.*s\n", static_cast<int>(row.name.size()), row.name.data());
    }
    return 0;
  }
  if (o.mode == "hashes") {
    _zymSetMode(ZYM_ERRMODE_NOERR);
    refuse_incomplete_rows(o);
    for (const std::string& family : measurable_families()) {
      Pins pins = read_pins(family);
      bool any = false;
      for (const rows::Row& row : rows::all()) {
        if (row.family != family || !measurable(row) || !rows::matches(o.filter, row.name)) continue;
        any = true;
        for (int k : kernels_of(row)) {
          const uint64_t hash = hash_kernel(row, k, false);
          Pin& pin = pins[hash_key(row, k)];
          if (pin.hash != hash) pin = {hash, test::hash_approximations()};
        }
      }
      if (any) write_pins(family, pins);
    }
    return 0;
  }
  std::fputs(kUsage, stderr);
  return 2;
}
