#include "tests/support/wx/Watchdog.h"

#include <cstdio>
#include <cstdlib>

namespace quorvel::test {

Watchdog::Watchdog(std::chrono::seconds patience) : m_patience(patience), m_thread([this] { Watch(); }) {}

Watchdog::~Watchdog() {
  {
    const std::lock_guard lock(m_mutex);
    m_ended = true;
  }
  m_changed.notify_one();
  m_thread.join();
}

void Watchdog::OnTestStart(const ::testing::TestInfo& test) {
  Expect(std::string(test.test_suite_name()) + "." + test.name());
}

void Watchdog::OnTestEnd(const ::testing::TestInfo& /*test*/) { Expect({}); }

void Watchdog::Expect(std::string test) {
  const std::lock_guard lock(m_mutex);
  m_test = std::move(test);
  ++m_changes;
  m_changed.notify_one();
}

void Watchdog::Watch() {
  std::unique_lock lock(m_mutex);
  while (!m_ended) {
    const int seen = m_changes;
    const auto hasChanged = [&] { return m_ended || m_changes != seen; };
    if (m_changed.wait_for(lock, m_patience, hasChanged) || m_test.empty()) continue;
    std::fprintf(stderr, "%s has not ended after %lld s\n", m_test.c_str(), static_cast<long long>(m_patience.count()));
    std::_Exit(EXIT_FAILURE);
  }
}

}  // namespace quorvel::test
