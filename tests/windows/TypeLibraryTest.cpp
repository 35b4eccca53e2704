#include <gtest/gtest.h>
#include <quorvel/quorvel.h>

#include "platform/com/Text.h"
#include "runtime/published/Classes.h"
#include "runtime/published/Registration.h"
#include "tests/windows/SlotRecorder.h"
#include "tests/windows/TestFile.h"
#include "tests/windows/TypeDescription.h"

// Holds the type library of a file, which may be of the other bitness, against the tables that calls by name go through
// and against the header's tables of operations. QUORVEL_TEST_LIBRARY names the file, QUORVEL_TEST_SYSTEM its system.
namespace quorvel::test {
namespace {

using com::Member;
using com::MemberKind;
using published::Classes;
using published::PublishedClass;

constexpr std::size_t kDispatchOperations = 7;

/// Sizes are told as the file has them, places in a table as the reader needs them.
bool ForX86() { return Setting("QUORVEL_TEST_SYSTEM") == "x86"; }

class TypeLibraryTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(S_OK, ::LoadTypeLibEx(LibraryFile().c_str(), REGKIND_NONE, m_library.Put())); }

  TypeInfo Find(REFGUID id) {
    TypeInfo info;
    EXPECT_EQ(S_OK, m_library->GetTypeInfoOfGuid(id, info.Put())) << TextOf(id);
    return info;
  }

  com::Pointer<ITypeLib> m_library;
};

std::string ParameterText(const std::string& type, WORD flags, const std::string& value) {
  std::string text = (flags & PARAMFLAG_FIN) != 0 ? "in " : "";
  if ((flags & PARAMFLAG_FOUT) != 0) text += "out ";
  if ((flags & PARAMFLAG_FRETVAL) != 0) text += "retval ";
  if ((flags & PARAMFLAG_FOPT) != 0) text += "optional ";
  return text + type + ((flags & PARAMFLAG_FHASDEFAULT) != 0 ? " = " + value : "");
}

/// What a default value says, with its type.
std::string DefaultText(const VARIANT& value) {
  if (value.vt == VT_BSTR) return '"' + com::FromBstr(value.bstrVal) + '"';
  if (value.vt == VT_BOOL) return "bool " + std::to_string(value.boolVal);
  return value.vt == VT_I4 ? std::to_string(value.lVal) : "type " + std::to_string(value.vt);
}

std::string DefaultText(const com::Parameter& parameter, const com::ArgumentType& type) {
  if (type.type == VT_BSTR) return "\"\"";
  return (type.type == VT_BOOL ? "bool " : "") + std::to_string(parameter.defaultValue);
}

std::vector<std::string> ParametersOf(const FUNCDESC& function, ITypeInfo& info) {
  std::vector<std::string> parameters;
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& parameter = function.lprgelemdescParam[i];
    const WORD flags = parameter.paramdesc.wParamFlags;
    const bool hasDefault = (flags & PARAMFLAG_FHASDEFAULT) != 0;
    parameters.push_back(
        ParameterText(TextOf(parameter.tdesc, info), flags,
                      hasDefault ? DefaultText(parameter.paramdesc.pparamdescex->varDefaultValue) : ""));
  }
  return parameters;
}

std::vector<std::string> ExpectedParameters(const Member& member) {
  std::vector<std::string> parameters;
  for (std::size_t i = 0; i < member.parameters.size(); ++i) {
    const com::ArgumentType& type = member.types[i];
    unsigned flags = PARAMFLAG_FIN;
    if (type.byReference) flags |= PARAMFLAG_FOUT;
    if (member.parameters[i].optional) flags |= PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT;
    parameters.push_back(
        ParameterText(TextOf(type), static_cast<WORD>(flags), DefaultText(member.parameters[i], type)));
  }
  if (member.result.type != VT_EMPTY) {
    parameters.push_back(ParameterText(TextOf(member.result) + '*', PARAMFLAG_FOUT | PARAMFLAG_FRETVAL, ""));
  }
  return parameters;
}

