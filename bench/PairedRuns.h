#pragma once

#include <string>
#include <vector>

namespace quorvel::bench {

/// A benchmark of the component against the one whose name is the same after "Bare". Times are of the wall clock, in
/// microseconds for one iteration.
struct Comparison {
  std::string name;
  int pairs = 0;
  double component = 0;  ///< median
  double bare = 0;       ///< median
  double ratio = 0;      ///< median of the pairs' ratios
  double lower = 0;      ///< quartiles of the pairs' ratios
  double upper = 0;
};

/// The names of the registered benchmarks that --benchmark_filter selects and that have a bare equivalent.
[[nodiscard]] std::vector<std::string> NamesOfPairs();

/// Runs a benchmark and its bare equivalent one after the other, again and again. The machine's speed changes from
/// second to second, and a pair sees little of that. Throws std::runtime_error when one of them reports an error.
[[nodiscard]] Comparison Compare(const std::string& name);

}  // namespace quorvel::bench
