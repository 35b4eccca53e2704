#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>

class wxDialog;

namespace quorvel::test {

/// Answers the modal windows that open while it lives, in the order of the expectations. A window that is not the next
/// expected one fails the test and gets the answer Cancel without being shown, so that nothing waits for a person. An
/// expectation without a window fails the test at the end, also after an exception. Scripts nest: the latest answers.
///
/// A window that opens without a script fails the test too.
class ModalScript {
 public:
  /// The action of the test in a window that is shown.
  using Action = std::function<void(wxDialog&)>;

  ModalScript();
  ~ModalScript();
  ModalScript(const ModalScript&) = delete;
  ModalScript& operator=(const ModalScript&) = delete;

  /// A window with exactly this title. It is shown, and then `act` runs with the window as a `Dialog`. A window that is
  /// still open afterwards fails the test and is closed.
  template <typename Dialog>
  void ExpectWindow(const std::string& title, std::function<void(Dialog&)> act) {
    ExpectWindow(title, Action([act = std::move(act)](wxDialog& window) {
                   auto* dialog = dynamic_cast<Dialog*>(&window);
                   if (dialog == nullptr) return FailFor(window, "is of another class");
                   act(*dialog);
                 }));
  }
  void ExpectWindow(const std::string& title, Action act);

  /// The next window, whatever it is: for boxes as the desktop draws them.
  void ExpectShown(Action act) { m_expectations.push_back({kAnyWindow, std::move(act)}); }

  /// Called by the test program's hook for each window. Returns the answer, or wxID_NONE to show the window.
  static int Answer(wxDialog& dialog);

 private:
  static constexpr const char* kAnyWindow = "any window";
  struct Expectation {
    std::string description;
    Action act;
  };

  static void FailFor(wxDialog& dialog, const std::string& what);
  static void Act(wxDialog& dialog, const Action& act);

  std::deque<Expectation> m_expectations;
  ModalScript* m_outer;
};

}  // namespace quorvel::test
