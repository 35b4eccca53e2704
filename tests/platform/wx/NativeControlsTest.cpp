#include "platform/wx/NativeControls.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <string>

#include <wx/choice.h>
#include <wx/textctrl.h>

#include "platform/wx/ModalDialog.h"

namespace quorvel::ui {
namespace {

std::string NameOf(GtkWidget* widget) {
  const char* name = atk_object_get_name(gtk_widget_get_accessible(widget));
  return name != nullptr ? name : "";
}

class Window : public ModalDialog {
 public:
  Window() : ModalDialog("Names") {}
};

// A reader names the part that has the focus, which for some controls is not the control itself.
TEST(AccessibleName, IsThatOfThePartWithTheFocus) {
  Window window;
  auto* several = new wxTextCtrl(&window, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE);
  auto* single = new wxTextCtrl(&window, wxID_ANY);
  auto* choice = new wxChoice(&window, wxID_ANY);
  for (wxWindow* control :
       {static_cast<wxWindow*>(several), static_cast<wxWindow*>(single), static_cast<wxWindow*>(choice)}) {
    SetAccessibleName(*control, "Text of the remark: größer");
    control->SetFocus();
    GtkWidget* focused = gtk_window_get_focus(GTK_WINDOW(window.GetHandle()));
    ASSERT_NE(focused, nullptr);
    EXPECT_EQ(NameOf(focused), "Text of the remark: größer") << control->GetClassInfo()->GetClassName();
  }
  EXPECT_NE(NameOf(window.GetHandle()), "Text of the remark: größer");
}

}  // namespace
}  // namespace quorvel::ui
