#pragma once

#include <string>
#include <string_view>

#include <wx/string.h>

namespace quorvel::ui {

/// Converts UTF-8 to the text of controls and back, independent of the locale. Bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] wxString ToWx(std::string_view text);
[[nodiscard]] std::string FromWx(const wxString& text);

}  // namespace quorvel::ui
