#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvel::os {

/// UTF-16, the form of the system's functions; nothing when the text is not well-formed UTF-8.
[[nodiscard]] std::optional<std::wstring> ToWide(std::string_view text);

/// UTF-8. Names and values of the system may contain half a surrogate pair, which becomes U+FFFD.
[[nodiscard]] std::string FromWide(std::wstring_view text);

}  // namespace quorvel::os
