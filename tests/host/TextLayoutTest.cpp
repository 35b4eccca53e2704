#include "host/cli/TextLayout.h"

#include <gtest/gtest.h>

namespace quorvel::cli {
namespace {

TEST(Paragraph, WrapsBetweenWordsAndCountsCharacters) {
  EXPECT_EQ(Paragraph("one two three four", 2, 12 + 20), "one two three four");
  EXPECT_EQ(Paragraph("aaaa bbbb cccc dddd eeee ffff", 4, 24), "aaaa bbbb cccc dddd\n    eeee ffff");
  EXPECT_EQ(Paragraph("åååå bbbb cccc dddd eeee ffff", 4, 24), "åååå bbbb cccc dddd\n    eeee ffff");
  EXPECT_EQ(Paragraph("aaaa bbbb cccc dddde eeee", 0, 20), "aaaa bbbb cccc dddde\neeee");
  EXPECT_EQ(Paragraph("ääääääääääääääääääääää x", 0, 20), "ääääääääääääääääääää\nää x");
  EXPECT_EQ(Paragraph("too narrow a terminal to obey", 30, 10),
            "too narrow a\n" + std::string(30, ' ') + "terminal to obey");
}

TEST(Paragraph, KeepsLinesAndReplacesControlCharacters) {
  EXPECT_EQ(Paragraph("one\r\n\r\n  two\n", 2, 0), "one\n\n    two\n");
  EXPECT_EQ(Paragraph("\nafter", 2, 0), "\n  after");
  EXPECT_EQ(Paragraph("a\tb\x1b[31m\x7f\xC2\x9B!", 0, 0), "a\tb\xEF\xBF\xBD[31m\xEF\xBF\xBD\xEF\xBF\xBD!");
  EXPECT_EQ(Paragraph("caf\xE9 \u202Etxt.exe\u2069 \u05D0\u200F", 0, 0), "caf\uFFFD \uFFFDtxt.exe\uFFFD \u05D0\u200F");
  EXPECT_EQ(Paragraph("", 4, 80), "");
  EXPECT_EQ(OneLine("a\r\nb\tc\n"), "a\\nb c\\n");
}

}  // namespace
}  // namespace quorvel::cli
