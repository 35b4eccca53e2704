#include <unistd.h>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace quorvel::test {
namespace {

using Leaks = HostTest;

/// A host that touches everything that it has to release.
void UseEverything() {
  const LoadedContext context;
  const auto list = context.List();
  const auto type = context.Type(LONG{1});
  Reference<IUnknown> remarks;
  EXPECT_EQ(list->get_NewEnum(remarks.Put()), S_OK);
  Reference<_Remark> added;
  EXPECT_EQ(list->Add(added.Put()), S_OK);
  EXPECT_EQ(added->putref_RemarkType(type.Get()), S_OK);
  EXPECT_EQ(list->Backup(), S_OK);
  EXPECT_EQ(CallGet(context.Get(), u"Item", {u"none"}).invoked, S_OK);
  EXPECT_EQ(CallGet(context.Get(), u"AddRemark", {u"none", u"text"}).result, -1);
  EXPECT_EQ(list->Save(), S_OK);
  EXPECT_EQ(context->Load(Text(u"None").Get(), nullptr, nullptr), -1);
}

/// Loads and releases a context without disposing of it.
void ForgetDispose() {
  const auto context = NewContext();
  EXPECT_EQ(context->Load(Text(u"CustMaint").Get(), Text(u"C1044").Get(), Text(u"admin").Get()), S_OK);
}

/// The same where the leak is meant and should not fail the whole program.
void ForgetDisposeOnPurpose() {
#ifdef __SANITIZE_ADDRESS__
  const __lsan::ScopedDisabler meant;
#endif
  ForgetDispose();
}

TEST_F(Leaks, OneForgottenContextLeavesTheOthersAlone) {
  Run([] {
    const LoadedContext context;
    ForgetDisposeOnPurpose();
    EXPECT_EQ(context->RefreshRemarkList(), S_OK);
    EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_MemoCount), 7);
  });
  EXPECT_EQ(DllCanUnloadNow(), S_OK) << "no host holds it any more";
  Run(UseEverything);
}

#ifdef __SANITIZE_ADDRESS__

/// Runs a host and ends the process: with 0 when memory was lost, else with 1.
template <typename Host>
[[noreturn]] void EndAfter(Host host) {
  std::thread(host).join();
  ::_exit(__lsan_do_recoverable_leak_check() != 0 ? 0 : 1);
}

class LeaksDeathTest : public Leaks {
 protected:
  LeaksDeathTest() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(LeaksDeathTest, NothingIsLostWhenEverythingIsReleased) {
  EXPECT_EXIT(EndAfter(UseEverything), testing::ExitedWithCode(1), "");
}

// Shows that the check above sees what it is there to see.
TEST_F(LeaksDeathTest, AContextThatIsNotDisposedOfIsLost) {
  EXPECT_EXIT(EndAfter(ForgetDispose), testing::ExitedWithCode(0), "RemarkContext");
}

#endif

}  // namespace
}  // namespace quorvel::test
