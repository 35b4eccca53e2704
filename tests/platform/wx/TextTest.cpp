#include "platform/wx/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvel::ui {
namespace {

TEST(WxText, ReplacesOnlyInvalidCharacters) {
  EXPECT_EQ(FromWx(ToWx("caf\xE9 au lait")), "caf\uFFFD au lait");
  // Half of a surrogate pair, encoded like UTF-8, and a sequence that ends too early.
  EXPECT_TRUE(FromWx(ToWx("<\xED\xA0\x80>")).ends_with("\uFFFD>"));
  EXPECT_TRUE(FromWx(ToWx("end\xF0\x9F")).starts_with("end\uFFFD"));
  EXPECT_EQ(FromWx(wxString(std::wstring{L'a', static_cast<wchar_t>(0xD800), L'b'})), "a\uFFFDb");
}

}  // namespace
}  // namespace quorvel::ui
