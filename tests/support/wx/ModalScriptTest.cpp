#include "tests/support/wx/ModalScript.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/wx/DialogPrompts.h"
#include "tests/support/wx/TestWindow.h"

namespace quorvel::test {
namespace {

TEST(ModalScript, EveryMismatchFailsAndIsNotShown) {
  TestWindow window("Stranger");
  EXPECT_NONFATAL_FAILURE(window.RunModal(), "window \"Stranger\": no script expects it");
  ModalScript script;
  script.ExpectWindow("Title", [](wxDialog&) {});
  EXPECT_NONFATAL_FAILURE(ui::DialogPrompts().ShowMessage("Sure?", "Title", PromptButtons::YesNo, PromptIcon::Question),
                          "window \"Sure?\": expected window \"Title\"");
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
