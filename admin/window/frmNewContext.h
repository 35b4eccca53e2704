#pragma once

#include "admin/NewItemDialog.h"
#include "admin/window/BoundLists.h"
#include "platform/wx/ModalDialog.h"

class wxButton;
class wxStaticText;
class wxTextCtrl;

namespace quorvel {

class SearchCombo;

/// Asks for the ID of a new context or remark type and for its remark entity. Set it up first, then ask.
class frmNewContext : public ui::ModalDialog {
 public:
  frmNewContext();

  void SetUpForContext();
  void SetUpForRemarkType();

  /// Loads the global recordsets, so that all remark entities are offered that there are now, and shows the dialog
  /// until it is closed. The ID is empty when the user cancels; otherwise there is an entity. The errors of the load
  /// pass through.
  [[nodiscard]] NewItem Ask();

 private:
  void LayOut();
  void BindHandlers();
  void Fill();
  void cmdCreate_Click();
  void Refuse(const char* text, const char* title, wxWindow& control);

  wxStaticText* lblContextID;
  wxTextCtrl* txtContextID;
  wxStaticText* lblEntityType;
  SearchCombo* cboEntityType;
  wxButton* cmdCreate;
  wxButton* cmdCancel;
  BoundCombo m_entities;
  NewItem m_answer;
};

}  // namespace quorvel
