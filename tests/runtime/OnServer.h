#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "data/modDatabase.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TestDatabase.h"
#include "tests/support/TestSettings.h"
#include "tests/support/tds/StandInServer.h"

namespace quorvel::test {

inline Part OneRow() { return {Part::Kind::Rows, {}, 0, {{"n", ado::DataType::Integer}}, {{std::int64_t{1}}}}; }

/// FreeTDS's text of the calls that a load sends together.
inline constexpr const char* kContextTypesRights =
    "exec spTWCqvGetContext @P1 exec sp_executesql @P2 exec spTWCqvGetRemarkTypes @P3 exec sp_executesql @P4 "
    "exec spTWCqvGetUserRights @P5 ";

/// The sample database behind a server that the settings of the thread name.
class OnServer : public testing::Test {
 protected:
  OnServer() { UseSettings(m_server); }
  [[nodiscard]] std::string MemoCount() const { return m_file.Ask("SELECT COUNT(*) FROM tciMemo"); }
  /// A copy, which a loss does not take away.
  [[nodiscard]] static std::shared_ptr<ado::Connection> ConnectionNow() { return modDatabase::SharedConnection(); }

  PromptsGuard m_prompts;
  TestDatabase m_file;
  StandInServer m_server{m_file.DatabaseFile()};
};

}  // namespace quorvel::test
