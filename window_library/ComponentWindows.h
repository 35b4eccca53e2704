#pragma once

// The toolkit's header below uses it and does not ask for it.
#include <type_traits>

#include <wx/weakref.h>

#include "remark_ui/frmEdit.h"
#include "remark_ui/frmPopup.h"
#include "runtime/RemarkWindows.h"

namespace quorvel {

/// The component's own windows: one pop-up and one editor, made when first needed and used again. Every call makes
/// sure that windows can be opened on the calling thread and throws the error that says why not.
class ComponentWindows : public RemarkWindows {
 public:
  void ViewPopup(RemarkContext& context) override;
  void ViewEdit(RemarkContext& context) override;
  /// Error -1: this version has no administration window.
  void ViewManager(std::int32_t modal) override;

 private:
  // The toolkit's, as all windows without a parent are: a host that ends it ends them too.
  wxWeakRef<frmPopup> m_popup;
  wxWeakRef<frmEdit> m_edit;
};

}  // namespace quorvel
