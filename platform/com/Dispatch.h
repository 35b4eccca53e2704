#pragma once

#include <span>

#include "platform/com/Com.h"

namespace quorvel::com {

/// What an argument or a result is.
struct ArgumentType {
  VARTYPE type = VT_EMPTY;            ///< VT_EMPTY: there is none
  bool byReference = false;           ///< the operation takes a pointer to it
  const GUID* interfaceId = nullptr;  ///< of an object
};

/// A parameter as a caller by name sees it.
struct Parameter {
  Name name;
  bool optional = false;
  /// What an omitted number or boolean is; an omitted text is empty.
  LONG defaultValue = 0;
};

/// The values are the flags of IDispatch::Invoke.
enum class MemberKind : WORD {
  Method = DISPATCH_METHOD,
  Get = DISPATCH_PROPERTYGET,
  Put = DISPATCH_PROPERTYPUT,
  PutRef = DISPATCH_PROPERTYPUTREF,
};

/// One row of an interface: an operation as it is called by name. The tables stand in the order of the interfaces'
/// operations. See Members.h for how a row is made from an operation.
struct Member {
  Name name;
  DISPID id;
  MemberKind kind;
  std::span<const Parameter> parameters;  ///< without the result; a property's new value is the last one
  std::span<const ArgumentType> types;    ///< of the parameters
  ArgumentType result;
  /// Calls the operation. `arguments` holds one value for each parameter, of exactly its type; `result` is empty and
  /// takes what is delivered.
  HRESULT (*call)(IDispatch& object, VARIANT* arguments, VARIANT& result);
};

/// IDispatch over a table of members, with the contracts of the two functions of the same names.
///
/// Names ignore letter case. Arguments may be named, given by value or by reference, omitted where they are optional,
/// and are converted where the conversion has a meaning: numbers and dates to text and back, nothing to the empty
/// text or 0, an object to its default value. A property may be set with or without its value being marked as such,
/// an object property by either kind of assignment. Arguments behind a property that has none and delivers an object
/// go to that object's default member: list(1).
HRESULT FindNames(std::span<const Member> members, REFIID riid, LPOLESTR* names, UINT count, DISPID* ids) noexcept;
HRESULT InvokeMember(IDispatch& object, std::span<const Member> members, DISPID id, REFIID riid, LCID locale,
                     WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                     UINT* argumentInError) noexcept;

}  // namespace quorvel::com
