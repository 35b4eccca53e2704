#include "ado/odbc/Drivers.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>

#include "ado/odbc/Handles.h"
#include "ado/odbc/WideText.h"
#include "platform/Text.h"

namespace quorvel::ado::odbc {
namespace {

/// Best first.
constexpr std::array<std::string_view, 4> kKnownDrivers = {"ODBC Driver 18 for SQL Server",
                                                           "ODBC Driver 17 for SQL Server", "SQL Server", "FreeTDS"};

/// The driver's own name in the letter case of its registration; null when it is not there.
const std::string* Find(std::string_view name, const std::vector<std::string>& installed) {
  const auto found = std::find_if(installed.begin(), installed.end(),
                                  [name](const std::string& each) { return EqualIgnoringCase(each, name); });
  return found == installed.end() ? nullptr : &*found;
}

[[noreturn]] void ThrowNoDriver(std::string_view reason, const std::vector<std::string>& installed) {
  const std::string known =
      installed.empty() ? "None is installed." : fmt::format("Installed: {}.", fmt::join(installed, ", "));
  throw DriverError("IM002", 0, fmt::format("{} {}", reason, known));
}

}  // namespace

std::vector<std::string> InstalledDrivers(SQLHENV environment) {
  std::vector<std::string> names;
  std::u16string name(256, u'\0');
  SQLSMALLINT length = 0;
  const auto next = [&](SQLUSMALLINT direction) {
    return Require(api::Drivers, SQL_HANDLE_ENV, environment, direction, Wide(name),
                   static_cast<SQLSMALLINT>(name.size()), &length, static_cast<SQLWCHAR*>(nullptr), SQLSMALLINT{0},
                   static_cast<SQLSMALLINT*>(nullptr));
  };
  for (SQLRETURN code = next(SQL_FETCH_FIRST); code != SQL_NO_DATA; code = next(SQL_FETCH_NEXT)) {
    names.push_back(FromWide(Wide(name), std::min<std::size_t>(static_cast<std::size_t>(length), name.size() - 1)));
  }
  return names;
}

std::string ChooseDriver(std::string_view wanted, const std::vector<std::string>& installed) {
  if (!wanted.empty()) {
    if (const std::string* driver = Find(wanted, installed)) return *driver;
    ThrowNoDriver(fmt::format("The ODBC driver {} is not installed.", wanted), installed);
  }
  for (const std::string_view known : kKnownDrivers) {
    if (const std::string* driver = Find(known, installed)) return *driver;
  }
  ThrowNoDriver(fmt::format("There is no ODBC driver for SQL Server on this machine: install one of {} (Debian: the "
                            "package tdsodbc).",
                            fmt::join(kKnownDrivers, ", ")),
                installed);
}

}  // namespace quorvel::ado::odbc
