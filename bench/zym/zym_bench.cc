// Speed of the vector functions beside that of other libraries.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include "orvik/zym.h"
#include "zym/compare.h"
#include "zym/peer_accuracy.h"
#include "zym/peer_page.h"

namespace {

using namespace orvik;
using namespace orvik::bench;

constexpr const char* kUsage = R"(zym_bench [options]

  --rows FILTER      names with wildcards, such as "sExp*,dLn" (default: every row that is built)
  --levels LIST      of LA,HA,EP (default: all)
  --sizes LIST       lengths (default: 1,16,100,1000,10000,100000)
  --section LIST     of rows,strided,overhead,large,special,memory,summary,peers (default: all but peers)
  --time MS          milliseconds per comparison (default: 12)
  --csv FILE         every figure
  --peer-page FILE   measures nothing but the worst errors of the special functions, ours and those of other libraries over
                     the same inputs, and writes docs/accuracy-peers.md

rows, strided  ns per element of ours and of each peer, with the ratio peer/ours
overhead       ns of a call with 1 and with 16 elements above that of a plain function
large          an array of large arguments, of all sizes, against a plain one: functions that reduce them
special        an array with one special element in a hundred against a plain one, errors off
memory         rows that memory bandwidth limits at 10^7 elements, against memcpy of the same traffic
summary        geometric mean by family and level of the ratio to the fastest peer that is as accurate, and the worst row;
               the same of each peer by itself, whatever its accuracy, by level and length
peers          the largest error found of each peer
)";

struct Options {
  std::string rows, levels = "LA,HA,EP", sections = "rows,strided,overhead,large,special,memory,summary", csv, peer_page;
  std::vector<int32_t> sizes = {1, 16, 100, 1000, 10000, 100000};
  double seconds = 0.012;
};

Options parse(int argc, char** argv) {
  Options o;
  for (int i = 1; i < argc; i += 2) {
    const std::string name = argv[i];
    const char* value = i + 1 < argc ? argv[i + 1] : nullptr;
    if (value == nullptr) {
      std::fputs(kUsage, name == "--help" ? stdout : stderr);
      std::exit(name == "--help" ? 0 : 2);
    }
    if (name == "--rows") {
      o.rows = value;
    } else if (name == "--levels") {
      o.levels = value;
    } else if (name == "--section") {
      o.sections = value;
    } else if (name == "--csv") {
      o.csv = value;
    } else if (name == "--peer-page") {
      o.peer_page = value;
    } else if (name == "--time") {
      o.seconds = std::atof(value) / 1000;
    } else if (name == "--sizes") {
      o.sizes.clear();
      for (const char* p = value; *p != 0;) {
        char* end;
        o.sizes.push_back(static_cast<int32_t>(std::strtod(p, &end)));
        p = *end == ',' ? end + 1 : end;
      }
    } else {
      std::fputs(kUsage, stderr);
      std::exit(2);
    }
  }
  return o;
}

std::string text(std::string_view s) { return std::string(s); }

class Run {
 public:
  explicit Run(const Options& o) : o_(o), peers_(all_peers()) {
    if (!o.csv.empty()) {
      csv_ = std::fopen(o.csv.c_str(), "w");
      if (csv_ == nullptr) {
        std::fprintf(stderr, "cannot write %s\n", o.csv.c_str());
        std::exit(2);
      }
      std::fputs("section,row,level,strided,n,what,ns,ratio\n", csv_);
    }
    const std::string numpy = numpy_description();
    std::printf("%s\n", numpy.empty() ? "No NumPy among the peers." : ("Among the peers: " + numpy).c_str());
    if (csv_ != nullptr && !numpy.empty()) std::fprintf(csv_, "about,,,0,0,\"%s\",0,0\n", numpy.c_str());
    for (const rows::Row& row : rows::all()) {
      if (row.built() && row.shape != rows::Shape::pack && rows::matches(o.rows, row.name)) rows_.push_back(&row);
    }
  }
  ~Run() {
    if (csv_ != nullptr) std::fclose(csv_);
  }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  void all() {
    if (wants("rows") || wants("summary")) compare_rows(false);
    if (wants("strided")) compare_rows(true);
    if (wants("overhead")) overhead();
    if (wants("large")) large();
    if (wants("special")) special();
    if (wants("memory")) memory();
    if (wants("summary")) summary();
  }

