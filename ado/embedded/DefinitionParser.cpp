#include "ado/embedded/DefinitionParser.h"

#include <fmt/format.h>

#include "ado/embedded/TableTranslator.h"
#include "ado/engine/DriverError.h"

namespace quorvel::ado::embedded {

std::optional<Step> DefinitionParser::Parse(bool isFirst) {
  using Mode = DefineProcedureStep::Mode;
  for (const auto& [verb, mode] : {std::pair{"CREATE", Mode::Create}, {"ALTER", Mode::Alter}, {"DROP", Mode::Drop}}) {
    if (m_cursor.Is(verb) && m_cursor.IsAny({"PROCEDURE", "PROC"}, 1)) return ParseProcedure(mode, isFirst);
  }
  const int line = m_cursor.Peek().line;
  if (auto sql = ParseTableOrIndex()) return Step{line, QueryStep{Query(std::move(*sql), {}), {}}};
  return std::nullopt;
}

/// CREATE and ALTER PROCEDURE take the rest of the batch, and must begin it, as on a server.
Step DefinitionParser::ParseProcedure(DefineProcedureStep::Mode mode, bool isFirst) {
  const Token verb = m_cursor.Take();
  m_cursor.Take();
  DefineProcedureStep step{mode, m_cursor.ExpectObjectName(), {}, verb.line};
  if (mode != DefineProcedureStep::Mode::Drop) {
    if (!isFirst) {
      throw DriverError("42000", 111, "CREATE or ALTER PROCEDURE must be the first statement in a batch.", verb.line);
    }
    step.definition = m_cursor.Batch().substr(verb.offset);
    m_cursor.SkipToEnd();
  }
  return {verb.line, std::move(step)};
}

std::optional<std::string> DefinitionParser::ParseTableOrIndex() {
  if (m_cursor.AcceptAll({"CREATE", "TABLE"})) return TableTranslator(m_cursor).ParseCreateTable();
  if (m_cursor.AcceptAll({"ALTER", "TABLE"})) return TableTranslator(m_cursor).ParseAlterTable();
  if (m_cursor.AcceptAll({"DROP", "TABLE"})) return TableTranslator(m_cursor).ParseDropTable();
  if (m_cursor.AcceptAll({"DROP", "INDEX"})) return TableTranslator(m_cursor).ParseDropIndex();
  if (m_cursor.Accept("CREATE")) return ParseCreateIndex();
  return std::nullopt;
}

std::string DefinitionParser::ParseCreateIndex() {
  const bool isUnique = m_cursor.Accept("UNIQUE");
  if (!m_cursor.Accept("CLUSTERED")) m_cursor.Accept("NONCLUSTERED");
  if (!m_cursor.Accept("INDEX")) m_cursor.FailUnsupported(fmt::format("CREATE {}", m_cursor.Peek().text));
  return TableTranslator(m_cursor).ParseCreateIndex(isUnique);
}

}  // namespace quorvel::ado::embedded
