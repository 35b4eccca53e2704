// Names and values on their way to and from an ODBC driver.

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "ado/ConnectionString.h"
#include "ado/odbc/Diagnostics.h"
#include "ado/odbc/Drivers.h"
#include "ado/odbc/OdbcConnectionString.h"
#include "ado/odbc/ProcedureName.h"
#include "ado/odbc/Timestamp.h"

namespace quorvel::ado::odbc {
namespace {

using ::testing::HasSubstr;

std::string MessageOf(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const DriverError& error) {
    return error.what();
  }
  return {};
}

TEST(OdbcDrivers, ChooseTheBestInstalledUnlessOneIsNamed) {
  const std::vector<std::string> installed = {"PostgreSQL", "freetds", "ODBC Driver 17 for SQL Server"};
  EXPECT_EQ(ChooseDriver("", installed), "ODBC Driver 17 for SQL Server");
  EXPECT_EQ(ChooseDriver("FREETDS", installed), "freetds");
  EXPECT_THAT(MessageOf([&] { (void)ChooseDriver("", {"PostgreSQL"}); }),
              AllOf(HasSubstr("ODBC Driver 18 for SQL Server"), HasSubstr("Installed: PostgreSQL.")));
  EXPECT_THAT(MessageOf([&] { (void)ChooseDriver("", {}); }), HasSubstr("None is installed."));
}

TEST(OdbcConnectionString, IsMadeForEachDriver) {
  const auto freeTds = [](std::string_view server) {
    return OdbcConnectionString(ParseConnectionString(fmt::format("Data Source={}", server)), "FreeTDS");
  };
  const std::vector<std::pair<std::string_view, std::string_view>> servers = {
      {"SQL1", "SERVER=SQL1;PORT=1433;"},
      {" tcp:SQL1 , 1444 ", "SERVER=SQL1;PORT=1444;"},
      {R"(SQL1\INST)", R"(SERVER=SQL1\INST;TDS)"},
      {R"(.\INST)", R"(SERVER=localhost\INST;)"},
      {R"(TCP:SQL1\INST,1444)", "SERVER=SQL1;PORT=1444;"}};
  for (const auto& [server, expected] : servers) EXPECT_THAT(freeTds(server), HasSubstr(expected)) << server;
  for (const char* server : {"SQL1,", "SQL1,0", "SQL1,65536", "SQL1,1433abc", "SQL1,-1"}) {
    EXPECT_THAT(MessageOf([&] { (void)freeTds(server); }), HasSubstr("port")) << server;
  }
  ConnectOptions options = ParseConnectionString(
      R"(Provider=SQLOLEDB.1;Data Source=tcp:SQL1\INST; User ID=app; Password="a}b;c"; encrypt = strict)");
  EXPECT_EQ(OdbcConnectionString(options, "ODBC Driver 18 for SQL Server"),
            "DRIVER={ODBC Driver 18 for SQL Server};SERVER=tcp:SQL1\\INST;Encrypt=strict;ConnectRetryCount=0;UID=app;"
            "PWD={a}}b;c};APP=Quorvel");
  EXPECT_THAT(OdbcConnectionString(options, "FreeTDS"),
              AllOf(HasSubstr("Encryption=require"), HasSubstr("PWD={a}b;c}")));
  options.password = "x};UID=sa;y={";
  EXPECT_THAT(MessageOf([&] { (void)OdbcConnectionString(options, "FreeTDS"); }), HasSubstr("another password"));
  // A misspelt word must not end in a connection without encryption.
  options.password.clear();
  options.encrypt = "ja";
  EXPECT_THAT(MessageOf([&] { (void)OdbcConnectionString(options, "FreeTDS"); }), HasSubstr("not ja"));
}

TEST(OdbcProcedureName, IsReadAsASqlServerReadsIt) {
  const std::vector<std::pair<std::string_view, std::string_view>> names = {
      {" spGet ", "spGet"},
      {"dbo.spGet", "dbo.spGet"},
      {"Ledger..spGet", "Ledger..spGet"},
      {"[my schema].\"a \"\"b\"\"\"", "[my schema].[a \"b\"]"},
      {"[a]]b]", "[a]]b]"}};
  for (const auto& [text, quoted] : names) EXPECT_EQ(ParseProcedureName(text).value().Quoted(), quoted) << text;
  for (const char* text : {"", "dbo.", "a b", "a;b", "a.b.c.d", "[a", "\"a", "spGet()", "{call x}", "[a]b"}) {
    EXPECT_FALSE(ParseProcedureName(text)) << text;
  }
}

TEST(OdbcMessages, LoseTheNamesBeforeThem) {
  EXPECT_EQ(WithoutPrefixes("[Microsoft][ODBC Driver 18 for SQL Server][SQL Server]Invalid object name 'a[1]'."),
            "Invalid object name 'a[1]'.");
  EXPECT_EQ(WithoutPrefixes("[FreeTDS][SQL Server][Customer] is not [Owner]"), "[Customer] is not [Owner]");
  EXPECT_EQ(WithoutPrefixes("[open"), "[open");
}

TEST(OdbcTimestamp, IsRoundedToTheMillisecond) {
  const SQL_TIMESTAMP_STRUCT almost{2023, 12, 31, 23, 59, 59, 999'999'900};
  EXPECT_EQ(FormatDateTime(FromTimestamp(almost)), "2024-01-01 00:00:00.000");
  const SQL_TIMESTAMP_STRUCT back = ToTimestamp(*ParseDateTime("1753-01-01 00:00:00.003"));
  EXPECT_EQ(back.year, 1753);
  EXPECT_EQ(back.fraction, 3'000'000U);
}

}  // namespace
}  // namespace quorvel::ado::odbc
