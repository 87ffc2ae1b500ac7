// Data fitting side by side with GSL, Boost.Math and hand-written searches. Times are per breakpoint or per site.
//
//   taskset -c 1 build/release/bin/fitting_bench --benchmark_repetitions=20 --benchmark_min_time=0.003
//     --benchmark_enable_random_interleaving=true   (two threads: without taskset)
#include <benchmark/benchmark.h>

#include <math.h>  // pchip.hpp wants the global isnan

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include "support/ratios.h"
#include "orvik/df.h"

#ifdef ORVIK_BENCH_GSL
#include <gsl/gsl_spline.h>
#endif
#ifdef ORVIK_BENCH_BOOST
#include <boost/math/interpolators/makima.hpp>
#include <boost/math/interpolators/pchip.hpp>
#endif

namespace {

using orvik::bench::RatioReporter;

std::vector<double> partition(int64_t nx) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> step(0.1, 1.9);
  std::vector<double> x(static_cast<size_t>(nx));
  double at = 0;
  for (double& v : x) v = at, at += step(random);
  return x;
}

std::vector<double> uniform_reals(int64_t n, double a, double b) {
  std::mt19937_64 random(2);
  std::uniform_real_distribution<double> value(a, b);
  std::vector<double> y(static_cast<size_t>(n));
  for (double& v : y) v = value(random);
  return y;
}

// A task with coefficients for a cubic.
struct Problem {
  std::vector<double> x, y, c;
  OrvikDFTask task = nullptr;

  Problem(int64_t nx, int64_t xhint) : x(partition(nx)), y(uniform_reals(nx, -1, 1)), c(static_cast<size_t>(4 * nx)) {
    if (xhint == 4) ends = {x.front(), x.back()};
    orvik_df_kernel_dNewTask1D(&task, nx, xhint == 4 ? ends.data() : x.data(), xhint, 1, y.data(), 0, 0);
    orvik_df_kernel_dEditPPSpline1D(task, 4, 2, 2, nullptr, 0, nullptr, c.data(), 0);
    orvik_df_kernel_dDFNaturalCubicSpline1D(task, 0, 0, nullptr);
  }
  Problem(const Problem&) = delete;
  ~Problem() { orvik_df_kernel_DeleteTask(&task); }
  std::vector<double> ends;
};

// Processor time, which a busy machine disturbs less; real time only where threads are compared.
void add(const std::string& name, int64_t items, std::function<void()> work, bool real_time = false) {
  auto* registered = benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    work();
    for (auto _ : state) work();
    state.SetItemsProcessed(state.iterations() * items);
  });
  if (real_time) registered->UseRealTime();
}

// ---- Construction -------------------------------------------------------------------------------------------------

using Construct = int32_t (*)(OrvikDFTask, int64_t, int64_t, const OrvikDFServices*);

void add_construction(int64_t nx, std::vector<std::unique_ptr<Problem>>& keep) {
  keep.push_back(std::make_unique<Problem>(nx, 1));
  Problem* p = keep.back().get();
  const std::string size = " nx=" + std::to_string(nx);
  const auto ours = [&](const std::string& name, Construct kind) {
    add("construct " + name + size + "/ours", nx, [=] { kind(p->task, 0, 0, nullptr); });
  };
  ours("natural", orvik_df_kernel_dDFNaturalCubicSpline1D);
  ours("akima", orvik_df_kernel_dDFAkimaCubicSpline1D);
  ours("hyman", orvik_df_kernel_dDFHymanCubicSpline1D);
  ours("bessel", orvik_df_kernel_dDFBesselCubicSpline1D);
#ifdef ORVIK_BENCH_GSL
  const auto gsl = [&](const std::string& name, const gsl_interp_type* type) {
    gsl_spline* spline = gsl_spline_alloc(type, static_cast<size_t>(nx));
    add("construct " + name + size + "/GSL", nx,
        [=] { gsl_spline_init(spline, p->x.data(), p->y.data(), static_cast<size_t>(nx)); });
  };
  gsl("natural", gsl_interp_cspline);
  gsl("akima", gsl_interp_akima);
#endif
#ifdef ORVIK_BENCH_BOOST
  // Boost.Math takes its vectors over; the copies that it needs are timed alone and taken off by the reader.
  using Vector = std::vector<double>;
  add("construct akima" + size + "/Boost makima", nx, [=] {
    Vector x = p->x, y = p->y;
    boost::math::interpolators::makima<Vector> spline(std::move(x), std::move(y));
    benchmark::DoNotOptimize(spline);
  });
  add("construct hyman" + size + "/Boost pchip", nx, [=] {
    Vector x = p->x, y = p->y;
    boost::math::interpolators::pchip<Vector> spline(std::move(x), std::move(y));
    benchmark::DoNotOptimize(spline);
  });
  add("copy two vectors" + size + "/ours", nx, [=] {
    Vector x = p->x, y = p->y;
    benchmark::DoNotOptimize(x.data());
    benchmark::DoNotOptimize(y.data());
  });
#endif
}

