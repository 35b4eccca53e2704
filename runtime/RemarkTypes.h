#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Text.h"
#include "platform/Value.h"
#include "runtime/RemarkType.h"

namespace quorvel {

/// The types of a context in load order, found by 1-based position or by TypeID in any letter case.
class RemarkTypes {
 public:
  /// Error 457 when a type with that key is there already.
  void Add(std::shared_ptr<RemarkType> type, std::string_view key);
  /// Null when there is no such type or the index is no number.
  [[nodiscard]] std::shared_ptr<RemarkType> Item(const Value& indexKey) const noexcept;
  /// The type with that key, or null.
  [[nodiscard]] const std::shared_ptr<RemarkType>& Find(std::string_view key) const noexcept;
  [[nodiscard]] std::int32_t Count() const noexcept { return static_cast<std::int32_t>(m_types.size()); }
  [[nodiscard]] const std::vector<std::shared_ptr<RemarkType>>& All() const noexcept { return m_types; }

 private:
  std::vector<std::shared_ptr<RemarkType>> m_types;
  std::vector<std::string> m_keys;  ///< in the same order
  std::map<std::string, std::size_t, LessIgnoringCase> m_positions;
};

}  // namespace quorvel
