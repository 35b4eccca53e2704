#include "ado/embedded/BatchParser.h"

#include <fmt/format.h>

#include "ado/embedded/SqlType.h"
#include "ado/embedded/TableTranslator.h"

namespace quorvel::ado::embedded {

Program BatchParser::ParseBatch() {
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
  if (!ParseFlow(block) && !ParseData(block) && !ParseDefinition(block)) m_cursor.Fail();
}

bool BatchParser::ParseFlow(Block& block) {
  const int line = m_cursor.Peek().line;
  if (m_cursor.Accept("DECLARE")) {
    ParseDeclare(block);
  } else if (m_cursor.Accept("SET")) {
    ParseSet(block);
  } else if (m_cursor.Accept("BEGIN")) {
    ParseBegin(block);
  } else if (m_cursor.Accept("COMMIT")) {
    if (!m_cursor.Accept("TRANSACTION")) m_cursor.Accept("TRAN");
    block.push_back({line, TransactionStep{TransactionAction::Commit}});
  } else if (m_cursor.Accept("ROLLBACK")) {
    if (!m_cursor.Accept("TRANSACTION")) m_cursor.Accept("TRAN");
    block.push_back({line, TransactionStep{TransactionAction::Rollback}});
  } else if (m_cursor.Accept("IF")) {
    ParseBranch(block, false);
  } else if (m_cursor.Accept("WHILE")) {
    ParseBranch(block, true);
  } else if (m_cursor.Accept("RETURN")) {
    const TokenKind kind = m_cursor.Peek().kind;
    if (kind == TokenKind::Number || kind == TokenKind::Variable || m_cursor.IsAny({"-", "("})) (void)ParseScalar();
    block.push_back({line, ReturnStep{}});
  } else if (m_cursor.Accept("PRINT")) {
    (void)ParseScalar();
  } else if (m_cursor.AcceptAll({"RAISERROR", "("})) {
    block.push_back({line, RaiseStep{ParseScalar()}});
    while (m_cursor.Accept(",")) m_cursor.Take();
    m_cursor.Expect(")");
  } else if (m_cursor.Accept("EXEC") || m_cursor.Accept("EXECUTE")) {
    ParseExecute(block);
  } else {
    return false;
  }
  return true;
}

bool BatchParser::ParseData(Block& block) {
  const int line = m_cursor.Peek().line;
  if (m_cursor.Is("SELECT")) {
    auto translator = Translator();
    const auto select = translator.ParseSelect();
    block.push_back({line, QueryStep{translator.Finish(select.Sql()), select.Targets()}});
  } else if (m_cursor.Accept("INSERT")) {
    ParseInsert(block);
  } else if (m_cursor.Accept("UPDATE")) {
    ParseUpdate(block);
  } else if (m_cursor.Accept("DELETE")) {
    ParseDelete(block);
  } else {
    return false;
  }
  return true;
}

bool BatchParser::ParseDefinition(Block& block) {
  const int line = m_cursor.Peek().line;
  using Mode = DefineProcedureStep::Mode;
  for (const auto& [verb, mode] : {std::pair{"CREATE", Mode::Create}, {"ALTER", Mode::Alter}, {"DROP", Mode::Drop}}) {
    if (!m_cursor.Is(verb) || !m_cursor.IsAny({"PROCEDURE", "PROC"}, 1)) continue;
    ParseDefineProcedure(block, mode);
    return true;
  }
  if (m_cursor.AcceptAll({"CREATE", "TABLE"})) {
    AddSql(block, line, TableTranslator(m_cursor).ParseCreateTable());
  } else if (m_cursor.AcceptAll({"DROP", "TABLE"})) {
    AddSql(block, line, TableTranslator(m_cursor).ParseDropTable());
  } else if (m_cursor.AcceptAll({"DROP", "INDEX"})) {
    AddSql(block, line, TableTranslator(m_cursor).ParseDropIndex());
  } else if (m_cursor.Accept("CREATE")) {
    const bool isUnique = m_cursor.Accept("UNIQUE");
    if (!m_cursor.Accept("CLUSTERED")) m_cursor.Accept("NONCLUSTERED");
    if (!m_cursor.Accept("INDEX")) m_cursor.FailUnsupported(fmt::format("CREATE {}", m_cursor.Peek().text));
    AddSql(block, line, TableTranslator(m_cursor).ParseCreateIndex(isUnique));
  } else {
    return false;
  }
  return true;
}

void BatchParser::AddSql(Block& block, int line, std::string sql) {
  block.push_back({line, QueryStep{Translator().Finish(std::move(sql)), {}}});
}

Query BatchParser::ParseScalar() {
  auto translator = Translator();
  const auto expression = translator.ParseExpression();
  return translator.Finish("SELECT " + expression.sql);
}

/// Name and type, as DECLARE and a procedure's parameters have them.
Variable BatchParser::ParseVariable() {
  Variable variable;
  variable.info.name = m_cursor.ExpectVariable();
  m_cursor.Accept("AS");
  const SqlType type = ParseType(m_cursor);
  variable.info.type = type.type;
  variable.info.size = type.size;
  return variable;
}

void BatchParser::ParseDeclare(Block& block) {
  do {
    const int line = m_cursor.Peek().line;
    m_program.variables.push_back(ParseVariable());
    if (m_cursor.Accept("=")) block.push_back({line, QueryStep{ParseScalar(), {m_program.variables.size() - 1}}});
  } while (m_cursor.Accept(","));
}

/// SET @variable = expression; options of a server's session mean nothing here.
void BatchParser::ParseSet(Block& block) {
  const int line = m_cursor.Peek().line;
  if (m_cursor.Peek().kind == TokenKind::Variable) {
    const std::size_t target = Translator().FindVariable(m_cursor.Take().text);
    m_cursor.Expect("=");
    block.push_back({line, QueryStep{ParseScalar(), {target}}});
    return;
  }
  if (m_cursor.AcceptAll({"TRANSACTION", "ISOLATION", "LEVEL"})) {
    if (m_cursor.Take().text != "SERIALIZABLE" && m_cursor.IsAny({"COMMITTED", "UNCOMMITTED", "READ"})) m_cursor.Take();
    return;
  }
  while (m_cursor.IsName()) m_cursor.Take();
  if (!m_cursor.Accept("ON")) m_cursor.Expect("OFF");
}

void BatchParser::ParseBegin(Block& block) {
  const int line = m_cursor.Peek().line;
  if (m_cursor.Accept("TRANSACTION") || m_cursor.Accept("TRAN")) {
    block.push_back({line, TransactionStep{TransactionAction::Begin}});
    return;
  }
  if (m_cursor.IsAny({"TRY", "CATCH"})) m_cursor.FailUnsupported("TRY and CATCH");
  ParseStatements(block);
  m_cursor.Expect("END");
}

void BatchParser::ParseBranch(Block& block, bool repeats) {
  const int line = m_cursor.Peek().line;
  BranchStep branch;
  branch.condition = ParseScalar();
  branch.repeats = repeats;
  ParseStatement(branch.then);
  m_cursor.AcceptAll({";"});
  if (!repeats && m_cursor.Accept("ELSE")) ParseStatement(branch.otherwise);
  block.push_back({line, std::move(branch)});
}

/// EXEC procedure arguments, or EXEC (text).
void BatchParser::ParseExecute(Block& block) {
  const int line = m_cursor.Peek().line;
  if (m_cursor.Accept("(")) {
    block.push_back({line, ExecuteTextStep{ParseScalar()}});
    m_cursor.Expect(")");
    return;
  }
  CallStep call;
  call.procedure = m_cursor.ExpectObjectName();
  const auto begins = [&] {
    const TokenKind kind = m_cursor.Peek().kind;
    return kind == TokenKind::Variable || kind == TokenKind::Text || kind == TokenKind::Number ||
           m_cursor.IsAny({"-", "NULL", "DEFAULT"});
  };
  if (begins()) {
    do {
      auto translator = Translator();
      call.arguments.push_back(ParsePassed(translator));
    } while (m_cursor.Accept(","));
  }
  block.push_back({line, std::move(call)});
}

CallStep::Passed BatchParser::ParsePassed(QueryTranslator& translator) {
  CallStep::Passed passed;
  if (m_cursor.Peek().kind == TokenKind::Variable && m_cursor.Is("=", 1)) {
    passed.name = m_cursor.Take().text;
    m_cursor.Expect("=");
  }
  if (m_cursor.Accept("DEFAULT")) return passed;
  const Token first = m_cursor.Peek();
  passed.value = translator.Finish("SELECT " + translator.ParseExpression().sql);
  if (m_cursor.Accept("OUTPUT") || m_cursor.Accept("OUT")) passed.output = translator.FindVariable(first.text);
  return passed;
}

}  // namespace quorvel::ado::embedded
