#pragma once

namespace quorvel {

/// The lower case of a character, one character for one (Unicode 15); the character itself where it has none.
///
/// A table of our own, since indexes of database files are ordered by it: a file goes from one system to another, and
/// the systems' own tables differ with every version. Changing it means rebuilding those indexes.
[[nodiscard]] char32_t LowerCase(char32_t character) noexcept;

}  // namespace quorvel
