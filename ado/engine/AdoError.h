#pragma once

#include <cstdint>
#include <string_view>

namespace quorvel::ado {

/// Throws the Error of a wrong use of connections, commands and recordsets: ADO's own sentence for `number` (one of
/// ErrorNumber::Ado...), then `detail`, which says what it is about. The source is "Quorvel.ADO".
[[noreturn]] void ThrowAdoError(std::int32_t number, std::string_view detail = {});

}  // namespace quorvel::ado
