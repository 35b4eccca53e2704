#pragma once

#include <string_view>

namespace quorvel::test {

/// Puts these four values into the settings store in force and makes modDatabase of this thread open a connection
/// by them.
void UseSettings(std::string_view server, std::string_view database, std::string_view userId = {},
                 std::string_view password = {});

}  // namespace quorvel::test
