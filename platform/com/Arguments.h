#pragma once

#include <array>
#include <cstddef>

#include "platform/com/Dispatch.h"
#include "platform/com/Variant.h"

namespace quorvel::com {

/// The arguments of one call by name in the member's order and types. Values that need no conversion are borrowed from
/// the caller.
class Arguments {
 public:
  /// The maximum number of parameters of a member.
  static constexpr std::size_t kMaximum = 4;

  /// On failure sets `argumentInError`, which may be null, to the position in the caller's array. E_NOINTERFACE for an
  /// object of the wrong kind.
  HRESULT Take(const Member& member, const DISPPARAMS& given, LCID locale, UINT* argumentInError) noexcept;

  [[nodiscard]] VARIANT* Values() noexcept { return m_values.data(); }

 private:
  /// Finds the caller's argument for each parameter; null when there is none.
  HRESULT Match(const Member& member, const DISPPARAMS& given, UINT* argumentInError) noexcept;
  HRESULT Convert(const VARIANT& given, const ArgumentType& wanted, LCID locale, std::size_t position) noexcept;
  HRESULT ConvertObject(const VARIANT& given, const ArgumentType& wanted, std::size_t position) noexcept;
  void SetDefault(const Parameter& parameter, const ArgumentType& wanted, std::size_t position) noexcept;

  std::array<const VARIANT*, kMaximum> m_given{};
  std::array<VARIANT, kMaximum> m_values{};
  std::array<OwnedVariant, kMaximum> m_converted;
};

}  // namespace quorvel::com
