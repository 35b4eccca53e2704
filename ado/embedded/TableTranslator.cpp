// A table is read whole before it is written: a constraint at the end can make a column at the beginning the key.
#include "ado/embedded/TableTranslator.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "ado/embedded/Quoting.h"
#include "ado/embedded/StatementTranslator.h"
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
  return fmt::format("CREATE TABLE {} (\n  {}\n)", QuoteName(table), fmt::join(Definitions(), ",\n  "));
}

std::string TableTranslator::ParseAlterTable() {
  const std::string table = m_cursor.ExpectObjectName();
  if (!m_cursor.Accept("ADD")) m_cursor.FailUnsupported("ALTER TABLE other than ADD");
  ParseColumn();
  const ColumnDefinition& column = m_columns.front();
  if (column.isIdentity || column.isPrimaryKey || column.isUnique) {
    m_cursor.FailUnsupported("a key or UNIQUE column in ALTER TABLE");
  }
  return fmt::format("ALTER TABLE {} ADD COLUMN {}", QuoteName(table), column.Sql(false));
}

/// The columns and constraints in SQLite's SQL.
std::vector<std::string> TableTranslator::Definitions() const {
  std::vector<std::string> lines;
  bool hasSoleKey = false;
  for (const ColumnDefinition& column : m_columns) {
    const bool isSoleKey = IsSoleKey(column);
    if (column.isIdentity && !isSoleKey) {
      m_cursor.FailUnsupported("IDENTITY on a column that is not the primary key");
    }
    hasSoleKey = hasSoleKey || isSoleKey;
    lines.push_back(column.Sql(isSoleKey));
  }
  if (!m_primaryKey.empty() && !hasSoleKey) {
    lines.push_back(fmt::format("PRIMARY KEY ({})", fmt::join(m_primaryKey, ", ")));
  }
  lines.insert(lines.end(), m_rules.begin(), m_rules.end());
  return lines;
}

/// A constraint of the whole table; false when a column is at the cursor.
bool TableTranslator::ParseTableRule() {
  if (m_cursor.Accept("CONSTRAINT")) m_cursor.SkipName();
  if (m_cursor.AcceptAll({"PRIMARY", "KEY"})) {
    SkipClustering();
    m_primaryKey = ParseColumnNames(true);
  } else if (m_cursor.Accept("UNIQUE")) {
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
  ColumnDefinition column;
  column.name = m_cursor.ExpectName();
  column.type = ParseType(m_cursor);
  while (ParseColumnRule(column)) {
  }
  if (column.isPrimaryKey) m_primaryKey = {QuoteName(column.name)};
  m_columns.push_back(std::move(column));
}

/// One clause after a column's type; false when there is none.
bool TableTranslator::ParseColumnRule(ColumnDefinition& column) {
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
    column.clauses += " " + ParseDefault();
  } else if (m_cursor.Accept("REFERENCES")) {
    column.clauses += " " + ParseReferences();
  } else if (m_cursor.Accept("CHECK")) {
    column.clauses += " " + ParseCheck();
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

/// SQLite takes an expression as a default only in brackets.
std::string TableTranslator::ParseDefault() { return fmt::format("DEFAULT ({})", ParseExpression()); }

std::string TableTranslator::ParseCheck() {
  m_cursor.Expect("(");
  const std::string condition = ParseExpression();
  m_cursor.Expect(")");
  return fmt::format("CHECK ({})", condition);
}

std::string TableTranslator::ParseExpression() {
  const std::vector<Variable> none;
  return StatementTranslator(m_cursor, none).ParseExpression().sql;
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
bool TableTranslator::IsSoleKey(const ColumnDefinition& column) const {
  return m_primaryKey.size() == 1 && EqualIgnoringCase(m_primaryKey.front(), QuoteName(column.name)) &&
         column.type.type == DataType::Integer;
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
