// Windows of the component, modal and modeless.
#include "platform/wx/ModalDialog.h"

#include <gtk/gtk.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/frame.h>
#include <wx/utils.h>

#include "platform/Error.h"
#include "platform/wx/DialogPrompts.h"
#include "platform/wx/MakeButton.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/wx/ModalScript.h"
#include "tests/support/wx/TestWindow.h"
#include "tests/support/wx/WaitFor.h"

namespace quorvel::ui {
namespace {

using test::ModalScript;

class Window : public test::TestWindow {
 public:
  explicit Window(const wxString& title) : TestWindow(title), m_button(MakeButton(*this, "cmdDo", "&Do")) {
    m_button->Bind(wxEVT_BUTTON, UserAction([this] { onClick(); }));
  }

  void Click() {
    wxCommandEvent event(wxEVT_BUTTON, m_button->GetId());
    m_button->ProcessWindowEvent(event);
  }

  /// Presses the button's access key as the desktop does.
  void PressAccessKey() { gtk_widget_mnemonic_activate(m_button->GetHandle(), FALSE); }

  std::function<void()> onClick;

 private:
  wxButton* m_button;
};

/// A window that the toolkit was never asked to make.
class UnmadeWindow : public wxDialog, public GuardedWindow {
 public:
  UnmadeWindow() : GuardedWindow(static_cast<wxTopLevelWindow&>(*this)) {}
};

TEST(GuardedWindowTest, RefusesAWindowThatTheSystemDidNotMake) {
  EXPECT_EQ(test::Caught([] { const UnmadeWindow window; }).Description(),
            "No window can be opened: the system makes no window for the program");
}

/// Presses a key as the desktop reports it.
void PressKey(const wxWindow& window, guint key) {
  GdkEvent* event = gdk_event_new(GDK_KEY_PRESS);
  event->key.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(window.GetHandle())));
  event->key.keyval = key;
  gdk_event_set_device(event, gdk_seat_get_keyboard(gdk_display_get_default_seat(gdk_display_get_default())));
  gtk_main_do_event(event);
  gdk_event_free(event);
}

TEST(ModalDialog, OpensAgainAfterEveryWayToCloseIt) {
  Window window("Again");
  ModalScript script;
  const std::vector<std::function<void(Window&)>> ends = {
      [](Window& dialog) { dialog.Finish(); },
      [](Window& dialog) { dialog.Close(); },
      [](Window& dialog) { PressKey(dialog, GDK_KEY_Escape); },
      [](Window& dialog) {
        EXPECT_THAT(test::Caught([&] { dialog.RunModal(); }),
                    test::IsError(400, "Quorvel", "Form already displayed; can't show modally"));
        EXPECT_TRUE(dialog.IsModal());
        dialog.Finish();
      },
  };
  for (const auto& end : ends) {
    script.ExpectWindow<Window>("Again", end);
    bool wasUp = false;
    window.RunModal([&] { wasUp = window.IsShownOnScreen() && ModalDialog::Topmost() == &window; });
    EXPECT_TRUE(wasUp);
    EXPECT_FALSE(window.IsShown());
    EXPECT_EQ(ModalDialog::Topmost(), nullptr);
  }
  window.Finish();
}

TEST(ModalDialog, AccessKeyActsAtOnceAndClosedWindowDropsClicks) {
  Window window("Keys");
  int clicks = 0;
  window.onClick = [&] { ++clicks; };
  ModalScript script;
  script.ExpectWindow<Window>("Keys", [&](Window& dialog) {
    dialog.PressAccessKey();
    EXPECT_EQ(clicks, 1) << "not after the next key";
    dialog.Finish();
    dialog.Click();
  });
  window.RunModal();
  window.Click();
  EXPECT_EQ(clicks, 1);
}

TEST(ModalDialog, FirstErrorEndsTheWindowAndIsRethrownOnce) {
  Window window("Fails");
  ModalScript script;
  int clicks = 0;
  window.onClick = [&] { throw Error(-2147217900, "Provider", ++clicks == 1 ? "first" : "second"); };
  script.ExpectWindow<Window>("Fails", [](Window& dialog) {
    dialog.Guard([&] { dialog.onClick(); });
    dialog.Guard([&] { dialog.onClick(); });
  });
  EXPECT_THAT(test::Caught([&] { window.RunModal(); }), test::IsError(-2147217900, "first"));
  EXPECT_FALSE(window.IsShown());

  // While it opens, while it is filled, and no more.
  script.ExpectWindow<Window>("Fails", [](Window& dialog) { dialog.Finish(); });
  EXPECT_THROW(window.RunModal([] { throw std::out_of_range("opening"); }), std::out_of_range);
  window.Guard([] { throw std::runtime_error("filling"); });
  EXPECT_THROW(window.RunModal(), std::runtime_error);
  script.ExpectWindow<Window>("Fails", [](Window& dialog) { dialog.Finish(); });
  window.RunModal();
}

