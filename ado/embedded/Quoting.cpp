#include "ado/embedded/Quoting.h"

#include <fmt/format.h>

namespace quorvel::ado::embedded {
namespace {

std::string Doubled(std::string_view text, char quote) {
  std::string result(1, quote);
  for (const char c : text) {
    if (c == quote) result += quote;
    result += c;
  }
  return result + quote;
}

}  // namespace

std::string QuoteName(std::string_view name) { return Doubled(name, '"'); }

std::string QuoteText(std::string_view text) {
  // SQLite text literals end at a zero character.
  if (text.find('\0') == std::string_view::npos) return Doubled(text, '\'');
  std::string hex = "CAST(x'";
  for (const char c : text) hex += fmt::format("{:02x}", static_cast<unsigned char>(c));
  return hex + "' AS TEXT)";
}

}  // namespace quorvel::ado::embedded
