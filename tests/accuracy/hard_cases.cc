#include "accuracy/hard_cases.h"

#include <math.h>
#include <mpfr.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "accuracy/random.h"

namespace orvik::accuracy {
namespace {

constexpr mpfr_rnd_t kNearest = MPFR_RNDN;

template <class E>
void around(std::vector<E>& a, double value, int steps = 2) {
  for (double x : {value, -value}) {
    for (int step = -steps; step <= steps; ++step) a.push_back(neighbour(static_cast<E>(x), step));
  }
}

template <class E>
constexpr bool kSingle = sizeof(E) == 4;

bool one_of(std::string_view function, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), function) != names.end();
}

template <class E>
void circular(std::vector<E>& a) {
  for (int k = 1; k <= 64; ++k) around(a, k * 1.5707963267948966, 1);
  for (double x : {0x1.fffffep127, 16367173 * 0x1p72, 1e22, 0x1.921fb6p+100}) around(a, x, 0);
  for (E x : nearest_to_half_pi<E>()) around(a, static_cast<double>(x), 0);
  if (!kSingle<E>) {
    for (double x : {6381956970095103 * 0x1p797, std::numeric_limits<double>::max(), 0x1p1023, 5.3e15}) around(a, x, 0);
  }
}

template <class E>
void multiples(std::vector<E>& a, std::initializer_list<double> units) {  // whose results are exact, and around them
  const double last = kSingle<E> ? 0x1p24 : 0x1p53;
  for (double unit : units) {
    for (double k = 1; k <= 16; ++k) around(a, k * unit, 1);
    for (double k = 32; k * unit < last; k *= 8) {
      for (double j : {k - 1, k, k + 1, k + 2}) around(a, j * unit, 1);
    }
    for (double k : {last / 2 - 1, last - 1, last, 2 * last, 6 * last}) around(a, k * unit, 1);
  }
}

// Zeros by Newton's method from McMahon's first term.
template <class E>
void zeros(std::vector<E>& a, double shift, double (*f)(double), double (*slope)(double)) {
  for (int k = 1; k <= 60; ++k) {
    const int n = k <= 40 ? k : k * k;
    double x = (n + shift) * 3.141592653589793;
    for (int i = 0; i < 20; ++i) x -= f(x) / slope(x);
    if (x > 0) around(a, x, 2);
  }
}

double slope_j0(double x) { return -::j1(x); }
double slope_y0(double x) { return -::y1(x); }
double slope_j1(double x) { return ::j0(x) - ::j1(x) / x; }
double slope_y1(double x) { return ::y0(x) - ::y1(x) / x; }

// x^y around the ends of the range, powers of numbers next to 1, exact cases.
template <class E>
void powers(std::vector<E>& a, std::vector<E>& b) {
  const auto add = [&](double x, double y) { a.push_back(static_cast<E>(x)), b.push_back(static_cast<E>(y)); };
  Random random(77);
  const double top = kSingle<E> ? 128 : 1024, bottom = kSingle<E> ? -149 : -1074, normal = kSingle<E> ? -126 : -1022;
  for (double end : {top, normal, bottom, bottom - 1}) {
    for (int i = 0; i < 150; ++i) {
      const E x = static_cast<E>(i % 3 == 0 ? random.between(0.5, 2) : std::exp2(random.between(-40, 40)));
      if (x == 1) continue;
      const E y = static_cast<E>(end / std::log2(static_cast<double>(x)));
      for (int step = -1; step <= 1; ++step) add(static_cast<double>(x), static_cast<double>(neighbour(y, step)));
    }
  }
  // Found by dense sampling where the rest of the argument beside a table is largest.
  kSingle<E> ? add(0x1.e93fe4p-1, -0x1.d4a0c4p+10) : add(0x1.ff8f0ab21a07cp-1, 0x1.89cece4280f78p+19);
  const double last = kSingle<E> ? 0x1p24 : 0x1p53;
  for (int k = 1; k <= std::numeric_limits<E>::digits; ++k) {
    for (double near : {1 + std::exp2(-k), 1 - std::exp2(-k)}) {
      for (double y : {std::exp2(k), -50 * std::exp2(k), 0.5, 3.0}) add(near, y), add(-near, y);
    }
  }
  for (double y : {last - 1, last, last + 2, 2 * last, last / 2 - 1, last / 2 - 0.5, 3.0, 2.0, 33.0}) {
    for (double x : {-1.0, -0.0, 0.0, -1.5, -0x1p-20, 2.0, 1.0, static_cast<double>(neighbour(E(-1), 1))})
      add(x, y), add(x, -y);
  }
  for (int n = 2; n <= 12; ++n) {
    for (int m = 2; m <= 12; ++m) add(n, m), add(-n, m), add(n * n, 0.5 * m), add(1.0 / 1024 * n, m);
  }
}

