#include "runtime/RemarkTypes.h"

#include <algorithm>
#include <utility>

#include "platform/Error.h"

namespace quorvel {

void RemarkTypes::Add(std::shared_ptr<RemarkType> type, std::string_view key) {
  if (m_positions.contains(key)) ThrowDuplicateKey();
  std::string exactKey(key);
  m_keys.reserve(m_keys.size() + 1);
  m_types.reserve(m_types.size() + 1);
  m_positions.emplace(exactKey, m_types.size());
  m_keys.push_back(std::move(exactKey));
  m_types.push_back(std::move(type));
}

std::shared_ptr<RemarkType> RemarkTypes::Item(const Value& indexKey) const noexcept {
  if (const auto* key = std::get_if<std::string>(&indexKey)) return Find(*key);
  try {
    const std::int32_t position = ToInt32(indexKey);
    if (position >= 1 && position <= Count()) return m_types[static_cast<std::size_t>(position) - 1];
  } catch (...) {  // NOLINT(bugprone-empty-catch): an index that is no number finds no type
  }
  return nullptr;
}

const std::shared_ptr<RemarkType>& RemarkTypes::Find(std::string_view key) const noexcept {
  static const std::shared_ptr<RemarkType> none;
  // Nearly every row has the spelling of the type itself.
  const auto same = std::ranges::find(m_keys, key);
  if (same != m_keys.end()) return m_types[static_cast<std::size_t>(same - m_keys.begin())];
  const auto found = m_positions.find(key);
  return found == m_positions.end() ? none : m_types[found->second];
}

}  // namespace quorvel
