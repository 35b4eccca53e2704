// Settings, init and the exit status, by running the real program.

#include <array>
#include <filesystem>
#include <fstream>
#include <future>

#include "ado/embedded/EmbeddedEngine.h"
#include "host/cli/Secrets.h"
#include "platform/FileUpdate.h"
#include "tests/host/CommandLine.h"
#include "tests/support/Terminal.h"

namespace quorvel::test {
namespace {

TEST_F(CommandLine, HelpSucceedsAndWrongUsageIsStatus2) {
  EXPECT_THAT(Quorvel({"--version"}).output, HasSubstr("quorvel 5."));
  EXPECT_THAT(Quorvel({"--help"}), Succeeds());
  EXPECT_THAT(Quorvel({"change", "--help"}), Succeeds());
  EXPECT_THAT(Quorvel({}), IsWrongUsage("Usage:"));
  EXPECT_THAT(Quorvel({"lst"}), IsWrongUsage("lst"));
  EXPECT_THAT(Quorvel({"\x1b[2J\u202Elst"}), IsWrongUsage("\uFFFD[2J\uFFFDlst"));
  EXPECT_THAT(Quorvel({"list"}), IsWrongUsage("--context is required\n"));
  EXPECT_THAT(Quorvel({"list", "--contxt", "CustMaint"}), IsWrongUsage("is required. Not expected: --contxt ...\n"));
  EXPECT_THAT(Quorvel({"add", "--context", "C", "--type", "T", "--text", "x"}), IsWrongUsage("--owner is required"));
  EXPECT_THAT(Quorvel({"add", "--context", "C", "--owner", "", "--type", "T", "--text", "x"}),
              IsWrongUsage("an owner"));
  EXPECT_THAT(Quorvel({"run"}), IsWrongUsage("quorvel run --help"));
  EXPECT_THAT(Quorvel(OnAcme({"remove", "--index", "0"})), IsWrongUsage("--index"));
  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "1"})), IsWrongUsage("--text or --type"));
  EXPECT_THAT(Quorvel(OnAcme({"edit"})), IsWrongUsage("edit needs --window"));
  EXPECT_THAT(Quorvel({"settings", "hidden"}), IsWrongUsage("NAME=VALUE"));
  for (const auto& arguments :
       std::vector<std::vector<std::string>>{{"settings", "hidden"},
                                             {"settings", "hidden=x"},
                                             {"settings", "--pw=hidden"},
                                             {"-phidden"},
                                             {"P=hidden"},
                                             {"settings", "Server=S;Password=hidden"},
                                             {"settings", "Password=x", "UserId=a;b; ;  pWD =hidden;c"}}) {
    const Outcome outcome = Quorvel(arguments);
    EXPECT_THAT(outcome, IsWrongUsage("Run 'quorvel"));
    EXPECT_THAT(outcome.errors, Not(HasSubstr("hidden"))) << "it may be a password";
  }
}

TEST(Secrets, ListOfProcessesShowsNoPassword) {
  std::string program = "quorvel";
  std::string password = "PASSWORD=a=b";
  std::string server = "Server=Password=";
  std::string pair = "Server=S; pwd = x;Encrypt=yes";
  std::string text = "The Password: Pwd";
  std::array arguments{program.data(), password.data(), server.data(), pair.data(), text.data()};
  EXPECT_THAT(
      cli::TakeArguments(arguments),
      ElementsAre("quorvel", "PASSWORD=a=b", "Server=Password=", "Server=S; pwd = x;Encrypt=yes", "The Password: Pwd"));
  EXPECT_EQ(program + " " + password + " " + server, "quorvel PASSWORD=*** Server=Password=");
  EXPECT_EQ(pair + " " + text, "Server=S; pwd =************** The Password: Pwd");
}

