#pragma once

#include <cstdint>
#include <memory>

#include "ado/Recordset.h"
#include "data/Controls.h"

// The order of the remark types in a context: DisplaySeq of ttwRemarkContext, which counts from 0 in each context. A
// type's contexts have no order, so the view of remark types numbers from the stored positions. The view of contexts
// lists a context's types in their order and numbers from that list.

namespace quorvel {

/// A remark type in a context: one row of ttwRemarkContext.
struct ContextLink {
  std::int32_t contextKey = 0;
  std::int32_t remarkTypeKey = 0;
};

/// Links a type with a context. Its position follows the last one that was stored before.
void AppendLink(const ContextLink& link);

/// Moves the types after this one up by one position, and removes the link last. Error -1 when there is no such link.
void RemoveLink(const ContextLink& link);

/// The remark types of one context, in a list in the order of their positions. The list must outlive the object; it is
/// only read. Each operation is error -1 when a link that it reads is no longer there.
class ListedTypes {
 public:
  ListedTypes(std::int32_t contextKey, const ItemList& list) noexcept : m_contextKey(contextKey), m_list(list) {}

  /// RemarkTypeKey, Priority and DisplaySeq of the link with a type.
  [[nodiscard]] std::shared_ptr<ado::Recordset> Link(std::int32_t remarkTypeKey) const;

  /// Links a type, which the list does not have yet. Its position follows that of the list's last entry.
  void Append(std::int32_t remarkTypeKey) const;
  /// Gives the entries after the current one consecutive positions from its own on, and removes its link last.
  void RemoveCurrent() const;
  /// Exchanges the positions of two entries, with two writes. Positions that are equal stay so.
  void Exchange(std::int32_t index, std::int32_t otherIndex) const;

 private:
  [[nodiscard]] std::int32_t Position(std::int32_t index) const;
  void WritePosition(std::int32_t remarkTypeKey, std::int32_t position) const;

  std::int32_t m_contextKey;
  const ItemList& m_list;
};

}  // namespace quorvel
