#pragma once

#include <string>

namespace quorvel {

class RemarkContext;

/// "Acme Tools [C1044] Customer Remarks [SQL01]": the title of the windows on an owner's remarks.
[[nodiscard]] std::string OwnerTitle(const RemarkContext& context);

}  // namespace quorvel
