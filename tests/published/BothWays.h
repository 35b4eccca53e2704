#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

// The same call through the table of operations and by name, to be held against each other.
namespace quorvel::test {

/// A result as a value, which owns it from then on.
inline AnyValue Box(BSTR text) {
  AnyValue value = AnyValue::ZeroOf(VT_BSTR);
  value.Pointer()->bstrVal = text;
  return value;
}
inline AnyValue Box(LONG number) { return AnyValue(number); }
inline AnyValue Box(EditBehavior behavior) { return AnyValue(LONG{behavior}); }
inline AnyValue Box(DATE date) { return AnyValue::Date(date); }
inline AnyValue Box(VARIANT_BOOL flag) {
  AnyValue value = AnyValue::ZeroOf(VT_BOOL);
  value.Pointer()->boolVal = flag;
  return value;
}
inline AnyValue Box(IDispatch* object) {
  AnyValue value = AnyValue::ZeroOf(VT_DISPATCH);
  value.Pointer()->pdispVal = object;
  return value;
}

/// How a call through the table ended: with what it delivered, or with what the error object says.
inline Outcome Ended(HRESULT result, AnyValue value = {}) {
  Outcome outcome{result, std::move(value), {}, {}};
  if (FAILED(result)) {
    TakenError error = TakeError();
    outcome.value = {};
    outcome.source = std::move(error.source);
    outcome.description = std::move(error.description);
  }
  return outcome;
}

/// One call in both ways.
template <typename Interface>
struct Step {
  LateCall late;
  std::function<Outcome(Interface*)> early;
};

template <typename Interface, typename Result>
Step<Interface> Getter(const OLECHAR* name, HRESULT (Interface::*getter)(Result*)) {
  return {{name, DISPATCH_PROPERTYGET, {}, {}}, [getter](Interface* object) {
            Result result{};
            const HRESULT ended = (object->*getter)(&result);
            return Ended(ended, Box(result));
          }};
}
template <typename Interface>
Step<Interface> Put(const OLECHAR* name, AnyValue value, std::function<HRESULT(Interface*)> early) {
  return {{name, DISPATCH_PROPERTYPUT, {std::move(value)}, {}},
          [early = std::move(early)](Interface* object) { return Ended(early(object)); }};
}
template <typename Interface>
Step<Interface> Do(const OLECHAR* name, std::vector<AnyValue> arguments, std::function<HRESULT(Interface*)> early) {
  return {{name, DISPATCH_METHOD, std::move(arguments), {}},
          [early = std::move(early)](Interface* object) { return Ended(early(object)); }};
}
template <typename Result, typename Interface>
Step<Interface> Function(const OLECHAR* name, std::vector<AnyValue> arguments,
                         std::function<HRESULT(Interface*, Result*)> early) {
  return {{name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(arguments), {}},
          [early = std::move(early)](Interface* object) {
            Result result{};
            const HRESULT ended = early(object, &result);
            return Ended(ended, Box(result));
          }};
}

inline std::vector<Step<_RemarkType>> Getters(const _RemarkType* /*of*/) {
  return {Getter(u"cONTEXT", &_RemarkType::get_Context),     Getter(u"typeid", &_RemarkType::get_TypeID),
          Getter(u"CAPTION", &_RemarkType::get_Caption),     Getter(u"showPopup", &_RemarkType::get_ShowPopup),
          Getter(u"canCreate", &_RemarkType::get_CanCreate), Getter(u"canread", &_RemarkType::get_CanRead),
          Getter(u"CANUPDATE", &_RemarkType::get_CanUpdate), Getter(u"CanDELETE", &_RemarkType::get_CanDelete)};
}

inline std::vector<Step<_Remark>> Getters(const _Remark* /*of*/) {
  return {Getter(u"remarktype", &_Remark::get_RemarkType),
          Getter(u"MEMOKEY", &_Remark::get_MemoKey),
          Getter(u"ownerkey", &_Remark::get_OwnerKey),
          Getter(u"EntityKEY", &_Remark::get_EntityKey),
          Getter(u"tYPEiD", &_Remark::get_TypeID),
          Getter(u"typeCaption", &_Remark::get_TypeCaption),
          Getter(u"SHOWPOPUP", &_Remark::get_ShowPopup),
          Getter(u"datestamp", &_Remark::get_DateStamp),
          Getter(u"USERid", &_Remark::get_UserID),
          Getter(u"memotext", &_Remark::get_MemoText),
          Getter(u"DIRTY", &_Remark::get_Dirty)};
}

inline std::vector<Step<_RemarkContext>> Getters(const _RemarkContext* /*of*/) {
  using C = _RemarkContext;
  return {Getter(u"editbehavior", &C::get_EditBehavior),
          Getter(u"GROUPBYTYPE", &C::get_GroupByType),
          Getter(u"allowRowSizing", &C::get_AllowRowSizing),
          Getter(u"rowHEIGHT", &C::get_RowHeight),
          Getter(u"userid", &C::get_UserID),
          Getter(u"contextID", &C::get_ContextID),
          Getter(u"OWNERid", &C::get_OwnerID),
          Getter(u"caption", &C::get_Caption),
          Getter(u"entitykey", &C::get_EntityKey),
          Getter(u"ENTITYNAME", &C::get_EntityName),
          Getter(u"ownerkey", &C::get_OwnerKey),
          Getter(u"ownername", &C::get_OwnerName),
          Getter(u"REMARKLIST", &C::get_RemarkList),
          Getter(u"typecount", &C::get_TypeCount),
          Getter(u"memoCount", &C::get_MemoCount),
          Getter(u"POPUPCOUNT", &C::get_PopupCount),
          Getter(u"createableTYPES", &C::get_CreateableTypes),
          Getter(u"connectionSTRING", &C::get_ConnectionString),
          Getter(u"SERVER", &C::get_Server)};
}

inline std::vector<Step<_RemarkList>> Getters(const _RemarkList* /*of*/) {
  return {Getter(u"COUNT", &_RemarkList::get_Count), Getter(u"popupcount", &_RemarkList::get_PopupCount),
          Getter(u"dIRTY", &_RemarkList::get_Dirty)};
}

/// What all properties without objects say.
template <typename Interface>
std::vector<WideText> StateOf(Interface* object) {
  std::vector<WideText> state;
  for (const auto& each : Getters(object)) {
    const Outcome outcome = each.early(object);
    if (outcome.value.Get().vt != VT_DISPATCH) state.push_back(Shown(outcome.value.Get()));
  }
  return state;
}

/// Steps on twins, which stay twins; they may be one object where nothing changes.
template <typename Interface>
void ExpectSame(Interface* early, Interface* late, const std::vector<Step<Interface>>& steps) {
  for (const auto& step : steps) {
    const std::string what =
        testing::PrintToString(WideText(step.late.name)) + " at step " + std::to_string(&step - steps.data());
    const Outcome expected = step.early(early);
    const LateOutcome found = Call(late, step.late);
    EXPECT_EQ(found.result, expected.result) << what;
    EXPECT_EQ(found.invoked, FAILED(expected.result) ? DISP_E_EXCEPTION : S_OK) << what;
    EXPECT_EQ(Shown(found.value.Get()), Shown(expected.value.Get())) << what;
    EXPECT_EQ(found.source, expected.source) << what;
    EXPECT_EQ(found.description, expected.description) << what;
    EXPECT_FALSE(TakeError().isThere) << "EXCEPINFO has it: " << what;
    EXPECT_EQ(StateOf(late), StateOf(early)) << what;
  }
}

}  // namespace quorvel::test
