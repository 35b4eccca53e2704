#include "platform/PerThread.h"

#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace quorvel {
namespace {

constexpr const char* kInitial = "the text before any thread wrote one";

std::mutex reportsLock;
std::vector<std::string> reports;

/// Reports its text when its thread ends. The text is too long for the string object itself.
struct Diary {
  ~Diary() {
    const std::scoped_lock lock(reportsLock);
    reports.push_back(text);
  }
  std::string text = kInitial;
};

TEST(PerThread, EachThreadHasItsOwnUntilItEnds) {
  std::vector<std::string> written;
  for (int i = 0; i < 8; ++i) {
    written.push_back("the text of the thread with the number " + std::to_string(i));
    std::thread([&] {
      EXPECT_EQ(PerThread<Diary>().text, kInitial);
      PerThread<Diary>().text = written.back();
    }).join();
    ASSERT_EQ(reports, written);
  }
}

}  // namespace
}  // namespace quorvel
