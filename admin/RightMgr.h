#pragma once

#include <cstdint>
#include <string_view>

#include "admin/ChildLists.h"
#include "admin/Manager.h"
#include "data/Controls.h"

namespace quorvel {

/// The view "Rights": rights, the groups that hold them, and the users who have them through a group.
class RightMgr final : public Manager {
 public:
  struct Controls {
    TextField* txtCaption = nullptr;
    TextField* txtComment = nullptr;
    ChildLists groups;
    RowsView* grdUsers = nullptr;
  };

  RightMgr();

  void BindControls(const Controls& controls) { m_controls = controls; }

  void Create() override;
  void Delete() override;
  void AddChild(std::int32_t key) override;
  void RemoveChild(std::int32_t key) override;
  void ShowRight(std::int32_t /*key*/) override {}
  void Update(std::string_view field) override;
  void InitControls() override {}

 protected:
  void ShowFields(const ado::Recordset* row) override;
  void ShowChildren() override;

 private:
  void Link(std::string_view procedure, std::int32_t groupKey);

  Controls m_controls;
};

}  // namespace quorvel
