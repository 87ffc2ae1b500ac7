// Summaries and splines beside the kernels that they call, on one thread. The kernels' tasks are made beforehand, the
// front's objects in the call where the call makes them. Either allocates the
// coefficients of a spline that is made.
#include "objects.h"

#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "orvik/front.hpp"
#include "orvik/orvik.h"
#include "support/paired.h"

namespace {

constexpr int64_t kMany = 10000;  // observations, sites, breakpoints

void row(const std::string& what, orvik::bench::Paired& paired, double seconds) {
  const std::vector<double> t = paired.measure(seconds);
  std::printf("| %s | %.1f | %.1f | %.3f |\n", what.c_str(), t[0] / 1000, t[1] / 1000, t[1] / t[0]);
}

std::vector<double> noise(int64_t n) {
  std::vector<double> x(static_cast<size_t>(n));
  orvik::Stream stream(orvik::Generator::MT19937, 3);
  orvik::normal(stream, x);
  return x;
}

// The moments, extremes and products that a summary keeps.
class SummaryKernels {
 public:
  SummaryKernels(int64_t p, int64_t layout, const std::vector<double>& x)
      : p_(p), storage_(layout == ORVIK_ROWS ? ORVIK_SS_STORAGE_ROWS : ORVIK_SS_STORAGE_COLUMNS) {
    results_.resize(static_cast<size_t>(6 * p + p * p));
    __qordSSNewTask(&task_, &p_, &n_, &storage_, x.data(), nullptr, nullptr, 1);
    double* r = results_.data();
    for (const int32_t field : {OrvikSS_mean, OrvikSS_centralSum2, OrvikSS_centralSum3, OrvikSS_centralSum4,
                                OrvikSS_minimum, OrvikSS_maximum, OrvikSS_crossProduct}) {
      __qordSSEditTask(task_, field, r);
      r += p;
    }
    __qordSSEditTask(task_, OrvikSS_accumulatedWeights, weights_);
    __qoriSSEditTask(task_, OrvikSS_crossProductStorage, &kFull);
  }
  ~SummaryKernels() { __qorSSDeleteTask(&task_); }
  void run() {
    weights_[0] = weights_[1] = 0;
    uint64_t estimates = ORVIK_SS_MEAN | ORVIK_SS_CENTRAL_SUM2 | ORVIK_SS_CENTRAL_SUM3 | ORVIK_SS_CENTRAL_SUM4;
    if (p_ > 1) estimates |= ORVIK_SS_CROSS_PRODUCT;
    _qordSSBasic(task_, estimates, ORVIK_SS_METHOD_ONE_PASS, nullptr);
    _qordSSMinmax(task_, ORVIK_SS_MINIMUM | ORVIK_SS_MAXIMUM, ORVIK_SS_METHOD_ONE_PASS);
  }

 private:
  static constexpr int64_t kFull = ORVIK_SS_MATRIX_FULL;
  OrvikSSTask task_ = nullptr;
  int64_t p_, n_ = kMany, storage_;
  double weights_[2];
  std::vector<double> results_;
};

void summaries(double seconds) {
  for (const int64_t p : {1, 4, 16}) {
    for (const auto layout : {orvik::Layout::Rows, orvik::Layout::Columns}) {
      if (p == 1 && layout == orvik::Layout::Columns) continue;
      const std::vector<double> x = noise(p * kMany);
      SummaryKernels kernels(p, static_cast<int64_t>(layout), x);
      orvik::Summary<double> summary(p);
      orvik::bench::Paired paired;
      paired.add("kernels", [&](int64_t turns) {
        for (int64_t k = 0; k < turns; ++k) kernels.run();
      });
      paired.add("front", [&](int64_t turns) {
        for (int64_t k = 0; k < turns; ++k) summary.update(x, kMany, layout);
      });
      row("summary, " + std::to_string(p) + (p == 1 ? " variable" : " variables, ") +
              (p == 1                          ? ""
               : layout == orvik::Layout::Rows ? "rows"
                                               : "columns"),
          paired, seconds);
    }
  }
}

void splines(double seconds) {
  const int64_t few = 1000;
  std::vector<double> x, y = noise(kMany), sites, to, r(kMany);
  std::mt19937_64 random(5);
  for (int64_t k = 0; k < kMany; ++k) {
    x.push_back(static_cast<double>(k) + 1e-3 * static_cast<double>(random() % 100));
    sites.push_back(static_cast<double>(random() % (few * 1000)) / 1000);
    to.push_back(sites.back() + 10);
  }
  const double ends[] = {0, 0};
  const auto make = [&](int64_t nx, double* coefficients) {
    OrvikDFTask task = nullptr;
    orvik_df_kernel_dNewTask1D(&task, nx, x.data(), DF_PARTITION_NON_UNIFORM, 1, y.data(), DF_STORAGE_ROWS, 1);
    orvik_df_kernel_dEditPPSpline1D(task, 4, 2, DFB_FREE_END, ends, 0, nullptr, coefficients, DF_STORAGE_DEFAULT);
    orvik_df_kernel_dDFNaturalCubicSpline1D(task, 0, 0, nullptr);
    return task;
  };
  {
    orvik::bench::Paired paired;
    paired.add("kernels", [&](int64_t turns) {
      for (int64_t k = 0; k < turns; ++k) {
        const std::unique_ptr<double[]> coefficients(new double[4 * kMany]);
        OrvikDFTask task = make(kMany, coefficients.get());
        orvik_df_kernel_DeleteTask(&task);
      }
    });
    paired.add("front", [&](int64_t turns) {
      for (int64_t k = 0; k < turns; ++k) orvik::Spline<double>(x, y);
    });
    row("natural spline through 10,000 points", paired, seconds);
  }
  std::vector<double> coefficients(4 * few);
  OrvikDFTask task = make(few, coefficients.data());
  const std::span<const double> points(x.data(), few), values(y.data(), few);
  const orvik::Spline<double> spline(points, values);
  const int64_t orders[] = {1};
  {
    orvik::bench::Paired paired;
    paired.add("kernels", [&](int64_t turns) {
      for (int64_t k = 0; k < turns; ++k) {
        orvik_df_kernel_dDFInterpolate1D(task, 1, 0, kMany, sites.data(), 0, 1, orders, nullptr, r.data(),
                                         DF_STORAGE_ROWS, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                         nullptr, nullptr, nullptr);
      }
    });
    paired.add("front", [&](int64_t turns) {
      for (int64_t k = 0; k < turns; ++k) spline.evaluate(sites, r);
    });
    row("its values, 1,000 points", paired, seconds);
  }
  {
    orvik::bench::Paired paired;
    paired.add("kernels", [&](int64_t turns) {
      for (int64_t k = 0; k < turns; ++k) {
        orvik_df_kernel_dDFIntegrate1D(task, 0, kMany, sites.data(), 0, to.data(), 0, nullptr, nullptr, r.data(),
                                       DF_STORAGE_ROWS, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                       nullptr, nullptr);
      }
    });
    paired.add("front", [&](int64_t turns) {
      for (int64_t k = 0; k < turns; ++k) spline.integrate(sites, to, r);
    });
    row("its integrals, 1,000 points", paired, seconds);
  }
  orvik_df_kernel_DeleteTask(&task);
}

}  // namespace

void compare_objects(double seconds) {
  orvik::set_num_threads(1);
  std::printf("| 10,000 of | kernels, us | front, us | ratio |\n|---|---|---|---|\n");
  summaries(seconds);
  splines(seconds);
  orvik::set_num_threads(0);
}
