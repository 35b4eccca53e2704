// Statements are translated while they are parsed. Each function appends the steps of its statement to the block that
// the statement is in.
#include "ado/embedded/BatchParser.h"

#include "ado/embedded/DataStatementParser.h"
#include "ado/embedded/DefinitionParser.h"
#include "ado/embedded/ExecuteParser.h"
#include "ado/embedded/StatementTranslator.h"

namespace quorvel::ado::embedded {

BatchParser::BatchParser(TokenCursor cursor, const Catalog& catalog, std::vector<Variable> parameters)
    : m_cursor(std::move(cursor)), m_catalog(catalog) {
  m_program.parameterCount = parameters.size();
  m_program.variables = std::move(parameters);
}

Program BatchParser::Parse() {
  ParseStatements(m_program.steps);
  if (!m_cursor.AtEnd()) m_cursor.Fail();
  return std::move(m_program);
}

/// Up to END or the end of the batch.
void BatchParser::ParseStatements(Block& block) {
  for (;;) {
    while (m_cursor.Accept(";")) {
    }
    if (m_cursor.AtEnd() || m_cursor.Is("END")) return;
    ParseStatement(block);
  }
}

void BatchParser::ParseStatement(Block& block) {
  const auto guard = m_cursor.EnterNesting();
  if (!m_cursor.IsAny({"SELECT", "SET", "DECLARE", "IF", "RETURN"})) m_program.onlyReads = false;
  if (ParseControl(block) || ParseTransactionEnd(block) || ParseMessage(block)) return;
  if (m_cursor.Accept("EXEC") || m_cursor.Accept("EXECUTE")) {
    block.push_back(ExecuteParser(m_cursor, m_program.variables).Parse());
  } else if (auto data = DataStatementParser(m_cursor, m_catalog, m_program.variables).Parse()) {
    block.push_back(std::move(*data));
  } else if (auto definition = DefinitionParser(m_cursor).Parse(&block == &m_program.steps && block.empty())) {
    block.push_back(std::move(*definition));
  } else {
    m_cursor.Fail();
  }
}

bool BatchParser::ParseControl(Block& block) {
  const int line = m_cursor.Peek().line;
  if (m_cursor.Accept("DECLARE")) {
    ParseDeclare(block);
  } else if (m_cursor.Accept("SET")) {
    ParseSet(block);
  } else if (m_cursor.Accept("BEGIN")) {
    ParseBegin(block);
  } else if (m_cursor.Accept("IF")) {
    ParseBranch(block, false);
  } else if (m_cursor.Accept("WHILE")) {
    ParseBranch(block, true);
  } else if (m_cursor.Accept("RETURN")) {
    ParseReturn(block, line);
  } else {
    return false;
  }
  return true;
}

bool BatchParser::ParseTransactionEnd(Block& block) {
  const int line = m_cursor.Peek().line;
  const bool commits = m_cursor.Accept("COMMIT");
  if (!commits && !m_cursor.Accept("ROLLBACK")) return false;
  (void)AcceptTransaction();
  block.push_back({line, TransactionStep{commits ? TransactionAction::Commit : TransactionAction::Rollback}});
  return true;
}

/// RAISERROR, and PRINT, which has no effect here.
bool BatchParser::ParseMessage(Block& block) {
  const int line = m_cursor.Peek().line;
  if (m_cursor.Accept("PRINT")) {
    (void)ParseScalar();
    return true;
  }
  if (!m_cursor.AcceptAll({"RAISERROR", "("})) return false;
  block.push_back({line, RaiseStep{ParseScalar()}});
  while (m_cursor.Accept(",")) m_cursor.Take();
  m_cursor.Expect(")");
  return true;
}

void BatchParser::ParseDeclare(Block& block) {
  do {
    const int line = m_cursor.Peek().line;
    m_program.variables.push_back(ParseVariable(m_cursor));
    if (m_cursor.Accept("=")) block.push_back({line, QueryStep{ParseScalar(), {m_program.variables.size() - 1}}});
  } while (m_cursor.Accept(","));
}

void BatchParser::ParseSet(Block& block) {
  if (m_cursor.Peek().kind == TokenKind::Variable) {
    ParseAssignment(block);
  } else {
    SkipOption();
  }
}

/// SET @variable = expression
void BatchParser::ParseAssignment(Block& block) {
  const Token variable = m_cursor.Take();
  const std::size_t target = StatementTranslator(m_cursor, m_program.variables).FindVariable(variable.text);
  m_cursor.Expect("=");
  block.push_back({variable.line, QueryStep{ParseScalar(), {target}}});
}

/// Options of a server's session, such as SET NOCOUNT ON, have no meaning here.
void BatchParser::SkipOption() {
  if (m_cursor.AcceptAll({"TRANSACTION", "ISOLATION", "LEVEL"})) {
    if (m_cursor.Take().text != "SERIALIZABLE" && m_cursor.IsAny({"COMMITTED", "UNCOMMITTED", "READ"})) m_cursor.Take();
    return;
  }
  while (m_cursor.IsName()) m_cursor.Take();
  if (!m_cursor.Accept("ON")) m_cursor.Expect("OFF");
}

/// BEGIN TRANSACTION, or a block up to END.
void BatchParser::ParseBegin(Block& block) {
  const int line = m_cursor.Peek().line;
  if (AcceptTransaction()) {
    block.push_back({line, TransactionStep{TransactionAction::Begin}});
    return;
  }
  if (m_cursor.IsAny({"TRY", "CATCH"})) m_cursor.FailUnsupported("TRY and CATCH");
  ParseStatements(block);
  m_cursor.Expect("END");
}

bool BatchParser::AcceptTransaction() { return m_cursor.Accept("TRANSACTION") || m_cursor.Accept("TRAN"); }

void BatchParser::ParseBranch(Block& block, bool repeats) {
  const int line = m_cursor.Peek().line;
  BranchStep branch;
  branch.condition = ParseScalar();
  branch.repeats = repeats;
  ParseStatement(branch.then);
  m_cursor.Accept(";");
  if (!repeats && m_cursor.Accept("ELSE")) ParseStatement(branch.otherwise);
  block.push_back({line, std::move(branch)});
}

/// The value that a procedure returns is not kept.
void BatchParser::ParseReturn(Block& block, int line) {
  const TokenKind kind = m_cursor.Peek().kind;
  if (kind == TokenKind::Number || kind == TokenKind::Variable || m_cursor.IsAny({"-", "("})) (void)ParseScalar();
  block.push_back({line, ReturnStep{}});
}

Query BatchParser::ParseScalar() { return StatementTranslator(m_cursor, m_program.variables).ParseScalar(); }

}  // namespace quorvel::ado::embedded
