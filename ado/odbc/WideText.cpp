#include "ado/odbc/WideText.h"

#include "ado/engine/DriverError.h"
#include "platform/Utf.h"

namespace quorvel::ado::odbc {

std::u16string ToWide(std::string_view text) {
  auto wide = utf::ToUtf16(text);
  if (!wide) throw DriverError("22021", 0, "The text is not well-formed UTF-8; nothing was sent.");
  return std::move(*wide);
}

std::string FromWide(const SQLWCHAR* text, std::size_t length) {
  std::string narrow;
  utf::AppendUtf8(narrow, {reinterpret_cast<const char16_t*>(text), length});
  return narrow;
}

}  // namespace quorvel::ado::odbc