TEST_F(CommandLine, SettingsHideThePasswordAndAreWrittenAllOrNone) {
  const std::string file = File("settings.reg");
  EXPECT_THAT(Quorvel({"settings"}).output, MatchesRegex("Server=\nDatabase=\nUserId=\nPassword=\nKept in " + file +
                                                         ", which user .+ and group .+ may read\n"));
  EXPECT_THAT(Quorvel({"settings", "Server=SQL1", "Sever=SQL2"}), IsWrongUsage("names no setting"));
  EXPECT_THAT(Quorvel({"settings", "Server=SQL1", "Database=L; Pwd=x"}), IsWrongUsage("--password-stdin"));
  EXPECT_THAT(Quorvel({"settings", "Server=SQL1", "UserId=M\xFCller"}), FailsWith(HasSubstr("UserId is not UTF-8")));
  EXPECT_THAT(Quorvel({"settings"}).output, HasSubstr("Server=\n"));

  EXPECT_THAT(Quorvel({"settings", "SERVER=SQL1", "database=Ledger", "UserID=app", "password=a=b c"}),
              Succeeds(StartsWith("Server=SQL1\nDatabase=Ledger\nUserId=app\nPassword=****\nKept in " + file)));
  EXPECT_THAT(ReadWholeFile(file).value_or(""), HasSubstr("a=b c"));
  EXPECT_THAT(Quorvel({"settings", "--password-stdin"}, "from \"stdin\"\n"), Succeeds());
  EXPECT_EQ(Quorvel({"settings", "--password-stdin"}).status, 1) << "as behind a program that has failed";
  EXPECT_EQ(Quorvel({"settings", "--password-stdin"}, "two\nlines\n").status, 1);
  for (const char* unreadable : {"s3;cret", "\"s3", "'s3'cret"}) {
    EXPECT_THAT(Quorvel({"settings", "--password-stdin"}, unreadable),
                FailsWith(AllOf(HasAll("The value of Password", "in double quotes"), Not(HasSubstr("s3")))));
  }
  EXPECT_THAT(Quorvel({"settings", "Password=a", "--password-stdin"}, "b\n"), IsWrongUsage("exclude each other"));
  EXPECT_THAT(ReadWholeFile(file).value_or(""), HasSubstr(R"("Password"="from \"stdin\""
)"));

  EXPECT_THAT(Quorvel({"settings", "Database=\u202Elanif\x1b[2J"}).output,
              HasSubstr("Database=\uFFFDlanif\uFFFD[2J\n"));
  ASSERT_THAT(Quorvel({"settings", "Database=Ledger"}), Succeeds());
  // Only for the embedded engine the database is a file, whose path is made absolute.
  EXPECT_THAT(Quorvel({"settings", "Server=(Embedded)"}).output,
              HasSubstr("Database=" + (std::filesystem::current_path() / "Ledger").string() + "\n"));
}

TEST_F(CommandLine, SettingsHideAPasswordInAnotherValue) {
  std::ofstream(File("settings.reg"))
      << "Windows Registry Editor Version 5.00\n[HKEY_LOCAL_MACHINE\\Software\\Tarnwick]\n"
         "\"Server\"=\"SQL1; Encrypt=yes; Pwd = x\"\n\"UserId\"=\"a;Password\"\n";
  EXPECT_THAT(Quorvel({"settings"}).output,
              StartsWith("Server=SQL1; Encrypt=yes; Pwd =****\nDatabase=\nUserId=a;Password\nPassword=\n"));
  EXPECT_THAT(Quorvel({"doctor"}).output, HasSubstr("ok    server SQL1; Encrypt=yes; Pwd =****\n"));
}

TEST_F(CommandLine, PasswordIsAskedForWithoutEcho) {
  const Terminal terminal("");
  auto settings = std::async(std::launch::async, [&] {
    return RunShell("\"$0\" settings --password-stdin <\"$1\" 2>\"$1\"", {terminal.Name()});
  });
  EXPECT_EQ(terminal.Screen(), "Password: ");
  terminal.Type("secret\n");
  EXPECT_THAT(settings.get(), Succeeds(HasSubstr("Password=****\n")));
  EXPECT_EQ(terminal.Screen(), "\r\n");
  EXPECT_THAT(ReadWholeFile(File("settings.reg")).value_or(""), HasSubstr("\"Password\"=\"secret\""));
}

TEST_F(CommandLine, UnwritableSettingsAreAnErrorThatNamesTheFile) {
  const ScopedVariable elsewhere("QUORVEL_REGISTRY", "/proc/no/such/settings.reg");
  EXPECT_THAT(Quorvel({"settings"}).output, HasSubstr("/proc/no/such/settings.reg"));
  EXPECT_THAT(Quorvel({"settings", "Server=SQL1"}),
              FailsWith(ContainsRegex("quorvel: error 110 at quorvel.settings: .*/proc/no/such/settings.reg")));
}

TEST_F(CommandLine, SpoiltSettingsAreAnErrorThatSaysWhatToCorrect) {
  const std::string header = "Windows Registry Editor Version 5.00\n";
  const std::pair<std::string, const char*> cases[] = {
      {"Server=SQL1\n", "the file is not in the registry's export format; "},
      {header + "[HKEY_LOCAL_MACHINE\\Software\\Tarnwick\n",
       "cannot hold a value. Line 2 names a key without a closing"},
      {header + "[HKEY_LOCAL_MACHINE\\Software\\Tarnwick]\nServer=SQL1\n",
       "cannot hold a value. Line 3 has no value that can be read; write it as \"Name\"=\"value\""}};
  for (const auto& [content, reason] : cases) {
    std::ofstream(File("settings.reg")) << content;
    EXPECT_THAT(Quorvel({"settings", "Database=Ledger"}).errors,
                HasAll("Could not write the settings: the file ", reason));
    EXPECT_EQ(ReadWholeFile(File("settings.reg")), content);
  }
  EXPECT_THAT(Quorvel({"manage"}).errors, HasSubstr("Tarnwick\\Server (the file has a line that cannot be read, "));
}

TEST_F(CommandLine, MissingSettingsAreAnErrorWithAdvice) {
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"init"}, {"run", "-"}, OnAcme({"list"}), OnAcme({"popup"}), {"manage"}}) {
    EXPECT_THAT(Quorvel(command), FailsWith(HasAll("quorvel: error -1 at quorvel." + command.front() + ": ",
                                                   "quorvel settings 'Server=(embedded)' Database=")));
  }
}

