#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ado/embedded/Catalog.h"
#include "ado/embedded/Program.h"
#include "ado/embedded/StatementTranslator.h"
#include "ado/embedded/TokenCursor.h"

namespace quorvel::ado::embedded {

/// Parses one statement that reads or changes rows: SELECT, INSERT, UPDATE or DELETE.
class DataStatementParser {
 public:
  DataStatementParser(TokenCursor& cursor, const Catalog& catalog, const std::vector<Variable>& variables)
      : m_cursor(cursor), m_catalog(catalog), m_translator(cursor, variables) {}

  /// Nothing when another kind of statement is at the cursor.
  [[nodiscard]] std::optional<Step> Parse();

 private:
  /// The target of the values of INSERT and UPDATE. Without columns: all columns of the table, in its order.
  struct Target {
    std::string table;
    std::vector<std::string> columns;
  };
  Step ParseSelect();
  Step ParseInsert();
  Step ParseUpdate();
  Step ParseDelete();
  std::vector<std::string> ParseInsertColumns();
  std::string ParseInsertedRows(const Target& target);
  std::string ParseInsertedRow(const Target& target);
  [[nodiscard]] std::string Stored(const std::string& value, const Target& target, std::size_t position) const;
  [[nodiscard]] Step Finish(int line, std::string sql) const;

  TokenCursor& m_cursor;
  const Catalog& m_catalog;
  StatementTranslator m_translator;
};

}  // namespace quorvel::ado::embedded
