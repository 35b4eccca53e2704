#include "platform/wx/ButtonKeys.h"

namespace quorvel::ui {

// They do.
void ActAtOnce(wxButton& /*button*/) {}

}  // namespace quorvel::ui
