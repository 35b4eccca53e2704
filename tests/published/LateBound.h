#pragma once

#include <ostream>
#include <vector>

#include "tests/support/HostObjects.h"

namespace quorvel::test {

/// How a call ended, by whatever way it was made.
struct Outcome {
  HRESULT result = S_OK;
  AnyValue value;
  WideText source;
  WideText description;
};

/// What a caller by name hands to Invoke.
struct NamedArgument {
  const OLECHAR* name;
  AnyValue value;
};

struct LateCall {
  const OLECHAR* name = nullptr;
  WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  std::vector<AnyValue> arguments;   ///< in the order of the parameters
  std::vector<NamedArgument> named;  ///< besides those
};

/// What Invoke alone tells.
struct LateOutcome : Outcome {
  HRESULT invoked = S_OK;  ///< DISP_E_EXCEPTION when the operation itself failed, whose result is `result` then
  UINT argumentInError = ~0U;
};

/// The identifier of a name; a failed test and DISPID_UNKNOWN without one.
[[nodiscard]] DISPID IdOf(IDispatch* object, const OLECHAR* name);

/// Calls by name as a script host does: a property's new value is marked as such.
[[nodiscard]] LateOutcome Call(IDispatch* object, LateCall call);
[[nodiscard]] inline LateOutcome CallGet(IDispatch* object, const OLECHAR* name, std::vector<AnyValue> arguments = {}) {
  return Call(object, {name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(arguments), {}});
}
[[nodiscard]] inline LateOutcome CallPut(IDispatch* object, const OLECHAR* name, AnyValue value) {
  return Call(object, {name, DISPATCH_PROPERTYPUT, {std::move(value)}, {}});
}

/// A value as a text that two of them can be compared by: its type and what it holds. An object is told by its address.
[[nodiscard]] WideText Shown(const VARIANT& value);

}  // namespace quorvel::test
