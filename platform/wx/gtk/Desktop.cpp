// When GTK starts it changes the process's locale and environment, which belong to the host. This file checks first
// that GTK can start, and restores both afterwards.
#include "platform/wx/Desktop.h"

#include <gtk/gtk.h>

#include <clocale>
#include <optional>
#include <string>
#include <vector>

#include <wx/init.h>
#include <wx/window.h>

#include "platform/OperatingSystem.h"

namespace quorvel::ui {
namespace {

/// GTK sets the process's locale when it starts, but the locale belongs to the host.
class LocaleKeeper {
 public:
  LocaleKeeper() {
    const char* before = std::setlocale(LC_ALL, nullptr);
    if (before != nullptr) m_before = before;
  }
  ~LocaleKeeper() {
    if (!m_before.empty()) std::setlocale(LC_ALL, m_before.c_str());
  }
  LocaleKeeper(const LocaleKeeper&) = delete;
  LocaleKeeper& operator=(const LocaleKeeper&) = delete;

 private:
  std::string m_before;
};

/// Restores a variable of the environment: the toolkit sets it for its own start, and the host's children would inherit
/// it.
class VariableKeeper {
 public:
  explicit VariableKeeper(const char* name) : m_name(name), m_before(os::Variable(name)) {}
  ~VariableKeeper() {
    if (m_before == os::Variable(m_name)) return;
    if (m_before) {
      g_setenv(m_name, m_before->c_str(), TRUE);
    } else {
      g_unsetenv(m_name);
    }
  }
  VariableKeeper(const VariableKeeper&) = delete;
  VariableKeeper& operator=(const VariableKeeper&) = delete;

 private:
  const char* m_name;
  std::optional<std::string> m_before;
};

/// GTK 2 and GTK 4 have classes of the same names, and GTK 3 would end a process that uses one of them. Widgets have
/// another parent class in GTK 2; in GTK 4 they are not objects of ATK.
bool HostUsesOtherGtk() {
  const GType widget = g_type_from_name("GtkWidget");
  if (widget == 0) return false;
  const GType accessible = g_type_from_name("AtkImplementorIface");
  return g_type_parent(widget) != G_TYPE_INITIALLY_UNOWNED || accessible == 0 ||
         g_type_is_a(widget, accessible) == FALSE;
}

/// Whether another thread runs the loop that delivers events.
bool AnotherThreadRunsLoop() {
  if (g_main_context_acquire(nullptr) == FALSE) return true;
  g_main_context_release(nullptr);
  return false;
}

std::string MissingDisplay() {
  const auto name = os::Variable("DISPLAY");
  if (!name || name->empty()) return "there is no display, DISPLAY is not set";
  return "the display \"" + *name + "\", which DISPLAY names, does not answer";
}

}  // namespace

void RequireDesktop() {
  if (AnotherThreadRunsLoop()) throw NoWindowError(kOtherThreadHasWindows);
  if (HostUsesOtherGtk())
    throw NoWindowError("the program uses another version of GTK, and GTK 3 cannot run beside it");
  // This is the lower half of GTK's start. The upper half is the toolkit's, and the toolkit must be the first to run
  // it.
  if (gdk_init_check(nullptr, nullptr) == FALSE) throw NoWindowError(MissingDisplay());
}

bool StartToolkit() {
  const LocaleKeeper locale;
  const VariableKeeper fileNames("G_FILENAME_ENCODING");
  int argumentCount = 0;
  return wxEntryStart(argumentCount, static_cast<wxChar**>(nullptr));
}

// GDK takes note of the parts to draw when it reads an event from the display. The loop of GTK is not run: it would
// also run the timers of the host, which may call the component again.
void ReceiveEvents() {
  GdkDisplay* const display = gdk_display_get_default();
  if (display == nullptr) return;
  std::vector<GdkEvent*> events;
  while (GdkEvent* event = gdk_display_get_event(display)) events.push_back(event);
  for (GdkEvent* event : events) {
    gdk_display_put_event(display, event);
    gdk_event_free(event);
  }
}

void DrawNow(wxWindow& window) { window.Update(); }

// The desktop's theme is the same for all programs.
VisualStyles::VisualStyles() noexcept = default;

VisualStyles::~VisualStyles() = default;

}  // namespace quorvel::ui
