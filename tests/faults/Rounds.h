#pragma once

#include <cstdlib>

namespace quorvel::test {

/// How often a test repeats: `usual` times, or as many times more as the environment variable QUORVEL_TEST_ROUNDS says.
[[nodiscard]] inline int Rounds(int usual) {
  const char* factor = std::getenv("QUORVEL_TEST_ROUNDS");
  return factor != nullptr ? usual * std::atoi(factor) : usual;  // NOLINT(cert-err34-c): 0 is the answer to nonsense
}

}  // namespace quorvel::test
