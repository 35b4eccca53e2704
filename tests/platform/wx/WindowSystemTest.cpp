// The toolkit starts once in a process, so each scenario runs in a host process of its own.
#include "platform/wx/WindowSystem.h"

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
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
#include "tests/support/wx/TestWindow.h"

namespace quorvel::ui {
namespace {

[[noreturn]] void RunHost(const std::function<void()>& scenario) {
  scenario();
  // The framework reports no failures of a process that it expects to end.
  const auto& result = *::testing::UnitTest::GetInstance()->current_test_info()->result();
  for (int i = 0; i < result.total_part_count(); ++i) {
    std::fprintf(stderr, "%s\n", result.GetTestPartResult(i).summary());
  }
  std::_Exit(result.Failed() ? EXIT_FAILURE : EXIT_SUCCESS);
}

/// The host writes `errors` to its standard error and nothing else.
void InHost(const std::function<void()>& scenario,
            const ::testing::Matcher<const std::string&>& errors = std::string()) {
  EXPECT_EXIT(RunHost(scenario), ::testing::ExitedWithCode(EXIT_SUCCESS), errors);
}

/// In a host that has started GTK, the toolkit starts too late to keep GTK from the locale, and GTK reports that once.
const auto kOnlyLocaleWarning = ::testing::ContainsRegex("^[^\n]*\n[^\n]*gtk_disable_setlocale[^\n]*\n$");

void ExpectRefusal(const std::string& reason) {
  EXPECT_THAT(test::Caught(RequireWindowSystem), test::IsError(-1, "Quorvel", "No window can be opened: " + reason));
}

void ExpectOtherThreadHasWindows() {
  ExpectRefusal("another thread of the program has windows already, and only one thread can have them");
}

void OpenWindow() {
  test::TestWindow window("Window");
  window.RunModal([&] { window.Finish(); });
}

void StartToolkitOfHost(wxAppConsole* application) {
  wxAppConsole::SetInstance(application);
  int count = 0;
  ASSERT_TRUE(wxEntryStart(count, static_cast<wxChar**>(nullptr)));
}

TEST(WindowSystem, KeepsLocaleAndEnvironmentOfHost) {
  for (const int category : {LC_ALL, LC_CTYPE, LC_NUMERIC}) {
    InHost([category] {
      const auto state = [] {
        std::string text = std::setlocale(LC_ALL, nullptr);
        for (char** variable = environ; *variable != nullptr; ++variable) text.append("\n").append(*variable);
        return text;
      };
      ::setenv("LC_ALL", "C.utf8", 1);
      ASSERT_NE(std::setlocale(category, "C.utf8"), nullptr);
      const std::string before = state();
      OpenWindow();
      EXPECT_EQ(state(), before);
    });
  }
}

TEST(WindowSystem, RefusesUntilThereIsADisplay) {
  InHost([] {
    const std::string display = EnvironmentVariable("DISPLAY");
    ::unsetenv("DISPLAY");
    for (int i = 0; i < 2; ++i) ExpectRefusal("there is no display, DISPLAY is not set");
    ::setenv("DISPLAY", ":4711", 1);
    for (int i = 0; i < 2; ++i) ExpectRefusal("the display \":4711\", which DISPLAY names, does not answer");
    ::setenv("DISPLAY", display.c_str(), 1);
    OpenWindow();
  });
}

TEST(WindowSystem, BelongsToOneThread) {
  InHost([] {
    OpenWindow();
    std::thread(ExpectOtherThreadHasWindows).join();
    OpenWindow();
  });
  InHost([] {
    std::thread(OpenWindow).join();
    ExpectOtherThreadHasWindows();
  });
  // The host's loop runs on another thread than the call.
  InHost(
      [] {
        gtk_init(nullptr, nullptr);
        ASSERT_TRUE(g_main_context_acquire(nullptr));
        std::thread(ExpectOtherThreadHasWindows).join();
        g_main_context_release(nullptr);
        OpenWindow();
      },
      kOnlyLocaleWarning);
}

TEST(WindowSystem, WorksInAHostWithTheSameToolkit) {
  InHost([] {
    auto* application = new wxApp;
    StartToolkitOfHost(application);
    OpenWindow();
    EXPECT_EQ(wxAppConsole::GetInstance(), application);
    std::thread(ExpectOtherThreadHasWindows).join();
  });
  InHost([] {
    StartToolkitOfHost(new wxAppConsole);
    ExpectRefusal("the program runs the windows' toolkit without windows");
  });
}

TEST(WindowSystem, RefusesBesideAnotherVersionOfGtk) {
  InHost([] {
    ASSERT_NE(g_type_register_static_simple(G_TYPE_INITIALLY_UNOWNED, "GtkWidget", sizeof(GInitiallyUnownedClass),
                                            nullptr, sizeof(GInitiallyUnowned), nullptr, GTypeFlags{}),
              0U);
    ExpectRefusal("the program uses another version of GTK, and GTK 3 cannot run beside it");
  });
}

TEST(WindowSystem, KeepsLoopOfHostRunning) {
  InHost(
      [] {
        gtk_init(nullptr, nullptr);
        int opened = 0;
        const auto open = [](gpointer count) -> gboolean {
          OpenWindow();
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
        EXPECT_TRUE(isStillRunning);
        EXPECT_EQ(opened, 2);
      },
      kOnlyLocaleWarning);
}

TEST(WindowSystem, UnguardedErrorsDoNotEndTheHost) {
  InHost([] {
    test::TestWindow window("Careless");
    window.Bind(wxEVT_SHOW, [](wxShowEvent& event) {
      event.Skip();
      if (event.IsShown()) throw std::runtime_error("not guarded");
    });
    window.RunModal([&] {
      window.CallAfter([] { throw std::runtime_error("not guarded"); });
      window.CallAfter([&] { window.Finish(); });
    });
  });
}

}  // namespace
}  // namespace quorvel::ui
