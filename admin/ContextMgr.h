#pragma once

#include "admin/ChildLists.h"
#include "admin/Manager.h"
#include "admin/NewItemDialog.h"
#include "data/Controls.h"

namespace quorvel {

/// The view "Contexts": places in the host, their display settings, and the remark types that they offer in order.
/// Unlike the other managers this one compares the names of fields with their letter case.
class ContextMgr final : public Manager {
 public:
  struct Controls {
    TextField* txtCaption = nullptr;
    TextField* txtComment = nullptr;
    TextField* txtEntity = nullptr;  ///< only shown
    ChildLists remarkTypes;          ///< lstCurrent in the order of DisplaySeq
    CheckField* chkRight = nullptr;  ///< priority of the type
    EnabledControl* cmdUp = nullptr;
    EnabledControl* cmdDown = nullptr;
    CheckField* chkGroupByType = nullptr;
    NumberField* udRowHeight = nullptr;
    TextField* txtRowHeight = nullptr;
    CheckField* chkAllowRowSizing = nullptr;
    Choice* cboEditBehavior = nullptr;  ///< filled by the window; a datum is the stored number
    NewItemDialog* frmNewContext = nullptr;
  };

  ContextMgr();

  void BindControls(const Controls& controls) { m_controls = controls; }

  void Create() override;
  void Delete() override;
  void AddChild(std::int32_t key) override;
  void RemoveChild(std::int32_t key) override;
  void ShowRight(std::int32_t key) override;
  void Update(std::string_view field) override;
  void InitControls() override;

 protected:
  void ShowFields(const ado::Recordset* row) override;
  void ShowChildren() override;
  void ShowGeneralPanel() override;

 private:
  Controls m_controls;
  std::int32_t m_entityKey = 0;  ///< the entity of the current context
};

}  // namespace quorvel
