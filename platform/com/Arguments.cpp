#include "platform/com/Arguments.h"

namespace quorvel::com {
namespace {

HRESULT Fail(HRESULT result, UINT position, UINT* argumentInError) noexcept {
  if (argumentInError != nullptr) *argumentInError = position;
  return result;
}

/// Scripts mark an omitted argument between others with this error value.
bool IsOmitted(const VARIANT* value) noexcept {
  if (value == nullptr) return true;
  const VARIANT plain = Borrow(*value);
  return plain.vt == VT_ERROR && plain.scode == DISP_E_PARAMNOTFOUND;
}

}  // namespace

HRESULT Arguments::Match(const Member& member, const DISPPARAMS& given, UINT* argumentInError) noexcept {
  const std::size_t count = member.parameters.size();
  if (given.cArgs > 0 && given.rgvarg == nullptr) return E_POINTER;
  if (given.cNamedArgs > 0 && given.rgdispidNamedArgs == nullptr) return E_POINTER;
  if (given.cNamedArgs > given.cArgs || given.cArgs > count) return DISP_E_BADPARAMCOUNT;
  for (UINT index = 0; index < given.cNamedArgs; ++index) {
    const DISPID name = given.rgdispidNamedArgs[index];
    // The new value of a property is the last parameter.
    const auto position = name == DISPID_PROPERTYPUT ? count - 1 : static_cast<std::size_t>(name);
    if (position >= count || m_given.at(position) != nullptr) return Fail(DISP_E_PARAMNOTFOUND, index, argumentInError);
    m_given.at(position) = &given.rgvarg[index];
  }
  for (UINT index = given.cNamedArgs; index < given.cArgs; ++index) {
    const std::size_t position = given.cArgs - 1 - index;
    if (m_given.at(position) != nullptr) return Fail(DISP_E_PARAMNOTFOUND, index, argumentInError);
    m_given.at(position) = &given.rgvarg[index];
  }
  return S_OK;
}

HRESULT Arguments::Take(const Member& member, const DISPPARAMS& given, LCID locale, UINT* argumentInError) noexcept {
  const HRESULT matched = Match(member, given, argumentInError);
  if (FAILED(matched)) return matched;
  for (std::size_t position = 0; position < member.parameters.size(); ++position) {
    const VARIANT* value = m_given.at(position);
    const auto index = value != nullptr ? static_cast<UINT>(value - given.rgvarg) : 0;
    if (!IsOmitted(value)) {
      const HRESULT converted = Convert(Borrow(*value), member.types[position], locale, position);
      if (FAILED(converted)) return Fail(converted, index, argumentInError);
    } else if (member.parameters[position].optional) {
      SetDefault(member.parameters[position], member.types[position], position);
    } else {
      return Fail(DISP_E_PARAMNOTOPTIONAL, index, argumentInError);
    }
  }
  return S_OK;
}

HRESULT Arguments::Convert(const VARIANT& given, const ArgumentType& wanted, LCID locale,
                           std::size_t position) noexcept {
  if (wanted.type == VT_DISPATCH) return ConvertObject(given, wanted, position);
  if (wanted.type == VT_VARIANT || wanted.type == given.vt) {
    m_values.at(position) = given;
    return S_OK;
  }
  VARIANT& converted = m_converted.at(position).Get();
  const HRESULT result = ChangeType(given, wanted.type, locale, converted);
  m_values.at(position) = converted;
  return result;
}

HRESULT Arguments::ConvertObject(const VARIANT& given, const ArgumentType& wanted, std::size_t position) noexcept {
  VARIANT& converted = m_converted.at(position).Get();
  const bool isObject = given.vt == VT_DISPATCH || given.vt == VT_UNKNOWN;
  // A script's null is not an object reference, but it also means no object.
  if (!isObject && given.vt != VT_NULL) return DISP_E_TYPEMISMATCH;
  if (isObject && given.punkVal != nullptr) {
    void* object = nullptr;
    if (FAILED(given.punkVal->QueryInterface(*wanted.interfaceId, &object))) return E_NOINTERFACE;
    converted.pdispVal = static_cast<IDispatch*>(object);
  }
  converted.vt = VT_DISPATCH;
  m_values.at(position) = converted;
  return S_OK;
}

void Arguments::SetDefault(const Parameter& parameter, const ArgumentType& wanted, std::size_t position) noexcept {
  VARIANT& value = m_values.at(position);
  VariantInit(&value);
  value.vt = wanted.type;
  if (wanted.type == VT_I4) value.lVal = parameter.defaultValue;
  if (wanted.type == VT_BOOL) value.boolVal = static_cast<VARIANT_BOOL>(parameter.defaultValue);
}

}  // namespace quorvel::com
