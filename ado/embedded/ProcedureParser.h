#pragma once

#include <string_view>
#include <vector>

#include "ado/embedded/Catalog.h"
#include "ado/embedded/Program.h"
#include "ado/embedded/TokenCursor.h"

namespace quorvel::ado::embedded {

/// Turns a whole CREATE PROCEDURE or ALTER PROCEDURE into a Program. It reads the parameters, BatchParser the body.
class ProcedureParser {
 public:
  ProcedureParser(std::string_view definition, const Catalog& catalog) : m_cursor(definition), m_catalog(catalog) {}

  /// Reads the whole text; to be called once. DriverError, with its line, when the text is not of the subset that the
  /// engine takes.
  [[nodiscard]] Program Parse();

 private:
  void ParseParameters();
  [[nodiscard]] Variable ParseParameter();
  [[nodiscard]] Value ParseDefault(const ParameterInfo& parameter);

  TokenCursor m_cursor;
  const Catalog& m_catalog;
  std::vector<Variable> m_parameters;
};

}  // namespace quorvel::ado::embedded
