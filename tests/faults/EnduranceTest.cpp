// A host that runs for a long time.

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <utility>

#include "tests/faults/Rounds.h"
#include "tests/runtime/RuntimeTest.h"
#include "tests/support/TestSettings.h"

namespace quorvel::test {
namespace {

/// The pages of memory and the descriptors that this process has.
std::pair<long, std::ptrdiff_t> NeedsNow() {
  long pages = 0;
  std::ifstream("/proc/self/statm").ignore(100, ' ') >> pages;
  const std::filesystem::directory_iterator open("/proc/self/fd");
  return {pages, std::distance(begin(open), end(open))};
}

void LoadAndSave(int from, int to, const std::function<void()>& afterwards) {
  for (int i = from; i < to; ++i) {
    const ContextHolder context("CustMaint", "C1044", "admin");
    ChangeText(RemarkAt(context, 1), "text " + std::to_string(i));
    context->Save(true);
    afterwards();
  }
}

void ExpectFlat(int rounds, const std::function<void()>& afterEach) {
  LoadAndSave(0, rounds / 2, afterEach);
  const auto [pagesBefore, descriptorsBefore] = NeedsNow();
  LoadAndSave(rounds / 2, rounds, afterEach);
  const auto [pages, descriptors] = NeedsNow();
  EXPECT_EQ(descriptors, descriptorsBefore);
#ifndef QUORVEL_SANITIZED  // which keeps freed memory
  EXPECT_LE(pages, pagesBefore + 64);
#endif
}

TEST(Endurance, LoadsAndSavesKeepMemoryAndDescriptorsFlat) {
  const ScopedVariable inMemory("TMPDIR", "/dev/shm");
  const TestDatabase database;
  ExpectFlat(Rounds(1000), [] {});
  // The stand-in server runs in this process, so its own needs count too, the list of its requests above all.
  StandInServer server(database.DatabaseFile());
  UseSettings(server);
  ExpectFlat(Rounds(200), [&] { server.ForgetRequests(); });
}

}  // namespace
}  // namespace quorvel::test
