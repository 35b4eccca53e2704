// Calls each operation of each interface and expects an answer that only this operation gives. ContractTest shows that
// calls by name reach the slot of the same name, so properties are read and set by name here.

#include <tuple>
#include <utility>
#include <vector>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

namespace quorvel::test {
namespace {

using EverySlot = LoadedHostTest;

TEST_F(EverySlot, RemarkType) {
  const LoadedContext context(u"CustMaint", u"C1044", u"mjones");
  const auto type = context.Type(u"cust.credit");
  ASSERT_TRUE(type);
  ExpectProperties(type.Get(), {{u"Context", context.Get()},
                                {u"TypeID", u"Cust.Credit"},
                                {u"Caption", u"Credit"},
                                {u"ShowPopup", true},
                                {u"CanCreate", 1},
                                {u"CanRead", 1},
                                {u"CanUpdate", 1},
                                {u"CanDelete", 0}});
  const Properties changed{{u"Context", static_cast<IDispatch*>(nullptr)},
                           {u"TypeID", u"Other"},
                           {u"Caption", u"Another"},
                           {u"ShowPopup", false},
                           {u"CanCreate", -1},
                           {u"CanRead", 2},
                           {u"CanUpdate", 2147483647},
                           {u"CanDelete", 4}};
  SetProperties(type.Get(), changed);
  ExpectProperties(type.Get(), changed);
}

TEST_F(EverySlot, Remark) {
  const auto remark = RemarkAt(m_context.List().Get(), 1);
  ASSERT_TRUE(remark);
  ExpectProperties(remark.Get(), {{u"RemarkType", m_context.Type(u"Cust.AR.Coll").Get()},
                                  {u"MemoKey", 7},
                                  {u"OwnerKey", 45},
                                  {u"EntityKey", 501},
                                  {u"TypeID", u"Cust.AR.Coll"},
                                  {u"TypeCaption", u"Collections"},
                                  {u"ShowPopup", true},
                                  {u"DateStamp", AnyValue::Date(45362.5625)},  // 2024-03-11 13:30
                                  {u"UserID", u"jsmith"},
                                  {u"Dirty", false}});
  EXPECT_THAT(Read(remark.Get(), &_Remark::get_MemoText), BeginsWith(u"Dana promised payment"));

  SetProperties(remark.Get(), {{u"MemoText", u"Changed"}});
  ExpectProperties(remark.Get(), {{u"Dirty", false}});
  EXPECT_EQ(remark->put_Dirty(1), S_OK) << "any value but VARIANT_FALSE is true";
  ExpectProperties(remark.Get(), {{u"Dirty", true}});
  EXPECT_EQ(remark->Commit(), S_OK);
  ExpectProperties(remark.Get(), {{u"Dirty", false}});
  EXPECT_EQ(m_database.TextOf(7), "Changed");
  EXPECT_EQ(remark->Delete(), S_OK);
  EXPECT_EQ(m_database.TextOf(7), "");

  const auto type = m_context.Type(u"Cust.Internal");
  const Properties changed{{u"RemarkType", type.Get()},
                           {u"MemoKey", -3},
                           {u"DateStamp", AnyValue::Date(45000.25)},
                           {u"UserID", u"me"},
                           {u"MemoText", u"text"}};
  SetProperties(remark.Get(), changed);
  ExpectProperties(remark.Get(), changed);
}

TEST_F(EverySlot, RemarkContextReads) {
  const LoadedContext context(u"custmaint", u"c1044", u"JSMITH");
  ExpectProperties(context.Get(), {{u"EditBehavior", LONG{PromptForSave}},
                                   {u"GroupByType", true},
                                   {u"AllowRowSizing", true},
                                   {u"RowHeight", 2},
                                   {u"UserID", u"JSMITH"},
                                   {u"ContextID", u"custmaint"},
                                   {u"OwnerID", u"c1044"},
                                   {u"Caption", u"Customer Maintenance"},
                                   {u"EntityKey", 501},
                                   {u"EntityName", u"Customer"},
                                   {u"OwnerKey", 45},
                                   {u"OwnerName", u"Acme Tools"},
                                   {u"TypeCount", 4},
                                   {u"MemoCount", 6},
                                   {u"PopupCount", 3},
                                   {u"CreateableTypes", 2},
                                   {u"Server", u"(embedded)"}});
  EXPECT_EQ(Read(context.List().Get(), &_RemarkList::get_Count), 6);
  EXPECT_EQ(Read(context.Type(LONG{3}).Get(), &_RemarkType::get_TypeID), u"Cust.General");
  EXPECT_FALSE(context.Type(AnyValue::Missing())) << "a value that is not a key finds nothing";
  EXPECT_THAT(Read(context.Get(), &_RemarkContext::get_ConnectionString),
              BeginsWith(u"Provider=SQLOLEDB.1;Data Source=(embedded); Initial Catalog="));
}

TEST_F(EverySlot, RemarkContextAnswersRights) {
  // This user has every right but CanDelete on the first remark, one of Credit. On the fourth, one of General, the
  // user has CanCreate only. There is no fifth.
  const LoadedContext context(u"CustMaint", u"C1044", u"mjones");
  const std::vector<std::tuple<const OLECHAR*, bool, bool>> rights{
      {u"CanUpdate", true, false}, {u"CanDelete", false, false}, {u"CanCreate", true, true}};
  for (const auto& [right, ofFirst, ofFourth] : rights) {
    for (const auto& [position, expected] : {std::pair(1, ofFirst), {4, ofFourth}, {5, false}}) {
      EXPECT_EQ(Shown(CallGet(context.Get(), right, {position}).value.Get()), Shown(AnyValue(expected).Get()))
          << testing::PrintToString(right) << position;
    }
  }
}

TEST_F(EverySlot, RemarkContextActs) {
  EditBehavior behavior = NoAutoSave;
  EXPECT_EQ(m_context->put_EditBehavior(&behavior), S_OK);
  ExpectProperties(m_context.Get(), {{u"EditBehavior", LONG{NoAutoSave}}});

  EXPECT_EQ(AddTo(m_context.Get(), u"Cust.General", u"Only in memory"), S_OK);
  ExpectProperties(m_context.Get(), {{u"MemoCount", 8}});
  EXPECT_EQ(m_context->RefreshRemarkList(), S_OK);
  ExpectProperties(m_context.Get(), {{u"MemoCount", 7}});

  EXPECT_EQ(AddTo(m_context.Get(), u"Cust.General", u"Only in memory", u"mjones"), S_OK);
  EXPECT_EQ(m_context->Save(VARIANT_FALSE), S_OK);
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'Only in memory'"), "0");
  EXPECT_EQ(m_context->Save(VARIANT_TRUE), S_OK);
  EXPECT_EQ(m_database.Ask("SELECT UserID FROM tciMemo WHERE MemoText = 'Only in memory'"), "mjones");

  SetProperties(m_context.Get(), {{u"OwnerID", u"C1000"}});
  ExpectProperties(m_context.Get(), {{u"OwnerName", u"Alder Creek Hardware"}});
  SetProperties(m_context.Get(), {{u"OwnerKey", 46}});
  ExpectProperties(m_context.Get(), {{u"OwnerKey", 46}, {u"MemoCount", 0}});

  EXPECT_EQ(m_context->Dispose(), S_OK);
  ExpectProperties(m_context.Get(), {{u"TypeCount", 0}, {u"RemarkList", static_cast<IDispatch*>(nullptr)}});
}

TEST_F(EverySlot, RemarkContextOpensWindows) {
  const auto failsFrom = [](HRESULT result, WideView source) {
    EXPECT_EQ(result, -1);
    const TakenError error = TakeError();
    EXPECT_EQ(error.source, source);
    EXPECT_THAT(error.description, HasText(u"window"));
  };
  failsFrom(m_context->PopupMemos(VARIANT_FALSE), u"RemarkContext.PopupMemos");
  failsFrom(m_context->EditMemos(VARIANT_FALSE), u"RemarkContext.EditMemos");
  failsFrom(m_context->ViewManager(1), u"RemarkContext.ViewManager");
  failsFrom(m_context->Edit(Text(u"CustInq").Get(), Text(u"C1001").Get(), Text(u"jsmith").Get()),
            u"RemarkContext.EditMemos");
  ExpectProperties(m_context.Get(), {{u"ContextID", u"CustInq"}, {u"OwnerID", u"C1001"}, {u"UserID", u"jsmith"}});
  failsFrom(m_context->Popup(Text(u"CustMaint").Get(), Text(u"C1044").Get(), Text(u"admin").Get()),
            u"RemarkContext.PopupMemos");
  ExpectProperties(m_context.Get(), {{u"ContextID", u"CustMaint"}, {u"OwnerID", u"C1044"}, {u"UserID", u"admin"}});
}

TEST_F(EverySlot, RemarkList) {
  const auto list = m_context.List();
  const auto expect = [&](LONG count, bool dirty) {
    ExpectProperties(list.Get(), {{u"Count", count}, {u"Dirty", dirty}});
  };
  expect(7, false);
  ExpectProperties(list.Get(), {{u"PopupCount", 3}});
  const auto second = RemarkAt(list.Get(), 2);
  EXPECT_EQ(Read(second.Get(), &_Remark::get_MemoKey), 4);
  EXPECT_EQ(PositionOf(list.Get(), second.Get()), 2);

  EXPECT_EQ(list->Backup(), S_OK);
  AnyValue index(LONG{2});
  EXPECT_EQ(list->Remove(index.Pointer()), S_OK);
  expect(6, true);
  EXPECT_EQ(list->Restore(), S_OK);
  expect(7, false);

  const auto added = Read(list.Get(), &_RemarkList::Add);
  ExpectProperties(added.Get(), {{u"MemoKey", 0}});
  EXPECT_EQ(AddTo(list.Get(), NewRemark().Get()), S_OK);
  EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 9);

  EXPECT_EQ(list->Remove(index.Pointer()), S_OK);
  EXPECT_EQ(list->Save(), S_OK);
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoKey = 4"), "0");
  EXPECT_EQ(list->Clear(VARIANT_TRUE), S_OK);
  EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 0);
  EXPECT_TRUE(Read(list.Get(), &_RemarkList::Add));
}

}  // namespace
}  // namespace quorvel::test
