// Data fitting along its axes: one line a case, so that a case which takes much longer than its neighbours stands out.
//
//   fitting_axes [--rows TEXT[;TEXT...]] [--seconds S]      the cases whose name has each of the texts in it
//
// Nanoseconds of one breakpoint of one function, one site, or one pair of limits; the least of many turns.
#include <cstdio>
#include <string>
#include <vector>

#include "df/support.h"
#include "support/paired.h"
#include "zym/options.h"

namespace {

using namespace orvik::df::test;
using orvik::bench::Options;
using orvik::bench::Paired;

std::vector<std::string> chosen;
double seconds = 0.01;

template <class Real>
constexpr const char* kReal = sizeof(Real) == 8 ? "double" : "float";

// `prepare` makes what `work` needs, and only where the line is asked for.
template <class Prepare>
void line(const std::string& name, int64_t items, Prepare prepare) {
  const auto named = [&](const std::string& text) { return name.find(text) != std::string::npos; };
  if (!std::all_of(chosen.begin(), chosen.end(), named)) return;
  const auto work = prepare();
  Paired paired;
  paired.add(name, [&](int64_t turns) {
    for (; turns > 0; --turns) work();
  });
  std::printf("| %s | %.3f |\n", name.c_str(), paired.measure(seconds)[0] / static_cast<double>(items));
  std::fflush(stdout);
}

// A task with all that a construction reads and writes.
template <class Real>
struct Problem {
  using E = Entries<Real>;
  int64_t nx, ny;
  std::vector<Real> x, y, ic, c, bc = {Real(0.5), Real(-0.5)};
  OwnedTask task;

  Problem(int64_t points, int64_t xhint, int64_t functions, int64_t yhint, int64_t order, int64_t type, int64_t ends)
      : nx(points),
        ny(functions),
        x(ragged_partition<Real>(points)),
        y(random_values<Real>(points * functions)),
        ic(random_values<Real>(points + 1)),
        c(static_cast<size_t>(order * points * functions)) {
    for (int64_t f = 0; f < ny; ++f) {  // periodic in either order of storage
      const bool columns = yhint == DF_STORAGE_COLUMNS;
      const int64_t first = columns ? f : f * nx, step = columns ? ny : 1;
      y[static_cast<size_t>(first + (nx - 1) * step)] = y[static_cast<size_t>(first)];
    }
    if (xhint == DF_PARTITION_UNIFORM) x = {x.front(), x.back()};
    if (xhint == DF_PARTITION_QUASI_UNIFORM) {  // as the hint says: within a third of a step of an even grid
      const std::vector<Real> shift = random_values<Real>(points);
      for (size_t i = 0; i < x.size(); ++i) x[i] = static_cast<Real>(i) + shift[i] / 6;
    }
    E::make(task.out(), nx, x.data(), xhint, ny, y.data(), yhint, 0);
    const bool slopes = type == 0 || type == 3;
    E::edit_spline(task, order, type, ends, bc.data(), slopes ? 1 : 0, slopes ? ic.data() : nullptr, c.data(), 0);
    if (type == 1) orvik_df_kernel_iEditVal(task, DFP_INTERNAL_TYPE, 8);
  }
  Problem(const Problem&) = delete;
};

const char* partition_name(int64_t xhint) {
  return xhint == DF_PARTITION_UNIFORM ? "even" : xhint == DF_PARTITION_QUASI_UNIFORM ? "nearly even" : "given";
}

// ---- Construction -------------------------------------------------------------------------------------------------

template <class Real>
struct Kind {
  const char* name;
  Construct construct;
  int64_t order, type, ends;
};

template <class Real>
void add_construction(const Kind<Real>& kind, int64_t xhint, int64_t ny, int64_t nx) {
  for (int64_t yhint : {DF_STORAGE_ROWS, DF_STORAGE_COLUMNS}) {
    const std::string name = std::string("construct ") + kind.name + ", " + kReal<Real> + ", " + partition_name(xhint) +
                             ", ny " + std::to_string(ny) + ", n " + std::to_string(nx) +
                             (yhint == DF_STORAGE_ROWS ? ", rows" : ", columns");
    line(name, nx * ny, [&] {
      auto p = std::make_shared<Problem<Real>>(nx, xhint, ny, yhint, kind.order, kind.type, kind.ends);
      if (kind.construct(p->task, 0, 0, nullptr) != 0) std::printf("| %s is refused |\n", name.c_str());
      return [p, construct = kind.construct] { construct(p->task, 0, 0, nullptr); };
    });
  }
}

template <class Real>
void constructions() {
  using E = Entries<Real>;
  const Kind<Real> kinds[] = {{"linear", E::linear, 2, 0, DFB_FREE_END},
                              {"hermite", E::hermite, 4, 3, DFB_FREE_END},
                              {"bessel", E::bessel, 4, 5, DFB_FREE_END},
                              {"akima", E::akima, 4, 4, DFB_FREE_END},
                              {"akima periodic", E::akima, 4, 4, DFB_PERIODIC},
                              {"hyman", E::hyman, 4, 9, DFB_FREE_END},
                              {"default", E::default_cubic, 4, 0, DFB_FREE_END},
                              {"natural free", E::natural, 4, 2, DFB_FREE_END},
                              {"natural not a knot", E::natural, 4, 2, DFB_NOT_A_KNOT},
                              {"natural first", E::natural, 4, 2, DFB_FIRST_LEFT | DFB_FIRST_RIGHT},
                              {"natural periodic", E::natural, 4, 2, DFB_PERIODIC},
                              {"quadratic middle", E::quadratic, 3, 0, DFB_MIDPOINT_VALUE},
                              {"quadratic knots", E::quadratic, 3, 1, DFB_FREE_END}};
  for (const Kind<Real>& kind : kinds) {
    for (int64_t xhint : {DF_PARTITION_NON_UNIFORM, DF_PARTITION_UNIFORM}) {
      for (int64_t ny : {1, 2, 4, 16, 64}) {
        for (int64_t nx : {5, 16, 64, 200, 511, 512, 1000, 100000}) {
          if (nx * ny <= 1600000) add_construction(kind, xhint, ny, nx);
        }
      }
    }
  }
}

// ---- Sites --------------------------------------------------------------------------------------------------------

template <class Real>
std::vector<Real> sites_of(const Problem<Real>& p, int64_t count, bool sorted, uint32_t seed = 3) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> value(p.x.front(), p.x.back());
  std::vector<Real> sites(static_cast<size_t>(count));
  for (Real& v : sites) v = static_cast<Real>(value(random));
  if (sorted) std::sort(sites.begin(), sites.end());
  return sites;
}

