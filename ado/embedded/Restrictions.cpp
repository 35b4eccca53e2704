#include "ado/embedded/Restrictions.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quorvel::ado::embedded {
namespace {

/// The engine's own, and that with which SQLite looks for rows that break the rule of a column that is added. SQLite
/// has a table for each pragma that has a result, and a batch or a view can read from it.
constexpr std::array<std::string_view, 6> kPragmas = {"foreign_keys", "journal_mode", "quick_check",
                                                      "synchronous",  "table_info",   "user_version"};

int Authorize(void* /*unused*/, int action, const char* name, const char* /*unused*/, const char* /*unused*/,
              const char* /*unused*/) noexcept {
  switch (action) {
    case SQLITE_ATTACH:
    case SQLITE_DETACH:
      return SQLITE_DENY;
    case SQLITE_PRAGMA:
      return std::ranges::find(kPragmas, std::string_view(name)) != kPragmas.end() ? SQLITE_OK : SQLITE_DENY;
    default:
      return SQLITE_OK;
  }
}

}  // namespace

void Restrict(sqlite3* database) noexcept {
  sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  // A rule, view or trigger of the file calls only functions that are marked as harmless.
  sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_set_authorizer(database, &Authorize, nullptr);
}

}  // namespace quorvel::ado::embedded
