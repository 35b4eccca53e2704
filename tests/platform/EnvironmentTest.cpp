#include "platform/Environment.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

namespace quorvel {
namespace {

TEST(Environment, LogonNameMustFitWithItsTerminatingZero) {
  std::array<char, 256> buffer{};
  buffer.fill('*');
  ASSERT_TRUE(ReadLogonName(buffer));
  const std::size_t length = std::strlen(buffer.data());
  ASSERT_GT(length, 0U);
  EXPECT_TRUE(ReadLogonName(std::span(buffer).first(length + 1)));
  EXPECT_FALSE(ReadLogonName(std::span(buffer).first(length)));
  EXPECT_FALSE(ReadLogonName({}));
}

TEST(Environment, WarningsNeverThrow) {
  RedirectWarnings([](std::string_view) { throw std::runtime_error("the log is gone"); });
  EXPECT_NO_THROW(LogWarning("lost"));
  RedirectWarnings({});
  EXPECT_NO_THROW(LogWarning("to the system's log,\r\nfrom a test"));
}

}  // namespace
}  // namespace quorvel
