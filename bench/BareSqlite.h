#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <vector>

namespace quorvel::bench {

/// Hand-written code on SQLite's C interface for the same job: the statements of the procedures that Load and Save
/// call, prepared once, with their rows in plain structs. The component's own cost is measured against it.
class BareSqlite {
 public:
  struct Type {
    std::string id;
    std::string caption;
    int priority = 0;
    int rights[4] = {0, 0, 0, 0};
  };
  struct Memo {
    const Type* type;
    int key;
    std::int64_t dateStamp;  ///< milliseconds since 1970
    std::string userId;
    std::string text;
  };
  struct Context {
    std::string caption;
    int entityKey = 0;
    std::string entityName;
    std::string ownerProcedure;
    int display[4] = {0, 0, 0, 0};
    std::vector<Type> types;
    int ownerKey = 0;
    std::string ownerName;
    std::vector<Memo> memos;
  };

  explicit BareSqlite(const std::string& file);
  ~BareSqlite();
  BareSqlite(const BareSqlite&) = delete;
  BareSqlite& operator=(const BareSqlite&) = delete;

  void Load(const char* contextId, const std::string& ownerId, const char* userId, Context& context);
  void Update(const Context& context, const Memo& memo);

 private:
  void Prepare(sqlite3_stmt** statement, const char* sql);
  void LoadTypes(const char* contextId, const char* userId, Context& context);
  void LoadMemos(const char* contextId, Context& context);

  sqlite3* m_database = nullptr;
  sqlite3_stmt* m_context = nullptr;
  sqlite3_stmt* m_types = nullptr;
  sqlite3_stmt* m_rights = nullptr;
  sqlite3_stmt* m_owner = nullptr;
  sqlite3_stmt* m_memos = nullptr;
  sqlite3_stmt* m_update = nullptr;
};

}  // namespace quorvel::bench
