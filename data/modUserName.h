#pragma once

#include <string>

namespace quorvel::modUserName {

/// The current user's logon name; the empty text when the system cannot supply it or it has more than 255 bytes.
[[nodiscard]] std::string GetUserName() noexcept;

}  // namespace quorvel::modUserName
