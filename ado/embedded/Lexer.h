#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvel::ado::embedded {

enum class TokenKind { End, Name, QuotedName, Number, Text, Variable, Symbol };

/// One token of T-SQL.
struct Token {
  TokenKind kind = TokenKind::End;
  std::string text;        ///< quotes and brackets removed, doubled ones undone
  std::size_t offset = 0;  ///< in the batch
  int line = 1;            ///< 1-based
};

/// Cuts a batch into tokens as a T-SQL server does: `12ORDER` is the number 12 and the name ORDER. Ends with one
/// End token. DriverError for an unclosed text, name or comment.
[[nodiscard]] std::vector<Token> Tokenize(std::string_view batch);

}  // namespace quorvel::ado::embedded
