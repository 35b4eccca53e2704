// The text is kept as its lines, each with its bytes. A look-up walks over them, and a change replaces, inserts or
// erases single lines, so that a person's comments and layout survive.

#include "platform/RegistryExport.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "platform/Text.h"
#include "platform/Utf.h"

namespace quorvel::registry {
namespace {

constexpr std::string_view kHeader = "Windows Registry Editor Version 5.00";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";

/// Takes one line with its line break from the front of `rest`.
std::string_view TakeLine(std::string_view& rest) {
  const std::size_t end = std::min(rest.find('\n'), rest.size() - 1) + 1;
  const std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end);
  return line;
}

bool IsHeader(std::string_view line) {
  if (line.starts_with(kUtf8Mark)) line.remove_prefix(kUtf8Mark.size());
  const std::size_t last = line.find_last_not_of(" \t\r\n");
  return last != std::string_view::npos && line.substr(0, last + 1) == kHeader;
}

bool IsBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

/// Whether the closing bracket of a key is missing, so that it may be any key.
bool IsUnclosedKey(const RegistryExportLine& line) {
  return line.kind == RegistryExportLine::Kind::Key && line.name.empty();
}

}  // namespace

std::optional<RegistryExport> RegistryExport::Parse(std::string_view bytes) {
  RegistryExport file;
  if (!bytes.starts_with(kUtf16Mark)) return file.ReadLines(bytes) ? std::optional(std::move(file)) : std::nullopt;
  const auto text = utf::FromUtf16Bytes(bytes.substr(kUtf16Mark.size()));
  return text && file.ReadLines(*text) ? std::optional(std::move(file)) : std::nullopt;
}

bool RegistryExport::ReadLines(std::string_view text) {
  if (IsBlank(text)) return true;
  while (!text.empty()) {
    std::string raw(TakeLine(text));
    if (m_lines.empty() && !IsHeader(raw)) return false;
    while (!text.empty() && ContinuesOnNextLine(raw, text.substr(0, text.find('\n')))) raw += TakeLine(text);
    m_lines.push_back(ParseLine(std::move(raw)));
  }
  if (m_lines.front().raw.ends_with("\r\n")) m_lineBreak = "\r\n";
  return true;
}

bool RegistryExport::HasKey(std::string_view key) const { return !PositionsInKey(key).empty(); }

std::optional<StoredValue> RegistryExport::Find(std::string_view key, std::string_view name) const {
  const auto positions = PositionsOfValue(key, name);
  return positions.empty() ? std::nullopt : m_lines[positions.back()].value;
}

bool RegistryExport::IsUnreadable(std::string_view key, std::string_view name) const {
  const auto positions = PositionsOfValue(key, name);
  return !positions.empty() && m_lines[positions.back()].kind == RegistryExportLine::Kind::Unreadable;
}

std::vector<std::string> RegistryExport::Problems(std::string_view key) const {
  std::vector<std::string> problems;
  bool inside = false;
  std::size_t number = 1;
  for (std::size_t i = 0; i < m_lines.size(); ++i) {
    const RegistryExportLine& line = m_lines[i];
    if (line.kind == RegistryExportLine::Kind::Key) inside = EqualIgnoringCase(line.name, key);
    if (const auto problem = ProblemOf(i, inside ? key : std::string_view())) {
      problems.push_back(fmt::format("Line {} {}", number, *problem));
    }
    number += static_cast<std::size_t>(std::ranges::count(line.raw, '\n'));
  }
  return problems;
}

/// The fault of one line, which belongs to `key` or, with an empty key, to another one.
std::optional<std::string> RegistryExport::ProblemOf(std::size_t position, std::string_view key) const {
  using Kind = RegistryExportLine::Kind;
  const RegistryExportLine& line = m_lines[position];
  if (IsUnclosedKey(line)) return "names a key without a closing bracket; its values are not read";
  if (key.empty() || position == 0 || line.kind == Kind::Key) return std::nullopt;
  if (line.kind == Kind::Other) {
    const bool isComment = IsBlank(line.raw) || line.raw[line.raw.find_first_not_of(" \t")] == ';';
    return isComment ? std::nullopt : std::optional<std::string>("is not understood");
  }
  // The line is not repeated: what stands for its name may be a password whose line has no quotes.
  if (line.kind == Kind::Unreadable) return R"(has no value that can be read; write it as "Name"="value")";
  if (PositionsOfValue(key, line.name).front() == position) return std::nullopt;
  return fmt::format("sets \"{}\" once more; the last line counts", line.name);
}

bool RegistryExport::AddKey(std::string_view key) {
  if (HasKey(key)) return true;
  if (std::ranges::any_of(m_lines, IsUnclosedKey)) return false;
  auto line = FormatKey(key);
  if (!line) return false;
  if (m_lines.empty()) Append(std::string(kHeader));
  if (!IsBlank(m_lines.back().raw)) Append({});
  Append(*std::move(line));
  return true;
}

bool RegistryExport::SetString(std::string_view key, std::string_view name, std::string_view text) {
  const auto inKey = PositionsInKey(key);
  auto line = FormatString(name, text);
  if (inKey.empty() || !line) return false;
  auto positions = PositionsOfValue(key, name);
  if (!positions.empty()) {
    m_lines[positions.back()] = ParseLine(*line + m_lineBreak);
    // From the last to the first, so that the remaining positions stay valid.
    for (positions.pop_back(); !positions.empty(); positions.pop_back()) {
      m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(positions.back()));
    }
    return true;
  }
  RegistryExportLine& before = m_lines[inKey.back()];
  if (!before.raw.ends_with('\n')) before.raw += m_lineBreak;
  m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(inKey.back()) + 1, ParseLine(*line + m_lineBreak));
  return true;
}

std::string RegistryExport::Text() const {
  std::string text;
  for (const RegistryExportLine& line : m_lines) text += line.raw;
  return text;
}

/// The lines that name the key and those of its values.
std::vector<std::size_t> RegistryExport::PositionsInKey(std::string_view key) const {
  std::vector<std::size_t> positions;
  bool inside = false;
  for (std::size_t i = 0; i < m_lines.size(); ++i) {
    if (m_lines[i].kind == RegistryExportLine::Kind::Other) continue;
    if (m_lines[i].kind == RegistryExportLine::Kind::Key) inside = EqualIgnoringCase(m_lines[i].name, key);
    if (inside) positions.push_back(i);
  }
  return positions;
}

std::vector<std::size_t> RegistryExport::PositionsOfValue(std::string_view key, std::string_view name) const {
  auto positions = PositionsInKey(key);
  std::erase_if(positions, [&](std::size_t position) {
    const RegistryExportLine& line = m_lines[position];
    return line.kind == RegistryExportLine::Kind::Key || !EqualIgnoringCase(line.name, name);
  });
  return positions;
}

void RegistryExport::Append(std::string line) {
  if (!m_lines.empty() && !m_lines.back().raw.ends_with('\n')) m_lines.back().raw += m_lineBreak;
  m_lines.push_back(ParseLine(std::move(line) + m_lineBreak));
}

}  // namespace quorvel::registry
