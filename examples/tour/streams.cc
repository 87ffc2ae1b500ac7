#include <algorithm>
#include <cstdio>
#include <vector>

#include "attempt.h"
#include "sections.h"
#include "stream.h"

namespace tour {
namespace {

constexpr int kStreams = 4, kResamples = 2000;
constexpr uint32_t kSeed = 20240607;

// Numbers of (0, 1) for all resamples: each takes as many as the column has values.
using Uniforms = std::vector<double>;

void whole(Uniforms& u) {
  orvik::Stream stream = stream_of(orvik::Generator::MCG59, kSeed);
  orvik::uniform(stream, u);
}

// Stream k takes a quarter of the sequence, behind those of the streams before it.
void by_skip_ahead(Uniforms& u) {
  const size_t part = u.size() / kStreams;
  for (size_t k = 0; k < kStreams; ++k) {
    orvik::Stream stream = stream_of(orvik::Generator::MCG59, kSeed);
    stream.skip(k * part);
    orvik::uniform(stream, std::span(u).subspan(k * part, part));
  }
}

// Stream k takes members k, k + 4, k + 8 ...
void by_leapfrog(Uniforms& u) {
  Uniforms part(u.size() / kStreams);
  for (int k = 0; k < kStreams; ++k) {
    orvik::Stream stream = stream_of(orvik::Generator::MCG59, kSeed);
    stream.leapfrog(k, kStreams);
    orvik::uniform(stream, part);
    for (size_t i = 0; i < part.size(); ++i) u[static_cast<size_t>(k) + kStreams * i] = part[i];
  }
}

// Stream k is a generator of its own, a member of a family.
void by_members(Uniforms& u) {
  const size_t part = u.size() / kStreams;
  for (size_t k = 0; k < kStreams; ++k) {
    orvik::Stream stream = stream_of(orvik::member(orvik::Generator::MT2203, static_cast<int>(k)), kSeed);
    orvik::uniform(stream, std::span(u).subspan(k * part, part));
  }
}

// Means of the resamples, ascending.
std::vector<double> resampled_means(const std::vector<double>& values, const Uniforms& u) {
  const size_t n = values.size();
  std::vector<double> means(kResamples);
  for (size_t r = 0; r < kResamples; ++r) {
    double sum = 0;
    for (size_t i = 0; i < n; ++i) {
      const auto pick = static_cast<size_t>(u[r * n + i] * static_cast<double>(n));
      sum += values[std::min(pick, n - 1)];
    }
    means[r] = sum / static_cast<double>(n);
  }
  std::sort(means.begin(), means.end());
  return means;
}

}  // namespace

void show_streams(const Table& table) {
  const auto longest = std::max_element(table.columns.begin(), table.columns.end(), [](const auto& a, const auto& b) {
    return a.present().size() < b.present().size();
  });
  const std::vector<double> values = longest->present();
  constexpr size_t kMost = 10000;  // values: some hundred megabytes of numbers
  if (values.empty() || values.size() > kMost) {
    std::printf("  %s has %zu values: no resampling\n", longest->name.c_str(), values.size());
    return;
  }
  double sum = 0;
  for (double value : values) sum += value;
  std::printf("  Mean of %s: %g. 95%% interval from %d resamples, drawn over %d streams:\n", longest->name.c_str(),
              sum / static_cast<double>(values.size()), kResamples, kStreams);

  struct Way {
    const char* name;
    void (*draw)(Uniforms&);
    bool same_sequence;
  };
  const Way ways[] = {{"one stream of MCG59", whole, false},
                      {"parts by skip-ahead", by_skip_ahead, true},
                      {"parts by leapfrog", by_leapfrog, true},
                      {"members of MT2203", by_members, false}};
  std::vector<double> reference;
  for (const Way& way : ways) {
    Uniforms u(kResamples * values.size());
    if (!attempt(way.name, [&] { way.draw(u); })) continue;
    const std::vector<double> means = resampled_means(values, u);
    if (reference.empty()) reference = means;
    std::printf("    %-22s %.6g to %.6g", way.name, means[kResamples / 40], means[kResamples - 1 - kResamples / 40]);
    if (way.same_sequence)
      std::printf("   the same numbers; all means equal: %s\n", means == reference ? "yes" : "NO");
    else
      std::printf("   %s\n", way.draw == whole ? "" : "other numbers");
  }
}

}  // namespace tour
