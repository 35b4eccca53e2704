#include "host/cli/ScriptRunner.h"

#include <fmt/format.h>

#include "platform/Error.h"
#include "platform/ado/Script.h"

namespace quorvel::cli {
namespace {

[[noreturn]] void ThrowLocated(const Error& error, const ado::Connection& connection, const ado::Batch& batch,
                               std::string_view place) {
  const auto line = [&](const ado::ProviderError& record) {
    return record.line > 0 ? fmt::format("line {}", batch.firstLine + record.line - 1)
                           : fmt::format("after line {}", batch.firstLine);
  };
  const auto& records = connection.Errors();
  if (records.empty()) throw Error(error.Number(), error.Source(), fmt::format("{}: {}", place, error.Description()));
  std::string description = fmt::format("{}, {}: {}", place, line(records.front()), error.Description());
  for (std::size_t i = 1; i < records.size(); ++i) {
    description += fmt::format("\n  {}: {}", line(records[i]), records[i].description);
  }
  throw Error(error.Number(), error.Source(), description);
}

}  // namespace

std::size_t RunScript(ado::Connection& connection, std::string_view name, std::string_view script,
                      const std::function<void(ado::Recordset&)>& show) {
  std::size_t count = 0;
  for (const ado::Batch& batch : ado::SplitBatches(script)) {
    ++count;
    try {
      connection.ClearErrors();
      const auto result = connection.Execute(batch.text);
      if (show && result->IsOpen()) show(*result);
    } catch (const Error& error) {
      ThrowLocated(error, connection, batch, fmt::format("{}, batch {}", name, count));
    }
  }
  return count;
}

}  // namespace quorvel::cli
