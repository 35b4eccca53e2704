// Runs requests on the embedded engine and answers them as a SQL Server would: with its error numbers, its catalog
// procedures and the order of its tokens.

#include "tests/support/tds/StandInSession.h"

#include <fmt/format.h>

#include <algorithm>
#include <sstream>

#include "ado/embedded/EmbeddedEngine.h"
#include "platform/Text.h"
#include "tests/support/tds/TdsTypes.h"

namespace quorvel::test::tds {
namespace {

using ado::DataType;
using ado::ParameterInfo;

constexpr std::uint8_t kErrorClass = 16;
constexpr std::uint8_t kMessageClass = 0;
constexpr std::int32_t kUserError = 50000;

/// The argument of a catalog procedure, which drivers send by name.
std::string TextArgument(const Request& call, std::string_view name) {
  for (const auto& [given, isOutput, value] : call.parameters) {
    if (ado::SameName(given, name)) return ToText(value);
  }
  return {};
}

void Append(ado::RowSet& rows, const Value& value) {
  if (IsNull(value)) rows.AppendNull();
  if (IsText(value)) rows.AppendText(ToText(value));
  if (const auto* number = std::get_if<std::int64_t>(&value)) rows.AppendInteger(*number);
}

void Append(ado::RowSet& rows, const std::vector<Value>& cells) {
  for (const Value& cell : cells) Append(rows, cell);
}

/// A row of sp_sproc_columns; the columns that no client reads are null.
void AppendParameter(ado::RowSet& rows, const std::string& procedure, const ParameterInfo& info, int direction,
                     int ordinal) {
  const auto number = [](int value) { return Value{std::int64_t{value}}; };
  Append(rows, {"Ledger", "dbo", procedure + ";1", info.name, number(direction)});
  Append(rows, {number(ServerTypeOf(info.type).odbc), Null{}, number(std::max(info.size, 0))});
  Append(rows, {Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, number(ordinal)});
}

void WriteRecords(const ado::DriverError& failure, Writer& answer) {
  for (ado::Diagnostic record : failure.Records()) {
    // Drivers know errors by number, and the embedded engine gives some only a SQLSTATE.
    if (record.nativeError <= 0) record.nativeError = kUserError;
    answer.Message(record, kErrorClass);
  }
}

/// A result that is followed by another part of the answer.
void WriteRows(const ado::RowSet& rows, Writer::Last last, Writer& answer) {
  answer.Rows(rows);
  answer.Done(last, {.more = true}, static_cast<std::int64_t>(rows.RowCount()));
}

}  // namespace

StandInSession::StandInSession(const std::string& databaseFile) {
  ado::ConnectOptions options;
  options.initialCatalog = databaseFile;
  m_session = ado::OpenEmbedded(options);
}

void StandInSession::Run(const Request& request, Writer& answer) {
  try {
    if (request.isCall) return RunCall(request, answer);
    if (!request.parameters.empty()) return RunStatements(request, answer);
    RunBatch(request.text, answer);
  } catch (const ado::DriverError& failure) {
    WriteRecords(failure, answer);
    answer.Done(request.isCall ? Writer::Last::OfProcedure : Writer::Last::InBatch, {.error = true});
  }
}

void StandInSession::RunBatch(std::string_view batch, Writer& answer) {
  const ado::Result result = m_session->Execute(batch);
  std::optional<std::int64_t> count;
  if (result.rows) {
    answer.Rows(*result.rows);
    count = static_cast<std::int64_t>(result.rows->RowCount());
  }
  answer.Done(Writer::Last::InBatch, {}, count);
}

/// Runs "exec name @P1, @P2 exec other @P3", into which a driver may have turned several calls.
void StandInSession::RunStatements(const Request& request, Writer& answer) {
  std::istringstream words(request.text);
  std::vector<Request> calls;
  std::size_t given = 0;
  for (std::string word; words >> word;) {
    if (word == "exec") {
      words >> calls.emplace_back(Request{.text = "", .isCall = true}).text;
    } else if (word.starts_with('@')) {
      calls.at(calls.size() - 1).parameters.push_back(request.parameters.at(given++));
    }
  }
  for (const Request& call : calls) RunStatement(call, answer);
  answer.ReturnStatus();
  answer.Done(Writer::Last::OfProcedure, {});
}

void StandInSession::RunStatement(const Request& call, Writer& answer) {
  try {
    const bool isText = call.text == "sp_executesql";
    std::vector<ado::Parameter> arguments;
    const ado::Result result =
        isText ? m_session->Execute(ToText(call.parameters.at(0).value)) : Execute(call, arguments);
    if (result.rows) WriteRows(*result.rows, Writer::Last::InProcedure, answer);
  } catch (const ado::DriverError& failure) {
    WriteRecords(failure, answer);
    answer.Done(Writer::Last::InProcedure, {.more = true, .error = true});
  }
}

void StandInSession::RunCall(const Request& call, Writer& answer) {
  // Drivers put dots before the names of catalog procedures, for database and owner.
  const std::string_view name = std::string_view(call.text).substr(call.text.rfind('.') + 1);
  if (name == "sp_sproc_columns") {
    DescribeColumns(call, answer);
  } else if (name == "sp_stored_procedures") {
    DescribeProcedures(call, answer);
  } else {
    CallProcedure(call, answer);
  }
  answer.Done(Writer::Last::OfProcedure, {});
}

/// Names of parameters are in lower case, as some servers give them.
void StandInSession::DescribeColumns(const Request& call, Writer& answer) {
  constexpr int kOutput = 2;  // a server reports OUTPUT parameters as input and output
  constexpr int kReturnValue = 5;
  ado::RowSet rows(std::vector<ado::Column>(18));
  for (const std::string& name : ProceduresLike(TextArgument(call, "@procedure_name"))) {
    AppendParameter(rows, name, {"@RETURN_VALUE", DataType::Integer, {}, 0}, kReturnValue, 0);
    int ordinal = 0;
    for (ParameterInfo info : m_session->DiscoverParameters(name)) {
      info.name = FoldCase(info.name);
      const bool isInput = info.direction == ado::ParameterDirection::Input;
      AppendParameter(rows, name, info, isInput ? 1 : kOutput, ++ordinal);
    }
  }
  WriteRows(rows, Writer::Last::InProcedure, answer);
  answer.ReturnStatus();
}

void StandInSession::DescribeProcedures(const Request& call, Writer& answer) {
  ado::RowSet rows(std::vector<ado::Column>(3));
  for (const std::string& name : ProceduresLike(TextArgument(call, "@sp_name"))) {
    Append(rows, {"Ledger", "dbo", name + ";1"});
  }
  WriteRows(rows, Writer::Last::InProcedure, answer);
  answer.ReturnStatus();
}

/// A server treats the name in a catalog query as a pattern: an underscore matches any character.
std::vector<std::string> StandInSession::ProceduresLike(std::string_view pattern) {
  std::string quoted;
  for (const char c : pattern) quoted.append(c == '\'' ? 2 : 1, c);
  std::vector<std::string> names;
  try {
    const ado::Result found = m_session->Execute(
        fmt::format("SELECT Name FROM quorvel_procedure WHERE Name LIKE N'{}' ORDER BY Name", quoted));
    for (std::size_t row = 0; row < found.rows->RowCount(); ++row) names.emplace_back(*found.rows->TextAt(row, 0));
  } catch (const ado::DriverError&) {  // NOLINT(bugprone-empty-catch): the first procedure makes the table.
  }
  return names;
}

/// Drivers send the arguments by position.
ado::Result StandInSession::Execute(const Request& call, std::vector<ado::Parameter>& arguments) {
  for (ParameterInfo& info : m_session->DiscoverParameters(call.text)) arguments.emplace_back(std::move(info));
  for (std::size_t i = 0; i < call.parameters.size(); ++i) {
    arguments.at(i) = ado::Parameter(arguments.at(i).Info(), call.parameters[i].value);
  }
  return m_session->Call(call.text, arguments, ado::Access::ReadWrite);
}

void StandInSession::CallProcedure(const Request& call, Writer& answer) {
  std::vector<ado::Parameter> arguments;
  const ado::Result result = Execute(call, arguments);
  if (result.rows) WriteRows(*result.rows, Writer::Last::InProcedure, answer);
  answer.ReturnStatus();
  for (std::size_t i = 0; i < call.parameters.size(); ++i) {
    if (!call.parameters[i].isOutput || !arguments[i].IsOutput()) continue;
    const ParameterInfo& info = arguments[i].Info();
    answer.ReturnValue(static_cast<std::uint16_t>(i), info.name, {"", info.type}, arguments[i].Value());
  }
}

void WriteParts(const std::vector<StandInServer::Part>& parts, Writer& answer) {
  using Kind = StandInServer::Part::Kind;
  bool hasFailed = false;
  for (const StandInServer::Part& part : parts) {
    hasFailed = hasFailed || part.kind == Kind::Error;
    if (part.kind == Kind::Message) answer.Message(part.diagnostic, kMessageClass);
    if (part.kind == Kind::Error) answer.Message(part.diagnostic, kErrorClass);
    if (part.kind == Kind::RowCount) answer.Done(Writer::Last::InBatch, {.more = true}, part.count);
    if (part.kind != Kind::Rows) continue;
    ado::RowSet rows(part.columns);
    for (const auto& row : part.rows) Append(rows, row);
    WriteRows(rows, Writer::Last::InBatch, answer);
  }
  answer.Done(Writer::Last::InBatch, {.error = hasFailed});
}

}  // namespace quorvel::test::tds
