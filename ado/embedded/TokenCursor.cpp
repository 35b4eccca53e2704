// The cursor never goes back: a parser looks ahead as far as it needs and then takes. After the last token there is
// always End, which matches no word.
#include "ado/embedded/TokenCursor.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "ado/engine/DriverError.h"
#include "platform/Stack.h"
#include "platform/Text.h"

namespace quorvel::ado::embedded {
namespace {

/// Words that cannot be a name unless they are in brackets, as on a server; in order.
constexpr std::array<std::string_view, 61> kReserved = {
    "ADD",    "ALL",       "ALTER",  "AND",     "AS",       "ASC",    "BEGIN",  "BETWEEN",  "BY",   "CASE",  "CHECK",
    "COMMIT", "CREATE",    "CROSS",  "DECLARE", "DEFAULT",  "DELETE", "DESC",   "DISTINCT", "DROP", "ELSE",  "END",
    "EXEC",   "EXECUTE",   "EXISTS", "FROM",    "FULL",     "GROUP",  "HAVING", "IF",       "IN",   "INNER", "INSERT",
    "INTO",   "IS",        "JOIN",   "LEFT",    "LIKE",     "NOT",    "NULL",   "ON",       "OR",   "ORDER", "OUTER",
    "PRINT",  "PROCEDURE", "RETURN", "RIGHT",   "ROLLBACK", "SELECT", "SET",    "TABLE",    "THEN", "TOP",   "UNION",
    "UPDATE", "VALUES",    "WHEN",   "WHERE",   "WHILE",    "WITH"};

static_assert(std::ranges::is_sorted(kReserved));

bool IsReserved(std::string_view word) { return std::ranges::binary_search(kReserved, word, LessIgnoringCase()); }

}  // namespace

const Token& TokenCursor::Peek(std::size_t ahead) const {
  return m_tokens[std::min(m_at + ahead, m_tokens.size() - 1)];
}

bool TokenCursor::Is(std::string_view word, std::size_t ahead) const {
  const Token& token = Peek(ahead);
  return (token.kind == TokenKind::Name || token.kind == TokenKind::Symbol) && EqualIgnoringCase(token.text, word);
}

bool TokenCursor::IsAny(std::initializer_list<std::string_view> words, std::size_t ahead) const {
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return Is(word, ahead); });
}

bool TokenCursor::Accept(std::string_view word) { return AcceptAll({word}); }

bool TokenCursor::AcceptAll(std::initializer_list<std::string_view> words) {
  std::size_t ahead = 0;
  for (const std::string_view word : words) {
    if (!Is(word, ahead++)) return false;
  }
  m_at += words.size();
  return true;
}

Token TokenCursor::Take() {
  Token token = Peek();
  if (!AtEnd()) ++m_at;
  return token;
}

void TokenCursor::Expect(std::string_view word) {
  if (!Accept(word)) Fail();
}

bool TokenCursor::IsName(std::size_t ahead) const {
  const Token& token = Peek(ahead);
  return token.kind == TokenKind::QuotedName || (token.kind == TokenKind::Name && !IsReserved(token.text));
}

std::string TokenCursor::ExpectName() {
  if (!IsName()) Fail();
  return Take().text;
}

std::string TokenCursor::ExpectObjectName() {
  std::string name = ExpectName();
  while (Accept(".")) name = ExpectName();
  return name;
}

std::string TokenCursor::ExpectVariable() {
  if (Peek().kind != TokenKind::Variable) Fail();
  return Take().text;
}

TokenCursor::NestingGuard TokenCursor::EnterNesting() {
  constexpr int kDeepest = 200;
  // Enough for the functions between this level and the next one, and for an error on its way out.
  constexpr std::size_t kStackOfLevel = std::size_t{64} * 1024;
  if (m_depth >= kDeepest || os::StackLeft() < kStackOfLevel) FailNesting();
  return NestingGuard(m_depth);
}

void TokenCursor::FailNesting() const {
  throw DriverError("42000", 191, "Some part of the statement is nested too deeply.", Peek().line);
}

void TokenCursor::Fail() const {
  const Token& token = Peek();
  const std::string what = AtEnd() ? "the end of the batch" : fmt::format("'{}'", token.text);
  throw DriverError("42000", 102, fmt::format("Incorrect syntax near {}.", what), token.line);
}

void TokenCursor::FailUnsupported(std::string_view what) const {
  throw DriverError("42000", 102, fmt::format("The embedded engine does not support {}.", what), Peek().line);
}

}  // namespace quorvel::ado::embedded
