#pragma once

#include <string_view>

#include "data/Controls.h"

namespace quorvel {

/// All groups, for the lists of every view that links groups.
inline constexpr std::string_view kAllGroups = "SELECT GroupKey, GroupID, Caption FROM ttwGroup";

/// The two lists of a child tab: the children that are linked to the current record, and the others.
struct ChildLists {
  ItemList* lstCurrent = nullptr;
  ItemList* lstRemaining = nullptr;

  /// Fills lstCurrent with the rows of `linkedSql`, and lstRemaining with those of `allSql` that are not among them. An
  /// item shows the text of `displayField`; its datum is `keyField`. Error 91 when a statement fails, which the user
  /// has then seen; the lists are then empty.
  void Fill(std::string_view allSql, std::string_view linkedSql, std::string_view displayField,
            std::string_view keyField) const;
};

/// The datum of the current item; error 91 when no item is current.
[[nodiscard]] std::int32_t SelectedKey(const ItemList& list);

}  // namespace quorvel
