#include <vector>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

namespace quorvel::test {
namespace {

/// The enumerator of a context or a list.
template <typename Interface>
Reference<IEnumVARIANT> Enumerate(Interface* object) {
  Reference<IUnknown> unknown;
  EXPECT_EQ(object->get_NewEnum(unknown.Put()), S_OK);
  return Ask<IEnumVARIANT>(unknown.Get(), IID_IEnumVARIANT);
}

/// The next `count` values, of which the enumerator must have `expected`.
std::vector<Reference<IUnknown>> Next(IEnumVARIANT* enumerator, ULONG count, ULONG expected) {
  std::vector<VARIANT> values(count + 1);  // one more, which must be left alone
  for (VARIANT& value : values) VariantInit(&value);
  ULONG fetched = 99;
  EXPECT_EQ(enumerator->Next(count, values.data(), &fetched), expected == count ? S_OK : S_FALSE);
  EXPECT_EQ(fetched, expected);
  std::vector<Reference<IUnknown>> objects;
  for (VARIANT& value : values) {
    EXPECT_EQ(value.vt, objects.size() < expected ? VT_DISPATCH : VT_EMPTY);
    if (value.vt == VT_DISPATCH) objects.push_back(Ask<IUnknown>(value.punkVal, IID_IUnknown));
    VariantClear(&value);
  }
  return objects;
}

/// The key of the next remark; 0 at the end.
LONG NextKey(IEnumVARIANT* enumerator) {
  AnyValue value;
  if (enumerator->Next(1, value.Put(), nullptr) != S_OK) return 0;
  const auto remark = Ask<_Remark>(value.Get().punkVal, IID__Remark);
  return Read(remark.Get(), &_Remark::get_MemoKey);
}

std::vector<LONG> Keys(IEnumVARIANT* enumerator) {
  std::vector<LONG> keys;
  while (const LONG key = NextKey(enumerator)) keys.push_back(key);
  return keys;
}

using Enumeration = HostTest;
using testing::ElementsAre;

TEST_F(Enumeration, OfTypesInLoadOrder) {
  Run([] {
    const LoadedContext context;
    const auto types = Enumerate(context.Get());
    std::vector<WideText> ids;
    for (const auto& each : Next(types.Get(), 10, 4)) {
      ids.push_back(Read(Ask<_RemarkType>(each.Get(), IID__RemarkType).Get(), &_RemarkType::get_TypeID));
    }
    EXPECT_THAT(ids, ElementsAre(u"Cust.AR.Coll", u"Cust.Credit", u"Cust.General", u"Cust.Internal"));
  });
}

TEST_F(Enumeration, OfRemarksInTheListsOrder) {
  Run([] {
    const LoadedContext context;
    EXPECT_THAT(Keys(Enumerate(context.List().Get()).Get()), ElementsAre(7, 4, 3, 6, 5, 2, 1));
  });
}

TEST_F(Enumeration, NextSkipResetAndCloneGoTogether) {
  Run([] {
    const LoadedContext context;
    const auto remarks = Enumerate(context.List().Get());
    EXPECT_EQ(Next(remarks.Get(), 2, 2).size(), 2U);
    EXPECT_EQ(remarks->Skip(1), S_OK);
    Reference<IEnumVARIANT> clone;
    ASSERT_EQ(remarks->Clone(clone.Put()), S_OK);
    EXPECT_EQ(NextKey(remarks.Get()), 6);
    EXPECT_THAT(Keys(clone.Get()), ElementsAre(6, 5, 2, 1)) << "a copy has a position of its own";
    EXPECT_EQ(remarks->Skip(4), S_FALSE);
    EXPECT_TRUE(Next(remarks.Get(), 3, 0).empty());
    EXPECT_EQ(remarks->Skip(0), S_OK);
    EXPECT_TRUE(Next(remarks.Get(), 0, 0).empty());
    EXPECT_EQ(remarks->Reset(), S_OK);
    EXPECT_EQ(remarks->Skip(6), S_OK);
    EXPECT_EQ(Next(remarks.Get(), 4, 1).size(), 1U);
  });
}

TEST_F(Enumeration, NullPointersAreRefused) {
  Run([] {
    const LoadedContext context;
    const auto remarks = Enumerate(context.List().Get());
    AnyValue one;
    ULONG fetched = 5;
    EXPECT_EQ(remarks->Next(1, nullptr, &fetched), E_POINTER);
    EXPECT_EQ(fetched, 0U);
    EXPECT_TRUE(FAILED(remarks->Next(2, one.Put(), nullptr))) << "only for one value may the number be left out";
    EXPECT_EQ(remarks->Clone(nullptr), E_POINTER);
    EXPECT_EQ(NextKey(remarks.Get()), 7) << "nothing was passed over";
  });
}

TEST_F(Enumeration, SeesWhatChangesBehindItsPosition) {
  Run([] {
    const LoadedContext context;
    const auto list = context.List();
    const auto remarks = Enumerate(list.Get());
    EXPECT_EQ(NextKey(remarks.Get()), 7);
    AnyValue index(LONG{2});
    EXPECT_EQ(list->Remove(index.Pointer()), S_OK);
    EXPECT_EQ(NextKey(remarks.Get()), 3) << "the one behind the removed one has moved up";
    auto own = NewRemark();
    EXPECT_EQ(own->put_MemoKey(99), S_OK);
    EXPECT_EQ(list->AddRemark(own.ByReference()), S_OK);
    EXPECT_THAT(Keys(remarks.Get()), ElementsAre(6, 5, 2, 1, 99));
  });
}

TEST_F(Enumeration, StaysWithWhatItBeganWith) {
  Run([] {
    const LoadedContext context;
    const auto remarks = Enumerate(context.List().Get());
    EXPECT_EQ(NextKey(remarks.Get()), 7);
    EXPECT_EQ(context->RefreshRemarkList(), S_OK);
    EXPECT_EQ(NextKey(remarks.Get()), 4) << "the context has another list now";
    const auto types = Enumerate(context.Get());
    EXPECT_EQ(Next(types.Get(), 1, 1).size(), 1U);
    EXPECT_EQ(context->Dispose(), S_OK);
    EXPECT_EQ(Next(types.Get(), 5, 3).size(), 3U);
    // A context without types gives an error, a list without remarks none.
    Reference<IUnknown> none;
    EXPECT_EQ(context->get_NewEnum(none.Put()), FromNumber(91));
    EXPECT_FALSE(none);
    EXPECT_TRUE(Next(Enumerate(NewContext().Get()).Get(), 1, 0).empty());
  });
}

TEST_F(Enumeration, OfAListWithoutCollectionsIsAnError) {
  Run([] {
    const LoadedContext context;
    const auto list = context.List();
    const auto remarks = Enumerate(list.Get());
    EXPECT_EQ(list->Clear(VARIANT_FALSE), S_OK);
    Reference<IUnknown> none;
    EXPECT_EQ(list->get_NewEnum(none.Put()), FromNumber(91));
    EXPECT_FALSE(none);
    EXPECT_EQ(NextKey(remarks.Get()), 7);
  });
}

TEST_F(Enumeration, ForEachOfAScript) {
  Run([] {
    const LoadedContext context;
    const auto list = context.List();
    // A script asks for the member with the enumerator's identifier, by either kind of call.
    for (const WORD flags : {WORD{DISPATCH_METHOD | DISPATCH_PROPERTYGET}, DISPATCH_PROPERTYGET}) {
      DISPPARAMS none{};
      AnyValue found;
      ASSERT_EQ(list->Invoke(DISPID_NEWENUM, IID_NULL, 0, flags, &none, found.Put(), nullptr, nullptr), S_OK);
      EXPECT_EQ(found.Get().vt, VT_UNKNOWN);
      EXPECT_EQ(Keys(Ask<IEnumVARIANT>(found.Get().punkVal, IID_IEnumVARIANT).Get()).size(), 7U);
    }
    EXPECT_EQ(IdOf(list.Get(), u"newenum"), DISPID_NEWENUM);
    EXPECT_EQ(IdOf(context.Get(), u"NEWENUM"), DISPID_NEWENUM);
  });
}

}  // namespace
}  // namespace quorvel::test
