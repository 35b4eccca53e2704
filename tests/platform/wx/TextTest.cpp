#include "platform/wx/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvel::ui {
namespace {

TEST(WxText, EveryTextSurvivesTheRoundTrip) {
  for (const std::string& text :
       {std::string(), std::string("plain"), std::string("Grüße"), std::string("שלום"), std::string("日本 🙂 end"),
        std::string("a\0b", 3), std::string("line\r\nline")}) {
    EXPECT_EQ(FromWx(ToWx(text)), text);
  }
  EXPECT_EQ(ToWx("🙂").length(), sizeof(wchar_t) == 2 ? 2U : 1U);
}

TEST(WxText, ReplacesOnlyInvalidCharacters) {
  EXPECT_EQ(FromWx(ToWx("caf\xE9 au lait")), "caf\uFFFD au lait");
  // Half of a surrogate pair, encoded like UTF-8, and a sequence that ends too early.
  EXPECT_TRUE(FromWx(ToWx("<\xED\xA0\x80>")).ends_with("\uFFFD>"));
  EXPECT_TRUE(FromWx(ToWx("end\xF0\x9F")).starts_with("end\uFFFD"));
  EXPECT_EQ(FromWx(wxString(std::wstring{L'a', static_cast<wchar_t>(0xD800), L'b'})), "a\uFFFDb");
}

}  // namespace
}  // namespace quorvel::ui
