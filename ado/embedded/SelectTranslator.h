#pragma once

#include <string>

#include "ado/embedded/JoinTranslator.h"
#include "ado/embedded/Select.h"
#include "ado/embedded/StatementParts.h"
#include "ado/embedded/TokenCursor.h"
#include "ado/embedded/VariableReferences.h"

namespace quorvel::ado::embedded {

/// Turns a T-SQL SELECT at the cursor into SQLite's SQL: UNION, TOP, the select list, GROUP BY and ORDER BY. Its FROM
/// clause is the JoinTranslator's.
class SelectTranslator {
 public:
  SelectTranslator(TokenCursor& cursor, const VariableReferences& variables, StatementParts& parts)
      : m_cursor(cursor), m_variables(variables), m_parts(parts), m_joins(cursor, parts) {}

  [[nodiscard]] Select ParseSelect();

 private:
  Select ParseCore();
  std::string ParseUnion();
  std::string ParseTop();
  Select::Item ParseItem();

  TokenCursor& m_cursor;
  const VariableReferences& m_variables;
  StatementParts& m_parts;
  JoinTranslator m_joins;
};

}  // namespace quorvel::ado::embedded
