#include "ado/odbc/ServerAddress.h"

#include <fmt/format.h>

#include <charconv>

#include "ado/engine/DriverError.h"
#include "platform/Text.h"

namespace quorvel::ado::odbc {
namespace {

bool IsPort(std::string_view text) {
  unsigned port = 0;
  const auto [end, code] = std::from_chars(text.data(), text.data() + text.size(), port);
  return code == std::errc{} && end == text.data() + text.size() && port >= 1 && port <= 65535;
}

}  // namespace

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
  // SQL Server's names for the local machine.
  if (address.host == "." || EqualIgnoringCase(address.host, "(local)")) address.host = "localhost";
  return address;
}

}  // namespace quorvel::ado::odbc
