#pragma once

#include <string>
#include <string_view>

class wxBoxSizer;
class wxButton;
class wxCheckBox;
class wxListBox;
class wxSizer;
class wxWindow;

namespace quorvel {

/// Makes and lays out the two lists of a child tab, the buttons that move an entry between them, and a frame below for
/// the properties of the selected link. The panel owns the controls. Captions mark an access key with &.
class ListPairPanel {
 public:
  struct Captions {
    std::string_view remaining;
    std::string_view current;
  };

  /// `member` ends the controls' names.
  ListPairPanel(wxWindow& panel, const std::string& member, const Captions& captions);

  void AddFrame(std::string_view caption);
  // Into the frame, from left to right.
  wxCheckBox& AddCheck(std::string_view name, std::string_view caption);
  wxButton& AddButton(std::string_view name, std::string_view caption);

  // In the order in which Tab passes them. The list of the links is the last: some desktops select an entry when Tab
  // enters a list, and the way from a link to its check boxes must not pass the other list.
  wxListBox* lstRemaining;
  wxButton* cmdAdd;
  wxButton* cmdRemove;
  wxListBox* lstCurrent;

 private:
  wxListBox* AddList(wxSizer& column, const std::string& name, std::string_view caption);
  wxButton* AddMove(wxSizer& column, const std::string& name, std::string_view caption);

  wxWindow& m_panel;
  wxBoxSizer* m_content;
  wxSizer* m_frame = nullptr;
};

}  // namespace quorvel
