#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ado/embedded/SqlType.h"
#include "ado/embedded/TokenCursor.h"

namespace quorvel::ado::embedded {

/// Turns CREATE TABLE, CREATE INDEX and their DROPs at the cursor into SQLite's. A column's type becomes a check
/// that refuses what a server would refuse: SQLite by itself lets any value into any column.
class TableTranslator {
 public:
  explicit TableTranslator(TokenCursor& cursor) : m_cursor(cursor) {}

  /// After CREATE TABLE.
  [[nodiscard]] std::string ParseCreateTable();
  /// After CREATE [UNIQUE] INDEX.
  [[nodiscard]] std::string ParseCreateIndex(bool isUnique);
  /// After DROP TABLE / DROP INDEX.
  [[nodiscard]] std::string ParseDropTable();
  [[nodiscard]] std::string ParseDropIndex();

 private:
  struct Column {
    std::string name;
    SqlType type;
    bool isNotNull = false;
    bool isIdentity = false;
    bool isPrimaryKey = false;
    bool isUnique = false;
    std::string extra;  ///< DEFAULT, REFERENCES and CHECK clauses
  };
  void ParseColumn();
  bool ParseColumnRule(Column& column);
  bool ParseTableRule();
  void SkipIdentitySeed();
  void SkipClustering();
  std::string ParseReferences();
  std::string ParseConstant();
  std::string ParseCheck();
  std::vector<std::string> ParseColumnNames(bool allowsDirection = false);

  [[nodiscard]] bool IsSoleKey(const Column& column) const;
  [[nodiscard]] std::string ColumnSql(const Column& column) const;
  [[nodiscard]] static std::string TypeRule(const Column& column);

  TokenCursor& m_cursor;
  std::vector<Column> m_columns;
  std::vector<std::string> m_primaryKey;
  std::vector<std::string> m_rules;  ///< table constraints in SQLite's SQL
};

}  // namespace quorvel::ado::embedded
