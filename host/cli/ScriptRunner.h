#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ado/Connection.h"
#include "platform/Error.h"

namespace quorvel::cli {

/// Receives the results of a script's batches; either function may be empty.
struct ScriptOutput {
  std::function<void(ado::Recordset&)> rows;             ///< the result of a batch that has one
  std::function<void(const std::string& text)> message;  ///< then each of its messages, PRINT's among them
};

/// Runs the batches of a T-SQL script in order and returns their number. The first error ends it: the database's error,
/// with `name`, batch and line before its description and the database's other records after it.
std::size_t RunScript(ado::Connection& connection, std::string_view name, std::string_view script,
                      const ScriptOutput& output = {});

/// A batch that failed.
struct BatchFailure {
  Error error;                ///< as RunScript throws it
  std::int32_t nativeNumber;  ///< the database's own number; 0 when it gave none
  std::string_view batch;     ///< points into the script
};

/// How RunWholeScript runs a script.
struct WholeScript {
  std::string_view name;
  std::string_view text;
  std::function<bool(std::string_view batch)> skips;  ///< whether a batch is left out; may be empty
  /// Each batch in a transaction of its own, so that several programs can run the script on one database at once. For
  /// the embedded engine: on a server an error may leave the transaction open.
  bool inTransactions = false;
  ScriptOutput output;
};

/// Runs all batches of a script, also after a failed one, and returns the failures. A lost connection
/// (Connection::IsLost) ends the script; its failure is then the last.
[[nodiscard]] std::vector<BatchFailure> RunWholeScript(ado::Connection& connection, const WholeScript& script);

}  // namespace quorvel::cli
