// A registered generator whose uniforms, statuses and failures a test sets, and which writes down what it is asked for.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

#include "orvik/qor.h"

namespace orvik::testing {

struct Request {
  int32_t n;
  double a, b;
  bool operator==(const Request&) const = default;
};
inline void PrintTo(const Request& r, std::ostream* out) { *out << r.n << " of [" << r.a << ", " << r.b << "]"; }

// What all streams of the generator share. One test at a time has it.
struct Script {
  // The number of that index, of [0, 1]; requests so far.
  std::function<double(int64_t)> number = [](int64_t) { return 0.5; };
  std::function<int32_t(int64_t)> status = [](int64_t) { return 0; };
  std::vector<Request> requests;
  int64_t drawn = 0;

  static Script& current() {
    static Script script;
    return script;
  }
  std::vector<int32_t> sizes() const {
    std::vector<int32_t> n;
    for (const Request& r : requests) n.push_back(r.n);
    return n;
  }
  // A failing request leaves the array alone.
  template <class T>
  int32_t fill(int32_t n, T* r, T a, T b) {
    const int32_t result = status(static_cast<int64_t>(requests.size()));
    requests.push_back({n, static_cast<double>(a), static_cast<double>(b)});
    if (result < 0) return result;
    for (int32_t i = 0; i < n; ++i)
      r[i] =
          static_cast<T>(static_cast<double>(a) + (static_cast<double>(b) - static_cast<double>(a)) * number(drawn++));
    return result;
  }
};

inline int32_t scripted_brng() {
  static const int32_t id = [] {
    RegBrngRow row{};
    row.StreamStateSize = 32;
    row.NSeeds = 1;
    row.IncludesZero = 1;
    row.WordSize = 4;
    row.NBits = 32;
    row.InitStream = [](uint32_t, OrvikStream, int32_t, const void*) -> int32_t { return 0; };
    row.sBRng = [](OrvikStream, int32_t n, float* r, float a, float b) { return Script::current().fill(n, r, a, b); };
    row.dBRng = [](OrvikStream, int32_t n, double* r, double a, double b) {
      return Script::current().fill(n, r, a, b);
    };
    row.iBRng = [](OrvikStream, int32_t n, void* r) {
      Script& script = Script::current();
      const int32_t result = script.status(static_cast<int64_t>(script.requests.size()));
      script.requests.push_back({n, 0, 0});
      for (int32_t i = 0; result >= 0 && i < n; ++i)
        static_cast<uint32_t*>(r)[i] = static_cast<uint32_t>(script.number(script.drawn++) * 0x1p32);
      return result;
    };
    return __qorRegisterBrng(&row);
  }();
  return id;
}

// A stream of it with a fresh script.
class Scripted {
 public:
  Scripted() {
    Script::current() = Script();
    EXPECT_EQ(__qorNewStreamEx(&stream_, scripted_brng(), 0, nullptr), 0);
  }
  ~Scripted() { __qorDeleteStream(&stream_); }
  Scripted(const Scripted&) = delete;
  Scripted& operator=(const Scripted&) = delete;
  Script* operator->() const { return &Script::current(); }
  OrvikStream get() const { return stream_; }

  // Numbers of a list, then a half for ever.
  void numbers(std::vector<double> list) const {
    Script::current().number = [list = std::move(list)](int64_t i) {
      return i < static_cast<int64_t>(list.size()) ? list[static_cast<size_t>(i)] : 0.5;
    };
  }
  // Numbers that fill the interval: multiples of the golden section.
  void spread() const {
    Script::current().number = [](int64_t i) {
      const double x = static_cast<double>(i + 1) * 0.6180339887498949;
      return x - static_cast<double>(static_cast<int64_t>(x));
    };
  }

 private:
  OrvikStream stream_ = nullptr;
};

}  // namespace orvik::testing