 private:
  bool wants(std::string_view section) const { return rows::matches(o_.sections, section); }
  bool wants_level(int level) const { return rows::matches(o_.levels, rows::kLevelNames[level]); }
  std::vector<int> kernels(const rows::Row& row) const {  // of the levels asked for, each kernel once
    std::set<int> made;
    for (int level = 0; level < rows::kLevels; ++level) {
      if (wants_level(level)) made.insert(row.kernel(level));
    }
    return {made.begin(), made.end()};
  }

  void record(const char* section, const rows::Row& row, const std::string& level, bool strided, int32_t n,
              const std::string& what, double ns, double ratio) {
    if (csv_ == nullptr) return;
    std::fprintf(csv_, "%s,%s,%s,%d,%d,%s,%.4f,%.3f\n", section, text(row.name).c_str(), level.c_str(), strided ? 1 : 0, n,
                 what.c_str(), ns, ratio);
  }
  void progress(size_t done) const {
    std::fprintf(stderr, "\r%zu of %zu rows ", done, rows_.size());
    if (done == rows_.size()) std::fprintf(stderr, "\r%30s\r", "");
  }

  void compare_rows(bool strided) {
    std::printf("\n## %s: ns per element (ratio peer/ours)\n", strided ? "Strided by 2" : "Unit stride");
    size_t done = 0;
    for (const rows::Row* row : rows_) {
      progress(done++);
      for (int32_t n : o_.sizes) {
        const Point p = compare(*row, strided, n, peers_, o_.seconds);
        for (int k : kernels(*row)) {
          std::printf("%-12s %-10s n=%-7d ours %8.3f", text(row->name).c_str(), row->served(k).c_str(), n, p.ours[k]);
          record(strided ? "strided" : "rows", *row, text(rows::kLevelNames[k]), strided, n, "ours", p.ours[k], 1);
          for (const Point::Other& other : p.others) {
            std::printf("  %s %.3f (%.2f)", text(other.peer->source).c_str(), other.time, other.time / p.ours[k]);
            record(strided ? "strided" : "rows", *row, text(rows::kLevelNames[k]), strided, n, text(other.peer->source),
                   other.time, other.time / p.ours[k]);
          }
          std::printf("\n");
        }
        std::fflush(stdout);
        if (!strided) points_.push_back(p);
      }
    }
    progress(rows_.size());
  }

  // Same arguments, no work.
  [[gnu::noinline]] static void plain(int32_t n, const void* a, void* r) { asm volatile("" : : "r"(n), "r"(a), "r"(r)); }

  void overhead() {
    std::printf("\n## Calls: ns above a plain function call, unit stride and strided\n");
    for (const rows::Row* row : rows_) {
      const Operands unit(*row, 16, 1), strided(*row, 16, 2);
      for (int k : kernels(*row)) {
        Paired paired;
        const Arrays arrays = unit.arrays();
        paired.add("plain", [arrays](int64_t turns) {
          void (*volatile f)(int32_t, const void*, void*) = plain;
          const auto call = f;
          for (int64_t t = 0; t < turns; ++t) call(1, arrays.a, arrays.r1);
        });
        for (int32_t n : {1, 16}) {
          paired.add("", repeat_entry(*row, row->entries[0][k], false, unit, n));
          paired.add("", repeat_entry(*row, row->entries[1][k], true, strided, n));
        }
        const std::vector<double> t = paired.measure(o_.seconds);
        std::printf("%-12s %-10s n=1: %6.1f %6.1f   n=16: %6.1f %6.1f\n", text(row->name).c_str(), row->served(k).c_str(),
                    t[1] - t[0], t[2] - t[0], t[3] - t[0], t[4] - t[0]);
        for (int j = 0; j < 4; ++j) {
          record("overhead", *row, rows::kLevelNames[k], j % 2 == 1, j < 2 ? 1 : 16, "above plain call", t[j + 1] - t[0], 0);
        }
      }
      std::fflush(stdout);
    }
  }

