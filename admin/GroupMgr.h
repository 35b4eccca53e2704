#pragma once

#include <array>

#include "admin/ChildLists.h"
#include "admin/LinkFlags.h"
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

  void BindControls(const Controls& controls);

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
  /// A tab with a list pair: its statements, its fields and its procedures.
  struct Tab;

  /// Null for General.
  [[nodiscard]] const Tab* CurrentTab() const;
  void Link(std::string_view procedure, const Tab& tab, std::int32_t key) const;

  Controls m_controls;
  std::array<LinkFlag, 4> m_flags;
};

}  // namespace quorvel
