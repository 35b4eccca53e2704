#pragma once

#include <cstdint>
#include <memory>

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

  /// The chosen type, with its 1-based position among the context's types in `index`; null and -1 when there is nothing
  /// to choose or the user cancels. Asks nobody where only one type may be created.
  std::shared_ptr<RemarkType> ChooseType(const RemarkContext& context, std::int32_t& index);

 private:
  void LayOut();
  void BindHandlers();
  void cmdOK_Click();

  wxListBox* lstRemarkType;
  wxButton* cmdOK;
  wxButton* cmdCancel;
  bool m_cancelled = false;
};

}  // namespace quorvel
