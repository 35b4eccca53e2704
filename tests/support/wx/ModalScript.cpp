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

ModalScript* latest = nullptr;

/// The text by which a failure names a window.
std::string Describe(const wxDialog& dialog) {
  const auto* box = dynamic_cast<const wxMessageDialog*>(&dialog);
  return "window \"" + ui::FromWx(box != nullptr ? box->GetMessage() : dialog.GetTitle()) + "\"";
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

void ModalScript::ExpectWindow(const std::string& title, Action act) {
  m_expectations.push_back({"window \"" + title + "\"", std::move(act)});
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
  if (next.description != kAnyWindow && next.description != Describe(dialog)) {
    FailFor(dialog, "expected " + next.description);
    return Refusal(dialog);
  }
  dialog.CallAfter([&dialog, act = next.act] { Act(dialog, act); });
  return wxID_NONE;
}

}  // namespace quorvel::test
