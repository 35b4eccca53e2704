#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "ado/Connection.h"

/// Procedures that a host may have written in its own way. Their text in the database tells whether it has.
namespace quorvel::cli {

/// The procedures that read and write the table of memos: a host whose table has other columns adapts them.
inline constexpr std::array<std::string_view, 4> kMemoProcedures = {"spTWCqvGetFilteredMemos", "spTWCqvAddRemark",
                                                                    "spTWCqvUpdateRemark", "spTWCqvDeleteRemark"};
/// The procedure that numbers the memos: a host may have one already.
inline constexpr std::string_view kKeyProcedure = "spGetNextSurrogateKey";

/// A number for the text of a procedure. CREATE or ALTER at its beginning, blanks and line ends do not count: tools and
/// servers change them.
[[nodiscard]] std::uint64_t Fingerprint(std::string_view definition);

/// The fingerprints of all texts that versions of data/schema/quorvel.sql have given to these procedures. A change of
/// one adds its new fingerprint and removes none: databases with the former text are still to be upgraded.
[[nodiscard]] std::span<const std::uint64_t> ShippedFingerprints() noexcept;

/// Whether a version of this product has made a procedure with this text.
[[nodiscard]] bool IsShipped(std::string_view definition);

/// Whether the database has the procedure with a text that no version of this product has made, or with one that the
/// login may not read. Throws Error when the database cannot be asked.
[[nodiscard]] bool IsAdapted(ado::Connection& connection, std::string_view procedure);

}  // namespace quorvel::cli
