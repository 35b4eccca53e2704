#pragma once

#include <unistd.h>

#include <chrono>
#include <optional>
#include <string_view>

#include "platform/UniqueHandle.h"
#include "tests/support/tds/TdsReader.h"

namespace quorvel::test::tds {

struct SocketTraits {
  using Type = int;
  static Type Invalid() noexcept { return -1; }
  static void Close(Type socket) noexcept { ::close(socket); }
};
using Socket = UniqueHandle<SocketTraits>;

/// Listens on a free port of the loopback address. Throws std::system_error.
[[nodiscard]] Socket Listen();
[[nodiscard]] std::uint16_t PortOf(int socket);

/// The next message of the client; nothing when it has disconnected.
[[nodiscard]] std::optional<Message> Receive(int socket);
/// Sends an answer in packets; `isWhole` false leaves out the mark of the end. A client that has disconnected is
/// ignored.
void Send(int socket, std::string_view answer, bool isWhole = true);
/// Whether the client sends something before the time is over.
[[nodiscard]] bool WaitForClient(int socket, std::chrono::milliseconds time);

}  // namespace quorvel::test::tds
