#pragma once

#include <span>

#include "platform/com/Com.h"

namespace quorvel::com {

/// The type of an argument or a result.
struct ArgumentType {
  VARTYPE type = VT_EMPTY;            ///< VT_EMPTY: there is no result
  bool byReference = false;           ///< the operation takes a pointer to the value
  const GUID* interfaceId = nullptr;  ///< of an object
};

/// A parameter as a caller by name sees it.
struct Parameter {
  Name name;
  bool optional = false;
  /// The value of an omitted number or boolean; an omitted text is empty.
  LONG defaultValue = 0;
};

/// The values are the flags of IDispatch::Invoke.
enum class MemberKind : WORD {
  Method = DISPATCH_METHOD,
  Get = DISPATCH_PROPERTYGET,
  Put = DISPATCH_PROPERTYPUT,
  PutRef = DISPATCH_PROPERTYPUTREF,
};

/// One row of a member table: an operation as callers by name see it. The rows have the order of the interface's
/// operations. Members.h makes a row from an operation.
struct Member {
  Name name;
  DISPID id;
  MemberKind kind;
  std::span<const Parameter> parameters;  ///< without the result; a property's new value is the last one
  std::span<const ArgumentType> types;    ///< of the parameters
  ArgumentType result;
  /// Calls the operation. `arguments` holds one value of exactly the right type for each parameter. `result` is empty
  /// and receives the result.
  HRESULT (*call)(IDispatch& object, VARIANT* arguments, VARIANT& result);
};

/// IDispatch over a table of members, with the contracts of the two functions of the same names.
///
/// Names ignore letter case. Arguments may be named, passed by value or by reference, and omitted if they are optional.
/// They are converted where this is meaningful: numbers and dates to text and back, VT_EMPTY to the empty text or 0, an
/// object to its default value. The new value of a property may be marked as such or not, and both kinds of assignment
/// set an object property. Arguments of a property that has no parameters and delivers an object go to that object's
/// default member: context.RemarkList(1).
HRESULT FindNames(std::span<const Member> members, REFIID riid, LPOLESTR* names, UINT count, DISPID* ids) noexcept;
HRESULT InvokeMember(IDispatch& object, std::span<const Member> members, DISPID id, REFIID riid, LCID locale,
                     WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                     UINT* argumentInError) noexcept;

}  // namespace quorvel::com
