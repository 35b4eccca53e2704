// How errors reach a host: as an HRESULT with an error object from early-bound calls, as an EXCEPINFO from calls by
// name.

#include <thread>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

namespace quorvel::test {
namespace {

using Errors = LoadedHostTest;

/// Expects the same failure from an early-bound call and from one by name.
template <typename Early>
void ExpectFailure(IDispatch* object, REFIID interfaceId, Early early, const LateCall& late, HRESULT number,
                   WideView source, const testing::Matcher<WideText>& description) {
  EXPECT_EQ(early(), number);
  const TakenError error = TakeError();
  EXPECT_TRUE(error.isThere);
  EXPECT_EQ(error.source, source);
  EXPECT_THAT(error.description, description);
  EXPECT_EQ(error.interfaceId, interfaceId);
  EXPECT_FALSE(TakeError().isThere) << "GetErrorInfo removes the error object";

  const LateOutcome outcome = Call(object, late);
  EXPECT_EQ(outcome.invoked, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.result, number);
  EXPECT_EQ(outcome.source, source);
  EXPECT_THAT(outcome.description, description);
  EXPECT_FALSE(TakeError().isThere) << "the EXCEPINFO takes the place of the error object";
}

TEST_F(Errors, KeepNumberSourceAndDescription) {
  ExpectFailure(
      m_context.Get(), IID__RemarkContext, [&] { return AddTo(m_context.Get(), u"Ord.Note", u"x"); },
      {u"AddRemark", DISPATCH_METHOD, {u"Ord.Note", u"x"}, {}}, -1, u"RemarkContext.AddRemark",
      WideText(u"Illegal remark type for this context"));
  ExpectFailure(
      m_context.Get(), IID__RemarkContext, [&] { return Load(m_context.Get(), u"\u00DC"); },
      {u"Load", DISPATCH_METHOD, {u"\u00DC"}, {}}, -1, u"RemarkContext.LoadContext",
      WideText(u"ContextID [\u00DC] not found"));

  const auto list = m_context.List();
  AnyValue index(LONG{8});
  ExpectFailure(
      list.Get(), IID__RemarkList, [&] { return list->Remove(index.Pointer()); },
      {u"Remove", DISPATCH_METHOD, {index}, {}}, FromNumber(9), u"Quorvel", WideText(u"Subscript out of range"));
  EXPECT_EQ(list->Remove(AnyValue::Missing().Pointer()), FromNumber(13));
  EXPECT_EQ(TakeError().description, u"Type mismatch");
  EXPECT_EQ(list->Remove(AnyValue(u"1").Pointer()), FromNumber(5));
  const auto remark = NewRemark();
  ExpectFailure(
      remark.Get(), IID__Remark, [&] { return remark->Commit(); }, {u"Commit", DISPATCH_METHOD, {}, {}}, FromNumber(91),
      u"Quorvel", WideText(u"Object variable or With block variable not set"));

  ASSERT_EQ(Load(m_context.Get(), u"CustMaint", u"C1044", u"admin"), S_OK);
  m_database.Run("DROP PROCEDURE spTWCqvGetFilteredMemos");
  ExpectFailure(
      m_context.Get(), IID__RemarkContext, [&] { return m_context->RefreshRemarkList(); },
      {u"RefreshRemarkList", DISPATCH_METHOD, {}, {}}, static_cast<HRESULT>(0x80040E14), u"Quorvel.Embedded",
      HasText(u"spTWCqvGetFilteredMemos"));

  // A question, without a terminal and without a display.
  ASSERT_EQ(AddTo(m_context.Get(), u"Cust.General", u"unsaved"), S_OK);
  EditBehavior behavior = PromptForSave;
  ASSERT_EQ(m_context->put_EditBehavior(&behavior), S_OK);
  ExpectFailure(
      m_context.Get(), IID__RemarkContext, [&] { return m_context->Save(VARIANT_FALSE); },
      {u"Save", DISPATCH_METHOD, {}, {}}, -1, u"Quorvel.Prompts",
      testing::AllOf(HasText(u"\"Edit Remarks\": Save changes to these remarks?"),
                     HasText(u"No window can be opened: ")));
}

TEST_F(Errors, UnwritableSettingsAre110) {
  const ScopedVariable registry("QUORVEL_REGISTRY", m_database.SettingsFile() + "/below.reg");
  // A thread reads the settings once.
  std::thread([] {
    const Text leftOver(u"left over");
    BSTR server = leftOver.Get();
    EXPECT_EQ(NewContext()->get_Server(&server), FromNumber(110));
    EXPECT_EQ(server, nullptr);
    const TakenError error = TakeError();
    EXPECT_EQ(error.source, u"GetRegStringValue");
    EXPECT_EQ(error.description, u"Could not read or create registry string value: Software\\Tarnwick\\Server");
  }).join();
}

TEST_F(Errors, NullPointersAreRefusedAndFailedCallsDeliverNothing) {
  const auto list = m_context.List();
  AnyValue index(LONG{1});
  Text text(u"x");
  LONG position = 3;
  Pointer<_RemarkType> type;
  const std::vector<std::function<HRESULT()>> calls{
      [&] { return m_context->get_Caption(nullptr); },
      [&] { return m_context->put_OwnerID(nullptr); },
      [&] { return m_context->put_EditBehavior(nullptr); },
      [&] { return m_context->get_Item(nullptr, type.Put()); },
      [&] { return m_context->AddRemark(nullptr, text.ByReference(), nullptr); },
      [&] { return m_context->AddRemark(index.Pointer(), nullptr, nullptr); },
      [&] { return list->Index(nullptr, &position); },
      [&] { return list->AddRemark(nullptr); },
      [&] { return list->Remove(nullptr); },
      [&] { return list->Add(nullptr); }};
  for (const auto& call : calls) {
    SCOPED_TRACE(&call - calls.data());
    EXPECT_EQ(Load(NewContext().Get(), u"None"), -1) << "an older error, which must not be reported again";
    EXPECT_EQ(call(), E_POINTER);
    EXPECT_THAT(TakeError().description, HasText(u"null pointer"));
  }
  EXPECT_EQ(position, 0);
  EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 7) << "Add without a result must not add";

