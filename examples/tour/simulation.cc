// Each column against random numbers of four distributions with its mean and deviation; the histogram of the most
// skewed column beside that of the numbers that come nearest, in the terminal and as an SVG.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "drawing.h"
#include "sections.h"
#include "stream.h"

namespace tour {
namespace {

constexpr const char* kFile = "tour-simulation.svg";
constexpr int32_t kNumbers = 200000;
constexpr size_t kFewest = 20;  // values of a column
constexpr uint32_t kSeed = 20261122;

struct Sample {
  std::vector<double> sorted;
  double mean = 0, deviation = 0, skewness = 0;

  explicit Sample(std::vector<double> values) : sorted(std::move(values)) {
    std::sort(sorted.begin(), sorted.end());
    const auto n = static_cast<double>(sorted.size());
    for (const double x : sorted) mean += x / n;
    double square = 0, cube = 0;
    for (const double x : sorted) square += std::pow(x - mean, 2) / n, cube += std::pow(x - mean, 3) / n;
    deviation = std::sqrt(square);
    skewness = square > 0 ? cube / std::pow(deviation, 3) : 0;
  }
};

// Parameters by moments: every one of them has the mean and the deviation of the sample.
struct Model {
  const char* name;
  bool positive;  // for positive values only
  void (*draw)(orvik::Stream& stream, std::vector<double>& r, const Sample& sample);
};

const std::array<Model, 4> kModels = {{
    {"Gaussian", false,
     [](orvik::Stream& s, std::vector<double>& r, const Sample& x) { orvik::normal(s, r, x.mean, x.deviation); }},
    {"Gumbel", false,  // turned round, since the library's has its long tail below
     [](orvik::Stream& s, std::vector<double>& r, const Sample& x) {
       constexpr double kEuler = 0.5772156649015329, kRootSix = 2.449489742783178, kPi = 3.141592653589793;
       const double beta = x.deviation * kRootSix / kPi, a = x.mean - kEuler * beta;
       orvik::gumbel(s, r, -a, beta);
       std::transform(r.begin(), r.end(), r.begin(), [](double v) { return -v; });
     }},
    {"Lognormal", true,
     [](orvik::Stream& s, std::vector<double>& r, const Sample& x) {
       const double variance = std::log1p(std::pow(x.deviation / x.mean, 2));
       orvik::lognormal(s, r, std::log(x.mean) - variance / 2, std::sqrt(variance));
     }},
    {"Gamma", true,
     [](orvik::Stream& s, std::vector<double>& r, const Sample& x) {
       const double beta = x.deviation * x.deviation / x.mean;
       orvik::gamma(s, r, x.mean / beta, 0, beta);
     }},
}};

// The largest distance between two distribution functions (Kolmogorov, Smirnov).
double distance(const std::vector<double>& a, const std::vector<double>& b) {
  double most = 0;
  for (size_t i = 0, j = 0; i < a.size() && j < b.size();) {
    const double x = std::min(a[i], b[j]);
    while (i < a.size() && a[i] == x) ++i;
    while (j < b.size() && b[j] == x) ++j;
    most = std::max(most, std::fabs(static_cast<double>(i) / static_cast<double>(a.size()) -
                                    static_cast<double>(j) / static_cast<double>(b.size())));
  }
  return most;
}

struct Fit {
  const Model* model = nullptr;
  double distance = 1;
  std::vector<double> numbers;  // sorted
};

// The nearest of the models; prints the distances of all.
Fit nearest(const Sample& sample) {
  Fit best;
  for (const Model& model : kModels) {
    if (model.positive && !(sample.sorted.front() > 0)) {
      std::printf(" %10s", "-");
      continue;
    }
    orvik::Stream stream = stream_of(orvik::Generator::PHILOX4X32X10, kSeed);
    std::vector<double> numbers(kNumbers);
    model.draw(stream, numbers, sample);
    std::sort(numbers.begin(), numbers.end());
    const double d = distance(sample.sorted, numbers);
    std::printf(" %10.3f", d);
    if (d < best.distance) best = {&model, d, std::move(numbers)};
  }
  std::printf("   %s\n", best.model ? best.model->name : "none");
  return best;
}

// Shares of a sorted sample in even cells from `low` on.
std::vector<double> shares(const std::vector<double>& sorted, double low, double width, int cells) {
  std::vector<double> share(static_cast<size_t>(cells));
  for (const double x : sorted) {
    const double cell = std::floor((x - low) / width);
    if (cell >= 0 && cell < cells) share[static_cast<size_t>(cell)] += 1 / static_cast<double>(sorted.size());
  }
  return share;
}

struct Histogram {
  double low, width;
  std::vector<double> data, numbers;

