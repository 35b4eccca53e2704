#include "platform/wx/VisualStyles.h"

#include <windows.h>

#include "platform/windows/ModulePath.h"

namespace quorvel::ui {
namespace {

/// The context of the manifest that the component's own file holds: the system has each program choose between two
/// libraries of controls, and a host's choice would be the component's. Kept for good, as the controls are that hang on
/// it; INVALID_HANDLE_VALUE when there is none.
HANDLE Context() noexcept {
  static const HANDLE context = []() noexcept {
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
  }();
  return context;
}

}  // namespace

VisualStyles::VisualStyles() noexcept {
  ULONG_PTR cookie = 0;
  m_active = Context() != INVALID_HANDLE_VALUE && ::ActivateActCtx(Context(), &cookie) != 0;
  m_cookie = cookie;
}

VisualStyles::~VisualStyles() {
  if (m_active) ::DeactivateActCtx(0, m_cookie);
}

}  // namespace quorvel::ui
