#pragma once

#include <array>

#include "admin/ChildLists.h"
#include "admin/LinkFlags.h"
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
  void ShowGeneralPanel() override;

 private:
  void LinkGroup(std::string_view procedure, std::int32_t groupKey) const;
  /// Shows the link that `linkSql` selects in its check boxes and enables them.
  static void Show(LinkFlags flags, std::string_view linkSql);
  /// Writes a check box into the link with the current item of `list` and shows the link as it is stored.
  void Write(const LinkFlag& flag, std::string_view table, std::string_view keyField, const ItemList& list);

  Controls m_controls;
  std::array<LinkFlag, 4> m_rights;    ///< of the selected group
  std::array<LinkFlag, 1> m_priority;  ///< in the selected context
  std::int32_t m_entityKey = 0;        ///< the entity of the current type
};

}  // namespace quorvel
