#pragma once

#include <string_view>

class wxButton;
class wxWindow;

namespace quorvel::ui {

/// A new button of `parent`, which owns it. `caption` (UTF-8) marks its access key with & and, without the mark, is the
/// name for assistive technology. Pressing its key acts at once.
[[nodiscard]] wxButton* MakeButton(wxWindow& parent, std::string_view name, std::string_view caption);

}  // namespace quorvel::ui
