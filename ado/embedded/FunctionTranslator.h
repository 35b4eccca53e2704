#pragma once

#include <string>
#include <vector>

#include "ado/embedded/SqlType.h"
#include "ado/embedded/StatementParts.h"
#include "ado/embedded/TokenCursor.h"

namespace quorvel::ado::embedded {

/// Turns a call of a T-SQL function at the cursor into SQLite's SQL.
class FunctionTranslator {
 public:
  FunctionTranslator(TokenCursor& cursor, StatementParts& parts) : m_cursor(cursor), m_parts(parts) {}

  /// The cursor is at the opening bracket after `name`. DriverError for a function that the engine does not know.
  [[nodiscard]] Expression ParseCall(const std::string& name);

 private:
  Expression ParseCast();
  Expression ParseConvert();
  Expression ParseObjectId();
  Expression ParseDateAdd();
  Expression ParseCoalesce();
  Expression ParseAggregate(const std::string& name);
  Expression ParsePlainFunction(const std::string& name);
  std::string ParseOver();
  std::vector<Expression> ParseArguments();

  TokenCursor& m_cursor;
  StatementParts& m_parts;
};

}  // namespace quorvel::ado::embedded
