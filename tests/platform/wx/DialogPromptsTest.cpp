// Message boxes and the input box as the desktop shows them.
#include "platform/wx/DialogPrompts.h"

#include <gmock/gmock.h>
#include <gtk/gtk.h>

#include <string>
#include <tuple>

#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/textdlg.h>
#include <wx/utils.h>

#include "platform/wx/Text.h"
#include "tests/support/wx/ModalScript.h"
#include "tests/support/wx/TestWindow.h"
#include "tests/support/wx/WaitFor.h"

namespace quorvel::ui {
namespace {

using test::ModalScript;
using test::TestWindow;

GtkDialog* FindBox() {
  GtkDialog* box = nullptr;
  GList* windows = gtk_window_list_toplevels();
  for (const GList* item = windows; item != nullptr; item = item->next) {
    if (GTK_IS_MESSAGE_DIALOG(item->data) != FALSE) box = GTK_DIALOG(item->data);
  }
  g_list_free(windows);
  return box;
}

/// The box as the desktop shows it: its title, its text, its icon, and Y, N and O for its buttons Yes, No and OK.
std::string Describe(GtkDialog* box) {
  char* text = nullptr;
  GtkWidget* image = nullptr;
  g_object_get(box, "text", &text, "image", &image, nullptr);
  const char* icon = "";
  if (image != nullptr) gtk_image_get_icon_name(GTK_IMAGE(image), &icon, nullptr);
  std::string description = std::string(gtk_window_get_title(GTK_WINDOW(box))) + ": " + text + " <" + icon + "> ";
  g_clear_object(&image);
  g_free(text);
  for (const auto& [response, letter] :
       {std::pair(GTK_RESPONSE_YES, 'Y'), std::pair(GTK_RESPONSE_NO, 'N'), std::pair(GTK_RESPONSE_OK, 'O')}) {
    if (gtk_dialog_get_widget_for_response(box, response) != nullptr) description += letter;
  }
  return description;
}

class DialogPromptsTest : public ::testing::Test {
 protected:
  /// Looks at the next box and gives it a response of the desktop's.
  void ExpectBox(int response) {
    script.ExpectShown([this, response](wxDialog&) {
      GtkDialog* const box = FindBox();
      ASSERT_NE(box, nullptr);
      seen = Describe(box);
      owner = gtk_window_get_transient_for(GTK_WINDOW(box));
      hadHourglass = wxIsBusy();
      gtk_dialog_response(box, response);
    });
  }

