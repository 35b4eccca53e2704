#include "window_library/ComponentWindows.h"

#include "platform/Error.h"
#include "platform/wx/Desktop.h"
#include "platform/wx/DialogPrompts.h"
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

void ComponentWindows::ViewManager(std::int32_t /*modal*/) {
  throw Error(ErrorNumber::Component, "RemarkContext.ViewManager",
              "No window can be opened: this version has no administration window");
}

}  // namespace quorvel
