// Curves through a column with gaps: three cubic splines with their derivatives, drawn as an SVG, and their integrals
// by month.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <orvik/front.hpp>
#include <string>
#include <vector>

#include "drawing.h"
#include "sections.h"

namespace tour {
namespace {

constexpr const char* kFile = "tour-fitting.svg";

struct Kind {
  const char* name;
  const char* note;
  const char* colour;
  orvik::Kind kind;
};

const Kind kKinds[] = {
    {"Natural", "two continuous derivatives", "#c2410c", orvik::Kind::Natural},
    {"Akima", "local, few wiggles", "#0f766e", orvik::Kind::Akima},
    {"Hyman", "as monotone as the data", "#4338ca", orvik::Kind::Hyman},
};

// A curve at evenly spaced sites.
struct Curve {
  std::vector<double> value, slope;
};

// The rows that have a value, and the values.
struct Points {
  std::vector<double> row, value;
};

Points present_points(const Column& column) {
  Points points;
  for (size_t i = 0; i < column.values.size(); ++i) {
    if (std::isnan(column.values[i])) continue;
    points.row.push_back(static_cast<double>(i + 1));
    points.value.push_back(column.values[i]);
  }
  return points;
}

// The spline and its first derivative at `count` even sites from `a` to `b`.
Curve trace(const orvik::Spline<double>& spline, double a, double b, size_t count) {
  std::vector<double> sites;
  for (size_t k = 0; k < count; ++k) {
    sites.push_back(a + static_cast<double>(k) * (b - a) / static_cast<double>(count - 1));
  }
  return {spline.evaluate(sites), spline.evaluate(sites, 1)};
}

// The runs of equal numbers in a column: each as a stretch of the axis, half a row beyond its first and last row.
struct Runs {
  std::vector<double> label, from, to;
};

Runs runs_of(const Column& column) {
  Runs runs;
  for (size_t i = 0; i < column.values.size(); ++i) {
    const double row = static_cast<double>(i + 1), value = column.values[i];
    if (runs.label.empty() || runs.label.back() != value) {
      runs.label.push_back(value), runs.from.push_back(row - 0.5), runs.to.push_back(row);
    }
    runs.to.back() = row + 0.5;
  }
  return runs;
}

// The mean of the curves over each run beside the mean of what was measured: a curve also counts the days without a
// value.
void show_means(const Points& points, const std::vector<std::vector<double>>& integrals, const Runs& runs) {
  std::printf("  mean by month:  measured");
  for (const Kind& kind : kKinds) std::printf("  %8s", kind.name);
  std::puts("   (integral of the curve over the days)");
  for (size_t k = 0; k < runs.label.size(); ++k) {
    double sum = 0, days = 0;
    for (size_t i = 0; i < points.row.size(); ++i) {
      if (points.row[i] > runs.from[k] && points.row[i] < runs.to[k]) sum += points.value[i], ++days;
    }
    std::printf("  %4g (%2g of %2g)   %8.2f", runs.label[k], days, runs.to[k] - runs.from[k],
                days > 0 ? sum / days : NAN);
    for (const auto& integral : integrals) std::printf("  %8.2f", integral[k] / (runs.to[k] - runs.from[k]));
    std::puts("");
  }
}

// The stretch of rows with the most missing values, at most `rows` long, that begins and ends with a value.
struct Window {
  size_t first, last;
};

Window busiest_window(const Column& column, size_t rows) {
  const std::vector<double>& v = column.values;
  Window best = {0, std::min(rows, v.size()) - 1};
  size_t most = 0;
  for (size_t a = 0; a + rows <= v.size(); ++a) {
    size_t b = a + rows - 1;
    if (std::isnan(v[a])) continue;
    while (b > a && std::isnan(v[b])) --b;
    const auto missing = static_cast<size_t>(std::count_if(v.begin() + static_cast<std::ptrdiff_t>(a),
                                                           v.begin() + static_cast<std::ptrdiff_t>(b),
                                                           [](double t) { return std::isnan(t); }));
    if (missing > most || (missing == most && missing == 0 && a == 0)) most = missing, best = {a, b};
  }
  return best;
}

void stretch(const std::vector<double>& v, double* low, double* high) {
  for (double t : v) *low = std::min(*low, t), *high = std::max(*high, t);
}

bool draw(const Column& column, Window window, const std::vector<Curve>& curves) {
  std::FILE* file = std::fopen(kFile, "w");
  if (file == nullptr) return false;
  const double a = static_cast<double>(window.first + 1), b = static_cast<double>(window.last + 1);
  Panel values = {76, 150, 888, 316, a, b, 0, 0}, slopes = {76, 520, 888, 170, a, b, 0, 0};
  values.y0 = values.y1 = curves[0].value[0];
  for (const Curve& curve : curves) {
    stretch(curve.value, &values.y0, &values.y1);
    stretch(curve.slope, &slopes.y0, &slopes.y1);
  }
  for (Panel* p : {&values, &slopes}) {
    const double margin = 0.06 * std::max(p->y1 - p->y0, 1e-9);
    p->y0 -= margin, p->y1 += margin;
  }

  Drawing d(file);
  d.begin(1000, 750);
  d.text(76, 48, 24, "#1c1917", "start", column.name + ", with a curve through its gaps", "600");
  d.text(76, 74, 14, "#78716c", "start",
         "Dots are measured; shaded rows have no value. Below, each curve's first derivative.");
  const double places[] = {76, 416, 680};
  for (size_t k = 0; k < std::size(kKinds); ++k)
    d.legend(places[k], 101, kKinds[k].colour, kKinds[k].name, kKinds[k].note);
  for (const Panel* p : {&values, &slopes}) {
    for (size_t i = window.first; i < window.last; ++i) {
      if (!std::isnan(column.values[i])) continue;
      size_t j = i;
      while (std::isnan(column.values[j + 1])) ++j;
      d.band(*p, static_cast<double>(i + 1) - 0.5, static_cast<double>(j + 1) + 0.5);
      i = j;
    }
    d.grid(*p, grid_step(p->y1 - p->y0));
    for (size_t k = 0; k < curves.size(); ++k)
      d.curve(*p, p == &values ? curves[k].value : curves[k].slope, kKinds[k].colour);
  }
  for (size_t i = window.first; i <= window.last; ++i) {
    if (!std::isnan(column.values[i])) d.dot(values.x(static_cast<double>(i + 1)), values.y(column.values[i]));
  }
  d.text(76, 140, 12, "#57534e", "start", column.name, "600");
  d.text(76, 510, 12, "#57534e", "start", column.name + " per row", "600");
  for (double row = std::ceil(a / 5) * 5; row <= b; row += 5) {
    char label[32];
    std::snprintf(label, sizeof label, "%g", row);
    d.text(values.x(row), 710, 12, "#78716c", "middle", label);
  }
  d.text(520, 734, 12, "#57534e", "middle", "row");
  d.end();
  return std::fclose(file) == 0;
}

}  // namespace

void show_fitting(const Table& table) {
  // The column that misses most, so that there is something to bridge.
  const Column* column = nullptr;
  for (const Column& c : table.columns) {
    if (column == nullptr || c.missing() > column->missing()) column = &c;
  }
  if (column == nullptr) return;
  if (column->missing() == 0) column = &table.columns.back();
  const Points points = present_points(*column);
  if (points.row.size() < 5) {
    std::puts("  too few values for a curve");
    return;
  }
  const Window window = busiest_window(*column, 45);
  const double a = static_cast<double>(window.first + 1), b = static_cast<double>(window.last + 1);
  const auto [low, high] = std::minmax_element(points.value.begin(), points.value.end());
  std::printf("  %s: %zu values, %zu missing, from %g to %g; rows %g to %g drawn\n", column->name.c_str(),
              points.row.size(), column->missing(), *low, *high, a, b);

  const auto month =
      std::find_if(table.columns.begin(), table.columns.end(), [](const Column& c) { return c.name == "Month"; });
  Runs runs;
  if (month != table.columns.end()) runs = runs_of(*month);

  std::vector<Curve> curves(std::size(kKinds));
  std::vector<std::vector<double>> integrals(std::size(kKinds));
  for (size_t k = 0; k < curves.size(); ++k) {
    const orvik::Spline<double> spline(points.row, points.value, kKinds[k].kind);
    curves[k] = trace(spline, a, b, 1200);
    integrals[k].resize(runs.from.size());
    spline.integrate(runs.from, runs.to, integrals[k]);
    const auto [least, most] = std::minmax_element(curves[k].value.begin(), curves[k].value.end());
    double steepest = 0;
    for (double slope : curves[k].slope) steepest = std::max(steepest, std::abs(slope));
    std::printf("  %-8s least %8.2f  most %8.2f  steepest %8.2f per row   (%s)\n", kKinds[k].name, *least, *most,
                steepest, kKinds[k].note);
  }
  if (!runs.label.empty()) show_means(points, integrals, runs);
  if (draw(*column, window, curves)) {
    std::printf("  drawn in %s\n", kFile);
  } else {
    std::printf("  %s could not be written\n", kFile);
  }
}

}  // namespace tour
