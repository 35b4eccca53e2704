#include "ado/embedded/Restrictions.h"

#include <algorithm>
#include <array>

namespace quorvel::ado::embedded {
namespace {

/// The engine's own, that with which SQLite looks for rows that break the rule of a column that is added, and that
/// which reads the whole file. SQLite has a table for each pragma that has a result, and a batch or a view can read
/// from it.
constexpr std::array<std::string_view, 7> kPragmas = {"foreign_keys", "integrity_check", "journal_mode", "quick_check",
                                                      "synchronous",  "table_info",      "user_version"};

constexpr std::size_t kLongestName = 128;

/// The table that an action of SQLite changes; null when it changes none.
const char* ChangedTable(int action, const char* first, const char* second) noexcept {
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
    case SQLITE_TRANSACTION:
    case SQLITE_SAVEPOINT:
      return nullptr;
    case SQLITE_CREATE_INDEX:
    case SQLITE_DROP_INDEX:
    case SQLITE_ALTER_TABLE:
      return second;
    default:
      return first;
  }
}

}  // namespace

bool Restrictions::Allows(int action, const char* first, const char* second) noexcept {
  switch (action) {
    case SQLITE_ATTACH:
    case SQLITE_DETACH:
      return false;
    case SQLITE_PRAGMA:
      return std::ranges::find(kPragmas, std::string_view(first)) != kPragmas.end();
    default:
      break;
  }
  const char* table = m_isReadOnly ? ChangedTable(action, first, second) : nullptr;
  return table == nullptr || AllowsChange(table);
}

bool Restrictions::AllowsChange(std::string_view table) noexcept {
  // SQLite's own tables follow those that are made and dropped.
  if (table.starts_with('#') || table.starts_with("sqlite_")) return true;
  m_refused.assign(table.substr(0, kLongestName));
  return false;
}

void Restrictions::Attach(sqlite3* database) noexcept {
  sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  // A rule, view or trigger of the file calls only functions that are marked as harmless.
  sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  const auto authorize = [](void* self, int action, const char* first, const char* second, const char* /*database*/,
                            const char* /*trigger*/) {
    return static_cast<Restrictions*>(self)->Allows(action, first, second) ? SQLITE_OK : SQLITE_DENY;
  };
  sqlite3_set_authorizer(database, authorize, this);
}

Restrictions::ReadOnly::ReadOnly(Restrictions& restrictions) : m_restrictions(restrictions) {
  restrictions.m_refused.clear();
  restrictions.m_refused.reserve(kLongestName);  // SQLite's callback cannot report a lack of memory
  restrictions.m_isReadOnly = true;
}

}  // namespace quorvel::ado::embedded
