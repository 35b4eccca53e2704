#include "ado/odbc/Drivers.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "ado/odbc/Handles.h"
#include "ado/odbc/WideText.h"
#include "platform/Text.h"

namespace quorvel::ado::odbc {
namespace {

/// Best first.
constexpr std::array<std::string_view, 4> kKnownDrivers = {"ODBC Driver 18 for SQL Server",
                                                           "ODBC Driver 17 for SQL Server", "SQL Server", "FreeTDS"};
constexpr std::string_view kDefaultPort = "1433";

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

bool IsFreeTds(std::string_view driver) { return EqualIgnoringCase(driver, "FreeTDS"); }

/// Braces keep a value whole whatever it holds.
std::string Quoted(std::string_view value) {
  if (value.find_first_of("[]{}(),;?*=!@") == std::string_view::npos && TrimBlanks(value) == value) {
    return std::string(value);
  }
  std::string quoted = "{";
  for (const char c : value) {
    quoted += c;
    if (c == '}') quoted += c;
  }
  return quoted + "}";
}

/// FreeTDS takes a closing brace inside braces as it stands, doubled or not, so it gets braces only where a value
/// would otherwise end too early; and it ends the value at a brace before a semicolon.
std::string QuotedForFreeTds(std::string_view value) {
  if (value.find("};") != std::string_view::npos ||
      (value.find(';') != std::string_view::npos && value.ends_with('}'))) {
    throw DriverError(
        "HY024", 0,
        "The ODBC driver FreeTDS cannot be given a value that holds a closing brace with a semicolon behind "
        "it, or a semicolon and a closing brace at its end. Choose another password.");
  }
  const bool isPlain =
      value.find(';') == std::string_view::npos && !value.starts_with('{') && TrimBlanks(value) == value;
  return isPlain ? std::string(value) : fmt::format("{{{}}}", value);
}

class StringBuilder {
 public:
  explicit StringBuilder(std::string_view driver)
      : m_quoted(IsFreeTds(driver) ? QuotedForFreeTds : Quoted), m_text(fmt::format("DRIVER={{{}}}", driver)) {}

  void Add(std::string_view key, std::string_view value) { m_text += fmt::format(";{}={}", key, m_quoted(value)); }
  void AddIfGiven(std::string_view key, std::string_view value) {
    if (!value.empty()) Add(key, value);
  }
  [[nodiscard]] std::string Take() { return std::move(m_text); }

 private:
  std::string (*m_quoted)(std::string_view);
  std::string m_text;
};

/// FreeTDS's word for a value of Encrypt. Its default protects the login as Microsoft's drivers do without being asked,
/// and nothing here goes below that.
std::string_view FreeTdsEncryption(std::string_view encrypt) {
  const auto isOneOf = [encrypt](std::initializer_list<std::string_view> words) {
    return std::any_of(words.begin(), words.end(),
                       [encrypt](std::string_view word) { return EqualIgnoringCase(encrypt, word); });
  };
  if (isOneOf({"yes", "true", "mandatory", "strict"})) return "require";
  if (isOneOf({"no", "false", "optional"})) return "request";
  throw DriverError(
      "HY024", 0,
      fmt::format("Encrypt takes yes or no (or true, mandatory, strict, false, optional), not {}.", encrypt));
}

bool IsPort(std::string_view text) {
  unsigned port = 0;
  const auto [end, code] = std::from_chars(text.data(), text.data() + text.size(), port);
  return code == std::errc{} && end == text.data() + text.size() && port >= 1 && port <= 65535;
}

void AddFreeTds(StringBuilder& text, const ConnectOptions& options) {
  const ServerAddress server = ParseServerAddress(options.dataSource);
  if (server.instance.empty() || !server.port.empty()) {
    text.Add("SERVER", server.host);
    text.Add("PORT", server.port.empty() ? kDefaultPort : server.port);
  } else {
    text.Add("SERVER", fmt::format("{}\\{}", server.host, server.instance));
  }
  // The version is the highest that the server is offered; texts travel in Unicode from this one on.
  text.Add("TDS_Version", "7.4");
  text.Add("ClientCharset", "UTF-8");
  if (!options.encrypt.empty()) text.Add("Encryption", FreeTdsEncryption(options.encrypt));
}

void AddMicrosoft(StringBuilder& text, const ConnectOptions& options, std::string_view driver) {
  text.Add("SERVER", options.dataSource);
  text.AddIfGiven("Encrypt", options.encrypt);
  text.AddIfGiven("TrustServerCertificate", options.trustServerCertificate);
  // A lost connection must be noticed: the driver would otherwise make a new one by itself.
  if (driver.starts_with("ODBC Driver ")) text.Add("ConnectRetryCount", "0");
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

ServerAddress ParseServerAddress(std::string_view dataSource) {
  constexpr std::string_view kProtocol = "tcp:";
  std::string_view rest = TrimBlanks(dataSource);
  if (EqualIgnoringCase(rest.substr(0, kProtocol.size()), kProtocol)) rest.remove_prefix(kProtocol.size());
  ServerAddress address;
  if (const auto comma = rest.rfind(','); comma != std::string_view::npos) {
    address.port = TrimBlanks(rest.substr(comma + 1));
    if (!IsPort(address.port)) {
      throw DriverError("HY024", 0,
                        fmt::format("The port in the server {} must be a number from 1 to 65535.", dataSource));
    }
    rest = rest.substr(0, comma);
  }
  const auto backslash = rest.find('\\');
  if (backslash != std::string_view::npos) address.instance = TrimBlanks(rest.substr(backslash + 1));
  address.host = TrimBlanks(rest.substr(0, backslash));
  // How administrators of SQL Server name the machine itself.
  if (address.host == "." || EqualIgnoringCase(address.host, "(local)")) address.host = "localhost";
  return address;
}

std::string OdbcConnectionString(const ConnectOptions& options, std::string_view driver) {
  StringBuilder text(driver);
  if (IsFreeTds(driver)) {
    AddFreeTds(text, options);
  } else {
    AddMicrosoft(text, options, driver);
  }
  text.AddIfGiven("DATABASE", options.initialCatalog);
  text.Add("UID", options.userId);
  text.Add("PWD", options.password);
  text.Add("APP", "Quorvel");
  return text.Take();
}

}  // namespace quorvel::ado::odbc
