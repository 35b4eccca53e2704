#pragma once

#include <string_view>

#include "tests/support/tds/StandInServer.h"

namespace quorvel::test {

/// Writes these four values into the current settings store and makes modDatabase of this thread connect by them.
void UseSettings(std::string_view server, std::string_view database, std::string_view userId = {},
                 std::string_view password = {});
/// The same with those of a stand-in server and a driver for it.
void UseSettings(const StandInServer& server);

}  // namespace quorvel::test
