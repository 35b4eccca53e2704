#pragma once

#include <functional>

namespace quorvel::test {

/// Lets windows handle what is there for them until `condition` holds; false when it does not within some seconds.
[[nodiscard]] bool WaitFor(const std::function<bool()>& condition);

/// Lets windows handle what is there for them now.
void HandleEvents();

}  // namespace quorvel::test
