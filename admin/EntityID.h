#pragma once

#include <cstdint>
#include <string>

namespace quorvel {

/// Reads the ID of a remark entity. The empty text when there is none with that key. Error 91 when the statement fails,
/// which the user has then seen.
[[nodiscard]] std::string ReadEntityID(std::int32_t entityKey);

}  // namespace quorvel
