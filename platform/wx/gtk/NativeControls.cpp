#include "platform/wx/NativeControls.h"

#include <gtk/gtk.h>

#include <algorithm>
#include <string>

#include <wx/bookctrl.h>
#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "platform/wx/gtk/TextView.h"

namespace quorvel::ui {
namespace {

/// The focus goes to a part of some controls, and a screen reader then speaks the name of that part.
void SetName(GtkWidget* widget, gpointer name) {
  atk_object_set_name(gtk_widget_get_accessible(widget), static_cast<const char*>(name));
  if (GTK_IS_CONTAINER(widget) != FALSE) gtk_container_forall(GTK_CONTAINER(widget), SetName, name);
}

/// The button shows itself pressed until a moment has passed or a key is released, whichever comes first.
void ReleaseKey(GtkButton* button, gpointer /*data*/) {
  GtkWidget* const widget = GTK_WIDGET(button);
  GdkWindow* const window = gtk_widget_get_window(widget);
  if (window == nullptr) return;
  GdkEvent* const release = gdk_event_new(GDK_KEY_RELEASE);
  release->key.window = GDK_WINDOW(g_object_ref(window));
  gdk_event_set_device(release, gdk_seat_get_keyboard(gdk_display_get_default_seat(gtk_widget_get_display(widget))));
  gtk_widget_event(widget, release);
  gdk_event_free(release);
}

/// Sets the text of the label in a tab, which is in a box beside a place for a picture.
void SetLabel(GtkWidget* widget, gpointer text) {
  if (GTK_IS_LABEL(widget) != FALSE) {
    gtk_label_set_text_with_mnemonic(GTK_LABEL(widget), static_cast<const char*>(text));
  } else if (GTK_IS_CONTAINER(widget) != FALSE) {
    gtk_container_forall(GTK_CONTAINER(widget), SetLabel, text);
  }
}

/// A bar that fills its whole place looks as if there was something to scroll.
gboolean FadeIdleBar(gpointer scrolled) {
  GtkWidget* const bar = gtk_scrolled_window_get_vscrollbar(GTK_SCROLLED_WINDOW(scrolled));
  if (bar == nullptr) return G_SOURCE_REMOVE;  // the control was destroyed meanwhile
  GtkAdjustment* const range = gtk_scrolled_window_get_vadjustment(GTK_SCROLLED_WINDOW(scrolled));
  const double length = gtk_adjustment_get_upper(range) - gtk_adjustment_get_lower(range);
  gtk_widget_set_opacity(bar, length > gtk_adjustment_get_page_size(range) ? 1 : 0);
  return G_SOURCE_REMOVE;
}

/// Fades the bar later: the desktop is placing the controls, and would not draw the bar again.
void RangeChanged(GtkAdjustment* /*range*/, GtkWidget* scrolled) {
  g_idle_add_full(G_PRIORITY_DEFAULT_IDLE, FadeIdleBar, g_object_ref(scrolled), g_object_unref);
}

void HoldBar(GtkTextView* text, GParamSpec* /*property*/, gpointer /*data*/) {
  const GtkPolicyType policy = gtk_text_view_get_editable(text) != FALSE ? GTK_POLICY_ALWAYS : GTK_POLICY_AUTOMATIC;
  gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(gtk_widget_get_parent(GTK_WIDGET(text))), GTK_POLICY_NEVER,
                                 policy);
}

gboolean FocusPart(GtkWidget* /*window*/, gboolean /*isOneOfSeveral*/, gpointer part) {
  gtk_widget_grab_focus(static_cast<GtkWidget*>(part));
  return TRUE;
}

}  // namespace

GtkTextView* TextViewOf(wxTextCtrl& box) {
  GtkWidget* const scrolled = box.GetHandle();
  GtkWidget* const view = GTK_IS_BIN(scrolled) != FALSE ? gtk_bin_get_child(GTK_BIN(scrolled)) : nullptr;
  return GTK_IS_TEXT_VIEW(view) != FALSE ? GTK_TEXT_VIEW(view) : nullptr;
}

void SetAccessibleName(wxWindow& window, std::string_view name) {
  std::string text(name);
  SetName(window.GetHandle(), text.data());
}

void ActAtOnce(wxButton& button) {
  // Runs after the button's own handler of the signal.
  g_signal_connect(button.GetHandle(), "activate", G_CALLBACK(ReleaseKey), nullptr);
}

