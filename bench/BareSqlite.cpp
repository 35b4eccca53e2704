// Loads and updates the remarks of an owner without the component: no parameters to discover, no values of any type, no
// checks.

#include "bench/BareSqlite.h"

#include <strings.h>

#include <chrono>
#include <ctime>
#include <stdexcept>

#include "bench/BareStatements.h"

namespace quorvel::bench {
namespace {

std::string TextOf(sqlite3_stmt* statement, int column) {
  return {reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
          static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

int Digits(const char* text, int count) {
  int number = 0;
  for (int i = 0; i < count; ++i) number = number * 10 + (text[i] - '0');
  return number;
}

/// "YYYY-MM-DD HH:MM:SS.mmm"
std::int64_t DateOf(sqlite3_stmt* statement, int column) {
  using namespace std::chrono;
  const char* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  const sys_days day{year{Digits(text, 4)} / Digits(text + 5, 2) / Digits(text + 8, 2)};
  const auto time = hours{Digits(text + 11, 2)} + minutes{Digits(text + 14, 2)} + seconds{Digits(text + 17, 2)};
  return duration_cast<milliseconds>(day.time_since_epoch() + time).count() + Digits(text + 20, 3);
}

void BindText(sqlite3_stmt* statement, int index, const char* text) {
  sqlite3_bind_text(statement, index, text, -1, SQLITE_STATIC);
}

const BareSqlite::Type* FindType(const BareSqlite::Context& context, const char* id) {
  for (const auto& type : context.types) {
    if (strcasecmp(type.id.c_str(), id) == 0) return &type;
  }
  return nullptr;
}

}  // namespace

BareSqlite::BareSqlite(const std::string& file) {
  if (sqlite3_open_v2(file.c_str(), &m_database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK) {
    throw std::runtime_error("cannot open the database");
  }
  sqlite3_busy_timeout(m_database, 60'000);
  sqlite3_exec(m_database, "PRAGMA foreign_keys = ON; PRAGMA synchronous = FULL", nullptr, nullptr, nullptr);
  Prepare(&m_context, bare::kContext);
  Prepare(&m_types, bare::kTypes);
  Prepare(&m_rights, bare::kRights);
  Prepare(&m_owner, bare::kOwner);
  Prepare(&m_memos, bare::kMemos);
  Prepare(
      &m_update,
      "UPDATE tciMemo SET MemoType = rtrim(?2), EntityType = ?3, OwnerKey = ?4, DateStamp = ?5, UserID = rtrim(?6), "
      "MemoText = ?7 WHERE MemoKey = ?1");
}

BareSqlite::~BareSqlite() {
  for (sqlite3_stmt* statement : {m_context, m_types, m_rights, m_owner, m_memos, m_update})
    sqlite3_finalize(statement);
  sqlite3_close(m_database);
}

void BareSqlite::Prepare(sqlite3_stmt** statement, const char* sql) {
  if (sqlite3_prepare_v3(m_database, sql, -1, SQLITE_PREPARE_PERSISTENT, statement, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(m_database));
  }
}

void BareSqlite::Load(const char* contextId, const std::string& ownerId, const char* userId, Context& context) {
  BindText(m_context, 1, contextId);
  if (sqlite3_step(m_context) == SQLITE_ROW) {
    context.caption = TextOf(m_context, 0);
    context.entityKey = sqlite3_column_int(m_context, 1);
    context.entityName = TextOf(m_context, 2);
    context.ownerProcedure = TextOf(m_context, 3);
    for (int i = 0; i < 4; ++i) context.display[i] = sqlite3_column_int(m_context, 4 + i);
  }
  sqlite3_reset(m_context);
  LoadTypes(contextId, userId, context);
  BindText(m_owner, 1, ownerId.c_str());
  if (sqlite3_step(m_owner) == SQLITE_ROW) {
    context.ownerKey = sqlite3_column_int(m_owner, 0);
    context.ownerName = TextOf(m_owner, 1);
  }
  sqlite3_reset(m_owner);
  LoadMemos(contextId, context);
}

void BareSqlite::LoadTypes(const char* contextId, const char* userId, Context& context) {
  context.types.clear();
  BindText(m_types, 1, contextId);
  while (sqlite3_step(m_types) == SQLITE_ROW) {
    context.types.push_back({TextOf(m_types, 0), TextOf(m_types, 1), sqlite3_column_int(m_types, 2), {0, 0, 0, 0}});
  }
  sqlite3_reset(m_types);
  BindText(m_rights, 1, userId);
  while (sqlite3_step(m_rights) == SQLITE_ROW) {
    const auto* id = reinterpret_cast<const char*>(sqlite3_column_text(m_rights, 0));
    for (Type& type : context.types) {
      if (strcasecmp(type.id.c_str(), id) != 0) continue;
      for (int i = 0; i < 4; ++i) type.rights[i] = sqlite3_column_int(m_rights, 1 + i);
    }
  }
  sqlite3_reset(m_rights);
}

void BareSqlite::LoadMemos(const char* contextId, Context& context) {
  context.memos.clear();
  BindText(m_memos, 1, contextId);
  sqlite3_bind_int(m_memos, 2, context.entityKey);
  sqlite3_bind_int(m_memos, 3, context.ownerKey);
  while (sqlite3_step(m_memos) == SQLITE_ROW) {
    const Type* type = FindType(context, reinterpret_cast<const char*>(sqlite3_column_text(m_memos, 0)));
    if (type == nullptr || type->rights[1] <= 0) continue;
    context.memos.push_back(
        {type, sqlite3_column_int(m_memos, 1), DateOf(m_memos, 2), TextOf(m_memos, 3), TextOf(m_memos, 4)});
  }
  sqlite3_reset(m_memos);
}

void BareSqlite::Update(const Context& context, const Memo& memo) {
  char now[32];
  const std::time_t seconds = std::time(nullptr);
  std::tm local{};
  localtime_r(&seconds, &local);
  std::strftime(now, sizeof now, "%Y-%m-%d %H:%M:%S.000", &local);
  sqlite3_bind_int(m_update, 1, memo.key);
  BindText(m_update, 2, memo.type->id.c_str());
  sqlite3_bind_int(m_update, 3, context.entityKey);
  sqlite3_bind_int(m_update, 4, context.ownerKey);
  BindText(m_update, 5, now);
  BindText(m_update, 6, memo.userId.c_str());
  sqlite3_bind_text(m_update, 7, memo.text.data(), static_cast<int>(memo.text.size()), SQLITE_STATIC);
  if (sqlite3_step(m_update) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(m_database));
  sqlite3_reset(m_update);
}

}  // namespace quorvel::bench
