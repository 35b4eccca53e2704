#include "platform/wx/MakeButton.h"

#include <wx/button.h>

#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"

namespace quorvel::ui {

wxButton* MakeButton(wxWindow& parent, std::string_view name, std::string_view caption) {
  auto* button = new wxButton(&parent, wxID_ANY, ToWx(caption), wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
                              ToWx(name));
  SetAccessibleName(*button, FromWx(button->GetLabelText()));
  ActAtOnce(*button);
  ShowFocus(*button);
  return button;
}

}  // namespace quorvel::ui
