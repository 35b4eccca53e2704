// Scripts of T-SQL: cut into batches, each batch cut into tokens and translated, but not run.

#include <algorithm>
#include <string>
#include <vector>

#include "ado/Script.h"
#include "ado/embedded/BatchParser.h"
#include "ado/embedded/SqliteExtensions.h"
#include "ado/engine/DriverError.h"
#include "tests/fuzz/Fuzz.h"

namespace quorvel::fuzz {
namespace {

using namespace ado;
using namespace ado::embedded;

std::string_view Before(std::string_view text, const char* end) {
  return text.substr(0, static_cast<std::size_t>(end - text.data()));
}

int LinesIn(std::string_view text) { return 1 + static_cast<int>(std::ranges::count(text, '\n')); }

/// The token as a script has it.
std::string Written(const Token& token) {
  if (token.kind != TokenKind::Text && token.kind != TokenKind::QuotedName) return token.text;
  const char end = token.kind == TokenKind::Text ? '\'' : ']';
  std::string text(1, token.kind == TokenKind::Text ? '\'' : '[');
  for (const char c : token.text) text.append(c == end ? 2 : 1, c);
  return text + end;
}

bool IsSame(const Token& left, const Token& right) { return left.kind == right.kind && left.text == right.text; }

void CheckTokens(std::string_view batch) {
  const std::vector<Token> tokens = Tokenize(batch);
  std::string written;
  int line = 1;
  std::size_t at = 0;
  for (const Token& token : tokens) {
    line += LinesIn(batch.substr(at, token.offset - at)) - 1;
    at = token.offset;
    Require(token.line == line, "a token knows its line");
    written += Written(token) + ' ';
  }
  Require(std::ranges::equal(tokens, Tokenize(written), IsSame), "tokens that are written again are the same tokens");
}

/// A database in memory with tables of each type of column.
sqlite3* Database() {
  static const DatabaseHandle database = [] {
    DatabaseHandle opened;
    Require(sqlite3_open(":memory:", opened.Put()) == SQLITE_OK, "a database in memory opens");
    RegisterExtensions(opened.Get());
    Execute(opened.Get(), "CREATE TABLE T (i INTEGER, w varchar(10), d datetime, b bit, f float)");
    return opened;
  }();
  return database.Get();
}

}  // namespace

void Try(std::string_view input) {
  const Catalog catalog(Database());
  for (const Batch& batch : SplitBatches(input)) {
    Require(batch.firstLine == LinesIn(Before(input, batch.text.data())), "a batch knows its first line");
    try {
      CheckTokens(batch.text);
      (void)BatchParser(TokenCursor(batch.text), catalog).Parse();
    } catch (const DriverError& error) {
      const Diagnostic& first = error.Records().front();
      Require(first.sqlState.size() == 5 && !first.message.empty(), "an error has a SQLSTATE and a text");
      Require(first.line >= 1 && first.line <= LinesIn(batch.text), "an error names a line of the batch");
    }
  }
}

}  // namespace quorvel::fuzz
