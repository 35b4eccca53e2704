#include "ado/odbc/ProcedureName.h"

#include <algorithm>
#include <vector>

#include "platform/Text.h"

namespace quorvel::ado::odbc {
namespace {

bool IsPlain(char c) {
  // Bytes above ASCII belong to letters; whether the server takes them is its own decision.
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
         c == '_' || c == '#' || c == '@' || c == '$';
}

/// Takes one part off the front of `rest`; nothing when brackets or quotes stay open.
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

/// Plain parts stay plain: not every server takes off brackets from the name of a remote call.
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

}  // namespace quorvel::ado::odbc
