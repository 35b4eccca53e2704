#include "window_library/ComponentWindows.h"

#include <gmock/gmock.h>

#include <thread>
#include <vector>

#include "platform/wx/DialogPrompts.h"
#include "runtime/HostPrompts.h"
#include "tests/runtime/RuntimeTest.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/Terminal.h"
#include "tests/support/wx/ModalScript.h"
#include "tests/support/wx/WaitFor.h"

namespace quorvel::test {
namespace {

TEST(ComponentWindows, EachWindowIsUsedAgainAndMessageBoxesComeAlong) {
  const TestDatabase database;
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  const WindowLibrary library = ComponentWindows::Start();
  EXPECT_NE(dynamic_cast<ui::DialogPrompts*>(library.prompts.get()), nullptr);
  std::vector<wxDialog*> windows;
  ModalScript script;
  for (const auto view : {&RemarkWindows::ViewPopup, &RemarkWindows::ViewEdit}) {
    for (int i = 0; i < 2; ++i) {
      script.ExpectShown([&windows](wxDialog& window) {
        windows.push_back(&window);
        window.Close();
      });
      ((*library.windows).*view)(*context);
    }
  }
  ASSERT_THAT(windows, testing::SizeIs(4));
  EXPECT_EQ(windows[0], windows[1]);
  EXPECT_EQ(windows[2], windows[3]);
  EXPECT_NE(windows[0], windows[2]);
}

TEST(ComponentWindows, ManagerIsNewAtEachCallAndNeedsALoopToStayOpen) {
  const TestDatabase database;
  const WindowLibrary library = ComponentWindows::Start();
  EXPECT_THAT(Caught([&] { library.windows->ViewManager(0); }),
              IsError(-1, "RemarkContext.ViewManager",
                      "No window can stay open: the host runs no event loop of GTK. Open it modal."));
  ModalScript script;
  script.ExpectShown([&](wxDialog& modal) {
    const auto countOpen = [] { return wxTopLevelWindows.GetCount(); };
    const std::size_t before = countOpen();
    for (int i = 0; i < 2; ++i) library.windows->ViewManager(0);
    EXPECT_EQ(countOpen(), before + 2);
    auto* const last = wxTopLevelWindows.GetLast();
    for (wxWindow* window : {last->GetPrevious()->GetData(), last->GetData()}) window->Close();
    EXPECT_TRUE(WaitFor([&] { return countOpen() == before; })) << "closed windows are destroyed";
    modal.Close();
  });
  library.windows->ViewManager(7);
  database.Run("DROP TABLE ttwBranch");
  const PromptsGuard prompts;
  EXPECT_THAT(Caught([&] { library.windows->ViewManager(1); }), HasNumber(91));
}

PromptAnswer AskToSave(Prompts& asked) {
  return asked.ShowMessage("Save?", "Remarks", PromptButtons::YesNo, PromptIcon::Question);
}

TEST(ComponentWindows, QuestionsOfOtherThreadsAreAskedOnTheTerminal) {
  const WindowLibrary library = ComponentWindows::Start();
  const Terminal terminal("y\n");
  HostPrompts prompts(library.prompts, terminal.Prompts());
  HostPrompts withoutTerminal(library.prompts, TerminalPrompts(-1, -1));
  std::thread([&] {
    EXPECT_EQ(AskToSave(prompts), PromptAnswer::Yes);
    EXPECT_THAT(Caught([&] { AskToSave(withoutTerminal); }).Description(),
                testing::AllOf(testing::HasSubstr("Save?"), testing::HasSubstr("thread")));
  }).join();
}

TEST(ComponentWindows, QuestionThatWasShownIsNotAskedAgainOnTheTerminal) {
  const auto boxes = std::make_shared<ScriptedPrompts>();
  boxes->meanwhile = [] { throw Error(-1, "host", "the handler of a timer"); };
  const Terminal terminal("y\n");
  HostPrompts prompts(boxes, terminal.Prompts());
  EXPECT_THAT(Caught([&] { AskToSave(prompts); }), IsError(-1, "host", "the handler of a timer"));
}

}  // namespace
}  // namespace quorvel::test
