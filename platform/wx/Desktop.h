#pragma once

#include <string_view>

#include "platform/Error.h"

namespace quorvel::ui {

/// Error -1, "No window can be opened: " and the reason.
[[nodiscard]] Error NoWindowError(std::string_view reason);
inline constexpr std::string_view kOtherThreadHasWindows =
    "another thread of the program has windows already, and only one thread can have them";

/// How wxWidgets is started inside a host, one body for each system.
namespace desktop {

/// NoWindowError when nothing can be shown to a person: no display, no desktop, or another thread of the host runs the
/// desktop's loop. Changes nothing that lasts; may be called again.
void Require();

/// Starts wxWidgets with the application object that is set, as part of the module that this code is in; false when it
/// does not start. Require went before.
[[nodiscard]] bool StartToolkit();

}  // namespace desktop
}  // namespace quorvel::ui
