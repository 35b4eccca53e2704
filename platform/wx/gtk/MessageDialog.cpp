#include "platform/wx/MessageDialog.h"

#include <gtk/gtk.h>

#include <wx/modalhook.h>

#include "platform/wx/Picture.h"
#include "platform/wx/Text.h"

namespace quorvel::ui {
namespace {

/// The name of a style's icon; null for none.
const char* IconOf(long style) {
  if ((style & wxICON_ERROR) != 0) return "dialog-error";
  if ((style & wxICON_QUESTION) != 0) return "dialog-question";
  if ((style & wxICON_EXCLAMATION) != 0) return "dialog-warning";
  return nullptr;
}

void AddIcon(GtkWidget* box, const char* name) {
  GtkWidget* image = gtk_image_new_from_icon_name(name, GTK_ICON_SIZE_DIALOG);
  gtk_widget_set_valign(image, GTK_ALIGN_START);
  gtk_widget_show(image);
  // Deprecated, but nothing else puts an icon beside the text.
  g_object_set(box, "image", image, nullptr);
}

/// The icon of the title bar, which is the product's, as in its other windows.
void SetTitleIcon(GtkWindow* box) {
  const wxIconBundle icons = ProductIcons();
  GList* sizes = nullptr;
  for (std::size_t i = 0; i < icons.GetIconCount(); ++i) {
    sizes = g_list_prepend(sizes, icons.GetIconByIndex(i).GetPixbuf());
  }
  gtk_window_set_icon_list(box, sizes);
  g_list_free(sizes);
}

int AnswerOf(int response) {
  switch (response) {
    case GTK_RESPONSE_YES:
      return wxID_YES;
    case GTK_RESPONSE_NO:
      return wxID_NO;
    case GTK_RESPONSE_OK:
      return wxID_OK;
    default:
      return wxID_CANCEL;
  }
}

}  // namespace

// The toolkit makes its box and shows it in one step, so the icon cannot be added to it.
int MessageDialog::ShowModal() {
  WX_HOOK_MODAL_DIALOG();
  const bool isQuestion = (GetMessageDialogStyle() & wxYES_NO) != 0;
  GtkWindow* owner = GetParent() != nullptr ? GTK_WINDOW(GetParent()->GetHandle()) : nullptr;
  GtkWidget* box =
      gtk_message_dialog_new(owner, GTK_DIALOG_MODAL, GTK_MESSAGE_OTHER,
                             isQuestion ? GTK_BUTTONS_YES_NO : GTK_BUTTONS_OK, "%s", FromWx(GetMessage()).c_str());
  gtk_window_set_title(GTK_WINDOW(box), FromWx(GetCaption()).c_str());
  SetTitleIcon(GTK_WINDOW(box));
  if (const char* icon = IconOf(GetMessageDialogStyle())) AddIcon(box, icon);
  gtk_dialog_set_default_response(GTK_DIALOG(box), isQuestion ? GTK_RESPONSE_YES : GTK_RESPONSE_OK);
  const int response = gtk_dialog_run(GTK_DIALOG(box));
  gtk_widget_destroy(box);
  return AnswerOf(response);
}

}  // namespace quorvel::ui
