#include <future>
#include <vector>

#include "tests/host/CommandLine.h"

namespace quorvel::test {
namespace {

using ::testing::HasSubstr;

// Seven writers stay connected; one opens and closes the file for every remark.
TEST_F(CommandLine, EightWritersLoseNoRemark) {
  Initialize(true);
  const std::string count = "SELECT COUNT(*) AS Memos FROM tciMemo";
  const std::string before = RunSql(count);
  ASSERT_THAT(before, HasSubstr("\n 2042\n"));
  const std::string loop =
      "i=0; while [ $i -lt 200 ]; do i=$((i+1)); \"$0\" add --context CustMaint --owner C1020 --user admin "
      "--type Cust.General --text \"writer 8, remark $i\" || exit 1; done";
  std::vector<std::vector<std::string>> commands = {{"sh", "-c", loop, QUORVEL_PROGRAM}};
  for (int writer = 1; writer < 8; ++writer) commands.push_back({QUORVEL_REMARK_WRITER, std::to_string(writer)});
  std::vector<std::future<Outcome>> writers;
  writers.reserve(commands.size());
  for (const auto& command : commands) {
    writers.push_back(std::async(std::launch::async, [&command] { return RunProgram(command); }));
  }
  for (auto& writer : writers) EXPECT_THAT(writer.get(), Succeeds());
  EXPECT_THAT(RunSql(count), HasSubstr("\n 3642\n"));
  EXPECT_THAT(RunSql("SELECT MAX(MemoKey) AS Highest FROM tciMemo"), HasSubstr("\n   3642\n"));
  EXPECT_THAT(RunSql("SELECT MemoText FROM tciMemo WHERE MemoText LIKE 'writer %' GROUP BY MemoText"),
              HasSubstr("(1600 rows)"));
}

}  // namespace
}  // namespace quorvel::test
