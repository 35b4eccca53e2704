// The enumerators of a context's types and a list's remarks, also while their source changes.

#include <vector>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

namespace quorvel::test {
namespace {

template <typename Interface>
Pointer<IEnumVARIANT> Enumerate(Interface* object) {
  return Query<IEnumVARIANT>(Read(object, &Interface::get_NewEnum).Get(), IID_IEnumVARIANT);
}

/// Expects `expected` objects from a call for `count`.
void ExpectNext(IEnumVARIANT* enumerator, ULONG count, ULONG expected) {
  std::vector<AnyValue> owners(count + 1);
  std::vector<VARIANT> values(count + 1);  // one more than requested, which must stay empty
  ULONG fetched = 99;
  EXPECT_EQ(enumerator->Next(count, values.data(), &fetched), expected == count ? S_OK : S_FALSE);
  EXPECT_EQ(fetched, expected);
  for (ULONG i = 0; i <= count; ++i) {
    *owners[i].Pointer() = values[i];
    EXPECT_EQ(values[i].vt, i < expected ? VT_DISPATCH : VT_EMPTY) << i;
  }
}

/// The key of the next remark; 0 at the end.
LONG NextKey(IEnumVARIANT* enumerator) {
  AnyValue value;
  if (enumerator->Next(1, value.Put(), nullptr) != S_OK) return 0;
  return Read(Query<_Remark>(value.Get().punkVal, IID__Remark).Get(), &_Remark::get_MemoKey);
}

std::vector<LONG> Keys(IEnumVARIANT* enumerator) {
  std::vector<LONG> keys;
  while (const LONG key = NextKey(enumerator)) keys.push_back(key);
  return keys;
}

using Enumeration = LoadedHostTest;
using testing::ElementsAre;

TEST_F(Enumeration, NextSkipResetAndClone) {
  EXPECT_THAT(Keys(Enumerate(m_context.List().Get()).Get()), ElementsAre(7, 4, 3, 6, 5, 2, 1));
  const auto remarks = Enumerate(m_context.List().Get());
  ExpectNext(remarks.Get(), 2, 2);
  EXPECT_EQ(remarks->Skip(1), S_OK);
  Pointer<IEnumVARIANT> clone;
  ASSERT_EQ(remarks->Clone(clone.Put()), S_OK);
  EXPECT_EQ(NextKey(remarks.Get()), 6);
  EXPECT_THAT(Keys(clone.Get()), ElementsAre(6, 5, 2, 1)) << "a clone has its own position";
  EXPECT_EQ(remarks->Skip(4), S_FALSE);
  ExpectNext(remarks.Get(), 3, 0);
  EXPECT_EQ(remarks->Skip(0), S_OK);
  ExpectNext(remarks.Get(), 0, 0);
  EXPECT_EQ(remarks->Reset(), S_OK);
  EXPECT_EQ(remarks->Skip(6), S_OK);
  ExpectNext(remarks.Get(), 4, 1);

  EXPECT_EQ(remarks->Reset(), S_OK);
  AnyValue one;
  ULONG fetched = 5;
  EXPECT_EQ(remarks->Next(1, nullptr, &fetched), E_POINTER);
  EXPECT_EQ(fetched, 0U);
  EXPECT_TRUE(FAILED(remarks->Next(2, one.Put(), nullptr))) << "the count is optional for one value only";
  EXPECT_EQ(remarks->Clone(nullptr), E_POINTER);
  EXPECT_EQ(NextKey(remarks.Get()), 7) << "failed calls do not move the position";
}

TEST_F(Enumeration, SeesChangesAfterItsPosition) {
  const auto list = m_context.List();
  const auto remarks = Enumerate(list.Get());
  EXPECT_EQ(NextKey(remarks.Get()), 7);
  AnyValue index(LONG{2});
  EXPECT_EQ(list->Remove(index.Pointer()), S_OK);
  EXPECT_EQ(NextKey(remarks.Get()), 3) << "the remark after the removed one has moved up";
  const auto own = NewRemark();
  EXPECT_EQ(own->put_MemoKey(99), S_OK);
  EXPECT_EQ(AddTo(list.Get(), own.Get()), S_OK);
  EXPECT_THAT(Keys(remarks.Get()), ElementsAre(6, 5, 2, 1, 99));
}

TEST_F(Enumeration, KeepsItsSourceWhenTheContextReplacesIt) {
  const auto remarks = Enumerate(m_context.List().Get());
  EXPECT_EQ(NextKey(remarks.Get()), 7);
  EXPECT_EQ(m_context->RefreshRemarkList(), S_OK);
  EXPECT_EQ(NextKey(remarks.Get()), 4);
  const auto list = m_context.List();
  const auto cleared = Enumerate(list.Get());
  EXPECT_EQ(list->Clear(VARIANT_FALSE), S_OK);
  EXPECT_EQ(NextKey(cleared.Get()), 7);
  Pointer<IUnknown> none;
  EXPECT_EQ(list->get_NewEnum(none.Put()), FromNumber(91));
  EXPECT_FALSE(none);
  const auto types = Enumerate(m_context.Get());
  AnyValue first;
  EXPECT_EQ(types->Next(1, first.Put(), nullptr), S_OK);
  EXPECT_EQ(first.Get().pdispVal, m_context.Type(1).Get());
  EXPECT_EQ(m_context->Dispose(), S_OK);
  ExpectNext(types.Get(), 5, 3);

  // Without types there is an error; with an empty list of types there is none.
  EXPECT_EQ(m_context->get_NewEnum(none.Put()), FromNumber(91));
  EXPECT_FALSE(none);
  ExpectNext(Enumerate(NewContext().Get()).Get(), 1, 0);
}

TEST_F(Enumeration, ForEachOfAScript) {
  const auto list = m_context.List();
  EXPECT_EQ(IdOf(list.Get(), u"newenum"), DISPID_NEWENUM);
  // Script engines request the enumerator either as a property or as a method.
  for (const WORD flags : {DISPATCH_METHOD, DISPATCH_PROPERTYGET}) {
    DISPPARAMS none{};
    AnyValue found;
    ASSERT_EQ(list->Invoke(DISPID_NEWENUM, IID_NULL, 0, flags, &none, found.Put(), nullptr, nullptr), S_OK);
    EXPECT_EQ(found.Get().vt, VT_UNKNOWN);
    EXPECT_EQ(Keys(Query<IEnumVARIANT>(found.Get().punkVal, IID_IEnumVARIANT).Get()).size(), 7U);
  }
}

}  // namespace
}  // namespace quorvel::test
