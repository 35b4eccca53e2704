#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/com/Com.h"
#include "platform/com/Dispatch.h"
#include "platform/com/Pointer.h"

/// Reads a type library in the words of the tests.
namespace quorvel::test {

using namespace Quorvel;
using TypeInfo = com::Pointer<ITypeInfo>;

/// Lives no longer than the type information that it came from.
template <typename Description>
using Described = std::unique_ptr<Description, std::function<void(Description*)>>;

[[nodiscard]] Described<TYPEATTR> AttributesOf(ITypeInfo& info);
[[nodiscard]] Described<FUNCDESC> FunctionOf(ITypeInfo& info, UINT index);
[[nodiscard]] Described<VARDESC> VariableOf(ITypeInfo& info, UINT index);

/// The name of the type, or of one of its members.
[[nodiscard]] std::string NameOf(ITypeInfo& info, MEMBERID member = MEMBERID_NIL);

/// The name of an operation and those of its parameters that the library tells: not the last one of a property's
/// writing and not the result.
[[nodiscard]] std::vector<std::string> NamesOf(ITypeInfo& info, MEMBERID member, std::size_t most);

/// The type that another names as its base, as its default interface or, with index -1, as its table of operations.
[[nodiscard]] TypeInfo ImplementedBy(ITypeInfo& info, UINT index);

/// A type as the library has it and as the member tables have it: "BSTR", "LONG*", "{identifier}**". An enumeration is
/// the number that it is.
[[nodiscard]] std::string TextOf(const TYPEDESC& type, ITypeInfo& info);
[[nodiscard]] std::string TextOf(const com::ArgumentType& type);

[[nodiscard]] std::string TextOf(const GUID& id);

}  // namespace quorvel::test
