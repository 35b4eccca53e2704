#include <vector>

#include "tests/published/HostTest.h"

// Each operation of each interface through its slot, with the answer that only that operation gives.
namespace quorvel::test {
namespace {

using EverySlot = HostTest;

TEST_F(EverySlot, OfRemarkType) {
  Run([] {
    const LoadedContext context(u"CustMaint", u"C1044", u"mjones");
    const auto type = context.Type(u"cust.credit");
    ASSERT_TRUE(type);
    Reference<_RemarkContext> owner;
    EXPECT_EQ(type->get_Context(owner.Put()), S_OK);
    EXPECT_EQ(owner.Get(), context.Get());
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_TypeID), u"Cust.Credit");
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_Caption), u"Credit");
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_ShowPopup), VARIANT_TRUE);
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_CanCreate), 1);
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_CanRead), 1);
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_CanUpdate), 1);
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_CanDelete), 0);

    EXPECT_EQ(type->putref_Context(nullptr), S_OK);
    EXPECT_EQ(type->put_TypeID(Text(u"Other").Get()), S_OK);
    EXPECT_EQ(type->put_Caption(Text(u"Another").Get()), S_OK);
    EXPECT_EQ(type->put_ShowPopup(VARIANT_FALSE), S_OK);
    EXPECT_EQ(type->put_CanCreate(-1), S_OK);
    EXPECT_EQ(type->put_CanRead(2), S_OK);
    EXPECT_EQ(type->put_CanUpdate(2147483647), S_OK);
    EXPECT_EQ(type->put_CanDelete(4), S_OK);

    EXPECT_EQ(type->get_Context(owner.Put()), S_OK);
    EXPECT_FALSE(owner);
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_TypeID), u"Other");
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_Caption), u"Another");
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_ShowPopup), VARIANT_FALSE);
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_CanCreate), -1);
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_CanRead), 2);
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_CanUpdate), 2147483647);
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_CanDelete), 4);
  });
}

TEST_F(EverySlot, OfRemarkThatIsStored) {
  Run([this] {
    const LoadedContext context;
    const auto remark = RemarkAt(context.List().Get(), 1);
    ASSERT_TRUE(remark);
    Reference<_RemarkType> type;
    EXPECT_EQ(remark->get_RemarkType(type.Put()), S_OK);
    EXPECT_EQ(type.Get(), context.Type(u"Cust.AR.Coll").Get());
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_MemoKey), 7);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_OwnerKey), 45);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_EntityKey), 501);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_TypeID), u"Cust.AR.Coll");
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_TypeCaption), u"Collections");
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_ShowPopup), VARIANT_TRUE);
    EXPECT_DOUBLE_EQ(Read(remark.Get(), &_Remark::get_DateStamp), 45362.5625);  // 2024-03-11 13:30
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_UserID), u"jsmith");
    EXPECT_THAT(Read(remark.Get(), &_Remark::get_MemoText), BeginsWith(u"Dana promised payment"));
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_Dirty), VARIANT_FALSE);

    EXPECT_EQ(remark->put_MemoText(Text(u"Changed").Get()), S_OK);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_Dirty), VARIANT_FALSE);
    EXPECT_EQ(remark->put_Dirty(1), S_OK);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_Dirty), VARIANT_TRUE);
    EXPECT_EQ(remark->Commit(), S_OK);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_Dirty), VARIANT_FALSE);
    EXPECT_EQ(m_database.Ask("SELECT MemoText FROM tciMemo WHERE MemoKey = 7"), "Changed");
    EXPECT_EQ(remark->Delete(), S_OK);
    EXPECT_EQ(m_database.Ask("SELECT MemoText FROM tciMemo WHERE MemoKey = 7"), "");
  });
}

TEST_F(EverySlot, OfRemarkThatAHostMade) {
  Run([] {
    const LoadedContext context;
    const auto remark = NewRemark();
    Reference<_RemarkType> type;
    EXPECT_EQ(remark->get_RemarkType(type.Put()), S_OK);
    EXPECT_FALSE(type);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_OwnerKey) + Read(remark.Get(), &_Remark::get_EntityKey), 0);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_TypeID) + Read(remark.Get(), &_Remark::get_TypeCaption), u"");
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_ShowPopup), VARIANT_FALSE);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_DateStamp), 0);
    EXPECT_EQ(remark->Delete(), S_OK) << "never stored, so there is nothing to delete";

    EXPECT_EQ(remark->putref_RemarkType(context.Type(u"Cust.Internal").Get()), S_OK);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_TypeID), u"Cust.Internal");
    EXPECT_EQ(remark->putref_RemarkType(nullptr), S_OK);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_TypeID), u"");
    EXPECT_EQ(remark->put_MemoKey(-3), S_OK);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_MemoKey), -3);
    EXPECT_EQ(remark->put_DateStamp(45000.25), S_OK);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_DateStamp), 45000.25);
    EXPECT_EQ(remark->put_UserID(Text(u"me").Get()), S_OK);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_UserID), u"me");
  });
}

