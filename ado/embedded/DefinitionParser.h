#pragma once

#include <optional>

#include "ado/embedded/Program.h"
#include "ado/embedded/TokenCursor.h"

namespace quorvel::ado::embedded {

/// Parses one statement that defines something: CREATE and DROP of tables and indexes, CREATE, ALTER and DROP of
/// procedures. A procedure's own text is left to ProcedureParser, which reads it when the procedure is needed.
class DefinitionParser {
 public:
  explicit DefinitionParser(TokenCursor& cursor) : m_cursor(cursor) {}

  /// Nothing when another kind of statement is at the cursor. `isFirst`: the statement is the first of its batch.
  [[nodiscard]] std::optional<Step> Parse(bool isFirst);

 private:
  Step ParseProcedure(DefineProcedureStep::Mode mode, bool isFirst);
  std::optional<std::string> ParseTableOrIndex();
  std::string ParseCreateIndex();

  TokenCursor& m_cursor;
};

}  // namespace quorvel::ado::embedded
