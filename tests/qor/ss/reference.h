// Two-pass reference of every moment in long double.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "qor/ss/support.h"

namespace orvik::ss::test {

struct Reference {
  using Real = long double;
  Real weight = 0, squares = 0;
  // By variable: r[k] raw, c[k] central averages with the second unbiased, s[k] and cs[k] the sums.
  struct Variable {
    Real mean = 0, r[5] = {}, s[5] = {}, c[5] = {}, cs[5] = {};
    Real absolute[5] = {};  // averages of |x|^k, the scale of rounding errors of the fast method
    Real skewness = 0, kurtosis = 0, variation = 0;
  };
  std::vector<Variable> v;
  std::vector<Real> cross;  // p by p
  Real factor = 1;

  Real covariance(int64_t i, int64_t j) const { return cross[i * p() + j] * factor / weight; }
  Real correlation(int64_t i, int64_t j) const {
    return cross[i * p() + j] / std::sqrt(cross[i * p() + i] * cross[j * p() + j]);
  }
  int64_t p() const { return static_cast<int64_t>(v.size()); }

  // Central sums about `center` where given (p values), otherwise about the mean.
  template <class T>
  Reference(const Sample<T>& sample, bool weighted, const T* center = nullptr)
      : v(sample.p), cross(sample.p * sample.p) {
    auto w = [&](int64_t i) { return weighted ? Real{sample.weights[i]} : Real{1}; };
    for (int64_t i = 0; i < sample.n; ++i) {
      weight += w(i);
      squares += w(i) * w(i);
    }
    if (weight > squares / weight) factor = weight / (weight - squares / weight);
    for (int64_t j = 0; j < sample.p; ++j) {
      Variable& a = v[j];
      for (int64_t i = 0; i < sample.n; ++i) {
        Real power = w(i);
        for (int k = 1; k <= 4; ++k) {
          power *= sample.at(i, j);
          a.s[k] += power;
          a.absolute[k] += std::fabs(power);
        }
      }
      for (int k = 1; k <= 4; ++k) {
        a.r[k] = a.s[k] / weight;
        a.absolute[k] /= weight;
      }
      a.mean = center != nullptr ? Real{center[j]} : a.r[1];
      for (int64_t i = 0; i < sample.n; ++i) {
        Real power = w(i);
        for (int k = 1; k <= 4; ++k) {
          power *= sample.at(i, j) - a.mean;
          a.cs[k] += power;
        }
      }
      for (int k = 2; k <= 4; ++k) a.c[k] = a.cs[k] / weight * (k == 2 ? factor : 1);
      a.variation = std::sqrt(a.c[2]) / a.mean;
      a.skewness = a.c[3] / std::sqrt(a.c[2] * a.c[2] * a.c[2]);
      a.kurtosis = a.c[4] / (a.c[2] * a.c[2]) - 3;
    }
    for (int64_t i = 0; i < sample.n; ++i) {
      for (int64_t j = 0; j < sample.p; ++j) {
        const Real d = w(i) * (sample.at(i, j) - v[j].mean);
        for (int64_t k = 0; k < sample.p; ++k) cross[j * sample.p + k] += d * (sample.at(i, k) - v[k].mean);
      }
    }
  }
};

}  // namespace orvik::ss::test
