#include "runtime/Successors.h"

namespace quorvel {

void Successors::Reserve(std::size_t count) {
  RemoveUnused();
  m_entries.reserve(m_entries.size() + count);
}

void Successors::Add(const std::shared_ptr<Remark>& original, const std::shared_ptr<Remark>& copy) noexcept {
  m_entries.push_back({original, copy});
}

void Successors::RemoveUnused() noexcept {
  std::erase_if(m_entries, [](const Entry& each) { return each.original.expired(); });
}

// A copy is replaced later than its original, so one pass is enough.
std::shared_ptr<Remark> Successors::Of(std::shared_ptr<Remark> remark) const noexcept {
  for (const Entry& each : m_entries) {
    if (remark && each.original.lock() == remark) remark = each.copy;
  }
  return remark;
}

}  // namespace quorvel
