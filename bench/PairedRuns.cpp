#include "bench/PairedRuns.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

namespace quorvel::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kFewestPairs = 5;
constexpr int kMostPairs = 41;
constexpr std::chrono::seconds kEnough{15};

/// Keeps the time of the last run of each benchmark, and an error of any.
class TimeReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred) m_error = run.benchmark_name() + ": " + run.error_message;
      m_times[run.benchmark_name()] = run.real_accumulated_time / static_cast<double>(run.iterations) * 1e6;
    }
  }
  [[nodiscard]] double TimeOf(const std::string& name) const {
    if (!m_error.empty()) throw std::runtime_error(m_error);
    return m_times.at(name);
  }

 private:
  std::string m_error;
  std::map<std::string, double> m_times;
};

/// `part` is 0.5 for the median, 0.25 and 0.75 for the quartiles.
double Quantile(std::vector<double> values, double part) {
  std::sort(values.begin(), values.end());
  return values[static_cast<std::size_t>(std::lround(part * static_cast<double>(values.size() - 1)))];
}

}  // namespace

std::vector<std::string> NamesOfPairs() {
  std::ostringstream list;
  TimeReporter reporter;
  reporter.SetOutputStream(&list);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::set<std::string> all;
  std::istringstream lines(list.str());
  for (std::string name; std::getline(lines, name);) all.insert(name);
  std::vector<std::string> names;
  std::copy_if(all.begin(), all.end(), std::back_inserter(names),
               [&](const std::string& name) { return all.contains("Bare" + name); });
  return names;
}

Comparison Compare(const std::string& name) {
  TimeReporter reporter;
  std::vector<double> component;
  std::vector<double> bare;
  std::vector<double> ratios;
  const auto end = Clock::now() + kEnough;
  for (int pair = 0; pair < kFewestPairs || (pair < kMostPairs && Clock::now() < end); ++pair) {
    benchmark::RunSpecifiedBenchmarks(&reporter, "^(Bare)?" + name + "$");
    component.push_back(reporter.TimeOf(name));
    bare.push_back(reporter.TimeOf("Bare" + name));
    ratios.push_back(component.back() / bare.back());
  }
  return {name,
          static_cast<int>(ratios.size()),
          Quantile(component, 0.5),
          Quantile(bare, 0.5),
          Quantile(ratios, 0.5),
          Quantile(ratios, 0.25),
          Quantile(ratios, 0.75)};
}

}  // namespace quorvel::bench
