// Statistics of data that are not clean: outliers by name, a covariance that they do not move, and what may have stood
// where values are missing, with intervals, drawn as an SVG.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <orvik/front.hpp>
#include <string>
#include <vector>

#include "attempt.h"
#include "drawing.h"
#include "sections.h"

namespace tour {
namespace {

constexpr const char* kFile = "tour-missing.svg";
constexpr int32_t kSets = 100;  // imputed sets

const Column* find(const Table& table, const char* name) {
  for (const Column& c : table.columns) {
    if (c.name == name) return &c;
  }
  return nullptr;
}

// "August 25" where the table has a month and a day, else "row 117".
std::string row_name(const Table& table, size_t row) {
  static constexpr const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                            "July",    "August",   "September", "October", "November", "December"};
  const Column *month = find(table, "Month"), *day = find(table, "Day");
  if (month != nullptr && day != nullptr && month->values[row] >= 1 && month->values[row] <= 12) {
    return std::string(kMonths[static_cast<size_t>(month->values[row]) - 1]) + " " +
           std::to_string(static_cast<int>(day->values[row]));
  }
  return "row " + std::to_string(row + 1);
}

// The columns that were measured; those that only number the rows are left out.
std::vector<const Column*> measured(const Table& table) {
  std::vector<const Column*> columns;
  for (const Column& c : table.columns) {
    if (c.name != "Month" && c.name != "Day" && c.name != "year" && !c.present().empty()) columns.push_back(&c);
  }
  return columns;
}

// Rows without a missing value, one after another, and their numbers.
struct Complete {
  std::vector<double> x;
  std::vector<size_t> row;

