#pragma once

#include <string>

namespace quorvel {

class RemarkContext;

/// The title of the windows that show an owner's remarks: "Acme Tools [C1044] Customer Remarks [SQL01]".
[[nodiscard]] std::string OwnerTitle(const RemarkContext& context);

}  // namespace quorvel
