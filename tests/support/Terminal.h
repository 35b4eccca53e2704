#pragma once

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <string>

#include "platform/TerminalPrompts.h"

namespace quorvel::test {

/// A terminal whose user has typed ahead.
class Terminal {
 public:
  explicit Terminal(const std::string& typed) {
    if (::openpty(&m_user, &m_program, nullptr, nullptr, nullptr) != 0) throw std::runtime_error("no terminal");
    Type(typed);
  }
  ~Terminal() {
    ::close(m_program);
    ::close(m_user);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  [[nodiscard]] TerminalPrompts Prompts() const { return {m_program, m_program}; }
  /// The device for a program that opens it itself.
  [[nodiscard]] std::string Name() const { return ::ttyname(m_program); }
  void Type(const std::string& typed) const {
    EXPECT_EQ(::write(m_user, typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
  }
  /// The output that the user sees, with the typed characters.
  [[nodiscard]] std::string Screen() const {
    std::string screen;
    std::array<char, 4096> buffer{};
    pollfd more{m_user, POLLIN, 0};
    do {
      const auto count = ::read(m_user, buffer.data(), buffer.size());
      if (count <= 0) break;
      screen.append(buffer.data(), static_cast<std::size_t>(count));
      // The output may arrive in several pieces.
    } while (::poll(&more, 1, 200) > 0);
    return screen;
  }

 private:
  int m_user = -1;
  int m_program = -1;
};

}  // namespace quorvel::test
