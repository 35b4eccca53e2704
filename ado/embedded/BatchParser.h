#pragma once

#include <string>
#include <string_view>

#include "ado/embedded/Catalog.h"
#include "ado/embedded/Program.h"
#include "ado/embedded/QueryTranslator.h"
#include "ado/embedded/TokenCursor.h"

namespace quorvel::ado::embedded {

/// Turns a T-SQL batch into a Program. DriverError, with its line, where the text is not of the subset that
/// the engine takes.
class BatchParser {
 public:
  BatchParser(std::string_view batch, const Catalog& catalog) : m_cursor(batch), m_catalog(catalog) {}

  [[nodiscard]] Program ParseBatch();
  /// The parameters and body of a CREATE PROCEDURE or ALTER PROCEDURE.
  [[nodiscard]] Program ParseProcedure();

 private:
  void ParseStatements(Block& block);
  void ParseStatement(Block& block);
  bool ParseFlow(Block& block);
  bool ParseData(Block& block);
  bool ParseDefinition(Block& block);

  void ParseDeclare(Block& block);
  void ParseSet(Block& block);
  void ParseBegin(Block& block);
  void ParseBranch(Block& block, bool repeats);
  void ParseExecute(Block& block);
  CallStep::Passed ParsePassed(QueryTranslator& translator);
  void ParseInsert(Block& block);
  void ParseUpdate(Block& block);
  void ParseDelete(Block& block);
  void ParseDefineProcedure(Block& block, DefineProcedureStep::Mode mode);
  void ParseParameter();
  [[nodiscard]] Variable ParseVariable();
  std::vector<std::string> ParseInsertColumns();
  std::string ParseRow(QueryTranslator& translator, const std::string& table, const std::vector<std::string>& columns);
  [[nodiscard]] std::string Dressed(const std::string& sql, const std::string& table,
                                    const std::vector<std::string>& columns, std::size_t position) const;

  [[nodiscard]] QueryTranslator Translator() { return {m_cursor, m_program.variables}; }
  void AddSql(Block& block, int line, std::string sql);
  /// SELECT of one expression.
  [[nodiscard]] Query ParseScalar();

  TokenCursor m_cursor;
  const Catalog& m_catalog;
  Program m_program;
};

}  // namespace quorvel::ado::embedded
