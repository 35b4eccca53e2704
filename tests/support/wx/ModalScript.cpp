// The program's hook asks the latest script before a window is shown. A window that is shown gets the test's action
// from the event loop.

#include "tests/support/wx/ModalScript.h"

#include <gtest/gtest.h>

#include <exception>
#include <utility>

#include <wx/dialog.h>
#include <wx/msgdlg.h>

#include "platform/wx/Text.h"
#include "tests/support/wx/WaitFor.h"

namespace quorvel::test {
namespace {

constexpr long kBoxStyle = wxYES_NO | wxOK | wxICON_QUESTION | wxICON_EXCLAMATION | wxICON_NONE;

ModalScript* latest = nullptr;

std::string Text(const wxString& text) { return ui::FromWx(text); }

/// The text by which a failure names a window.
std::string Describe(const wxDialog& dialog) {
  if (const auto* box = dynamic_cast<const wxMessageDialog*>(&dialog)) {
    return "message \"" + Text(box->GetMessage()) + "\" titled \"" + Text(box->GetCaption()) + "\" in style " +
           std::to_string(box->GetMessageDialogStyle() & kBoxStyle);
  }
  return "window \"" + Text(dialog.GetTitle()) + "\"";
}

/// Yes/No questions are asked again after Cancel, so they get No.
int Refusal(const wxDialog& dialog) {
  const auto* box = dynamic_cast<const wxMessageDialog*>(&dialog);
  return box != nullptr && (box->GetMessageDialogStyle() & wxYES_NO) != 0 ? wxID_NO : wxID_CANCEL;
}

}  // namespace

ModalScript::ModalScript() : m_outer(std::exchange(latest, this)) {}

ModalScript::~ModalScript() {
  latest = m_outer;
  for (const auto& expectation : m_expectations) ADD_FAILURE() << "not opened: " << expectation.description;
}

ModalScript& ModalScript::Expect(std::string description, std::function<std::optional<int>(wxDialog&)> answer) {
  m_expectations.push_back({std::move(description), std::move(answer)});
  return *this;
}

ModalScript& ModalScript::ExpectMessage(const std::string& text, const std::string& title, long style, int answer) {
  std::string description =
      "message \"" + text + "\" titled \"" + title + "\" in style " + std::to_string(style & kBoxStyle);
  return Expect(description, [description, answer](wxDialog& dialog) {
    return Describe(dialog) == description ? std::optional(answer) : std::nullopt;
  });
}

ModalScript& ModalScript::ExpectWindow(const std::string& title, Action act) {
  std::string description = "window \"" + title + "\"";
  return Expect(description, [description, act = std::move(act)](wxDialog& dialog) -> std::optional<int> {
    return Describe(dialog) == description ? std::optional(ShowAndAct(dialog, act)) : std::nullopt;
  });
}

ModalScript& ModalScript::ExpectShown(Action act) {
  return Expect("any window", [act = std::move(act)](wxDialog& dialog) { return ShowAndAct(dialog, act); });
}

int ModalScript::ShowAndAct(wxDialog& dialog, const Action& act) {
  dialog.CallAfter([&dialog, act] { Act(dialog, act); });
  return wxID_NONE;
}

void ModalScript::Act(wxDialog& dialog, const Action& act) {
  try {
    act(dialog);
  } catch (const std::exception& error) {
    FailFor(dialog, std::string("the test threw: ") + error.what());
  }
  if (!dialog.IsModal()) return;
  FailFor(dialog, "was left open");
  dialog.EndModal(wxID_CANCEL);
}

void ModalScript::FailFor(wxDialog& dialog, const std::string& what) {
  ADD_FAILURE() << Describe(dialog) << ": " << what;
}

int ModalScript::Answer(wxDialog& dialog) {
  if (latest == nullptr || latest->m_expectations.empty()) {
    FailFor(dialog, "no script expects it");
    return Refusal(dialog);
  }
  const Expectation next = std::move(latest->m_expectations.front());
  latest->m_expectations.pop_front();
  const auto answer = next.answer(dialog);
  if (!answer) FailFor(dialog, "expected " + next.description);
  return answer.value_or(Refusal(dialog));
}

}  // namespace quorvel::test
