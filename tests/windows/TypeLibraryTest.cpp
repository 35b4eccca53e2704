// Compares the type library in a file, which may be of the other bitness, with the classes and member tables of the
// component. QUORVEL_TEST_LIBRARY names the file, QUORVEL_TEST_SYSTEM its system. The tables themselves are compared
// with the IDL by the tests of the published boundary, so this test reads only what the compiler of the IDL adds or may
// lose.

#include <gtest/gtest.h>
#include <quorvel/quorvel.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "platform/com/Pointer.h"
#include "platform/com/Text.h"
#include "platform/windows/WideText.h"
#include "runtime/published/PublishedClasses.h"
#include "runtime/published/RegistryEntries.h"

namespace quorvel::test {
namespace {

using namespace Quorvel;
using published::PublishedClass;
using published::PublishedClasses;
using TypeInfo = com::Pointer<ITypeInfo>;
template <typename Description>
using Described = std::unique_ptr<Description, std::function<void(Description*)>>;

/// Throws when the library cannot be read.
void Check(HRESULT result) {
  if (FAILED(result)) throw std::runtime_error("The type library cannot be read: " + std::to_string(result));
}

Described<TYPEATTR> AttributesOf(ITypeInfo& info) {
  TYPEATTR* attributes = nullptr;
  Check(info.GetTypeAttr(&attributes));
  return {attributes, [&info](TYPEATTR* a) { info.ReleaseTypeAttr(a); }};
}

Described<FUNCDESC> FunctionOf(ITypeInfo& info, UINT index) {
  FUNCDESC* function = nullptr;
  Check(info.GetFuncDesc(index, &function));
  return {function, [&info](FUNCDESC* f) { info.ReleaseFuncDesc(f); }};
}

/// The name of the type, or of one of its members.
std::string NameOf(ITypeInfo& info, MEMBERID member = MEMBERID_NIL) {
  BSTR name = nullptr;
  Check(info.GetDocumentation(member, &name, nullptr, nullptr, nullptr));
  std::string text = com::FromBstr(name);
  SysFreeString(name);
  return text;
}

/// The default interface of a class, the base of an interface, or, with -1, the table of operations of a dual
/// interface.
TypeInfo ImplementedBy(ITypeInfo& info, INT index = 0) {
  HREFTYPE reference = 0;
  Check(info.GetRefTypeOfImplType(static_cast<UINT>(index), &reference));
  TypeInfo implemented;
  Check(info.GetRefTypeInfo(reference, implemented.Put()));
  return implemented;
}

std::string IdentifierOf(ITypeInfo& info) { return com::TextOf(AttributesOf(info)->guid); }

/// A variable that ctest sets for a test; empty when it is not set.
std::string Setting(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

/// The file says which sizes it uses; offsets in a table are always those of the reader.
bool ForX86() { return Setting("QUORVEL_TEST_SYSTEM") == "x86"; }

class TypeLibraryTest : public testing::Test {
 protected:
  void SetUp() override {
    const std::wstring file = os::ToWide(Setting("QUORVEL_TEST_LIBRARY")).value();
    ASSERT_EQ(S_OK, ::LoadTypeLibEx(file.c_str(), REGKIND_NONE, m_library.Put()));
  }

  TypeInfo Find(REFGUID id) {
    TypeInfo info;
    Check(m_library->GetTypeInfoOfGuid(id, info.Put()));
    return info;
  }

  com::Pointer<ITypeLib> m_library;
};

TEST_F(TypeLibraryTest, LibraryHasTheIdentityThatRegistrationWrites) {
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(S_OK, m_library->GetLibAttr(&attributes));
  EXPECT_EQ(com::TextOf(LIBID_Quorvel), com::TextOf(attributes->guid));
  EXPECT_EQ(published::kLibraryMajor, attributes->wMajorVerNum);
  EXPECT_EQ(published::kLibraryMinor, attributes->wMinorVerNum);
  EXPECT_EQ(published::kLibraryLocale, attributes->lcid);
  EXPECT_EQ(ForX86() ? SYS_WIN32 : SYS_WIN64, attributes->syskind);
  m_library->ReleaseTLibAttr(attributes);
  // The classes, their interfaces and the enumeration.
  EXPECT_EQ(2 * PublishedClasses().size() + 1, m_library->GetTypeInfoCount());
}

TEST_F(TypeLibraryTest, ClassesNameTheirInterfaceAndWhetherHostsMayCreateThem) {
  for (const PublishedClass& published : PublishedClasses()) {
    SCOPED_TRACE(com::FromWide(published.name));
    const TypeInfo info = Find(published.classId);
    const auto attributes = AttributesOf(*info.Get());
    EXPECT_EQ(TKIND_COCLASS, attributes->typekind);
    EXPECT_EQ(com::FromWide(published.name), NameOf(*info.Get()));
    EXPECT_EQ(published.create != nullptr, (attributes->wTypeFlags & TYPEFLAG_FCANCREATE) != 0);
    EXPECT_EQ(com::TextOf(published.interfaceId), IdentifierOf(*ImplementedBy(*info.Get()).Get()));
  }
}

TEST_F(TypeLibraryTest, OperationsHaveTheIdentifiersAndOffsetsOfTheMemberTables) {
  constexpr std::size_t kDispatchOperations = 7;
  for (const PublishedClass& published : PublishedClasses()) {
    SCOPED_TRACE(com::FromWide(published.interfaceName));
    const TypeInfo table = ImplementedBy(*Find(published.interfaceId).Get(), -1);
    const auto attributes = AttributesOf(*table.Get());
    EXPECT_EQ(TKIND_INTERFACE, attributes->typekind);
    EXPECT_EQ(
        TYPEFLAG_FDUAL | TYPEFLAG_FHIDDEN | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDISPATCHABLE,
        attributes->wTypeFlags);
    EXPECT_EQ(com::TextOf(IID_IDispatch), IdentifierOf(*ImplementedBy(*table.Get()).Get()));
    EXPECT_EQ((kDispatchOperations + published.members.size()) * (ForX86() ? 4 : 8), attributes->cbSizeVft);
    ASSERT_EQ(published.members.size(), attributes->cFuncs);
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
      const com::Member& member = published.members[i];
      const auto function = FunctionOf(*table.Get(), i);
      SCOPED_TRACE(com::FromWide(member.name));
      EXPECT_EQ(com::FromWide(member.name), NameOf(*table.Get(), function->memid));
      EXPECT_EQ(member.id, function->memid);
      EXPECT_EQ(static_cast<INVOKEKIND>(member.kind), function->invkind);
      EXPECT_EQ((kDispatchOperations + i) * sizeof(void*), static_cast<std::size_t>(function->oVft));
      EXPECT_EQ(CC_STDCALL, function->callconv);
      EXPECT_EQ(member.id == DISPID_NEWENUM ? FUNCFLAG_FHIDDEN : 0, function->wFuncFlags);
    }
  }
}

}  // namespace
}  // namespace quorvel::test
