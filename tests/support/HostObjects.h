#pragma once

#include <quorvel/quorvel.h>

#include <string>
#include <string_view>
#include <utility>

#include "platform/com/Pointer.h"

/// Owners for the pointers, texts and values that a C++ host exchanges with the component.
namespace quorvel::test {

using namespace Quorvel;
using com::Pointer;
using com::Query;

using WideText = std::basic_string<OLECHAR>;
using WideView = std::basic_string_view<OLECHAR>;

/// For QueryInterface and other functions that return an object through a void**.
template <typename Interface>
[[nodiscard]] void** PutAny(Pointer<Interface>& object) noexcept {
  return reinterpret_cast<void**>(object.Put());
}

/// A BSTR.
class Text {
 public:
  Text() = default;
  Text(WideView text) noexcept : m_text(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  Text(const OLECHAR* text) noexcept : Text(WideView(text)) {}
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  ~Text() { SysFreeString(m_text); }

  [[nodiscard]] BSTR Get() const noexcept { return m_text; }
  [[nodiscard]] WideView View() const noexcept { return {m_text, SysStringLen(m_text)}; }
  [[nodiscard]] BSTR* Put() noexcept {
    SysFreeString(std::exchange(m_text, nullptr));
    return &m_text;
  }
  [[nodiscard]] BSTR* ByReference() noexcept { return &m_text; }

 private:
  BSTR m_text = nullptr;
};

/// A VARIANT.
class AnyValue {
 public:
  AnyValue() noexcept { VariantInit(&m_value); }
  AnyValue(LONG number) noexcept : AnyValue(VT_I4) { m_value.lVal = number; }
  AnyValue(DOUBLE number) noexcept : AnyValue(VT_R8) { m_value.dblVal = number; }
  AnyValue(bool flag) noexcept : AnyValue(VT_BOOL) { m_value.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE; }
  AnyValue(const OLECHAR* text) noexcept : AnyValue(WideView(text)) {}
  AnyValue(WideView text) noexcept : AnyValue(VT_BSTR) {
    m_value.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  }
  /// Adds a reference; null is VT_DISPATCH without an object.
  AnyValue(IDispatch* object) noexcept : AnyValue(VT_DISPATCH) {
    m_value.pdispVal = object;
    if (object != nullptr) object->AddRef();
  }
  AnyValue(const AnyValue& other) noexcept : AnyValue() { VariantCopy(&m_value, const_cast<VARIANT*>(&other.m_value)); }
  AnyValue(AnyValue&& other) noexcept : m_value(other.m_value) { VariantInit(&other.m_value); }
  AnyValue& operator=(AnyValue other) noexcept {
    std::swap(m_value, other.m_value);
    return *this;
  }
  ~AnyValue() { VariantClear(&m_value); }

  [[nodiscard]] static AnyValue Null() noexcept { return AnyValue(VT_NULL); }
  /// An omitted argument.
  [[nodiscard]] static AnyValue Missing() noexcept {
    AnyValue value(VT_ERROR);
    value.m_value.scode = DISP_E_PARAMNOTFOUND;
    return value;
  }
  [[nodiscard]] static AnyValue Date(DATE date) noexcept {
    AnyValue value(VT_DATE);
    value.m_value.date = date;
    return value;
  }
  /// Refers to a `type` that the caller keeps.
  [[nodiscard]] static AnyValue ByReference(VARENUM type, void* target) noexcept {
    AnyValue value(static_cast<VARENUM>(VT_BYREF | type));
    value.m_value.byref = target;
    return value;
  }
  /// A value of `type` with all bits zero.
  [[nodiscard]] static AnyValue ZeroOf(VARENUM type) noexcept { return AnyValue(type); }

  [[nodiscard]] const VARIANT& Get() const noexcept { return m_value; }
  [[nodiscard]] VARIANT* Pointer() noexcept { return &m_value; }
  [[nodiscard]] VARIANT* Put() noexcept {
    VariantClear(&m_value);
    return &m_value;
  }

 private:
  explicit AnyValue(VARENUM type) noexcept : AnyValue() { m_value.vt = type; }

  VARIANT m_value;
};

/// An EXCEPINFO that frees its texts.
struct OwnedException {
  EXCEPINFO info{};
  OwnedException() = default;
  OwnedException(const OwnedException&) = delete;
  OwnedException& operator=(const OwnedException&) = delete;
  ~OwnedException() {
    for (const BSTR text : {info.bstrSource, info.bstrDescription, info.bstrHelpFile}) SysFreeString(text);
  }
};

/// The content of the thread's error object, which TakeError removes.
struct TakenError {
  bool isThere = false;
  GUID interfaceId{};
  WideText source;
  WideText description;
};

[[nodiscard]] inline TakenError TakeError() {
  TakenError taken;
  Pointer<IErrorInfo> error;
  if (GetErrorInfo(0, error.Put()) != S_OK) return taken;
  Text source;
  Text description;
  taken.isThere = true;
  error->GetGUID(&taken.interfaceId);
  error->GetSource(source.Put());
  error->GetDescription(description.Put());
  taken.source = source.View();
  taken.description = description.View();
  return taken;
}

}  // namespace quorvel::test
