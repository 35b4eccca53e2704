#pragma once

#include <array>

#include "admin/ChildLists.h"
#include "admin/Manager.h"
#include "admin/NewItemDialog.h"
#include "data/Controls.h"

namespace quorvel {

/// The view "Remarks": remark types, the groups' rights on them, and the contexts that offer them.
class RemarkMgr final : public Manager {
 public:
  struct Controls {
    TextField* txtCaption = nullptr;
    TextField* txtComment = nullptr;
    TextField* txtEntity = nullptr;  ///< only shown
    ChildLists groups;
    ChildLists contexts;
    std::array<CheckField*, 5> chkRight{};  ///< create, update, read, delete; priority in the context
    NewItemDialog* frmNewContext = nullptr;
  };

  RemarkMgr();

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
  std::int32_t m_entityKey = 0;  ///< the entity of the current type
};

}  // namespace quorvel
