// The first character of a token decides its kind and how its end is found. Lines are counted on the way, because
// errors report them.
#include "ado/embedded/Lexer.h"

#include <array>

#include "ado/engine/DriverError.h"

namespace quorvel::ado::embedded {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsNameStart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '#' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool IsNamePart(char c) { return IsNameStart(c) || IsDigit(c) || c == '$' || c == '@'; }

class Lexer {
 public:
  explicit Lexer(std::string_view batch) : m_batch(batch) {}

  std::vector<Token> Run() {
    for (SkipBlanks(); m_at < m_batch.size(); SkipBlanks()) m_tokens.push_back(Next());
    m_tokens.push_back(Start(TokenKind::End));
    return std::move(m_tokens);
  }

 private:
  [[nodiscard]] char Peek(std::size_t ahead = 0) const {
    return m_at + ahead < m_batch.size() ? m_batch[m_at + ahead] : '\0';
  }

  [[nodiscard]] Token Start(TokenKind kind) const { return {kind, {}, m_at, m_line}; }

  void Advance() {
    if (Peek() == '\n') ++m_line;
    ++m_at;
  }

  void SkipBlanks() {
    while (m_at < m_batch.size()) {
      if (Peek() == ' ' || (Peek() >= '\t' && Peek() <= '\r')) {
        Advance();
      } else if (m_batch.substr(m_at).starts_with("\xEF\xBB\xBF")) {
        m_at += 3;  // byte order mark of a script file
      } else if (Peek() == '-' && Peek(1) == '-') {
        while (m_at < m_batch.size() && Peek() != '\n') Advance();
      } else if (Peek() == '/' && Peek(1) == '*') {
        SkipBlockComment();
      } else {
        return;
      }
    }
  }

  /// Block comments nest in T-SQL.
  void SkipBlockComment() {
    const int line = m_line;
    int depth = 0;
    do {
      if (m_at >= m_batch.size()) throw DriverError("42000", 113, "Missing end comment mark '*/'.", line);
      const bool opens = Peek() == '/' && Peek(1) == '*';
      const bool closes = Peek() == '*' && Peek(1) == '/';
      depth += (opens ? 1 : 0) - (closes ? 1 : 0);
      if (opens || closes) Advance();
      Advance();
    } while (depth > 0);
  }

  Token Next() {
    const char c = Peek();
    if ((c == 'N' || c == 'n') && Peek(1) == '\'') {
      Advance();
      return Delimited(TokenKind::Text, '\'');
    }
    if (c == '\'') return Delimited(TokenKind::Text, '\'');
    if (c == '"') return Delimited(TokenKind::QuotedName, '"');
    if (c == '[') return Delimited(TokenKind::QuotedName, ']');
    if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) return Number();
    if (c == '@') return Word(TokenKind::Variable);
    if (IsNameStart(c)) return Word(TokenKind::Name);
    return Symbol();
  }

  Token Delimited(TokenKind kind, char closing) {
    Token token = Start(kind);
    Advance();
    while (m_at < m_batch.size()) {
      if (Peek() == closing) {
        Advance();
        if (Peek() != closing) return token;
      }
      token.text += Peek();
      Advance();
    }
    throw DriverError("42000", 105, "Unclosed quotation mark after the character string '" + token.text + "'.",
                      token.line);
  }

  Token Number() {
    Token token = Start(TokenKind::Number);
    const auto digits = [&] {
      while (IsDigit(Peek())) Advance();
    };
    digits();
    if (Peek() == '.') {
      Advance();
      digits();
    }
    const bool isSigned = Peek(1) == '+' || Peek(1) == '-';
    if ((Peek() == 'e' || Peek() == 'E') && IsDigit(Peek(isSigned ? 2 : 1))) {
      m_at += isSigned ? 2 : 1;
      digits();
    }
    token.text = m_batch.substr(token.offset, m_at - token.offset);
    return token;
  }

  Token Word(TokenKind kind) {
    Token token = Start(kind);
    while (IsNamePart(Peek())) Advance();
    token.text = m_batch.substr(token.offset, m_at - token.offset);
    return token;
  }

  Token Symbol() {
    static constexpr std::array<std::string_view, 6> kPairs = {"<>", "<=", ">=", "!=", "!<", "!>"};
    Token token = Start(TokenKind::Symbol);
    for (const std::string_view pair : kPairs) {
      if (m_batch.substr(m_at).starts_with(pair)) token.text = pair;
    }
    if (token.text.empty()) token.text = Peek();
    m_at += token.text.size();
    return token;
  }

  std::string_view m_batch;
  std::size_t m_at = 0;
  int m_line = 1;
  std::vector<Token> m_tokens;
};

}  // namespace

std::vector<Token> Tokenize(std::string_view batch) { return Lexer(batch).Run(); }

}  // namespace quorvel::ado::embedded
