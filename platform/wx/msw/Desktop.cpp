#include "platform/wx/Desktop.h"

#include <windows.h>

#include <wx/init.h>

#include "platform/wx/VisualStyles.h"

namespace quorvel::ui::desktop {
namespace {

/// Its address tells which module this is.
const char kInThisModule = 0;

bool HasVisibleDesktop() {
  USEROBJECTFLAGS flags{};
  const HWINSTA station = ::GetProcessWindowStation();
  return station != nullptr && ::GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof(flags), nullptr) != 0 &&
         (flags.dwFlags & WSF_VISIBLE) != 0;
}

/// The toolkit leaves window classes and hooks behind that lead into this module, so it stays loaded from here on.
HINSTANCE PinnedModule() {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const wchar_t*>(&kInThisModule), &module);
  return module;
}

}  // namespace

void Require() {
  if (!HasVisibleDesktop()) throw NoWindowError("the program runs on no desktop that a person sees, as services do");
}

bool StartToolkit() {
  const HINSTANCE module = PinnedModule();
  // It looks up which library of controls there is and keeps the answer.
  const VisualStyles styles;
  return module != nullptr && wxEntryStart(module);
}

}  // namespace quorvel::ui::desktop
