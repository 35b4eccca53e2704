#include "platform/wx/WindowSystem.h"

#include <mutex>
#include <string>

#include <wx/app.h>
#include <wx/log.h>
#include <wx/thread.h>

#include "platform/Environment.h"
#include "platform/wx/Desktop.h"

namespace quorvel::ui {
namespace {

/// The toolkit's object for the program. The program is the host, so this object ends nothing and reports nothing.
class GuestApplication : public wxApp {
 public:
  GuestApplication() { SetExitOnFrameDelete(false); }
  bool OnInit() override { return true; }
  // The component's handlers handle their own errors. Any other error comes from the toolkit, and would end the host.
  bool OnExceptionInMainLoop() override { return true; }
  void ProcessPendingEvents() override {
    try {
      wxApp::ProcessPendingEvents();
    } catch (...) {
      WakeUpIdle();
    }
  }
  void OnUnhandledException() override {}
  // The default is a window with a debugger's questions.
  void OnAssertFailure(const wxChar* /*file*/, int /*line*/, const wxChar* /*function*/, const wxChar* /*condition*/,
                       const wxChar* /*message*/) override {}
};

void Start() {
  RequireDesktop();
  // The toolkit owns it from here on and deletes it when it does not start.
  wxApp::SetInstance(new GuestApplication);
  if (!StartToolkit()) throw NoWindowError("the windows' toolkit does not start");
  // The toolkit would open windows for its log messages.
  wxLog::EnableLogging(false);
}

}  // namespace

NoWindow NoWindowError(std::string_view reason) {
  return {ErrorNumber::Component, std::string(kApplicationName), "No window can be opened: " + std::string(reason)};
}

void RequireWindowSystem() {
  static std::mutex starting;
  const std::lock_guard lock(starting);
  if (wxAppConsole::GetInstance() == nullptr) {
    Start();
  } else if (!wxThread::IsMain()) {
    throw NoWindowError(kOtherThreadHasWindows);
  } else if (!wxAppConsole::GetInstance()->IsGUI()) {
    throw NoWindowError("the program runs the windows' toolkit without windows");
  }
}

}  // namespace quorvel::ui
