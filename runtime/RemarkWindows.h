#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace quorvel {

class RemarkContext;

/// The windows that a context opens. A window library fills it in, once per process; until then there is none. What a
/// window keeps for itself it keeps once per thread.
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

/// The windows in force. Error -1 from `source` when there are none.
[[nodiscard]] RemarkWindows& CurrentRemarkWindows(std::string_view source);

/// Puts other windows in force and returns those that were; null takes them away.
/// Call it before the component is used on a second thread.
std::shared_ptr<RemarkWindows> ExchangeRemarkWindows(std::shared_ptr<RemarkWindows> windows);

}  // namespace quorvel
