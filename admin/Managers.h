#pragma once

#include <string_view>

#include "admin/ContextMgr.h"
#include "admin/EntityMgr.h"
#include "admin/GroupMgr.h"
#include "admin/ManageControls.h"
#include "admin/RemarkMgr.h"
#include "admin/RightMgr.h"
#include "admin/UserMgr.h"

namespace quorvel {

/// The six managers of one administration window.
class Managers {
 public:
  /// Initializes each manager and gives it its controls, in the order user, group, right, remark type, context, entity.
  void Bind(const ManageControls& controls);

  /// The manager of a view, by its exact name; null for any other text.
  [[nodiscard]] IMgr* Find(std::string_view view) noexcept;

 private:
  UserMgr m_users;
  GroupMgr m_groups;
  RightMgr m_rights;
  RemarkMgr m_remarks;
  ContextMgr m_contexts;
  EntityMgr m_entities;
};

}  // namespace quorvel
