#pragma once

#include <array>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "platform/com/Text.h"
#include "platform/com/Variant.h"

namespace quorvel::fuzz {

using namespace Quorvel;

/// The whole number that `text` begins with, which is taken from its front; 0 without one.
inline LONGLONG TakeNumber(std::string_view& text) {
  LONGLONG number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
  return number;
}

/// A VARIANT that a line of text describes as TYPE:VALUE, with the type as its number: `8:a text`, `3:-12`,
/// `7:45000.5`. A decimal is 14:DIGITS/SCALE. An & in front makes it a reference, && a reference to a VARIANT. Every
/// other type, one that no host should pass included, has the number as its bits.
class GivenValue {
 public:
  /// `object`, which may be null, is the value of an object's type.
  explicit GivenValue(std::string_view line, IUnknown* object = nullptr) {
    std::size_t references = 0;
    while (line.starts_with('&')) {
      line.remove_prefix(1);
      ++references;
    }
    Read(line, object);
    const bool isWhole = (m_value.vt & ~VT_BYREF) == VT_DECIMAL || (m_value.vt & ~VT_BYREF) == VT_VARIANT;
    void* const part = &m_value.llVal;
    if (references == 1) Refer(m_value.vt, isWhole ? &m_value : part);
    if (references > 1) Refer(VT_VARIANT, &m_value);
  }

  [[nodiscard]] const VARIANT& Get() const noexcept { return m_reference.vt != VT_EMPTY ? m_reference : m_value; }

 private:
  void Read(std::string_view line, IUnknown* object) {
    const auto type = static_cast<VARTYPE>(TakeNumber(line));
    if (line.starts_with(':')) line.remove_prefix(1);
    if (type == VT_BSTR) {
      m_value.bstrVal = com::ToBstr(line);
    } else if (type == VT_DISPATCH || type == VT_UNKNOWN) {
      m_value.punkVal = object;
      if (object != nullptr) object->AddRef();
    } else if (type == VT_R4) {
      m_value.fltVal = std::strtof(std::string(line).c_str(), nullptr);
    } else if (type == VT_R8 || type == VT_DATE) {
      m_value.dblVal = std::strtod(std::string(line).c_str(), nullptr);
    } else if (type == VT_DECIMAL) {
      ReadDecimal(line);
    } else if ((type & VT_BYREF) == 0) {
      m_value.llVal = TakeNumber(line);
    }
    m_value.vt = type;
  }

  void ReadDecimal(std::string_view line) {
    const LONGLONG digits = TakeNumber(line);
    if (!line.empty()) line.remove_prefix(1);
    const auto form = static_cast<ULONG>(TakeNumber(line));
    const DECIMAL decimal{VT_DECIMAL, static_cast<BYTE>(form), static_cast<BYTE>(digits < 0 ? 0x80 : 0), form >> 16U,
                          digits < 0 ? ~static_cast<ULONGLONG>(digits) + 1 : static_cast<ULONGLONG>(digits)};
    std::memcpy(&m_value, &decimal, sizeof(decimal));
  }

  void Refer(VARTYPE type, void* target) {
    m_reference.vt = static_cast<VARTYPE>(VT_BYREF | type);
    m_reference.byref = target;
  }

  com::OwnedVariant m_owned;
  VARIANT& m_value = m_owned.Get();
  VARIANT m_reference{};
};

}  // namespace quorvel::fuzz
