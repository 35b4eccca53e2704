#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace quorvel::test {

/// Ends the program, with the name of the test, when one test takes far too long: a window that waits for a person
/// would otherwise hold up everything behind it.
class Watchdog : public ::testing::EmptyTestEventListener {
 public:
  explicit Watchdog(std::chrono::seconds patience);
  ~Watchdog() override;
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  void OnTestStart(const ::testing::TestInfo& test) override;
  void OnTestEnd(const ::testing::TestInfo& test) override;

 private:
  void Watch();
  void Expect(std::string test);

  std::chrono::seconds m_patience;
  std::mutex m_mutex;
  std::condition_variable m_changed;
  std::string m_test;
  int m_changes = 0;
  bool m_ended = false;
  std::thread m_thread;
};

}  // namespace quorvel::test
