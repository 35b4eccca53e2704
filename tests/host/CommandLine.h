#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace quorvel::test {

/// The result of a program.
struct Outcome {
  int status = -1;  ///< exit status; -1 when a signal ended it
  std::string output;
  std::string errors;
};

/// Runs a program to its end with `input` on its standard input, without a terminal.
[[nodiscard]] Outcome RunProgram(const std::vector<std::string>& command, const std::string& input = {});

/// Runs the real program with settings and a database file for this test.
class CommandLine : public ::testing::Test {
 protected:
  CommandLine();

  [[nodiscard]] static Outcome Quorvel(std::vector<std::string> arguments, const std::string& input = {});
  /// Makes settings for the embedded engine and a new database; fails the test when that fails.
  void Initialize(bool withSample);
  /// Runs a script and returns its output; fails the test when the script fails.
  static std::string RunSql(const std::string& script);
  [[nodiscard]] std::string File(const char* name) const { return m_folder.File(name); }

 private:
  TemporaryFolder m_folder;
  ScopedVariable m_registry;
  ScopedVariable m_locale;
};

/// `arguments` followed by the options for customer C1044 in CustMaint as that user.
[[nodiscard]] std::vector<std::string> OnAcme(std::vector<std::string> arguments, const std::string& user = "jsmith");

MATCHER(Succeeds, "") {
  *result_listener << "status " << arg.status << "\n" << arg.output << arg.errors;
  return arg.status == 0 && arg.errors.empty();
}

MATCHER_P(Fails, message, "") {
  *result_listener << "status " << arg.status << "\n" << arg.output << arg.errors;
  return arg.status == 1 && arg.errors == "quorvel: error " + std::string(message) + "\n";
}

MATCHER_P(IsWrongUsage, part, "") {
  *result_listener << "status " << arg.status << "\n" << arg.output << arg.errors;
  return arg.status == 2 && arg.output.empty() && arg.errors.find(part) != std::string::npos;
}

}  // namespace quorvel::test
