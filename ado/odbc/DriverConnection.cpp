#include "ado/odbc/DriverConnection.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <limits>

#include "ado/odbc/Drivers.h"
#include "ado/odbc/OdbcConnectionString.h"
#include "ado/odbc/WideText.h"

namespace quorvel::ado::odbc {
namespace {

/// SQL Server's login errors: wrong user or password, not trusted, disabled, locked, expired, to be changed.
/// Some drivers report them as 42000.
bool IsLoginFailure(std::int32_t number) {
  constexpr std::array<std::int32_t, 6> kNumbers = {18452, 18456, 18470, 18486, 18487, 18488};
  return std::find(kNumbers.begin(), kNumbers.end(), number) != kNumbers.end();
}

/// Adds server and driver to every record, since a reader may see only one of them. If the first record is the driver's
/// general "unable to connect", the server's own reason is added to it.
DriverError Located(const DriverError& failure, const ConnectOptions& options, std::string_view driver) {
  std::vector<Diagnostic> records = failure.Records();
  for (Diagnostic& record : records) {
    if (IsLoginFailure(record.nativeError)) record.sqlState = "28000";
  }
  std::stable_partition(records.begin(), records.end(),
                        [](const Diagnostic& record) { return record.sqlState == "28000"; });
  if (records.size() > 1 && records.front().nativeError == 0) {
    records.front().message += ": " + records[1].message;
  }
  const std::string database = options.initialCatalog.empty() ? "" : ", database " + options.initialCatalog;
  for (Diagnostic& record : records) {
    record.message += fmt::format(" (server {}{}, ODBC driver {})", options.dataSource, database, driver);
  }
  return DriverError(std::move(records));
}

}  // namespace

DriverConnection::DriverConnection(const ConnectOptions& options)
    : m_environment(MakeEnvironment()),
      m_connection(MakeConnection(m_environment)),
      m_driver(ChooseDriver(options.driver, InstalledDrivers(m_environment.Get()))) {
  try {
    Connect(options);
  } catch (const DriverError& failure) {
    throw Located(failure, options, m_driver);
  }
}

void DriverConnection::Connect(const ConnectOptions& options) {
  Require(api::SetConnectAttr, SQL_HANDLE_DBC, Get(), SQL_ATTR_LOGIN_TIMEOUT, AsPointer(options.connectionTimeout),
          SQLINTEGER{SQL_IS_UINTEGER});
  std::u16string text = ToWide(OdbcConnectionString(options, m_driver));
  if (text.size() > std::numeric_limits<SQLSMALLINT>::max()) {
    throw DriverError("HY090", 0, "The settings of the connection are too long.");
  }
  // Messages of the login ("Changed database context ...") are dropped: the caller would find them in the connection's
  // Errors after the first statement and take them for that statement's.
  Require(api::DriverConnect, SQL_HANDLE_DBC, Get(), SQLHWND{nullptr}, Wide(text),
          static_cast<SQLSMALLINT>(text.size()), static_cast<SQLWCHAR*>(nullptr), SQLSMALLINT{0},
          static_cast<SQLSMALLINT*>(nullptr), SQLUSMALLINT{SQL_DRIVER_NOPROMPT});
  m_readsAnyColumn = (FlagsInfo(SQL_GETDATA_EXTENSIONS) & SQL_GD_ANY_COLUMN) != 0;
  m_sendsCallsTogether = (OptionalFlagsInfo(SQL_BATCH_SUPPORT) & SQL_BS_SELECT_PROC) != 0;
}

SQLUINTEGER DriverConnection::FlagsInfo(SQLUSMALLINT item) const {
  SQLUINTEGER flags = 0;
  Require(api::GetInfo, SQL_HANDLE_DBC, Get(), item, static_cast<SQLPOINTER>(&flags), SQLSMALLINT{sizeof flags},
          static_cast<SQLSMALLINT*>(nullptr));
  return flags;
}

SQLUINTEGER DriverConnection::OptionalFlagsInfo(SQLUSMALLINT item) const {
  try {
    return FlagsInfo(item);
  } catch (const DriverError& failure) {
    // A driver that does not know the item gives a record; a failure without one is a real failure.
    if (IsMadeUp(failure.Records().front())) throw;
    return 0;
  }
}

bool DriverConnection::IsDead() const {
  SQLUINTEGER isDead = SQL_CD_FALSE;
  const SQLRETURN code = api::GetConnectAttr(Get(), SQL_ATTR_CONNECTION_DEAD, static_cast<SQLPOINTER>(&isDead),
                                             SQLINTEGER{sizeof isDead}, static_cast<SQLINTEGER*>(nullptr));
  return SQL_SUCCEEDED(code) && isDead == SQL_CD_TRUE;
}

std::string DriverConnection::TextInfo(SQLUSMALLINT item) const {
  std::array<SQLWCHAR, 256> text{};
  SQLSMALLINT bytes = 0;
  const SQLRETURN code =
      api::GetInfo(Get(), item, static_cast<SQLPOINTER>(text.data()), static_cast<SQLSMALLINT>(sizeof text), &bytes);
  if (!SQL_SUCCEEDED(code) || bytes < 0) return {};
  return FromWide(text.data(), std::min(static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR), text.size() - 1));
}

}  // namespace quorvel::ado::odbc
