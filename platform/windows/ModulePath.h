#pragma once

#include <string>

namespace quorvel::os {

/// The full path of the file that this code was loaded from, the component's and not the host's, of any length; empty
/// when the system does not tell.
[[nodiscard]] std::wstring ModulePath();

}  // namespace quorvel::os
