#include "ado/embedded/ProcedureParser.h"

#include "ado/embedded/BatchParser.h"

namespace quorvel::ado::embedded {

Program ProcedureParser::Parse() {
  if (!m_cursor.Accept("CREATE")) m_cursor.Expect("ALTER");
  m_cursor.Take();
  (void)m_cursor.ExpectObjectName();
  ParseParameters();
  if (m_cursor.Accept("WITH")) m_cursor.FailUnsupported("options of a procedure");
  m_cursor.Expect("AS");
  return BatchParser(std::move(m_cursor), m_catalog, std::move(m_parameters)).Parse();
}

void ProcedureParser::ParseParameters() {
  const bool isBracketed = m_cursor.Accept("(");
  if (m_cursor.Peek().kind == TokenKind::Variable) {
    do {
      m_parameters.push_back(ParseParameter());
    } while (m_cursor.Accept(","));
  }
  if (isBracketed) m_cursor.Expect(")");
}

/// `@name type [= default] [OUTPUT]`
Variable ProcedureParser::ParseParameter() {
  Variable parameter = ParseVariable(m_cursor);
  if (m_cursor.Accept("=")) parameter.defaultValue = ParseDefault(parameter.info);
  if (m_cursor.Accept("OUTPUT") || m_cursor.Accept("OUT")) parameter.info.direction = ParameterDirection::InputOutput;
  return parameter;
}

Value ProcedureParser::ParseDefault(const ParameterInfo& parameter) {
  const bool isNegative = m_cursor.Accept("-");
  const Token value = m_cursor.Take();
  if (value.kind == TokenKind::Number) return CoerceVariable((isNegative ? "-" : "") + value.text, parameter);
  if (value.kind == TokenKind::Text) return value.text;
  return Null{};
}

}  // namespace quorvel::ado::embedded
