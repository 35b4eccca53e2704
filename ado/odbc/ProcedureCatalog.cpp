// ODBC's catalog functions find every procedure whose name matches. From their rows this file keeps those of the one
// procedure that a call would run.

#include "ado/odbc/ProcedureCatalog.h"

#include <algorithm>
#include <array>
#include <set>

#include "ado/odbc/ResultReader.h"
#include "ado/odbc/SqlTypes.h"
#include "ado/odbc/WideText.h"

namespace quorvel::ado::odbc {
namespace {

// Columns of SQLProcedureColumns and SQLProcedures, 0-based, in the order that ODBC fixes.
constexpr std::size_t kSchema = 1;
constexpr std::size_t kProcedure = 2;
constexpr std::size_t kName = 3;
constexpr std::size_t kDirection = 4;
constexpr std::size_t kType = 5;
constexpr std::size_t kSize = 7;
constexpr std::size_t kOrdinal = 17;

std::int64_t NumberAt(const RowSet& rows, std::size_t row, std::size_t column) {
  if (column >= rows.Columns().size()) return 0;
  const Value value = rows.At(row, column);
  return IsNull(value) ? 0 : ToInt64(value);
}

std::string TextAt(const RowSet& rows, std::size_t row, std::size_t column) {
  const Value value = rows.At(row, column);
  return IsNull(value) ? std::string() : std::string(TrimBlanks(ToText(value)));
}

/// SQL Server appends the number of the procedure's group: "name;1".
std::string_view WithoutGroup(std::string_view name) { return name.substr(0, name.rfind(';')); }

/// The rows of the procedure of exactly that name. They must be chosen because the driver treats the name as a pattern.
std::vector<std::size_t> RowsOf(const RowSet& rows, const ProcedureName& procedure) {
  std::vector<std::size_t> found;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    if (!EqualIgnoringCase(WithoutGroup(TextAt(rows, row, kProcedure)), procedure.name)) continue;
    if (!procedure.schema.empty() && !EqualIgnoringCase(TextAt(rows, row, kSchema), procedure.schema)) continue;
    found.push_back(row);
  }
  return found;
}

ParameterDirection DirectionOf(std::int64_t columnType) {
  if (columnType == SQL_PARAM_OUTPUT) return ParameterDirection::Output;
  return columnType == SQL_PARAM_INPUT_OUTPUT ? ParameterDirection::InputOutput : ParameterDirection::Input;
}

ParameterInfo ParameterAt(const RowSet& rows, std::size_t row) {
  const std::int64_t size = std::max<std::int64_t>(NumberAt(rows, row, kSize), 0);
  const auto sqlType = static_cast<SQLSMALLINT>(NumberAt(rows, row, kType));
  ParameterInfo info{TextAt(rows, row, kName), DataTypeOf(sqlType, static_cast<SQLULEN>(size)),
                     DirectionOf(NumberAt(rows, row, kDirection)), 0};
  const bool hasLimit = info.type == DataType::VarChar || info.type == DataType::VarWChar;
  if (hasLimit) info.size = static_cast<std::int32_t>(size);
  return info;
}

template <auto Function, typename... More>
RowSet AskCatalog(Statement& statement, const Api<Function>& function, const ProcedureName& procedure, More... more) {
  std::array<std::u16string, 3> parts = {ToWide(procedure.catalog), ToWide(procedure.schema), ToWide(procedure.name)};
  // An empty part would ask for procedures without that part; null asks for any.
  const auto text = [](std::u16string& part) { return part.empty() ? nullptr : Wide(part); };
  const auto length = [](const std::u16string& part) { return static_cast<SQLSMALLINT>(part.size()); };
  statement.Call(function, text(parts[0]), length(parts[0]), text(parts[1]), length(parts[1]), text(parts[2]),
                 length(parts[2]), more...);
  return ReadRows(statement);
}

}  // namespace

const std::vector<ParameterInfo>& ProcedureCatalog::ParametersOf(std::string_view procedure,
                                                                 std::chrono::seconds timeout) {
  const auto known = m_known.find(procedure);
  if (known != m_known.end()) return known->second;
  return m_known.emplace(procedure, Ask(RequireProcedureName(procedure), timeout)).first->second;
}

std::vector<ParameterInfo> ProcedureCatalog::Ask(const ProcedureName& procedure, std::chrono::seconds timeout) const {
  Statement statement(m_connection, timeout);
  const RowSet rows =
      AskCatalog(statement, api::ProcedureColumns, procedure, static_cast<SQLWCHAR*>(nullptr), SQLSMALLINT{0});
  std::vector<std::size_t> found = RowsOf(rows, procedure);
  KeepOneSchema(rows, found, timeout);
  // No rows: most servers give a return value even for a procedure without parameters, but not all do.
  if (found.empty() && !Exists(procedure, timeout)) ThrowNoSuchProcedure(procedure.name);
  std::stable_sort(found.begin(), found.end(), [&rows](std::size_t left, std::size_t right) {
    return NumberAt(rows, left, kOrdinal) < NumberAt(rows, right, kOrdinal);
  });
  std::vector<ParameterInfo> parameters;
  for (const std::size_t row : found) {
    const std::int64_t direction = NumberAt(rows, row, kDirection);
    const bool isParameter = direction != SQL_RETURN_VALUE && direction != SQL_RESULT_COL;
    if (isParameter) parameters.push_back(ParameterAt(rows, row));
  }
  return parameters;
}

/// If several schemas have the procedure, the login's default schema counts, then dbo.
void ProcedureCatalog::KeepOneSchema(const RowSet& rows, std::vector<std::size_t>& found,
                                     std::chrono::seconds timeout) const {
  std::set<std::string, LessIgnoringCase> schemas;
  for (const std::size_t row : found) schemas.insert(TextAt(rows, row, kSchema));
  if (schemas.size() <= 1) return;
  const std::string schema = DefaultSchema(timeout);
  const std::string_view chosen = schemas.contains(schema) ? std::string_view(schema) : "dbo";
  std::erase_if(found, [&](std::size_t row) { return !EqualIgnoringCase(TextAt(rows, row, kSchema), chosen); });
}

bool ProcedureCatalog::Exists(const ProcedureName& procedure, std::chrono::seconds timeout) const {
  Statement statement(m_connection, timeout);
  return !RowsOf(AskCatalog(statement, api::Procedures, procedure), procedure).empty();
}

std::string ProcedureCatalog::DefaultSchema(std::chrono::seconds timeout) const {
  Statement statement(m_connection, timeout);
  statement.Execute("SELECT SCHEMA_NAME()");
  const RowSet rows = ReadRows(statement);
  return rows.RowCount() == 0 ? std::string() : TextAt(rows, 0, 0);
}

}  // namespace quorvel::ado::odbc
