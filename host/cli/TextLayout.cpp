#include "host/cli/TextLayout.h"

#include <algorithm>

#include <fmt/format.h>

#include "platform/Text.h"

namespace quorvel::cli {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::size_t kNarrowest = 20;

/// Bytes of the control character at the front; 0 when there is none. A carriage return counts as one, and so do
/// the two bytes of U+0080 to U+009F, which terminals obey as well.
std::size_t ControlLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  if (byte(0) < 0x20 || byte(0) == 0x7F) return 1;
  return byte(0) == 0xC2 && text.size() > 1 && byte(1) >= 0x80 && byte(1) < 0xA0 ? 2 : 0;
}

/// Only line feeds and tabs are left of the control characters.
std::string WithoutControls(std::string_view text) {
  std::string clean;
  clean.reserve(text.size());
  while (!text.empty()) {
    std::size_t length = ControlLength(text);
    if (text.starts_with("\r\n")) {
      text.remove_prefix(1);
      continue;
    }
    if (length == 0 || text[0] == '\n' || text[0] == '\t') {
      clean += text[0];
      length = 1;
    } else {
      clean += kReplacement;
    }
    text.remove_prefix(length);
  }
  return clean;
}

/// Cuts off what fits into `columns`: whole words, or a piece of a word that is too long by itself.
std::string_view TakeFitting(std::string_view& line, std::size_t columns) {
  std::size_t end = 0;
  std::size_t count = 0;
  while (end < line.size() && count < columns) {
    ++end;
    while (end < line.size() && (static_cast<unsigned char>(line[end]) & 0xC0U) == 0x80U) ++end;
    ++count;
  }
  const std::size_t blank = line.rfind(' ', end);
  const bool cutAtBlank = end < line.size() && blank != std::string_view::npos && blank > 0;
  const std::string_view piece = line.substr(0, cutAtBlank ? blank : end);
  line.remove_prefix(std::min(piece.size() + (cutAtBlank ? 1 : 0), line.size()));
  return piece;
}

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line;
  for (const char character : WithoutControls(text)) {
    if (character == '\n') {
      line += "\\n";
    } else {
      line += character == '\t' ? ' ' : character;
    }
  }
  return line;
}

std::string Paragraph(std::string_view text, std::size_t indent, std::size_t width) {
  const std::size_t columns = width == 0 ? text.size() + 1 : std::max(width, indent + kNarrowest) - indent;
  const std::string clean = WithoutControls(text);
  const std::string margin(indent, ' ');
  std::string_view rest = clean;
  std::string paragraph;
  bool isFirst = true;
  while (true) {
    std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(line.size());
    do {
      const std::string_view piece = TakeFitting(line, columns);
      if (!isFirst) paragraph += '\n';
      if (!isFirst && !piece.empty()) paragraph += margin;
      paragraph += piece;
      isFirst = false;
    } while (!line.empty());
    if (rest.empty()) return paragraph;
    rest.remove_prefix(1);
  }
}

std::string Counted(std::size_t count, std::string_view noun) {
  return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

}  // namespace quorvel::cli
