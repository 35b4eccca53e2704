#pragma once

#include "platform/InstallationHive.h"

namespace quorvel::registry {

/// The hives of the Windows registry, which live as long as the process.
[[nodiscard]] InstallationHive& MachineHive() noexcept;
[[nodiscard]] InstallationHive& UserHive() noexcept;

}  // namespace quorvel::registry
