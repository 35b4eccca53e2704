#include "host/sample/Boxes.h"

#include <wx/msgdlg.h>

#include "host/sample/Advice.h"

namespace sample {

wxString Describe(const ComponentError& failure) {
  wxString text = failure.description;
  const wxString advice = AdviceOnCall(failure.number);
  if (!advice.empty()) text += "\n\n" + advice;
  return text + wxString::Format("\n\nError %ld from %s", failure.number, failure.source);
}

void ShowFailure(wxWindow* parent, const wxString& text) {
  wxMessageDialog(parent, text, kProgramTitle, wxOK | wxICON_EXCLAMATION).ShowModal();
}

UnsavedAnswer AskAboutUnsaved(wxWindow& parent, const wxString& place, const ComponentError* failure) {
  const wxString reason = failure != nullptr ? Describe(*failure) : place + " does not save by itself.";
  wxMessageDialog box(&parent, reason + "\n\nYour changes are not saved yet.", kProgramTitle,
                      wxYES_NO | wxCANCEL | wxCANCEL_DEFAULT | wxICON_EXCLAMATION);
  box.SetYesNoCancelLabels("&Save", "&Throw away", "&Open again");
  switch (box.ShowModal()) {
    case wxID_YES:
      return UnsavedAnswer::Save;
    case wxID_NO:
      return UnsavedAnswer::ThrowAway;
    default:  // Esc must not throw anything away
      return UnsavedAnswer::OpenAgain;
  }
}

}  // namespace sample
