#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Value.h"

namespace quorvel::test::tds {

/// One message of a client, joined from its packets.
struct Message {
  std::uint8_t type = 0;
  std::string bytes;
};

/// Takes the fields of a message from its front; numbers are little-endian. Throws std::out_of_range after the end.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : m_rest(bytes) {}

  [[nodiscard]] bool AtEnd() const noexcept { return m_rest.empty(); }
  [[nodiscard]] std::string_view Bytes(std::size_t count);
  template <typename Number>
  [[nodiscard]] Number Take() {
    return static_cast<Number>(Unsigned(sizeof(Number)));
  }
  /// A number of at most 8 bytes.
  [[nodiscard]] std::uint64_t Unsigned(std::size_t size);
  /// A text of so many UTF-16 units, as UTF-8.
  [[nodiscard]] std::string Text(std::size_t units);
  [[nodiscard]] std::string RestAsText() { return Text(m_rest.size() / 2); }

 private:
  std::string_view m_rest;
};

/// The credentials of a login message.
struct Login {
  std::string user;
  std::string password;
  std::string database;
};
[[nodiscard]] Login ReadLogin(std::string_view message);

/// A batch, a batch with parameters (sp_executesql), or a remote procedure call.
struct Request {
  struct Parameter {
    std::string name;
    bool isOutput = false;
    Value value;
  };
  std::string text;  ///< of the batch, or the procedure's name
  bool isCall = false;
  std::vector<Parameter> parameters = {};
};
[[nodiscard]] Request ReadRequest(const Message& message);

}  // namespace quorvel::test::tds
