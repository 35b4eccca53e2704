#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <map>
#include <string>

#include "bench/MemoryUse.h"

namespace {

/// Prints what Google Benchmark prints, and keeps each median for the ratios.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      const bool isMedian = run.aggregate_name == "median";
      if (isMedian) m_medians[run.run_name.str()] = run.GetAdjustedRealTime();
    }
  }

  /// Each benchmark against the one of the same name that begins with "Bare".
  void PrintRatios() const {
    fmt::print("\n{:<30}{:>14}{:>14}{:>8}\n", "median of the repetitions", "component us", "bare us", "ratio");
    for (const auto& [name, time] : m_medians) {
      const auto bare = m_medians.find("Bare" + name);
      if (bare == m_medians.end()) continue;
      fmt::print("{:<30}{:>14.1f}{:>14.1f}{:>8.2f}\n", name, time, bare->second, time / bare->second);
    }
  }

 private:
  std::map<std::string, double> m_medians;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.PrintRatios();
  fmt::print("\nheap per loaded remark beyond its text: {:.0f} bytes\n", quorvel::bench::HeapPerRemark());
  return 0;
}
