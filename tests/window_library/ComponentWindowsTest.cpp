#include "window_library/ComponentWindows.h"

#include <gmock/gmock.h>

#include <vector>

#include "platform/wx/DialogPrompts.h"
#include "tests/runtime/RuntimeTest.h"
#include "tests/support/wx/ModalScript.h"

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

}  // namespace
}  // namespace quorvel::test
