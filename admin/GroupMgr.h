#pragma once

#include <array>

#include "admin/ChildLists.h"
#include "admin/Manager.h"
#include "data/Controls.h"

namespace quorvel {

/// The view "Groups": groups, their users, rights and remark rights.
class GroupMgr final : public Manager {
 public:
  struct Controls {
    TextField* txtCaption = nullptr;
    TextField* txtComment = nullptr;
    ChildLists users;
    ChildLists rights;
    ChildLists remarkTypes;
    std::array<CheckField*, 4> chkRight{};  ///< create, update, read, delete
  };

  GroupMgr();

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

 private:
  Controls m_controls;
};

}  // namespace quorvel
