#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/MemoryUse.h"
#include "bench/PairedRuns.h"

namespace {

/// Arguments of the command line come after `first`, and so override it.
bool Initialize(int argc, char** argv, const char* first) {
  std::vector<char*> arguments = {argv[0], const_cast<char*>(first), const_cast<char*>("--benchmark_min_time=0.05")};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  auto count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  return !benchmark::ReportUnrecognizedArguments(count, arguments.data());
}

bool OnlyLists(int argc, char** argv) {
  return std::any_of(argv + 1, argv + argc,
                     [](std::string_view each) { return each.starts_with("--benchmark_list_tests"); });
}

void RunOne(const std::string& name) {
  const auto result = quorvel::bench::Compare(name);
  fmt::print("{:<30}{:>7}{:>14.1f}{:>14.1f}{:>8.2f}{:>7.2f}{:>7.2f}\n", result.name, result.pairs, result.component,
             result.bare, result.ratio, result.lower, result.upper);
  std::fflush(stdout);
}

/// False when a benchmark reported an error, as those of windows do without a display. The others run all the same.
bool RunAll(const std::vector<std::string>& names) {
  bool isComplete = true;
  fmt::print("{:<30}{:>7}{:>14}{:>14}{:>8}{:>14}\n", "", "pairs", "component us", "bare us", "ratio", "half between");
  for (const auto& name : names) {
    try {
      RunOne(name);
    } catch (const std::runtime_error& error) {
      fmt::print("{}\n", error.what());
      isComplete = false;
    }
  }
  fmt::print("\nheap per loaded remark beyond its text: {:.0f} bytes\n", quorvel::bench::HeapPerRemark());
  return isComplete;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    if (!Initialize(argc, argv, "--benchmark_list_tests=true")) return 2;
    const auto names = quorvel::bench::NamesOfPairs();
    if (OnlyLists(argc, argv)) {
      fmt::print("{}\n", fmt::join(names, "\n"));
      return 0;
    }
    if (!Initialize(argc, argv, "--benchmark_list_tests=false")) return 2;
    return RunAll(names) ? 0 : 1;
  } catch (const std::exception& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 1;
  }
}
