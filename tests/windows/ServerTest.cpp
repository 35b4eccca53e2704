#include <gtest/gtest.h>
#include <ocidl.h>
#include <quorvel/quorvel.h>

#include <thread>

#include "platform/UniqueHandle.h"
#include "tests/windows/TestFile.h"
#include "tests/windows/TypeDescription.h"

// Uses the library file named by QUORVEL_TEST_LIBRARY as the system does, without its being registered.
namespace quorvel::test {
namespace {

struct ModuleTraits {
  using Type = HMODULE;
  static Type Invalid() noexcept { return nullptr; }
  static void Close(Type module) noexcept { ::FreeLibrary(module); }
};

class ServerTest : public testing::Test {
 protected:
  void SetUp() override {
    m_module.Reset(::LoadLibraryW(LibraryFile().c_str()));
    ASSERT_TRUE(m_module);
  }

  template <typename Function>
  Function* Entry(const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(m_module.Get(), name)));
  }

  com::Pointer<IDispatch> Create(REFCLSID classId) {
    com::Pointer<IClassFactory> factory;
    EXPECT_EQ(S_OK, Entry<decltype(DllGetClassObject)>("DllGetClassObject")(classId, IID_IClassFactory,
                                                                            reinterpret_cast<void**>(factory.Put())));
    com::Pointer<IDispatch> object;
    EXPECT_EQ(S_OK, factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(object.Put())));
    return object;
  }

  HRESULT CanUnload() { return Entry<decltype(DllCanUnloadNow)>("DllCanUnloadNow")(); }

  UniqueHandle<ModuleTraits> m_module;
};

TEST_F(ServerTest, ObjectsTellTheirInterfaceAndTheirClass) {
  const std::pair<const CLSID&, const IID&> creatable[] = {{CLSID_Remark, IID__Remark},
                                                           {CLSID_RemarkContext, IID__RemarkContext}};
  for (const auto& [classId, interfaceId] : creatable) {
    const auto object = Create(classId);
    UINT count = 0;
    EXPECT_EQ(S_OK, object->GetTypeInfoCount(&count));
    EXPECT_EQ(1U, count);
    TypeInfo info;
    ASSERT_EQ(S_OK, object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Put()));
    EXPECT_EQ(TextOf(interfaceId), TextOf(AttributesOf(*info.Get())->guid));
    EXPECT_EQ(TKIND_DISPATCH, AttributesOf(*info.Get())->typekind);
    EXPECT_EQ(DISP_E_BADINDEX, object->GetTypeInfo(1, LOCALE_USER_DEFAULT, info.Put()));

    const auto teller = com::Query<IProvideClassInfo>(object.Get(), IID_IProvideClassInfo);
    ASSERT_TRUE(teller);
    ASSERT_EQ(S_OK, teller->GetClassInfo(info.Put()));
    EXPECT_EQ(TextOf(classId), TextOf(AttributesOf(*info.Get())->guid));
    EXPECT_EQ(TKIND_COCLASS, AttributesOf(*info.Get())->typekind);
    EXPECT_EQ(com::Query<IUnknown>(object.Get(), IID_IUnknown).Get(),
              com::Query<IUnknown>(teller.Get(), IID_IUnknown).Get());
  }
}

TEST_F(ServerTest, ThreadsThatAskAtOnceGetTheSameTypes) {
  std::vector<std::string> found(8);
  {
    std::vector<std::jthread> threads;
    threads.reserve(found.size());
    for (std::string& name : found) {
      threads.emplace_back([this, &name] {
        const auto object = Create(CLSID_Remark);
        TypeInfo info;
        if (SUCCEEDED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Put()))) name = NameOf(*info.Get());
      });
    }
  }
  EXPECT_EQ(std::vector<std::string>(found.size(), "_Remark"), found);
}

TEST_F(ServerTest, StaysLoadedWhileAHostHoldsSomething) {
  EXPECT_EQ(S_OK, CanUnload());
  auto object = Create(CLSID_RemarkContext);
  EXPECT_EQ(S_FALSE, CanUnload());
  TypeInfo info;
  ASSERT_EQ(S_OK, object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Put()));
  object.Reset();
  EXPECT_EQ(S_OK, CanUnload()) << "types are the system's objects and need no code of the component";
}

TEST_F(ServerTest, ClassesThatHostsMayNotCreateHaveNoFactory) {
  for (REFCLSID classId : {CLSID_RemarkType, CLSID_RemarkList, LIBID_Quorvel}) {
    com::Pointer<IClassFactory> factory;
    EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE, Entry<decltype(DllGetClassObject)>("DllGetClassObject")(
                                             classId, IID_IClassFactory, reinterpret_cast<void**>(factory.Put())));
  }
}

}  // namespace
}  // namespace quorvel::test
