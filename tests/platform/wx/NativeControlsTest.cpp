#include "platform/wx/NativeControls.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <string>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/textctrl.h>

#include "platform/wx/MakeButton.h"
#include "tests/support/wx/TestWindow.h"

namespace quorvel::ui {
namespace {

std::string NameOf(GtkWidget* widget) {
  const char* name = atk_object_get_name(gtk_widget_get_accessible(widget));
  return name != nullptr ? name : "";
}

// A screen reader speaks the name of the part that has the focus, which for some controls is not the control itself.
TEST(AccessibleName, BelongsToThePartWithTheFocus) {
  test::TestWindow window("Names");
  for (wxWindow* control : std::initializer_list<wxWindow*>{
           new wxTextCtrl(&window, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE),
           new wxTextCtrl(&window, wxID_ANY), new wxChoice(&window, wxID_ANY)}) {
    SetAccessibleName(*control, "Text of the remark: größer");
    control->SetFocus();
    GtkWidget* focused = gtk_window_get_focus(GTK_WINDOW(window.GetHandle()));
    ASSERT_NE(focused, nullptr);
    EXPECT_EQ(NameOf(focused), "Text of the remark: größer") << control->GetClassInfo()->GetClassName();
  }
  EXPECT_NE(NameOf(window.GetHandle()), "Text of the remark: größer");
  EXPECT_EQ(NameOf(MakeButton(window, "cmdClose", "&Schließen")->GetHandle()), "Schließen");
}

}  // namespace
}  // namespace quorvel::ui
