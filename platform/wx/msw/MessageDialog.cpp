#include "platform/wx/MessageDialog.h"

#include <windows.h>

#include <wx/modalhook.h>
#include <wx/msw/winundef.h>

#include "platform/wx/Desktop.h"

namespace quorvel::ui {
namespace {

UINT TypeOf(long style) {
  UINT type = (style & wxYES_NO) != 0 ? MB_YESNO : MB_OK;
  if ((style & wxICON_ERROR) != 0) type |= MB_ICONHAND;
  if ((style & wxICON_QUESTION) != 0) type |= MB_ICONQUESTION;
  if ((style & wxICON_EXCLAMATION) != 0) type |= MB_ICONEXCLAMATION;
  return type;
}

int AnswerOf(int button) {
  switch (button) {
    case IDYES:
      return wxID_YES;
    case IDNO:
      return wxID_NO;
    case 0:
      throw NoWindowError("the system shows no message box");
    default:
      return wxID_OK;
  }
}

}  // namespace

// The toolkit's box is the system's newer one, which has no icon for questions.
int MessageDialog::ShowModal() {
  WX_HOOK_MODAL_DIALOG();
  const HWND owner = GetParent() != nullptr ? GetParent()->GetHWND() : nullptr;
  const UINT modality = owner != nullptr ? MB_APPLMODAL : MB_TASKMODAL;
  return AnswerOf(
      ::MessageBoxW(owner, GetMessage().wc_str(), GetCaption().wc_str(), TypeOf(GetMessageDialogStyle()) | modality));
}

}  // namespace quorvel::ui
