#include "admin/Managers.h"

#include <array>
#include <utility>

namespace quorvel {

void Managers::Bind(const ManageControls& c) {
  m_users.Init(*c.cboID);
  m_users.BindControls({.groups = c.Lists(0),
                        .cboBranch = c.cboBranch,
                        .chkUserActive = c.chkUserActive,
                        .txtFirstName = c.txtFirstName,
                        .txtLastName = c.txtLastName,
                        .grdRights = c.grdForm[0],
                        .grdRemarks = c.grdForm[1]});
  m_users.FillBranches();

  m_groups.Init(*c.cboID);
  m_groups.BindControls({.txtCaption = c.txtCaption[0],
                         .txtComment = c.txtComment[0],
                         .users = c.Lists(1),
                         .rights = c.Lists(2),
                         .remarkTypes = c.Lists(3),
                         .chkRight = {c.chkRight[0], c.chkRight[1], c.chkRight[2], c.chkRight[3]}});

  m_rights.Init(*c.cboID);
  m_rights.BindControls(
      {.txtCaption = c.txtCaption[1], .txtComment = c.txtComment[1], .groups = c.Lists(4), .grdUsers = c.grdForm[2]});

  m_remarks.Init(*c.cboID);
  m_remarks.BindControls({.txtCaption = c.txtCaption[2],
                          .txtComment = c.txtComment[2],
                          .txtEntity = c.txtCaption[8],
                          .groups = c.Lists(5),
                          .contexts = c.Lists(6),
                          .chkRight = {c.chkRight[4], c.chkRight[5], c.chkRight[6], c.chkRight[7], c.chkRight[8]},
                          .frmNewContext = c.frmNewContext});

  m_contexts.Init(*c.cboID);
  m_contexts.BindControls({.txtCaption = c.txtCaption[3],
                           .txtComment = c.txtComment[3],
                           .txtEntity = c.txtCaption[7],
                           .remarkTypes = c.Lists(7),
                           .chkRight = c.chkRight[9],
                           .cmdUp = c.cmdUp[1],
                           .cmdDown = c.cmdDown[1],
                           .chkGroupByType = c.chkGroupByType,
                           .udRowHeight = c.udRowHeight,
                           .txtRowHeight = c.txtRowHeight,
                           .chkAllowRowSizing = c.chkAllowRowSizing,
                           .cboEditBehavior = c.cboEditBehavior,
                           .frmNewContext = c.frmNewContext});

  m_entities.Init(*c.cboID);
  m_entities.BindControls({.txtCaption = c.txtCaption[4],
                           .txtComment = c.txtComment[4],
                           .txtProcedure = c.txtProcedure,
                           .txtEntity = c.txtEntity,
                           .grdContexts = c.grdForm[3],
                           .grdRemarks = c.grdForm[4]});
}

IMgr* Managers::Find(std::string_view view) noexcept {
  const std::array<std::pair<std::string_view, IMgr*>, 6> managers = {{{"Users", &m_users},
                                                                       {"Groups", &m_groups},
                                                                       {"Rights", &m_rights},
                                                                       {"Remarks", &m_remarks},
                                                                       {"Contexts", &m_contexts},
                                                                       {"Entities", &m_entities}}};
  for (const auto& [name, manager] : managers) {
    if (name == view) return manager;
  }
  return nullptr;
}

}  // namespace quorvel
