#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ado/Connection.h"
#include "host/cli/ScriptRunner.h"

namespace quorvel::cli {

/// Runs the product's scripts on a database, each to its end, and prints what was done. A failure is kept for
/// RequireSuccess; only a lost connection ends the work at once, with the Error of RequireSuccess.
class Installation {
 public:
  /// `source` is the command, for errors.
  Installation(std::shared_ptr<ado::Connection> connection, std::string source)
      : m_connection(std::move(connection)), m_source(std::move(source)) {}

  /// Throws Error -1 when a newer version has set the database up: this one would put older procedures in their place.
  void RequireKnownLayout();
  /// Throws Error -1 when the host has its own procedure for keys: sample data is for a trial database, and the host's
  /// numbering would not know the sample's keys.
  void RequireOwnKeys();

  /// Tables and procedures. A procedure for memos that the host has adapted is kept unless `toReplace` names it.
  void MakeSchema(const std::vector<std::string>& toReplace);
  void AddSample();
  void Grant();

  /// Throws an Error with the number of the first failure and the text of each.
  void RequireSuccess() const;

 private:
  void Apply(std::string_view lastTable, const WholeScript& script);
  void RunKeeping(const WholeScript& script);
  /// Writes the version of the layout when nothing has failed: the doctor believes it.
  void FinishSchema();
  void FindMissingColumns();
  [[nodiscard]] bool HasFailedToAlter(std::string_view procedure) const;

  std::shared_ptr<ado::Connection> m_connection;
  std::string m_source;
  std::vector<BatchFailure> m_failures;
};

}  // namespace quorvel::cli
