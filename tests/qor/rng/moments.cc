// rng_moments [NUMBERS [NAME...]]: mean and variance of 10^8 numbers of each distribution, which must lie within five
// standard deviations of the estimates: one parameter set of each method, or those whose names are given. A table on
// standard output; exit status 1 where one does not.
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>

#include "qor/rng/fit_cases.h"
#include "qor/support/stream.h"

namespace orvik::testing {
namespace {

const std::set<std::string> kUsual = {"Uniform",
                                      "Exponential",
                                      "Gumbel",
                                      "Laplace",
                                      "Rayleigh",
                                      "Weibull_above_1",
                                      "Gaussian_0",
                                      "Gaussian_1",
                                      "Gaussian_2",
                                      "Lognormal_0",
                                      "GaussianMV_0",
                                      "Gamma_two_branches",
                                      "Gamma_weibull",
                                      "Gamma_normal",
                                      "Beta_powers",
                                      "Beta_switching",
                                      "Beta_across",
                                      "Beta_log_logistic",
                                      "ChiSquare_3",
                                      "Uniform_integers",
                                      "Bernoulli",
                                      "Geometric",
                                      "Binomial_40_70000",
                                      "Binomial_1000_45000",
                                      "Hypergeometric_20_7_9",
                                      "Hypergeometric_1000_300_400",
                                      "Negbinomial_walk",
                                      "Negbinomial_hill",
                                      "Negbinomial_mixture",
                                      "Poisson_0_10",
                                      "Poisson_0_1000",
                                      "Poisson_1_1000",
                                      "PoissonV_1000",
                                      "PoissonV_100000",
                                      "Multinomial_0_100_one",
                                      "Multinomial_1_100_one"};

// Sums of powers of distances from the true mean.
struct Sums {
  long double first = 0, second = 0, fourth = 0;
};

template <class T, class Draw>
bool check(const Case& c, const char* type, int64_t numbers, const Draw& draw) {
  constexpr int32_t kPart = 100000;
  const Stream s(ORVIK_BRNG_MT19937, {20261122});
  std::vector<T> r(kPart);
  Sums sums;
  for (int64_t done = 0; done < numbers; done += kPart) {
    if (draw(s.get(), kPart, r.data()) != 0) return false;
    double first = 0, second = 0, fourth = 0;
    for (const T x : r) {
      const double d = static_cast<double>(x) - c.mean, square = d * d;
      first += d;
      second += square;
      fourth += square * square;
    }
    sums.first += first, sums.second += second, sums.fourth += fourth;
  }
  const double n = static_cast<double>(numbers), off = static_cast<double>(sums.first) / n;
  const double square = static_cast<double>(sums.second) / n, variance = square - off * off;
  const double of_mean = off / std::sqrt(c.variance / n);
  const double of_variance =
      (variance - c.variance) / std::sqrt((static_cast<double>(sums.fourth) / n - square * square) / n);
  const bool fine = std::fabs(of_mean) < 5 && std::fabs(of_variance) < 5;
  std::printf("%-30s %-6s mean %12.7g of %12.7g, %+5.2f deviations; variance %12.7g of %12.7g, %+5.2f%s\n",
              c.name.c_str(), type, c.mean + off, c.mean, of_mean, variance, c.variance, of_variance,
              fine ? "" : "  WRONG");
  std::fflush(stdout);
  return fine;
}

bool run(int64_t numbers, const std::set<std::string>& names) {
  bool fine = true;
  size_t found = 0;
  for (const auto& list : {transforms(), rejections(), integers()})
    for (const Case& c : list) {
      if (names.count(c.name) == 0) continue;
      ++found;
      if (c.d) fine &= check<double>(c, "double", numbers, c.d);
      if (c.s) fine &= check<float>(c, "float", numbers, c.s);
      if (c.i) fine &= check<int32_t>(c, "int", numbers, c.i);
    }
  if (found != names.size()) std::printf("%zu of %zu names found\n", found, names.size());
  return fine && found == names.size();
}

}  // namespace
}  // namespace orvik::testing

int main(int argc, char** argv) {
  const int64_t numbers = argc > 1 ? static_cast<int64_t>(std::atof(argv[1])) : 100000000;
  const std::set<std::string> names(argv + std::min(argc, 2), argv + argc);
  return numbers >= 100000 && orvik::testing::run(numbers, names.empty() ? orvik::testing::kUsual : names) ? 0 : 1;
}
