#include "platform/wx/Desktop.h"

#include <windows.h>

#include <wx/init.h>
#include <wx/window.h>

#include "platform/windows/ModulePath.h"

namespace quorvel::ui {
namespace {

/// Its address identifies the module that contains this code.
const char kInThisModule = 0;

bool HasVisibleDesktop() {
  USEROBJECTFLAGS flags{};
  const HWINSTA station = ::GetProcessWindowStation();
  return station != nullptr && ::GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof(flags), nullptr) != 0 &&
         (flags.dwFlags & WSF_VISIBLE) != 0;
}

/// Wine without a display has a desktop on which no window can be made.
bool MakesWindows() {
  const HWND window =
      ::CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
  return window != nullptr && ::DestroyWindow(window) != 0;
}

/// The toolkit leaves window classes and hooks that point into this module, so the module is never unloaded.
HINSTANCE PinnedModule() {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const wchar_t*>(&kInThisModule), &module);
  return module;
}

/// The toolkit loads these by their bare names, for which Windows looks in the folder of the host's program first
/// unless a DLL of that name is loaded already.
void LoadFromSystemFolder() noexcept {
  for (const wchar_t* name : {L"msimg32.dll", L"shcore.dll"}) {
    ::LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  }
}

HANDLE CreateContext() noexcept {
  try {
    const std::wstring file = os::ModulePath();
    ACTCTXW request{};
    request.cbSize = sizeof(request);
    request.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    request.lpSource = file.c_str();
    request.lpResourceName = ISOLATIONAWARE_MANIFEST_RESOURCE_ID;
    return ::CreateActCtxW(&request);
  } catch (...) {
    return INVALID_HANDLE_VALUE;
  }
}

/// The context of the manifest in the component's own file. The system lets each program choose between two libraries
/// of controls, and without a context the host's choice would apply to the component. Never released, because controls
/// refer to it; INVALID_HANDLE_VALUE when there is none.
HANDLE Context() noexcept {
  static const HANDLE context = CreateContext();
  return context;
}

}  // namespace

void RequireDesktop() {
  if (!HasVisibleDesktop()) throw NoWindowError("the program runs on no desktop that a person sees, as services do");
  if (!MakesWindows()) throw NoWindowError(kSystemMakesNone);
}

bool StartToolkit() {
  const HINSTANCE module = PinnedModule();
  // The toolkit looks up which library of controls there is and keeps the answer.
  const VisualStyles styles;
  LoadFromSystemFolder();
  return module != nullptr && wxEntryStart(module);
}

// The system takes a program that looks at no message for five seconds for a dead one. The flags leave out what other
// threads send, because handlers of the host would run; not every system obeys them, and Wine does not.
void ReceiveEvents() {
  MSG first{};
  static_cast<void>(::PeekMessageW(&first, nullptr, 0, 0, PM_NOREMOVE | PM_QS_INPUT | PM_QS_PAINT));
}

void DrawNow(wxWindow& window) {
  ::RedrawWindow(window.GetHandle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

VisualStyles::VisualStyles() noexcept {
  ULONG_PTR cookie = 0;
  m_active = Context() != INVALID_HANDLE_VALUE && ::ActivateActCtx(Context(), &cookie) != 0;
  m_cookie = cookie;
}

VisualStyles::~VisualStyles() {
  if (m_active) ::DeactivateActCtx(0, m_cookie);
}

}  // namespace quorvel::ui
