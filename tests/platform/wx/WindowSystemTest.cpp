#include "platform/wx/WindowSystem.h"

#include <gmock/gmock.h>
#include <gtk/gtk.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>

#include <wx/app.h>
#include <wx/init.h>

#include "platform/Environment.h"
#include "platform/Error.h"
#include "platform/wx/ModalDialog.h"

namespace quorvel::ui {
namespace {

/// Says on the standard error what went otherwise than expected and ends the program.
void Require(bool condition, const std::string& what) {
  if (condition) return;
  std::fprintf(stderr, "%s\n", what.c_str());
  std::_Exit(EXIT_FAILURE);
}

[[noreturn]] void InHost(const std::function<void()>& scenario) {
  try {
    scenario();
  } catch (const std::exception& error) {
    Require(false, error.what());
  }
  std::_Exit(EXIT_SUCCESS);
}

/// `scenario` passes in a host of its own, on whose standard error there is then `errors`.
void Passes(const std::function<void()>& scenario,
            const ::testing::Matcher<const std::string&>& errors = std::string()) {
  EXPECT_EXIT(InHost(scenario), ::testing::ExitedWithCode(EXIT_SUCCESS), errors);
}

/// The toolkit comes too late in a host that has started GTK to keep it from the locale; GTK says so, once.
const auto kOnlyToldTooLate = ::testing::ContainsRegex("^[^\n]*\n[^\n]*gtk_disable_setlocale[^\n]*\n$");

void RequireRefusal(const std::string& reason) {
  try {
    RequireWindowSystem();
  } catch (const Error& error) {
    Require(error.Number() == -1 && error.Source() == "Quorvel", "wrong error " + error.Source());
    Require(error.Description() == "No window can be opened: " + reason, error.Description());
    return;
  }
  Require(false, "not refused: " + reason);
}

constexpr const char* kOtherThread =
    "another thread of the program has windows already, and only one thread can have them";

class Window : public ModalDialog {
 public:
  Window() : ModalDialog("Window") {}
  void Open() {
    RunModal([this] { Finish(); });
  }
};

TEST(WindowSystem, LeavesTheHostItsLocaleAndItsEnvironment) {
  for (const char* locale : {"C", "C.utf8",
                             "LC_CTYPE=C.utf8;LC_NUMERIC=C;LC_TIME=C;LC_COLLATE=C.utf8;LC_MONETARY=C;"
                             "LC_MESSAGES=C;LC_PAPER=C;LC_NAME=C;LC_ADDRESS=C;LC_TELEPHONE=C;"
                             "LC_MEASUREMENT=C;LC_IDENTIFICATION=C"}) {
    Passes([locale] {
      ::setenv("LC_ALL", "C.utf8", 1);
      Require(std::setlocale(LC_ALL, locale) != nullptr, "no locale");
      const auto state = [] {
        std::string text = std::setlocale(LC_ALL, nullptr);
        for (char** variable = environ; *variable != nullptr; ++variable) text.append("\n").append(*variable);
        return text;
      };
      const std::string before = state();
      Window().Open();
      Require(state() == before, "before:\n" + before + "\nafter:\n" + state());
    });
  }
}

TEST(WindowSystem, SaysThatThereIsNoDisplayUntilThereIsOne) {
  Passes([] {
    const std::string display = EnvironmentVariable("DISPLAY");
    ::unsetenv("DISPLAY");
    for (int i = 0; i < 3; ++i) RequireRefusal("there is no display, DISPLAY is not set");
    ::setenv("DISPLAY", ":4711", 1);
    for (int i = 0; i < 3; ++i) RequireRefusal("the display \":4711\", which DISPLAY names, does not answer");
    ::setenv("DISPLAY", display.c_str(), 1);
    Window().Open();
  });
}

TEST(WindowSystem, BelongsToOneThread) {
  Passes([] {
    std::thread([] { Window().Open(); }).join();
    RequireRefusal(kOtherThread);
  });
  Passes([] {
    Window().Open();
    std::thread([] { RequireRefusal(kOtherThread); }).join();
    Window().Open();
  });
  // The host's loop runs on another thread.
  Passes(
      [] {
        gtk_init(nullptr, nullptr);
        Require(g_main_context_acquire(nullptr) != FALSE, "no context");
        std::thread([] { RequireRefusal(kOtherThread); }).join();
        g_main_context_release(nullptr);
        Window().Open();
      },
      kOnlyToldTooLate);
}

TEST(WindowSystem, KeepsTheApplicationOfAHostWithTheSameToolkit) {
  Passes([] {
    int count = 0;
    auto* application = new wxApp;
    wxApp::SetInstance(application);
    Require(wxEntryStart(count, static_cast<wxChar**>(nullptr)), "not started");
    Window().Open();
    Require(wxAppConsole::GetInstance() == application, "another application");
    std::thread([] { RequireRefusal(kOtherThread); }).join();
  });
  Passes([] {
    int count = 0;
    wxAppConsole::SetInstance(new wxAppConsole);
    Require(wxEntryStart(count, static_cast<wxChar**>(nullptr)), "not started");
    RequireRefusal("the program runs the windows' toolkit without windows");
  });
}

TEST(WindowSystem, IsRefusedBesideAnotherVersionOfGtk) {
  Passes([] {
    const GType type =
        g_type_register_static_simple(G_TYPE_INITIALLY_UNOWNED, "GtkWidget", sizeof(GInitiallyUnownedClass), nullptr,
                                      sizeof(GInitiallyUnowned), nullptr, GTypeFlags{});
    Require(type != 0, "not registered");
    for (int i = 0; i < 2; ++i) {
      RequireRefusal("the program uses another version of GTK, and GTK 3 cannot run beside it");
    }
  });
}

TEST(WindowSystem, LeavesTheLoopOfAHostRunning) {
  Passes(
      [] {
        gtk_init(nullptr, nullptr);
        int opened = 0;
        const auto open = [](gpointer count) -> gboolean {
          Window().Open();
          return ++*static_cast<int*>(count) < 2 ? TRUE : FALSE;
        };
        g_timeout_add(10, open, &opened);
        bool isStillRunning = false;
        const auto quit = [](gpointer running) -> gboolean {
          *static_cast<bool*>(running) = true;
          gtk_main_quit();
          return FALSE;
        };
        g_timeout_add(1000, quit, &isStillRunning);
        gtk_main();
        Require(isStillRunning && opened == 2, "the loop ended after " + std::to_string(opened));
      },
      kOnlyToldTooLate);
}

TEST(WindowSystem, WhatTheToolkitIsLeftWithDoesNotEndTheHost) {
  Passes([] {
    class Careless : public ModalDialog {
     public:
      Careless() : ModalDialog("Careless") {
        Bind(wxEVT_SHOW, [](wxShowEvent& event) {
          event.Skip();
          if (event.IsShown()) throw std::runtime_error("not guarded");
        });
      }
      void Open() {
        RunModal([this] {
          CallAfter([] { throw std::runtime_error("not guarded"); });
          CallAfter([this] { Finish(); });
        });
      }
    };
    Careless().Open();
  });
}

}  // namespace
}  // namespace quorvel::ui
