#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "runtime/Remark.h"

namespace quorvel {

/// The copies that Restore has put in the place of remarks. A window or a host may still hold such a remark, and its
/// key need not tell which copy stands for it: a new remark has none, and that of a deleted memo counts no more.
class Successors {
 public:
  /// Makes room for `count` more, so that Add does not fail.
  void Reserve(std::size_t count);
  /// After Reserve: `copy` replaces `original`.
  void Add(const std::shared_ptr<Remark>& original, const std::shared_ptr<Remark>& copy) noexcept;
  /// Forgets the remarks that no window and no host holds any more.
  void RemoveUnused() noexcept;

  /// The last copy that has replaced this remark, also through former copies; `remark` itself, or null, when none
  /// has.
  [[nodiscard]] std::shared_ptr<Remark> Of(std::shared_ptr<Remark> remark) const noexcept;

 private:
  struct Entry {
    std::weak_ptr<Remark> original;
    std::shared_ptr<Remark> copy;
  };
  std::vector<Entry> m_entries;  ///< in the order of the Restores
};

}  // namespace quorvel
