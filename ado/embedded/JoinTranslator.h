#pragma once

#include <string>

#include "ado/embedded/StatementParts.h"
#include "ado/embedded/TokenCursor.h"

namespace quorvel::ado::embedded {

/// Turns the FROM clause at the cursor into SQLite's SQL: tables, subqueries and how joins nest.
class JoinTranslator {
 public:
  JoinTranslator(TokenCursor& cursor, StatementParts& parts) : m_cursor(cursor), m_parts(parts) {}

  /// " FROM sources", or nothing. With `keepsColumnOrder` a bare * in the select list gives the columns as they stand.
  [[nodiscard]] std::string ParseFrom(bool keepsColumnOrder);

 private:
  std::string ParseSource();
  std::string ParseJoin(const std::string& left);
  std::string ParseTable();
  [[nodiscard]] bool IsJoin() const;

  TokenCursor& m_cursor;
  StatementParts& m_parts;
  bool m_keepsColumnOrder = false;
};

}  // namespace quorvel::ado::embedded
