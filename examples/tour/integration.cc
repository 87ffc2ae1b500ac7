// The mean of a function of six normal numbers, by pseudo-random and by quasi-random points: how the error falls.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "drawing.h"
#include "sections.h"
#include "stream.h"

namespace tour {
namespace {

constexpr const char* kFile = "tour-integration.svg";
constexpr int32_t kDimensions = 6, kSeeds = 16;
constexpr int kFirst = 6, kLast = 17;  // powers of two of points
// Of exp(z1 / 4 + ... + z6 / 4).
constexpr double kWeight = 0.25;
double exact() { return std::exp(kDimensions * kWeight * kWeight / 2); }

// Means of the first 2^6, 2^7, ... points. Numbers come by the inverse of the distribution function, one of each
// uniform, so that a coordinate of a point stays one.
std::vector<double> means(orvik::Generator generator, uint32_t seed) {
  orvik::Stream stream = stream_of(generator, seed);
  constexpr int32_t kPoints = 64;
  std::vector<double> z(static_cast<size_t>(kPoints) * kDimensions);
  std::vector<double> r;
  double sum = 0;
  for (int64_t done = 0; done < int64_t{1} << kLast;) {
    orvik::normal(stream, z, 0, kWeight);
    for (size_t i = 0; i < z.size(); i += kDimensions) {
      double exponent = 0;
      for (size_t j = 0; j < kDimensions; ++j) exponent += z[i + j];
      sum += std::exp(exponent);
    }
    done += kPoints;
    if ((done & (done - 1)) == 0) r.push_back(sum / static_cast<double>(done));
  }
  return r;
}

struct Line {
  const char* name;
  const char* note;
  const char* colour;
  std::vector<double> error;  // for each power of two
};

// The root of the mean square over streams of several seeds.
void pseudo_random(Line& line) {
  line.error.assign(kLast - kFirst + 1, 0);
  for (uint32_t seed = 1; seed <= kSeeds; ++seed) {
    const std::vector<double> r = means(orvik::Generator::MT19937, seed);
    for (size_t k = 0; k < r.size(); ++k) line.error[k] += std::pow(r[k] - exact(), 2) / kSeeds;
  }
  for (double& e : line.error) e = std::sqrt(e);
}
void quasi_random(orvik::Generator generator, Line& line) {
  line.error = means(generator, kDimensions);
  for (double& e : line.error) e = std::fabs(e - exact());
}

bool draw(const std::vector<Line>& lines) {
  std::FILE* file = std::fopen(kFile, "w");
  if (file == nullptr) return false;
  Panel p = {86, 140, 878, 400, kFirst, kLast, 0, 0};
  std::vector<double> places;
  for (int k = kFirst; k <= kLast; ++k) places.push_back(k);
  std::vector<std::vector<double>> logarithms;
  p.y0 = 0, p.y1 = -20;
  for (const Line& line : lines) {
    logarithms.emplace_back();
    for (const double e : line.error) logarithms.back().push_back(std::log10(std::max(e, 1e-12)));
    p.y0 = std::min(p.y0, *std::min_element(logarithms.back().begin(), logarithms.back().end()));
    p.y1 = std::max(p.y1, *std::max_element(logarithms.back().begin(), logarithms.back().end()));
  }
  p.y0 = std::floor(p.y0), p.y1 = std::ceil(p.y1);
  Drawing d(file);
  d.begin(1000, 620);
  d.text(76, 48, 24, "#1c1917", "start", "How the error of a mean falls with the points", "600");
  d.text(76, 74, 14, "#78716c", "start", "Mean of exp((z1 + ... + z6) / 4) over six normal numbers a point.");
  for (size_t k = 0; k < lines.size(); ++k)
    d.legend(76 + 300 * static_cast<double>(k), 101, lines[k].colour, lines[k].name, lines[k].note);
  d.grid(p, 1);
  for (size_t k = 0; k < lines.size(); ++k) d.curve(p, places, logarithms[k], lines[k].colour);
  d.text(76, 130, 12, "#57534e", "start", "error, powers of ten", "600");
  for (const double k : places) {
    char label[32];
    std::snprintf(label, sizeof label, "2^%g", k);
    d.text(p.x(k), 562, 12, "#78716c", "middle", label);
  }
  d.text(520, 596, 12, "#57534e", "middle", "points");
  d.end();
  return std::fclose(file) == 0;
}

}  // namespace

void show_integration(const Table&) {
  std::vector<Line> lines = {{"MT19937", "mean of 16 seeds", "#c2410c", {}},
                             {"Sobol", "", "#0f766e", {}},
                             {"Niederreiter", "", "#4338ca", {}}};
  pseudo_random(lines[0]);
  quasi_random(orvik::Generator::SOBOL, lines[1]);
  quasi_random(orvik::Generator::NIEDERREITER, lines[2]);
  std::printf("  error of the mean of exp((z1 + ... + z6) / 4), exactly %.6f\n  %10s", exact(), "points");
  for (const Line& line : lines) std::printf(" %12s", line.name);
  std::puts("");
  for (size_t k = 0; k < lines[0].error.size(); ++k) {
    std::printf("  %10d", 1 << (kFirst + static_cast<int>(k)));
    for (const Line& line : lines) std::printf(" %12.2e", line.error[k]);
    std::puts("");
  }
  if (draw(lines))
    std::printf("  drawn in %s\n", kFile);
  else
    std::printf("  %s could not be written\n", kFile);
}

}  // namespace tour
