#pragma once

#include "platform/InstallationHive.h"
#include "runtime/published/Registration.h"

namespace quorvel::published {

/// Registers the component for everybody on the machine, or, where the machine's hive denies writing, for this user
/// alone. A registration that fails leaves the hive as it was. The one for the machine takes the place of the user's
/// own, which would hide it.
[[nodiscard]] registry::Outcome Register(registry::InstallationHive& machine, registry::InstallationHive& user,
                                         const ServerFile& file);

/// Takes the registration of the file's bitness out of both hives, whichever file of the component is registered.
/// What the other bitness needs stays while that one is registered, and what others have written under the
/// component's keys always does. Goes on after a failure and tells the first.
[[nodiscard]] registry::Outcome Unregister(registry::InstallationHive& machine, registry::InstallationHive& user,
                                           const ServerFile& file);

}  // namespace quorvel::published
