// Speed of the streams beside their peers, in one run: each comparison is timed in turns (bench/support/paired.h).
//
//   bench_streams [SECONDS [GENERATOR]]     of each comparison, 0.1 by default; prints a table
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "orvik/qor.h"
#include "peers.h"
#include "support/paired.h"

namespace {

using orvik::bench::Paired;
using orvik::bench::StreamPeer;

double seconds = 0.1;

struct Generator {
  const char* name;
  int32_t brng;
  uint32_t seed;
  bool points;
};
std::vector<Generator> generators() {
  enum Leap { no, yes, one };
  return {
#define ORVIK_BRNG(constant, functions, name, members, record, seeds, zero, bytes, bits, leap, ...) \
  {#functions, ORVIK_BRNG_##constant, leap == one ? 10 : 777, leap == one},
#include "qor/stream/brngs.def"
  };
}

// What a comparison with the fastest peer must reach.
struct Goals {
  const char *words, *reals;
};
Goals goals_of(const std::string& name) {
  if (name == "ARS5") return {">= 0.8", ""};                 // at the limit of the instructions
  if (name == "PHILOX4X32X10") return {">= 1.5", ">= 1.5"};  // at the limit of the multiplications
  if (name == "MCG59") return {">= 2.5", ">= 3"};
  return {">= 2.5", ">= 2.5"};
}

class Stream {
 public:
  explicit Stream(const Generator& g) : g_(g) { open(); }
  ~Stream() { __qorDeleteStream(&stream_); }
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  bool ok() const { return ok_; }
  // Points end after 2^32: the stream begins anew before that.
  template <class Draw>
  void draw(int32_t n, Draw draw) {
    drawn_ += n;
    if (g_.points && drawn_ > (int64_t{1} << 31)) {
      __qorDeleteStream(&stream_);
      open();
      drawn_ = n;
    }
    draw(stream_, row_);
  }

 private:
  void open() {
    ok_ = __qorNewStreamEx(&stream_, g_.brng, 1, &g_.seed) == 0;
    __qorGetBrngProperties(g_.brng, &row_);
    std::vector<double> r(8);
    ok_ = ok_ && row_.dBRng(stream_, 1, r.data(), 0, 1) == 0;
    ok_ = ok_ && row_.iBRng(stream_, 1, r.data()) == 0;
  }
  Generator g_;
  OrvikStream stream_ = nullptr;
  RegBrngRow row_;
  bool ok_ = false;
  int64_t drawn_ = 0;
};

std::vector<uint64_t> buffer(200000);  // of the widest element; all candidates fill the same memory
template <class T>
T* as(std::vector<uint64_t>& b) {
  return reinterpret_cast<T*>(b.data());
}

enum class Form { words, floats, doubles };
constexpr const char* kForms[] = {"words", "floats", "doubles"};

void draw(Stream& s, Form form, int32_t n) {
  s.draw(n, [&](OrvikStream stream, const RegBrngRow& row) {
    if (form == Form::words) row.iBRng(stream, n, buffer.data());
    if (form == Form::floats) row.sBRng(stream, n, as<float>(buffer), 0, 1);
    if (form == Form::doubles) row.dBRng(stream, n, as<double>(buffer), 0, 1);
  });
}

void print(const std::string& what, double ours, double peer, const std::string& name, const std::string& goal) {
  if (peer > 0)
    std::printf("| %s, beside %s | %.3f | %.3f | %.2f | %s |\n", what.c_str(), name.c_str(), ours, peer, peer / ours,
                goal.c_str());
  else
    std::printf("| %s | %.3f | | | %s |\n", what.c_str(), ours, goal.c_str());
  std::fflush(stdout);
}

// Beside the fastest peer that has the form.
void compare(const Generator& g, Form form, int32_t n) {
  Stream s(g);
  Paired paired;
  paired.add("ours", [&](int64_t turns) {
    for (; turns > 0; --turns) draw(s, form, n);
  });
  const std::vector<StreamPeer> peers = orvik::bench::peers_of(g.name, g.seed);
  std::vector<std::string> names;
  for (const StreamPeer& p : peers) {
    const auto add = [&](const auto& fill, auto* r) {
      if (!fill) return;
      names.push_back(p.name);
      paired.add(p.name, [fill, r, n](int64_t turns) {
        for (; turns > 0; --turns) fill(r, n);
      });
    };
    if (form == Form::words) add(p.words, as<uint32_t>(buffer));
    if (form == Form::floats) add(p.floats, as<float>(buffer));
    if (form == Form::doubles) add(p.doubles, as<double>(buffer));
  }
  const std::vector<double> best = paired.measure(seconds);
  const std::string what = std::string(g.name) + ", " + kForms[static_cast<int>(form)] + ", n = " + std::to_string(n);
  size_t fastest = 0;
  for (size_t k = 1; k < best.size(); ++k)
    if (fastest == 0 || best[k] < best[fastest]) fastest = k;
  const Goals goals = goals_of(g.name);
  std::string goal = form == Form::words ? goals.words : goals.reals;
  if (fastest > 0 && names[fastest - 1] == "published block fill") goal = ">= 0.8";
  print(what, best[0] / n, fastest > 0 ? best[fastest] / n : 0, fastest > 0 ? names[fastest - 1] : "",
        fastest > 0 ? goal : "");
}

// Calls for few numbers, whole calls.
void short_calls(const Generator& g) {
  for (const Form form : {Form::words, Form::floats, Form::doubles}) {
    for (const int32_t n : {1, 3, 4, 16, 31, 100, 255}) {
      Stream s(g);
      Paired paired;
      paired.add("ours", [&](int64_t turns) {
        for (; turns > 0; --turns) draw(s, form, n);
      });
      const std::string what = std::string(g.name) + ", a call for " + (n == 1 ? "one" : std::to_string(n)) +
                               " of the " + kForms[static_cast<int>(form)];
      print(what, paired.measure(seconds)[0], 0, "", n == 1 && g.brng != ORVIK_BRNG_TRNG ? "<= 20 ns" : "");
    }
  }
}

void points_beside_memset(const Generator& g) {
  constexpr int32_t n = 100000;
  for (const Form form : {Form::floats, Form::doubles}) {
    Stream s(g);
    Paired paired;
    paired.add("ours", [&](int64_t turns) {
      for (; turns > 0; --turns) draw(s, form, n);
    });
    const size_t bytes = (form == Form::floats ? 4 : 8) * size_t{n};
    paired.add("memset", [&](int64_t turns) {
      for (; turns > 0; --turns) {
        std::memset(buffer.data(), static_cast<int>(turns), bytes);
        asm volatile("" : : "r"(buffer.data()) : "memory");
      }
    });
    const std::vector<double> best = paired.measure(seconds);
    print(std::string(g.name) + ", 10 dimensions, " + kForms[static_cast<int>(form)] + ", n = 100000", best[0] / n, 0,
          "", "<= 0.25 ns");
    print(std::string(g.name) + ", 10 dimensions, " + kForms[static_cast<int>(form)] + ", n = 100000", best[0] / n,
          best[1] / n, "memset", ">= 0.5");
  }
}

void jump(const Generator& g, const char* goal) {
  Stream s(g);
  Paired paired;
  paired.add("ours", [&](int64_t turns) {
    for (; turns > 0; --turns)
      s.draw(0, [](OrvikStream stream, const RegBrngRow&) { __qorSkipAheadStream(stream, uint64_t{1} << 62); });
  });
  print(std::string(g.name) + ", skip of 2^62", paired.measure(seconds)[0], 0, "", goal);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1) seconds = std::atof(argv[1]);
  std::printf("| what | ours, ns | peer, ns | peer / ours | goal |\n|---|---|---|---|---|\n");
  for (const Generator& g : generators()) {
    if (argc > 2 && std::strcmp(argv[2], g.name) != 0) continue;
    if (g.brng == ORVIK_BRNG_IABSTRACT || g.brng == ORVIK_BRNG_DABSTRACT || g.brng == ORVIK_BRNG_SABSTRACT)
      continue;                     // as fast as the caller's own numbers
    if (!Stream(g).ok()) continue;  // the processor lacks what it needs
    for (const Form form : {Form::words, Form::floats, Form::doubles})
      for (const int32_t n : {1000, 100000}) compare(g, form, n);
    short_calls(g);
    if (g.points) points_beside_memset(g);
    const std::string name = g.name;
    if (name == "MT19937" || name == "SFMT19937") jump(g, "<= 10 ms");
    if (name == "PHILOX4X32X10" || name == "ARS5") jump(g, "< 50 ns");
    if (name == "MCG31M1" || name == "MCG59" || name == "WH") jump(g, "< 2000 ns");
    if (name == "MRG32K3A") jump(g, "< 50 ns");
  }
  return 0;
}