  void large() {
    constexpr int32_t n = 1000;
    const std::string_view functions[] = {"Sin", "Cos", "Tan", "SinCos", "Sind", "Cosd", "Tand"};
    bool titled = false;
    for (const rows::Row* row : rows_) {
      if (row->complex() || std::find(std::begin(functions), std::end(functions), row->function) == std::end(functions)) continue;
      if (!titled) std::printf("\n## Large arguments, n = %d: time over that of plain ones\n", n);
      titled = true;
      const Operands plain(*row, n, 1);
      Operands enlarged(*row, n, 1);
      enlarged.enlarge(row->single() ? 0x1p24 : 0x1p53);
      for (int k : kernels(*row)) {
        Paired paired;
        paired.add("", repeat_entry(*row, row->entries[0][k], false, plain, n));
        paired.add("", repeat_entry(*row, row->entries[0][k], false, enlarged, n));
        const std::vector<double> t = paired.measure(o_.seconds);
        std::printf("%-12s %-10s plain %.3f  large %.3f  %.2f\n", text(row->name).c_str(), row->served(k).c_str(), t[0] / n, t[1] / n,
                    t[1] / t[0]);
        record("large", *row, rows::kLevelNames[k], false, n, "large", t[1] / n, t[1] / t[0]);
      }
      std::fflush(stdout);
    }
  }

  void special() {
    constexpr int32_t n = 1000;
    const double limits[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e-310, -1e30};
    const char* const names[] = {"nan", "inf", "denormal", "-1e30"};
    std::printf("\n## One element in a hundred special, n = %d: time over that of a plain array\n", n);
    const uint32_t mode = _zymSetMode(ZYM_ERRMODE_NOERR);
    for (const rows::Row* row : rows_) {
      std::vector<Operands> with;
      with.reserve(5);
      with.emplace_back(*row, n, 1);
      for (double value : limits) {
        with.emplace_back(*row, n, 1).plant(row->single() && value == 1e-310 ? 1e-40 : value, 100);
      }
      for (int k : kernels(*row)) {
        Paired paired;
        for (const Operands& operands : with) paired.add("", repeat_entry(*row, row->entries[0][k], false, operands, n));
        const std::vector<double> t = paired.measure(o_.seconds);
        std::printf("%-12s %-10s plain %.3f", text(row->name).c_str(), row->served(k).c_str(), t[0] / n);
        for (int j = 0; j < 4; ++j) {
          std::printf("  %s %.2f", names[j], t[j + 1] / t[0]);
          record("special", *row, rows::kLevelNames[k], false, n, names[j], t[j + 1] / n, t[j + 1] / t[0]);
        }
        std::printf("\n");
      }
      std::fflush(stdout);
    }
    // A merge of the old mode leaves the error field where it was: every field of a full mode word is set.
    _zymSetMode(mode);
  }

  void memory() {
    constexpr int32_t n = 10000000;
    std::printf("\n## n = 10^7: ns per element, share of the speed of a memcpy of the same traffic\n");
    for (const rows::Row* row : rows_) {
      if (row->family != "arithmetic" && row->family != "rounding") continue;
      const Operands operands(*row, n, 1);
      const size_t traffic = static_cast<size_t>(n) * (row->inputs() * row->input_bytes() + row->outputs() * row->output_bytes());
      std::vector<unsigned char> from(traffic / 2, 1), to(traffic / 2, 2);
      Paired paired;
      paired.add("memcpy", [&](int64_t turns) {
        for (int64_t t = 0; t < turns; ++t) {
          std::memcpy(to.data(), from.data(), traffic / 2);
          asm volatile("" : : "r"(to.data()) : "memory");
        }
      });
      const int k = row->kernel(1);
      paired.add("", repeat_entry(*row, row->entries[0][k], false, operands, n));
      std::vector<const Peer*> others;
      for (const Peer& peer : peers_) {
        if (peer.row != row->name || peer.source != "loop") continue;
        others.push_back(&peer);
        paired.add("", [f = peer.unit, arrays = operands.arrays()](int64_t turns) {
          for (int64_t t = 0; t < turns; ++t) f(n, arrays);
        });
      }
      const std::vector<double> t = paired.measure(std::max(o_.seconds, 0.3));
      std::printf("%-12s %.3f  memcpy %.3f (%.2f)", text(row->name).c_str(), t[1] / n, t[0] / n, t[0] / t[1]);
      record("memory", *row, rows::kLevelNames[k], false, n, "ours", t[1] / n, 1);
      record("memory", *row, rows::kLevelNames[k], false, n, "memcpy", t[0] / n, t[0] / t[1]);
      for (size_t p = 0; p < others.size(); ++p) {
        std::printf("  %s %.3f (%.2f)", text(others[p]->source).c_str(), t[2 + p] / n, t[2 + p] / t[1]);
        record("memory", *row, rows::kLevelNames[k], false, n, text(others[p]->source), t[2 + p] / n, t[2 + p] / t[1]);
      }
      std::printf("\n");
      std::fflush(stdout);
    }
  }