  DialogPrompts prompts;
  ModalScript script;
  std::string seen;
  GtkWindow* owner = nullptr;
  bool hadHourglass = false;
};

TEST_F(DialogPromptsTest, BoxShowsItsTextAndReturnsTheAnswer) {
  using enum PromptIcon;
  using Case = std::tuple<PromptButtons, PromptIcon, int, PromptAnswer, const char*>;
  const std::string text = "Save \"R&D\" & <b>all</b>?\r\n100 % sûr 🙂";
  for (const auto& [buttons, icon, response, answer, expected] : {
           Case{PromptButtons::YesNo, Question, GTK_RESPONSE_YES, PromptAnswer::Yes, "<dialog-question> YN"},
           Case{PromptButtons::YesNo, Exclamation, GTK_RESPONSE_NO, PromptAnswer::No, "<dialog-warning> YN"},
           Case{PromptButtons::Ok, CriticalStop, GTK_RESPONSE_OK, PromptAnswer::Ok, "<dialog-error> O"},
           Case{PromptButtons::Ok, None, GTK_RESPONSE_DELETE_EVENT, PromptAnswer::Ok, "<> O"},
       }) {
    ExpectBox(response);
    EXPECT_EQ(prompts.ShowMessage(text, "Edit & Remarks", buttons, icon), answer);
    EXPECT_EQ(seen, "Edit & Remarks: " + text + " " + expected);
    EXPECT_EQ(owner, nullptr);
  }
  // A closed question is asked again.
  ExpectBox(GTK_RESPONSE_DELETE_EVENT);
  ExpectBox(GTK_RESPONSE_YES);
  EXPECT_EQ(prompts.ShowMessage("Save?", "Edit", PromptButtons::YesNo, PromptIcon::Question), PromptAnswer::Yes);
}

TEST_F(DialogPromptsTest, BoxBelongsToTheTopmostWindowAndHasTheDefaultPointer) {
  TestWindow window("Owner");
  script.ExpectWindow<TestWindow>("Owner", [this](TestWindow& dialog) {
    prompts.SetPointer(PointerShape::Hourglass);
    wxFrame host(nullptr, wxID_ANY, "Host");
    host.Show();
    (new wxTextCtrl(&host, wxID_ANY))->SetFocus();
    EXPECT_EQ(prompts.ShowMessage("Text", "Title", PromptButtons::Ok, PromptIcon::None), PromptAnswer::Ok);
    EXPECT_TRUE(wxIsBusy());
    EXPECT_EQ(owner, GTK_WINDOW(dialog.GetHandle()));
    EXPECT_FALSE(hadHourglass);
    prompts.SetPointer(PointerShape::Default);
    dialog.Finish();
  });
  ExpectBox(GTK_RESPONSE_OK);
  window.RunModal();
}

TEST_F(DialogPromptsTest, WaitDrawsWindowsOfTheComponentAndRunsNothing) {
  TestWindow window("Owner");
  script.ExpectWindow<TestWindow>("Owner", [this](TestWindow& dialog) {
    test::WaitUntilDrawn(dialog);
    int drawn = 0;
    dialog.Bind(wxEVT_PAINT, [&drawn](wxPaintEvent&) { ++drawn; });
    bool timerRan = false;
    const auto run = [](gpointer ran) { return static_cast<gboolean>(*static_cast<bool*>(ran) = true); };
    const guint timer = g_timeout_add(0, run, &timerRan);
    GdkEvent* typed = gdk_event_new(GDK_KEY_PRESS);
    typed->key.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(dialog.GetHandle())));
    gdk_event_put(typed);
    dialog.Refresh();
    prompts.KeepDrawing();
    EXPECT_EQ(drawn, 1);
    EXPECT_FALSE(timerRan) << "a host's timer may call the component";
    GdkEvent* kept = gdk_event_get();
    while (kept != nullptr && kept->type != GDK_KEY_PRESS) {
      gdk_event_free(kept);
      kept = gdk_event_get();
    }
    EXPECT_NE(kept, nullptr) << "the key still waits";
    if (kept != nullptr) gdk_event_free(kept);
    gdk_event_free(typed);
    g_source_remove(timer);
    dialog.Finish();
  });
  window.RunModal();
}

TEST_F(DialogPromptsTest, InputBoxReturnsItsTextOrNothing) {
  const std::string typed = "Größe & 🙂";
  for (const auto& [text, answer] : {std::pair(typed, wxID_OK), {"", wxID_OK}, {typed, wxID_CANCEL}}) {
    script.ExpectShown([text = text, answer = answer](wxDialog& box) {
      EXPECT_STREQ(gtk_window_get_title(GTK_WINDOW(box.GetHandle())), "Create New R&D");
      // The label marks no access key, so it escapes its ampersand.
      const wxWindow* prompt = wxWindow::FindWindowByLabel("R&&D ID", &box);
      EXPECT_NE(dynamic_cast<const wxStaticText*>(prompt), nullptr);
      dynamic_cast<wxTextEntryDialog&>(box).SetValue(ToWx(text));
      box.EndModal(answer);
    });
    EXPECT_EQ(prompts.AskText("R&D ID", "Create New R&D"), answer == wxID_OK ? std::optional(text) : std::nullopt);
  }
}

}  // namespace
}  // namespace quorvel::ui
