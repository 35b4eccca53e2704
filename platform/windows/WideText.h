#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvel::os {

/// UTF-16 as the system's functions take it; nothing where the text is no well-formed UTF-8.
[[nodiscard]] std::optional<std::wstring> ToWide(std::string_view text);

/// UTF-8; half a surrogate pair, which the system's names and values may hold, becomes U+FFFD.
[[nodiscard]] std::string FromWide(std::wstring_view text);

}  // namespace quorvel::os
