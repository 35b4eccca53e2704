// Each statement becomes one SQLite statement of the same kind. This file reads the frame of the statement, and
// StatementTranslator translates the expressions and clauses in it.
#include "ado/embedded/DataStatementParser.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "ado/embedded/Clauses.h"
#include "ado/embedded/Quoting.h"
#include "ado/engine/DataType.h"

namespace quorvel::ado::embedded {

std::optional<Step> DataStatementParser::Parse() {
  if (m_cursor.Is("SELECT")) return ParseSelect();
  if (m_cursor.Accept("INSERT")) return ParseInsert();
  if (m_cursor.Accept("UPDATE")) return ParseUpdate();
  if (m_cursor.Accept("DELETE")) return ParseDelete();
  return std::nullopt;
}

Step DataStatementParser::ParseSelect() {
  const int line = m_cursor.Peek().line;
  const Select select = m_translator.ParseSelect();
  return {line, QueryStep{m_translator.Finish(select.Sql()), select.Targets()}};
}

Step DataStatementParser::ParseInsert() {
  const int line = m_cursor.Peek().line;
  m_cursor.Accept("INTO");
  Target target;
  target.table = ParseTableName(m_cursor);
  target.columns = ParseInsertColumns();
  std::string sql = "INSERT INTO " + QuoteName(target.table);
  if (!target.columns.empty()) {
    std::vector<std::string> names;
    names.reserve(target.columns.size());
    for (const std::string& column : target.columns) names.push_back(QuoteName(column));
    sql += fmt::format(" ({})", fmt::join(names, ", "));
  }
  return Finish(line, sql + ParseInsertedRows(target));
}

std::vector<std::string> DataStatementParser::ParseInsertColumns() {
  std::vector<std::string> columns;
  if (!m_cursor.Accept("(")) return columns;
  do {
    columns.push_back(m_cursor.ExpectObjectName());
  } while (m_cursor.Accept(","));
  m_cursor.Expect(")");
  return columns;
}

/// DEFAULT VALUES, VALUES (..), (..), or a SELECT.
std::string DataStatementParser::ParseInsertedRows(const Target& target) {
  if (m_cursor.AcceptAll({"DEFAULT", "VALUES"})) return " DEFAULT VALUES";
  if (m_cursor.Accept("VALUES")) {
    std::string rows = ParseInsertedRow(target);
    while (m_cursor.Accept(",")) rows += ", " + ParseInsertedRow(target);
    return " VALUES " + rows;
  }
  Select select = m_translator.ParseSelect();
  for (std::size_t i = 0; i < select.items.size(); ++i) {
    std::string& item = select.items[i].expression.sql;
    item = Stored(item, target, i);
  }
  return " " + select.Sql();
}

std::string DataStatementParser::ParseInsertedRow(const Target& target) {
  std::vector<std::string> values;
  m_cursor.Expect("(");
  do {
    values.push_back(Stored(m_translator.ParseExpression().sql, target, values.size()));
  } while (m_cursor.Accept(","));
  m_cursor.Expect(")");
  return fmt::format("({})", fmt::join(values, ", "));
}

Step DataStatementParser::ParseUpdate() {
  const int line = m_cursor.Peek().line;
  const std::string table = ParseTableName(m_cursor);
  m_cursor.Expect("SET");
  std::vector<std::string> assignments;
  do {
    const std::string column = m_cursor.ExpectObjectName();
    m_cursor.Expect("=");
    const std::string value = Stored(m_translator.ParseExpression().sql, {table, {column}}, 0);
    assignments.push_back(fmt::format("{} = {}", QuoteName(column), value));
  } while (m_cursor.Accept(","));
  if (m_cursor.Is("FROM")) m_cursor.FailUnsupported("UPDATE .. FROM");
  return Finish(line, fmt::format("UPDATE {} SET {}{}", QuoteName(table), fmt::join(assignments, ", "),
                                  m_translator.ParseWhere()));
}

Step DataStatementParser::ParseDelete() {
  const int line = m_cursor.Peek().line;
  m_cursor.Accept("FROM");
  const std::string table = ParseTableName(m_cursor);
  return Finish(line, fmt::format("DELETE FROM {}{}", QuoteName(table), m_translator.ParseWhere()));
}

/// A value as its column stores it: dates have one form, and numbers are what a server makes of the value.
std::string DataStatementParser::Stored(const std::string& value, const Target& target, std::size_t position) const {
  DataType type = DataType::Empty;
  if (position < target.columns.size()) {
    type = m_catalog.TypeOf(target.table, target.columns[position]);
  } else if (target.columns.empty()) {
    type = m_catalog.TypeOf(target.table, position);
  }
  if (type == DataType::DBTimeStamp) return fmt::format("tsql_datetime({})", value);
  const bool isNumber = type != DataType::Empty && !IsTextType(type);
  if (!isNumber || value.ends_with('*')) return value;
  if (type == DataType::Double) return fmt::format("tsql_number({}, 'number')", value);
  return fmt::format("tsql_number({}, '{}')", value, type == DataType::Boolean ? "bit" : "whole");
}

Step DataStatementParser::Finish(int line, std::string sql) const {
  return {line, QueryStep{m_translator.Finish(std::move(sql)), {}}};
}

}  // namespace quorvel::ado::embedded
