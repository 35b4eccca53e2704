#include <gtest/gtest.h>
#include <unistd.h>

#include <wx/debug.h>
#include <wx/modalhook.h>

#include "platform/wx/Text.h"
#include "platform/wx/WindowSystem.h"
#include "tests/support/wx/ModalScript.h"

namespace quorvel::test {
namespace {

class ScriptHook : public wxModalDialogHook {
 protected:
  int Enter(wxDialog* dialog) override { return ModalScript::Answer(*dialog); }
};

/// Ends the program when a test hangs, because a window that waits for a person would hold up all later tests.
class Watchdog : public ::testing::EmptyTestEventListener {
 public:
  void OnTestStart(const ::testing::TestInfo& /*test*/) override { ::alarm(120); }
  void OnTestEnd(const ::testing::TestInfo& /*test*/) override { ::alarm(0); }
};

/// An assertion of the toolkit fails the test that violates it.
void FailAssertion(const wxString& file, int line, const wxString& function, const wxString& condition,
                   const wxString& message) {
  ADD_FAILURE_AT(file.utf8_str(), line) << function.utf8_str() << ": " << condition.utf8_str() << " "
                                        << message.utf8_str();
}

class WindowEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    ui::RequireWindowSystem();
    wxSetAssertHandler(FailAssertion);
    m_hook.Register();
  }
  void TearDown() override { m_hook.Unregister(); }

 private:
  ScriptHook m_hook;
};

}  // namespace
}  // namespace quorvel::test

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  // The framework owns both from here on.
  ::testing::AddGlobalTestEnvironment(new quorvel::test::WindowEnvironment);
  ::testing::UnitTest::GetInstance()->listeners().Append(new quorvel::test::Watchdog);
  return RUN_ALL_TESTS();
}
