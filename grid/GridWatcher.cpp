#include "grid/GridWatcher.h"

#include <array>
#include <utility>

#include <wx/event.h>

namespace quorvel {
namespace {

std::int16_t ShiftState(const wxKeyboardState& state) {
  return static_cast<std::int16_t>((state.ShiftDown() ? 1 : 0) + (state.ControlDown() ? 2 : 0) +
                                   (state.AltDown() ? 4 : 0));
}

/// The classic code of one of the toolkit's keys; 0 for keys that have none.
std::int16_t KeyCodeOf(int key) {
  constexpr std::array<std::pair<int, std::int16_t>, 11> classic = {{{WXK_NUMPAD_ENTER, 13},
                                                                     {WXK_PAGEUP, 33},
                                                                     {WXK_PAGEDOWN, 34},
                                                                     {WXK_END, 35},
                                                                     {WXK_HOME, 36},
                                                                     {WXK_LEFT, 37},
                                                                     {WXK_UP, 38},
                                                                     {WXK_RIGHT, 39},
                                                                     {WXK_DOWN, 40},
                                                                     {WXK_INSERT, 45},
                                                                     {WXK_DELETE, 46}}};
  for (const auto& [ours, code] : classic) {
    if (ours == key) return code;
  }
  if (key >= WXK_F1 && key <= WXK_F12) return static_cast<std::int16_t>(112 + key - WXK_F1);
  return key > 0 && key < WXK_DELETE ? static_cast<std::int16_t>(key) : std::int16_t{0};
}

std::int16_t ButtonOf(const wxMouseEvent& event) {
  if (event.GetButton() == wxMOUSE_BTN_RIGHT) return 2;
  return event.GetButton() == wxMOUSE_BTN_MIDDLE ? 4 : 1;
}

}  // namespace

bool GridWatcher::TakesKey(const wxKeyEvent& event) const {
  std::int16_t code = KeyCodeOf(event.GetKeyCode());
  if (m_events == nullptr || code == 0) return false;
  std::int16_t shift = ShiftState(event);
  m_events->KeyDown(code, shift);
  return code == 0;
}

void GridWatcher::MouseDown(const wxMouseEvent& event, const wxPoint& point) const {
  if (m_events != nullptr) m_events->MouseDown(ButtonOf(event), ShiftState(event), point.x, point.y);
}

void GridWatcher::DoubleClick() const {
  if (m_events != nullptr) m_events->DoubleClick();
}

}  // namespace quorvel
