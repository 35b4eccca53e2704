#include "admin/window/BoundControls.h"

#include <cstddef>

namespace quorvel {
namespace {

template <typename Face, std::size_t size, typename Bound>
void Point(std::array<Face*, size>& faces, std::array<Bound, size>& bound) {
  for (std::size_t i = 0; i < size; ++i) faces.at(i) = &bound.at(i);
}

}  // namespace

ManageControls BoundControls::Faces(NewItemDialog& frmNewContext) {
  ManageControls faces;
  Point(faces.txtCaption, txtCaption);
  Point(faces.txtComment, txtComment);
  Point(faces.lstCurrent, lstCurrent);
  Point(faces.lstRemaining, lstRemaining);
  Point(faces.cmdAdd, cmdAdd);
  Point(faces.cmdRemove, cmdRemove);
  Point(faces.chkRight, chkRight);
  Point(faces.grdForm, grdForm);
  faces.cboID = &cboID;
  faces.cmdUp[1] = &cmdUp;
  faces.cmdDown[1] = &cmdDown;
  faces.txtFirstName = &txtFirstName;
  faces.txtLastName = &txtLastName;
  faces.chkUserActive = &chkUserActive;
  faces.cboBranch = &cboBranch;
  faces.chkGroupByType = &chkGroupByType;
  faces.chkAllowRowSizing = &chkAllowRowSizing;
  faces.udRowHeight = &udRowHeight;
  faces.txtRowHeight = &udRowHeight;
  faces.cboEditBehavior = &cboEditBehavior;
  faces.txtProcedure = &txtProcedure;
  faces.txtEntity = &txtEntity;
  faces.frmNewContext = &frmNewContext;
  return faces;
}

}  // namespace quorvel
