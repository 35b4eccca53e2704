#pragma once

#include <quorvel/quorvel.h>

#include <string>
#include <string_view>
#include <utility>

/// What a C++ host keeps the component's pointers, texts and values in. Needs nothing of the product but its
/// published header.
namespace quorvel::test {

using namespace Quorvel;

using WideText = std::basic_string<OLECHAR>;
using WideView = std::basic_string_view<OLECHAR>;

/// One reference to an object, or null.
template <typename Interface>
class Reference {
 public:
  Reference() = default;
  /// Takes the caller's reference over.
  explicit Reference(Interface* object) noexcept : m_object(object) {}
  Reference(const Reference& other) noexcept : m_object(other.m_object) {
    if (m_object != nullptr) m_object->AddRef();
  }
  Reference(Reference&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
  Reference& operator=(Reference other) noexcept {
    std::swap(m_object, other.m_object);
    return *this;
  }
  ~Reference() { Reset(); }

  [[nodiscard]] Interface* Get() const noexcept { return m_object; }
  Interface* operator->() const noexcept { return m_object; }
  explicit operator bool() const noexcept { return m_object != nullptr; }
  /// Where a call delivers an object.
  [[nodiscard]] Interface** Put() noexcept {
    Reset();
    return &m_object;
  }
  /// Where QueryInterface and the like deliver it.
  [[nodiscard]] void** PutAny() noexcept { return reinterpret_cast<void**>(Put()); }
  /// For an argument by reference.
  [[nodiscard]] Interface** ByReference() noexcept { return &m_object; }
  void Reset() noexcept {
    if (m_object != nullptr) std::exchange(m_object, nullptr)->Release();
  }

 private:
  Interface* m_object = nullptr;
};

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
  /// Adds a reference of its own; null is no object.
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
  /// An argument that is left out.
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
  /// Refers to a `type` that stays the caller's.
  [[nodiscard]] static AnyValue ByReference(VARENUM type, void* target) noexcept {
    AnyValue value(static_cast<VARENUM>(VT_BYREF | type));
    value.m_value.byref = target;
    return value;
  }
  /// A value of that type that is all zeros.
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

/// What the thread's error object says. Taking it takes it away.
struct TakenError {
  bool isThere = false;
  GUID interfaceId{};
  WideText source;
  WideText description;
};

[[nodiscard]] inline TakenError TakeError() {
  TakenError taken;
  Reference<IErrorInfo> error;
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

/// The interface `riid` of an object, which may be null; null when it does not have it.
template <typename Interface>
[[nodiscard]] Reference<Interface> Ask(IUnknown* object, REFIID riid) {
  Reference<Interface> found;
  if (object != nullptr) object->QueryInterface(riid, found.PutAny());
  return found;
}

}  // namespace quorvel::test
