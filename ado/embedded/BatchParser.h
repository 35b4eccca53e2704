#pragma once

#include <optional>
#include <vector>

#include "ado/embedded/Catalog.h"
#include "ado/embedded/Program.h"
#include "ado/embedded/TokenCursor.h"

namespace quorvel::ado::embedded {

/// Turns a T-SQL batch, or the body of a procedure, into a Program. Control flow, variables and transactions are read
/// here, every other statement by the parser of its kind.
class BatchParser {
 public:
  BatchParser(TokenCursor cursor, const Catalog& catalog, std::vector<Variable> parameters = {});

  /// Reads the whole text; to be called once. DriverError, with its line, when the text is not of the subset that the
  /// engine takes.
  [[nodiscard]] Program Parse();

 private:
  void ParseStatements(Block& block);
  void ParseStatement(Block& block);
  bool ParseControl(Block& block);
  bool ParseTransactionEnd(Block& block);
  bool ParseMessage(Block& block);

  void ParseDeclare(Block& block);
  void ParseSet(Block& block);
  void ParseAssignment(Block& block);
  void SkipOption();
  void ParseBegin(Block& block);
  void ParseBranch(Block& block, bool repeats);
  void ParseReturn(Block& block, int line);
  bool AcceptTransaction();
  [[nodiscard]] Query ParseScalar();

  TokenCursor m_cursor;
  const Catalog& m_catalog;
  Program m_program;
};

}  // namespace quorvel::ado::embedded