TEST_F(CommandLine, InitCreatesOnceAndRefusesGrantsOnTheEmbeddedEngine) {
  const std::string file = File("new/test.db");
  ASSERT_THAT(Quorvel({"settings", "Server=(embedded)", "Database=" + file}), Succeeds());
  EXPECT_THAT(Quorvel({"init", "--grants"}),
              Fails("-1 at quorvel.init: The embedded engine has no users to grant anything to; --grants is for a SQL "
                    "Server"));
  EXPECT_FALSE(std::filesystem::exists(file));
  EXPECT_THAT(Quorvel({"init", "--sample"}).output,
              MatchesRegex("Database file: created " + file +
                           ", which user [^ ]+ and group [^ ]+ may read\nSchema: created\nSample data: created\n"));
  EXPECT_THAT(Quorvel({"init", "--sample"}),
              Succeeds(MatchesRegex("Database file: found " + file +
                                    ", which .* may read\nSchema: up to date\nSample data: up to date\n")));
}

// Such a table has the host's columns, and only the host knows how the procedures must read and write it.
TEST_F(CommandLine, InitGoesOnWhereTheMemoTableDiffersAndKeepsAdaptedProcedures) {
  ado::CreateEmbeddedDatabase(File("test.db"));
  ASSERT_THAT(Quorvel({"settings", "Server=(embedded)", "Database=" + File("test.db")}), Succeeds());
  RunSql("CREATE TABLE tciMemo (Id int NOT NULL PRIMARY KEY, Body nvarchar(max) NOT NULL)");
  EXPECT_THAT(
      Quorvel({"init"}),
      FailsWith(
          AllOf(ContainsRegex("\nSchema, batch [0-9]+, line [0-9]+: Invalid column name 'MemoKey'"),
                HasSubstr("The host's table of memos has other columns. Write for them: spTWCqvGetFilteredMemos, "),
                Not(HasSubstr("db_owner"))),
          HasSubstr("Schema: not complete\n")));
  const std::string version = "SELECT LayoutVersion FROM ttwLayout";
  EXPECT_THAT(RunSql(version), HasSubstr("(0 rows)")) << "what comes after is made, and the layout is not complete";

  EXPECT_THAT(Quorvel({"doctor"}).output,
              HasAll("FAIL  procedure spTWCqvAddRemark ", "Write the procedure for them; 'quorvel init' then keeps"));

  const std::string adapted = "PROCEDURE spTWCqvDeleteRemark @MemoKey int AS DELETE FROM tciMemo WHERE Id = @MemoKey";
  RunSql("ALTER " + adapted);
  const std::string stored = "SELECT OBJECT_DEFINITION(OBJECT_ID('spTWCqvDeleteRemark')) AS Text";
  EXPECT_THAT(Quorvel({"init"}).output,
              HasSubstr("Kept: the host's spTWCqvDeleteRemark; --replace spTWCqvDeleteRemark puts "));
  EXPECT_THAT(RunSql(stored), HasSubstr(adapted));
  EXPECT_THAT(Quorvel({"init", "--replace", "spTWCqvDeleteRemark"}).output, Not(HasSubstr("Replaced")));
  EXPECT_THAT(RunSql(stored), HasSubstr(adapted)) << "this version's text does not fit the table";
  for (const std::string name : {"spTWCqvGetFilteredMemos", "spTWCqvAddRemark", "spTWCqvUpdateRemark"}) {
    RunSql("ALTER PROCEDURE " + name + " AS SELECT 1 AS Adapted");
  }
  EXPECT_THAT(Quorvel({"init"}).errors, HasSubstr("other columns. Write for them: spGetNextSurrogateKey. "));
  EXPECT_THAT(Quorvel({"init", "--replace", "spTWCAddUser"}), IsWrongUsage("--replace"));
  RunSql("CREATE PROCEDURE spGetNextSurrogateKey @iTableName varchar(128), @oNewKey int OUTPUT AS SELECT @oNewKey = 7");
  EXPECT_THAT(Quorvel({"init"}), Succeeds());
  EXPECT_THAT(RunSql(version), HasSubstr("(1 row)"));
}

