#pragma once

#include <string>
#include <string_view>

#include "platform/com/Com.h"

namespace quorvel::com {

/// A new BSTR, never null, with the zeros that the text has; bytes that are not UTF-8 become U+FFFD. Throws
/// std::bad_alloc.
[[nodiscard]] BSTR ToBstr(std::string_view text);

/// Null is the empty text; half a surrogate pair becomes U+FFFD.
[[nodiscard]] std::string FromBstr(BSTR text);

/// A text of the platform's wide characters.
[[nodiscard]] std::string FromWide(Name text);

}  // namespace quorvel::com
