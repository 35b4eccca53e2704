#include "platform/DateTime.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(DateTime, ReadsEveryFormAndWritesOne) {
  const std::pair<const char*, const char*> cases[] = {
      {"2001-02-03", "2001-02-03 00:00:00.000"},
      {"20010203T04:05:06", "2001-02-03 04:05:06.000"},
      {"2001-02-03 04:05", "2001-02-03 04:05:00.000"},
      {"2001-02-03 04:05:06.7", "2001-02-03 04:05:06.700"},
      {"2001-02-03T04:05:06.0070000", "2001-02-03 04:05:06.007"},
      {"2001-02-03 04:05:06.12349", "2001-02-03 04:05:06.123"},
      {"2000-02-29 23:59:59.9995", "2000-03-01 00:00:00.000"},
      {"1899-12-29 23:59:59.999", "1899-12-29 23:59:59.999"},
      {"0001-01-01", "0001-01-01 00:00:00.000"},
      {"9999-12-31 23:59:59.999", "9999-12-31 23:59:59.999"},
  };
  for (const auto& [text, written] : cases) {
    const auto date = ParseDateTime(text);
    ASSERT_TRUE(date) << text;
    EXPECT_EQ(FormatDateTime(*date), written) << text;
    EXPECT_EQ(ParseDateTime(FormatDateTime(*date, 'T')), date) << text;
  }
  EXPECT_EQ(FormatDateTime(kZeroDate), "1899-12-30 00:00:00.000");
}

TEST(DateTime, RefusesOtherTexts) {
  for (const char* text :
       {"", "2001", "2001-02-30", "1900-02-29", "2001-13-01", "0000-01-01", "2001-0203", "200102-03", "2001-02-03 ",
        " 2001-02-03", "2001-02-03 24:00", "2001-02-03 4:05", "2001-02-03 04:60", "2001-02-03 04:05:60",
        "2001-02-03 04:05:06.", "2001-02-03 04:05Z", "2001-02-03t04:05", "9999-12-31 23:59:59.9999"}) {
    EXPECT_FALSE(ParseDateTime(text)) << text;
  }
}

}  // namespace
}  // namespace quorvel
