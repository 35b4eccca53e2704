#include "data/modUserName.h"

#include <array>
#include <string_view>

#include "platform/Environment.h"

namespace quorvel::modUserName {

std::string GetUserName() {
  std::array<char, 256> buffer{};
  buffer.fill('*');
  if (!ReadLogonName(buffer)) return "";
  const std::string_view text(buffer.data(), buffer.size());
  const std::size_t zero = text.find('\0');
  return zero != std::string_view::npos ? std::string(text.substr(0, zero)) : "";
}

}  // namespace quorvel::modUserName
