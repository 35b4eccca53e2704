#include "window_library/MakeWindowLibrary.h"

#include "platform/wx/DialogPrompts.h"
#include "platform/wx/WindowSystem.h"
#include "window_library/ComponentWindows.h"

namespace quorvel {

WindowLibrary MakeWindowLibrary() {
  ui::RequireWindowSystem();
  return {std::make_shared<ComponentWindows>(), std::make_shared<ui::DialogPrompts>()};
}

}  // namespace quorvel
