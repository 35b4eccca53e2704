#include "platform/TerminalPrompts.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <unistd.h>

#include <array>

#include "platform/Error.h"
#include "tests/support/Caught.h"

namespace quorvel {
namespace {

/// A terminal whose user has typed ahead.
class Terminal {
 public:
  explicit Terminal(const std::string& typed) {
    if (::openpty(&m_user, &m_program, nullptr, nullptr, nullptr) != 0) throw std::runtime_error("no terminal");
    EXPECT_EQ(::write(m_user, typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
  }
  ~Terminal() {
    ::close(m_program);
    ::close(m_user);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  [[nodiscard]] TerminalPrompts Prompts() const { return {m_program, m_program}; }
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

PromptAnswer Ask(const Terminal& terminal, PromptButtons buttons) {
  return terminal.Prompts().ShowMessage("Save\x1B[2J it?", "Remarks", buttons, PromptIcon::Question);
}

TEST(TerminalPrompts, AsksUntilTheAnswerIsClear) {
  const std::pair<const char*, PromptAnswer> cases[] = {{"y\n", PromptAnswer::Yes},
                                                        {" NO \n", PromptAnswer::No},
                                                        {"maybe\n\nYes\n", PromptAnswer::Yes},
                                                        {"\x04", PromptAnswer::No},
                                                        {"what\n\x04", PromptAnswer::No}};
  for (const auto& [typed, answer] : cases) EXPECT_EQ(Ask(Terminal(typed), PromptButtons::YesNo), answer) << typed;
}

TEST(TerminalPrompts, ShowsAMessageWithoutWaitingAndWithoutControlCharacters) {
  const Terminal terminal("");
  EXPECT_EQ(Ask(terminal, PromptButtons::Ok), PromptAnswer::Ok);
  EXPECT_EQ(terminal.Screen(), "Remarks: Save\xEF\xBF\xBD[2J it?\r\n");
}

TEST(TerminalPrompts, InputBoxTakesOneLine) {
  const Terminal terminal("first \nsecond\n\x04");
  TerminalPrompts prompts = terminal.Prompts();
  EXPECT_EQ(prompts.AskText("Name?", "New"), "first ");
  EXPECT_EQ(prompts.AskText("Name?", "New"), "second");
  EXPECT_EQ(prompts.AskText("Name?", "New"), std::nullopt);
}

TEST(TerminalPrompts, WithoutATerminalTheErrorQuotesTheMessage) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  TerminalPrompts prompts(pipe[0], pipe[1]);
  const Error error = test::Caught(
      [&] { prompts.ShowMessage("disk full", "Database Error", PromptButtons::Ok, PromptIcon::CriticalStop); });
  EXPECT_EQ(error.Number(), -1);
  EXPECT_EQ(error.Source(), "Quorvel.Prompts");
  EXPECT_NE(error.Description().find("\"Database Error\": disk full"), std::string::npos);
  EXPECT_THROW(static_cast<void>(prompts.AskText("Name?", "New")), Error);
  ::close(pipe[0]);
  ::close(pipe[1]);
}

}  // namespace
}  // namespace quorvel
