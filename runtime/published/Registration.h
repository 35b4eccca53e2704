#pragma once

#include "platform/InstallationHive.h"
#include "runtime/published/RegistryEntries.h"

namespace quorvel::published {

/// Registers the component for all users of the machine, or for this user alone when the machine's hive denies writing.
/// A registration that fails leaves the hive as it was. A registration for the machine removes the user's own, which
/// would hide it.
[[nodiscard]] registry::Outcome Register(registry::InstallationHive& machine, registry::InstallationHive& user,
                                         const ServerFile& file);

/// Removes the registration of the file's bitness from both hives, whichever file of the component is registered. Keeps
/// the entries that the other bitness needs while that one is registered, and always keeps values that other programs
/// have written under the component's keys. Continues after a failure and returns the first one.
[[nodiscard]] registry::Outcome Unregister(registry::InstallationHive& machine, registry::InstallationHive& user,
                                           const ServerFile& file);

}  // namespace quorvel::published
