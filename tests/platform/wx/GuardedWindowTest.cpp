#include "platform/wx/GuardedWindow.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include <wx/frame.h>

#include "platform/Error.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/wx/ModalScript.h"
#include "tests/support/wx/TestWindow.h"

namespace quorvel::ui {
namespace {

class Frame : public wxFrame, public GuardedWindow {
 public:
  Frame() : wxFrame(nullptr, wxID_ANY, "Stays"), GuardedWindow(static_cast<wxTopLevelWindow&>(*this)) {
    Bind(wxEVT_BUTTON, UserAction([] { throw Error(-1, "Manager.Create", "Cannot create"); }));
  }
  using GuardedWindow::Guard;
  using GuardedWindow::SetSmallestInside;
};

TEST(GuardedWindow, ModelessFrameShowsEachErrorAndStays) {
  const test::PromptsGuard prompts;
  auto* frame = new Frame;
  wxCommandEvent click(wxEVT_BUTTON);
  frame->ProcessWindowEvent(click);  // dropped, because the window is not shown
  frame->Show();
  frame->ProcessWindowEvent(click);
  frame->Guard([] { throw std::runtime_error("no memory"); });
  EXPECT_TRUE(frame->IsShown());
  frame->Destroy();

  ASSERT_EQ(prompts->shown.size(), 2U);
  EXPECT_EQ(prompts->shown[0].text, "Cannot create");
  EXPECT_EQ(prompts->shown[0].title, "Error in Manager.Create");
  EXPECT_EQ(prompts->shown[0].icon, PromptIcon::Exclamation);
  EXPECT_EQ(prompts->shown[1].text, "no memory");
  EXPECT_EQ(prompts->shown[1].title, "Error in Quorvel");
}

TEST(GuardedWindow, ModalDialogShowsErrorsAndStaysOnRequest) {
  const test::PromptsGuard prompts;
  test::TestWindow window("Stays", FailurePolicy::ShowAndStay);
  test::ModalScript script;
  script.ExpectWindow<test::TestWindow>("Stays", [&](test::TestWindow& dialog) {
    dialog.Guard([] { throw Error(-1, "Manager.Update", "Cannot save"); });
    EXPECT_EQ(prompts->shown.size(), 1U);
    EXPECT_TRUE(dialog.IsModal());
    dialog.Finish();
  });
  window.RunModal();
}

TEST(GuardedWindow, InsideNeverBecomesSmallerThanItsSmallestSize) {
  auto* frame = new Frame;
  frame->SetSmallestInside({300, 200});
  frame->Show();
  frame->SetClientSize(10, 400);
  EXPECT_EQ(frame->GetClientSize(), wxSize(300, 400));
  frame->Destroy();
}

}  // namespace
}  // namespace quorvel::ui
