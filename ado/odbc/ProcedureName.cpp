#include "ado/odbc/ProcedureName.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "ado/engine/DriverError.h"
#include "platform/Text.h"

namespace quorvel::ado::odbc {
namespace {

/// Bytes of the longest identifier: 128 UTF-16 units.
constexpr std::size_t kLongestName = std::size_t{128} * 3;

bool IsPlain(char c) {
  // Bytes above ASCII belong to letters; the server decides whether it accepts them.
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
         c == '_' || c == '#' || c == '@' || c == '$';
}

/// Removes one part from the front of `rest`; nothing when a bracket or quote is not closed.
std::optional<std::string> TakePart(std::string_view& rest) {
  std::string part;
  if (!rest.starts_with('[') && !rest.starts_with('"')) {
    const auto* end = std::find_if_not(rest.begin(), rest.end(), IsPlain);
    part.assign(rest.begin(), end);
    rest.remove_prefix(part.size());
    return part;
  }
  const char close = rest.front() == '[' ? ']' : '"';
  rest.remove_prefix(1);
  while (true) {
    const auto end = rest.find(close);
    if (end == std::string_view::npos) return std::nullopt;
    part += rest.substr(0, end);
    rest.remove_prefix(end + 1);
    if (!rest.starts_with(close)) return part;
    part += close;
    rest.remove_prefix(1);
  }
}

/// Plain parts stay plain: not every server removes brackets from the name of a remote call.
std::string Bracketed(std::string_view part) {
  if (std::all_of(part.begin(), part.end(), IsPlain)) return std::string(part);
  std::string text = "[";
  for (const char c : part) {
    text += c;
    if (c == ']') text += c;
  }
  return text + "]";
}

}  // namespace

std::string ProcedureName::Quoted() const {
  std::string text;
  if (!catalog.empty()) text += Bracketed(catalog) + ".";
  if (!schema.empty()) text += Bracketed(schema);
  if (!schema.empty() || !catalog.empty()) text += ".";
  return text + Bracketed(name);
}

std::optional<ProcedureName> ParseProcedureName(std::string_view text) {
  std::string_view rest = TrimBlanks(text);
  std::vector<std::string> parts;
  do {
    if (!parts.empty()) rest.remove_prefix(1);
    auto part = TakePart(rest);
    if (!part) return std::nullopt;
    parts.push_back(std::move(*part));
  } while (rest.starts_with('.'));
  if (!rest.empty() || parts.size() > 3 || parts.back().empty()) return std::nullopt;
  parts.insert(parts.begin(), 3 - parts.size(), std::string());
  return ProcedureName{parts[0], parts[1], parts[2]};
}

ProcedureName RequireProcedureName(std::string_view text) {
  auto name = ParseProcedureName(text);
  const auto isTooLong = [](const std::string& part) { return part.size() > kLongestName; };
  if (!name || isTooLong(name->catalog) || isTooLong(name->schema) || isTooLong(name->name)) ThrowNoSuchProcedure(text);
  return std::move(*name);
}

void ThrowNoSuchProcedure(std::string_view procedure) {
  throw DriverError("42000", 2812, fmt::format("Could not find stored procedure '{}'.", procedure));
}

}  // namespace quorvel::ado::odbc
