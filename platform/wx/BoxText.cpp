#include "platform/wx/BoxText.h"

namespace quorvel {
namespace {

constexpr std::string_view kPictureOfZero = "\xE2\x90\x80";

bool Has(std::string_view text, char character) { return text.find(character) != std::string_view::npos; }

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
  std::string replaced;
  std::size_t from = 0;
  for (std::size_t at = text.find(what); at != std::string_view::npos; at = text.find(what, from)) {
    replaced.append(text, from, at - from).append(with);
    from = at + what.size();
  }
  return replaced.append(text, from);
}

}  // namespace

std::string ShownText(std::string_view stored) {
  std::string shown;
  shown.reserve(stored.size());
  for (std::size_t i = 0; i < stored.size(); ++i) {
    if (stored[i] == '\r') {
      shown += '\n';
      if (i + 1 < stored.size() && stored[i + 1] == '\n') ++i;
    } else if (stored[i] == '\0') {
      shown += kPictureOfZero;
    } else {
      shown += stored[i];
    }
  }
  return shown;
}

std::string StoredText(std::string_view typed, std::string_view original) {
  std::string stored = ShownText(typed);
  if (Has(original, '\0')) stored = ReplaceAll(stored, kPictureOfZero, std::string_view("\0", 1));
  const bool onlyLineFeeds = Has(original, '\n') && !Has(original, '\r');
  return onlyLineFeeds ? stored : ReplaceAll(stored, "\n", "\r\n");
}

}  // namespace quorvel
