#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace quorvel::test {

/// A sample database for hosts, with settings that point the component to it. It is made past the published
/// boundary, so nothing of the product shows in this header.
class HostDatabase {
 public:
  HostDatabase();
  ~HostDatabase();
  HostDatabase(const HostDatabase&) = delete;
  HostDatabase& operator=(const HostDatabase&) = delete;

  [[nodiscard]] std::string SettingsFile() const;
  /// Runs a batch on a connection of its own.
  void Run(std::string_view batch) const;
  /// The first column of the first row, as text; "NULL" for null and "" without a row.
  [[nodiscard]] std::string Ask(std::string_view query) const;
  /// Runs a statement of SQLite's own on the file, past the engine and its rules.
  void RunBeneath(const char* statement) const;
  /// The logon name as the component reads it.
  [[nodiscard]] static std::string LogonName();

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace quorvel::test
