#pragma once

/// Objects, calls and matchers that the tests of the published interfaces share.

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "tests/support/HostObjects.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::test {

inline constexpr GUID IID_Other{0x9A3CB1C5, 0x1C4E, 0x4B7A, {0x9D, 0x0B, 0x51, 0x4E, 0x66, 0x2F, 0x7A, 0x21}};

MATCHER_P(BeginsWith, start, "begins with " + testing::PrintToString(start)) {
  return WideView(arg).starts_with(start);
}
MATCHER_P(HasText, part, "contains " + testing::PrintToString(part)) {
  return WideView(arg).find(part) != WideView::npos;
}

/// The HRESULT of a number of the language runtime.
constexpr HRESULT FromNumber(std::uint32_t number) { return static_cast<HRESULT>(0x800A0000U + number); }

[[nodiscard]] inline Pointer<_RemarkContext> NewContext() {
  Pointer<_RemarkContext> context;
  EXPECT_EQ(QuorvelCreate(u"Quorvel.RemarkContext", IID__RemarkContext, PutAny(context)), S_OK);
  return context;
}

[[nodiscard]] inline Pointer<_Remark> NewRemark() {
  Pointer<_Remark> remark;
  EXPECT_EQ(QuorvelCreate(u"Quorvel.Remark", IID__Remark, PutAny(remark)), S_OK);
  return remark;
}

/// Empty texts for an owner and a user load a context without an owner for the logon name.
inline HRESULT Load(_RemarkContext* context, WideView contextID, WideView ownerID = {}, WideView userID = {}) {
  return context->Load(Text(contextID).Get(), Text(ownerID).Get(), Text(userID).Get());
}

/// A loaded context. The destructor calls Dispose.
class LoadedContext {
 public:
  explicit LoadedContext(WideView contextID = u"CustMaint", WideView ownerID = u"C1044", WideView userID = u"admin")
      : m_context(NewContext()) {
    EXPECT_EQ(Load(Get(), contextID, ownerID, userID), S_OK) << testing::PrintToString(TakeError().description);
  }
  ~LoadedContext() { m_context->Dispose(); }
  LoadedContext(const LoadedContext&) = delete;
  LoadedContext& operator=(const LoadedContext&) = delete;

  [[nodiscard]] _RemarkContext* Get() const noexcept { return m_context.Get(); }
  _RemarkContext* operator->() const noexcept { return m_context.Get(); }
  [[nodiscard]] Pointer<_RemarkList> List() const {
    Pointer<_RemarkList> list;
    EXPECT_EQ(m_context->get_RemarkList(list.Put()), S_OK);
    return list;
  }
  /// Null when there is none.
  [[nodiscard]] Pointer<_RemarkType> Type(AnyValue indexKey) const {
    Pointer<_RemarkType> type;
    EXPECT_EQ(m_context->get_Item(indexKey.Pointer(), type.Put()), S_OK);
    return type;
  }

 private:
  Pointer<_RemarkContext> m_context;
};

/// Null when there is none.
[[nodiscard]] inline Pointer<_Remark> RemarkAt(_RemarkList* list, LONG position) {
  Pointer<_Remark> remark;
  EXPECT_EQ(list->get_Item(AnyValue(position).Pointer(), remark.Put()), S_OK);
  return remark;
}
[[nodiscard]] inline LONG PositionOf(_RemarkList* list, _Remark* remark) {
  LONG position = -1;
  EXPECT_EQ(list->Index(&remark, &position), S_OK);
  return position;
}
inline HRESULT AddTo(_RemarkList* list, _Remark* remark) { return list->AddRemark(&remark); }
inline HRESULT AddTo(_RemarkContext* context, AnyValue type, WideView text, WideView userID = {}) {
  Text given(text);
  const Text user(userID);
  // NOLINTNEXTLINE(clang-analyzer-unix.Malloc): the callee may replace the text; ~Text frees the one that is there
  return context->AddRemark(type.Pointer(), given.ByReference(), user.Get());
}

/// The result of a property read, which must succeed.
template <typename Interface>
[[nodiscard]] WideText Read(Interface* object, HRESULT (Interface::*getter)(BSTR*)) {
  Text text;
  EXPECT_EQ((object->*getter)(text.Put()), S_OK);
  return WideText(text.View());
}
template <typename Interface, typename Result>
[[nodiscard]] Result Read(Interface* object, HRESULT (Interface::*getter)(Result*)) {
  Result result{};
  EXPECT_EQ((object->*getter)(&result), S_OK);
  return result;
}
/// The same for an object.
template <typename Interface, typename Result>
[[nodiscard]] Pointer<Result> Read(Interface* object, HRESULT (Interface::*getter)(Result**)) {
  Pointer<Result> result;
  EXPECT_EQ((object->*getter)(result.Put()), S_OK);
  return result;
}

/// A host with a sample database. After each test the host must hold nothing of the component.
class HostTest : public testing::Test {
 protected:
  /// Runs a host on a new thread, because the component closes its connection when the thread ends.
  template <typename Host>
  static void Run(Host host) {
    std::thread(std::move(host)).join();
  }
  void TearDown() override { EXPECT_EQ(DllCanUnloadNow(), S_OK) << "a reference was lost"; }

  TestDatabase m_database;
};

}  // namespace quorvel::test
