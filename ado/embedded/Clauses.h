#pragma once

#include <string>

#include "ado/embedded/StatementParts.h"
#include "ado/embedded/TokenCursor.h"

namespace quorvel::ado::embedded {

/// `expression, expression ...`
[[nodiscard]] std::string ParseExpressionList(TokenCursor& cursor, StatementParts& parts);
/// " WHERE condition", or nothing.
[[nodiscard]] std::string ParseWhere(TokenCursor& cursor, StatementParts& parts);
/// "ORDER BY key [DESC], ..."
[[nodiscard]] std::string ParseOrderBy(TokenCursor& cursor, StatementParts& parts);

/// The name that a column or table gets, with AS or without; empty when it gets none.
[[nodiscard]] std::string ParseAlias(TokenCursor& cursor);
/// A table's name and its locking hints, which are dropped.
[[nodiscard]] std::string ParseTableName(TokenCursor& cursor);
/// Locking hints are for a server: in the embedded engine a writer locks the whole file.
void SkipTableHints(TokenCursor& cursor);

}  // namespace quorvel::ado::embedded
