#include "tests/support/wx/ModalScript.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include <wx/msgdlg.h>

#include "platform/wx/DialogPrompts.h"
#include "platform/wx/ModalDialog.h"

namespace quorvel::test {
namespace {

class Window : public ui::ModalDialog {
 public:
  explicit Window(const wxString& title) : ModalDialog(title) {}
  using ModalDialog::Finish;
};

bool Ask(const char* text) {
  return ui::DialogPrompts().ShowMessage(text, "Title", PromptButtons::YesNo, PromptIcon::Question) ==
         PromptAnswer::Yes;
}

TEST(ModalScript, AWindowThatNobodyExpectsFailsAndIsNotShown) {
  Window window("Stranger");
  EXPECT_NONFATAL_FAILURE(window.RunModal(), "window \"Stranger\": nobody expected it");
  EXPECT_NONFATAL_FAILURE(Ask("Sure?"), "message \"Sure?\" titled \"Title\"");
}

TEST(ModalScript, AnotherWindowThanTheNextFails) {
  ModalScript script;
  script.ExpectMessage("Sure?", "Title", ModalScript::kAsks, wxID_YES);
  EXPECT_NONFATAL_FAILURE(Ask("Really?"), "expected was message \"Sure?\"");
  script.ExpectMessage("Sure?", "Title", ModalScript::kAsks, wxID_YES);
  EXPECT_TRUE(Ask("Sure?"));
  script.ExpectMessage("Sure?", "Title", ModalScript::kRefuses, wxID_OK);
  EXPECT_NONFATAL_FAILURE(Ask("Sure?"), "expected was");
}

TEST(ModalScript, AWindowThatDoesNotComeFailsAlsoAfterAnException) {
  const auto scenario = [] {
    ModalScript script;
    script.ExpectWindow("Missing", [](wxDialog&) {});
    throw std::runtime_error("before it");
  };
  EXPECT_NONFATAL_FAILURE(EXPECT_THROW(scenario(), std::runtime_error), "not opened: window \"Missing\"");
}

TEST(ModalScript, AWindowIsNotLeftOpen) {
  Window window("Open");
  ModalScript script;
  script.ExpectWindow("Open", [](wxDialog&) {});
  EXPECT_NONFATAL_FAILURE(window.RunModal(), "was left open");
  script.ExpectWindow("Open", [](wxDialog&) { throw std::runtime_error("in the test"); });
  script.ExpectWindow<Window>("Open", [](Window& dialog) { dialog.Finish(); });
  ::testing::TestPartResultArray failures;
  {
    const ::testing::ScopedFakeTestPartResultReporter reporter(&failures);
    window.RunModal();
  }
  EXPECT_EQ(failures.size(), 2);
  window.RunModal();
}

}  // namespace
}  // namespace quorvel::test