  explicit Complete(const Table& table, const std::vector<const Column*>& columns) {
    for (size_t i = 0; i < table.rows; ++i) {
      if (std::any_of(columns.begin(), columns.end(), [i](const Column* c) { return std::isnan(c->values[i]); }))
        continue;
      row.push_back(i);
      for (const Column* c : columns) x.push_back(c->values[i]);
    }
  }
};

void show_outliers(const Table& table, const std::vector<const Column*>& columns, const Complete& complete) {
  const auto n = static_cast<std::int64_t>(complete.row.size()), p = static_cast<std::int64_t>(columns.size());
  const auto outlier = orvik::outliers(complete.x, n, p, orvik::Layout::Columns);
  std::printf("  outliers among %zu complete rows:", complete.row.size());
  if (std::find(outlier.begin(), outlier.end(), 1) == outlier.end()) std::printf(" none");
  for (size_t k = 0; k < outlier.size(); ++k) {
    if (outlier[k] == 0) continue;
    std::printf("\n    %s:", row_name(table, complete.row[k]).c_str());
    for (size_t j = 0; j < columns.size(); ++j) {
      std::printf(" %s %g", columns[j]->name.c_str(), complete.x[k * columns.size() + j]);
    }
  }
  std::printf("\n");
}

void show_correlations(const std::vector<const Column*>& columns, const Complete& complete) {
  const auto p = columns.size();
  const auto n = static_cast<std::int64_t>(complete.row.size());
  orvik::Summary<double> summary(static_cast<std::int64_t>(p));
  summary.update(complete.x, n, orvik::Layout::Columns);
  const auto mean = summary.mean(), classical = summary.covariance();
  const auto [robust_mean, robust] =
      orvik::robust_covariance(complete.x, n, static_cast<std::int64_t>(p), orvik::Layout::Columns);
  std::printf("\n  %-10s %9s %9s %9s %9s   correlations, classical | robust\n", "", "mean", "robust", "deviation",
              "robust");
  for (size_t i = 0; i < p; ++i) {
    std::printf("  %-10.10s %9.4g %9.4g %9.4g %9.4g  ", columns[i]->name.c_str(), mean[i], robust_mean[i],
                std::sqrt(classical[i * p + i]), std::sqrt(robust[i * p + i]));
    for (const auto* matrix : {&classical, &robust}) {
      for (size_t j = 0; j < p; ++j) {
        std::printf(" %6.3f", (*matrix)[i * p + j] / std::sqrt((*matrix)[i * p + i] * (*matrix)[j * p + j]));
      }
      if (matrix == &classical) std::printf(" |");
    }
    std::printf("\n");
  }
}

// What the imputed sets say of one missing value.
struct Imputed {
  size_t row;
  double low, middle, high;  // 5 percent, mean, 95 percent
};

// Imputations of all missing values of the table, those of `columns[which]` returned.
std::vector<Imputed> impute(const Table& table, const std::vector<const Column*>& columns, size_t which) {
  const auto p = static_cast<std::int64_t>(columns.size()), n = static_cast<std::int64_t>(table.rows);
  std::vector<double> x;  // variable by variable
  for (const Column* c : columns) x.insert(x.end(), c->values.begin(), c->values.end());
  const std::vector<double> sets = orvik::impute(x, n, p, orvik::Layout::Rows, kSets);
  std::vector<Imputed> result;
  for (size_t i = 0; i < table.rows; ++i) {
    if (!std::isnan(columns[which]->values[i])) continue;
    std::vector<double> draws;
    for (size_t set = 0; set < kSets; ++set) draws.push_back(sets[set * x.size() + which * table.rows + i]);
    std::sort(draws.begin(), draws.end());
    double sum = 0;
    for (double v : draws) sum += v;
    result.push_back({i, draws[kSets / 20], sum / kSets, draws[kSets - 1 - kSets / 20]});
  }
  return result;
}

bool draw(const Table& table, const Column& column, const std::vector<Imputed>& imputed) {
  std::FILE* file = std::fopen(kFile, "w");
  if (file == nullptr) return false;
  Panel p = {76, 130, 888, 330, 0.5, static_cast<double>(table.rows) + 0.5, 0, 0};
  p.y0 = p.y1 = imputed[0].middle;
  for (double v : column.present()) p.y0 = std::min(p.y0, v), p.y1 = std::max(p.y1, v);
  for (const Imputed& v : imputed) p.y0 = std::min(p.y0, v.low), p.y1 = std::max(p.y1, v.high);
  const double margin = 0.05 * (p.y1 - p.y0);
  p.y0 -= margin, p.y1 += margin;

  Drawing d(file);
  d.begin(1000, 530);
  d.text(76, 48, 24, "#1c1917", "start", column.name + ", measured and imputed", "600");
  d.text(76, 74, 14, "#78716c", "start",
         "Dots are measured. Where a value is missing, what the other columns of its row make of it: the mean of the");
  d.text(76, 94, 14, "#78716c", "start", "imputed sets and the interval that holds nine of ten of them.");
  d.grid(p, grid_step(p.y1 - p.y0));
  for (const Imputed& v : imputed) {
    const double x = p.x(static_cast<double>(v.row + 1));
    d.line(x, p.y(v.low), x, p.y(v.high), "#c2410c", 2);
    d.line(x - 4, p.y(v.middle), x + 4, p.y(v.middle), "#c2410c", 2.6);
  }
  for (size_t i = 0; i < table.rows; ++i) {
    if (!std::isnan(column.values[i])) d.dot(p.x(static_cast<double>(i + 1)), p.y(column.values[i]));
  }
  for (size_t row = 1; row <= table.rows; row += std::max<size_t>(table.rows / 6, 1)) {
    d.text(p.x(static_cast<double>(row)), 484, 12, "#78716c", "middle", row_name(table, row - 1));
  }
  d.end();
  return std::fclose(file) == 0;
}

void show_missing(const Table& table, const std::vector<const Column*>& columns) {
  size_t which = 0;
  for (size_t j = 0; j < columns.size(); ++j) {
    if (columns[j]->missing() > columns[which]->missing()) which = j;
  }
  const Column& column = *columns[which];
  if (column.missing() == 0) {
    std::printf("\n  nothing is missing\n");
    return;
  }
  const std::vector<Imputed> imputed = impute(table, columns, which);
  double present = 0, completed = 0;
  for (double v : column.present()) present += v;
  for (const Imputed& v : imputed) completed += v.middle;
  const auto count = static_cast<double>(column.present().size());
  completed = (present + completed) / (count + static_cast<double>(imputed.size()));
  std::printf("\n  %s is missing in %zu of %zu rows; mean of the others %.4g, of the completed column %.4g\n",
              column.name.c_str(), imputed.size(), table.rows, present / count, completed);
  constexpr size_t kShown = 6;
  for (size_t k = 0; k < std::min(kShown, imputed.size()); ++k) {
    std::printf("    %-14s %7.1f, nine of ten between %7.1f and %7.1f\n", row_name(table, imputed[k].row).c_str(),
                imputed[k].middle, imputed[k].low, imputed[k].high);
  }
  if (imputed.size() > kShown) std::printf("    and %zu more\n", imputed.size() - kShown);
  std::printf(draw(table, column, imputed) ? "  drawn in %s\n" : "  %s could not be written\n", kFile);
}

}  // namespace

void show_robust(const Table& table) {
  const auto columns = measured(table);
  const Complete complete(table, columns);
  const auto p = static_cast<int32_t>(columns.size()), n = static_cast<int32_t>(complete.row.size());
  if (p == 0 || n < 5 * p) {
    std::printf("  too few complete rows\n");
    return;
  }
  attempt("outliers", [&] { show_outliers(table, columns, complete); });
  attempt("covariance", [&] { show_correlations(columns, complete); });
  attempt("missing values", [&] { show_missing(table, columns); });
}

}  // namespace tour
