#include <vector>

#include "tests/published/BothWays.h"

// The same call through the table of operations and by name: same value, same number, same texts.
namespace quorvel::test {
namespace {

using Invoke = HostTest;

TEST_F(Invoke, EveryPropertyReadsTheSameByName) {
  Run([] {
    const LoadedContext context;
    const auto list = context.List();
    const auto type = context.Type(LONG{2});
    const auto remark = RemarkAt(list.Get(), 3);
    ExpectSame(context.Get(), context.Get(), Getters(context.Get()));
    ExpectSame(list.Get(), list.Get(), Getters(list.Get()));
    ExpectSame(type.Get(), type.Get(), Getters(type.Get()));
    ExpectSame(remark.Get(), remark.Get(), Getters(remark.Get()));
  });
}

TEST_F(Invoke, WhatFindsWithoutChangingFindsTheSameByName) {
  Run([] {
    const LoadedContext context(u"CustMaint", u"C1044", u"mjones");
    std::vector<Step<_RemarkContext>> steps;
    for (const LONG position : {-1, 0, 1, 3, 4, 5, 2147483647}) {
      using C = _RemarkContext;
      steps.push_back(Function<VARIANT_BOOL, C>(
          u"canupdate", {position}, [=](C* c, VARIANT_BOOL* result) { return c->CanUpdate(position, result); }));
      steps.push_back(Function<VARIANT_BOOL, C>(
          u"CANDELETE", {position}, [=](C* c, VARIANT_BOOL* result) { return c->CanDelete(position, result); }));
      steps.push_back(Function<VARIANT_BOOL, C>(
          u"cancreate", {position}, [=](C* c, VARIANT_BOOL* result) { return c->CanCreate(position, result); }));
    }
    const std::vector<AnyValue> keys{LONG{1},
                                     LONG{4},
                                     LONG{5},
                                     LONG{0},
                                     u"cust.CREDIT",
                                     u"1",
                                     u"",
                                     2.4,
                                     true,
                                     AnyValue::Null(),
                                     AnyValue(),
                                     AnyValue::Date(3.0),
                                     AnyValue(context.Get())};
    for (const AnyValue& key : keys) {
      steps.push_back(Function<_RemarkType*, _RemarkContext>(
          u"ITEM", {key},
          [key](_RemarkContext* c, _RemarkType** result) { return c->get_Item(AnyValue(key).Pointer(), result); }));
    }
    ExpectSame(context.Get(), context.Get(), steps);

    const auto list = context.List();
    std::vector<Step<_RemarkList>> ofList;
    ofList.reserve(keys.size() + 1);
    for (const AnyValue& key : keys) {
      ofList.push_back(Function<_Remark*, _RemarkList>(u"item", {key}, [key](_RemarkList* l, _Remark** result) {
        return l->get_Item(AnyValue(key).Pointer(), result);
      }));
    }
    auto third = RemarkAt(list.Get(), 3);
    ofList.push_back(Function<LONG, _RemarkList>(u"index", {AnyValue(third.Get())}, [&](_RemarkList* l, LONG* result) {
      return l->Index(third.ByReference(), result);
    }));
    ExpectSame(list.Get(), list.Get(), ofList);
  });
}

TEST_F(Invoke, RemarkTypesChangeAlike) {
  Run([] {
    using T = _RemarkType;
    const LoadedContext left;
    const LoadedContext right;
    const Text text(u"gr\u00F6\u00DFer");
    ExpectSame<T>(
        left.Type(LONG{1}).Get(), right.Type(LONG{1}).Get(),
        {Put<T>(u"typeID", text.Get(), [&](T* t) { return t->put_TypeID(text.Get()); }),
         Put<T>(u"caption", u"", [](T* t) { return t->put_Caption(nullptr); }),
         Put<T>(u"showpopup", false, [](T* t) { return t->put_ShowPopup(VARIANT_FALSE); }),
         Put<T>(u"CanCREATE", LONG{-2}, [](T* t) { return t->put_CanCreate(-2); }),
         Put<T>(u"canread", LONG{3}, [](T* t) { return t->put_CanRead(3); }),
         Put<T>(u"canupdate", LONG{4}, [](T* t) { return t->put_CanUpdate(4); }),
         Put<T>(u"candelete", LONG{5}, [](T* t) { return t->put_CanDelete(5); }),
         Put<T>(u"context", static_cast<IDispatch*>(nullptr), [](T* t) { return t->putref_Context(nullptr); })});
    Reference<_RemarkContext> context;
    EXPECT_EQ(right.Type(LONG{1})->get_Context(context.Put()), S_OK);
    EXPECT_FALSE(context);
  });
}

TEST_F(Invoke, RemarksChangeAlike) {
  Run([] {
    using R = _Remark;
    const LoadedContext context;
    const auto type = context.Type(u"Cust.Internal");
    const Text text(u"a text");
    ExpectSame<R>(
        NewRemark().Get(), NewRemark().Get(),
        {Put<R>(u"memokey", LONG{77}, [](R* r) { return r->put_MemoKey(77); }),
         Put<R>(u"datestamp", AnyValue::Date(45000.5), [](R* r) { return r->put_DateStamp(45000.5); }),
         Put<R>(u"datestamp", AnyValue::Date(3e6), [](R* r) { return r->put_DateStamp(3e6); }),
         Put<R>(u"userid", text.Get(), [&](R* r) { return r->put_UserID(text.Get()); }),
         Put<R>(u"memotext", text.Get(), [&](R* r) { return r->put_MemoText(text.Get()); }),
         Put<R>(u"dirty", true, [](R* r) { return r->put_Dirty(VARIANT_TRUE); }),
         Put<R>(u"memokey", LONG{0}, [](R* r) { return r->put_MemoKey(0); }),
         Do<R>(u"delete", {}, [](R* r) { return r->Delete(); }),
         Put<R>(u"userid", u"", [](R* r) { return r->put_UserID(nullptr); }),
         Do<R>(u"COMMIT", {}, [](R* r) { return r->Commit(); }),
         Put<R>(u"remarktype", AnyValue(type.Get()), [&](R* r) { return r->putref_RemarkType(type.Get()); })});
  });
}

TEST_F(Invoke, ContextsChangeAlike) {
  Run([this] {
    using C = _RemarkContext;
    const auto left = NewContext();
    const auto right = NewContext();
    const auto load = [](WideView context, WideView owner, WideView user) {
      return Do<C>(u"LOAD", {context, owner, user},
                   [=](C* c) { return c->Load(Text(context).Get(), Text(owner).Get(), Text(user).Get()); });
    };
    const auto add = [](const AnyValue& type, WideView text) {
      return Do<C>(u"addremark", {type, text}, [=](C* c) {
        AnyValue index(type);
        Text given(text);
        return c->AddRemark(index.Pointer(), given.ByReference(), nullptr);
      });
    };
    const auto moveTo = [](WideView owner) {
      return Put<C>(u"ownerid", owner, [=](C* c) {
        Text given(owner);
        return c->put_OwnerID(given.ByReference());
      });
    };
    const auto behave = [](LONG behavior) {
      return Put<C>(u"editbehavior", behavior, [=](C* c) {
        auto given = static_cast<EditBehavior>(behavior);
        return c->put_EditBehavior(&given);
      });
    };
    const Step<C> refresh = Do<C>(u"refreshremarklist", {}, [](C* c) { return c->RefreshRemarkList(); });
    ExpectSame<C>(
        left.Get(), right.Get(),
        {behave(1),
         moveTo(u"C1044"),
         load(u"Nowhere", u"", u""),
         load(u"CustInq", u"C1044", u"jsmith"),
         load(u"CustMaint", u"Nobody", u"admin"),
         load(u"CustMaint", u"C1044", u"admin"),
         behave(1),
         add(u"cust.general", u"dropped"),
         add(LONG{2}, u"dropped too"),
         add(u"Ord.Note", u"refused"),
         add(AnyValue::Null(), u"refused"),
         refresh,
         add(LONG{3}, u"saved"),
         Do<C>(u"save", {false}, [](C* c) { return c->Save(VARIANT_FALSE); }),
         Do<C>(u"SAVE", {true}, [](C* c) { return c->Save(VARIANT_TRUE); }),
         moveTo(u"C1000"),
         moveTo(u"c1000"),
         Put<C>(u"ownerkey", LONG{45}, [](C* c) { return c->put_OwnerKey(45); }),
         refresh,
         behave(77),
         Do<C>(u"popupmemos", {true}, [](C* c) { return c->PopupMemos(VARIANT_TRUE); }),
         Do<C>(u"editmemos", {false}, [](C* c) { return c->EditMemos(VARIANT_FALSE); }),
         Do<C>(u"viewmanager", {LONG{1}}, [](C* c) { return c->ViewManager(1); }),
         Do<C>(u"POPUP", {u"OrderEntry", u"SO20001", u"mjones"},
               [](C* c) { return c->Popup(Text(u"OrderEntry").Get(), Text(u"SO20001").Get(), Text(u"mjones").Get()); }),
         Do<C>(u"edit", {u"CustInq", u"C1001", u"jsmith"},
               [](C* c) { return c->Edit(Text(u"CustInq").Get(), Text(u"C1001").Get(), Text(u"jsmith").Get()); }),
         Do<C>(u"dispose", {}, [](C* c) { return c->Dispose(); }),
         Put<C>(u"ownerkey", LONG{1}, [](C* c) { return c->put_OwnerKey(1); })});
    EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'saved'"), "2");
  });
}

TEST_F(Invoke, ListsChangeAlike) {
  Run([] {
    using L = _RemarkList;
    const LoadedContext left;
    const LoadedContext right;
    auto own = NewRemark();
    const auto remove = [](const AnyValue& key) {
      return Do<L>(u"remove", {key}, [key](L* l) { return l->Remove(AnyValue(key).Pointer()); });
    };
    const auto clear = [](bool recreate) {
      return Do<L>(u"clear", {recreate}, [=](L* l) { return l->Clear(recreate ? VARIANT_TRUE : VARIANT_FALSE); });
    };
    const Step<L> backup = Do<L>(u"backup", {}, [](L* l) { return l->Backup(); });
    const Step<L> restore = Do<L>(u"RESTORE", {}, [](L* l) { return l->Restore(); });
    const Step<L> save = Do<L>(u"save", {}, [](L* l) { return l->Save(); });
    const auto addRemark = [](_Remark* remark) {
      return Do<L>(u"addremark", {AnyValue(remark)}, [=](L* l) {
        _Remark* given = remark;
        return l->AddRemark(&given);
      });
    };
    ExpectSame<L>(left.List().Get(), right.List().Get(),
                  {backup, remove(LONG{2}), remove(LONG{7}), remove(LONG{0}), remove(u"1"), remove(AnyValue::Null()),
                   remove(1.4), restore, addRemark(own.Get()), addRemark(nullptr), save, clear(true), save, restore,
                   clear(false), remove(LONG{1}), addRemark(own.Get()), save});
    EXPECT_EQ(CallGet(right.List().Get(), u"ADD").result, left.List()->Add(Reference<_Remark>().Put()));
  });
}

}  // namespace
}  // namespace quorvel::test
