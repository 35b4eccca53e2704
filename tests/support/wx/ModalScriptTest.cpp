#include "tests/support/wx/ModalScript.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/wx/DialogPrompts.h"
#include "tests/support/wx/TestWindow.h"

namespace quorvel::test {
namespace {

bool Ask(const char* text) {
  return ui::DialogPrompts().ShowMessage(text, "Title", PromptButtons::YesNo, PromptIcon::Question) ==
         PromptAnswer::Yes;
}

TEST(ModalScript, UnexpectedWindowFailsAndIsNotShown) {
  TestWindow window("Stranger");
  EXPECT_NONFATAL_FAILURE(window.RunModal(), "window \"Stranger\": no script expects it");
  EXPECT_NONFATAL_FAILURE(Ask("Sure?"), "message \"Sure?\" titled \"Title\"");
}

TEST(ModalScript, EveryMismatchFails) {
  ModalScript script;
  script.ExpectMessage("Sure?", "Title", ModalScript::kAsks, wxID_YES);
  EXPECT_NONFATAL_FAILURE(Ask("Really?"), "expected message \"Sure?\"");
  script.ExpectMessage("Sure?", "Title", ModalScript::kRefuses, wxID_OK);
  EXPECT_NONFATAL_FAILURE(Ask("Sure?"), "expected message");
  script.ExpectMessage("Sure?", "Title", ModalScript::kAsks, wxID_YES);
  EXPECT_TRUE(Ask("Sure?"));
}

TEST(ModalScript, MissingWindowFailsAlsoAfterAnException) {
  const auto scenario = [] {
    ModalScript script;
    script.ExpectWindow("Missing", [](wxDialog&) {});
    throw std::runtime_error("before it");
  };
  EXPECT_NONFATAL_FAILURE(EXPECT_THROW(scenario(), std::runtime_error), "not opened: window \"Missing\"");
}

TEST(ModalScript, WindowLeftOpenFailsAndIsClosed) {
  TestWindow window("Open");
  ModalScript script;
  script.ExpectWindow("Open", [](wxDialog&) {});
  EXPECT_NONFATAL_FAILURE(window.RunModal(), "was left open");
  script.ExpectWindow("Open", [](wxDialog& dialog) {
    dialog.EndModal(wxID_OK);
    throw std::runtime_error("in the test");
  });
  EXPECT_NONFATAL_FAILURE(window.RunModal(), "the test threw: in the test");
}

}  // namespace
}  // namespace quorvel::test
