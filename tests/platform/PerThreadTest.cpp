#include "platform/PerThread.h"

#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace quorvel {
namespace {

std::mutex reportsLock;
std::vector<std::string> reports;

/// Reports its text when its thread ends. The text is too long for the string object itself.
struct Diary {
  ~Diary() {
    const std::scoped_lock lock(reportsLock);
    reports.push_back(text);
  }
  std::string text = "nothing was written into this one";
};

TEST(PerThread, EachThreadHasItsOwnUntilItEnds) {
  std::vector<std::string> written;
  for (int i = 0; i < 8; ++i) {
    written.push_back("what thread " + std::to_string(i) + " wrote into its own");
    std::thread([&] {
      EXPECT_EQ(PerThread<Diary>().text, "nothing was written into this one");
      PerThread<Diary>().text = written.back();
      EXPECT_EQ(PerThread<Diary>().text, written.back());
    }).join();
    ASSERT_EQ(reports, written);
  }
}

}  // namespace
}  // namespace quorvel
