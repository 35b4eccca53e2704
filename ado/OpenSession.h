#pragma once

#include <memory>
#include <string_view>

#include "ado/engine/ConnectOptions.h"
#include "ado/engine/Session.h"

namespace quorvel::ado {

/// Opens a session on the engine that `options.dataSource` asks for: "(embedded)" is the embedded engine on the file
/// `options.initialCatalog`, anything else a SQL Server. Throws DriverError.
[[nodiscard]] std::unique_ptr<Session> OpenSession(const ConnectOptions& options);

/// The source that errors of that data source's engine carry.
[[nodiscard]] std::string_view SourceOfEngine(std::string_view dataSource) noexcept;

/// The data source that means the embedded engine.
inline constexpr std::string_view kEmbeddedDataSource = "(embedded)";
/// Whether a data source is that one; letter case and blanks around it do not count.
[[nodiscard]] bool IsEmbedded(std::string_view dataSource) noexcept;

}  // namespace quorvel::ado