// ---- Search -------------------------------------------------------------------------------------------------------

int32_t branch_free_cell(const std::vector<double>& x, double t) {
  const double* base = x.data();
  size_t n = x.size();
  while (n > 1) {
    const size_t half = n / 2;
    base += half * static_cast<size_t>(base[half - 1] <= t);  // a product, since a choice may compile to a branch
    n -= half;
  }
  return static_cast<int32_t>(base - x.data() + (*base <= t));
}

void add_search(int64_t nx, int64_t nsite, std::vector<std::unique_ptr<Problem>>& keep) {
  keep.push_back(std::make_unique<Problem>(nx, 1));
  Problem* p = keep.back().get();
  auto sites = std::make_shared<std::vector<double>>(uniform_reals(nsite, p->x.front(), p->x.back()));
  auto sorted = std::make_shared<std::vector<double>>(*sites);
  std::sort(sorted->begin(), sorted->end());
  auto cells = std::make_shared<std::vector<int32_t>>(static_cast<size_t>(nsite));
  const std::string random = "search random nx=" + std::to_string(nx);
  add(random + "/ours", nsite, [=] {
    orvik_df_kernel_dDFSearch1D(p->task, 0, nsite, sites->data(), 0, nullptr, cells->data(), nullptr, nullptr, nullptr);
  });
  add(random + "/std::upper_bound", nsite, [=] {
    for (size_t j = 0; j < sites->size(); ++j) {
      (*cells)[j] = static_cast<int32_t>(std::upper_bound(p->x.begin(), p->x.end(), (*sites)[j]) - p->x.begin());
    }
    benchmark::DoNotOptimize(cells->data());
  });
  add(random + "/branch-free bisection", nsite, [=] {
    for (size_t j = 0; j < sites->size(); ++j) (*cells)[j] = branch_free_cell(p->x, (*sites)[j]);
    benchmark::DoNotOptimize(cells->data());
  });
  const std::string ascending = "search sorted nx=" + std::to_string(nx);
  add(ascending + "/ours", nsite, [=] {
    orvik_df_kernel_dDFSearch1D(p->task, 0, nsite, sorted->data(), 64, nullptr, cells->data(), nullptr, nullptr,
                                nullptr);
  });
  add(ascending + "/merge scan", nsite, [=] {
    size_t k = 0;
    const size_t n = p->x.size();
    for (size_t j = 0; j < sorted->size(); ++j) {
      while (k < n && p->x[k] <= (*sorted)[j]) ++k;
      (*cells)[j] = static_cast<int32_t>(k);
    }
    benchmark::DoNotOptimize(cells->data());
  });
}

// ---- Interpolation ------------------------------------------------------------------------------------------------

int32_t evaluate(const Problem* p, const std::vector<double>& sites, int64_t hint, std::vector<double>& r,
                 const OrvikDFServices* services = nullptr) {
  const int32_t order = 1;
  return orvik_df_kernel_dDFInterpolate1D(p->task, 1, 0, static_cast<int64_t>(sites.size()), sites.data(), hint, 1,
                                          &order, nullptr, r.data(), 16, nullptr, nullptr, nullptr, nullptr, nullptr,
                                          nullptr, nullptr, nullptr, nullptr, services);
}

