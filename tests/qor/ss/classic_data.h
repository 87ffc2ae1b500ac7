// Small data sets of the literature, observation by observation, and the observations of the air-quality table.
#pragma once

#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace orvik::ss::test {

// Hawkins, Bradu and Kass 1984: the three explanatory variables of 75 cases, of which the first 14 are outliers.
inline const std::vector<double> kHawkinsBraduKass = {
    10.1, 19.6, 28.3, 9.5,  20.5, 28.9, 10.7, 20.2, 31.0, 9.9,  21.5, 31.7, 10.3, 21.1, 31.1, 10.8, 20.4, 29.2, 10.5,
    20.9, 29.1, 9.9,  19.6, 28.8, 9.7,  20.7, 31.0, 9.3,  19.7, 30.3, 11.0, 24.0, 35.0, 12.0, 23.0, 37.0, 12.0, 26.0,
    34.0, 11.0, 34.0, 34.0, 3.4,  2.9,  2.1,  3.1,  2.2,  0.3,  0.0,  1.6,  0.2,  2.3,  1.6,  2.0,  0.8,  2.9,  1.6,
    3.1,  3.4,  2.2,  2.6,  2.2,  1.9,  0.4,  3.2,  1.9,  2.0,  2.3,  0.8,  1.3,  2.3,  0.5,  1.0,  0.0,  0.4,  0.9,
    3.3,  2.5,  3.3,  2.5,  2.9,  1.8,  0.8,  2.0,  1.2,  0.9,  0.8,  1.2,  0.7,  3.4,  3.1,  1.4,  1.0,  0.5,  2.4,
    0.3,  1.5,  3.1,  1.5,  0.4,  0.0,  0.7,  3.1,  2.4,  3.0,  1.1,  2.2,  2.7,  0.1,  3.0,  2.6,  1.5,  1.2,  0.2,
    2.1,  0.0,  1.2,  0.5,  2.0,  1.2,  3.4,  1.6,  2.9,  0.3,  1.0,  2.7,  0.1,  3.3,  0.9,  1.8,  0.5,  3.2,  1.9,
    0.1,  0.6,  1.8,  0.5,  3.0,  3.0,  0.1,  0.8,  3.1,  1.6,  3.0,  3.1,  2.5,  1.9,  2.1,  2.8,  2.9,  2.3,  1.5,
    0.4,  3.3,  0.6,  1.2,  0.3,  0.4,  3.3,  1.1,  3.0,  0.3,  0.5,  2.4,  0.9,  1.8,  3.2,  0.9,  1.8,  0.7,  0.7,
    2.4,  3.4,  1.5,  1.6,  2.1,  3.0,  0.3,  1.5,  3.3,  0.4,  3.4,  3.0,  0.9,  0.1,  0.3,  1.1,  2.7,  0.2,  2.8,
    3.0,  2.9,  2.0,  0.7,  2.7,  0.2,  1.8,  0.8,  1.6,  2.0,  1.2,  0.1,  0.0,  1.1,  2.0,  0.6,  0.3,  1.0,  2.2,
    2.9,  2.2,  2.5,  2.3,  0.6,  2.0,  1.5,  0.3,  1.7,  2.2,  0.0,  2.2,  1.6,  0.3,  0.4,  2.6};

// Brownlee 1965: air flow, water temperature, acid concentration of a plant on 21 days.
inline const std::vector<double> kStackLoss = {80, 27, 89, 80, 27, 88, 75, 25, 90, 62, 24, 87, 62, 22, 87, 62,
                                               23, 87, 62, 24, 93, 62, 24, 93, 58, 23, 87, 58, 18, 80, 58, 18,
                                               89, 58, 17, 88, 58, 18, 82, 58, 19, 93, 50, 18, 89, 50, 18, 86,
                                               50, 19, 72, 50, 19, 79, 50, 20, 80, 56, 20, 82, 70, 20, 91};

// A missing value as the library knows it.
inline const double kMissing = -std::nan("");

// Little and Rubin 2002, section 7.4: heat evolved by cement, 13 mixtures of 5 variables with a monotone pattern.
inline const std::vector<double> kCement = {
    7,    26,       6,    60,       78.5,     1,    29,       15,       52,       74.3,     11,    56,       8,
    20,   104.3,    11,   31,       8,        47,   87.6,     7,        52,       6,        33,    95.9,     11,
    55,   9,        22,   109.2,    3,        71,   17,       kMissing, 102.7,    1,        31,    22,       kMissing,
    72.5, 2,        54,   18,       kMissing, 93.1, kMissing, kMissing, 4,        kMissing, 115.9, kMissing, kMissing,
    23,   kMissing, 83.8, kMissing, kMissing, 9,    kMissing, 113.3,    kMissing, kMissing, 8,     kMissing, 109.4};

// The first `p` columns (4: Ozone, Solar.R, Wind, Temp) of the table at `path`, day by day.
inline std::vector<double> read_air_quality(const std::string& path, int p) {
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  std::vector<double> x;
  while (std::getline(file, line)) {
    std::istringstream fields(line);
    std::string field;
    for (int j = 0; j < p && std::getline(fields, field, ','); ++j) {
      x.push_back(field.empty() || field == "NA" ? kMissing : std::stod(field));
    }
  }
  return x;
}

}  // namespace orvik::ss::test
