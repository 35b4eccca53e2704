#include "platform/wx/HostLoop.h"

#include <wx/dialog.h>

namespace quorvel::ui {

int ShowModalInHost(wxDialog& dialog) { return dialog.ShowModal(); }

}  // namespace quorvel::ui
