#pragma once

#include <functional>

class wxWindow;

namespace quorvel::test {

/// Lets windows handle their events until `condition` holds. Returns false when it does not hold within some seconds.
[[nodiscard]] bool WaitFor(const std::function<bool()>& condition);

/// Returns when what the window shows now has been drawn.
void WaitUntilDrawn(wxWindow& window);

/// Lets windows handle the events that are pending now.
void HandleEvents();

}  // namespace quorvel::test
