#include "ado/embedded/TableTranslator.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

#include "ado/embedded/QueryTranslator.h"
#include "platform/Text.h"

namespace quorvel::ado::embedded {
namespace {

/// SQLite's index names belong to the database, a server's to the table.
std::string IndexName(const std::string& table, const std::string& index) { return QuoteName(table + "." + index); }

}  // namespace

std::string TableTranslator::ParseCreateTable() {
  const std::string table = m_cursor.ExpectObjectName();
  m_cursor.Expect("(");
  do {
    if (!ParseTableRule()) ParseColumn();
  } while (m_cursor.Accept(",") && !m_cursor.Is(")"));
  m_cursor.Expect(")");

  std::vector<std::string> lines;
  const bool hasSoleKey =
      std::any_of(m_columns.begin(), m_columns.end(), [&](const Column& c) { return IsSoleKey(c); });
  for (const Column& column : m_columns) lines.push_back(ColumnSql(column));
  for (const Column& column : m_columns) {
    if (column.isIdentity && !IsSoleKey(column))
      m_cursor.FailUnsupported("IDENTITY on a column that is not the primary key");
  }
  if (!m_primaryKey.empty() && !hasSoleKey) {
    lines.push_back(fmt::format("PRIMARY KEY ({})", fmt::join(m_primaryKey, ", ")));
  }
  lines.insert(lines.end(), m_rules.begin(), m_rules.end());
  return fmt::format("CREATE TABLE {} (\n  {}\n)", QuoteName(table), fmt::join(lines, ",\n  "));
}

/// A constraint of the whole table; false when a column stands there.
bool TableTranslator::ParseTableRule() {
  if (m_cursor.Accept("CONSTRAINT")) m_cursor.SkipName();
  if (m_cursor.AcceptAll({"PRIMARY", "KEY"})) {
    SkipClustering();
    m_primaryKey = ParseColumnNames(true);
  } else if (m_cursor.Is("UNIQUE")) {
    m_cursor.Take();
    SkipClustering();
    m_rules.push_back(fmt::format("UNIQUE ({})", fmt::join(ParseColumnNames(true), ", ")));
  } else if (m_cursor.AcceptAll({"FOREIGN", "KEY"})) {
    const auto columns = ParseColumnNames();
    m_cursor.Expect("REFERENCES");
    m_rules.push_back(fmt::format("FOREIGN KEY ({}) {}", fmt::join(columns, ", "), ParseReferences()));
  } else if (m_cursor.Accept("CHECK")) {
    m_rules.push_back(ParseCheck());
  } else {
    return false;
  }
  return true;
}

void TableTranslator::ParseColumn() {
  Column column;
  column.name = m_cursor.ExpectName();
  column.type = ParseType(m_cursor);
  while (ParseColumnRule(column)) {
  }
  if (column.isPrimaryKey) m_primaryKey = {QuoteName(column.name)};
  m_columns.push_back(std::move(column));
}

/// One clause behind a column's type; false when there is none.
bool TableTranslator::ParseColumnRule(Column& column) {
  if (m_cursor.Accept("CONSTRAINT")) m_cursor.SkipName();
  if (m_cursor.AcceptAll({"NOT", "NULL"})) {
    column.isNotNull = true;
  } else if (m_cursor.Accept("NULL")) {
    column.isNotNull = false;
  } else if (m_cursor.Accept("IDENTITY")) {
    SkipIdentitySeed();
    column.isIdentity = true;
  } else if (m_cursor.AcceptAll({"PRIMARY", "KEY"})) {
    SkipClustering();
    column.isPrimaryKey = true;
  } else if (m_cursor.Accept("UNIQUE")) {
    SkipClustering();
    column.isUnique = true;
  } else if (m_cursor.Accept("DEFAULT")) {
    column.extra += " DEFAULT " + ParseConstant();
  } else if (m_cursor.Accept("REFERENCES")) {
    column.extra += " " + ParseReferences();
  } else if (m_cursor.Accept("CHECK")) {
    column.extra += " " + ParseCheck();
  } else if (m_cursor.Accept("COLLATE")) {
    m_cursor.SkipName();
  } else {
    return false;
  }
  return true;
}

void TableTranslator::SkipIdentitySeed() {
  if (!m_cursor.Accept("(")) return;
  const bool isPlain = m_cursor.Take().text == "1" && m_cursor.Accept(",") && m_cursor.Take().text == "1";
  if (!isPlain) m_cursor.FailUnsupported("an IDENTITY other than (1, 1)");
  m_cursor.Expect(")");
}

void TableTranslator::SkipClustering() {
  if (!m_cursor.Accept("CLUSTERED")) m_cursor.Accept("NONCLUSTERED");
}

std::string TableTranslator::ParseReferences() {
  std::string sql = "REFERENCES " + QuoteName(m_cursor.ExpectObjectName());
  if (m_cursor.Is("(")) sql += fmt::format(" ({})", fmt::join(ParseColumnNames(), ", "));
  while (m_cursor.Is("ON") && m_cursor.IsAny({"DELETE", "UPDATE"}, 1)) {
    m_cursor.Take();
    const std::string event = m_cursor.Take().text;
    const bool cascades = m_cursor.Accept("CASCADE");
    if (!cascades && !m_cursor.AcceptAll({"NO", "ACTION"})) m_cursor.Fail();
    sql += fmt::format(" ON {} {}", event, cascades ? "CASCADE" : "NO ACTION");
  }
  return sql;
}

/// A default: an expression, always in brackets for SQLite.
std::string TableTranslator::ParseConstant() {
  const std::vector<Variable> none;
  return fmt::format("({})", QueryTranslator(m_cursor, none).ParseExpression().sql);
}

std::string TableTranslator::ParseCheck() {
  m_cursor.Expect("(");
  const std::vector<Variable> none;
  const std::string condition = QueryTranslator(m_cursor, none).ParseExpression().sql;
  m_cursor.Expect(")");
  return fmt::format("CHECK ({})", condition);
}

std::vector<std::string> TableTranslator::ParseColumnNames(bool allowsDirection) {
  std::vector<std::string> names;
  m_cursor.Expect("(");
  do {
    std::string name = QuoteName(m_cursor.ExpectName());
    if (allowsDirection && m_cursor.Accept("DESC")) name += " DESC";
    if (allowsDirection) m_cursor.Accept("ASC");
    names.push_back(std::move(name));
  } while (m_cursor.Accept(","));
  m_cursor.Expect(")");
  return names;
}

/// A single whole-number key is SQLite's row number, the fastest key it has.
bool TableTranslator::IsSoleKey(const Column& column) const {
  return m_primaryKey.size() == 1 && EqualIgnoringCase(m_primaryKey.front(), QuoteName(column.name)) &&
         column.type.type == DataType::Integer;
}

std::string TableTranslator::ColumnSql(const Column& column) const {
  std::string sql = QuoteName(column.name) + " ";
  if (IsSoleKey(column)) {
    // AUTOINCREMENT never gives a key twice, as IDENTITY does not.
    sql += fmt::format("INTEGER PRIMARY KEY{}", column.isIdentity ? " AUTOINCREMENT" : "");
  } else {
    sql += column.type.declaration;
  }
  if (column.isNotNull) sql += " NOT NULL";
  if (column.isUnique) sql += " UNIQUE";
  if (IsTextType(column.type.type)) sql += " COLLATE NOCASE";
  return sql + column.extra + TypeRule(column);
}

/// The check that stands for the type; its name tells SQLSTATE and rule (see ThrowDriverError).
std::string TableTranslator::TypeRule(const Column& column) {
  const std::string name = QuoteName(column.name);
  const auto rule = [](std::string_view sqlState, const std::string& text, const std::string& condition) {
    return fmt::format(" CONSTRAINT {} CHECK ({})", QuoteName(fmt::format("{} {}", sqlState, text)), condition);
  };
  IntegerRange range{};
  if (FindIntegerRange(column.type, range)) {
    return rule(kNumberOutOfRange,
                fmt::format("{} holds whole numbers from {} to {}", column.name, range.lowest, range.highest),
                fmt::format("{} BETWEEN {} AND {}", name, range.lowest, range.highest));
  }
  if (column.type.type == DataType::DBTimeStamp) {
    return rule(kNotADate, column.name + " holds a date and time", name + " LIKE '____-__-__ __:__:__.___'");
  }
  if (!IsTextType(column.type.type) || column.type.size == 0) return {};
  return rule(kTextTooLong, fmt::format("{} holds at most {} characters", column.name, column.type.size),
              fmt::format("length({}) <= {}", name, column.type.size));
}

std::string TableTranslator::ParseCreateIndex(bool isUnique) {
  const std::string index = m_cursor.ExpectName();
  m_cursor.Expect("ON");
  const std::string table = m_cursor.ExpectObjectName();
  const auto columns = ParseColumnNames(true);
  if (m_cursor.Accept("INCLUDE")) (void)ParseColumnNames();
  return fmt::format("CREATE {}INDEX {} ON {} ({})", isUnique ? "UNIQUE " : "", IndexName(table, index),
                     QuoteName(table), fmt::join(columns, ", "));
}

std::string TableTranslator::ParseDropTable() { return "DROP TABLE " + QuoteName(m_cursor.ExpectObjectName()); }

std::string TableTranslator::ParseDropIndex() {
  const std::string index = m_cursor.ExpectName();
  m_cursor.Expect("ON");
  return "DROP INDEX " + IndexName(m_cursor.ExpectObjectName(), index);
}

}  // namespace quorvel::ado::embedded
