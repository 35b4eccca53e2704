#include "ado/odbc/ProcedureCall.h"

#include <fmt/format.h>

#include <algorithm>
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

std::string CallText(std::string_view procedure, std::size_t count) {
  std::string text = "{? = call " + RequireProcedureName(procedure).Quoted();
  for (std::size_t i = 0; i < count; ++i) text += i == 0 ? "(?" : ", ?";
  return text + (count == 0 ? "}" : ")}");
}

/// Not every driver supports ODBC's default parameter, and its error is a bare SQLSTATE 07S01.
void Execute(Statement& statement, std::string_view procedure, std::span<const Parameter> sent) {
  try {
    statement.Execute(CallText(procedure, sent.size()));
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

  const auto kept = std::make_shared<std::deque<ParameterBuffer>>();
  statement.Keep(kept);
  std::deque<ParameterBuffer>& buffers = *kept;
  buffers.emplace_back(Parameter({"@RETURN_VALUE", DataType::Integer, ParameterDirection::Output, 0}));
  for (const Parameter& parameter : sent) buffers.emplace_back(parameter);
  for (std::size_t i = 0; i < buffers.size(); ++i) buffers[i].Bind(statement, static_cast<SQLUSMALLINT>(i + 1));

  Execute(statement, procedure, sent);
  Result result = ReadResults(statement);
  std::vector<std::pair<Parameter*, Value>> outputs;
  for (std::size_t i = 0; i < sent.size(); ++i) {
    if (sent[i].IsOutput()) outputs.emplace_back(&sent[i], buffers[i + 1].Output());
  }
  for (auto& [parameter, value] : outputs) parameter->SetOutput(std::move(value));
  return result;
}

}  // namespace quorvel::ado::odbc
