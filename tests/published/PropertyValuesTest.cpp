// The texts and dates of properties, from a host to a remark and back.

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "tests/published/HostTest.h"

namespace quorvel::test {
namespace {

using Dates = HostTest;
using Texts = HostTest;

/// A text after a write and a read.
WideText ThereAndBack(WideView text) {
  const auto remark = NewRemark();
  EXPECT_EQ(remark->put_MemoText(Text(text).Get()), S_OK);
  return Read(remark.Get(), &_Remark::get_MemoText);
}

TEST_F(Texts, KeepEveryCharacter) {
  const WideView withZeros(u"\0a\0\0b\0", 6);
  for (const WideView text : {withZeros, WideView(), WideView(u" blanks "), WideView(u"\u00E4\u20AC\u05D0"),
                              WideView(u"\U0001F600\U0010FFFF"), WideView(u"line\r\nend\t\x01\x7F"),
                              WideView(u"\uFFFD\uFFFE\uFFFF"), WideView(u"e\u0301")}) {
    EXPECT_EQ(ThereAndBack(text), text);
  }
  const WideText large(1U << 19U, u'\u05D0');  // 1 MB
  EXPECT_TRUE(ThereAndBack(large) == large);
}

/// Plain texts are widened block by block.
TEST_F(Texts, KeepEveryCharacterOfEveryLength) {
  WideText text;
  for (const OLECHAR letter : WideView(u"0123456789abcdefghijklmnopqrstuvwxyz")) {
    EXPECT_EQ(ThereAndBack(text), text);
    for (std::size_t place = 0; place < text.size(); ++place) {
      WideText withUmlaut = text;
      withUmlaut[place] = u'\u00E4';
      EXPECT_EQ(ThereAndBack(withUmlaut), withUmlaut);
    }
    text += letter;
  }
}

TEST_F(Texts, HalfASurrogatePairBecomesTheReplacementCharacter) {
  const OLECHAR high = 0xD83D;
  const OLECHAR low = 0xDE00;
  EXPECT_EQ(ThereAndBack(WideText{high}), u"\uFFFD");
  EXPECT_EQ(ThereAndBack(WideText{u'a', low, u'b'}), u"a\uFFFDb");
  EXPECT_EQ(ThereAndBack(WideText{low, high}), u"\uFFFD\uFFFD");
  EXPECT_EQ(ThereAndBack(WideText{high, high, low}), u"\uFFFD\U0001F600");
}

TEST_F(Texts, NullIsTheEmptyTextAndIsNeverDelivered) {
  const auto remark = NewRemark();
  EXPECT_EQ(remark->put_MemoText(Text(u"full").Get()), S_OK);
  EXPECT_EQ(remark->put_MemoText(nullptr), S_OK);
  Text text;
  EXPECT_EQ(remark->get_MemoText(text.Put()), S_OK);
  ASSERT_NE(text.Get(), nullptr) << "a host may read it as a text that ends with a zero";
  EXPECT_EQ(SysStringLen(text.Get()), 0U);
  EXPECT_EQ(*text.Get(), 0);

  const BSTR oddNumberOfBytes = SysAllocStringByteLen("a\0b\0c", 5);
  EXPECT_EQ(remark->put_MemoText(oddNumberOfBytes), S_OK);
  SysFreeString(oddNumberOfBytes);
  EXPECT_EQ(Read(remark.Get(), &_Remark::get_MemoText), u"ab");
}

TEST_F(Texts, BytesThatAreNotUtf8ArriveAsReplacementCharacters) {
  m_database.Run("UPDATE tciMemo SET MemoText = 'a\xFF\x62\xC3' WHERE MemoKey = 7");
  const LoadedContext context;
  EXPECT_EQ(Read(RemarkAt(context.List().Get(), 1).Get(), &_Remark::get_MemoText), u"a\uFFFDb\uFFFD");
}

TEST_F(Dates, AreKeptToTheMillisecond) {
  constexpr double kMillisecond = 1 / 86'400'000.0;
  for (const auto& [given, expected] :
       std::vector<std::pair<DATE, DATE>>{{0, 0},
                                          {-0.0, 0},
                                          {45362.5625, 45362.5625},
                                          {-1.75, -1.75},
                                          {45362.999 + kMillisecond, 45362.999 + kMillisecond},
                                          // Between -1 and 0 the time of day counts forwards on day 0.
                                          {-0.25, 0.25},
                                          // The first moment of the year 100 and the last day of 9999.
                                          {-657434, -657434},
                                          {-657434.99, -657434.99},
                                          {2958465.99998, 2958465.99998}}) {
    const auto remark = NewRemark();
    EXPECT_EQ(remark->put_DateStamp(given), S_OK) << given;
    EXPECT_NEAR(Read(remark.Get(), &_Remark::get_DateStamp), expected, kMillisecond / 2) << given;
  }
}

TEST_F(Dates, OutOfRangeAreRefusedAndChangeNothing) {
  const auto remark = NewRemark();
  EXPECT_EQ(remark->put_DateStamp(45000), S_OK);
  for (const DATE date : {std::nan(""), -std::numeric_limits<double>::infinity(), -657435.0, 2958466.0, 1e300,
                          // This rounds to the first millisecond of the year 10000.
                          std::nextafter(2958466.0, 0.0)}) {
    EXPECT_EQ(remark->put_DateStamp(date), FromNumber(6)) << date;
    EXPECT_EQ(TakeError().description, u"Overflow");
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_DateStamp), 45000);
  }
}

}  // namespace
}  // namespace quorvel::test