TEST_F(CommandLine, SampleIsRefusedWhereTheHostNumbersMemosItself) {
  Initialize(false);
  RunSql("ALTER PROCEDURE spGetNextSurrogateKey @iTableName varchar(128), @oNewKey int OUTPUT AS SELECT @oNewKey = 7");
  EXPECT_THAT(Quorvel({"init", "--sample"}), FailsWith(HasSubstr("a spGetNextSurrogateKey of the host's own")));
  EXPECT_THAT(RunSql("SELECT OBJECT_ID('Customer') AS Id"), HasSubstr("\nNULL\n"));
  EXPECT_THAT(Quorvel({"init"}), Succeeds());
}

TEST_F(CommandLine, InitLeavesAForeignFileAlone) {
  const std::string content = "Dear diary, this is not a database.\n" + std::string(4096, 'x');
  std::ofstream(File("diary.txt")) << content;
  ASSERT_THAT(Quorvel({"settings", "Server=(embedded)", "Database=" + File("diary.txt")}), Succeeds());
  EXPECT_THAT(Quorvel({"init"}), FailsWith(HasSubstr("diary.txt"), Not(HasSubstr("Schema"))));
  EXPECT_EQ(ReadWholeFile(File("diary.txt")), content);
}

}  // namespace
}  // namespace quorvel::test
