#pragma once

#include <string>

namespace quorvel::os {

/// The full path of the component's file, not the host's; it may have any length. Empty when the system fails.
[[nodiscard]] std::wstring ModulePath();

}  // namespace quorvel::os
