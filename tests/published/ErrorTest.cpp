#include <cstdlib>
#include <thread>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvel::test {
namespace {

using Errors = HostTest;

constexpr auto kStatement = static_cast<HRESULT>(0x80040E14);  // what hosts know as a failure in a statement

/// The same failure in both ways of calling; `source` and `description` are what the error object says.
template <typename Early>
void ExpectFailure(IDispatch* object, Early early, const LateCall& late, HRESULT number, WideView source,
                   const testing::Matcher<WideText>& description, REFIID interfaceId) {
  EXPECT_EQ(early(), number);
  const TakenError error = TakeError();
  EXPECT_TRUE(error.isThere);
  EXPECT_EQ(error.source, source);
  EXPECT_THAT(error.description, description);
  EXPECT_EQ(error.interfaceId, interfaceId);
  EXPECT_FALSE(TakeError().isThere) << "it can be taken once";

  const LateOutcome outcome = Call(object, late);
  EXPECT_EQ(outcome.invoked, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.result, number);
  EXPECT_EQ(outcome.source, source);
  EXPECT_THAT(outcome.description, description);
}

TEST_F(Errors, OfTheComponentAreMinusOne) {
  Run([] {
    const LoadedContext context;
    AnyValue type(u"Ord.Note");
    Text text(u"x");
    ExpectFailure(
        context.Get(), [&] { return context->AddRemark(type.Pointer(), text.ByReference(), nullptr); },
        {u"AddRemark", DISPATCH_METHOD, {type, text.View()}, {}}, -1, u"RemarkContext.AddRemark",
        WideText(u"Illegal remark type for this context"), IID__RemarkContext);
    ExpectFailure(
        context.Get(), [&] { return context->Load(Text(u"\u00DC").Get(), nullptr, nullptr); },
        {u"Load", DISPATCH_METHOD, {u"\u00DC"}, {}}, -1, u"RemarkContext.LoadContext",
        WideText(u"ContextID [\u00DC] not found"), IID__RemarkContext);
  });
}

TEST_F(Errors, WhereNobodyCanBeAskedSayWhyNot) {
  Run([] {
    const LoadedContext context;
    AnyValue type(u"Cust.General");
    Text text(u"unsaved");
    ASSERT_EQ(context->AddRemark(type.Pointer(), text.ByReference(), nullptr), S_OK);
    EditBehavior behavior = PromptForSave;
    ASSERT_EQ(context->put_EditBehavior(&behavior), S_OK);
    // Neither a terminal nor a display.
    const auto says = [](WideView part) {
      return testing::Truly([part](const WideText& whole) { return whole.find(part) != WideText::npos; });
    };
    const auto question =
        testing::AllOf(says(u"\"Edit Remarks\": Save changes to these remarks?"), says(u"No window can be opened: "));
    ExpectFailure(
        context.Get(), [&] { return context->Save(VARIANT_FALSE); }, {u"Save", DISPATCH_METHOD, {}, {}}, -1,
        u"Quorvel.Prompts", question, IID__RemarkContext);
    ExpectFailure(
        context.Get(), [&] { return context->EditMemos(VARIANT_FALSE); }, {u"EditMemos", DISPATCH_METHOD, {}, {}}, -1,
        u"RemarkContext.EditMemos", says(u"No window can be opened: "), IID__RemarkContext);
  });
}

TEST_F(Errors, OfTheLanguageRuntimeAreSmallNumbersInTheirFacility) {
  Run([] {
    const LoadedContext context;
    const auto list = context.List();
    const auto remark = NewRemark();
    AnyValue index(LONG{8});
    ExpectFailure(
        list.Get(), [&] { return list->Remove(index.Pointer()); }, {u"Remove", DISPATCH_METHOD, {index}, {}},
        FromNumber(9), u"Quorvel", WideText(u"Subscript out of range"), IID__RemarkList);
    AnyValue array = AnyValue::Missing();
    EXPECT_EQ(list->Remove(array.Pointer()), FromNumber(13));
    EXPECT_EQ(TakeError().description, u"Type mismatch");
    AnyValue text(u"1");
    EXPECT_EQ(list->Remove(text.Pointer()), FromNumber(5));
    ExpectFailure(
        remark.Get(), [&] { return remark->Commit(); }, {u"Commit", DISPATCH_METHOD, {}, {}}, FromNumber(91),
        u"Quorvel", WideText(u"Object variable or With block variable not set"), IID__Remark);
  });
}

TEST_F(Errors, OfTheDatabaseKeepTheirNumbers) {
  Run([this] {
    const LoadedContext context;
    m_database.Run("DROP PROCEDURE spTWCqvGetFilteredMemos");
    EXPECT_EQ(context->RefreshRemarkList(), kStatement);
    const TakenError error = TakeError();
    EXPECT_THAT(error.description, HasText(u"spTWCqvGetFilteredMemos"));
    EXPECT_NE(error.source, u"");
    const LateOutcome outcome = CallGet(context.Get(), u"RefreshRemarkList");
    EXPECT_EQ(outcome.result, kStatement);
    EXPECT_EQ(outcome.description, error.description);
    EXPECT_EQ(outcome.source, error.source);
  });
}

TEST_F(Errors, OfSettingsThatCannotBeWrittenAre110) {
  const ScopedVariable registry("QUORVEL_REGISTRY", m_database.SettingsFile() + "/below.reg");
  const WideText source = u"GetRegStringValue";
  const WideText description = u"Could not read or create registry string value: Software\\Tarnwick\\Server";
  // A thread that could not open its connection keeps it closed, so each way has a thread of its own.
  Run([&] {
    const auto context = NewContext();
    EXPECT_EQ(context->Load(Text(u"CustMaint").Get(), nullptr, nullptr), FromNumber(110));
    const TakenError error = TakeError();
    EXPECT_EQ(error.source, source);
    EXPECT_EQ(error.description, description);
  });
  Run([&] {
    const LateOutcome outcome = CallGet(NewContext().Get(), u"Load", {u"CustMaint"});
    EXPECT_EQ(outcome.result, FromNumber(110));
    EXPECT_EQ(outcome.source, source);
    EXPECT_EQ(outcome.description, description);
  });
  Run([] {
    Text server;
    EXPECT_EQ(NewContext()->get_Server(server.Put()), FromNumber(110));
    EXPECT_EQ(server.Get(), nullptr);
  });
}

TEST_F(Errors, NothingIsDeliveredAfterAFailure) {
  Run([] {
    const LoadedContext context;
    const auto list = context.List();
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
  });
}

TEST_F(Errors, AnOlderErrorIsGoneAfterTheNextCall) {
  Run([] {
    const LoadedContext context;
    const auto fail = [&] { EXPECT_EQ(context->Load(Text(u"None").Get(), nullptr, nullptr), -1); };
    fail();
    EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_TypeCount), 4);
    EXPECT_FALSE(TakeError().isThere);
    fail();
    EXPECT_EQ(context->Dispose(), S_OK);
    EXPECT_FALSE(TakeError().isThere);
    fail();
    EXPECT_EQ(CallGet(context.Get(), u"TypeCount").invoked, S_OK);
    EXPECT_FALSE(TakeError().isThere);
  });
}