void add_interpolation(int64_t nx, int64_t nsite, std::vector<std::unique_ptr<Problem>>& keep) {
  const std::string size = " nx=" + std::to_string(nx);
  for (int64_t xhint : {1, 4}) {
    keep.push_back(std::make_unique<Problem>(nx, xhint));
    Problem* p = keep.back().get();
    auto sites = std::make_shared<std::vector<double>>(uniform_reals(nsite, p->x.front(), p->x.back()));
    auto sorted = std::make_shared<std::vector<double>>(*sites);
    std::sort(sorted->begin(), sorted->end());
    auto r = std::make_shared<std::vector<double>>(static_cast<size_t>(nsite));
    if (xhint == 4) {
      add("cubic, uniform partition, random" + size + "/ours", nsite, [=] { evaluate(p, *sites, 0, *r); });
      const int64_t few = 10000;
      const std::vector<double> cached(sites->begin(), sites->begin() + few);
      add("cubic, uniform partition, 10^4 sites" + size + "/ours", few, [=] { evaluate(p, cached, 0, *r); });
      continue;
    }
    add("cubic, random sites" + size + "/ours", nsite, [=] { evaluate(p, *sites, 0, *r); });
    add("cubic, sorted sites" + size + "/ours", nsite, [=] { evaluate(p, *sorted, 64, *r); });
    if (nx == 1000) {
      const std::vector<double> one = {(*sites)[7]};
      add("one site" + size + "/ours", 1, [=] { evaluate(p, one, 0, *r); });
    }
#ifdef ORVIK_BENCH_GSL
    gsl_spline* spline = gsl_spline_alloc(gsl_interp_cspline, static_cast<size_t>(nx));
    gsl_spline_init(spline, p->x.data(), p->y.data(), static_cast<size_t>(nx));
    gsl_interp_accel* accelerator = gsl_interp_accel_alloc();
    const auto gsl = [=](const std::string& name, auto at) {
      add(name + size + "/GSL", nsite, [=] {
        for (size_t j = 0; j < at->size(); ++j) (*r)[j] = gsl_spline_eval(spline, (*at)[j], accelerator);
        benchmark::DoNotOptimize(r->data());
      });
    };
    gsl("cubic, random sites", sites);
    gsl("cubic, sorted sites", sorted);
#endif
  }
}

// Two threads against one.
int32_t run_two(int64_t count, int64_t threads, void* arguments, OrvikDFBody body) {
  std::vector<std::thread> pool;
  for (int64_t t = 1; t < threads; ++t) {
    pool.emplace_back([=] {
      for (int64_t i = t; i < count; i += threads) body(i, t, threads, arguments);
    });
  }
  for (int64_t i = 0; i < count; i += threads) body(i, 0, threads, arguments);
  for (auto& thread : pool) thread.join();
  return 0;
}
int64_t two() { return 2; }
const OrvikDFServices kTwoThreads = {run_two, {nullptr, nullptr, nullptr}, two, {nullptr, nullptr, nullptr}};

void add_threads(std::vector<std::unique_ptr<Problem>>& keep) {
  const int64_t nsite = 10000000;
  keep.push_back(std::make_unique<Problem>(1000, 1));
  Problem* p = keep.back().get();
  auto sites = std::make_shared<std::vector<double>>(uniform_reals(nsite, p->x.front(), p->x.back()));
  auto r = std::make_shared<std::vector<double>>(static_cast<size_t>(nsite));
  add(
      "cubic, 10^7 sites, two threads/ours", nsite, [=] { evaluate(p, *sites, 0, *r, &kTwoThreads); }, true);
  add(
      "cubic, 10^7 sites, two threads/one thread", nsite, [=] { evaluate(p, *sites, 0, *r); }, true);
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  std::vector<std::unique_ptr<Problem>> keep;
  for (int64_t nx : {1000, 100000}) add_construction(nx, keep);
  for (int64_t nx : {1000, 100000}) add_search(nx, 1000000, keep);
  for (int64_t nx : {1000, 100000}) add_interpolation(nx, 1000000, keep);
  add_threads(keep);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
