#pragma once

#include <array>
#include <cstddef>
#include <utility>

#include "platform/com/Com.h"

namespace quorvel::test {

using namespace Quorvel;

/// Acts as an object of any interface and records which slot of its table of operations was called last. Works on
/// 64-bit systems only: there the caller removes the arguments, so one function fits every call.
class SlotRecorder {
 public:
  /// The first member is the pointer to the table, as in every object.
  [[nodiscard]] IDispatch& AsObject() noexcept { return reinterpret_cast<IDispatch&>(*this); }

  [[nodiscard]] std::size_t Last() const noexcept { return m_last; }

 private:
  using Slot = HRESULT(QUORVEL_CALL*)(SlotRecorder* self);
  static constexpr std::size_t kMost = 64;

  template <std::size_t Index>
  static HRESULT QUORVEL_CALL Record(SlotRecorder* self) noexcept {
    self->m_last = Index;
    return S_OK;
  }
  template <std::size_t... Index>
  static const Slot* Slots(std::index_sequence<Index...>) noexcept {
    static constexpr std::array<Slot, sizeof...(Index)> slots{&Record<Index>...};
    return slots.data();
  }

  const Slot* m_table = Slots(std::make_index_sequence<kMost>{});
  std::size_t m_last = kMost;
};

}  // namespace quorvel::test
