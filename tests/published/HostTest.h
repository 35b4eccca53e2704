#pragma once

/// Matchers and the fixture that the tests of the published interfaces share.

#include <gmock/gmock.h>

#include "tests/support/HostCalls.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::test {

MATCHER_P(HasText, part, "contains " + testing::PrintToString(part)) {
  return WideView(arg).find(part) != WideView::npos;
}

MATCHER_P(BeginsWith, start, "begins with " + testing::PrintToString(start)) {
  return WideView(arg).starts_with(start);
}

/// The HRESULT of a number of the language runtime.
constexpr HRESULT FromNumber(std::uint32_t number) { return static_cast<HRESULT>(0x800A0000U + number); }

/// A host with a sample database. After each test the host must hold nothing of the component.
class HostTest : public testing::Test {
 protected:
  ~HostTest() override { EXPECT_EQ(DllCanUnloadNow(), S_OK) << "a reference was lost"; }

  TestDatabase m_database;
};

/// A host that has loaded customer C1044 for a user who may read everything.
class LoadedHostTest : public HostTest {
 protected:
  const LoadedContext m_context;
};

}  // namespace quorvel::test
