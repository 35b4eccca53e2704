#pragma once

#include <cstdint>

namespace quorvel::ui {

/// While it lives, the controls that the calling thread makes look as those of today's programs do, even in a host that
/// asked the system for those of long ago. Scopes end on their thread in the reverse order of their beginning. Does
/// nothing but on Windows, and nothing there when the system refuses.
class VisualStyles {
 public:
  VisualStyles() noexcept;
  // NOLINTNEXTLINE(performance-trivially-destructible): where there is nothing to choose it has nothing to undo.
  ~VisualStyles();
  VisualStyles(const VisualStyles&) = delete;
  VisualStyles& operator=(const VisualStyles&) = delete;

 private:
  [[maybe_unused]] bool m_active = false;
  [[maybe_unused]] std::uintptr_t m_cookie = 0;
};

}  // namespace quorvel::ui
