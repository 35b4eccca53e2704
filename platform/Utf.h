#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel::utf {

/// Takes the character at `position` of a UTF-8 text and moves past it. A byte that begins no well-formed
/// character is taken alone and stands beyond Unicode, so that it equals nothing but itself; Append puts it
/// back. `position` must be inside the text.
char32_t Take(std::string_view text, std::size_t& position) noexcept;

/// Whether what Take gave is a character and no stray byte.
[[nodiscard]] constexpr bool IsCharacter(char32_t taken) noexcept { return taken < 0x110000; }

/// Appends what Take gave, as UTF-8.
void Append(std::string& text, char32_t taken);

/// Nothing where the text is not well formed.
[[nodiscard]] std::optional<std::u16string> ToUtf16(std::string_view text);
[[nodiscard]] std::optional<std::string> ToUtf8(std::u16string_view text);

/// Appends a text that a database keeps without minding whether it is well formed: half a surrogate pair becomes
/// U+FFFD.
void AppendUtf8(std::string& narrow, std::u16string_view text);

}  // namespace quorvel::utf
