#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "grid/ColumnWidths.h"
#include "grid/GridColours.h"
#include "grid/WrappedText.h"

namespace quorvel {
namespace {

using testing::ElementsAre;
using namespace std::string_literals;

/// The lines of a text; each character and the ellipsis are ten pixels wide. "~" marks a cut.
std::vector<std::string> Lines(const std::string& text, int width, int lineCount) {
  const std::wstring wide(text.begin(), text.end());
  const WrappedText wrapped =
      WrapText(wide, width, lineCount, 10, [](std::size_t, std::size_t count) { return static_cast<int>(count) * 10; });
  std::vector<std::string> lines;
  for (const TextLine& line : wrapped.lines) lines.push_back(text.substr(line.from, line.count));
  if (!wrapped.complete) lines.back() += "~";
  return lines;
}

TEST(WrapText, BreaksAtBlanksAndCuts) {
  EXPECT_THAT(Lines("", 100, 2), ElementsAre());
  EXPECT_THAT(Lines("one two", 70, 1), ElementsAre("one two"));
  EXPECT_THAT(Lines("one two", 69, 1), ElementsAre("one t~"));
  EXPECT_THAT(Lines("one two three", 70, 2), ElementsAre("one two", "three"));
  EXPECT_THAT(Lines("one two three four", 70, 2), ElementsAre("one two", "three ~"));
  EXPECT_THAT(Lines("one   two", 40, 3), ElementsAre("one ", "two"));
  EXPECT_THAT(Lines("a\n\nb", 40, 3), ElementsAre("a", "", "b"));
  EXPECT_THAT(Lines("a\nb", 40, 1), ElementsAre("a~"));
  EXPECT_THAT(Lines("a\n", 40, 2), ElementsAre("a"));
  EXPECT_THAT(Lines("abcdefgh", 30, 2), ElementsAre("abc", "de~"));
  EXPECT_THAT(Lines("abcdefgh", 5, 3), ElementsAre("a", "b", "~")) << "narrower than a letter";
}

TEST(WrapText, KeepsCombinedCharactersTogether) {
  const std::wstring text = L"ae\u0301\u200Dx";  // e with an accent, joined to x
  const auto measure = [](std::size_t, std::size_t count) { return static_cast<int>(count) * 10; };
  for (const int width : {20, 30, 40}) {
    EXPECT_EQ(WrapText(text, width, 2, 0, measure).lines.front().count, 1U) << width;
  }
}

TEST(BeginningOf, ReplacesControlCharacters) {
  EXPECT_EQ(BeginningOf("a\0b\tc\r\nd\re\x7F"s, 100).text, "a b c\nd\ne ");
  EXPECT_EQ(BeginningOf("\xC3\xA9\xC3\xA9\xC3\xA9", 2).text, "\xC3\xA9\xC3\xA9");
  EXPECT_FALSE(BeginningOf("abc", 2).complete);
  EXPECT_TRUE(BeginningOf("abc", 3).complete);
}

TEST(IsRightToLeft, DependsOnTheFirstLetter) {
  EXPECT_TRUE(IsRightToLeft("12 - \xD7\xA9\xD7\x9C abc"));
  EXPECT_TRUE(IsRightToLeft("\xD8\xB3"));
  for (const char* text : {"", "12", "abc \xD7\xA9", "\xC3\xA9\xD7\xA9", "\xF0\x9F\x98\x80", "\xFF"}) {
    EXPECT_FALSE(IsRightToLeft(text)) << text;
  }
}

TEST(GridColours, TextIsReadableInLightAndDarkThemes) {
  EXPECT_EQ(kOddRow, (Colour{0xFF, 0xFF, 0xBF}));
  EXPECT_EQ(kEvenRow, (Colour{0xB0, 0xD7, 0xC1}));
  EXPECT_NEAR(Contrast({0, 0, 0}, {255, 255, 255}), 21, 0.01);
  for (const Colour& row : {kOddRow, kEvenRow}) {
    EXPECT_EQ(ReadableBackground(row, {0x2E, 0x34, 0x36}), row) << "a light theme keeps the colours";
    for (int grey = 0; grey <= 255; ++grey) {
      const auto channel = static_cast<std::uint8_t>(grey);
      const Colour text{channel, channel, channel};
      EXPECT_GE(Contrast(ReadableBackground(row, text), text), 4.5) << grey;
    }
  }
  const Colour light{0xEE, 0xEE, 0xEC};
  const Colour odd = ReadableBackground(kOddRow, light);
  const Colour even = ReadableBackground(kEvenRow, light);
  EXPECT_GT(odd.red, odd.blue);
  EXPECT_GT(even.green, even.red) << "the hues stay";
}

TEST(ColumnWidths, ShareTheTotal) {
  EXPECT_THAT(ShareWidth({73, 83, 377}, 1066), ElementsAre(146, 166, 754));
  EXPECT_THAT(ShareWidth({1, 1, 1}, 100), ElementsAre(33, 33, 34));
  EXPECT_THAT(ShareWidth({1, 100}, 200), ElementsAre(kLeastColumnWidth, 200 - kLeastColumnWidth));
  EXPECT_THAT(ShareWidth({73, 112, 377}, 562, {100, 0, 0}), ElementsAre(100, 105, 357)) << "a large font";
  EXPECT_THAT(ShareWidth({73, 112, 377}, 1124, {100}), ElementsAre(146, 224, 754));
  EXPECT_THAT(ShareWidth({5, 5}, 0), ElementsAre(kLeastColumnWidth, kLeastColumnWidth));
  EXPECT_THAT(ShareWidth({}, 100), ElementsAre());
  EXPECT_THAT(ShareWidthAfter({100, 50, 150}, 0, 300), ElementsAre(100, 50, 150));
  EXPECT_THAT(ShareWidthAfter({200, 50, 150}, 0, 300), ElementsAre(200, 25, 75));
  EXPECT_THAT(ShareWidthAfter({100, 500}, 1, 300), ElementsAre(50, 250)) << "no column is right of the last border";
}

}  // namespace
}  // namespace quorvel
