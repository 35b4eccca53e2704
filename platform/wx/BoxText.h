#pragma once

#include <string>
#include <string_view>

namespace quorvel {

/// Converts a stored text for a text box: each line break (CR LF, CR or LF) becomes a line feed, and a zero becomes
/// its picture U+2400, because a text box ends its text at a zero.
[[nodiscard]] std::string ShownText(std::string_view stored);

/// Converts `typed`, the content of a text box that showed `original`, for storing. Line breaks become CR LF, which
/// other programs on the database expect, unless `original` has line feeds only. Pictures of zeros become zeros if
/// `original` has zeros.
[[nodiscard]] std::string StoredText(std::string_view typed, std::string_view original);

}  // namespace quorvel
