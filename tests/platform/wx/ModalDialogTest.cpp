#include "platform/wx/ModalDialog.h"

#include <gmock/gmock.h>
#include <gtk/gtk.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <wx/button.h>
#include <wx/utils.h>

#include "platform/Error.h"
#include "platform/wx/DialogPrompts.h"
#include "platform/wx/MakeButton.h"
#include "tests/support/Caught.h"
#include "tests/support/wx/ModalScript.h"
#include "tests/support/wx/TestWindow.h"
#include "tests/support/wx/WaitFor.h"

namespace quorvel::ui {
namespace {

using test::ModalScript;
using ::testing::ElementsAre;

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
        const Error error = test::Caught([&] { dialog.RunModal(); });
        EXPECT_EQ(error.Number(), 400);
        EXPECT_EQ(error.Source(), "Quorvel");
        EXPECT_EQ(error.Description(), "Form already displayed; can't show modally");
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
  const Error error = test::Caught([&] { window.RunModal(); });
  EXPECT_EQ(error.Number(), -2147217900);
  EXPECT_EQ(error.Description(), "first");
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
  EXPECT_THAT(steps, ElementsAre("below failed", "above closed"));
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
  prompts.SetPointer(PointerShape::Hourglass);

  Window window("Guest");
  ModalScript script;
  script.ExpectWindow<Window>("Guest", [&](Window& dialog) {
    EXPECT_FALSE(wxIsBusy());
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
  gtk_widget_destroy(host);
}

}  // namespace
}  // namespace quorvel::ui
