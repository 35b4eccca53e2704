#include <fmt/format.h>
#include <fmt/ranges.h>

#include "ado/embedded/BatchParser.h"

namespace quorvel::ado::embedded {

/// A value on its way into a column: a date is brought into the one form that dates are kept in.
std::string BatchParser::Dressed(const std::string& sql, const std::string& table,
                                 const std::vector<std::string>& columns, std::size_t position) const {
  const bool isDate = position < columns.size() ? m_catalog.IsDateTime(table, columns[position])
                                                : columns.empty() && m_catalog.IsDateTime(table, position);
  return isDate ? fmt::format("tsql_datetime({})", sql) : sql;
}

void BatchParser::ParseInsert(Block& block) {
  const int line = m_cursor.Peek().line;
  m_cursor.Accept("INTO");
  auto translator = Translator();
  const std::string table = translator.ParseTableName();
  const std::vector<std::string> columns = ParseInsertColumns();
  std::string sql = "INSERT INTO " + QuoteName(table);
  if (!columns.empty()) {
    sql += " (";
    for (const std::string& column : columns) sql += (sql.ends_with('(') ? "" : ", ") + QuoteName(column);
    sql += ")";
  }
  if (m_cursor.AcceptAll({"DEFAULT", "VALUES"})) {
    sql += " DEFAULT VALUES";
  } else if (m_cursor.Accept("VALUES")) {
    std::string rows = ParseRow(translator, table, columns);
    while (m_cursor.Accept(",")) rows += ", " + ParseRow(translator, table, columns);
    sql += " VALUES " + rows;
  } else {
    auto select = translator.ParseSelect();
    for (std::size_t i = 0; i < select.items.size(); ++i) {
      std::string& item = select.items[i].expression.sql;
      item = Dressed(item, table, columns, i);
    }
    sql += " " + select.Sql();
  }
  block.push_back({line, QueryStep{translator.Finish(std::move(sql)), {}}});
}

std::vector<std::string> BatchParser::ParseInsertColumns() {
  std::vector<std::string> columns;
  if (!m_cursor.Accept("(")) return columns;
  do {
    columns.push_back(m_cursor.ExpectObjectName());
  } while (m_cursor.Accept(","));
  m_cursor.Expect(")");
  return columns;
}

std::string BatchParser::ParseRow(QueryTranslator& translator, const std::string& table,
                                  const std::vector<std::string>& columns) {
  std::vector<std::string> values;
  m_cursor.Expect("(");
  do {
    values.push_back(Dressed(translator.ParseExpression().sql, table, columns, values.size()));
  } while (m_cursor.Accept(","));
  m_cursor.Expect(")");
  return fmt::format("({})", fmt::join(values, ", "));
}

void BatchParser::ParseUpdate(Block& block) {
  const int line = m_cursor.Peek().line;
  auto translator = Translator();
  const std::string table = translator.ParseTableName();
  m_cursor.Expect("SET");
  std::vector<std::string> assignments;
  do {
    const std::string column = m_cursor.ExpectObjectName();
    m_cursor.Expect("=");
    const std::string value = Dressed(translator.ParseExpression().sql, table, {column}, 0);
    assignments.push_back(fmt::format("{} = {}", QuoteName(column), value));
  } while (m_cursor.Accept(","));
  if (m_cursor.Is("FROM")) m_cursor.FailUnsupported("UPDATE .. FROM");
  std::string sql =
      fmt::format("UPDATE {} SET {}{}", QuoteName(table), fmt::join(assignments, ", "), translator.ParseWhere());
  block.push_back({line, QueryStep{translator.Finish(std::move(sql)), {}}});
}

void BatchParser::ParseDelete(Block& block) {
  const int line = m_cursor.Peek().line;
  m_cursor.Accept("FROM");
  auto translator = Translator();
  const std::string table = translator.ParseTableName();
  std::string sql = fmt::format("DELETE FROM {}{}", QuoteName(table), translator.ParseWhere());
  block.push_back({line, QueryStep{translator.Finish(std::move(sql)), {}}});
}

/// CREATE and ALTER PROCEDURE take the rest of the batch, and must begin it, as on a server.
void BatchParser::ParseDefineProcedure(Block& block, DefineProcedureStep::Mode mode) {
  const Token verb = m_cursor.Take();
  m_cursor.Take();
  DefineProcedureStep step{mode, m_cursor.ExpectObjectName(), {}};
  if (mode != DefineProcedureStep::Mode::Drop) {
    const bool isFirst = &block == &m_program.steps && block.empty();
    if (!isFirst) {
      throw DriverError("42000", 111, "CREATE or ALTER PROCEDURE must be the first statement in a batch.", verb.line);
    }
    step.definition = m_cursor.Batch().substr(verb.offset);
    m_cursor.SkipToEnd();
  }
  block.push_back({verb.line, std::move(step)});
}

Program BatchParser::ParseProcedure() {
  if (!m_cursor.Accept("CREATE")) m_cursor.Expect("ALTER");
  m_cursor.Take();
  (void)m_cursor.ExpectObjectName();
  const bool isBracketed = m_cursor.Accept("(");
  if (m_cursor.Peek().kind == TokenKind::Variable) {
    do {
      ParseParameter();
    } while (m_cursor.Accept(","));
  }
  if (isBracketed) m_cursor.Expect(")");
  if (m_cursor.Accept("WITH")) m_cursor.FailUnsupported("options of a procedure");
  m_cursor.Expect("AS");
  m_program.parameterCount = m_program.variables.size();
  return ParseBatch();
}

void BatchParser::ParseParameter() {
  Variable parameter = ParseVariable();
  if (m_cursor.Accept("=")) {
    const bool isNegative = m_cursor.Accept("-");
    const Token value = m_cursor.Take();
    if (value.kind == TokenKind::Number) {
      parameter.defaultValue = CoerceVariable((isNegative ? "-" : "") + value.text, parameter.info);
    } else if (value.kind == TokenKind::Text) {
      parameter.defaultValue = value.text;
    } else {
      parameter.defaultValue = Null{};
    }
  }
  if (m_cursor.Accept("OUTPUT") || m_cursor.Accept("OUT")) parameter.info.direction = ParameterDirection::InputOutput;
  m_program.variables.push_back(std::move(parameter));
}

}  // namespace quorvel::ado::embedded
