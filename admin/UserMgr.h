#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "admin/ChildLists.h"
#include "admin/Manager.h"
#include "data/Controls.h"

namespace quorvel {

/// The view "Users": users, their groups, and the rights that they have through their groups.
class UserMgr final : public Manager {
 public:
  struct Controls {
    ChildLists groups;
    Choice* cboBranch = nullptr;
    CheckField* chkUserActive = nullptr;
    TextField* txtFirstName = nullptr;
    TextField* txtLastName = nullptr;
    RowsView* grdRights = nullptr;
    RowsView* grdRemarks = nullptr;
  };

  UserMgr();

  void BindControls(const Controls& controls) { m_controls = controls; }
  /// Fills cboBranch with the branches, once. Error 91 when their load has failed.
  void FillBranches();

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
  void ShowBranch(std::string_view branch);
  /// The empty text for no branch.
  [[nodiscard]] std::string SelectedBranch() const;
  void Link(std::string_view procedure, std::int32_t groupKey);

  Controls m_controls;
  bool m_loading = false;  ///< set while the manager fills the General panel
};

}  // namespace quorvel