TEST_F(EverySlot, OfRemarkContextThatReads) {
  Run([] {
    const LoadedContext context(u"custmaint", u"c1044", u"JSMITH");
    _RemarkContext* object = context.Get();
    EXPECT_EQ(Read(object, &_RemarkContext::get_EditBehavior), PromptForSave);
    EXPECT_EQ(Read(object, &_RemarkContext::get_GroupByType), VARIANT_TRUE);
    EXPECT_EQ(Read(object, &_RemarkContext::get_AllowRowSizing), VARIANT_TRUE);
    EXPECT_EQ(Read(object, &_RemarkContext::get_RowHeight), 2);
    EXPECT_EQ(Read(object, &_RemarkContext::get_UserID), u"JSMITH");
    EXPECT_EQ(Read(object, &_RemarkContext::get_ContextID), u"custmaint");
    EXPECT_EQ(Read(object, &_RemarkContext::get_OwnerID), u"c1044");
    EXPECT_EQ(Read(object, &_RemarkContext::get_Caption), u"Customer Maintenance");
    EXPECT_EQ(Read(object, &_RemarkContext::get_EntityKey), 501);
    EXPECT_EQ(Read(object, &_RemarkContext::get_EntityName), u"Customer");
    EXPECT_EQ(Read(object, &_RemarkContext::get_OwnerKey), 45);
    EXPECT_EQ(Read(object, &_RemarkContext::get_OwnerName), u"Acme Tools");
    EXPECT_EQ(Read(context.List().Get(), &_RemarkList::get_Count), 6);
    EXPECT_EQ(Read(context.Type(LONG{3}).Get(), &_RemarkType::get_TypeID), u"Cust.General");
    EXPECT_EQ(Read(object, &_RemarkContext::get_TypeCount), 4);
    EXPECT_EQ(Read(object, &_RemarkContext::get_MemoCount), 6);
    EXPECT_EQ(Read(object, &_RemarkContext::get_PopupCount), 3);
    Reference<IUnknown> types;
    EXPECT_EQ(object->get_NewEnum(types.Put()), S_OK);
    EXPECT_TRUE(Ask<IEnumVARIANT>(types.Get(), IID_IEnumVARIANT));
    EXPECT_EQ(Read(object, &_RemarkContext::get_CreateableTypes), 2);
    EXPECT_THAT(Read(object, &_RemarkContext::get_ConnectionString),
                BeginsWith(u"Provider=SQLOLEDB.1;Data Source=(embedded); Initial Catalog="));
    EXPECT_EQ(Read(object, &_RemarkContext::get_Server), u"(embedded)");
  });
}

TEST_F(EverySlot, OfRemarkContextThatTellsRights) {
  Run([] {
    // On the first remark, one of Credit, this user has every right but one; of the last one, General, there may only
    // be new ones; and there is no fifth.
    const LoadedContext context(u"CustMaint", u"C1044", u"mjones");
    const auto granted = [&](HRESULT (_RemarkContext::*right)(LONG, VARIANT_BOOL*)) {
      std::vector<VARIANT_BOOL> answers;
      for (const LONG position : {1, 4, 5}) {
        VARIANT_BOOL answer = 7;
        EXPECT_EQ((context.Get()->*right)(position, &answer), S_OK);
        answers.push_back(answer);
      }
      return answers;
    };
    EXPECT_THAT(granted(&_RemarkContext::CanUpdate), testing::ElementsAre(VARIANT_TRUE, VARIANT_FALSE, VARIANT_FALSE));
    EXPECT_THAT(granted(&_RemarkContext::CanDelete), testing::Each(VARIANT_FALSE));
    EXPECT_THAT(granted(&_RemarkContext::CanCreate), testing::ElementsAre(VARIANT_TRUE, VARIANT_TRUE, VARIANT_FALSE));
  });
}

