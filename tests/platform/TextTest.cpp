#include "platform/Text.h"

#include <gtest/gtest.h>

#include "platform/Utf.h"

namespace quorvel {
namespace {

TEST(Text, IgnoresLetterCase) {
  const std::pair<const char*, const char*> equal[] = {
      {"", ""},           {"MiXed", "mIxED"}, {"STRASSE", "strasse"},      {"ÄÖÜ é", "äöü É"}, {"ЖУК", "жук"},
      {"ΛΌΓΟΙ", "λόγοι"}, {"ĀĮĹŽ", "āįĺž"},   {"ǄǅꟶⱭ", "ǆǆꟶɑ"}, {"𐐀", "𐐨"}};
  for (const auto& [left, right] : equal) {
    EXPECT_TRUE(EqualIgnoringCase(left, right)) << left;
    EXPECT_EQ(FoldCase(left), FoldCase(right)) << left;
  }
  // Neighbours of capitals, where every second character is one, and letters without a capital.
  for (const char* text : {"āĸįňżƀ", "ßﬁŉ", "ǆꟶ"}) EXPECT_EQ(FoldCase(text), text);
  // Each is less than the next. The code of '_' lies between the capitals and the small letters, which count as one.
  const char* const ordered[] = {"", "_", "a", "A ", "aB", "b", "z", "ß", "ä", "ÄA", "Ж", "日", "😀"};
  for (std::size_t i = 0; i + 1 < std::size(ordered); ++i) {
    EXPECT_LT(CompareIgnoringCase(ordered[i], ordered[i + 1]), 0) << ordered[i];
    EXPECT_GT(CompareIgnoringCase(ordered[i + 1], ordered[i]), 0) << ordered[i];
  }
}

TEST(Text, KeepsBytesThatAreNotUtf8) {
  for (const std::string text : {"a\xFFz", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82"}) {
    EXPECT_EQ(FoldCase(text), text);
    EXPECT_EQ(CountCharacters(text), text.size());
    EXPECT_FALSE(utf::ToUtf16(text));
  }
  EXPECT_NE(CompareIgnoringCase("\xC3", "\xC4"), 0);
  EXPECT_EQ(CountCharacters("aé日😀"), 4U);
}

TEST(Text, ConvertsEveryPlaneToUtf16AndBack) {
  const std::string text("a\0é日😀\xF4\x8F\xBF\xBF", 15);
  const auto wide = utf::ToUtf16(text);
  ASSERT_TRUE(wide);
  EXPECT_EQ(wide->size(), 8U);
  EXPECT_EQ(utf::ToUtf8(*wide), text);
  for (const std::u16string_view broken : {u"\xD800", u"x\xDC00", u"\xD800y"}) EXPECT_FALSE(utf::ToUtf8(broken));
}

TEST(Text, TrimsOnlyBlanks) {
  EXPECT_EQ(TrimBlanks("  \ta b\n "), "\ta b\n");
  EXPECT_EQ(TrimBlanks("   "), "");
}

}  // namespace
}  // namespace quorvel
