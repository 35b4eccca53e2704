#pragma once

#include "platform/RegistryTree.h"

namespace quorvel::registry {

/// The hives of the machine's registry; live as long as the process.
[[nodiscard]] Tree& MachineHive() noexcept;
[[nodiscard]] Tree& UserHive() noexcept;

}  // namespace quorvel::registry
