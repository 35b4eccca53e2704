#pragma once

#include <cstdint>
#include <string>

#include "runtime/EditBehavior.h"

namespace quorvel {

/// A context as the database describes it.
struct ContextRecord {
  std::string caption;
  std::int32_t entityKey = 0;
  std::string entityName;
  std::string ownerProcedure;
  bool groupByType = false;
  bool allowRowSizing = false;
  std::int32_t rowHeight = 0;
  EditBehavior editBehavior = EditBehavior::AutoSaveOnClose;
};

/// An owner as its entity's procedure returns it.
struct OwnerRecord {
  std::int32_t key = 0;
  std::string name;
};

}  // namespace quorvel
