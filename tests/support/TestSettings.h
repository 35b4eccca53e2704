#pragma once

#include <string_view>

namespace quorvel::test {

/// Writes these four values into the current settings store and makes modDatabase of this thread connect by them.
void UseSettings(std::string_view server, std::string_view database, std::string_view userId = {},
                 std::string_view password = {});

}  // namespace quorvel::test
