#include "platform/wx/ModalDialog.h"

#include <algorithm>
#include <vector>

#include "platform/Error.h"
#include "platform/wx/DialogPrompts.h"
#include "platform/wx/HostLoop.h"
#include "platform/wx/HostWindows.h"
#include "platform/wx/WindowSystem.h"

namespace quorvel::ui {
namespace {

/// The open windows, the topmost last. Windows have one thread.
std::vector<ModalDialog*>& OpenWindows() {
  static std::vector<ModalDialog*> windows;
  return windows;
}

class Opened {
 public:
  explicit Opened(ModalDialog* window) { OpenWindows().push_back(window); }
  ~Opened() { OpenWindows().pop_back(); }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
};

constexpr long kStyle = wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX;

wxWindow* WithWindowSystem() {
  RequireWindowSystem();
  return nullptr;
}

}  // namespace

ModalDialog::ModalDialog(const wxString& title)
    : wxDialog(WithWindowSystem(), wxID_ANY, title, wxDefaultPosition, wxDefaultSize, kStyle | wxDIALOG_NO_PARENT) {
  Bind(wxEVT_CHAR_HOOK, &ModalDialog::CloseByEscape, this);
  Bind(wxEVT_SIZE, &ModalDialog::KeepSmallest, this);
}

ModalDialog::~ModalDialog() = default;

ModalDialog* ModalDialog::Topmost() { return OpenWindows().empty() ? nullptr : OpenWindows().back(); }

bool ModalDialog::IsOpen() const { return std::ranges::count(OpenWindows(), this) != 0; }

void ModalDialog::RunModal(const std::function<void()>& opened) {
  if (IsOpen()) ThrowAlreadyModal();
  // A handler may have failed while the window was filled.
  if (!m_failure) ShowUntilClosed(opened);
  if (ModalDialog* below = Topmost()) below->CloseAfterFailure();
  if (m_failure) std::rethrow_exception(std::exchange(m_failure, nullptr));
}

/// A window of the component belongs to the one that opened it, and the first to none: not even to a window of the host
/// that the toolkit happens to know.
void ModalDialog::ChooseOwner() {
  const long style = GetWindowStyleFlag() & ~wxDIALOG_NO_PARENT;
  SetWindowStyleFlag(Topmost() == nullptr ? style | wxDIALOG_NO_PARENT : style);
}

void ModalDialog::ShowUntilClosed(const std::function<void()>& opened) {
  ChooseOwner();
  const Opened open(this);
  const DefaultPointer pointer;
  HostWindows hostWindows;
  m_hostWindows = &hostWindows;
  m_opened = &opened;
  CallAfter(&ModalDialog::IsUp);
  ShowModalInHost(*this);
  m_opened = nullptr;
  m_hostWindows = nullptr;
}

void ModalDialog::IsUp() {
  const auto* opened = std::exchange(m_opened, nullptr);
  if (opened == nullptr) return;
  // Window managers may leave a new window behind the one that has the keyboard.
  Raise();
  if (*opened && !m_failure) Guard(*opened);
  CloseAfterFailure();
}

void ModalDialog::EndModal(int answer) {
  if (m_hostWindows != nullptr) m_hostWindows->Enable();
  wxDialog::EndModal(answer);
}

void ModalDialog::Finish() {
  if (IsModal()) EndModal(wxID_OK);
}

// The toolkit leaves Esc alone where there is no button for it.
void ModalDialog::CloseByEscape(wxKeyEvent& event) {
  if (event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers()) {
    Close();
  } else {
    event.Skip();
  }
}

void ModalDialog::SetSmallestInside(const wxSize& smallest) {
  m_smallest = smallest;
  m_border = GetSize() - GetClientSize();
  SetMinClientSize(smallest);
}

// The toolkit limits the whole window, and learns how wide its border is when the window is on the screen.
void ModalDialog::KeepSmallest(wxSizeEvent& event) {
  event.Skip();
  if (m_smallest == wxSize() || IsIconized()) return;
  if (GetSize() - GetClientSize() != m_border) SetSmallestInside(m_smallest);
  wxSize inside = GetClientSize();
  inside.IncTo(m_smallest);
  if (inside != GetClientSize()) SetClientSize(inside);
}

void ModalDialog::FailWith(std::exception_ptr failure) noexcept {
  if (!m_failure) m_failure = std::move(failure);
  CloseAfterFailure();
}

// The loop of a window below cannot be ended before those above it; it comes here again when they are closed.
void ModalDialog::CloseAfterFailure() {
  if (m_failure && Topmost() == this && IsModal()) EndModal(wxID_CANCEL);
}

}  // namespace quorvel::ui
