#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "tests/support/HostObjects.h"

// An early-bound host on Windows, with what only Windows has: apartments, and a library that the system loads, hands
// between threads by the registered type library and would drop.

namespace quorvel::test {
namespace {

/// COM on this thread, in an apartment of its own as the component's threading model asks for.
class Apartment {
 public:
  Apartment() { EXPECT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))); }
  ~Apartment() { ::CoUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

/// A thread with an apartment, to which this thread's apartment answers calls until it ends.
class OtherApartment {
 public:
  template <typename Work>
  explicit OtherApartment(Work work)
      : m_ended(::CreateEventW(nullptr, TRUE, FALSE, nullptr)), m_thread([this, work] {
          {
            const Apartment apartment;
            work();
          }
          ::SetEvent(m_ended);
        }) {}
  ~OtherApartment() {
    DWORD index = 0;
    EXPECT_EQ(::CoWaitForMultipleHandles(0, 60'000, 1, &m_ended, &index), S_OK);
    m_thread.join();
    ::CloseHandle(m_ended);
  }
  OtherApartment(const OtherApartment&) = delete;
  OtherApartment& operator=(const OtherApartment&) = delete;

 private:
  HANDLE m_ended;
  std::thread m_thread;
};

HRESULT Load(_RemarkContext* context, WideView contextID) {
  return context->Load(Text(contextID).Get(), Text(L"C1044").Get(), Text(L"admin").Get());
}

Reference<_RemarkContext> NewContext() {
  Reference<_RemarkContext> context;
  EXPECT_EQ(QuorvelCreate(L"Quorvel.RemarkContext", IID__RemarkContext, context.PutAny()), S_OK);
  return context;
}

Reference<_RemarkContext> LoadedContext() {
  auto context = NewContext();
  EXPECT_EQ(Load(context.Get(), L"CustMaint"), S_OK);
  return context;
}

template <typename Interface>
WideText Read(Interface* object, HRESULT (Interface::*getter)(BSTR*)) {
  Text text;
  EXPECT_EQ((object->*getter)(text.Put()), S_OK);
  return WideText(text.View());
}
template <typename Interface, typename Result>
Result Read(Interface* object, HRESULT (Interface::*getter)(Result*)) {
  Result result{};
  EXPECT_EQ((object->*getter)(&result), S_OK);
  return result;
}

Reference<_RemarkList> ListOf(_RemarkContext* context) {
  return Reference<_RemarkList>(Read(context, &_RemarkContext::get_RemarkList));
}

HMODULE Component() { return ::GetModuleHandleW(L"Quorvel.dll"); }

HRESULT CanUnloadNow() {
  using CanUnload = HRESULT STDMETHODCALLTYPE();
  // The address of a function has no other type to come in.
  const auto address = reinterpret_cast<void*>(::GetProcAddress(Component(), "DllCanUnloadNow"));
  return address != nullptr ? reinterpret_cast<CanUnload*>(address)() : E_UNEXPECTED;
}

/// The library runs code of its own at the end of each thread that used it, so it stays whatever the system tries.
TEST(EarlyBound, TheLibraryMayGoAfterTheLastObjectAndWorksWhenAskedToGo) {
  const Apartment apartment;
  auto context = LoadedContext();
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
  auto list = ListOf(context.Get());
  EXPECT_EQ(context->Dispose(), S_OK);
  context.Reset();
  EXPECT_EQ(CanUnloadNow(), S_FALSE) << "the list is left";
  list.Reset();
  EXPECT_EQ(CanUnloadNow(), S_OK);
  for (int look = 0; look < 3; ++look) ::CoFreeUnusedLibrariesEx(0, 0);
  OtherApartment other([] { EXPECT_EQ(LoadedContext()->Dispose(), S_OK); });
}

TEST(EarlyBound, OnlyTwoClassesAreMadeAndNoneAsAPartOfAnother) {
  const Apartment apartment;
  Reference<IUnknown> made;
  EXPECT_EQ(QuorvelCreate(L"quorvel.REMARK", IID__Remark, made.PutAny()), S_OK);
  EXPECT_EQ(QuorvelCreate(L"Quorvel.RemarkList", IID__RemarkList, made.PutAny()), CO_E_CLASSSTRING);
  for (const CLSID& hidden : {CLSID_RemarkList, CLSID_RemarkType}) {
    EXPECT_EQ(::CoCreateInstance(hidden, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, made.PutAny()),
              REGDB_E_CLASSNOTREG);
  }
  const auto outer = NewContext();
  EXPECT_EQ(::CoCreateInstance(CLSID_Remark, outer.Get(), CLSCTX_INPROC_SERVER, IID_IUnknown, made.PutAny()),
            CLASS_E_NOAGGREGATION);
}

TEST(EarlyBound, ErrorsAreTheSystemsErrorObjects) {
  const Apartment apartment;
  const auto context = NewContext();
  const auto support = Ask<ISupportErrorInfo>(context.Get(), IID_ISupportErrorInfo);
  ASSERT_TRUE(support);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__RemarkContext), S_OK);
  EXPECT_EQ(Load(context.Get(), L"Größe"), -1);
  const TakenError error = TakeError();
  ASSERT_TRUE(error.isThere);
  EXPECT_EQ(error.interfaceId, IID__RemarkContext);
  EXPECT_EQ(error.source, L"RemarkContext.LoadContext");
  EXPECT_EQ(error.description, L"ContextID [Größe] not found");
  EXPECT_FALSE(TakeError().isThere) << "taken once";
}

TEST(EarlyBound, EnumeratesTypes) {
  const Apartment apartment;
  const auto context = LoadedContext();
  const Reference<IUnknown> made(Read(context.Get(), &_RemarkContext::get_NewEnum));
  const auto types = Ask<IEnumVARIANT>(made.Get(), IID_IEnumVARIANT);
  ASSERT_TRUE(types);
  EXPECT_EQ(types->Skip(2), S_OK);
  Reference<IEnumVARIANT> copy;
  EXPECT_EQ(types->Clone(copy.Put()), S_OK);
  VARIANT rest[4]{};
  ULONG count = 0;
  EXPECT_EQ(copy->Next(4, rest, &count), S_FALSE);
  ASSERT_EQ(count, 2U);
  const auto general = Ask<_RemarkType>(rest[0].pdispVal, IID__RemarkType);
  EXPECT_EQ(Read(general.Get(), &_RemarkType::get_TypeID), L"Cust.General");
  for (VARIANT& each : rest) ::VariantClear(&each);
  EXPECT_EQ(types->Reset(), S_OK);
  EXPECT_EQ(types->Skip(5), S_FALSE);
  EXPECT_EQ(context->Dispose(), S_OK);
}

TEST(EarlyBound, ApartmentsWorkAtTheSameTime) {
  const Apartment apartment;
  const auto host = [](const wchar_t* name) {
    for (int round = 0; round < 5; ++round) {
      const auto context = LoadedContext();
      AnyValue type(L"Cust.General");
      Text text(name);
      EXPECT_EQ(context->AddRemark(type.Pointer(), text.ByReference(), text.Get()), S_OK);
      EXPECT_EQ(context->Save(VARIANT_TRUE), S_OK);
      EXPECT_EQ(Load(context.Get(), name), -1);
      EXPECT_EQ(TakeError().description, L"ContextID [" + WideText(name) + L"] not found");
      EXPECT_EQ(context->Dispose(), S_OK);
    }
  };
  const auto countRemarks = [] {
    const auto context = LoadedContext();
    const LONG count = Read(context.Get(), &_RemarkContext::get_MemoCount);
    EXPECT_EQ(context->Dispose(), S_OK);
    return count;
  };
  const LONG before = countRemarks();
  {
    OtherApartment first([&] { host(L"first"); });
    OtherApartment second([&] { host(L"second"); });
  }
  EXPECT_EQ(countRemarks(), before + 10);
}

/// What another apartment gets of an object is a proxy, which the system makes by the registered type library.
TEST(EarlyBound, AnObjectIsHandedToAnotherApartment) {
  const Apartment apartment;
  const auto context = LoadedContext();
  Reference<IStream> stream;
  ASSERT_EQ(::CoMarshalInterThreadInterfaceInStream(IID__RemarkContext, context.Get(), stream.Put()), S_OK);
  OtherApartment other([&] {
    Reference<_RemarkContext> proxy;
    ASSERT_EQ(::CoGetInterfaceAndReleaseStream(std::exchange(*stream.ByReference(), nullptr), IID__RemarkContext,
                                               proxy.PutAny()),
              S_OK);
    EXPECT_NE(proxy.Get(), context.Get());
    EXPECT_EQ(Read(proxy.Get(), &_RemarkContext::get_OwnerName), L"Acme Tools");
    AnyValue key(L"cust.credit");
    Reference<_RemarkType> type;
    ASSERT_EQ(proxy->get_Item(key.Pointer(), type.Put()), S_OK);
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_Caption), L"Credit");
    const auto list = ListOf(proxy.Get());
    Reference<_Remark> remark;
    ASSERT_EQ(list->get_Item(AnyValue(LONG{7}).Pointer(), remark.Put()), S_OK);
    LONG position = 0;
    EXPECT_EQ(list->Index(remark.ByReference(), &position), S_OK);
    EXPECT_EQ(position, 7);
    EXPECT_EQ(Load(proxy.Get(), L"Nowhere"), -1);
    // An object of this apartment is none of theirs.
    Reference<_Remark> own;
    ASSERT_EQ(QuorvelCreate(L"Quorvel.Remark", IID__Remark, own.PutAny()), S_OK);
    EXPECT_EQ(list->AddRemark(own.ByReference()), static_cast<HRESULT>(0x800A000DU));
    EXPECT_EQ(proxy->Dispose(), S_OK);
  });
}

}  // namespace
}  // namespace quorvel::test
