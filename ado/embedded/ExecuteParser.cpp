#include "ado/embedded/ExecuteParser.h"

#include "ado/embedded/StatementTranslator.h"

namespace quorvel::ado::embedded {

Step ExecuteParser::Parse() {
  const int line = m_cursor.Peek().line;
  if (!m_cursor.Accept("(")) return {line, ParseCall()};
  Step step{line, ExecuteTextStep{StatementTranslator(m_cursor, m_variables).ParseScalar()}};
  m_cursor.Expect(")");
  return step;
}

CallStep ExecuteParser::ParseCall() {
  CallStep call;
  call.procedure = m_cursor.ExpectObjectName();
  if (!IsArgument()) return call;
  do {
    call.arguments.push_back(ParseArgument());
  } while (m_cursor.Accept(","));
  return call;
}

bool ExecuteParser::IsArgument() const {
  const TokenKind kind = m_cursor.Peek().kind;
  return kind == TokenKind::Variable || kind == TokenKind::Text || kind == TokenKind::Number ||
         m_cursor.IsAny({"-", "NULL", "DEFAULT"});
}

/// `[@parameter =] value [OUTPUT]`
CallStep::Argument ExecuteParser::ParseArgument() {
  CallStep::Argument argument;
  if (m_cursor.Peek().kind == TokenKind::Variable && m_cursor.Is("=", 1)) {
    argument.name = m_cursor.Take().text;
    m_cursor.Expect("=");
  }
  if (m_cursor.Accept("DEFAULT")) return argument;
  const Token first = m_cursor.Peek();
  StatementTranslator translator(m_cursor, m_variables);
  argument.value = translator.ParseScalar();
  if (m_cursor.Accept("OUTPUT") || m_cursor.Accept("OUT")) argument.output = translator.FindVariable(first.text);
  return argument;
}

}  // namespace quorvel::ado::embedded
