#pragma once

#include <vector>

#include "ado/embedded/Program.h"
#include "ado/embedded/TokenCursor.h"

namespace quorvel::ado::embedded {

/// Parses what follows EXEC: a procedure with its arguments, or a text in brackets.
class ExecuteParser {
 public:
  ExecuteParser(TokenCursor& cursor, const std::vector<Variable>& variables)
      : m_cursor(cursor), m_variables(variables) {}

  [[nodiscard]] Step Parse();

 private:
  CallStep ParseCall();
  CallStep::Argument ParseArgument();
  [[nodiscard]] bool IsArgument() const;

  TokenCursor& m_cursor;
  const std::vector<Variable>& m_variables;
};

}  // namespace quorvel::ado::embedded
