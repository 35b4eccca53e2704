#include <fmt/format.h>

#include <stdexcept>

#include "data/modError.h"
#include "platform/Environment.h"
#include "platform/Error.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvel {
namespace {

std::string Line(const char* place) {
  const Version version = ComponentVersion();
  return fmt::format("Quorvel.{}@PC17:jsmith[version {}.{}.{}]", place, version.major, version.minor, version.revision);
}

/// The error that a handler with RaiseError makes of `thrown`.
template <typename Thrown>
Error Passed(const Thrown& thrown, const char* procName, const char* context = "") {
  return test::Caught([&] {
    try {
      throw thrown;
    } catch (...) {
      modError::RaiseError("GridEXWrapper", procName, context);
    }
  });
}

class Errors : public testing::Test {
 protected:
  test::ScopedVariable m_computer{"COMPUTERNAME", "PC17"};
  test::ScopedVariable m_user{"USERNAME", "jsmith"};
};

TEST_F(Errors, ChainGrowsByOneLineAndContextIsAddedOnce) {
  const Error plain(6, "Plain", "Overflow");
  const Error inner = Passed(plain, "Inner", "Reading (all)");
  EXPECT_THAT(inner, test::IsError(6, Line("GridEXWrapper.Inner"), "Reading (all) encountered error 6 (Overflow)"))
      << "a source without a point is no chain";

  const Error outer = Passed(inner, "Outer", "Loading");
  EXPECT_EQ(outer.Source(), Line("GridEXWrapper.Inner") + "->\r\n" + Line("GridEXWrapper.Outer"));
  EXPECT_EQ(outer.Description(), inner.Description());
}

TEST_F(Errors, FirstHandlerWithAContextDescribes) {
  const Error first = Passed(Error(-2147217865, "Driver.Manager", "no table"), "SyncRecordset");
  EXPECT_EQ(first.Description(), "no table");
  EXPECT_EQ(first.Source(), "Driver.Manager->\r\n" + Line("GridEXWrapper.SyncRecordset"));
  EXPECT_EQ(Passed(first, "Outer", "Loading").Description(), "Loading encountered error -2147217865 (no table)");
}

TEST_F(Errors, ForeignExceptionBecomesAnError) {
  const Error foreign = Passed(std::runtime_error("v1.2 broke"), "Inner", "Reading");
  EXPECT_THAT(foreign, test::IsError(ErrorNumber::DbUnspecified, Line("GridEXWrapper.Inner"),
                                     "Reading encountered error -2147467259 (v1.2 broke)"));
  EXPECT_EQ(Passed(42, "Inner").Number(), ErrorNumber::DbUnspecified);
}

TEST_F(Errors, MissingVariablesLeaveGaps) {
  ::unsetenv("COMPUTERNAME");
  ::unsetenv("USERNAME");
  EXPECT_EQ(modError::ErrorSource("M", "P").substr(0, 23), "Quorvel.M.P@:[version 5");
}

}  // namespace
}  // namespace quorvel
