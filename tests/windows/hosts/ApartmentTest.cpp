// An early-bound host on Windows. It tests what only Windows has: type information, apartments, a library that the
// system loads, and would unload, by itself, and a message loop of the host that knows no toolkit.

#include <gtest/gtest.h>
#include <ocidl.h>

#include <chrono>
#include <string_view>
#include <thread>

#include "tests/support/HostCalls.h"

namespace quorvel::test {
namespace {

/// A single-threaded apartment on this thread, as the component's threading model requires.
class Apartment {
 public:
  Apartment() { EXPECT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))); }
  ~Apartment() { ::CoUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

/// Runs `work` in the apartment of a new thread. This thread's apartment answers calls until `work` has ended.
template <typename Work>
void RunInOtherApartment(Work work) {
  HANDLE ended = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::thread thread([&] {
    {
      const Apartment apartment;
      work();
    }
    ::SetEvent(ended);
  });
  DWORD index = 0;
  EXPECT_EQ(::CoWaitForMultipleHandles(0, 60'000, 1, &ended, &index), S_OK);
  thread.join();
  ::CloseHandle(ended);
}

HRESULT CanUnloadNow() {
  using CanUnload = HRESULT STDMETHODCALLTYPE();
  const auto address = reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"Quorvel.dll"), "DllCanUnloadNow"));
  return address != nullptr ? reinterpret_cast<CanUnload*>(address)() : E_UNEXPECTED;
}

/// The identifier of a type.
GUID IdentifierOf(ITypeInfo& info) {
  TYPEATTR* attributes = nullptr;
  if (FAILED(info.GetTypeAttr(&attributes))) return IID_NULL;
  const GUID id = attributes->guid;
  info.ReleaseTypeAttr(attributes);
  return id;
}

TEST(EarlyBound, ObjectsReturnTheirInterfaceAndTheirClass) {
  const Apartment apartment;
  const LoadedContext context;
  Pointer<ITypeInfo> info;
  ASSERT_EQ(context->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Put()), S_OK);
  EXPECT_EQ(IdentifierOf(*info.Get()), IID__RemarkContext);
  EXPECT_EQ(context->GetTypeInfo(1, LOCALE_USER_DEFAULT, info.Put()), DISP_E_BADINDEX);
  const auto provider = Query<IProvideClassInfo>(context.Get(), IID_IProvideClassInfo);
  ASSERT_TRUE(provider);
  ASSERT_EQ(provider->GetClassInfo(info.Put()), S_OK);
  EXPECT_EQ(IdentifierOf(*info.Get()), CLSID_RemarkContext);
  EXPECT_EQ(Query<IUnknown>(provider.Get(), IID_IUnknown).Get(), Query<IUnknown>(context.Get(), IID_IUnknown).Get());
}

/// The library runs code at the end of each thread that used it, so it must survive the system's attempt to unload it.
TEST(EarlyBound, LibraryMayUnloadAfterTheLastObjectAndWorksAfterwards) {
  const Apartment apartment;
  Pointer<_RemarkList> list;
  Pointer<ITypeInfo> info;
  {
    const LoadedContext context;
    list = context.List();
    ASSERT_EQ(context->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Put()), S_OK);
  }
  EXPECT_EQ(CanUnloadNow(), S_FALSE) << "the list still exists";
  list.Reset();
  EXPECT_EQ(CanUnloadNow(), S_OK) << "type information belongs to the system";
  for (int attempt = 0; attempt < 3; ++attempt) ::CoFreeUnusedLibrariesEx(0, 0);
  RunInOtherApartment([] { const LoadedContext context; });
}

/// Another apartment receives a proxy, which the system makes from the registered type library.
TEST(EarlyBound, ObjectWorksThroughAProxyInAnotherApartment) {
  const Apartment apartment;
  const LoadedContext context;
  Pointer<IStream> stream;
  ASSERT_EQ(::CoMarshalInterThreadInterfaceInStream(IID__RemarkContext, context.Get(), stream.Put()), S_OK);
  RunInOtherApartment([&] {
    Pointer<_RemarkContext> proxy;
    ASSERT_EQ(::CoGetInterfaceAndReleaseStream(stream.Release(), IID__RemarkContext, PutAny(proxy)), S_OK);
    EXPECT_NE(proxy.Get(), context.Get());
    EXPECT_EQ(Read(proxy.Get(), &_RemarkContext::get_OwnerName), L"Acme Tools");
    Pointer<_RemarkType> type;
    ASSERT_EQ(proxy->get_Item(AnyValue(L"cust.credit").Pointer(), type.Put()), S_OK);
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_Caption), L"Credit");
    const auto list = Read(proxy.Get(), &_RemarkContext::get_RemarkList);
    auto remark = RemarkAt(list.Get(), 7);
    // The proxy releases a pointer that is passed in and out, and returns one that the caller must release.
    _Remark* passed = remark.Release();
    LONG position = 0;
    EXPECT_EQ(list->Index(&passed, &position), S_OK);
    remark.Reset(passed);
    EXPECT_EQ(position, 7);
    EXPECT_EQ(Load(proxy.Get(), L"Nowhere"), -1);
    // An object of this apartment is foreign to the other one.
    auto own = NewRemark();
    passed = own.Release();
    EXPECT_EQ(list->AddRemark(&passed), static_cast<HRESULT>(0x800A000DU));
    own.Reset(passed);
    EXPECT_EQ(proxy->Dispose(), S_OK);
  });
}

/// Runs a host's message loop until `condition` holds; false when it does not within some seconds.
template <typename Condition>
bool RunLoopUntil(Condition condition) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!condition() && std::chrono::steady_clock::now() < deadline) {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
      ::TranslateMessage(&message);
      ::DispatchMessageW(&message);
    }
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
  }
  return condition();
}

void PressKey(BYTE key) {
  ::keybd_event(key, 0, 0, 0);
  ::keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
}

BOOL CALLBACK FindManager(HWND window, LPARAM found) {
  wchar_t title[256] = {};
  ::GetWindowTextW(window, title, 255);
  if (!std::wstring_view(title).starts_with(L"Manage Security and Remarks")) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;  // NOLINT(performance-no-int-to-ptr): the parameter holds a pointer
  return FALSE;
}

/// After the test that unloads the library: windows keep it loaded.
TEST(EarlyBound, ModelessWindowTakesKeysFromTheLoopOfTheHost) {
  const Apartment apartment;
  const auto context = NewContext();
  ASSERT_EQ(context->ViewManager(0), S_OK);
  HWND manager = nullptr;
  ::EnumThreadWindows(::GetCurrentThreadId(), FindManager, reinterpret_cast<LPARAM>(&manager));
  ASSERT_NE(manager, nullptr);
  EXPECT_TRUE(RunLoopUntil([&] { return ::GetForegroundWindow() == manager && ::GetFocus() != nullptr; }));
  HWND const focus = ::GetFocus();
  PressKey(VK_TAB);
  EXPECT_TRUE(RunLoopUntil([&] { return ::GetFocus() != focus && ::IsChild(manager, ::GetFocus()) != 0; }));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(RunLoopUntil([&] { return ::IsWindow(manager) == 0; })) << "a closed window is destroyed";
  EXPECT_EQ(context->Dispose(), S_OK);
}

}  // namespace
}  // namespace quorvel::test
