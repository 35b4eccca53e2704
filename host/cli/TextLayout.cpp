#include "host/cli/TextLayout.h"

#include <algorithm>

#include <fmt/format.h>

#include "platform/Text.h"

namespace quorvel::cli {
namespace {

constexpr std::size_t kNarrowest = 20;

/// Removes from `line` the words that fit into `columns`, or a piece of a word that is longer than that.
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
  for (const char character : Printable(text)) {
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
  const std::string clean = Printable(text);
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
