// The price of a European call by simulation, with its standard error, beside the closed formula.
#include <cmath>
#include <cstdio>
#include <orvik/front.hpp>

int main() {
  const double start = 100, strike = 105, rate = 0.03, sigma = 0.2, years = 1;
  const std::int64_t n = 1000000;
  orvik::Stream stream(orvik::Generator::PHILOX4X32X10, 2026);
  std::vector<double> x(n);
  orvik::normal(stream, x, (rate - sigma * sigma / 2) * years, sigma * std::sqrt(years));
  orvik::exp(x, x);
  for (double& v : x) v = std::exp(-rate * years) * std::fmax(start * v - strike, 0);

  orvik::Summary<double> summary(1);
  summary.update(x, n, orvik::Layout::Rows);
  const double price = summary.mean()[0], error = std::sqrt(summary.variance()[0] / n);

  const double width = sigma * std::sqrt(years);
  const double d1 = (std::log(start / strike) + (rate + sigma * sigma / 2) * years) / width;
  const auto cdf = orvik::cdfnorm(std::vector<double>{d1, d1 - width});
  const double exact = start * cdf[0] - strike * std::exp(-rate * years) * cdf[1];
  std::printf("simulated %.4f +- %.4f, exact %.4f\n", price, error, exact);
  return std::fabs(price - exact) < 4 * error ? 0 : 1;
}