TEST(ModalDialog, ErrorOfLowerWindowSurfacesAfterUpperCloses) {
  // A host with the same toolkit, whose window the toolkit would take for the owner.
  wxFrame host(nullptr, wxID_ANY, "Host");
  host.Show();
  Window below("Below");
  Window above("Above");
  ModalScript script;
  std::vector<std::string> steps;
  below.onClick = [] { throw std::runtime_error("below"); };
  script.ExpectWindow<Window>("Below", [&](Window& dialog) {
    above.RunModal();
    steps.emplace_back("above closed");
    EXPECT_FALSE(dialog.IsModal());
  });
  script.ExpectWindow<Window>("Above", [&](Window& dialog) {
    below.Click();
    EXPECT_TRUE(below.IsModal());
    EXPECT_TRUE(dialog.IsModal());
    EXPECT_EQ(gtk_window_get_transient_for(GTK_WINDOW(dialog.GetHandle())), GTK_WINDOW(below.GetHandle()));
    steps.emplace_back("below failed");
    dialog.Finish();
  });
  EXPECT_THROW(below.RunModal(), std::runtime_error);
  EXPECT_THAT(steps, test::ElementsAre("below failed", "above closed"));
}

TEST(ModalDialog, RestoresPointerAndActiveWindowOfHost) {
  GtkWidget* host = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  GtkWidget* entry = gtk_entry_new();
  gtk_container_add(GTK_CONTAINER(host), entry);
  gtk_widget_show_all(host);
  gtk_window_present(GTK_WINDOW(host));
  const auto isHostActive = [&] { return gtk_window_is_active(GTK_WINDOW(host)) != FALSE; };
  ASSERT_TRUE(test::WaitFor(isHostActive));
  gtk_widget_grab_focus(entry);
  DialogPrompts prompts;
  for (int i = 0; i < 2; ++i) prompts.SetPointer(PointerShape::Hourglass);  // set, not counted

  Window window("Guest");
  ModalScript script;
  script.ExpectWindow<Window>("Guest", [&](Window& dialog) {
    EXPECT_FALSE(wxIsBusy());
    prompts.SetPointer(PointerShape::Hourglass);
    EXPECT_TRUE(wxIsBusy());
    prompts.SetPointer(PointerShape::Default);
    EXPECT_TRUE(test::WaitFor([&] { return dialog.IsActive(); }));
    EXPECT_FALSE(isHostActive());
    EXPECT_EQ(gtk_grab_get_current(), dialog.GetHandle());
    dialog.Finish();
  });
  window.RunModal();
  EXPECT_TRUE(wxIsBusy());
  EXPECT_TRUE(test::WaitFor(isHostActive));
  EXPECT_TRUE(gtk_widget_has_focus(entry));
  EXPECT_EQ(gtk_grab_get_current(), nullptr);
  prompts.SetPointer(PointerShape::Default);
  EXPECT_FALSE(wxIsBusy());
  gtk_widget_destroy(host);
}

class Frame : public wxFrame, public GuardedWindow {
 public:
  Frame() : wxFrame(nullptr, wxID_ANY, "Stays"), GuardedWindow(static_cast<wxTopLevelWindow&>(*this)) {
    Bind(wxEVT_BUTTON, UserAction([] { throw Error(-1, "Manager.Create", "Cannot create"); }));
  }
  using GuardedWindow::Guard;
  using GuardedWindow::SetSmallestInside;
};

TEST(GuardedWindow, ModelessFrameShowsEachErrorAndStaysLargeEnough) {
  const test::PromptsGuard prompts;
  auto* frame = new Frame;
  wxCommandEvent click(wxEVT_BUTTON);
  frame->ProcessWindowEvent(click);  // dropped, because the window is not shown
  frame->Show();
  frame->ProcessWindowEvent(click);
  frame->Guard([] { throw std::runtime_error("no memory"); });
  EXPECT_TRUE(frame->IsShown());
  frame->SetSmallestInside({300, 200});
  frame->SetClientSize(10, 400);
  EXPECT_EQ(frame->GetClientSize(), wxSize(300, 400)) << "the inside never becomes smaller";
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

}  // namespace
}  // namespace quorvel::ui
