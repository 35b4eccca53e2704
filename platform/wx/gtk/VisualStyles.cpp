#include "platform/wx/VisualStyles.h"

namespace quorvel::ui {

// The desktop's theme is the same for all programs.
VisualStyles::VisualStyles() noexcept = default;

VisualStyles::~VisualStyles() = default;

}  // namespace quorvel::ui
