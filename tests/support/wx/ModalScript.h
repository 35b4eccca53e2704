#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>

#include <wx/defs.h>

class wxDialog;

namespace quorvel::test {

/// Answers the modal windows that open while it lives, in the order of the expectations. Another window than the next
/// expected one fails the test and is answered with Cancel without being shown, so that nothing waits for a person; so
/// does an expectation that is left at the end, also after an exception. Scripts nest: the latest answers.
///
/// Every test program of windows refuses windows that no script expects.
class ModalScript {
 public:
  /// What the test does with a window that is shown.
  using Action = std::function<void(wxDialog&)>;

  ModalScript();
  ~ModalScript();
  ModalScript(const ModalScript&) = delete;
  ModalScript& operator=(const ModalScript&) = delete;

  /// A message box with exactly this text, title and style (as wxMessageDialog takes it; see kAsks and kRefuses). It is
  /// not shown; `answer` is wxID_YES, wxID_NO or wxID_OK.
  ModalScript& ExpectMessage(const std::string& text, const std::string& title, long style, int answer);
  static constexpr long kAsks = wxYES_NO | wxICON_QUESTION;
  static constexpr long kRefuses = wxOK | wxICON_EXCLAMATION;

  /// An input box with exactly this prompt and title. It is not shown; it gets `text`, or Cancel without one.
  ModalScript& ExpectInput(const std::string& prompt, const std::string& title, const std::optional<std::string>& text);

  /// A window with exactly this title. It is shown, and `act` runs when it is up, with the window as a `Dialog`. A
  /// window that is open still afterwards fails the test and is closed.
  template <typename Dialog>
  ModalScript& ExpectWindow(const std::string& title, std::function<void(Dialog&)> act) {
    return ExpectWindow(title, Action([this, act = std::move(act)](wxDialog& window) {
                          auto* dialog = dynamic_cast<Dialog*>(&window);
                          if (dialog == nullptr) return FailFor(window, "is of another class");
                          act(*dialog);
                        }));
  }
  ModalScript& ExpectWindow(const std::string& title, Action act);

  /// Whatever window comes next, which is shown: for boxes as the desktop draws them.
  ModalScript& ExpectShown(Action act);

  /// What the program's hook asks for each window: the answer, or wxID_NONE for one that is to be shown.
  static int Answer(wxDialog& dialog);

 private:
  struct Expectation {
    std::string description;
    /// The answer to the window, wxID_NONE to show it, nothing when it is another window than the expected one.
    std::function<std::optional<int>(wxDialog&)> answer;
  };

  static void FailFor(wxDialog& dialog, const std::string& what);
  static void Act(wxDialog& dialog, const Action& act);
  static int ShowAndAct(wxDialog& dialog, const Action& act);
  ModalScript& Expect(std::string description, std::function<std::optional<int>(wxDialog&)> answer);

  std::deque<Expectation> m_expectations;
  ModalScript* m_outer;
};

}  // namespace quorvel::test
