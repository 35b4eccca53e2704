#include "ado/OpenSession.h"

#include <fmt/format.h>

#include "ado/embedded/EmbeddedEngine.h"
#include "ado/odbc/OdbcEngine.h"
#include "platform/Text.h"

namespace quorvel::ado {

bool IsEmbedded(std::string_view dataSource) noexcept {
  return EqualIgnoringCase(TrimBlanks(dataSource), kEmbeddedDataSource);
}

std::unique_ptr<Session> OpenSession(const ConnectOptions& options) {
  if (IsEmbedded(options.dataSource)) return OpenEmbedded(options);
  if (!TrimBlanks(options.dataSource).empty()) return OpenOdbc(options);
  throw DriverError(
      "08001", 0,
      fmt::format("No database server is set. Set the server to the name of a SQL Server, or to \"{}\" and "
                  "the database to the path of a database file.",
                  kEmbeddedDataSource));
}

std::string_view SourceOfEngine(std::string_view dataSource) noexcept {
  return IsEmbedded(dataSource) ? "Quorvel.Embedded" : "Quorvel.ODBC";
}

}  // namespace quorvel::ado
