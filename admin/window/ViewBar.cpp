#include "admin/window/ViewBar.h"

#include <algorithm>
#include <array>
#include <utility>

#include <wx/sizer.h>
#include <wx/tglbtn.h>

#include "platform/wx/Picture.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

/// The views with their pictures, from top to bottom.
constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kViews = {{{"Users", "users"},
                                                                                  {"Groups", "groups"},
                                                                                  {"Rights", "rights"},
                                                                                  {"Remarks", "remarks"},
                                                                                  {"Contexts", "contexts"},
                                                                                  {"Entities", "entities"}}};

}  // namespace

ViewBar::ViewBar(wxWindow& parent)
    : wxPanel(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "bbViews") {
  SetSizer(new wxBoxSizer(wxVERTICAL));
  for (const auto& each : kViews) AddButton(each.first);
}

wxBitmapBundle ViewBar::Picture(std::string_view view) {
  for (const auto& [name, picture] : kViews) {
    if (name == view) return ui::Picture(picture);
  }
  return {};
}

void ViewBar::AddButton(std::string_view view) {
  auto* button = new wxToggleButton(this, wxID_ANY, ui::ToWx(view), wxDefaultPosition, wxDefaultSize, 0,
                                    wxDefaultValidator, ui::ToWx(view));
  button->SetBitmap(Picture(view), wxTOP);
  const std::size_t index = m_buttons.size();
  button->SetToolTip("Manage " + ui::ToWx(view) + wxString::Format(" (Ctrl+%zu)", index + 1));
  button->Bind(wxEVT_TOGGLEBUTTON, [this, index](wxCommandEvent&) { Chosen(m_buttons[index].view); });
  button->Bind(wxEVT_KEY_DOWN, [this, index](wxKeyEvent& event) { MoveByKey(index, event); });
  GetSizer()->Add(button, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(4)));
  m_buttons.push_back({std::string(view), button});
}

void ViewBar::Select(std::string_view view) {
  for (const Button& each : m_buttons) each.button->SetValue(each.view == view);
}

bool ViewBar::TakeKey(const wxKeyEvent& event) {
  const int digit = event.GetKeyCode() - '1';
  if (event.GetModifiers() != wxMOD_CONTROL || digit < 0 || std::cmp_greater_equal(digit, m_buttons.size())) {
    return false;
  }
  Chosen(m_buttons[static_cast<std::size_t>(digit)].view);
  return true;
}

void ViewBar::MoveByKey(std::size_t from, wxKeyEvent& event) {
  const std::size_t last = m_buttons.size() - 1;
  std::size_t to = from;
  switch (event.GetKeyCode()) {
    case WXK_UP:
      to = from - std::min<std::size_t>(from, 1);
      break;
    case WXK_DOWN:
      to = std::min(from + 1, last);
      break;
    case WXK_HOME:
      to = 0;
      break;
    case WXK_END:
      to = last;
      break;
    default:
      return event.Skip();
  }
  m_buttons[to].button->SetFocus();
  if (to != from) Chosen(m_buttons[to].view);
}

}  // namespace quorvel
