#pragma once

#include <string>
#include <vector>

#include "ado/embedded/ColumnDefinition.h"
#include "ado/embedded/TokenCursor.h"

namespace quorvel::ado::embedded {

/// Turns CREATE TABLE, ALTER TABLE, CREATE INDEX and the DROPs at the cursor into SQLite's.
class TableTranslator {
 public:
  explicit TableTranslator(TokenCursor& cursor) : m_cursor(cursor) {}

  /// After CREATE TABLE.
  [[nodiscard]] std::string ParseCreateTable();
  /// After ALTER TABLE: ADD with one column.
  [[nodiscard]] std::string ParseAlterTable();
  /// After CREATE [UNIQUE] INDEX.
  [[nodiscard]] std::string ParseCreateIndex(bool isUnique);
  /// After DROP TABLE / DROP INDEX.
  [[nodiscard]] std::string ParseDropTable();
  [[nodiscard]] std::string ParseDropIndex();

 private:
  void ParseColumn();
  bool ParseColumnRule(ColumnDefinition& column);
  bool ParseTableRule();
  void SkipIdentitySeed();
  void SkipClustering();
  std::string ParseReferences();
  std::string ParseDefault();
  std::string ParseCheck();
  std::vector<std::string> ParseColumnNames(bool allowsDirection = false);

  [[nodiscard]] std::string ParseExpression();
  [[nodiscard]] bool IsSoleKey(const ColumnDefinition& column) const;
  [[nodiscard]] std::vector<std::string> Definitions() const;

  TokenCursor& m_cursor;
  std::vector<ColumnDefinition> m_columns;
  std::vector<std::string> m_primaryKey;
  std::vector<std::string> m_rules;  ///< table constraints in SQLite's SQL
};

}  // namespace quorvel::ado::embedded
