#include <gmock/gmock.h>
#include <pwd.h>
#include <unistd.h>

#include <thread>

#include "data/modUserName.h"
#include "data/modWaitCursor.h"
#include "tests/support/ScriptedPrompts.h"

namespace quorvel {
namespace {

using testing::ElementsAre;
constexpr auto kHourglass = PointerShape::Hourglass;
constexpr auto kDefault = PointerShape::Default;

TEST(WaitCursor, ShowsWhileAWaitIsPending) {
  const test::PromptsGuard prompts;
  modWaitCursor::BeginWait();
  modWaitCursor::BeginWait();
  modWaitCursor::EndWait();
  EXPECT_THAT(prompts->pointers, ElementsAre(kHourglass));
  modWaitCursor::EndWait();
  modWaitCursor::EndWait();
  EXPECT_THAT(prompts->pointers, ElementsAre(kHourglass, kDefault));
  modWaitCursor::BeginWait();
  EXPECT_EQ(prompts->pointers.back(), kHourglass) << "an extra EndWait is not counted";

  modWaitCursor::BeginWait();
  modWaitCursor::ResetWait();
  modWaitCursor::EndWait();
  modWaitCursor::BeginWait();
  EXPECT_THAT(prompts->pointers, ElementsAre(kHourglass, kDefault, kHourglass, kDefault, kHourglass));
  std::jthread([] { modWaitCursor::EndWait(); }).join();
  EXPECT_EQ(prompts->pointers.size(), 5U) << "each thread counts its own waits";
  modWaitCursor::ResetWait();
}

TEST(UserName, IsThatOfTheEffectiveUser) { EXPECT_EQ(modUserName::GetUserName(), ::getpwuid(::geteuid())->pw_name); }

}  // namespace
}  // namespace quorvel