/// A null pointer where one is needed: that, and not the error before it, is what the host reads about.
void ExpectNullRefused(HRESULT result) {
  EXPECT_EQ(result, E_POINTER);
  const TakenError error = TakeError();
  EXPECT_TRUE(error.isThere);
  EXPECT_THAT(error.description, HasText(u"null pointer"));
}

TEST_F(Errors, OfNullPointersSaySo) {
  Run([] {
    const LoadedContext context;
    const auto list = context.List();
    EXPECT_EQ(context->Load(Text(u"None").Get(), nullptr, nullptr), -1);
    ExpectNullRefused(context->get_Caption(nullptr));
    ExpectNullRefused(context->get_TypeCount(nullptr));
    ExpectNullRefused(context->get_RemarkList(nullptr));
    ExpectNullRefused(context->get_NewEnum(nullptr));
    ExpectNullRefused(context->CanUpdate(1, nullptr));
    ExpectNullRefused(context->put_OwnerID(nullptr));
    ExpectNullRefused(context->put_EditBehavior(nullptr));
    Reference<_RemarkType> type;
    ExpectNullRefused(context->get_Item(nullptr, type.Put()));
    Text text(u"x");
    AnyValue index(LONG{1});
    ExpectNullRefused(context->get_Item(index.Pointer(), nullptr));
    ExpectNullRefused(context->AddRemark(nullptr, text.ByReference(), nullptr));
    ExpectNullRefused(context->AddRemark(index.Pointer(), nullptr, nullptr));
    LONG position = 3;
    ExpectNullRefused(list->Index(nullptr, &position));
    EXPECT_EQ(position, 0);
    ExpectNullRefused(list->AddRemark(nullptr));
    ExpectNullRefused(list->Remove(nullptr));
    ExpectNullRefused(list->Add(nullptr));
    EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 7) << "nothing was added without being delivered";
    ExpectNullRefused(RemarkAt(list.Get(), 1)->get_DateStamp(nullptr));
  });
}

