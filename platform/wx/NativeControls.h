#pragma once

#include <cstddef>
#include <string_view>

class wxBookCtrlBase;
class wxButton;
class wxListBox;
class wxStaticText;
class wxTextCtrl;
class wxWindow;

namespace quorvel::ui {

// Functions of a desktop's own controls that the toolkit lacks, with one body for each system.

/// Sets the name (UTF-8) that assistive technology uses for `window`: the text of the label beside it, or the text such
/// a label would have. Works for a control that is made of several, but not for one that holds other controls.
void SetAccessibleName(wxWindow& window, std::string_view name);

/// Makes a button act at the moment its key is pressed. Some desktops first show it pressed for a while, and the user's
/// next key overtakes it: the button would then act on another remark, or after its window is closed.
void ActAtOnce(wxButton& button);

/// Keeps the scroll bars of `window` visible while there is something to scroll. Some desktops show them only while the
/// pointer moves; until then a text that continues below looks complete.
void KeepScrollBars(wxWindow& window);

/// Gives a control with the focus a frame that is easy to see, on desktops that mark it faintly or not at all.
void ShowFocus(wxWindow& window);

/// Gives a window that scrolls the outline of the desktop's fields, where the toolkit draws none.
void ShowOutline(wxWindow& window);

/// Keeps the place of the scroll bar in a box of several lines free while the text may be changed. A bar that comes and
/// goes while the user types flickers, and each time the text wraps in another way.
void HoldScrollBar(wxTextCtrl& box);

/// Keeps the text of a box of several lines a little off its border, on desktops that otherwise draw it there.
void SetTextMargins(wxTextCtrl& box);

/// The distance from the upper edge of a box of several lines to its first line, in pixels.
[[nodiscard]] int FirstLineTop(wxTextCtrl& box);

/// Puts the text of a label of one line in the middle of its height, where boxes of one line and buttons have theirs.
void CentreText(wxStaticText& label);

/// Shows no insertion point in a box of several lines that is only read.
void HideCaret(wxTextCtrl& box);

/// Makes the access key of the label before `window` lead to `part` of it, which takes the keys; the two may be the
/// same. Some desktops lead it to the frame of the scroll bars.
void LeadAccessKeyTo(wxWindow& part, wxWindow& window);

/// Prepares a list box for thousands of items of one height. Some desktops measure each item, which takes longer than
/// everything else. A text that is wider than the box is cut there.
void ExpectManyItems(wxListBox& list);

/// Makes the arrow keys begin at the selected item of a list. Some desktops begin at the item that had the keys last.
void PutCursorOn(wxListBox& list, int item);

/// Whether the event that is being handled comes from a key. Some desktops report Enter and Space in a list as a double
/// click.
[[nodiscard]] bool IsCausedByKey();

/// Selects a tab as a click does, with its events. The toolkit would also give the focus to the first control of the
/// tab on some desktops.
void ClickTab(wxBookCtrlBase& notebook, std::size_t tab);

/// Underlines the access key in the caption of a tab, which marks it with &, and gives the tab a tool tip. The toolkit
/// drops the mark on some desktops and has no tips for tabs.
void DressTab(wxBookCtrlBase& notebook, std::size_t tab, std::string_view caption, std::string_view tip);

}  // namespace quorvel::ui
