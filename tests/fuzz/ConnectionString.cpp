// Connection strings, and the strings for drivers that are made of them. No value of one becomes a keyword of the
// other.

#include <array>
#include <map>
#include <string>
#include <vector>

#include "ado/ConnectionString.h"
#include "ado/engine/DriverError.h"
#include "ado/odbc/OdbcConnectionString.h"
#include "platform/Error.h"
#include "tests/fuzz/Fuzz.h"

namespace quorvel::fuzz {
namespace {

using ado::ConnectOptions;

constexpr auto kOptions = std::to_array<std::pair<const char*, std::string ConnectOptions::*>>(
    {{"Data Source", &ConnectOptions::dataSource},
     {"Initial Catalog", &ConnectOptions::initialCatalog},
     {"User ID", &ConnectOptions::userId},
     {"Password", &ConnectOptions::password},
     {"Driver", &ConnectOptions::driver},
     {"Encrypt", &ConnectOptions::encrypt},
     {"TrustServerCertificate", &ConnectOptions::trustServerCertificate}});

std::string Written(const ConnectOptions& options) {
  std::string text;
  for (const auto& [key, option] : kOptions) {
    text += std::string(key) + "=\"";
    for (const char c : options.*option) text.append(c == '"' ? 2 : 1, c);
    text += "\";";
  }
  return text;
}

/// Reads a driver's string as the driver does: braces around a value keep everything inside. Microsoft's drivers take
/// two closing braces for one; FreeTDS ends the value at a closing brace before a semicolon.
std::map<std::string, std::string> Pairs(std::string_view text, bool isFreeTds) {
  std::map<std::string, std::string> pairs;
  while (!text.empty()) {
    const std::size_t equals = text.find('=');
    Require(equals != std::string_view::npos, "a driver's string consists of pairs");
    const std::string key(text.substr(0, equals));
    text.remove_prefix(equals + 1);
    std::string value;
    const bool isBraced = text.starts_with('{');
    if (isBraced) text.remove_prefix(1);
    for (; !text.empty(); text.remove_prefix(1)) {
      if (!isBraced && text.front() == ';') break;
      if (isBraced && text.front() == '}') {
        const bool isInside = isFreeTds ? text.size() > 1 && text[1] != ';' : text.starts_with("}}");
        if (!isInside) break;
        if (!isFreeTds) text.remove_prefix(1);
      }
      value += text.front();
    }
    if (isBraced) {
      Require(text.starts_with('}'), "a brace is closed");
      text.remove_prefix(1);
    }
    Require(text.empty() || text.front() == ';', "nothing follows a value");
    if (!text.empty()) text.remove_prefix(1);
    Require(pairs.emplace(key, value).second, "a driver's string has each key once");
  }
  return pairs;
}

void CheckDriver(const ConnectOptions& options, const char* driver, std::size_t fewest, std::size_t most) {
  try {
    auto pairs = Pairs(ado::odbc::OdbcConnectionString(options, driver), std::string_view(driver) == "FreeTDS");
    Require(pairs.size() >= fewest && pairs.size() <= most, "a driver gets the keys that it needs");
    Require(pairs["UID"] == options.userId && pairs["PWD"] == options.password, "the driver reads what was meant");
    Require(pairs["DATABASE"] == options.initialCatalog && pairs["APP"] == "Quorvel",
            "the driver reads what was meant");
  } catch (const ado::DriverError& error) {
    Require(error.Records().front().sqlState == "HY024", "a value that no driver can take is refused");
  }
}

}  // namespace

void Try(std::string_view input) {
  ConnectOptions options;
  try {
    options = ado::ParseConnectionString(input);
  } catch (const Error& error) {
    Require(error.Number() == ErrorNumber::AdoInvalidArgument, "an error is that of a wrong argument");
    Require(error.Description().find("S3cret") == std::string::npos, "an error shows no value");
    return;
  }
  const ConnectOptions again = ado::ParseConnectionString(Written(options));
  for (const auto& [key, option] : kOptions) Require(again.*option == options.*option, "a value is read back");
  CheckDriver(options, "FreeTDS", 7, 10);
  CheckDriver(options, "ODBC Driver 18 for SQL Server", 6, 9);
}

}  // namespace quorvel::fuzz
