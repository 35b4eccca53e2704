#pragma once

namespace quorvel {

/// The lower case of a character, one character for one (Unicode 15); the character itself where it has none.
///
/// The component has a table of its own because it orders the indexes of database files. Files move between systems,
/// and the systems' tables differ from version to version. A change of the table means rebuilding those indexes.
[[nodiscard]] char32_t LowerCase(char32_t character) noexcept;

}  // namespace quorvel
