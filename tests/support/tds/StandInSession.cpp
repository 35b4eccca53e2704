// Runs requests on the embedded engine and answers them as a SQL Server would: with its error numbers, its catalog
// procedures and the order of its tokens.

#include "tests/support/tds/StandInSession.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <sstream>

#include "ado/embedded/EmbeddedEngine.h"
#include "platform/Text.h"

namespace quorvel::test::tds {
namespace {

using ado::DataType;
using ado::ParameterInfo;

constexpr std::uint8_t kErrorClass = 16;
constexpr std::uint8_t kMessageClass = 0;

/// SQL Server's number for errors that the embedded engine gives only a SQLSTATE: drivers know errors by number.
std::int32_t ServerNumber(const ado::Diagnostic& record) {
  if (record.sqlState == "22001") return 8152;
  if (record.sqlState == "HYT00") return 1222;
  return record.nativeError > 0 ? record.nativeError : 50000;
}

void WriteFailure(const ado::DriverError& failure, Writer& answer) {
  for (ado::Diagnostic record : failure.Records()) {
    record.nativeError = ServerNumber(record);
    answer.Message(record, kErrorClass);
  }
}

/// The first argument of a catalog procedure, which drivers send by name or by position.
std::string TextArgument(const Call& call, std::string_view name) {
  for (std::size_t i = 0; i < call.parameters.size(); ++i) {
    const auto& [given, isOutput, value] = call.parameters[i];
    const bool isIt = given.empty() ? i == 0 : ado::SameName(given, name);
    if (isIt && value && !IsNull(*value)) return ToText(*value);
  }
  return {};
}

/// How sp_sproc_columns describes a type; a text's precision is its length.
struct ServerType {
  DataType type;
  int odbc;
  const char* name;
  int precision;
};

constexpr std::array kServerTypes = std::to_array<ServerType>({{DataType::SmallInt, 5, "smallint", 5},
                                                               {DataType::Integer, 4, "int", 10},
                                                               {DataType::BigInt, -5, "bigint", 19},
                                                               {DataType::Double, 6, "float", 53},
                                                               {DataType::Boolean, -7, "bit", 1},
                                                               {DataType::DBTimeStamp, 93, "datetime", 23},
                                                               {DataType::VarChar, 12, "varchar", 0},
                                                               {DataType::LongVarChar, 12, "varchar", 0},
                                                               {DataType::VarWChar, -9, "nvarchar", 0},
                                                               {DataType::LongVarWChar, -9, "nvarchar", 0}});

const ServerType& TypeOf(const ParameterInfo& info) {
  return *std::find_if(kServerTypes.begin(), kServerTypes.end(),
                       [&info](const ServerType& each) { return each.type == info.type; });
}

void Append(ado::RowSet& rows, const Value& value) {
  if (IsNull(value)) rows.AppendNull();
  if (IsText(value)) rows.AppendText(ToText(value));
  if (const auto* flag = std::get_if<bool>(&value)) rows.AppendBoolean(*flag);
  if (const auto* number = std::get_if<std::int64_t>(&value)) rows.AppendInteger(*number);
  if (const auto* real = std::get_if<double>(&value)) rows.AppendReal(*real);
  if (const auto* time = std::get_if<DateTime>(&value)) rows.AppendDateTime(*time);
}

void Append(ado::RowSet& rows, const std::vector<Value>& cells) {
  for (const Value& cell : cells) Append(rows, cell);
}

/// Columns without a type, from names between blanks: the writer takes the type of their values.
std::vector<ado::Column> Untyped(const std::string& names) {
  std::vector<ado::Column> columns;
  std::istringstream rest(names);
  for (std::string name; rest >> name;) columns.push_back({name});
  return columns;
}

/// A row of sp_sproc_columns; the columns that no client reads are null.
void AppendParameter(ado::RowSet& rows, const std::string& procedure, const ParameterInfo& info, int direction,
                     int ordinal) {
  const auto number = [](int value) { return Value{std::int64_t{value}}; };
  const ServerType& type = TypeOf(info);
  const int precision = type.precision > 0 ? type.precision : std::max(info.size, 0);
  Append(rows, {"Ledger", "dbo", procedure + ";1", info.name, number(direction), number(type.odbc), type.name});
  Append(rows, {number(precision), number(2 * precision), Null{}, Null{}, number(1)});
  Append(rows, {Null{}, Null{}, Null{}, Null{}, Null{}, number(ordinal), "YES", number(0)});
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

void StandInSession::RunBatch(std::string_view batch, Writer& answer) {
  try {
    const ado::Result result = m_session->Execute(batch);
    if (result.rows) answer.Rows(*result.rows);
    answer.Done(Writer::Last::InBatch, {},
                result.rows ? std::optional(static_cast<std::int64_t>(result.rows->RowCount())) : std::nullopt);
  } catch (const ado::DriverError& failure) {
    WriteFailure(failure, answer);
    answer.Done(Writer::Last::InBatch, {.error = true});
  }
}

void StandInSession::RunCall(const Call& call, bool lowerCaseNames, Writer& answer) {
  // Drivers put dots before the names of catalog procedures, for database and owner.
  const std::string_view name = std::string_view(call.procedure).substr(call.procedure.rfind('.') + 1);
  try {
    if (name == "sp_sproc_columns") {
      DescribeColumns(call, lowerCaseNames, answer);
    } else if (name == "sp_stored_procedures") {
      DescribeProcedures(call, answer);
    } else {
      CallProcedure(call, answer);
    }
    answer.Done(Writer::Last::OfProcedure, {});
  } catch (const ado::DriverError& failure) {
    WriteFailure(failure, answer);
    answer.Done(Writer::Last::OfProcedure, {.error = true});
  }
}

void StandInSession::DescribeColumns(const Call& call, bool lowerCaseNames, Writer& answer) {
  constexpr int kOutput = 2;  // a server reports OUTPUT parameters as input and output
  constexpr int kReturnValue = 5;
  ado::RowSet rows(Untyped(
      "PROCEDURE_QUALIFIER PROCEDURE_OWNER PROCEDURE_NAME COLUMN_NAME COLUMN_TYPE DATA_TYPE TYPE_NAME PRECISION "
      "LENGTH SCALE RADIX NULLABLE REMARKS COLUMN_DEF SQL_DATA_TYPE SQL_DATETIME_SUB CHAR_OCTET_LENGTH "
      "ORDINAL_POSITION IS_NULLABLE SS_DATA_TYPE"));
  for (const std::string& name : ProceduresLike(TextArgument(call, "@procedure_name"))) {
    AppendParameter(rows, name, {"@RETURN_VALUE", DataType::Integer, {}, 0}, kReturnValue, 0);
    int ordinal = 0;
    for (ParameterInfo info : m_session->DiscoverParameters(name)) {
      if (lowerCaseNames) info.name = FoldCase(info.name);
      const bool isInput = info.direction == ado::ParameterDirection::Input;
      AppendParameter(rows, name, info, isInput ? 1 : kOutput, ++ordinal);
    }
  }
  WriteRows(rows, Writer::Last::InProcedure, answer);
  answer.ReturnStatus();
}

void StandInSession::DescribeProcedures(const Call& call, Writer& answer) {
  ado::RowSet rows(Untyped("PROCEDURE_QUALIFIER PROCEDURE_OWNER PROCEDURE_NAME"));
  for (const std::string& name : ProceduresLike(TextArgument(call, "@sp_name"))) {
    Append(rows, {"Ledger", "dbo", name + ";1"});
  }
  WriteRows(rows, Writer::Last::InProcedure, answer);
  answer.ReturnStatus();
}

/// A server takes the name in a catalog query for a pattern: an underscore matches any character.
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

void StandInSession::CallProcedure(const Call& call, Writer& answer) {
  std::vector<ado::Parameter> arguments;
  for (ParameterInfo& info : m_session->DiscoverParameters(call.procedure)) arguments.emplace_back(std::move(info));
  if (call.parameters.size() > arguments.size()) {
    throw ado::DriverError("42000", 8144,
                           fmt::format("Procedure or function {} has too many arguments specified.", call.procedure));
  }
  std::vector<std::size_t> places;
  for (const auto& given : call.parameters) {
    const auto isIt = [&](const ado::Parameter& each) { return ado::SameName(each.Info().name, given.name); };
    const auto place = given.name.empty() ? arguments.begin() + static_cast<std::ptrdiff_t>(places.size())
                                          : std::find_if(arguments.begin(), arguments.end(), isIt);
    if (place == arguments.end()) throw ado::DriverError("42000", 8145, given.name + " is not a parameter.");
    *place = ado::Parameter(place->Info(), given.value);
    places.push_back(static_cast<std::size_t>(place - arguments.begin()));
  }
  const ado::Result result = m_session->Call(call.procedure, arguments);
  if (result.rows) WriteRows(*result.rows, Writer::Last::InProcedure, answer);
  answer.ReturnStatus();
  for (std::size_t i = 0; i < call.parameters.size(); ++i) {
    const ado::Parameter& parameter = arguments[places[i]];
    if (!call.parameters[i].isOutput || !parameter.IsOutput()) continue;
    const ParameterInfo& info = parameter.Info();
    answer.ReturnValue(static_cast<std::uint16_t>(i), info.name, {"", info.type}, parameter.Value());
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