TEST_F(Errors, BelongToTheirThread) {
  Run([] {
    const auto context = NewContext();
    EXPECT_EQ(context->Load(Text(u"None").Get(), nullptr, nullptr), -1);
    std::thread([] { EXPECT_FALSE(TakeError().isThere); }).join();
    EXPECT_TRUE(TakeError().isThere);

    // A host may put an error of its own there, and look at ours more than once.
    EXPECT_EQ(context->Load(Text(u"None").Get(), nullptr, nullptr), -1);
    Reference<IErrorInfo> error;
    EXPECT_EQ(GetErrorInfo(0, error.Put()), S_OK);
    EXPECT_EQ(SetErrorInfo(0, error.Get()), S_OK);
    EXPECT_EQ(TakeError().source, u"RemarkContext.LoadContext");
    EXPECT_EQ(SetErrorInfo(0, error.Get()), S_OK);
    EXPECT_EQ(SetErrorInfo(0, nullptr), S_OK);
    EXPECT_EQ(GetErrorInfo(0, error.Put()), S_FALSE);
    EXPECT_FALSE(error);
  });
}

TEST_F(Errors, TheErrorObjectKeepsItsContract) {
  Run([] {
    EXPECT_EQ(NewContext()->Load(Text(u"None").Get(), nullptr, nullptr), -1);
    Reference<IErrorInfo> error;
    ASSERT_EQ(GetErrorInfo(0, error.Put()), S_OK);
    Text file(u"x");
    DWORD help = 7;
    EXPECT_EQ(error->GetHelpFile(file.Put()), S_OK);
    EXPECT_EQ(file.View(), u"");
    EXPECT_EQ(error->GetHelpContext(&help), S_OK);
    EXPECT_EQ(help, 0U);
    EXPECT_EQ(error->GetGUID(nullptr), E_POINTER);
    EXPECT_EQ(error->GetSource(nullptr), E_POINTER);
    EXPECT_EQ(error->GetDescription(nullptr), E_POINTER);
    EXPECT_EQ(error->GetHelpFile(nullptr), E_POINTER);
    EXPECT_EQ(error->GetHelpContext(nullptr), E_POINTER);
    EXPECT_TRUE(Ask<IUnknown>(error.Get(), IID_IErrorInfo));
    EXPECT_FALSE(Ask<IUnknown>(error.Get(), IID_IDispatch));
  });
}

}  // namespace
}  // namespace quorvel::test
