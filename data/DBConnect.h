#pragma once

#include <string>

namespace quorvel {

/// The four connection settings of the machine, read from the registry once and then kept. Each thread that uses the
/// database has one (modDatabase::Settings). Error 110 when a value can neither be read nor created; the next call then
/// reads all four again. The values are those of one moment. The log names every wrong line of the settings file.
class DBConnect {
 public:
  /// The OLE DB connection string. The values are inserted without quoting.
  [[nodiscard]] std::string ConnectionString();
  [[nodiscard]] const std::string& Server();
  [[nodiscard]] const std::string& Database();

  /// Reads the four values again.
  void Reload();

 private:
  void Load();
  void ReadTogether();
  void ReadValues();
  /// Reads the stored values at one moment; false when one of them is missing then.
  bool TakeTogether();

  bool m_loaded = false;
  std::string m_server;
  std::string m_database;
  std::string m_userId;
  std::string m_password;
};

}  // namespace quorvel