void KeepScrollBars(wxWindow& window) {
  GtkWidget* const widget = window.GetHandle();
  if (GTK_IS_SCROLLED_WINDOW(widget) != FALSE) {
    gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(widget), FALSE);
  }
}

void HoldScrollBar(wxTextCtrl& box) {
  GtkTextView* const text = TextViewOf(box);
  if (text == nullptr) return;
  g_signal_connect(text, "notify::editable", G_CALLBACK(HoldBar), nullptr);
  HoldBar(text, nullptr, nullptr);
  GtkWidget* const scrolled = box.GetHandle();
  g_signal_connect_object(gtk_scrolled_window_get_vadjustment(GTK_SCROLLED_WINDOW(scrolled)), "changed",
                          G_CALLBACK(RangeChanged), scrolled, static_cast<GConnectFlags>(0));
}

void HideCaret(wxTextCtrl& box) {
  if (GtkTextView* const text = TextViewOf(box)) gtk_text_view_set_cursor_visible(text, FALSE);
}

void SetTextMargins(wxTextCtrl& box) {
  GtkTextView* const text = TextViewOf(box);
  if (text == nullptr) return;
  const int margin = box.FromDIP(5);
  gtk_text_view_set_left_margin(text, margin);
  gtk_text_view_set_right_margin(text, margin);
  gtk_text_view_set_top_margin(text, margin);
  gtk_text_view_set_bottom_margin(text, margin);
}

int FirstLineTop(wxTextCtrl& box) {
  GtkTextView* const text = TextViewOf(box);
  if (text == nullptr) return 0;
  GtkStyleContext* const style = gtk_widget_get_style_context(box.GetHandle());
  GtkBorder border{};
  GtkBorder padding{};
  gtk_style_context_get_border(style, gtk_style_context_get_state(style), &border);
  gtk_style_context_get_padding(style, gtk_style_context_get_state(style), &padding);
  return border.top + padding.top + gtk_text_view_get_top_margin(text);
}

void CentreText(wxStaticText& label) { gtk_label_set_yalign(GTK_LABEL(label.GetHandle()), 0.5F); }

void LeadAccessKeyTo(wxWindow& part, wxWindow& window) {
  g_signal_connect_object(window.GetHandle(), "mnemonic-activate", G_CALLBACK(FocusPart), part.GetConnectWidget(),
                          static_cast<GConnectFlags>(0));
}

void ExpectManyItems(wxListBox& list) {
  auto* const view = GTK_TREE_VIEW(list.GetConnectWidget());
  GtkTreeViewColumn* const column = gtk_tree_view_get_column(view, 0);
  GList* const cells = gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(column));
  for (const GList* cell = cells; cell != nullptr; cell = cell->next) {
    if (GTK_IS_CELL_RENDERER_TEXT(cell->data) != FALSE) {
      g_object_set(cell->data, "ellipsize", PANGO_ELLIPSIZE_END, nullptr);
    }
  }
  g_list_free(cells);
  gtk_tree_view_column_set_sizing(column, GTK_TREE_VIEW_COLUMN_FIXED);
  gtk_tree_view_set_fixed_height_mode(view, TRUE);
}

void PutCursorOn(wxListBox& list, int item) {
  GtkTreePath* const path = gtk_tree_path_new_from_indices(item, -1);
  gtk_tree_view_set_cursor(GTK_TREE_VIEW(list.GetConnectWidget()), path, nullptr, FALSE);
  gtk_tree_path_free(path);
}

bool IsCausedByKey() {
  GdkEvent* const event = gtk_get_current_event();
  if (event == nullptr) return false;
  const bool isKey = event->type == GDK_KEY_PRESS;
  gdk_event_free(event);
  return isKey;
}

void ClickTab(wxBookCtrlBase& notebook, std::size_t tab) {
  gtk_notebook_set_current_page(GTK_NOTEBOOK(notebook.GetHandle()), static_cast<int>(tab));
}

void DressTab(wxBookCtrlBase& notebook, std::size_t tab, std::string_view caption, std::string_view tip) {
  auto* const book = GTK_NOTEBOOK(notebook.GetHandle());
  GtkWidget* const label = gtk_notebook_get_tab_label(book, gtk_notebook_get_nth_page(book, static_cast<int>(tab)));
  std::string text(caption);
  std::ranges::replace(text, '&', '_');
  SetLabel(label, text.data());
  if (!tip.empty()) gtk_widget_set_tooltip_text(label, std::string(tip).c_str());
}

}  // namespace quorvel::ui
