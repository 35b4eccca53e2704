#include "platform/windows/WideText.h"

#include "platform/Utf.h"

namespace quorvel::os {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "the system's wide texts are UTF-16");

std::optional<std::wstring> ToWide(std::string_view text) {
  const auto wide = utf::ToUtf16(text);
  return wide ? std::optional<std::wstring>(std::in_place, wide->begin(), wide->end()) : std::nullopt;
}

std::string FromWide(std::wstring_view text) {
  std::string narrow;
  utf::AppendUtf8(narrow, {reinterpret_cast<const char16_t*>(text.data()), text.size()});
  return narrow;
}

}  // namespace quorvel::os