std::vector<std::string> ExpectedNames(const Member& member) {
  std::vector<std::string> names{com::FromWide(member.name)};
  for (const com::Parameter& parameter : member.parameters) names.push_back(com::FromWide(parameter.name));
  if (member.kind == MemberKind::Put || member.kind == MemberKind::PutRef) names.pop_back();
  return names;
}

void ExpectMember(ITypeInfo& info, UINT index, const Member& member) {
  const auto function = FunctionOf(info, index);
  SCOPED_TRACE(NameOf(info, function->memid) + ", operation " + std::to_string(index + 1));
  EXPECT_EQ(FUNC_PUREVIRTUAL, function->funckind);
  EXPECT_EQ(CC_STDCALL, function->callconv);
  EXPECT_EQ(member.id, function->memid);
  EXPECT_EQ(static_cast<INVOKEKIND>(member.kind), function->invkind);
  EXPECT_EQ(member.id == DISPID_NEWENUM ? FUNCFLAG_FHIDDEN : 0, function->wFuncFlags);
  EXPECT_EQ("HRESULT", TextOf(function->elemdescFunc.tdesc, info));
  EXPECT_EQ(ExpectedParameters(member), ParametersOf(*function, info));
  // Reading and writing a property are told apart by kind, and have one name between them.
  EXPECT_EQ(com::FromWide(member.name), NameOf(info, function->memid));
  if (member.kind == MemberKind::Method || member.kind == MemberKind::Get) {
    EXPECT_EQ(ExpectedNames(member), NamesOf(info, function->memid, member.parameters.size() + 1));
  }

  SlotRecorder recorder;
  std::vector<VARIANT> arguments(member.types.size() + 1);
  VARIANT result{};
  member.call(recorder.AsObject(), arguments.data(), result);
  EXPECT_EQ(recorder.Last() * sizeof(void*), static_cast<std::size_t>(function->oVft))
      << "the header has it at another place";
}

TEST_F(TypeLibraryTest, LibraryIsWhatRegistrationSays) {
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(S_OK, m_library->GetLibAttr(&attributes));
  EXPECT_EQ(TextOf(LIBID_Quorvel), TextOf(attributes->guid));
  EXPECT_EQ(published::kLibraryMajor, attributes->wMajorVerNum);
  EXPECT_EQ(published::kLibraryMinor, attributes->wMinorVerNum);
  EXPECT_EQ(published::kLibraryLocale, attributes->lcid);
  EXPECT_EQ(ForX86() ? SYS_WIN32 : SYS_WIN64, attributes->syskind);
  m_library->ReleaseTLibAttr(attributes);
  BSTR name = nullptr;
  BSTR description = nullptr;
  ASSERT_EQ(S_OK, m_library->GetDocumentation(-1, &name, &description, nullptr, nullptr));
  EXPECT_EQ(com::FromWide(published::kLibraryName), com::FromBstr(name));
  EXPECT_EQ(published::kLibraryDescription, com::FromBstr(description));
  SysFreeString(name);
  SysFreeString(description);
  // The classes, their interfaces and the enumeration.
  EXPECT_EQ(2 * Classes().size() + 1, m_library->GetTypeInfoCount());
}

TEST_F(TypeLibraryTest, ClassesHaveTheirInterfaceAndOnlySomeCanBeCreated) {
  for (const PublishedClass& published : Classes()) {
    SCOPED_TRACE(com::FromWide(published.name));
    const TypeInfo info = Find(published.classId);
    ASSERT_TRUE(info);
    const auto attributes = AttributesOf(*info.Get());
    EXPECT_EQ(TKIND_COCLASS, attributes->typekind);
    EXPECT_EQ(com::FromWide(published.name), NameOf(*info.Get()));
    EXPECT_EQ(published.create != nullptr, (attributes->wTypeFlags & TYPEFLAG_FCANCREATE) != 0);
    ASSERT_EQ(1, attributes->cImplTypes);
    INT flags = 0;
    ASSERT_EQ(S_OK, info->GetImplTypeFlags(0, &flags));
    EXPECT_EQ(IMPLTYPEFLAG_FDEFAULT, flags);
    const TypeInfo implemented = ImplementedBy(*info.Get(), 0);
    EXPECT_EQ(TextOf(published.interfaceId), TextOf(AttributesOf(*implemented.Get())->guid));
  }
}