TEST_F(EverySlot, OfRemarkContextThatActs) {
  Run([this] {
    const LoadedContext context;
    EditBehavior behavior = NoAutoSave;
    EXPECT_EQ(context->put_EditBehavior(&behavior), S_OK);
    EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_EditBehavior), NoAutoSave);

    Text text(u"Only in memory");
    AnyValue type(u"Cust.General");
    EXPECT_EQ(context->AddRemark(type.Pointer(), text.ByReference(), nullptr), S_OK);
    EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_MemoCount), 8);
    EXPECT_EQ(context->RefreshRemarkList(), S_OK);
    EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_MemoCount), 7);

    EXPECT_EQ(context->AddRemark(type.Pointer(), text.ByReference(), Text(u"mjones").Get()), S_OK);
    EXPECT_EQ(context->Save(VARIANT_FALSE), S_OK);
    EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'Only in memory'"), "0");
    EXPECT_EQ(context->Save(VARIANT_TRUE), S_OK);
    EXPECT_EQ(m_database.Ask("SELECT UserID FROM tciMemo WHERE MemoText = 'Only in memory'"), "mjones");

    Text owner(u"C1000");
    EXPECT_EQ(context->put_OwnerID(owner.ByReference()), S_OK);
    EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_OwnerName), u"Alder Creek Hardware");
    EXPECT_EQ(context->put_OwnerKey(46), S_OK);
    EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_OwnerKey), 46);
    EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_MemoCount), 0);

    EXPECT_EQ(context->Dispose(), S_OK);
    EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_TypeCount), 0);
    EXPECT_FALSE(context.List());
  });
}

TEST_F(EverySlot, OfRemarkContextThatShowsWindows) {
  Run([] {
    const LoadedContext context;
    const Text contextID(u"CustInq");
    const auto failsFrom = [](HRESULT result, WideView source) {
      EXPECT_EQ(result, -1);
      const TakenError error = TakeError();
      EXPECT_EQ(error.source, source);
      EXPECT_THAT(error.description, HasText(u"window"));
    };
    failsFrom(context->PopupMemos(VARIANT_FALSE), u"RemarkContext.PopupMemos");
    failsFrom(context->EditMemos(VARIANT_FALSE), u"RemarkContext.EditMemos");
    failsFrom(context->ViewManager(1), u"RemarkContext.ViewManager");
    failsFrom(context->Edit(contextID.Get(), Text(u"C1001").Get(), Text(u"jsmith").Get()), u"RemarkContext.EditMemos");
    EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_OwnerID), u"C1001") << "it loads before it opens the window";
    failsFrom(context->Popup(Text(u"CustMaint").Get(), Text(u"C1044").Get(), Text(u"jsmith").Get()),
              u"RemarkContext.PopupMemos");
    EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_OwnerID), u"C1044");
  });
}

TEST_F(EverySlot, OfRemarkList) {
  Run([this] {
    const LoadedContext context;
    const auto list = context.List();
    Reference<IUnknown> remarks;
    EXPECT_EQ(list->get_NewEnum(remarks.Put()), S_OK);
    EXPECT_TRUE(Ask<IEnumVARIANT>(remarks.Get(), IID_IEnumVARIANT));
    auto second = RemarkAt(list.Get(), 2);
    EXPECT_EQ(Read(second.Get(), &_Remark::get_MemoKey), 4);
    EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 7);
    EXPECT_EQ(Read(list.Get(), &_RemarkList::get_PopupCount), 3);
    EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Dirty), VARIANT_FALSE);
    LONG position = 0;
    EXPECT_EQ(list->Index(second.ByReference(), &position), S_OK);
    EXPECT_EQ(position, 2);

    EXPECT_EQ(list->Backup(), S_OK);
    AnyValue index(LONG{2});
    EXPECT_EQ(list->Remove(index.Pointer()), S_OK);
    EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 6);
    EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Dirty), VARIANT_TRUE);
    EXPECT_EQ(list->Restore(), S_OK);
    EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 7);
    EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Dirty), VARIANT_FALSE);

    Reference<_Remark> added;
    EXPECT_EQ(list->Add(added.Put()), S_OK);
    EXPECT_EQ(Read(added.Get(), &_Remark::get_MemoKey), 0);
    auto own = NewRemark();
    EXPECT_EQ(list->AddRemark(own.ByReference()), S_OK);
    EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 9);

    EXPECT_EQ(list->Remove(index.Pointer()), S_OK);
    EXPECT_EQ(list->Save(), S_OK);
    EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoKey = 4"), "0");
    EXPECT_EQ(list->Clear(VARIANT_TRUE), S_OK);
    EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 0);
    EXPECT_EQ(list->Add(added.Put()), S_OK);
    EXPECT_EQ(list->Clear(VARIANT_FALSE), S_OK);
    EXPECT_EQ(list->Add(added.Put()), FromNumber(91));
    EXPECT_FALSE(added);
  });
}

}  // namespace
}  // namespace quorvel::test
