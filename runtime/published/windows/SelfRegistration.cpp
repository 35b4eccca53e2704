#include "runtime/published/windows/SelfRegistration.h"

#include <olectl.h>

#include "platform/windows/ModulePath.h"
#include "platform/windows/SystemHive.h"
#include "platform/windows/WideText.h"
#include "runtime/published/Registration.h"

namespace quorvel::published {
namespace {

using registry::Outcome;
using Change = Outcome (*)(registry::InstallationHive& machine, registry::InstallationHive& user,
                           const ServerFile& file);

HRESULT ResultOf(Outcome outcome) noexcept {
  if (outcome == Outcome::Done) return S_OK;
  return outcome == Outcome::Denied ? E_ACCESSDENIED : SELFREG_E_CLASS;
}

HRESULT ChangeRegistration(Change change) noexcept {
  try {
    const std::wstring wide = os::ModulePath();
    const ServerFile file{os::FromWide(wide), sizeof(void*) == 8};
    // A path that UTF-8 cannot represent would name another file.
    if (wide.empty() || os::ToWide(file.path) != wide) return SELFREG_E_CLASS;
    return ResultOf(change(registry::MachineHive(), registry::UserHive(), file));
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace

HRESULT RegisterServer() noexcept { return ChangeRegistration(Register); }

HRESULT UnregisterServer() noexcept { return ChangeRegistration(Unregister); }

}  // namespace quorvel::published
