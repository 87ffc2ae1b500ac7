// Data fitting side by side with GSL, Boost.Math and loops by hand. Times are per breakpoint, site or pair of limits.
// page.py runs it and writes docs/performance-fitting.md.
#include <benchmark/benchmark.h>

#include <math.h>  // pchip.hpp wants the global isnan

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include "orvik/df.h"
#include "support/ratios.h"

#ifdef ORVIK_BENCH_GSL
#include <gsl/gsl_spline.h>
#endif
#ifdef ORVIK_BENCH_BOOST
#include <boost/math/interpolators/cubic_hermite.hpp>
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
  // A task of its own: the others give no slopes.
  keep.push_back(std::make_unique<Problem>(nx, 1));
  Problem* given = keep.back().get();
  orvik_df_kernel_dEditPPSpline1D(given->task, 4, 3, 2, nullptr, 1, p->y.data(), given->c.data(), 0);
  add("construct hermite" + size + "/ours", nx,
      [=] { orvik_df_kernel_dDFHermiteCubicSpline1D(given->task, 0, 0, nullptr); });
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
  add("construct hermite" + size + "/Boost cubic_hermite", nx, [=] {
    Vector x = p->x, y = p->y, slopes = p->y;
    boost::math::interpolators::cubic_hermite<Vector> spline(std::move(x), std::move(y), std::move(slopes));
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

// An even partition, beside the formula as a compiler makes vectors of it: held inside 0 .. nx, but for neither end
// right.
void add_uniform_search(int64_t nx, int64_t nsite, std::vector<std::unique_ptr<Problem>>& keep) {
  keep.push_back(std::make_unique<Problem>(nx, 4));
  Problem* p = keep.back().get();
  auto sites = std::make_shared<std::vector<double>>(uniform_reals(nsite, p->x.front(), p->x.back()));
  auto cells = std::make_shared<std::vector<int32_t>>(static_cast<size_t>(nsite));
  const std::string name = "search uniform partition, " + std::to_string(nsite) + " sites nx=" + std::to_string(nx);
  add(name + "/ours", nsite, [=] {
    orvik_df_kernel_dDFSearch1D(p->task, 0, nsite, sites->data(), 0, nullptr, cells->data(), nullptr, nullptr, nullptr);
  });
  add(name + "/formula", nsite, [=] {
    const double start = p->ends[0], value = static_cast<double>(nx - 1) / (p->ends[1] - p->ends[0]);
    const double* at = sites->data();
    int32_t* cell = cells->data();
    const int32_t most = static_cast<int32_t>(nx);
    for (int64_t j = 0; j < nsite; ++j) {
      cell[j] = std::max(std::min(static_cast<int32_t>((at[j] - start) * value) + 1, most), 0);
    }
    benchmark::DoNotOptimize(cell);
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

// Value and slope together, beside the value alone; floats at ascending sites, beside a scan by hand.
void add_more_interpolation(int64_t nx, int64_t nsite, std::vector<std::unique_ptr<Problem>>& keep) {
  const std::string size = " nx=" + std::to_string(nx);
  keep.push_back(std::make_unique<Problem>(nx, 1));
  Problem* p = keep.back().get();
  auto sorted = std::make_shared<std::vector<double>>(uniform_reals(nsite, p->x.front(), p->x.back()));
  std::sort(sorted->begin(), sorted->end());
  auto r = std::make_shared<std::vector<double>>(static_cast<size_t>(2 * nsite));
  add("cubic, value and slope, sorted sites" + size + "/ours", nsite, [=] {
    const int32_t orders[] = {1, 1};
    orvik_df_kernel_dDFInterpolate1D(p->task, 1, 0, nsite, sorted->data(), 64, 2, orders, nullptr, r->data(), 16,
                                     nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                     nullptr);
  });
  add("cubic, value and slope, sorted sites" + size + "/two loops by hand", nsite, [=] {
    const double* x = p->x.data();
    size_t k = 1;
    for (size_t j = 0; j < sorted->size(); ++j) {
      const double at = (*sorted)[j];
      while (k < p->x.size() - 1 && x[k] <= at) ++k;
      const double* c = p->c.data() + 4 * (k - 1);
      const double t = at - x[k - 1];
      (*r)[2 * j] = std::fma(t, std::fma(t, std::fma(t, c[3], c[2]), c[1]), c[0]);
      (*r)[2 * j + 1] = std::fma(t, std::fma(t, 3 * c[3], 2 * c[2]), c[1]);
    }
    benchmark::DoNotOptimize(r->data());
  });

  struct Floats {
    std::vector<float> x, y, c, sites, r;
    OrvikDFTask task = nullptr;
    ~Floats() { orvik_df_kernel_DeleteTask(&task); }
  };
  auto f = std::make_shared<Floats>();
  f->x.assign(p->x.begin(), p->x.end()), f->y.assign(p->y.begin(), p->y.end());
  f->sites.assign(sorted->begin(), sorted->end());
  f->c.resize(4 * f->x.size()), f->r.resize(f->sites.size());
  orvik_df_kernel_sNewTask1D(&f->task, nx, f->x.data(), 1, 1, f->y.data(), 0, 0);
  orvik_df_kernel_sEditPPSpline1D(f->task, 4, 2, 2, nullptr, 0, nullptr, f->c.data(), 0);
  orvik_df_kernel_sDFNaturalCubicSpline1D(f->task, 0, 0, nullptr);
  add("floats, cubic, sorted sites" + size + "/ours", nsite, [=] {
    const int32_t order = 1;
    orvik_df_kernel_sDFInterpolate1D(f->task, 1, 0, nsite, f->sites.data(), 64, 1, &order, nullptr, f->r.data(), 16,
                                     nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                     nullptr);
  });
  add("floats, cubic, sorted sites" + size + "/scan by hand", nsite, [=] {
    const float* x = f->x.data();
    size_t k = 1;
    for (size_t j = 0; j < f->sites.size(); ++j) {
      const float at = f->sites[j];
      while (k < f->x.size() - 1 && x[k] <= at) ++k;
      const float* c = f->c.data() + 4 * (k - 1);
      const float t = at - x[k - 1];
      f->r[j] = std::fma(t, std::fma(t, std::fma(t, c[3], c[2]), c[1]), c[0]);
    }
    benchmark::DoNotOptimize(f->r.data());
  });
}

// ---- Integration --------------------------------------------------------------------------------------------------

void add_integration(int64_t nx, int64_t nlim, int64_t peer_limits, std::vector<std::unique_ptr<Problem>>& keep) {
  const std::string size = " nx=" + std::to_string(nx);
  for (int64_t xhint : {1, 4}) {
    keep.push_back(std::make_unique<Problem>(nx, xhint));
    Problem* p = keep.back().get();
    auto limits = std::make_shared<std::vector<double>>(uniform_reals(2 * nlim, p->x.front(), p->x.back()));
    auto r = std::make_shared<std::vector<double>>(static_cast<size_t>(nlim));
    const auto ours = [=](int64_t count) {
      orvik_df_kernel_dDFIntegrate1D(p->task, 0, count, limits->data(), 0, limits->data() + nlim, 0, nullptr, nullptr,
                                     r->data(), 16, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                     nullptr, nullptr);
    };
    if (xhint == 4) {
      add("integrate, uniform partition, random limits" + size + "/ours", nlim, [=] { ours(nlim); });
      continue;
    }
    add("integrate, random limits" + size + "/ours", nlim, [=] { ours(nlim); });
    add("integrate, one pair of limits a call" + size + "/ours", 1, [=] { ours(1); });
#ifdef ORVIK_BENCH_GSL
    gsl_spline* spline = gsl_spline_alloc(gsl_interp_cspline, static_cast<size_t>(nx));
    gsl_spline_init(spline, p->x.data(), p->y.data(), static_cast<size_t>(nx));
    gsl_interp_accel* accelerator = gsl_interp_accel_alloc();
    const auto gsl = [=](int64_t count) {  // wants its limits in order
      for (int64_t k = 0; k < count; ++k) {
        const auto [a, b] = std::minmax((*limits)[static_cast<size_t>(k)], (*limits)[static_cast<size_t>(nlim + k)]);
        (*r)[static_cast<size_t>(k)] = gsl_spline_eval_integ(spline, a, b, accelerator);
      }
      benchmark::DoNotOptimize(r->data());
    };
    add("integrate, random limits" + size + "/GSL", peer_limits, [=] { gsl(peer_limits); });
    add("integrate, one pair of limits a call" + size + "/GSL", 1, [=] { gsl(1); });
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
  for (int64_t nsite : {10000, 1000000}) add_uniform_search(1000, nsite, keep);
  for (int64_t nx : {1000, 100000}) add_more_interpolation(nx, 100000, keep);
  add_integration(1000, 100000, 2000, keep);
  add_integration(100000, 100000, 100, keep);
  add_threads(keep);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
