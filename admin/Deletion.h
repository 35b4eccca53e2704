#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace quorvel {

/// How many records of one kind are linked to the record that is to be deleted, and the words after the number, blanks
/// included: " User(s) ".
struct Relation {
  std::int32_t count;
  std::string_view words;
};

/// The numbers that are above 0 with their words. " and " is before each of them except one for the first relation,
/// even where it is the only one.
[[nodiscard]] std::string RelationText(std::initializer_list<Relation> relations);

/// Asks whether a record is to be deleted: `id`, `relation`, a line break and the rest, which begins with `secondLine`.
/// True for Yes.
[[nodiscard]] bool ConfirmDelete(std::string_view title, std::string_view id, std::string_view relation,
                                 std::string_view secondLine);

/// The two forms of the second line's beginning.
inline constexpr std::string_view kSureAfterPeriod = ". Are you sure";
inline constexpr std::string_view kSure = "Are you sure";

}  // namespace quorvel
