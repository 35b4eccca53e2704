#include "window_library/ComponentWindows.h"

#include <memory>

#include "admin/window/frmManage.h"
#include "platform/Error.h"
#include "platform/wx/Desktop.h"
#include "platform/wx/DialogPrompts.h"
#include "platform/wx/HostLoop.h"
#include "platform/wx/WindowSystem.h"

namespace quorvel {
namespace {

/// The window in `window`, which is made when there is none.
template <typename Window>
Window& Only(wxWeakRef<Window>& window) {
  ui::RequireWindowSystem();
  if (!window) window = new Window;
  return *window;
}

}  // namespace

WindowLibrary ComponentWindows::Start() {
  ui::RequireWindowSystem();
  return {std::make_shared<ComponentWindows>(), std::make_shared<ui::DialogPrompts>()};
}

void ComponentWindows::ViewPopup(RemarkContext& context) {
  const ui::VisualStyles styles;
  Only(m_popup).View(context);
}

void ComponentWindows::ViewEdit(RemarkContext& context) {
  const ui::VisualStyles styles;
  Only(m_edit).View(context);
}

void ComponentWindows::ViewManager(std::int32_t modal) {
  ui::RequireWindowSystem();
  const ui::VisualStyles styles;
  if (modal == 0 && !ui::HostRunsLoop()) {
    throw Error(ErrorNumber::Component, "RemarkContext.ViewManager",
                "No window can stay open: the host runs no event loop of GTK. Open it modal.");
  }
  auto window = std::make_unique<frmManage>();
  window->Load();
  if (modal != 0) return window->RunModal();
  window.release()->ShowModeless();
}

}  // namespace quorvel
