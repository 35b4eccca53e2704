#pragma once

#include <cstdint>
#include <string_view>

namespace quorvel {

/// Tells a memo by its values, so that a remark need not keep a second copy of them. Never 0. Blanks around a value and
/// the letter case of the type do not count; two different memos have the same digest in one of two thousand million
/// cases.
[[nodiscard]] std::uint32_t MemoDigest(std::string_view typeID, std::string_view userID, std::string_view memoText);

}  // namespace quorvel
