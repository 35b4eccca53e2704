#include "platform/wx/MessageDialog.h"

#include <windows.h>

#include <utility>

#include <wx/modalhook.h>
#include <wx/msw/winundef.h>

#include "platform/wx/Desktop.h"
#include "platform/wx/Picture.h"

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

/// Puts the product's icon on the next box of the thread. The system makes and runs a message box in one call, so only
/// a hook of the thread learns of its window.
class IconOfNextBox {
 public:
  IconOfNextBox() {
    const wxIconBundle icons = ProductIcons();
    m_small = icons.GetIcon({::GetSystemMetrics(SM_CXSMICON), ::GetSystemMetrics(SM_CYSMICON)});
    m_large = icons.GetIcon({::GetSystemMetrics(SM_CXICON), ::GetSystemMetrics(SM_CYICON)});
    next = this;
    m_hook = ::SetWindowsHookExW(WH_CBT, Notice, nullptr, ::GetCurrentThreadId());
  }
  ~IconOfNextBox() { Release(); }
  IconOfNextBox(const IconOfNextBox&) = delete;
  IconOfNextBox& operator=(const IconOfNextBox&) = delete;

 private:
  static LRESULT CALLBACK Notice(int code, WPARAM window, LPARAM details) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the system passes the window as a number.
    if (code == HCBT_ACTIVATE && next != nullptr) next->SetOn(reinterpret_cast<HWND>(window));
    return ::CallNextHookEx(nullptr, code, window, details);
  }

  void SetOn(HWND box) {
    ::SendMessageW(box, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(m_small.GetHICON()));
    ::SendMessageW(box, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(m_large.GetHICON()));
    Release();
  }

  void Release() {
    if (m_hook != nullptr) ::UnhookWindowsHookEx(std::exchange(m_hook, nullptr));
    if (next == this) next = nullptr;
  }

  static inline IconOfNextBox* next = nullptr;  ///< only one thread has windows
  wxIcon m_small;
  wxIcon m_large;
  HHOOK m_hook = nullptr;
};

}  // namespace

// The toolkit's box is the system's newer one, which has no icon for questions.
int MessageDialog::ShowModal() {
  WX_HOOK_MODAL_DIALOG();
  const HWND owner = GetParent() != nullptr ? GetParent()->GetHWND() : nullptr;
  const UINT modality = owner != nullptr ? MB_APPLMODAL : MB_TASKMODAL;
  const IconOfNextBox icon;
  return AnswerOf(
      ::MessageBoxW(owner, GetMessage().wc_str(), GetCaption().wc_str(), TypeOf(GetMessageDialogStyle()) | modality));
}

}  // namespace quorvel::ui
