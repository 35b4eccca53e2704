#include "platform/wx/ScrollBars.h"

namespace quorvel::ui {

// They are always there.
void KeepScrollBars(wxWindow& /*window*/) {}

}  // namespace quorvel::ui
