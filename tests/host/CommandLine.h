#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "tests/support/Matchers.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvel::test {

/// The result of a program.
struct Outcome {
  int status = -1;  ///< exit status; -1 when a signal ended it
  std::string output;
  std::string errors;

  /// For the message of a failed test.
  friend std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
    return stream << "status " << outcome.status << "\n" << outcome.output << outcome.errors;
  }
};

/// Runs a program to its end with `input` on its standard input, without a terminal.
[[nodiscard]] Outcome RunProgram(const std::vector<std::string>& command, const std::string& input = {});

/// The same by a command of the shell, for which "$0" is the real program and "$@" its arguments.
[[nodiscard]] Outcome RunShell(const std::string& command, std::vector<std::string> arguments = {});

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

// How a program ends. A text that is printed is matched as a whole.

using OutcomeMatcher = ::testing::Matcher<const Outcome&>;
using TextMatcher = ::testing::Matcher<std::string>;

/// Contains each of the texts.
TextMatcher HasAll(const auto&... texts) { return AllOf(HasSubstr(texts)...); }

inline OutcomeMatcher Ends(int status, const TextMatcher& errors, const TextMatcher& output) {
  return AllOf(Field("status", &Outcome::status, status), Field("errors", &Outcome::errors, errors),
               Field("output", &Outcome::output, output));
}
inline OutcomeMatcher Succeeds(const TextMatcher& output = _) { return Ends(0, "", output); }
inline OutcomeMatcher FailsWith(const TextMatcher& errors, const TextMatcher& output = _) {
  return Ends(1, errors, output);
}
inline OutcomeMatcher Fails(const std::string& message) { return FailsWith("quorvel: error " + message + "\n"); }
inline OutcomeMatcher IsWrongUsage(const std::string& part) { return Ends(2, HasSubstr(part), ""); }

}  // namespace quorvel::test
