#include "platform/wx/GuardedWindow.h"

#include <string>

#include <wx/display.h>

#include "platform/CurrentPrompts.h"
#include "platform/Environment.h"
#include "platform/Error.h"
#include "platform/wx/Desktop.h"
#include "platform/wx/Picture.h"

namespace quorvel::ui {
namespace {

Error ErrorOf(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const Error& error) {
    return error;
  } catch (const std::exception& error) {
    return {ErrorNumber::Component, std::string(kApplicationName), error.what()};
  } catch (...) {
    return {ErrorNumber::Component, std::string(kApplicationName), "An unknown error occurred"};
  }
}

}  // namespace

GuardedWindow::GuardedWindow(wxTopLevelWindow& window) : m_window(window) {
  // The toolkit does not say so, and controls of a window that does not exist would end the process.
  if (window.GetHandle() == nullptr) throw NoWindowError(kSystemMakesNone);
  m_window.SetIcons(ProductIcons());
  m_window.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    KeepSmallest();
  });
}

void GuardedWindow::HandleFailure(std::exception_ptr failure) noexcept {
  const auto giveUp = [](const std::exception_ptr& /*noBox*/) {};
  RunGuarded(
      [&] {
        const Error error = ErrorOf(failure);
        CurrentPrompts().ShowMessage(error.Description(), "Error in " + error.Source(), PromptButtons::Ok,
                                     PromptIcon::Exclamation);
      },
      giveUp);
}

void GuardedWindow::SetSmallestInside(const wxSize& smallest) {
  m_smallest = smallest;
  m_border = m_window.GetSize() - m_window.GetClientSize();
  m_window.SetMinClientSize(smallest);
}

TwipSize GuardedWindow::Room() const {
  const wxSize area = wxDisplay(&m_window).GetClientArea().GetSize();
  const TwipScale scale = Scale();
  return {.width = scale.ToTwips(area.x), .height = scale.ToTwips(area.y)};
}

void GuardedWindow::PlaceInMiddle(const wxSize& wanted) {
  wxSize inside = wanted;
  inside.DecTo(Scale().ClientSizeFor(Room()));
  m_window.SetClientSize(inside);
  m_window.CentreOnScreen();
}

// The toolkit limits the whole window, but learns the width of the border only when the window is on the screen.
void GuardedWindow::KeepSmallest() {
  if (m_smallest == wxSize() || m_window.IsIconized()) return;
  if (m_window.GetSize() - m_window.GetClientSize() != m_border) SetSmallestInside(m_smallest);
  wxSize inside = m_window.GetClientSize();
  inside.IncTo(m_smallest);
  if (inside != m_window.GetClientSize()) m_window.SetClientSize(inside);
}

}  // namespace quorvel::ui