  Histogram(const Sample& sample, const Fit& fit) {
    width = grid_step((sample.sorted.back() - sample.sorted.front()) / 2.5);
    low = std::floor(sample.sorted.front() / width) * width;
    const auto cells = static_cast<int>(std::floor((sample.sorted.back() - low) / width)) + 1;
    data = shares(sample.sorted, low, width, cells);
    numbers = shares(fit.numbers, low, width, cells);
  }
  double left(size_t cell) const { return low + static_cast<double>(cell) * width; }
  double highest() const {
    return std::max(*std::max_element(data.begin(), data.end()), *std::max_element(numbers.begin(), numbers.end()));
  }
};

void print(const Histogram& h) {
  constexpr double kLength = 28;
  const double scale = kLength / h.highest();
  std::printf("  %19s %-*s  %s\n", "", static_cast<int>(kLength) + 7, "data", "simulated");
  for (size_t i = 0; i < h.data.size(); ++i) {
    const auto bar = [&](double share) {
      std::string text(static_cast<size_t>(std::lround(share * scale)), '#');
      text.resize(static_cast<size_t>(kLength), ' ');
      return text;
    };
    std::printf("  %8.4g to %8.4g %s %5.1f %%  %s %5.1f %%\n", h.left(i), h.left(i + 1), bar(h.data[i]).c_str(),
                100 * h.data[i], bar(h.numbers[i]).c_str(), 100 * h.numbers[i]);
  }
}

bool draw(const Column& column, const Fit& fit, const Histogram& h) {
  std::FILE* file = std::fopen(kFile, "w");
  if (file == nullptr) return false;
  constexpr const char *kData = "#0f766e", *kSimulated = "#c2410c";
  const Panel p = {76, 140, 888, 380, h.low, h.left(h.data.size()), 0, 108 * h.highest()};
  Drawing d(file);
  d.begin(1000, 600);
  d.text(76, 48, 24, "#1c1917", "start", column.name + " and its simulation", "600");
  char note[96];
  std::snprintf(note, sizeof note, "%d numbers with the mean and the deviation of the data; distance %.3f.", kNumbers,
                fit.distance);
  d.text(76, 74, 14, "#78716c", "start", note);
  d.legend(76, 101, kData, "Data", "share in percent");
  d.legend(330, 101, kSimulated, fit.model->name, "simulated");
  d.grid(p, grid_step(p.y1));
  for (size_t i = 0; i < h.data.size(); ++i) {
    const double left = h.left(i);
    d.bar(p, left + 0.10 * h.width, left + 0.48 * h.width, 100 * h.data[i], kData);
    d.bar(p, left + 0.52 * h.width, left + 0.90 * h.width, 100 * h.numbers[i], kSimulated);
  }
  for (size_t i = 0; i <= h.data.size(); ++i) {
    char label[32];
    std::snprintf(label, sizeof label, "%.4g", h.left(i));
    d.text(p.x(h.left(i)), 544, 12, "#78716c", "middle", label);
  }
  d.text(520, 576, 12, "#57534e", "middle", column.name);
  d.end();
  return std::fclose(file) == 0;
}

}  // namespace

void show_simulation(const Table& table) {
  std::printf("  distance of each column from %d numbers with its mean and deviation\n  %-10s", kNumbers, "column");
  for (const Model& model : kModels) std::printf(" %10s", model.name);
  std::printf("   nearest\n");
  const Column* chosen = nullptr;
  Fit fit;
  double skewness = -1;
  for (const Column& column : table.columns) {
    const Sample sample(column.present());
    if (sample.sorted.size() < kFewest || !(sample.deviation > 0)) continue;
    std::printf("  %-10.10s", column.name.c_str());
    Fit best = nearest(sample);
    if (best.model == nullptr || !(std::fabs(sample.skewness) > skewness)) continue;
    chosen = &column, fit = std::move(best), skewness = std::fabs(sample.skewness);
  }
  if (chosen == nullptr) {
    std::printf("  no column has %zu different values\n", kFewest);
    return;
  }
  const Histogram histogram(Sample(chosen->present()), fit);
  std::printf("\n  %s beside %s numbers\n", chosen->name.c_str(), fit.model->name);
  print(histogram);
  if (draw(*chosen, fit, histogram))
    std::printf("  drawn in %s\n", kFile);
  else
    std::printf("  %s could not be written\n", kFile);
}

}  // namespace tour
