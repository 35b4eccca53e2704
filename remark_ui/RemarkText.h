#pragma once

#include <string>
#include <string_view>

namespace quorvel {

/// A remark's text as text boxes take it: every line break (CR LF, CR or LF) a line feed, and a zero, at which they
/// would end the text, its picture U+2400.
[[nodiscard]] std::string ShownText(std::string_view stored);

/// What the user made of `original` in a text box, as it is stored: the line breaks are CR LF, which the database's
/// other programs expect, unless those of `original` were line feeds only; pictures of zeros are zeros where it had
/// any.
[[nodiscard]] std::string StoredText(std::string_view typed, std::string_view original);

}  // namespace quorvel