TEST_F(TypeLibraryTest, OperationsStandAsInTheTablesAndInTheHeader) {
  for (const PublishedClass& published : Classes()) {
    SCOPED_TRACE(com::FromWide(published.interfaceName));
    const TypeInfo byName = Find(published.interfaceId);
    ASSERT_TRUE(byName);
    EXPECT_EQ(com::FromWide(published.interfaceName), NameOf(*byName.Get()));
    const auto attributes = AttributesOf(*byName.Get());
    EXPECT_EQ(TKIND_DISPATCH, attributes->typekind);

    const TypeInfo table = ImplementedBy(*byName.Get(), static_cast<UINT>(-1));
    const auto tableAttributes = AttributesOf(*table.Get());
    EXPECT_EQ(TKIND_INTERFACE, tableAttributes->typekind);
    EXPECT_EQ(
        TYPEFLAG_FDUAL | TYPEFLAG_FHIDDEN | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDISPATCHABLE,
        tableAttributes->wTypeFlags);
    EXPECT_EQ(TextOf(IID_IDispatch), TextOf(AttributesOf(*ImplementedBy(*table.Get(), 0).Get())->guid));
    EXPECT_EQ((kDispatchOperations + published.members.size()) * (ForX86() ? 4 : 8), tableAttributes->cbSizeVft);
    ASSERT_EQ(published.members.size(), tableAttributes->cFuncs);
    for (UINT i = 0; i < tableAttributes->cFuncs; ++i) ExpectMember(*table.Get(), i, published.members[i]);
  }
}

TEST_F(TypeLibraryTest, NamesLeadToTheNumbersThatCallsByNameTake) {
  for (const PublishedClass& published : Classes()) {
    const TypeInfo info = Find(published.interfaceId);
    ASSERT_TRUE(info);
    for (const Member& member : published.members) {
      std::basic_string<OLECHAR> name(member.name);
      OLECHAR* names = name.data();
      MEMBERID id = 0;
      EXPECT_EQ(S_OK, info->GetIDsOfNames(&names, 1, &id)) << com::FromWide(member.name);
      EXPECT_EQ(member.id, id) << com::FromWide(member.name);
    }
  }
}

TEST_F(TypeLibraryTest, EnumerationHasItsValuesAndIsWhatThePropertyDelivers) {
  const TypeInfo table = ImplementedBy(*Find(IID__RemarkContext).Get(), static_cast<UINT>(-1));
  const auto get = FunctionOf(*table.Get(), 0);
  ASSERT_EQ(VT_PTR, get->lprgelemdescParam[0].tdesc.vt);
  const TYPEDESC& delivered = *get->lprgelemdescParam[0].tdesc.lptdesc;
  ASSERT_EQ(VT_USERDEFINED, delivered.vt);
  TypeInfo enumeration;
  ASSERT_EQ(S_OK, table->GetRefTypeInfo(delivered.hreftype, enumeration.Put()));

  EXPECT_EQ("EditBehavior", NameOf(*enumeration.Get()));
  const auto attributes = AttributesOf(*enumeration.Get());
  EXPECT_EQ(TKIND_ENUM, attributes->typekind);
  EXPECT_EQ("{BA4ED2F0-E31F-46BB-979E-0CD718E6DD7D}", TextOf(attributes->guid));
  const std::vector<std::pair<std::string, LONG>> expected{
      {"AutoSaveOnClose", AutoSaveOnClose}, {"NoAutoSave", NoAutoSave}, {"PromptForSave", PromptForSave}};
  std::vector<std::pair<std::string, LONG>> values;
  for (UINT i = 0; i < attributes->cVars; ++i) {
    const auto value = VariableOf(*enumeration.Get(), i);
    values.emplace_back(NameOf(*enumeration.Get(), value->memid), value->lpvarValue->lVal);
  }
  EXPECT_EQ(expected, values);
}

}  // namespace
}  // namespace quorvel::test