struct SiteKind {
  const char* name;
  int64_t hint;
};
constexpr SiteKind kSites[] = {{"any", 0}, {"ascending", 64}, {"even grid", 4}};

template <class Real>
void searches() {
  using E = Entries<Real>;
  for (int64_t width : {0, 1}) {
    for (int64_t xhint : {DF_PARTITION_NON_UNIFORM, DF_PARTITION_QUASI_UNIFORM, DF_PARTITION_UNIFORM}) {
      for (const SiteKind& kind : kSites) {
        for (int64_t nx : {5, 16, 200, 1000, 100000}) {
          for (int64_t count : {1, 2, 3, 4, 5, 8, 10, 30, 100, 1000, 10000, 1000000}) {
            if (kind.hint == 4 && count > 4096) continue;  // keeps its buffer
            const std::string name = std::string("search ") + kReal<Real> + ", " + partition_name(xhint) + ", " +
                                     kind.name + ", n " + std::to_string(nx) +
                                     (width == 0 ? ", cells 32" : ", cells 64") + ", sites " + std::to_string(count);
            line(name, count, [&] {
              auto p = std::make_shared<Problem<Real>>(nx, xhint, 1, DF_STORAGE_ROWS, 4, 5, DFB_FREE_END);
              orvik_df_kernel_iEditVal(p->task, DFP_PARTITION_HINT, xhint);
              auto wide = std::make_shared<OwnedTask>();
              E::make(wide->out(), nx, p->x.data(), xhint, 1, p->y.data(), 16, static_cast<int32_t>(width));
              auto sites = sites_of(*p, count, kind.hint != 0);
              if (kind.hint == 4) sites = {p->x.front(), p->x.back()};
              auto cells = std::make_shared<std::vector<int64_t>>(static_cast<size_t>(count));
              return [=] {
                E::search(*wide, 0, count, sites.data(), kind.hint, nullptr, cells->data(), nullptr, nullptr, nullptr);
              };
            });
          }
        }
      }
    }
  }
}

// What a line of interpolation asks for.
struct Results {
  const char* name;
  std::vector<int32_t> orders;
  int64_t hint;
};

