#include "platform/wx/DialogPrompts.h"

#include <gmock/gmock.h>
#include <gtk/gtk.h>

#include <string>
#include <vector>

#include <wx/textdlg.h>
#include <wx/utils.h>

#include "platform/wx/ModalDialog.h"
#include "platform/wx/Text.h"
#include "tests/support/wx/ModalScript.h"

namespace quorvel::ui {
namespace {

using test::ModalScript;
using ::testing::ElementsAre;

/// A message box as the desktop shows it.
struct Box {
  GtkDialog* dialog = nullptr;
  std::string text;
  std::string title;
  std::string icon;
  GtkWindow* owner = nullptr;
  bool canAnswer[3] = {};  ///< Yes, No, OK
};

Box ShownBox() {
  Box box;
  GList* windows = gtk_window_list_toplevels();
  for (const GList* item = windows; item != nullptr; item = item->next) {
    if (GTK_IS_MESSAGE_DIALOG(item->data) == FALSE) continue;
    box.dialog = GTK_DIALOG(item->data);
    char* text = nullptr;
    GtkWidget* image = nullptr;
    g_object_get(item->data, "text", &text, "image", &image, nullptr);
    box.text = text;
    g_free(text);
    const char* icon = nullptr;
    if (image != nullptr) gtk_image_get_icon_name(GTK_IMAGE(image), &icon, nullptr);
    if (icon != nullptr) box.icon = icon;
    g_clear_object(&image);
    box.title = gtk_window_get_title(GTK_WINDOW(item->data));
    box.owner = gtk_window_get_transient_for(GTK_WINDOW(item->data));
    const int answers[] = {GTK_RESPONSE_YES, GTK_RESPONSE_NO, GTK_RESPONSE_OK};
    for (int i = 0; i < 3; ++i) {
      box.canAnswer[i] = gtk_dialog_get_widget_for_response(box.dialog, answers[i]) != nullptr;
    }
  }
  g_list_free(windows);
  return box;
}

/// Looks at the box that comes next and gives it an answer of the desktop's.
void ExpectBox(ModalScript& script, Box& seen, int response) {
  script.ExpectShown([&seen, response](wxDialog&) {
    seen = ShownBox();
    ASSERT_NE(seen.dialog, nullptr);
    gtk_dialog_response(seen.dialog, response);
  });
}

TEST(DialogPrompts, AQuestionShowsItsTextAsItIs) {
  DialogPrompts prompts;
  ModalScript script;
  Box seen;
  const std::string text = "Save \"R&D\" & <b>all</b>?\r\n100 % sûr 🙂";
  ExpectBox(script, seen, GTK_RESPONSE_YES);
  EXPECT_EQ(prompts.ShowMessage(text, "Edit & Remarks", PromptButtons::YesNo, PromptIcon::Question), PromptAnswer::Yes);
  EXPECT_EQ(seen.text, text);
  EXPECT_EQ(seen.title, "Edit & Remarks");
  EXPECT_EQ(seen.icon, "dialog-question");
  EXPECT_THAT(seen.canAnswer, ElementsAre(true, true, false));
  ExpectBox(script, seen, GTK_RESPONSE_NO);
  EXPECT_EQ(prompts.ShowMessage("Sure?", "Confirm", PromptButtons::YesNo, PromptIcon::Exclamation), PromptAnswer::No);
  EXPECT_EQ(seen.icon, "dialog-warning");
  ExpectBox(script, seen, GTK_RESPONSE_OK);
  prompts.ShowMessage("Failed", "Error", PromptButtons::Ok, PromptIcon::CriticalStop);
  EXPECT_EQ(seen.icon, "dialog-error");
}

TEST(DialogPrompts, AQuestionThatIsClosedIsAskedAgain) {
  DialogPrompts prompts;
  ModalScript script;
  Box seen;
  ExpectBox(script, seen, GTK_RESPONSE_DELETE_EVENT);
  ExpectBox(script, seen, GTK_RESPONSE_YES);
  EXPECT_EQ(prompts.ShowMessage("Save?", "Edit", PromptButtons::YesNo, PromptIcon::Question), PromptAnswer::Yes);
}

TEST(DialogPrompts, AMessageIsClosedAnyhow) {
  DialogPrompts prompts;
  ModalScript script;
  Box seen;
  ExpectBox(script, seen, GTK_RESPONSE_DELETE_EVENT);
  EXPECT_EQ(prompts.ShowMessage("Failed", "", PromptButtons::Ok, PromptIcon::None), PromptAnswer::Ok);
  EXPECT_EQ(seen.title, "");
  EXPECT_EQ(seen.icon, "");
  EXPECT_THAT(seen.canAnswer, ElementsAre(false, false, true));
  EXPECT_EQ(seen.owner, nullptr);
}

TEST(DialogPrompts, ABoxBelongsToTheTopmostWindowAndHasThePointerOfTheDesktop) {
  class Window : public ModalDialog {
   public:
    Window() : ModalDialog("Owner") {}
    using ModalDialog::Finish;
  } window;
  DialogPrompts prompts;
  ModalScript script;
  Box seen;
  bool wasWaiting = true;
  script.ExpectWindow<Window>("Owner", [&](Window& dialog) {
    prompts.SetPointer(PointerShape::Hourglass);
    EXPECT_EQ(prompts.ShowMessage("Text", "Title", PromptButtons::Ok, PromptIcon::None), PromptAnswer::Ok);
    EXPECT_TRUE(wxIsBusy());
    prompts.SetPointer(PointerShape::Default);
    EXPECT_EQ(seen.owner, GTK_WINDOW(dialog.GetHandle()));
    dialog.Finish();
  });
  script.ExpectShown([&](wxDialog&) {
    wasWaiting = wxIsBusy();
    seen = ShownBox();
    gtk_dialog_response(seen.dialog, GTK_RESPONSE_OK);
  });
  window.RunModal();
  EXPECT_FALSE(wasWaiting);
}

TEST(DialogPrompts, AnInputBoxGivesItsTextOrNothing) {
  DialogPrompts prompts;
  ModalScript script;
  script.ExpectInput("R&D ID", "Create New R&D", "Größe & 🙂");
  EXPECT_EQ(prompts.AskText("R&D ID", "Create New R&D"), "Größe & 🙂");
  script.ExpectInput("User ID", "Create New User", "");
  EXPECT_EQ(prompts.AskText("User ID", "Create New User"), "");
  script.ExpectInput("User ID", "Create New User", std::nullopt);
  EXPECT_EQ(prompts.AskText("User ID", "Create New User"), std::nullopt);
  std::string title;
  script.ExpectShown([&](wxDialog& dialog) {
    title = gtk_window_get_title(GTK_WINDOW(dialog.GetHandle()));
    dynamic_cast<wxTextEntryDialog&>(dialog).SetValue("typed");
    dialog.EndModal(wxID_CANCEL);
  });
  EXPECT_EQ(prompts.AskText("R&D ID", "Create New R&D"), std::nullopt);
  EXPECT_EQ(title, "Create New R&D");
}

// The wait counter sets either shape as often as it likes.
TEST(DialogPrompts, ThePointerIsSetAndNotCounted) {
  DialogPrompts prompts;
  prompts.SetPointer(PointerShape::Default);
  EXPECT_FALSE(wxIsBusy());
  prompts.SetPointer(PointerShape::Hourglass);
  prompts.SetPointer(PointerShape::Hourglass);
  {
    const DefaultPointer pointer;
    EXPECT_FALSE(wxIsBusy());
    prompts.SetPointer(PointerShape::Hourglass);
    EXPECT_TRUE(wxIsBusy());
    prompts.SetPointer(PointerShape::Default);
  }
  EXPECT_TRUE(wxIsBusy());
  prompts.SetPointer(PointerShape::Default);
  EXPECT_FALSE(wxIsBusy());
}

}  // namespace
}  // namespace quorvel::ui
