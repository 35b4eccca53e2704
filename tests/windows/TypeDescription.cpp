#include "tests/windows/TypeDescription.h"

#include <array>
#include <stdexcept>

#include "platform/com/Text.h"

namespace quorvel::test {
namespace {

/// A library that cannot be read ends the test.
void Check(HRESULT result, const char* what) {
  if (FAILED(result)) throw std::runtime_error(std::string(what) + " failed: " + std::to_string(result));
}

std::string TakeText(BSTR text) {
  std::string taken = com::FromBstr(text);
  SysFreeString(text);
  return taken;
}

std::string TypeName(VARTYPE type) {
  switch (type) {
    case VT_I4:
      return "LONG";
    case VT_BOOL:
      return "VARIANT_BOOL";
    case VT_BSTR:
      return "BSTR";
    case VT_DATE:
      return "DATE";
    case VT_VARIANT:
      return "VARIANT";
    case VT_UNKNOWN:
      return "IUnknown*";
    case VT_HRESULT:
      return "HRESULT";
    default:
      return "type " + std::to_string(type);
  }
}

/// What a reference to another type of the library stands for.
std::string ReferredType(HREFTYPE reference, ITypeInfo& info) {
  TypeInfo referred;
  Check(info.GetRefTypeInfo(reference, referred.Put()), "GetRefTypeInfo");
  const auto attributes = AttributesOf(*referred.Get());
  return attributes->typekind == TKIND_ENUM ? TypeName(VT_I4) : TextOf(attributes->guid);
}

}  // namespace

Described<TYPEATTR> AttributesOf(ITypeInfo& info) {
  TYPEATTR* attributes = nullptr;
  Check(info.GetTypeAttr(&attributes), "GetTypeAttr");
  return {attributes, [&info](TYPEATTR* a) { info.ReleaseTypeAttr(a); }};
}

Described<FUNCDESC> FunctionOf(ITypeInfo& info, UINT index) {
  FUNCDESC* function = nullptr;
  Check(info.GetFuncDesc(index, &function), "GetFuncDesc");
  return {function, [&info](FUNCDESC* f) { info.ReleaseFuncDesc(f); }};
}

Described<VARDESC> VariableOf(ITypeInfo& info, UINT index) {
  VARDESC* variable = nullptr;
  Check(info.GetVarDesc(index, &variable), "GetVarDesc");
  return {variable, [&info](VARDESC* v) { info.ReleaseVarDesc(v); }};
}

std::string NameOf(ITypeInfo& info, MEMBERID member) {
  BSTR name = nullptr;
  Check(info.GetDocumentation(member, &name, nullptr, nullptr, nullptr), "GetDocumentation");
  return TakeText(name);
}

std::vector<std::string> NamesOf(ITypeInfo& info, MEMBERID member, std::size_t most) {
  std::vector<BSTR> found(most);
  UINT count = 0;
  Check(info.GetNames(member, found.data(), static_cast<UINT>(found.size()), &count), "GetNames");
  std::vector<std::string> names;
  for (UINT i = 0; i < count; ++i) names.push_back(TakeText(found[i]));
  return names;
}

TypeInfo ImplementedBy(ITypeInfo& info, UINT index) {
  HREFTYPE reference = 0;
  Check(info.GetRefTypeOfImplType(index, &reference), "GetRefTypeOfImplType");
  TypeInfo implemented;
  Check(info.GetRefTypeInfo(reference, implemented.Put()), "GetRefTypeInfo");
  return implemented;
}

std::string TextOf(const TYPEDESC& type, ITypeInfo& info) {
  if (type.vt == VT_PTR) return TextOf(*type.lptdesc, info) + '*';
  if (type.vt == VT_USERDEFINED) return ReferredType(type.hreftype, info);
  return TypeName(type.vt);
}

std::string TextOf(const com::ArgumentType& type) {
  std::string text = type.type == VT_DISPATCH ? TextOf(*type.interfaceId) + '*' : TypeName(type.type);
  return type.byReference ? text + '*' : text;
}

std::string TextOf(const GUID& id) {
  std::array<OLECHAR, 39> text{};
  ::StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return com::FromWide(text.data());
}

}  // namespace quorvel::test
