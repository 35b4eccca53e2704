// Every driver has its own keywords and its own rules for quoting a value. Those of Microsoft's drivers and those of
// FreeTDS are the ones known here.

#include "ado/odbc/OdbcConnectionString.h"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>

#include "ado/engine/DriverError.h"
#include "ado/odbc/ServerAddress.h"
#include "platform/Text.h"

namespace quorvel::ado::odbc {
namespace {

constexpr std::string_view kDefaultPort = "1433";

bool IsFreeTds(std::string_view driver) { return EqualIgnoringCase(driver, "FreeTDS"); }

/// In braces a value may hold any character.
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

/// FreeTDS does not undouble a closing brace, so a value gets braces only when it would otherwise end too early; and
/// in braces FreeTDS ends the value at a brace before a semicolon.
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

/// FreeTDS's word for a value of Encrypt. Its default protects the login, as Microsoft's drivers do by default, and no
/// value here gives less than that.
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

void AddFreeTds(StringBuilder& text, const ConnectOptions& options) {
  const ServerAddress server = ParseServerAddress(options.dataSource);
  if (server.instance.empty() || !server.port.empty()) {
    text.Add("SERVER", server.host);
    text.Add("PORT", server.port.empty() ? kDefaultPort : server.port);
  } else {
    text.Add("SERVER", fmt::format("{}\\{}", server.host, server.instance));
  }
  // The highest version that the driver offers the server; texts are Unicode from this one on.
  text.Add("TDS_Version", "7.4");
  text.Add("ClientCharset", "UTF-8");
  if (!options.encrypt.empty()) text.Add("Encryption", FreeTdsEncryption(options.encrypt));
}

void AddMicrosoft(StringBuilder& text, const ConnectOptions& options, std::string_view driver) {
  text.Add("SERVER", options.dataSource);
  text.AddIfGiven("Encrypt", options.encrypt);
  text.AddIfGiven("TrustServerCertificate", options.trustServerCertificate);
  // A lost connection must be noticed; by default the driver replaces it silently.
  if (driver.starts_with("ODBC Driver ")) text.Add("ConnectRetryCount", "0");
}

}  // namespace

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
