#include <gtest/gtest.h>

#include <memory>

#include <wx/debug.h>
#include <wx/modalhook.h>

#include "platform/wx/Text.h"
#include "platform/wx/WindowSystem.h"
#include "tests/support/wx/ModalScript.h"
#include "tests/support/wx/Watchdog.h"

namespace quorvel::test {
namespace {

constexpr std::chrono::seconds kPatience{120};

class ScriptHook : public wxModalDialogHook {
 protected:
  int Enter(wxDialog* dialog) override { return ModalScript::Answer(*dialog); }
};

/// What the toolkit takes for a mistake of its user fails the test that makes it.
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
  // Both belong to the framework from here on.
  ::testing::AddGlobalTestEnvironment(new quorvel::test::WindowEnvironment);
  ::testing::UnitTest::GetInstance()->listeners().Append(new quorvel::test::Watchdog(quorvel::test::kPatience));
  return RUN_ALL_TESTS();
}
