#pragma once

#include <string>
#include <string_view>

#include "platform/com/Com.h"

namespace quorvel::com {

/// A new BSTR, never null. Embedded zeros are kept; bytes that are not UTF-8 become U+FFFD. Throws
/// std::bad_alloc.
[[nodiscard]] BSTR ToBstr(std::string_view text);

/// Null is the empty text; half a surrogate pair becomes U+FFFD.
[[nodiscard]] std::string FromBstr(BSTR text);

/// A text of the platform's wide characters.
[[nodiscard]] std::string FromWide(Name text);

/// "{42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}", as registries and type libraries write an identifier.
[[nodiscard]] std::string TextOf(const GUID& id);

}  // namespace quorvel::com
