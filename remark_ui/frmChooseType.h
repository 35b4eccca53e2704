#pragma once

#include <cstdint>
#include <memory>

#include "platform/wx/ListSearch.h"
#include "platform/wx/ModalDialog.h"

class wxButton;
class wxListBox;

namespace quorvel {

class RemarkContext;
class RemarkType;

/// Lets the user pick the type of a new remark.
class frmChooseType : public ui::ModalDialog {
 public:
  frmChooseType();

  /// Returns the chosen type, and in `index` its 1-based position among the context's types. Returns null and -1 when
  /// the user may create no type or cancels. Opens no window when the user may create only one type.
  std::shared_ptr<RemarkType> ChooseType(const RemarkContext& context, std::int32_t& index);

 private:
  void LayOut();
  void BindHandlers();
  void cmdOK_Click();

  wxListBox* lstRemarkType;
  wxButton* cmdOK;
  wxButton* cmdCancel;
  ui::ListSearch m_search;
  bool m_cancelled = false;
};

}  // namespace quorvel
