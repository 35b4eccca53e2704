#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace quorvel {

class RemarkContext;

/// The windows that a context opens. A window library brings them, once per process; what a window keeps for itself it
/// keeps on the one thread that can have windows.
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

/// The windows in force. The first call starts the window library and puts its prompts in force too. Error -1 from
/// `source` when that cannot be done, for want of a display for example; a later call tries again.
[[nodiscard]] RemarkWindows& CurrentRemarkWindows(std::string_view source);

/// Whether there are windows in force already.
[[nodiscard]] bool HasRemarkWindows();

/// Puts other windows in force and returns those that were. Null takes them away, so that the next call starts the
/// library. Call it while no thread opens a window.
std::shared_ptr<RemarkWindows> ExchangeRemarkWindows(std::shared_ptr<RemarkWindows> windows);

}  // namespace quorvel
