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

/// The toolkit's idea of the program, inside a host that is another program: it ends nothing and says nothing.
class GuestApplication : public wxApp {
 public:
  GuestApplication() { SetExitOnFrameDelete(false); }
  bool OnInit() override { return true; }
  // Handlers of the component report what they throw themselves. What is left comes out of the toolkit, and the
  // alternative is the end of the host.
  bool OnExceptionInMainLoop() override { return true; }
  void ProcessPendingEvents() override {
    try {
      wxApp::ProcessPendingEvents();
    } catch (...) {
      WakeUpIdle();
    }
  }
  void OnUnhandledException() override {}
  // By default a window with a debugger's questions.
  void OnAssertFailure(const wxChar* /*file*/, int /*line*/, const wxChar* /*function*/, const wxChar* /*condition*/,
                       const wxChar* /*message*/) override {}
};

void Start() {
  desktop::Require();
  // Owned by the toolkit from here on, which deletes it when it does not start.
  wxApp::SetInstance(new GuestApplication);
  if (!desktop::StartToolkit()) throw NoWindowError("the windows' toolkit does not start");
  // It would open windows of its own for what it logs.
  wxLog::EnableLogging(false);
}

}  // namespace

Error NoWindowError(std::string_view reason) {
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
