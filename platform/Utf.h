#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel::utf {

/// Returns the character at `position` of a UTF-8 text and moves `position` past it. A byte that begins no well-formed
/// character is returned alone, as a number beyond Unicode that equals no character; Append writes it back unchanged.
/// `position` must be inside the text.
char32_t Take(std::string_view text, std::size_t& position) noexcept;

/// Whether a result of Take is a character and not a stray byte.
[[nodiscard]] constexpr bool IsCharacter(char32_t taken) noexcept { return taken < 0x110000; }

/// Whether the text is UTF-8 without a stray byte.
[[nodiscard]] bool IsWellFormed(std::string_view text) noexcept;

/// Appends a result of Take, as UTF-8.
void Append(std::string& text, char32_t taken);

/// Nothing when the text is not well formed.
[[nodiscard]] std::optional<std::u16string> ToUtf16(std::string_view text);
[[nodiscard]] std::optional<std::string> ToUtf8(std::u16string_view text);

/// The text in the bytes of UTF-16LE, as the registry exports it. Nothing when it is not well formed.
[[nodiscard]] std::optional<std::string> FromUtf16Bytes(std::string_view bytes);

/// Appends a text from a database or system that does not check its form: half a surrogate pair becomes U+FFFD.
void AppendUtf8(std::string& narrow, std::u16string_view text);

}  // namespace quorvel::utf