  EXPECT_EQ(list->Clear(VARIANT_FALSE), S_OK);
  auto* remark = reinterpret_cast<_Remark*>(list.Get());
  EXPECT_EQ(list->Add(&remark), FromNumber(91));
  EXPECT_EQ(remark, nullptr);
  for (const DISPID member : {IdOf(list.Get(), u"Add"), DISPID{99}}) {
    VARIANT leftOver = AnyValue(LONG{1}).Get();
    DISPPARAMS none{};
    EXPECT_TRUE(FAILED(list->Invoke(member, IID_NULL, 0, DISPATCH_METHOD, &none, &leftOver, nullptr, nullptr)));
    EXPECT_EQ(leftOver.vt, VT_EMPTY) << member;
  }
}

TEST_F(Errors, BelongToTheirThreadUntilItsNextCall) {
  const auto context = NewContext();
  EXPECT_EQ(Load(context.Get(), u"None"), -1);
  EXPECT_EQ(GetErrorInfo(0, nullptr), E_INVALIDARG);
  std::thread([] { EXPECT_FALSE(TakeError().isThere); }).join();

  // A host may put an error object back and replace it.
  Pointer<IErrorInfo> error;
  EXPECT_EQ(GetErrorInfo(0, error.Put()), S_OK);
  EXPECT_EQ(SetErrorInfo(0, error.Get()), S_OK);
  EXPECT_EQ(TakeError().source, u"RemarkContext.LoadContext");
  EXPECT_EQ(SetErrorInfo(0, error.Get()), S_OK);
  EXPECT_EQ(SetErrorInfo(0, nullptr), S_OK);
  EXPECT_FALSE(TakeError().isThere);
  EXPECT_EQ(error->GetSource(nullptr), E_POINTER);

  EXPECT_EQ(Load(context.Get(), u"None"), -1);
  EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_TypeCount), 0);
  EXPECT_FALSE(TakeError().isThere);
}

}  // namespace
}  // namespace quorvel::test
