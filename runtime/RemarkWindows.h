#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace quorvel {

class RemarkContext;

/// The windows that a context opens. A window library supplies them, once per process. The state of a window belongs to
/// the one thread that can have windows.
class RemarkWindows {
 public:
  virtual ~RemarkWindows() = default;
  /// Walks the user through the remarks that pop up; returns when the user is done.
  virtual void ViewPopup(RemarkContext& context) = 0;
  /// Lets the user edit the remarks; returns when the window is closed.
  virtual void ViewEdit(RemarkContext& context) = 0;
  /// Opens a new administration window; `modal` is 1 for modal and 0 for modeless.
  virtual void ViewManager(std::int32_t modal) = 0;
};

/// The installed windows. The first call starts the window library and installs its windows and prompts. Throws
/// NoWindow, error -1 from `source`, when it cannot start, for example without a display; a later call tries again.
[[nodiscard]] RemarkWindows& CurrentRemarkWindows(std::string_view source);

/// Whether windows are installed.
[[nodiscard]] bool HasRemarkWindows();

/// Installs `windows` and returns the previous ones. After null the next call of CurrentRemarkWindows starts the
/// library. Call it while no thread opens a window.
std::shared_ptr<RemarkWindows> ExchangeRemarkWindows(std::shared_ptr<RemarkWindows> windows);

}  // namespace quorvel
