// The tour's sections, each in a file of its own. A section prints what one part of the library says about a table.
#ifndef ORVIK_EXAMPLES_TOUR_SECTIONS_H
#define ORVIK_EXAMPLES_TOUR_SECTIONS_H

#include "csv.h"

namespace tour {

// What was read, and what becomes of missing values.
void show_data(const Table& table);

// Vector functions with and without an error callback, the mode word, a strided view of one column.
void show_vector_math(const Table& table);

// Functions at the three levels of accuracy side by side: value, error, time.
void show_levels(const Table& table);

// Which periods a column's variance comes from, by complex functions.
void show_periodogram(const Table& table);

// A bootstrap interval of a mean, its random numbers split over several streams in three ways.
void show_streams(const Table& table);

// Simulated columns: distributions with a column's mean and deviation, the nearest one's histogram beside the data's.
void show_simulation(const Table& table);

// A mean over six dimensions by pseudo-random and by quasi-random points.
void show_integration(const Table& table);

// Summary of each column, correlations, quantiles of a long stream.
void show_statistics(const Table& table);

// Outliers by their rows, a robust covariance beside the classical one, missing values with intervals, drawn.
void show_robust(const Table& table);

// Sorted columns against normal quantiles, the straightest one drawn.
void show_quantile_plot(const Table& table);

// Natural, Akima and Hyman splines through the gaps of a column, drawn with their derivatives, integrated by month.
void show_fitting(const Table& table);

struct Section {
  const char* title;
  void (*show)(const Table&);
};

inline constexpr Section kSections[] = {
    {"Data", show_data},
    {"Vector mathematics", show_vector_math},
    {"Levels of accuracy", show_levels},
    {"Periodogram", show_periodogram},
    {"Random streams", show_streams},
    {"Simulation", show_simulation},
    {"Quasi-random integration", show_integration},
    {"Statistics", show_statistics},
    {"Robust statistics", show_robust},
    {"Normal quantiles", show_quantile_plot},
    {"Data fitting", show_fitting},
};

}  // namespace tour

#endif
