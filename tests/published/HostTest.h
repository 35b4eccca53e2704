#pragma once

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "tests/published/HostDatabase.h"
#include "tests/support/HostObjects.h"

namespace quorvel::test {

inline constexpr GUID IID_Other{0x9A3CB1C5, 0x1C4E, 0x4B7A, {0x9D, 0x0B, 0x51, 0x4E, 0x66, 0x2F, 0x7A, 0x21}};

/// A text that begins with another, or has it somewhere.
MATCHER_P(BeginsWith, start, "begins with " + testing::PrintToString(start)) {
  return WideView(arg).starts_with(start);
}
MATCHER_P(HasText, part, "has " + testing::PrintToString(part)) { return WideView(arg).find(part) != WideView::npos; }

/// A number of the language runtime as it crosses the boundary.
constexpr HRESULT FromNumber(std::uint32_t number) { return static_cast<HRESULT>(0x800A0000U + number); }

[[nodiscard]] inline Reference<_RemarkContext> NewContext() {
  Reference<_RemarkContext> context;
  EXPECT_EQ(QuorvelCreate(u"Quorvel.RemarkContext", IID__RemarkContext, context.PutAny()), S_OK);
  return context;
}

[[nodiscard]] inline Reference<_Remark> NewRemark() {
  Reference<_Remark> remark;
  EXPECT_EQ(QuorvelCreate(u"Quorvel.Remark", IID__Remark, remark.PutAny()), S_OK);
  return remark;
}

/// A loaded context, disposed of in the end.
class LoadedContext {
 public:
  explicit LoadedContext(WideView contextID = u"CustMaint", WideView ownerID = u"C1044", WideView userID = u"admin")
      : m_context(NewContext()) {
    EXPECT_EQ(m_context->Load(Text(contextID).Get(), Text(ownerID).Get(), Text(userID).Get()), S_OK)
        << testing::PrintToString(TakeError().description);
  }
  ~LoadedContext() { m_context->Dispose(); }
  LoadedContext(const LoadedContext&) = delete;
  LoadedContext& operator=(const LoadedContext&) = delete;

  [[nodiscard]] _RemarkContext* Get() const noexcept { return m_context.Get(); }
  _RemarkContext* operator->() const noexcept { return m_context.Get(); }
  [[nodiscard]] Reference<_RemarkList> List() const {
    Reference<_RemarkList> list;
    EXPECT_EQ(m_context->get_RemarkList(list.Put()), S_OK);
    return list;
  }
  /// Null when there is none.
  [[nodiscard]] Reference<_RemarkType> Type(AnyValue indexKey) const {
    Reference<_RemarkType> type;
    EXPECT_EQ(m_context->get_Item(indexKey.Pointer(), type.Put()), S_OK);
    return type;
  }

 private:
  Reference<_RemarkContext> m_context;
};

/// Null when there is none.
[[nodiscard]] inline Reference<_Remark> RemarkAt(_RemarkList* list, LONG position) {
  Reference<_Remark> remark;
  EXPECT_EQ(list->get_Item(AnyValue(position).Pointer(), remark.Put()), S_OK);
  return remark;
}

/// What a property read gives, which must succeed.
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

/// A host with a database of its own. Whatever it did, nothing of the component may be left in the end.
class HostTest : public testing::Test {
 protected:
  /// Runs a host on a new thread: the component keeps its connection as long as the thread lives.
  template <typename Host>
  static void Run(Host host) {
    std::thread(std::move(host)).join();
  }
  void TearDown() override { EXPECT_EQ(DllCanUnloadNow(), S_OK) << "a reference was lost"; }

  HostDatabase m_database;
};

}  // namespace quorvel::test
