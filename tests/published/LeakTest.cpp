#include <unistd.h>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace quorvel::test {
namespace {

using Leaks = HostTest;

/// A host that uses everything that it has to release.
void UseEverything() {
  const LoadedContext context;
  const auto list = context.List();
  const auto type = context.Type(LONG{1});
  const auto remarks = Read(list.Get(), &_RemarkList::get_NewEnum);
  const auto added = Read(list.Get(), &_RemarkList::Add);
  EXPECT_EQ(added->putref_RemarkType(type.Get()), S_OK);
  EXPECT_EQ(list->Backup(), S_OK);
  EXPECT_EQ(CallGet(context.Get(), u"Item", {u"none"}).invoked, S_OK);
  EXPECT_EQ(CallGet(context.Get(), u"AddRemark", {u"none", u"text"}).result, -1);
  EXPECT_EQ(list->Save(), S_OK);
  EXPECT_EQ(Load(context.Get(), u"None"), -1);
}

TEST_F(Leaks, HostThatUsesEverythingLosesNoReference) { Run(UseEverything); }

#ifdef __SANITIZE_ADDRESS__

/// Runs a host and ends the process, with 0 when there is a leak, else with 1.
template <typename Host>
[[noreturn]] void EndAfter(Host host) {
  std::thread(host).join();
  ::_exit(__lsan_do_recoverable_leak_check() != 0 ? 0 : 1);
}

class LeaksDeathTest : public Leaks {
 protected:
  LeaksDeathTest() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(LeaksDeathTest, NothingLeaksWhenEverythingIsReleased) {
  EXPECT_EXIT(EndAfter(UseEverything), testing::ExitedWithCode(1), "");
}

// Shows that the check above detects a leak.
TEST_F(LeaksDeathTest, ContextWithoutDisposeLeaks) {
  const auto forgetDispose = [] { EXPECT_EQ(Load(NewContext().Get(), u"CustMaint", u"C1044", u"admin"), S_OK); };
  EXPECT_EXIT(EndAfter(forgetDispose), testing::ExitedWithCode(0), "RemarkContext");
}

#endif

}  // namespace
}  // namespace quorvel::test
