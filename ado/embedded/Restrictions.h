#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>

namespace quorvel::ado::embedded {

/// Keeps inside the file what its own views, triggers and rules do, and what a batch can name: other software may have
/// put anything into a file, and nothing in it may reach another file or a setting of the connection. The translators
/// have no statement for either; this holds also where a table's name, or SQLite itself, leads there.
class Restrictions {
 public:
  Restrictions() = default;
  Restrictions(const Restrictions&) = delete;
  Restrictions& operator=(const Restrictions&) = delete;

  /// Restricts `database` from now on. The object must outlive the open database.
  void Attach(sqlite3* database) noexcept;

  /// Whether a statement that is compiled now may change only temporary tables, whose names begin with #. A statement
  /// that was compiled earlier keeps its rights until it is compiled again.
  [[nodiscard]] bool IsReadOnly() const noexcept { return m_isReadOnly; }

  /// Read-only, as long as it lives.
  class ReadOnly {
   public:
    explicit ReadOnly(Restrictions& restrictions);
    ~ReadOnly() { m_restrictions.m_isReadOnly = false; }
    ReadOnly(const ReadOnly&) = delete;
    ReadOnly& operator=(const ReadOnly&) = delete;

    /// The table that a statement was not allowed to change; empty when none was.
    [[nodiscard]] const std::string& Refused() const noexcept { return m_restrictions.m_refused; }

   private:
    Restrictions& m_restrictions;
  };

 private:
  [[nodiscard]] bool Allows(int action, const char* first, const char* second) noexcept;
  [[nodiscard]] bool AllowsChange(std::string_view table) noexcept;

  bool m_isReadOnly = false;
  std::string m_refused;
};

}  // namespace quorvel::ado::embedded