  // The geometric mean of some ratios, and the least.
  struct Mean {
    double logs = 0;
    int count = 0;
    double worst = std::numeric_limits<double>::infinity();
    std::string worst_row;

    void add(double ratio, const std::string& row) {
      logs += std::log(ratio);
      ++count;
      if (ratio < worst) {
        worst = ratio;
        worst_row = row;
      }
    }
    double value() const { return std::exp(logs / count); }
  };

  void summary() {
    std::map<std::pair<std::string, int>, Mean> means;
    std::map<std::pair<std::string, int>, int> alone;
    for (const Point& p : points_) {
      if (p.n < 100) continue;
      for (int level = 0; level < rows::kLevels; ++level) {
        if (!wants_level(level)) continue;
        const auto key = std::pair(text(p.row->family), level);
        const Point::Other* rival = p.rival(level);
        if (rival == nullptr) {
          ++alone[key];
          continue;
        }
        const double ratio = rival->time / p.ours[level];
        record("summary", *p.row, rows::kLevelNames[level], false, p.n, text(rival->peer->source), rival->time, ratio);
        means[key].add(ratio, text(p.row->name) + " at " + std::to_string(p.n) + " against " + text(rival->peer->source));
      }
    }
    std::printf("\n## Ratio of the fastest peer that is as accurate to ours, n of 100 and more, unit stride\n");
    for (const auto& [key, mean] : means) {
      std::printf("%-12s %s  geometric mean %.2f over %d, worst %.2f: %s", key.first.c_str(), rows::kLevelNames[key.second],
                  mean.value(), mean.count, mean.worst, mean.worst_row.c_str());
      if (alone[key] > 0) std::printf(" (%d without a peer)", alone[key]);
      std::printf("\n");
    }
    beside();
  }

  void beside() {
    std::map<std::tuple<std::string, int, int32_t>, Mean> means;
    for (const Point& p : points_) {
      if (p.n < 100) continue;
      for (int level = 0; level < rows::kLevels; ++level) {
        if (!wants_level(level)) continue;
        for (const Point::Other& other : p.others) {
          const double ratio = other.time / p.ours[level];
          const std::string source = text(other.peer->source);
          record("beside", *p.row, rows::kLevelNames[level], false, p.n, source, other.time, ratio);
          means[{source, level, p.n}].add(ratio, text(p.row->name));
        }
      }
    }
    std::printf("\n## Ratio of each peer to ours, unit stride\n");
    for (const auto& [key, mean] : means) {
      const auto& [source, level, n] = key;
      std::printf("%-14s %s  n=%-7d geometric mean %.2f over %d, worst %.2f: %s\n", source.c_str(), rows::kLevelNames[level], n,
                  mean.value(), mean.count, mean.worst, mean.worst_row.c_str());
    }
  }

  const Options& o_;
  std::vector<Peer> peers_;
  std::vector<const rows::Row*> rows_;
  std::vector<Point> points_;
  FILE* csv_ = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
  const Options o = parse(argc, argv);
  if (!o.peer_page.empty()) {
    if (write_peer_page(o.peer_page, o.rows)) return 0;
    std::fprintf(stderr, "cannot write %s\n", o.peer_page.c_str());
    return 1;
  }
  if (rows::matches(o.sections, "peers") && o.sections != "") print_peer_accuracy(o.rows);
  Run run(o);
  run.all();
  return 0;
}
