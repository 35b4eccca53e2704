// The reader of an OLE DB connection string. Its messages never show the text, which may hold a password.

#include "ado/ConnectionString.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "ado/engine/AdoError.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::ado {
namespace {

struct Keyword {
  std::string_view name;
  std::string ConnectOptions::*option;
};

constexpr std::array kKeywords = std::to_array<Keyword>({
    {"Data Source", &ConnectOptions::dataSource},
    {"Server", &ConnectOptions::dataSource},
    {"Initial Catalog", &ConnectOptions::initialCatalog},
    {"Database", &ConnectOptions::initialCatalog},
    {"User ID", &ConnectOptions::userId},
    {"UID", &ConnectOptions::userId},
    {"Password", &ConnectOptions::password},
    {"PWD", &ConnectOptions::password},
    {"Driver", &ConnectOptions::driver},
    {"Encrypt", &ConnectOptions::encrypt},
    {"TrustServerCertificate", &ConnectOptions::trustServerCertificate},
    {"Trust Server Certificate", &ConnectOptions::trustServerCertificate},
});

/// Null for a key that is not known.
const Keyword* FindKeyword(std::string_view key) {
  const auto found = std::find_if(kKeywords.begin(), kKeywords.end(),
                                  [key](const Keyword& known) { return EqualIgnoringCase(known.name, key); });
  return found == kKeywords.end() ? nullptr : &*found;
}

/// Reads the pairs one after the other; its errors give positions only.
class PairReader {
 public:
  explicit PairReader(std::string_view text) : m_text(text) {}

  /// False at the end of the text.
  bool Next(std::string& key, std::string& value) {
    m_at = m_text.find_first_not_of("; ", m_at);
    if (m_at == std::string_view::npos) return false;
    const auto equals = m_text.find_first_of("=;", m_at);
    if (equals == std::string_view::npos || m_text[equals] == ';') Fail("there is no = in the pair");
    key = TrimBlanks(m_text.substr(m_at, equals - m_at));
    m_at = std::min(m_text.find_first_not_of(' ', equals + 1), m_text.size());
    const bool isQuoted = m_at < m_text.size() && (m_text[m_at] == '"' || m_text[m_at] == '\'');
    value = isQuoted ? QuotedValue(key, m_text[m_at]) : PlainValue();
    return true;
  }

 private:
  std::string PlainValue() {
    const auto end = std::min(m_text.find(';', m_at), m_text.size());
    const auto value = TrimBlanks(m_text.substr(m_at, end - m_at));
    m_at = end;
    return std::string(value);
  }

  /// Only known keys are named: an unknown one may be a piece of a password that a semicolon has split.
  static std::string Named(std::string_view key) {
    const Keyword* keyword = FindKeyword(key);
    return keyword == nullptr ? "value" : fmt::format("value of {}", keyword->name);
  }

  std::string QuotedValue(std::string_view key, char quote) {
    std::string value;
    auto next = m_at + 1;
    while (true) {
      const auto end = m_text.find(quote, next);
      if (end == std::string_view::npos) Fail(fmt::format("there is no closing quote for the {}", Named(key)));
      value += m_text.substr(next, end - next);
      next = end + 1;
      if (next == m_text.size() || m_text[next] != quote) break;
      value += quote;
      ++next;
    }
    next = std::min(m_text.find_first_not_of(' ', next), m_text.size());
    if (next < m_text.size() && m_text[next] != ';')
      Fail(fmt::format("there is text behind the closing quote of the {}", Named(key)));
    m_at = next;
    return value;
  }

  [[noreturn]] void Fail(std::string_view reason) const {
    ThrowAdoError(ErrorNumber::AdoInvalidArgument,
                  fmt::format("In the connection string {} that begins at character {}.", reason,
                              CountCharacters(m_text.substr(0, m_at)) + 1));
  }

  std::string_view m_text;
  std::size_t m_at = 0;
};

}  // namespace

ConnectOptions ParseConnectionString(std::string_view text) {
  ConnectOptions options;
  PairReader pairs(text);
  std::string key;
  std::string value;
  while (pairs.Next(key, value)) {
    if (const Keyword* keyword = FindKeyword(key)) options.*(keyword->option) = std::move(value);
  }
  return options;
}

}  // namespace quorvel::ado
