#include "host/cli/ShippedProcedures.h"

#include <fmt/format.h>

#include <algorithm>

#include "platform/Text.h"
#include "platform/Value.h"

namespace quorvel::cli {
namespace {

constexpr std::array<std::uint64_t, 12> kShipped = {
    0xcea5bd98d7112ab1, 0x44639e75f5681d8f,                                          // spTWCqvGetFilteredMemos
    0xd583e1e47a3ac05a,                                                              // spTWCqvAddRemark
    0xc8cf36c4935c44ca, 0x3459d0083978e4ea, 0x074f999a2a144bb7, 0xaaede3d3a79301af,  // spTWCqvUpdateRemark
    0x4a70fe0a0cd90787,                                                              // spTWCqvDeleteRemark
    0x776bae5716590a0e, 0xfda5ca93eb455e1b,                                          // spGetNextSurrogateKey
    0x7693489f6de14edb, 0x2df02ef8dcd871f2,
};

constexpr std::string_view kBlank = " \t\r\n";

/// Takes the next word from the front of `text`; empty at the end.
std::string_view TakeWord(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlank), text.size()));
  const std::string_view word = text.substr(0, text.find_first_of(kBlank));
  text.remove_prefix(word.size());
  return word;
}

/// The script makes each procedure with this body before it gives it its text, and may have been interrupted.
bool IsPlaceholder(std::string_view definition) { return definition.ends_with(" AS SELECT 1 AS Nothing"); }

}  // namespace

std::uint64_t Fingerprint(std::string_view definition) {
  // FNV-1a: short, and the same on every system.
  std::uint64_t hash = 0xcbf29ce484222325;
  const auto add = [&hash](std::string_view text) {
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  };
  (void)TakeWord(definition);
  add(TakeWord(definition));
  for (std::string_view word = TakeWord(definition); !word.empty(); word = TakeWord(definition)) {
    add(" ");
    add(word);
  }
  return hash;
}

std::span<const std::uint64_t> ShippedFingerprints() noexcept { return kShipped; }

bool IsShipped(std::string_view definition) {
  const auto* const found = std::find(kShipped.begin(), kShipped.end(), Fingerprint(definition));
  return found != kShipped.end() || IsPlaceholder(definition);
}

bool IsAdapted(ado::Connection& connection, std::string_view procedure) {
  const auto row = connection.Execute(fmt::format(
      "SELECT OBJECT_ID('{0}', 'P') AS Id, OBJECT_DEFINITION(OBJECT_ID('{0}', 'P')) AS Definition", procedure));
  if (row->EndOfFile() || IsNull(row->Fields("Id").Value())) return false;
  const Value definition = row->Fields("Definition").Value();
  return IsNull(definition) || !IsShipped(ToText(definition));
}

}  // namespace quorvel::cli
