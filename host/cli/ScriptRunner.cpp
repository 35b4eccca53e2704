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

[[noreturn]] void ThrowLocated(const Error& error, const ado::Connection& connection, const ado::Batch& batch,
                               std::string_view place) {
  const auto& records = connection.Errors();
  if (records.empty()) throw Error(error.Number(), error.Source(), fmt::format("{}: {}", place, error.Description()));
  std::string description = fmt::format("{}, {}: {}", place, Place(records.front(), batch), error.Description());
  for (std::size_t i = 1; i < records.size(); ++i) {
    const std::string line = IsInBatch(records[i], batch) ? Place(records[i], batch) + ": " : "";
    description += fmt::format("\n  {}{}", line, records[i].description);
  }
  throw Error(error.Number(), error.Source(), description);
}

void RunBatch(ado::Connection& connection, std::string_view batch, const ScriptOutput& output) {
  connection.ClearErrors();
  const auto result = connection.Execute(batch);
  if (output.rows && result->IsOpen()) output.rows(*result);
  if (!output.message) return;
  for (const ado::ProviderError& message : connection.Errors()) output.message(message.description);
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
      ThrowLocated(error, connection, batch, fmt::format("{}, batch {}", name, count));
    }
  }
  return count;
}

}  // namespace quorvel::cli
