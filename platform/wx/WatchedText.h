#pragma once

#include <memory>

#include "platform/wx/EditHistory.h"

class wxTextCtrl;

namespace quorvel::ui {

/// The text of a box of several lines, whose changes go into a history. It has one body for each desktop.
class WatchedText {
 public:
  /// Adds each change that the user makes to `history`. Both arguments outlive the object.
  WatchedText(wxTextCtrl& box, EditHistory& history);
  ~WatchedText();
  WatchedText(const WatchedText&) = delete;
  WatchedText& operator=(const WatchedText&) = delete;

  /// Makes changes without adding them to the history, and shows their place. The box sends the events of typing.
  void Make(const EditHistory::Changes& changes);
  /// To be called when the program has put another text into the box.
  void Renew();

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace quorvel::ui