template <class Real>
void interpolations() {
  using E = Entries<Real>;
  struct Piece {
    const char* name;
    Construct construct;
    int64_t order, type, ends;
  };
  const Piece pieces[] = {{"line", E::linear, 2, 0, DFB_FREE_END},
                          {"cubic", E::bessel, 4, 5, DFB_FREE_END},
                          {"quadratic", E::quadratic, 3, 0, DFB_MIDPOINT_VALUE},
                          {"knots", E::quadratic, 3, 1, DFB_FREE_END}};
  const Results results[] = {{"value", {1}, 16},
                             {"slope", {0, 1}, 16},
                             {"value and slope", {1, 1}, 16},
                             {"value and slope apart", {1, 1}, 32},
                             {"three", {1, 1, 1}, 16},
                             {"three apart", {1, 1, 1}, 32},
                             {"value by site", {1}, 256},
                             {"three by site", {1, 1, 1}, 256},
                             {"three by site, derivatives outside", {1, 1, 1}, 512}};
  for (const Piece& piece : pieces) {
    for (int64_t xhint : {DF_PARTITION_NON_UNIFORM, DF_PARTITION_QUASI_UNIFORM, DF_PARTITION_UNIFORM}) {
      for (const SiteKind& kind : kSites) {
        for (const Results& result : results) {
          for (int64_t ny : {1, 2, 4, 16}) {
            for (int64_t nx : {16, 1000, 100000}) {
              for (int64_t count : {1, 2, 10, 100, 1000, 10000, 1000000}) {
                const int64_t derivatives = std::count(result.orders.begin(), result.orders.end(), 1);
                if (count * ny * derivatives > 4000000 || nx * ny > 400000) continue;
                const std::string name = std::string("interpolate ") + piece.name + ", " + kReal<Real> + ", " +
                                         partition_name(xhint) + ", " + kind.name + ", " + result.name + ", ny " +
                                         std::to_string(ny) + ", n " + std::to_string(nx) + ", sites " +
                                         std::to_string(count);
                line(name, count * ny, [&] {
                  auto p = std::make_shared<Problem<Real>>(nx, xhint, ny, DF_STORAGE_ROWS, piece.order, piece.type,
                                                           piece.ends);
                  if (piece.construct(p->task, 0, 0, nullptr) != 0) std::printf("| %s is refused |\n", name.c_str());
                  auto sites = sites_of(*p, count, kind.hint != 0);
                  if (kind.hint == 4) sites = {p->x.front(), p->x.back()};
                  auto r = std::make_shared<std::vector<Real>>(static_cast<size_t>(count * ny * derivatives));
                  return [=] {
                    E::interpolate(p->task, 1, 0, count, sites.data(), kind.hint,
                                   static_cast<int64_t>(result.orders.size()), result.orders.data(), nullptr, r->data(),
                                   result.hint, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                   nullptr, nullptr);
                  };
                });
              }
            }
          }
        }
      }
    }
  }
}

// ---- Integration --------------------------------------------------------------------------------------------------

template <class Real>
void integrations() {
  using E = Entries<Real>;
  struct Limits {
    const char* name;
    int64_t left, right;
    double width;  // of the stretch between the limits, of the whole; 0: anywhere
  };
  const Limits limits[] = {{"any", 0, 0, 0},
                           {"close", 0, 0, 1e-3},
                           {"ascending", 64, 64, 1e-3},
                           {"grids", 4, 4, 0},
                           {"left ascending", 64, 0, 0}};
  for (int64_t xhint : {DF_PARTITION_NON_UNIFORM, DF_PARTITION_QUASI_UNIFORM, DF_PARTITION_UNIFORM}) {
    for (const Limits& kind : limits) {
      for (int64_t yhint : {16, 32}) {
        for (int64_t ny : {1, 2, 4, 16}) {
          for (int64_t nx : {16, 1000, 100000}) {
            for (int64_t count : {1, 2, 7, 8, 10, 100, 1000, 100000}) {
              if (nx * ny > 400000 || count * ny > 400000) continue;
              const std::string name = std::string("integrate ") + kReal<Real> + ", " + partition_name(xhint) + ", " +
                                       kind.name + (yhint == 16 ? ", rows" : ", columns") + ", ny " +
                                       std::to_string(ny) + ", n " + std::to_string(nx) + ", limits " +
                                       std::to_string(count);
              line(name, count * ny, [&] {
                auto p = std::make_shared<Problem<Real>>(nx, xhint, ny, DF_STORAGE_ROWS, 4, 5, DFB_FREE_END);
                if (E::bessel(p->task, 0, 0, nullptr) != 0) std::printf("| %s is refused |\n", name.c_str());
                auto left = sites_of(*p, count, kind.left == 64);
                auto right = sites_of(*p, count, kind.right == 64, 4);
                const double width = kind.width * (static_cast<double>(p->x.back()) - p->x.front());
                for (size_t k = 0; kind.width > 0 && k < left.size(); ++k)
                  right[k] = static_cast<Real>(left[k] + width);
                if (kind.left == 4) left = {p->x.front(), p->x.back()}, right = {p->x.back(), p->x.front()};
                auto r = std::make_shared<std::vector<Real>>(static_cast<size_t>(count * ny));
                return [=] {
                  E::integrate(p->task, 0, count, left.data(), kind.left, right.data(), kind.right, nullptr, nullptr,
                               r->data(), yhint, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                               nullptr);
                };
              });
            }
          }
        }
      }
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const Options options(argc, argv, seconds, {});
  seconds = options.seconds;
  for (size_t at = 0; at < options.patterns.size();) {
    const size_t end = std::min(options.patterns.find(';', at), options.patterns.size());
    chosen.push_back(options.patterns.substr(at, end - at));
    at = end + 1;
  }
  std::puts("| what | ns |\n|---|---:|");
  constructions<double>(), constructions<float>();
  searches<double>(), searches<float>();
  interpolations<double>(), interpolations<float>();
  integrations<double>(), integrations<float>();
}
