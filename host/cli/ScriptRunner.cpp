#include "host/cli/ScriptRunner.h"

#include <fmt/format.h>

#include <algorithm>

#include "ado/Script.h"
#include "platform/Error.h"

namespace quorvel::cli {
namespace {

/// A driver that does not know the line reports 0; some report a line of a procedure that the batch calls.
bool IsInBatch(const ado::ProviderError& record, const ado::Batch& batch) {
  return record.line > 0 && record.line <= 1 + std::count(batch.text.begin(), batch.text.end(), '\n');
}

std::string Place(const ado::ProviderError& record, const ado::Batch& batch) {
  return IsInBatch(record, batch) ? fmt::format("line {}", batch.firstLine + record.line - 1)
                                  : fmt::format("from line {} on", batch.firstLine);
}

Error Located(const Error& error, const ado::Connection& connection, const ado::Batch& batch, std::string_view place) {
  const auto& records = connection.Errors();
  if (records.empty()) return {error.Number(), error.Source(), fmt::format("{}: {}", place, error.Description())};
  std::string description = fmt::format("{}, {}: {}", place, Place(records.front(), batch), error.Description());
  for (std::size_t i = 1; i < records.size(); ++i) {
    const std::string line = IsInBatch(records[i], batch) ? Place(records[i], batch) + ": " : "";
    description += fmt::format("\n  {}{}", line, records[i].description);
  }
  return {error.Number(), error.Source(), description};
}

std::string PlaceOf(std::string_view name, std::size_t number) { return fmt::format("{}, batch {}", name, number); }

void RunBatch(ado::Connection& connection, std::string_view batch, const ScriptOutput& output) {
  connection.ClearErrors();
  const auto result = connection.Execute(batch);
  if (output.rows && result->IsOpen()) output.rows(*result);
  if (!output.message) return;
  for (const ado::ProviderError& message : connection.Errors()) output.message(message.description);
}

void RunBatchInTransaction(ado::Connection& connection, std::string_view batch, const ScriptOutput& output) {
  connection.Execute("BEGIN TRANSACTION");
  RunBatch(connection, batch, output);
  connection.Execute("COMMIT TRANSACTION");
}

/// After a failure, which usually has rolled back already.
void EndTransaction(ado::Connection& connection) {
  try {
    connection.Execute("ROLLBACK TRANSACTION");
  } catch (const Error&) {
    connection.ClearErrors();
  }
}

}  // namespace

std::size_t RunScript(ado::Connection& connection, std::string_view name, std::string_view script,
                      const ScriptOutput& output) {
  std::size_t count = 0;
  for (const ado::Batch& batch : ado::SplitBatches(script)) {
    ++count;
    try {
      RunBatch(connection, batch.text, output);
    } catch (const Error& error) {
      throw Located(error, connection, batch, PlaceOf(name, count));
    }
  }
  return count;
}

std::vector<BatchFailure> RunWholeScript(ado::Connection& connection, const WholeScript& script) {
  std::vector<BatchFailure> failures;
  std::size_t count = 0;
  for (const ado::Batch& batch : ado::SplitBatches(script.text)) {
    ++count;
    if (script.skips && script.skips(batch.text)) continue;
    try {
      (script.inTransactions ? RunBatchInTransaction : RunBatch)(connection, batch.text, script.output);
    } catch (const Error& error) {
      const auto& records = connection.Errors();
      failures.push_back({Located(error, connection, batch, PlaceOf(script.name, count)),
                          records.empty() ? 0 : records.front().nativeError, batch.text});
      if (connection.IsLost()) break;
      if (script.inTransactions) EndTransaction(connection);
    }
  }
  return failures;
}

}  // namespace quorvel::cli
