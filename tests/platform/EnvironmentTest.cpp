#include "platform/Environment.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quorvel {
namespace {

TEST(Environment, WarningsNeverThrow) {
  RedirectWarnings([](std::string_view) { throw std::runtime_error("the log is gone"); });
  EXPECT_NO_THROW(LogWarning("lost"));
  RedirectWarnings({});
  EXPECT_NO_THROW(LogWarning("to the system's log,\r\nfrom a test"));
}

}  // namespace
}  // namespace quorvel
