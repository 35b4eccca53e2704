#pragma once

#include "platform/InstallationHive.h"

namespace quorvel::registry {

/// The hives of the machine's registry; live as long as the process.
[[nodiscard]] InstallationHive& MachineHive() noexcept;
[[nodiscard]] InstallationHive& UserHive() noexcept;

}  // namespace quorvel::registry
