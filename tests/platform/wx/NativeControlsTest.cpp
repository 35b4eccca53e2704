#include "platform/wx/NativeControls.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <string>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/textctrl.h>

#include "platform/wx/MakeButton.h"
#include "tests/support/wx/TestWindow.h"
#include "tests/support/wx/WaitFor.h"

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

TEST(ShowFocus, ChangesTheOutlineOfWhatScrolls) {
  test::TestWindow window("Focus");
  wxTextCtrl box(&window, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE);
  wxButton other(&window, wxID_ANY, "Other");
  ShowFocus(box);
  const auto outline = [&box] {
    GtkStyleContext* const style = gtk_widget_get_style_context(box.GetHandle());
    GtkBorder border;
    GtkBorder padding;
    gtk_style_context_get_border(style, gtk_style_context_get_state(style), &border);
    gtk_style_context_get_padding(style, gtk_style_context_get_state(style), &padding);
    EXPECT_EQ(border.left + padding.left, 2) << "the text does not move";
    return border.left;
  };
  window.Show();
  EXPECT_EQ(outline(), 1);
  box.SetFocus();
  EXPECT_EQ(outline(), 2);
  other.SetFocus();
  EXPECT_EQ(outline(), 1);
}

TEST(HoldScrollBar, LeavesTheTextItsWidth) {
  test::TestWindow window("Bar");
  wxTextCtrl box(&window, wxID_ANY, "", {20, 20}, {200, 100}, wxTE_MULTILINE);
  KeepScrollBars(box);
  HoldScrollBar(box);
  window.Show();
  test::WaitUntilDrawn(window);
  GtkWidget* const text = gtk_bin_get_child(GTK_BIN(box.GetHandle()));
  GtkWidget* const bar = gtk_scrolled_window_get_vscrollbar(GTK_SCROLLED_WINDOW(box.GetHandle()));
  const int width = gtk_widget_get_allocated_width(text);
  EXPECT_TRUE(test::WaitFor([&] { return gtk_widget_get_opacity(bar) < 0.5; })) << "nothing to scroll";
  box.SetValue(wxString('\n', 50));
  EXPECT_TRUE(test::WaitFor([&] { return gtk_widget_get_opacity(bar) > 0.5; }));
  EXPECT_EQ(gtk_widget_get_allocated_width(text), width);
}

}  // namespace
}  // namespace quorvel::ui
