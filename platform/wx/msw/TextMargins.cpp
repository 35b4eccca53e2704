#include "platform/wx/TextMargins.h"

namespace quorvel::ui {

// The system's own box has them.
void SetTextMargins(wxTextCtrl& /*box*/) {}

}  // namespace quorvel::ui
