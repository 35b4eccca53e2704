#include "platform/wx/Desktop.h"

#include <gtk/gtk.h>

#include <clocale>
#include <optional>
#include <string>

#include <wx/init.h>

#include "platform/OperatingSystem.h"

namespace quorvel::ui::desktop {
namespace {

/// GTK sets the process's locale when it starts, which is the host's business.
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

/// A variable of the environment that the toolkit sets for its own start, which a host's children would inherit.
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

/// GTK 2 and GTK 4 have classes of the same names: with one of them in use, GTK 3 would end the process. Widgets have
/// another parent in GTK 2, and in GTK 4 they are no objects of ATK.
bool HostUsesOtherGtk() {
  const GType widget = g_type_from_name("GtkWidget");
  if (widget == 0) return false;
  const GType accessible = g_type_from_name("AtkImplementorIface");
  return g_type_parent(widget) != G_TYPE_INITIALLY_UNOWNED || accessible == 0 ||
         g_type_is_a(widget, accessible) == FALSE;
}

/// Whether another thread runs the loop that events come by.
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

void Require() {
  if (AnotherThreadRunsLoop()) throw NoWindowError(kOtherThreadHasWindows);
  if (HostUsesOtherGtk())
    throw NoWindowError("the program uses another version of GTK, and GTK 3 cannot run beside it");
  // The lower half of GTK's start. The toolkit makes the upper one, and it must be the first to.
  if (gdk_init_check(nullptr, nullptr) == FALSE) throw NoWindowError(MissingDisplay());
}

bool StartToolkit() {
  const LocaleKeeper locale;
  const VariableKeeper fileNames("G_FILENAME_ENCODING");
  int argumentCount = 0;
  return wxEntryStart(argumentCount, static_cast<wxChar**>(nullptr));
}

}  // namespace quorvel::ui::desktop
