#include <fmt/format.h>

#include "platform/Text.h"
#include "platform/ado/Engine.h"
#include "platform/ado/embedded/EmbeddedEngine.h"

namespace quorvel::ado {

bool IsEmbedded(std::string_view dataSource) noexcept {
  return EqualIgnoringCase(TrimBlanks(dataSource), kEmbeddedDataSource);
}

std::unique_ptr<Session> OpenSession(const ConnectOptions& options) {
  if (IsEmbedded(options.dataSource)) return OpenEmbedded(options);
  const std::string_view server = TrimBlanks(options.dataSource);
  const std::string reason = server.empty() ? "No database server is set."
                                            : fmt::format("This build cannot reach the SQL Server \"{}\".", server);
  throw DriverError("08001", 0,
                    fmt::format("{} Set the server to \"{}\" and the database to the path of a database file.", reason,
                                kEmbeddedDataSource));
}

std::string_view SourceOfEngine(std::string_view dataSource) noexcept {
  return IsEmbedded(dataSource) ? "Quorvel.Embedded" : "Quorvel.ODBC";
}

}  // namespace quorvel::ado
