#pragma once

#include <array>

#include "admin/ChildLists.h"
#include "admin/NewItemDialog.h"
#include "data/Controls.h"

namespace quorvel {

/// The controls of the administration window, by their names there and as faces. The window owns them and outlives
/// every user of this list. An index is the member of a control array; the comments say whose it is.
struct ManageControls {
  Choice* cboID = nullptr;

  /// 0 groups, 1 rights, 2 remark types, 3 contexts, 4 entities; 7 and 8 the entity of a context and of a remark type,
  /// which are only shown; 5 and 6 are null.
  std::array<TextField*, 9> txtCaption{};
  /// 0 groups, 1 rights, 2 remark types, 3 contexts, 4 entities.
  std::array<TextField*, 5> txtComment{};

  /// 0 a user's groups; a group's 1 users, 2 rights, 3 remark types; 4 a right's groups; a remark type's 5 groups,
  /// 6 contexts; 7 a context's remark types.
  std::array<ItemList*, 8> lstCurrent{};
  std::array<ItemList*, 8> lstRemaining{};
  std::array<EnabledControl*, 8> cmdAdd{};
  std::array<EnabledControl*, 8> cmdRemove{};

  /// 0 to 3 a group's remark rights: create, update, read, delete; 4 to 7 the same of a remark type; 8 a type's
  /// priority in a context, 9 a context's priority flag for a type.
  std::array<CheckField*, 10> chkRight{};
  /// Member 1 of each array is used.
  std::array<EnabledControl*, 2> cmdUp{};
  std::array<EnabledControl*, 2> cmdDown{};

  TextField* txtFirstName = nullptr;
  TextField* txtLastName = nullptr;
  CheckField* chkUserActive = nullptr;
  Choice* cboBranch = nullptr;

  CheckField* chkGroupByType = nullptr;
  CheckField* chkAllowRowSizing = nullptr;
  NumberField* udRowHeight = nullptr;
  TextField* txtRowHeight = nullptr;
  Choice* cboEditBehavior = nullptr;

  TextField* txtProcedure = nullptr;
  TextField* txtEntity = nullptr;

  /// 0 a user's rights, 1 a user's remark rights, 2 a right's users, 3 an entity's contexts, 4 its remark types.
  std::array<RowsView*, 5> grdForm{};

  NewItemDialog* frmNewContext = nullptr;

  [[nodiscard]] ChildLists Lists(std::size_t index) const { return {lstCurrent.at(index), lstRemaining.at(index)}; }
};

}  // namespace quorvel
