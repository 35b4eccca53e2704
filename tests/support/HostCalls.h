#pragma once

#include <gtest/gtest.h>

#include "tests/support/HostObjects.h"

/// Calls of a C++ host that most tests need, on Windows too. One that fails fails the test.
namespace quorvel::test {

[[nodiscard]] inline Pointer<_RemarkContext> NewContext() {
  Pointer<_RemarkContext> context;
  EXPECT_EQ(QuorvelCreate(OLESTR("Quorvel.RemarkContext"), IID__RemarkContext, PutAny(context)), S_OK);
  return context;
}

[[nodiscard]] inline Pointer<_Remark> NewRemark() {
  Pointer<_Remark> remark;
  EXPECT_EQ(QuorvelCreate(OLESTR("Quorvel.Remark"), IID__Remark, PutAny(remark)), S_OK);
  return remark;
}

/// Empty texts for an owner and a user load a context without an owner for the logon name.
inline HRESULT Load(_RemarkContext* context, WideView contextID, WideView ownerID = {}, WideView userID = {}) {
  return context->Load(Text(contextID).Get(), Text(ownerID).Get(), Text(userID).Get());
}

/// The result of a property read, which must succeed.
template <typename Interface>
[[nodiscard]] WideText Read(Interface* object, HRESULT (QUORVEL_CALL Interface::*getter)(BSTR*)) {
  Text text;
  EXPECT_EQ((object->*getter)(text.Put()), S_OK);
  return WideText(text.View());
}
template <typename Interface, typename Result>
[[nodiscard]] Result Read(Interface* object, HRESULT (QUORVEL_CALL Interface::*getter)(Result*)) {
  Result result{};
  EXPECT_EQ((object->*getter)(&result), S_OK);
  return result;
}
/// The same for an object.
template <typename Interface, typename Result>
[[nodiscard]] Pointer<Result> Read(Interface* object, HRESULT (QUORVEL_CALL Interface::*getter)(Result**)) {
  Pointer<Result> result;
  EXPECT_EQ((object->*getter)(result.Put()), S_OK);
  return result;
}

/// A loaded context. The destructor calls Dispose.
class LoadedContext {
 public:
  explicit LoadedContext(WideView contextID = OLESTR("CustMaint"), WideView ownerID = OLESTR("C1044"),
                         WideView userID = OLESTR("admin"))
      : m_context(NewContext()) {
    EXPECT_EQ(Load(Get(), contextID, ownerID, userID), S_OK) << testing::PrintToString(TakeError().description);
  }
  ~LoadedContext() { m_context->Dispose(); }
  LoadedContext(const LoadedContext&) = delete;
  LoadedContext& operator=(const LoadedContext&) = delete;

  [[nodiscard]] _RemarkContext* Get() const noexcept { return m_context.Get(); }
  _RemarkContext* operator->() const noexcept { return m_context.Get(); }
  [[nodiscard]] Pointer<_RemarkList> List() const { return Read(Get(), &_RemarkContext::get_RemarkList); }
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

}  // namespace quorvel::test
