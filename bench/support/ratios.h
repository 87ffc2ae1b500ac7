// Runs the registered benchmarks and prints, beside the usual lines, ours against each peer.
//
// Names are "subject/ours" and "subject/peer"; the least time of the repetitions counts, per item where items are set.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace orvik::bench {

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  RatioReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      const std::string name = run.run_name.function_name;
      const size_t slash = name.rfind('/');
      if (slash == std::string::npos) continue;
      const auto items = run.counters.find("items_per_second");
      const double ns = items != run.counters.end() ? 1e9 / items->second.value : run.GetAdjustedRealTime();
      auto& best = times_[name.substr(0, slash)];
      const std::string who = name.substr(slash + 1);
      if (best.order.empty() || !best.ns.contains(who)) best.order.push_back(who);
      auto [at, fresh] = best.ns.emplace(who, ns);
      if (!fresh && ns < at->second) at->second = ns;
    }
  }

  void Finalize() override {
    std::printf("\n| what | ours, ns | peer | peer, ns | peer / ours |\n|---|---:|---|---:|---:|\n");
    for (const auto& [subject, best] : times_) {
      const auto ours = best.ns.find("ours");
      if (ours == best.ns.end()) continue;
      if (best.ns.size() == 1) std::printf("| %s | %.3f | | | |\n", subject.c_str(), ours->second);
      for (const std::string& who : best.order) {
        if (who == "ours") continue;
        const double peer = best.ns.at(who);
        std::printf("| %s | %.3f | %s | %.3f | %.2f |\n", subject.c_str(), ours->second, who.c_str(), peer,
                    peer / ours->second);
      }
    }
  }

 private:
  struct Best {
    std::vector<std::string> order;
    std::map<std::string, double> ns;
  };
  std::map<std::string, Best> times_;
};

}  // namespace orvik::bench
