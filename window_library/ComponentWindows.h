#pragma once

// wx/weakref.h uses this header but does not include it.
#include <type_traits>

#include <wx/weakref.h>

#include "remark_ui/frmEdit.h"
#include "remark_ui/frmPopup.h"
#include "runtime/RemarkWindows.h"
#include "runtime/WindowLibrary.h"

namespace quorvel {

/// The component's own windows: one pop-up and one editor, each made at its first use and used again, and a new
/// administration window for each call. Every call throws as RequireWindowSystem does when no window can be opened on
/// the calling thread.
class ComponentWindows : public RemarkWindows {
 public:
  /// Starts the toolkit on the calling thread and returns new ComponentWindows with the prompts that belong to them.
  /// Throws as RequireWindowSystem does.
  [[nodiscard]] static WindowLibrary Start();

  void ViewPopup(RemarkContext& context) override;
  void ViewEdit(RemarkContext& context) override;
  /// `modal` is 0 for a modeless window, which lives on the host's event loop until the user closes it or the host
  /// ends; several may be open. Any other number is modal: the call returns when the window is closed. Error -1 for a
  /// modeless window in a host without such a loop. The errors of connecting to the database pass through, and then no
  /// window opens.
  void ViewManager(std::int32_t modal) override;

 private:
  // The toolkit owns them, as it owns every window without a parent: a host that ends the toolkit destroys them.
  wxWeakRef<frmPopup> m_popup;
  wxWeakRef<frmEdit> m_edit;
};

}  // namespace quorvel
