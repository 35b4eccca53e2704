#include "platform/ShortDate.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/support/TemporaryFolder.h"

namespace quorvel::test {
namespace {

/// 14 March 2002 in the regional settings of these variables.
std::string Date(const std::string& all, const std::string& time, const std::string& language) {
  const ScopedVariable allVariable("LC_ALL", all);
  const ScopedVariable timeVariable("LC_TIME", time);
  const ScopedVariable languageVariable("LANG", language);
  return FormatShortDate(*ParseDateTime("2002-03-14 23:59:59.999"));
}

/// The last second before 7 o'clock in the evening of that day, in one setting.
std::string DateWithTime(const std::string& all) {
  const ScopedVariable allVariable("LC_ALL", all);
  return FormatDateWithTime(*ParseDateTime("2002-03-14 18:59:59.999"));
}

bool MakeLocale(const TemporaryFolder& folder, const std::string& language, const std::string& encoding) {
  const std::string file = folder.File(language + "." + encoding);
  const std::string command = "localedef -i " + language + " -f " + encoding + " '" + file + "' > /dev/null 2>&1";
  return std::system(command.c_str()) == 0;
}

TEST(ShortDate, IsIsoWithoutRegionalSettings) {
  for (const char* locale : {"", "C", "POSIX", "C.UTF-8", "xx_YY.UTF-8"}) {
    EXPECT_EQ(Date(locale, "", ""), "2002-03-14") << locale;
  }
  EXPECT_EQ(DateWithTime("C"), "2002-03-14 18:59:59");
}

// Machines have few locales or none, so the test makes its own. The C library leaks some bytes for each new locale
// folder, so the dates are printed by a process that ends without a leak check.
TEST(ShortDate, FollowsTheEnvironmentAndNotTheProcess) {
  const TemporaryFolder folder;
  if (!MakeLocale(folder, "en_US", "UTF-8") || !MakeLocale(folder, "de_DE", "UTF-8") ||
      !MakeLocale(folder, "ja_JP", "UTF-8") || !MakeLocale(folder, "ja_JP", "EUC-JP")) {
    GTEST_SKIP() << "localedef and its sources are not installed";
  }
  const ScopedVariable path("LOCPATH", folder.Path().string());
  const auto print = [] {
    const std::string dates[] = {Date("", "", "de_DE.UTF-8"), Date("", "ja_JP.UTF-8", "de_DE.UTF-8"),
                                 Date("de_DE.UTF-8", "ja_JP.UTF-8", ""), Date("ja_JP.EUC-JP", "", "")};
    for (const std::string& date : dates) std::fprintf(stderr, "%s ", date.c_str());
    std::fprintf(stderr, "%s ", DateWithTime("en_US.UTF-8").c_str());
    std::fputs(std::setlocale(LC_ALL, nullptr), stderr);
    std::_Exit(EXIT_SUCCESS);
  };
  EXPECT_EXIT(print(), ::testing::ExitedWithCode(EXIT_SUCCESS),
              "^14.03.2002 2002年03月14日 14.03.2002 2002-03-14 03/14/2002 06:59:59 PM C$");
}

}  // namespace
}  // namespace quorvel::test
