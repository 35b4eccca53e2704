#pragma once

#include <string>

#include "runtime/RemarkContext.h"

namespace quorvel::cli {

/// A loaded context as JSON. Bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] std::string ListAsJson(const RemarkContext& context);

}  // namespace quorvel::cli
