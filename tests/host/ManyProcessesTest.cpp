#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <future>
#include <thread>
#include <vector>

#include "tests/host/CommandLine.h"
#include "tests/runtime/RuntimeTest.h"

namespace quorvel::test {
namespace {

/// Starts a process that stays connected while it adds 200 remarks.
pid_t StartWriter(int writer) {
  const pid_t process = ::fork();
  if (process != 0) return process;
  // The end of the thread closes the connection. An error ends the process.
  std::thread([writer] {
    const ContextHolder context("CustMaint", "C1020", "admin");
    for (int i = 1; i <= 200; ++i) {
      context->AddRemark("Cust.General", fmt::format("writer {}, remark {}", writer, i), "admin");
      context->Save(true);
    }
  }).join();
  ::_exit(0);
}

// Seven writers stay connected; one opens and closes the file for every remark. Meanwhile two programs read, and one
// sets the database up again and again.
TEST_F(CommandLine, EightWritersReadersAndAnInitLoseNoRemark) {
  Initialize(true);
  const std::string count = "SELECT COUNT(*) AS Memos FROM tciMemo";
  ASSERT_THAT(RunSql(count), HasSubstr("\n 2042\n"));
  std::vector<pid_t> writers;
  for (int writer = 1; writer < 8; ++writer) writers.push_back(StartWriter(writer));
  const std::string stop = File("stop");
  const auto untilStop = [&](const std::string& arguments) {
    const std::string loop =
        "while [ ! -e " + stop + " ]; do \"$0\" " + arguments + " >/dev/null || exit 1; sleep 0.2; done";
    return std::async(std::launch::async, [loop] { return RunShell(loop); });
  };
  std::vector<std::future<Outcome>> others;
  for (const char* arguments : {"init --sample", "list --context CustMaint --owner C1020 --user admin", "doctor"}) {
    others.push_back(untilStop(arguments));
  }
  const std::string loop =
      "i=0; while [ $i -lt 200 ]; do i=$((i+1)); \"$0\" add --context CustMaint --owner C1020 --user admin "
      "--type Cust.General --text \"writer 8, remark $i\" || exit 1; done";
  EXPECT_THAT(RunShell(loop), Succeeds());
  for (const pid_t writer : writers) {
    int status = 0;
    ASSERT_EQ(::waitpid(writer, &status, 0), writer);
    EXPECT_EQ(status, 0);
  }
  std::ofstream(stop).put('x');
  for (auto& other : others) EXPECT_THAT(other.get(), Succeeds());
  EXPECT_THAT(RunSql(count), HasSubstr("\n 3642\n"));
  EXPECT_THAT(RunSql("SELECT MAX(MemoKey) AS Highest FROM tciMemo"), HasSubstr("\n   3642\n"));
  EXPECT_THAT(RunSql("SELECT MemoText FROM tciMemo WHERE MemoText LIKE 'writer %' GROUP BY MemoText"),
              HasSubstr("(1600 rows)"));
}

TEST_F(CommandLine, FourInitsAtOnceOnANewFileAllSucceed) {
  const std::string all =
      "for i in 1 2 3 4; do \"$0\" init --sample & all=\"$all $!\"; done; for each in $all; do wait $each || exit 1; "
      "done";
  for (const std::string file : {"one.db", "two.db", "three.db"}) {
    ASSERT_THAT(Quorvel({"settings", "Server=(embedded)", "Database=" + File(file.c_str())}), Succeeds());
    EXPECT_THAT(RunShell(all), Succeeds()) << file;
    EXPECT_THAT(RunSql("SELECT COUNT(*) AS Memos FROM tciMemo"), HasSubstr("\n 2042\n"));
  }
}

}  // namespace
}  // namespace quorvel::test
