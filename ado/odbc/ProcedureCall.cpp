#include "ado/odbc/ProcedureCall.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ado/odbc/ParameterBuffer.h"
#include "ado/odbc/ProcedureName.h"
#include "ado/odbc/ResultReader.h"

namespace quorvel::ado::odbc {
namespace {

bool IsLeftOut(const Parameter& parameter) { return !parameter.Given() && !parameter.IsOutput(); }

using Buffers = std::deque<ParameterBuffer>;

/// `begin` is "call " or, with a return value, "? = call ".
std::string CallText(std::string_view begin, std::string_view procedure, std::size_t count) {
  std::string text = fmt::format("{{{}{}", begin, RequireProcedureName(procedure).Quoted());
  for (std::size_t i = 0; i < count; ++i) text += i == 0 ? "(?" : ", ?";
  return text + (count == 0 ? "}" : ")}");
}

void Bind(Statement& statement, const std::shared_ptr<Buffers>& buffers) {
  statement.Keep(buffers);
  SQLUSMALLINT number = 0;
  for (ParameterBuffer& buffer : *buffers) buffer.Bind(statement, ++number);
}

/// A call, and not a SELECT, because drivers send only calls as such together.
ReadingCall EndOfCall() {
  constexpr std::int32_t kSize = 100;
  const ParameterInfo text{"@stmt", DataType::VarWChar, ParameterDirection::Input, kSize};
  return {"sp_executesql", {Parameter(text, fmt::format("SELECT 1 AS {}", kEndOfCall))}};
}

/// Not every driver supports ODBC's default parameter, and its error is a bare SQLSTATE 07S01.
void Execute(Statement& statement, std::string_view procedure, std::span<const Parameter> sent) {
  try {
    statement.Execute(CallText("? = call ", procedure, sent.size()));
  } catch (const DriverError& failure) {
    const auto leftOut = std::find_if(sent.begin(), sent.end(), IsLeftOut);
    if (failure.Records().front().sqlState != "07S01" || leftOut == sent.end()) throw;
    throw DriverError(
        "07S01", 0,
        fmt::format("Parameter {} of {} was given no value but one behind it was, and this ODBC driver can "
                    "leave out parameters only at the end; nothing was sent.",
                    leftOut->Info().name, procedure));
  }
}

}  // namespace

Result CallProcedure(Statement& statement, std::string_view procedure, std::span<Parameter> parameters) {
  const auto lastGiven = std::find_if_not(parameters.rbegin(), parameters.rend(), IsLeftOut);
  const std::span<Parameter> sent = parameters.first(static_cast<std::size_t>(parameters.rend() - lastGiven));

  const auto kept = std::make_shared<Buffers>();
  Buffers& buffers = *kept;
  buffers.emplace_back(Parameter({"@RETURN_VALUE", DataType::Integer, ParameterDirection::Output, 0}));
  for (const Parameter& parameter : sent) buffers.emplace_back(parameter);
  Bind(statement, kept);

  Execute(statement, procedure, sent);
  Result result = ReadResults(statement);
  std::vector<std::pair<Parameter*, Value>> outputs;
  for (std::size_t i = 0; i < sent.size(); ++i) {
    if (sent[i].IsOutput()) outputs.emplace_back(&sent[i], buffers[i + 1].Output());
  }
  for (auto& [parameter, value] : outputs) parameter->SetOutput(std::move(value));
  return result;
}

std::vector<Outcome> CallTogether(Statement& statement, std::span<const ReadingCall> calls) {
  const auto buffers = std::make_shared<Buffers>();
  std::string text;
  const auto add = [&](const ReadingCall& call) {
    text += CallText("call ", call.procedure, call.parameters.size());
    for (const Parameter& parameter : call.parameters) buffers->emplace_back(parameter);
  };
  for (const ReadingCall& call : calls) {
    if (!text.empty()) add(EndOfCall());
    add(call);
  }
  Bind(statement, buffers);
  statement.Execute(text);
  return ReadOutcomes(statement, calls.size());
}

}  // namespace quorvel::ado::odbc
