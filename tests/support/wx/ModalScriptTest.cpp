#include "tests/support/wx/ModalScript.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "platform/wx/DialogPrompts.h"
#include "tests/support/wx/TestWindow.h"

namespace quorvel::test {
namespace {

bool Ask(const char* text) {
  return ui::DialogPrompts().ShowMessage(text, "Title", PromptButtons::YesNo, PromptIcon::Question) ==
         PromptAnswer::Yes;
}

TEST(ModalScript, EveryMismatchFailsAndIsNotShown) {
  TestWindow window("Stranger");
  EXPECT_NONFATAL_FAILURE(window.RunModal(), "window \"Stranger\": no script expects it");
  ModalScript script;
  for (const auto& [text, style] : {std::pair("Really?", ModalScript::kAsks), {"Sure?", ModalScript::kRefuses}}) {
    script.ExpectMessage("Sure?", "Title", style, wxID_YES);
    EXPECT_NONFATAL_FAILURE(Ask(text), "expected message \"Sure?\" titled \"Title\"");
  }
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
}

}  // namespace
}  // namespace quorvel::test
