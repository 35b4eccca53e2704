#pragma once

#include <string>
#include <string_view>

#include <wx/string.h>

namespace quorvel::ui {

/// UTF-8 to what controls take, and back; both independent of the locale. Bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] wxString ToWx(std::string_view text);
[[nodiscard]] std::string FromWx(const wxString& text);

}  // namespace quorvel::ui
