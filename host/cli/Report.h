#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvel::cli {

/// Prints each check as it is made and counts the failures.
class Report {
 public:
  /// A check has failed when `problem` is not empty; then `remedy` says what to do. True when it passed.
  bool Check(std::string_view what, std::string_view problem, std::string_view remedy);
  /// A check that could not be made, and why. It is not counted.
  static void Skip(std::string_view what, std::string_view reason);

  [[nodiscard]] std::size_t Checks() const noexcept { return m_checks; }
  [[nodiscard]] std::size_t Failures() const noexcept { return m_failures; }

 private:
  std::size_t m_checks = 0;
  std::size_t m_failures = 0;
};

}  // namespace quorvel::cli
