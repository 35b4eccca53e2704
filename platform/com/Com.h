#pragma once

#include <quorvel/com.h>

#include <string_view>

/// COM as the component itself uses it: the same names on every platform.
namespace quorvel::com {

using namespace Quorvel;

/// A name of the boundary, in the platform's wide characters.
using Name = std::basic_string_view<OLECHAR>;

}  // namespace quorvel::com