// Both arguments over the whole range of quotients, each sign; nearly on the axes and the diagonals.
template <class E>
void angles(std::vector<E>& a, std::vector<E>& b) {
  const auto add = [&](double y, double x) {
    for (double s : {1, -1}) {
      for (double t : {1, -1}) a.push_back(static_cast<E>(s * y)), b.push_back(static_cast<E>(t * x));
    }
  };
  const int range = std::numeric_limits<E>::max_exponent - 1;
  for (int e = -range - 20; e <= range; e += kSingle<E> ? 4 : 31) {
    add(std::ldexp(1.25, e), 1), add(1, std::ldexp(1.25, e)), add(std::ldexp(1.25, e), std::ldexp(1.75, e));
    add(std::ldexp(1.0, e), std::ldexp(1.0, -e));
  }
  for (int step = -2; step <= 2; ++step) add(static_cast<double>(neighbour(E(3), step)), 3);
}

}  // namespace

template <class E>
const std::vector<E>& nearest_to_half_pi() {
  static const std::vector<E> found = [] {
    std::vector<E> made;
    constexpr int digits = std::numeric_limits<E>::digits;
    mpfr_t x, whole, pi;
    mpfr_inits2(1400, x, whole, pi, static_cast<mpfr_ptr>(nullptr));
    mpfr_const_pi(pi, kNearest);
    for (int e = 0; e + digits <= std::numeric_limits<E>::max_exponent; e += kSingle<E> ? 1 : 16) {
      // m 2^e / (pi/2) is next to an integer for m a denominator of a convergent of 2^e / (pi/2), or a small multiple
      // of one.
      mpfr_ui_div(x, 2, pi, kNearest);
      mpfr_mul_2ui(x, x, static_cast<unsigned long>(e), kNearest);
      double before = 0, denominator = 1;
      mpfr_frac(x, x, kNearest);
      while (true) {
        mpfr_ui_div(x, 1, x, kNearest);
        mpfr_floor(whole, x);
        const double next = mpfr_get_d(whole, kNearest) * denominator + before;
        if (!(next < std::ldexp(1.0, digits))) break;
        before = denominator, denominator = next;
        mpfr_frac(x, x, kNearest);
      }
      for (double m : {denominator, before}) {
        if (m >= 1) made.push_back(std::ldexp(static_cast<E>(m * std::floor(std::ldexp(1.0, digits) / m)), e));
      }
    }
    mpfr_clears(x, whole, pi, static_cast<mpfr_ptr>(nullptr));
    return made;
  }();
  return found;
}

template <class E>
void add_hard_cases(std::string_view function, std::vector<E>& a, std::vector<E>& b) {
  if (one_of(function, {"Sin", "Cos", "Tan", "SinCos", "CIS"})) circular(a);
  if (one_of(function, {"Sinpi", "Cospi", "SinCospi", "Tanpi"})) multiples(a, {0.5, 0.25, 1.0 / 6, 1.0 / 3});
  if (one_of(function, {"Sind", "Cosd", "Tand"})) multiples(a, {15.0, 45.0, 90.0, 1.0});
  if (one_of(function, {"Pow", "Powr"})) powers(a, b);
  if (one_of(function, {"Powx"})) {
    std::vector<E> exponents;
    powers(a, exponents);
  }
  if (one_of(function, {"Atan2", "Atan2pi"})) angles(a, b);
  if (one_of(function, {"LGamma", "TGamma"})) {
    for (int k = 1; k <= 34; ++k) around(a, -k, 3), around(a, k + 0.5, 1);
    for (double zero :
         {2.4570247382208006, 2.7476826467274127, 3.1435808883499799, 3.9552942848585978, 4.0393618397369546,
          4.9915444650543095, 5.0082181681406493, 5.9986077960400513, 6.0013852949264594}) {
      around(a, zero, 4);
    }
    if (!kSingle<E>) around(a, 170.62, 8);
  }
  if (one_of(function, {"ErfInv", "ErfcInv", "CdfNormInv"})) {
    for (int k = 1; k <= std::numeric_limits<E>::digits; ++k)
      around(a, 1 - std::exp2(-k), 1), around(a, 1 + std::exp2(-k), 1);
    for (int k = 1; k <= std::numeric_limits<E>::digits; ++k)
      around(a, 0.5 + std::exp2(-k - 1), 1), around(a, 2 - std::exp2(-k), 1);
  }
  if (one_of(function, {"J0", "Jn"})) zeros(a, -0.25, ::j0, slope_j0);
  if (one_of(function, {"J1", "Jn"})) zeros(a, 0.25, ::j1, slope_j1);
  if (one_of(function, {"Y0", "Yn"})) zeros(a, -0.75, ::y0, slope_y0);
  if (one_of(function, {"Y1", "Yn"})) zeros(a, -0.25, ::y1, slope_y1);
}

template const std::vector<float>& nearest_to_half_pi<float>();
template const std::vector<double>& nearest_to_half_pi<double>();
template void add_hard_cases<float>(std::string_view, std::vector<float>&, std::vector<float>&);
template void add_hard_cases<double>(std::string_view, std::vector<double>&, std::vector<double>&);

}  // namespace orvik::accuracy
