#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <map>
#include <string>

#include "bench/MemoryUse.h"

namespace {

/// Prints as Google Benchmark does, and keeps each median for the ratios.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      const bool isMedian = run.aggregate_name == "median";
      if (isMedian) m_medians[run.run_name.str()] = run.GetAdjustedRealTime();
    }
  }

  /// Prints each benchmark against the one whose name is the same after "Bare".
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
  // Ratios need medians, and pairs that are measured alternately. Arguments of the command line come later and so
  // override these.
  std::vector<const char*> arguments = {argv[0], "--benchmark_repetitions=5", "--benchmark_min_time=0.1",
                                        "--benchmark_enable_random_interleaving=true",
                                        "--benchmark_report_aggregates_only=true"};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  auto count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, const_cast<char**>(arguments.data()));
  if (benchmark::ReportUnrecognizedArguments(count, const_cast<char**>(arguments.data()))) return 2;
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.PrintRatios();
  fmt::print("\nheap per loaded remark beyond its text: {:.0f} bytes\n", quorvel::bench::HeapPerRemark());
  return 0;
}
