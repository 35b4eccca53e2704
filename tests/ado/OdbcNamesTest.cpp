#include <gmock/gmock.h>

#include "ado/ConnectionString.h"
#include "ado/odbc/Diagnostics.h"
#include "ado/odbc/Drivers.h"
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

TEST(OdbcDrivers, TheBestInstalledOneIsTakenUnlessOneIsNamed) {
  const std::vector<std::string> installed = {"PostgreSQL", "freetds", "ODBC Driver 17 for SQL Server"};
  EXPECT_EQ(ChooseDriver("", installed), "ODBC Driver 17 for SQL Server");
  EXPECT_EQ(ChooseDriver("FREETDS", installed), "freetds");
  EXPECT_THAT(MessageOf([&] { (void)ChooseDriver("", {"PostgreSQL"}); }),
              AllOf(HasSubstr("ODBC Driver 18 for SQL Server"), HasSubstr("Installed: PostgreSQL.")));
  EXPECT_THAT(MessageOf([&] { (void)ChooseDriver("", {}); }), HasSubstr("None is installed."));
}

TEST(OdbcDrivers, EachGetsItsOwnConnectionString) {
  struct Case {
    const char* server;
    const char* freeTds;
  };
  for (const Case& each :
       {Case{"SQL1", "SERVER=SQL1;PORT=1433;"}, Case{" tcp:SQL1 , 1444 ", "SERVER=SQL1;PORT=1444;"},
        Case{R"(SQL1\INST)", R"(SERVER=SQL1\INST;TDS)"}, Case{R"(.\INST)", R"(SERVER=localhost\INST;)"},
        Case{R"(TCP:SQL1\INST,1444)", "SERVER=SQL1;PORT=1444;"}}) {
    EXPECT_THAT(OdbcConnectionString(ParseConnectionString(std::string("Data Source=") + each.server), "FreeTDS"),
                HasSubstr(each.freeTds))
        << each.server;
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
  options.password.clear();
  for (const char* server : {"SQL1,", "SQL1,0", "SQL1,65536", "SQL1,1433abc", "SQL1,-1"}) {
    options.dataSource = server;
    EXPECT_THAT(MessageOf([&] { (void)OdbcConnectionString(options, "FreeTDS"); }), HasSubstr("port")) << server;
  }
  options.dataSource = "SQL1";
  // What is not understood must not end in a connection without encryption.
  options.encrypt = "ja";
  EXPECT_THAT(MessageOf([&] { (void)OdbcConnectionString(options, "FreeTDS"); }), HasSubstr("not ja"));
}

TEST(OdbcProcedureName, IsReadAsASqlServerReadsIt) {
  struct Case {
    const char* text;
    const char* quoted;
  };
  for (const Case& each :
       {Case{" spGet ", "spGet"}, Case{"dbo.spGet", "dbo.spGet"}, Case{"Ledger..spGet", "Ledger..spGet"},
        Case{"[my schema].\"a \"\"b\"\"\"", "[my schema].[a \"b\"]"}, Case{"[a]]b]", "[a]]b]"}}) {
    const auto name = ParseProcedureName(each.text);
    ASSERT_TRUE(name) << each.text;
    EXPECT_EQ(name->Quoted(), each.quoted);
  }
  for (const char* text : {"", "dbo.", "a b", "a;b", "a.b.c.d", "[a", "\"a", "spGet()", "{call x}", "[a]b"}) {
    EXPECT_FALSE(ParseProcedureName(text)) << text;
  }
}

TEST(OdbcMessages, LoseTheNamesInFrontOfThem) {
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
