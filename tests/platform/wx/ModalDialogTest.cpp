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
#include "tests/support/wx/WaitFor.h"

namespace quorvel::ui {
namespace {

using test::ModalScript;
using ::testing::ElementsAre;

/// A window with a button.
class Window : public ModalDialog {
 public:
  explicit Window(const wxString& title) : ModalDialog(title), m_button(MakeButton(*this, "cmdDo", "&Do")) {
    m_button->Bind(wxEVT_BUTTON, UserAction([this] {
                     if (onClick) onClick();
                   }));
  }
  using ModalDialog::Finish;
  using ModalDialog::Guard;

  void Click() {
    wxCommandEvent event(wxEVT_BUTTON, m_button->GetId());
    event.SetEventObject(m_button);
    m_button->ProcessWindowEvent(event);
  }

  /// What its access key does, as the desktop has it.
  void PressAccessKey() { gtk_widget_mnemonic_activate(m_button->GetHandle(), FALSE); }

  std::function<void()> onClick;

 private:
  wxButton* m_button;
};

/// Presses a key as the desktop would report it.
void PressKey(const wxWindow& window, guint key) {
  GdkEvent* event = gdk_event_new(GDK_KEY_PRESS);
  event->key.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(window.GetHandle())));
  event->key.keyval = key;
  gdk_event_set_device(event, gdk_seat_get_keyboard(gdk_display_get_default_seat(gdk_display_get_default())));
  gtk_main_do_event(event);
  gdk_event_free(event);
}

TEST(ModalDialog, IsUsedAgainHoweverItWasClosed) {
  Window window("Again");
  ModalScript script;
  const std::vector<std::function<void(Window&)>> ends = {
      [](Window& dialog) { dialog.Finish(); },
      [](Window& dialog) { dialog.Close(); },
      [](Window& dialog) { PressKey(dialog, GDK_KEY_Escape); },
      [](Window& dialog) { dialog.Finish(); },
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

TEST(ModalDialog, AKeyActsAtOnceAndNeverOnAClosedWindow) {
  Window window("Keys");
  int clicks = 0;
  window.onClick = [&] { ++clicks; };
  ModalScript script;
  script.ExpectWindow<Window>("Keys", [&](Window& dialog) {
    dialog.PressAccessKey();
    EXPECT_EQ(clicks, 1) << "and not after what is pressed next";
    dialog.Finish();
  });
  window.RunModal();
  window.Click();
  EXPECT_EQ(clicks, 1);
}

TEST(ModalDialog, WhatAHandlerThrowsClosesItAndComesOut) {
  Window window("Fails");
  ModalScript script;
  window.onClick = [] { throw Error(-2147217900, "Provider", "first"); };
  script.ExpectWindow<Window>("Fails", [](Window& dialog) {
    dialog.Click();
    dialog.Click();
  });
  const Error error = test::Caught([&] { window.RunModal(); });
  EXPECT_EQ(error.Number(), -2147217900);
  EXPECT_EQ(error.Description(), "first");
  EXPECT_FALSE(window.IsShown());

  script.ExpectWindow<Window>("Fails", [](Window& dialog) { dialog.Finish(); });
  EXPECT_THROW(window.RunModal([] { throw std::out_of_range("opening"); }), std::out_of_range);
  script.ExpectWindow<Window>("Fails", [](Window& dialog) { dialog.Finish(); });
  window.RunModal();
}

TEST(ModalDialog, IsNotOpenedWhenFillingItFailed) {
  Window window("Unfilled");
  const ModalScript nothingOpens;
  window.Guard([] { throw std::runtime_error("filling"); });
  EXPECT_THROW(window.RunModal(), std::runtime_error);
}

TEST(ModalDialog, ErrorOfLowerWindowSurfacesAfterUpperCloses) {
  Window below("Below");
  Window above("Above");
  ModalScript script;
  std::vector<std::string> steps;
  below.onClick = [&] { throw std::runtime_error("below"); };
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

TEST(ModalDialog, CannotBeOpenTwice) {
  Window window("Once");
  ModalScript script;
  script.ExpectWindow<Window>("Once", [](Window& dialog) {
    const Error error = test::Caught([&] { dialog.RunModal(); });
    EXPECT_EQ(error.Number(), 400);
    EXPECT_EQ(error.Source(), "Quorvel");
    EXPECT_EQ(error.Description(), "Form already displayed; can't show modally");
    EXPECT_TRUE(dialog.IsModal());
    dialog.Finish();
  });
  window.RunModal();
}

TEST(ModalDialog, GivesTheHostItsPointerAndItsActiveWindowBack) {
  GtkWidget* host = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  GtkWidget* entry = gtk_entry_new();
  gtk_container_add(GTK_CONTAINER(host), entry);
  gtk_widget_show_all(host);
  gtk_window_present(GTK_WINDOW(host));
  ASSERT_TRUE(test::WaitFor([&] { return gtk_window_is_active(GTK_WINDOW(host)) != FALSE; }));
  gtk_widget_grab_focus(entry);
  DialogPrompts prompts;
  prompts.SetPointer(PointerShape::Hourglass);

  Window window("Guest");
  ModalScript script;
  script.ExpectWindow<Window>("Guest", [&](Window& dialog) {
    EXPECT_FALSE(wxIsBusy());
    EXPECT_TRUE(test::WaitFor([&] { return dialog.IsActive(); }));
    EXPECT_FALSE(gtk_window_is_active(GTK_WINDOW(host)));
    EXPECT_EQ(gtk_grab_get_current(), dialog.GetHandle());
    dialog.Finish();
  });
  window.RunModal();
  EXPECT_TRUE(wxIsBusy());
  EXPECT_TRUE(test::WaitFor([&] { return gtk_window_is_active(GTK_WINDOW(host)) != FALSE; }));
  EXPECT_TRUE(gtk_widget_has_focus(entry));
  EXPECT_EQ(gtk_grab_get_current(), nullptr);
  prompts.SetPointer(PointerShape::Default);
  gtk_widget_destroy(host);
}

}  // namespace
}  // namespace quorvel::ui
