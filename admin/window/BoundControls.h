#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "admin/ManageControls.h"
#include "admin/window/BoundFields.h"
#include "admin/window/BoundGrid.h"
#include "admin/window/BoundLists.h"

namespace quorvel {

/// A text box that the user types into.
struct TypedField {
  std::string_view view;
  std::string_view field;  ///< the name that Administration::ChangeText takes
  BoundText* text;
};

/// The faces of the administration window, by the names of the controls. The members of an array are those of
/// ManageControls; members that it does not use stay unattached.
struct BoundControls {
  BoundControls() = default;
  BoundControls(const BoundControls&) = delete;
  BoundControls& operator=(const BoundControls&) = delete;

  /// The faces as the rules take them; `frmNewContext` is the caller's.
  [[nodiscard]] ManageControls Faces(NewItemDialog& frmNewContext);

  BoundCombo cboID;
  std::array<BoundText, 9> txtCaption;
  std::array<BoundText, 5> txtComment;
  std::array<BoundList, 8> lstCurrent;
  std::array<BoundList, 8> lstRemaining;
  std::array<BoundButton, 8> cmdAdd;
  std::array<BoundButton, 8> cmdRemove;
  std::array<BoundCheck, 10> chkRight;
  BoundButton cmdUp;
  BoundButton cmdDown;
  BoundText txtFirstName;
  BoundText txtLastName;
  BoundCheck chkUserActive;
  BoundCombo cboBranch;
  BoundCheck chkGroupByType;
  BoundCheck chkAllowRowSizing;
  BoundNumber udRowHeight;  ///< also txtRowHeight
  BoundCombo cboEditBehavior;
  BoundText txtProcedure;
  BoundText txtEntity;
  std::array<BoundGrid, 5> grdForm;

  std::vector<TypedField> typed;
};

}  // namespace quorvel
