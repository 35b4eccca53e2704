#include "platform/wx/Text.h"

#include "platform/Utf.h"

namespace quorvel::ui {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr bool kIsUtf16 = sizeof(wchar_t) == sizeof(char16_t);

bool IsScalar(char32_t character) { return character < 0xD800 || (character > 0xDFFF && character < 0x110000); }

void AppendWide(std::wstring& wide, char32_t character) {
  if constexpr (kIsUtf16) {
    if (character >= 0x10000) {
      wide += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
      character = 0xDC00 + (character & 0x3FF);
    }
  }
  wide += static_cast<wchar_t>(character);
}

}  // namespace

// The toolkit's own conversions return an empty text when one byte is invalid.
wxString ToWx(std::string_view text) {
  std::wstring wide;
  wide.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const char32_t character = utf::Take(text, position);
    AppendWide(wide, IsScalar(character) ? character : kReplacement);
  }
  return wide;
}

std::string FromWx(const wxString& text) {
  const std::wstring_view wide(text.wc_str(), text.length());
  std::string narrow;
  if constexpr (kIsUtf16) {
    utf::AppendUtf8(narrow, std::u16string(wide.begin(), wide.end()));
  } else {
    for (const wchar_t character : wide) {
      const auto scalar = static_cast<char32_t>(character);
      utf::Append(narrow, IsScalar(scalar) ? scalar : kReplacement);
    }
  }
  return narrow;
}

}  // namespace quorvel::ui
