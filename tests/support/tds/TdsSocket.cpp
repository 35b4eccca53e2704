#include "tests/support/tds/TdsSocket.h"

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace quorvel::test::tds {
namespace {

constexpr std::size_t kHeader = 8;
constexpr std::size_t kPacket = 4096;
constexpr std::uint8_t kAnswer = 4;
constexpr std::uint8_t kEnd = 1;

bool ReadExactly(int socket, char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t got = ::recv(socket, bytes, count, 0);
    if (got <= 0) return false;
    bytes += got;
    count -= static_cast<std::size_t>(got);
  }
  return true;
}

void Require(bool isDone, const char* what) {
  if (!isDone) throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

Socket Listen() {
  Socket listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  Require(static_cast<bool>(listener), "socket");
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  Require(::bind(listener.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0, "bind");
  Require(::listen(listener.Get(), SOMAXCONN) == 0, "listen");
  return listener;
}

std::uint16_t PortOf(int socket) {
  sockaddr_in address{};
  socklen_t length = sizeof address;
  Require(::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &length) == 0, "getsockname");
  return ntohs(address.sin_port);
}

std::optional<Message> Receive(int socket) {
  Message message;
  std::array<char, kHeader> header{};
  do {
    if (!ReadExactly(socket, header.data(), header.size())) return std::nullopt;
    const auto byte = [&header](std::size_t at) { return static_cast<unsigned char>(header.at(at)); };
    const std::size_t size = (std::size_t{byte(2)} << 8U | byte(3)) - kHeader;
    message.type = byte(0);
    const std::size_t before = message.bytes.size();
    message.bytes.resize(before + size);
    if (!ReadExactly(socket, message.bytes.data() + before, size)) return std::nullopt;
  } while ((static_cast<unsigned char>(header[1]) & kEnd) == 0);
  return message;
}

void Send(int socket, std::string_view answer, bool isWhole) {
  std::uint8_t number = 1;
  do {
    const std::string_view part = answer.substr(0, kPacket - kHeader);
    answer.remove_prefix(part.size());
    const std::size_t size = part.size() + kHeader;
    const bool isLast = isWhole && answer.empty();
    std::string packet(kHeader, '\0');
    packet[0] = kAnswer;
    packet[1] = isLast ? kEnd : 0;
    packet[2] = static_cast<char>(size >> 8U);
    packet[3] = static_cast<char>(size & 0xFFU);
    packet[6] = static_cast<char>(number++);
    packet += part;
    if (::send(socket, packet.data(), packet.size(), MSG_NOSIGNAL) < 0) return;
  } while (!answer.empty());
}

bool WaitForClient(int socket, std::chrono::milliseconds time) {
  pollfd entry{socket, POLLIN, 0};
  return ::poll(&entry, 1, static_cast<int>(time.count())) > 0;
}

}  // namespace quorvel::test::tds
