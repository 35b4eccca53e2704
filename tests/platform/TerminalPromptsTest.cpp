#include "platform/TerminalPrompts.h"

#include <unistd.h>

#include "platform/Error.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
#include "tests/support/Terminal.h"

namespace quorvel::test {
namespace {

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
  const auto show = [&] {
    prompts.ShowMessage("disk full", "Database Error", PromptButtons::Ok, PromptIcon::CriticalStop);
  };
  EXPECT_THAT(Caught(show), IsError(-1, "Quorvel.Prompts", HasSubstr("\"Database Error\": disk full")));
  EXPECT_THROW(static_cast<void>(prompts.AskText("Name?", "New")), Error);
  ::close(pipe[0]);
  ::close(pipe[1]);
}

}  // namespace
}  // namespace quorvel::test
