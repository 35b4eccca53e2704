#pragma once

#include <quorvel/com.h>

#include <string_view>

/// COM under the same names on every platform.
namespace quorvel::com {

using namespace Quorvel;

/// A name in the platform's wide characters.
using Name = std::basic_string_view<OLECHAR>;

}  // namespace quorvel::com
