// A program of ten calls: front.hpp must be warning-free and quick to compile (compile_test.py).
#include <algorithm>
#include <array>
#include <orvik/front.hpp>

int main() {
  std::vector<double> a = {1, 2, 3}, r(3), m(3);
  std::array<float, 3> f = {1, 2, 3};
  const std::vector<std::complex<double>> z(3);
  std::vector<orvik::Report> reports;
  orvik::exp(a, r);
  orvik::exp<double>(a, r);
  orvik::sin(f, f);
  orvik::abs(z, m);
  orvik::sincos(a, r, m);
  orvik::pow(a, a, r, {.accuracy = orvik::Accuracy::LA, .reports = &reports});
  orvik::Stream stream(orvik::Generator::MT19937, 7);
  std::shuffle(a.begin(), a.end(), stream);
  orvik::normal(stream, r, 0, 1);
  orvik::Summary<double> summary(1);
  summary.update(a, 3, orvik::Layout::Rows);
  std::sort(a.begin(), a.end());
  const orvik::Spline spline(a, r, orvik::Kind::Linear);
  const double sum = orvik::ln(a)[0] + summary.mean()[0] + spline(1.5) + orvik::powx(z, {1.0, 2.0})[0].real();
  return sum == sum ? 0 : 1;
}
