#include "tests/support/tds/StandInSession.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "ado/embedded/EmbeddedEngine.h"
#include "platform/Text.h"

namespace quorvel::test::tds {
namespace {

using ado::DataType;
using ado::ParameterInfo;

constexpr std::uint8_t kErrorClass = 16;
constexpr std::uint8_t kMessageClass = 0;

/// SQL Server's number for what the embedded engine tells by SQLSTATE alone: drivers know errors by number.
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

const Value& ArgumentOf(const Call& call, std::string_view name, std::size_t position) {
  static const Value kNothing = Null{};
  for (std::size_t i = 0; i < call.parameters.size(); ++i) {
    const auto& parameter = call.parameters[i];
    const bool isIt = parameter.name.empty() ? i == position : ado::SameName(parameter.name, name);
    if (isIt && parameter.value) return *parameter.value;
  }
  return kNothing;
}

std::string TextArgument(const Call& call, std::string_view name, std::size_t position) {
  const Value& value = ArgumentOf(call, name, position);
  return IsNull(value) ? std::string() : ToText(value);
}

struct ServerType {
  int odbc;
  const char* name;
  int precision;
};

ServerType TypeOf(const ParameterInfo& info) {
  switch (info.type) {
    case DataType::SmallInt:
      return {5, "smallint", 5};
    case DataType::Integer:
      return {4, "int", 10};
    case DataType::BigInt:
      return {-5, "bigint", 19};
    case DataType::Double:
      return {6, "float", 53};
    case DataType::Boolean:
      return {-7, "bit", 1};
    case DataType::DBTimeStamp:
      return {93, "datetime", 23};
    case DataType::VarChar:
      return {12, "varchar", info.size};
    case DataType::LongVarChar:
      return {12, "varchar", 0};
    case DataType::LongVarWChar:
      return {-9, "nvarchar", 0};
    default:
      return {-9, "nvarchar", info.size};
  }
}

/// Of the columns that clients look at only what they look at is filled in.
void AppendParameter(ado::RowSet& rows, const std::string& procedure, const ParameterInfo& info, int direction,
                     int ordinal) {
  const ServerType type = TypeOf(info);
  for (const std::string_view text : {std::string_view("Ledger"), std::string_view("dbo")}) rows.AppendText(text);
  rows.AppendText(procedure + ";1");
  rows.AppendText(info.name);
  rows.AppendInteger(direction);
  rows.AppendInteger(type.odbc);
  rows.AppendText(type.name);
  rows.AppendInteger(type.precision);
  rows.AppendInteger(std::int64_t{type.precision} * 2);
  for (int i = 0; i < 2; ++i) rows.AppendNull();
  rows.AppendInteger(1);
  for (int i = 0; i < 5; ++i) rows.AppendNull();
  rows.AppendInteger(ordinal);
  rows.AppendText("YES");
  rows.AppendInteger(0);
}

std::vector<ado::Column> ParameterColumns() {
  const auto text = DataType::VarWChar;
  const auto small = DataType::SmallInt;
  const auto integer = DataType::Integer;
  return {{"PROCEDURE_QUALIFIER", text},
          {"PROCEDURE_OWNER", text},
          {"PROCEDURE_NAME", text},
          {"COLUMN_NAME", text},
          {"COLUMN_TYPE", small},
          {"DATA_TYPE", small},
          {"TYPE_NAME", text},
          {"PRECISION", integer},
          {"LENGTH", integer},
          {"SCALE", small},
          {"RADIX", small},
          {"NULLABLE", small},
          {"REMARKS", text},
          {"COLUMN_DEF", text},
          {"SQL_DATA_TYPE", small},
          {"SQL_DATETIME_SUB", small},
          {"CHAR_OCTET_LENGTH", integer},
          {"ORDINAL_POSITION", integer},
          {"IS_NULLABLE", text},
          {"SS_DATA_TYPE", small}};
}

/// A result behind which more comes.
void WriteRows(const ado::RowSet& rows, Writer::Last last, Writer& answer) {
  answer.Rows(rows);
  answer.Done(last, {.more = true}, static_cast<std::int64_t>(rows.RowCount()));
}

void Append(ado::RowSet& rows, const Value& value) {
  if (IsNull(value)) rows.AppendNull();
  if (IsText(value)) rows.AppendText(ToText(value));
  if (const auto* flag = std::get_if<bool>(&value)) rows.AppendBoolean(*flag);
  if (const auto* number = std::get_if<std::int64_t>(&value)) rows.AppendInteger(*number);
  if (const auto* real = std::get_if<double>(&value)) rows.AppendReal(*real);
  if (const auto* time = std::get_if<DateTime>(&value)) rows.AppendDateTime(*time);
}

/// The answer of a catalog procedure.
void WriteCatalog(const ado::RowSet& rows, Writer& answer) {
  WriteRows(rows, Writer::Last::InProcedure, answer);
  answer.ReturnStatus(0);
  answer.Done(Writer::Last::OfProcedure, {});
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
  // Drivers put dots before the names of catalog procedures, in the place of database and owner.
  const std::string_view name = std::string_view(call.procedure).substr(call.procedure.rfind('.') + 1);
  try {
    if (name == "sp_sproc_columns") return DescribeColumns(call, lowerCaseNames, answer);
    if (name == "sp_stored_procedures") return DescribeProcedures(call, answer);
    CallProcedure(call, answer);
  } catch (const ado::DriverError& failure) {
    WriteFailure(failure, answer);
    answer.Done(Writer::Last::OfProcedure, {.error = true});
  }
}

void StandInSession::DescribeColumns(const Call& call, bool lowerCaseNames, Writer& answer) {
  constexpr int kOutput = 2;  // a server gives OUTPUT parameters as input and output
  constexpr int kReturnValue = 5;
  ado::RowSet rows(ParameterColumns());
  for (const std::string& name : ProceduresLike(TextArgument(call, "@procedure_name", 0))) {
    AppendParameter(rows, name, {"@RETURN_VALUE", DataType::Integer, {}, 0}, kReturnValue, 0);
    int ordinal = 0;
    for (ParameterInfo info : m_session->DiscoverParameters(name)) {
      if (lowerCaseNames) info.name = FoldCase(info.name);
      const bool isInput = info.direction == ado::ParameterDirection::Input;
      AppendParameter(rows, name, info, isInput ? 1 : kOutput, ++ordinal);
    }
  }
  WriteCatalog(rows, answer);
}

void StandInSession::DescribeProcedures(const Call& call, Writer& answer) {
  ado::RowSet rows({{"PROCEDURE_QUALIFIER", DataType::VarWChar},
                    {"PROCEDURE_OWNER", DataType::VarWChar},
                    {"PROCEDURE_NAME", DataType::VarWChar}});
  for (const std::string& name : ProceduresLike(TextArgument(call, "@sp_name", 0))) {
    for (const std::string& text : {std::string("Ledger"), std::string("dbo"), name + ";1"}) rows.AppendText(text);
  }
  WriteCatalog(rows, answer);
}

/// To a server the name in a question of the catalog is a pattern: an underscore stands for any character.
std::vector<std::string> StandInSession::ProceduresLike(std::string_view pattern) {
  std::string quoted;
  for (const char c : pattern) quoted.append(c == '\'' ? 2 : 1, c);
  std::vector<std::string> names;
  try {
    const ado::Result found = m_session->Execute(
        fmt::format("SELECT Name FROM quorvel_procedure WHERE Name LIKE N'{}' ORDER BY Name", quoted));
    for (std::size_t row = 0; row < found.rows->RowCount(); ++row) names.emplace_back(*found.rows->TextAt(row, 0));
  } catch (const ado::DriverError&) {  // NOLINT(bugprone-empty-catch): the table is made with the first procedure.
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
  for (std::size_t i = 0; i < call.parameters.size(); ++i) {
    const auto& given = call.parameters[i];
    auto place = arguments.begin() + static_cast<std::ptrdiff_t>(i);
    if (!given.name.empty()) {
      place = std::find_if(arguments.begin(), arguments.end(),
                           [&](const ado::Parameter& each) { return ado::SameName(each.Info().name, given.name); });
      if (place == arguments.end()) throw ado::DriverError("42000", 8145, given.name + " is not a parameter.");
    }
    *place = ado::Parameter(place->Info(), given.value);
    places.push_back(static_cast<std::size_t>(place - arguments.begin()));
  }
  const ado::Result result = m_session->Call(call.procedure, arguments);
  if (result.rows) WriteRows(*result.rows, Writer::Last::InProcedure, answer);
  answer.ReturnStatus(0);
  for (std::size_t i = 0; i < call.parameters.size(); ++i) {
    const ado::Parameter& parameter = arguments[places[i]];
    if (!call.parameters[i].isOutput || !parameter.IsOutput()) continue;
    const ParameterInfo& info = parameter.Info();
    answer.ReturnValue(static_cast<std::uint16_t>(i), info.name, {"", info.type}, parameter.Value());
  }
  answer.Done(Writer::Last::OfProcedure, {});
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
    for (const auto& row : part.rows) {
      for (const Value& value : row) Append(rows, value);
    }
    WriteRows(rows, Writer::Last::InBatch, answer);
  }
  answer.Done(Writer::Last::InBatch, {.error = hasFailed});
}

}  // namespace quorvel::test::tds
