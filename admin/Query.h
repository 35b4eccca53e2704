#pragma once

#include <memory>
#include <string_view>

#include "ado/Recordset.h"

namespace quorvel {

/// modDatabase::LoadRst for callers that need the rows: error 91 when the load failed, which the user has then seen.
[[nodiscard]] std::shared_ptr<ado::Recordset> Query(std::string_view sql);
/// The same, detached from the connection, for rows that a grid goes on showing.
[[nodiscard]] std::shared_ptr<ado::Recordset> QueryDetached(std::string_view sql);

}  // namespace quorvel
