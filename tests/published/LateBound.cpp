#include "tests/published/LateBound.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace quorvel::test {
namespace {

WideText Widen(const std::string& text) { return {text.begin(), text.end()}; }

WideText Copy(BSTR text) { return {text, SysStringLen(text)}; }

/// The identifiers of the member and then of its named parameters.
std::vector<DISPID> IdsOf(IDispatch* object, const LateCall& call) {
  std::vector<LPOLESTR> names{const_cast<LPOLESTR>(call.name)};
  for (const NamedArgument& each : call.named) names.push_back(const_cast<LPOLESTR>(each.name));
  std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()), 0x409, ids.data()), S_OK)
      << testing::PrintToString(WideText(call.name));
  return ids;
}

}  // namespace

DISPID IdOf(IDispatch* object, const OLECHAR* name) { return IdsOf(object, {name, 0, {}, {}}).front(); }

LateOutcome Call(IDispatch* object, const LateCall& call) {
  std::vector<DISPID> ids = IdsOf(object, call);
  const DISPID member = ids.front();
  ids.erase(ids.begin());
  std::vector<VARIANT> given;
  for (const NamedArgument& each : call.named) given.push_back(each.value.Get());
  std::for_each(call.arguments.rbegin(), call.arguments.rend(), [&](const AnyValue& v) { given.push_back(v.Get()); });
  if ((call.flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) ids.insert(ids.begin(), DISPID_PROPERTYPUT);

  DISPPARAMS arguments{given.data(), ids.data(), static_cast<UINT>(given.size()), static_cast<UINT>(ids.size())};
  LateOutcome outcome;
  OwnedException exception;
  outcome.invoked = object->Invoke(member, IID_NULL, 0x409, call.flags, &arguments, outcome.value.Put(),
                                   &exception.info, &outcome.argumentInError);
  outcome.result = outcome.invoked == DISP_E_EXCEPTION ? exception.info.scode : outcome.invoked;
  outcome.source = Copy(exception.info.bstrSource);
  outcome.description = Copy(exception.info.bstrDescription);
  return outcome;
}

WideText Shown(const VARIANT& value) {
  switch (value.vt) {
    case VT_I4:
      return u"number " + Widen(std::to_string(value.lVal));
    case VT_BOOL:
      return u"flag " + Widen(std::to_string(value.boolVal));
    case VT_DATE:
      return u"date " + Widen(std::to_string(value.date));
    case VT_BSTR:
      return u"text " + Copy(value.bstrVal);
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return u"object " + Widen(std::to_string(reinterpret_cast<std::uintptr_t>(value.punkVal)));
    default:
      return u"type " + Widen(std::to_string(value.vt));
  }
}

void SetProperties(IDispatch* object, const Properties& properties) {
  for (const auto& [name, value] : properties) {
    EXPECT_EQ(CallPut(object, name, value).invoked, S_OK) << testing::PrintToString(WideText(name));
  }
}

void ExpectProperties(IDispatch* object, const Properties& expected) {
  for (const auto& [name, value] : expected) {
    EXPECT_EQ(Shown(CallGet(object, name).value.Get()), Shown(value.Get())) << testing::PrintToString(WideText(name));
  }
}

}  // namespace quorvel::test
