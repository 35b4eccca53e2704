#pragma once

#include <vector>

#include "tests/support/HostObjects.h"

namespace quorvel::test {

struct NamedArgument {
  const OLECHAR* name;
  AnyValue value;
};

/// A call by name.
struct LateCall {
  const OLECHAR* name = nullptr;
  WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  std::vector<AnyValue> arguments;   ///< in the order of the parameters
  std::vector<NamedArgument> named;  ///< besides those
};

/// The result of a call by name.
struct LateOutcome {
  HRESULT invoked = S_OK;  ///< the result of Invoke
  HRESULT result = S_OK;   ///< the operation's own result when `invoked` is DISP_E_EXCEPTION
  AnyValue value;
  WideText source;
  WideText description;
  UINT argumentInError = ~0U;
};

/// The identifier of a name. Fails the test and returns DISPID_UNKNOWN when there is none.
[[nodiscard]] DISPID IdOf(IDispatch* object, const OLECHAR* name);

/// Calls by name as a script host does: the new value of a property is marked as such.
[[nodiscard]] LateOutcome Call(IDispatch* object, const LateCall& call);
[[nodiscard]] inline LateOutcome CallGet(IDispatch* object, const OLECHAR* name, std::vector<AnyValue> arguments = {}) {
  return Call(object, {name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(arguments), {}});
}
[[nodiscard]] inline LateOutcome CallPut(IDispatch* object, const OLECHAR* name, AnyValue value) {
  return Call(object, {name, DISPATCH_PROPERTYPUT, {std::move(value)}, {}});
}

/// The type and content of a value as a text for comparisons. An object is shown by its address.
[[nodiscard]] WideText Shown(const VARIANT& value);

/// Properties with their values, set or compared by name.
using Properties = std::vector<NamedArgument>;
void SetProperties(IDispatch* object, const Properties& properties);
void ExpectProperties(IDispatch* object, const Properties& expected);

}  // namespace quorvel::test
