#include "tests/support/wx/WaitFor.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <thread>

#include <wx/app.h>
#include <wx/apptrait.h>
#include <wx/evtloop.h>
#include <wx/window.h>

namespace quorvel::test {
namespace {

constexpr auto kPatience = std::chrono::seconds(10);
constexpr auto kPause = std::chrono::milliseconds(5);

}  // namespace

void HandleEvents() {
  wxEventLoopBase* active = wxEventLoopBase::GetActive();
  // Outside a modal window no event loop is running.
  const std::unique_ptr<wxEventLoopBase> own(active == nullptr ? wxTheApp->GetTraits()->CreateEventLoop() : nullptr);
  const wxEventLoopActivator activator(active == nullptr ? own.get() : active);
  wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
  wxTheApp->ProcessPendingEvents();
}

void WaitUntilDrawn(wxWindow& window) {
  bool isDrawn = false;
  const auto drawn = [&isDrawn](wxPaintEvent& event) {
    event.Skip();
    isDrawn = true;
  };
  window.Bind(wxEVT_PAINT, drawn);
  window.Refresh();
  EXPECT_TRUE(WaitFor([&] { return isDrawn; }));
  window.Unbind(wxEVT_PAINT, drawn);
}

bool WaitFor(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    HandleEvents();
    std::this_thread::sleep_for(kPause);
  }
  return true;
}

}  // namespace quorvel::test
