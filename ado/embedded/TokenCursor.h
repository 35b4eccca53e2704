#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "ado/embedded/Lexer.h"

namespace quorvel::ado::embedded {

/// Walks over the tokens of one batch, whose text must outlive it. Keywords match without regard to letter case; a
/// name in brackets or quotes is never a keyword.
class TokenCursor {
 public:
  explicit TokenCursor(std::string_view batch) : m_batch(batch), m_tokens(Tokenize(batch)) {}

  [[nodiscard]] const Token& Peek(std::size_t ahead = 0) const;
  [[nodiscard]] bool AtEnd() const { return Peek().kind == TokenKind::End; }
  [[nodiscard]] bool Is(std::string_view word, std::size_t ahead = 0) const;
  [[nodiscard]] bool IsAny(std::initializer_list<std::string_view> words, std::size_t ahead = 0) const;
  /// Takes the next token when it matches, or the next tokens when all of them match.
  bool Accept(std::string_view word);
  bool AcceptAll(std::initializer_list<std::string_view> words);
  Token Take();

  void Expect(std::string_view word);
  /// A name that is not reserved, or one in brackets.
  [[nodiscard]] std::string ExpectName();
  void SkipName() { (void)ExpectName(); }
  /// The last part of a name such as `database.dbo.name`.
  [[nodiscard]] std::string ExpectObjectName();
  [[nodiscard]] std::string ExpectVariable();
  /// Whether the next token can be a name.
  [[nodiscard]] bool IsName(std::size_t ahead = 0) const;

  /// Counts one level of nesting while it lives.
  class NestingGuard {
   public:
    explicit NestingGuard(int& depth) : m_depth(depth) { ++m_depth; }
    ~NestingGuard() { --m_depth; }
    NestingGuard(const NestingGuard&) = delete;
    NestingGuard& operator=(const NestingGuard&) = delete;

   private:
    int& m_depth;
  };
  /// DriverError when the text is nested deeper than a parser that calls itself can follow on the stack of this thread.
  [[nodiscard]] NestingGuard EnterNesting();
  /// The error of EnterNesting, at the next token, for a text that SQLite would refuse as nested too deeply.
  [[noreturn]] void FailNesting() const;

  /// "Incorrect syntax near ...", at the next token.
  [[noreturn]] void Fail() const;
  /// "The embedded engine does not support ...", at the next token.
  [[noreturn]] void FailUnsupported(std::string_view what) const;

  /// The text of the whole batch.
  [[nodiscard]] std::string_view Batch() const { return m_batch; }
  void SkipToEnd() { m_at = m_tokens.size() - 1; }

 private:
  std::string_view m_batch;
  std::vector<Token> m_tokens;
  std::size_t m_at = 0;
  int m_depth = 0;
};

}  // namespace quorvel::ado::embedded
