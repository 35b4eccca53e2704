#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include "data/modDatabase.h"
#include "tests/runtime/RuntimeTest.h"

namespace quorvel {
namespace {

constexpr int kProcesses = 8;
constexpr int kRemarksEach = 200;

/// What a process of its own does; true when everything was saved.
bool AddRemarks() noexcept {
  try {
    modDatabase::OpenConnection();
    const test::ContextHolder context("OrderEntry", "SO20003", "admin");
    for (int i = 0; i < kRemarksEach; ++i) {
      context->AddRemark("Ord.Note", "process " + std::to_string(::getpid()) + ", remark " + std::to_string(i));
      context->Save(true);
    }
    return true;
  } catch (const Error& error) {
    static_cast<void>(std::fprintf(stderr, "%s\n", error.what()));
  } catch (...) {
    static_cast<void>(std::fputs("unknown failure\n", stderr));
  }
  return false;
}

TEST(ManyWritersTest, EveryProcessSavesEveryRemarkUnderAKeyOfItsOwn) {
  const test::TestDatabase database;
  std::vector<pid_t> processes;
  for (int i = 0; i < kProcesses; ++i) {
    const pid_t process = ::fork();
    if (process == 0) {
      // A connection must not be used, and not be closed either, on the other side of a fork.
      static const auto kept = modDatabase::SharedConnection();
      const bool isDone = AddRemarks();
      ::_exit(isDone ? 0 : 1);
    }
    ASSERT_GT(process, 0);
    processes.push_back(process);
  }
  for (const pid_t process : processes) {
    int status = 0;
    ASSERT_EQ(::waitpid(process, &status, 0), process);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText LIKE 'process %'"), "1600");
  EXPECT_EQ(database.Ask("SELECT COUNT(DISTINCT MemoText) FROM tciMemo WHERE MemoText LIKE 'process %'"), "1600");
  EXPECT_EQ(database.Ask("SELECT MAX(MemoKey) FROM tciMemo"), "3642");
  EXPECT_EQ(database.Ask("SELECT LastKey FROM ttwSurrogateKey WHERE TableName = 'tciMemo'"), "3642");
}

}  // namespace
}  // namespace quorvel
